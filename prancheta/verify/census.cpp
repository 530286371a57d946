// SPDX-License-Identifier: MIT
// Walk through the records, and what the file defines.
#include "prancheta/verify/census.h"

#include <algorithm>

#include "prancheta/base/code_page.h"
#include "prancheta/base/text.h"

namespace prancheta::verify {
namespace {

struct NamedPlace {
    std::string_view name;
    Place place;
};

constexpr NamedPlace kPlaces[] = {
    {"HEADER", Place::Header}, {"CLASSES", Place::Classes},   {"TABLES", Place::Tables},
    {"BLOCKS", Place::Blocks}, {"ENTITIES", Place::Entities}, {"OBJECTS", Place::Objects},
};

struct NamedKind {
    std::string_view table;
    Census::Names kind;
};

constexpr NamedKind kKinds[] = {
    {"LAYER", Census::kLayers},       {"LTYPE", Census::kLinetypes},    {"STYLE", Census::kStyles},
    {"DIMSTYLE", Census::kDimStyles}, {"APPID", Census::kApplications},
};

Place placeOf(std::string_view name) {
    for (const NamedPlace& known : kPlaces)
        if (known.name == name) return known.place;
    return Place::Other;
}

void readHeader(const dxf::Record& header, Census& census) {
    std::string_view variable;
    for (const dxf::Tag& tag : header.tags) {
        if (tag.code == 9) variable = trim(tag.value);
        if (tag.code == 1 && variable == "$ACADVER") census.version = trim(tag.value);
        if (tag.code == 5 && variable == "$HANDSEED") census.seed = handleValue(tag.value);
        if (tag.code == 3 && variable == "$DWGCODEPAGE")
            census.page = CodePage::named(trim(tag.value));
    }
    census.charset = dxf::charsetOf(census.version);
    if (census.charset == dxf::Charset::Windows1252 && census.page != nullptr)
        census.charset = dxf::Charset(*census.page);
    census.modern = census.version >= "AC1015";
}

void readNames(const dxf::Record& record, Census& census) {
    const std::string_view name = trim(valueOf(record, 2));
    for (const NamedKind& known : kKinds)
        if (known.table == record.type)
            census.names[known.kind].insert(nameKey(name, census.charset));
    if (record.type != "BLOCK_RECORD") return;
    const std::string key = nameKey(name, census.charset);
    const std::uint64_t handle = handleOf(record);
    census.blockRecords.emplace(key, handle);
    if (key == "*model_space") census.modelSpace = handle;
    if (key.starts_with("*paper_space")) census.paperSpaces.insert(handle);
}

}  // namespace

bool Walker::next(dxf::Record& record) {
    if (record.type == "ENDTAB") table = {};
    if (record.type == "ENDBLK") block = {};
    if (record.type == "ENDSEC") place = Place::Outside;
    if (!m_reader.next(record)) return false;
    if (record.type == "SECTION") place = placeOf(trim(valueOf(record, 2)));
    if (record.type == "TABLE") table = trim(valueOf(record, 2));
    if (record.type == "BLOCK") block = trim(valueOf(record, 2));
    return true;
}

std::string_view valueOf(const dxf::Record& record, int code) {
    for (const dxf::Tag& tag : record.tags)
        if (tag.code == code) return tag.value;
    return {};
}

std::uint64_t handleValue(std::string_view text) {
    std::uint64_t handle = 0;
    return dxf::parseHandle(text, handle) ? handle : 0;
}

std::uint64_t handleOf(const dxf::Record& record) {
    // DIMSTYLE keeps an arrow block's name in group 5.
    const int code = record.type == "DIMSTYLE" ? 105 : 5;
    for (const dxf::Tag& tag : record.tags) {
        if (tag.code == code) return handleValue(tag.value);
        if (tag.code == 100) break;
    }
    return 0;
}

std::uint64_t ownerOf(const dxf::Record& record) {
    bool inBraces = false;
    for (const dxf::Tag& tag : record.tags) {
        if (tag.code == 102) inBraces = trim(tag.value).starts_with('{');
        if (tag.code == 330 && !inBraces) return handleValue(tag.value);
        if (tag.code == 100) break;
    }
    return 0;
}

std::string nameKey(std::string_view raw, dxf::Charset charset) {
    std::string key(trim(raw));
    const bool plain = std::all_of(key.begin(), key.end(), [](char c) {
        return static_cast<unsigned char>(c) < 0x80 && c != '\\' && c != '^';
    });
    if (!plain) return toUtf8(foldCase(dxf::decodeText(raw, charset)));
    for (char& c : key)
        if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
    return key;
}

Census takeCensus(std::string_view text) {
    Census census;
    Walker walker(text);
    dxf::Record record;
    while (walker.next(record)) {
        if (record.type == "SECTION" && walker.place == Place::Header) readHeader(record, census);
        if (walker.place == Place::Header || walker.place == Place::Classes) continue;
        if (walker.place == Place::Tables) readNames(record, census);
        if (walker.place == Place::Blocks && record.type == "BLOCK")
            census.names[Census::kBlocks].insert(nameKey(walker.block, census.charset));
        const std::uint64_t handle = handleOf(record);
        if (handle == 0) continue;
        census.largest = std::max(census.largest, handle);
        census.objects.try_emplace(handle, Census::Object{record.type, ownerOf(record)});
    }
    return census;
}

}  // namespace prancheta::verify
