// SPDX-License-Identifier: MIT
// Slide libraries, and the cache of those in use.
#include "prancheta/slides/library.h"

#include <algorithm>
#include <map>

#include "prancheta/base/file.h"
#include "prancheta/base/file_stamp.h"
#include "prancheta/base/text.h"
#include "prancheta/base/utf8_path.h"

namespace prancheta::slides {
namespace fs = std::filesystem;
namespace {

constexpr std::string_view kLibraryId("AutoCAD Slide Library 1.0\r\n\x1a\0\0\0\0", 32);
constexpr std::size_t kEntry = 36;
constexpr std::size_t kName = 32;

Error libraryError(std::string text) { return {std::move(text), {}, 0, 0}; }

std::string upperAscii(std::string name) {
    std::transform(name.begin(), name.end(), name.begin(),
                   [](char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 32) : c; });
    return name;
}

/// A file in use: its slides by upper-case name (a slide file has one without a name).
struct LoadedFile {
    FileStamp stamp;
    std::map<std::string, std::shared_ptr<const Slide>, std::less<>> slides;
};

void decodeInto(LoadedFile& file, const std::string& bytes, bool isLibrary) {
    const auto add = [&file](std::string name, std::string_view image) {
        if (auto slide = readSlide(image))
            file.slides.emplace(std::move(name), std::make_shared<const Slide>(std::move(*slide)));
    };
    if (!isLibrary) return add({}, bytes);
    const auto entries = readLibrary(bytes);
    if (!entries) return;
    for (const LibraryEntry& entry : *entries) add(entry.name, entry.image);
}

/// Null when the file cannot be read. A file that is still the one that was read costs one question
/// to the system.
const LoadedFile* askedFile(const std::wstring& written, bool isLibrary) {
    static std::map<fs::path::string_type, LoadedFile> cache;
    std::string slashed = toUtf8(written);
    std::replace(slashed.begin(), slashed.end(), '\\', '/');
    fs::path path = pathFromUtf8(slashed);
    auto stamp = fileStampOf(path);
    if (!stamp) {
        path = resolvePath(written);
        stamp = fileStampOf(path);
    }
    if (!stamp) return nullptr;
    LoadedFile& file = cache[path.native()];
    if (file.stamp == *stamp) return &file;
    const auto bytes = readFile(path);
    if (!bytes) return nullptr;
    file = {*stamp, {}};
    decodeInto(file, *bytes, isLibrary);
    return &file;
}

/// A dialog shows many slides of few files, each of which is asked about once.
const LoadedFile* loadedFile(const std::wstring& written, bool isLibrary, std::uint64_t moment) {
    struct Asked {
        std::uint64_t moment = 0;
        std::map<std::wstring, const LoadedFile*> files;
    };
    static Asked asked;
    if (moment == 0 || moment != asked.moment) asked = {moment, {}};
    const auto [file, isNew] = asked.files.try_emplace(written);
    if (isNew) file->second = askedFile(written, isLibrary);
    return file->second;
}

}  // namespace

Result<std::vector<LibraryEntry>> readLibrary(std::string_view bytes) {
    if (bytes.substr(0, kLibraryId.size()) != kLibraryId)
        return libraryError("não é uma biblioteca de slides (cabeçalho inválido)");
    std::vector<LibraryEntry> entries;
    std::vector<std::size_t> offsets;
    for (std::size_t at = kLibraryId.size();; at += kEntry) {
        if (at + kEntry > bytes.size())
            return libraryError("biblioteca de slides truncada: o diretório não termina");
        if (bytes[at] == '\0') break;
        const std::string_view field = bytes.substr(at, kName);
        std::size_t offset = 0;
        for (std::size_t i = kEntry; i-- > kName;)
            offset = offset << 8 | static_cast<unsigned char>(bytes[at + i]);
        entries.push_back({upperAscii(std::string(field.substr(0, field.find('\0')))), {}});
        offsets.push_back(offset);
        if (offset >= bytes.size())
            return libraryError("biblioteca de slides danificada: o slide \"" +
                                entries.back().name + "\" fica fora do arquivo");
    }
    // A slide ends where the next one in the file begins; the directory need not be in file order.
    std::vector<std::size_t> ends = offsets;
    ends.push_back(bytes.size());
    std::sort(ends.begin(), ends.end());
    for (std::size_t i = 0; i < entries.size(); ++i) {
        const std::size_t end = *std::upper_bound(ends.begin(), ends.end(), offsets[i]);
        entries[i].image = bytes.substr(offsets[i], end - offsets[i]);
    }
    return entries;
}

Result<std::string> writeLibrary(const std::vector<LibraryEntry>& entries) {
    std::string out(kLibraryId);
    std::size_t offset = kLibraryId.size() + (entries.size() + 1) * kEntry;
    for (const LibraryEntry& entry : entries) {
        if (entry.name.empty() || entry.name.size() >= kName)
            return libraryError("nome de slide inválido: \"" + entry.name +
                                "\" (use de 1 a 31 caracteres)");
        std::string name = upperAscii(entry.name);
        name.resize(kName, '\0');
        out += name;
        for (unsigned shift = 0; shift < 32; shift += 8)
            out.push_back(static_cast<char>(offset >> shift & 0xFF));
        offset += entry.image.size();
    }
    out.append(kEntry, '\0');
    for (const LibraryEntry& entry : entries) out += entry.image;
    return out;
}

SlideReference splitReference(std::wstring_view reference) {
    const auto open = reference.rfind(L'(');
    const auto folder = reference.find_last_of(L"\\/");
    const bool inName =
        open != std::wstring_view::npos && (folder == std::wstring_view::npos || open > folder);
    if (!inName || reference.back() != L')') return {std::wstring(reference), {}};
    return {std::wstring(reference.substr(0, open)),
            std::wstring(reference.substr(open + 1, reference.size() - open - 2))};
}

/// Programs write folders with backslashes, which are no separators here.
bool hasExtension(std::wstring_view path) {
    return path.substr(path.find_last_of(L"\\/") + 1).rfind(L'.') != std::wstring_view::npos;
}

std::shared_ptr<const Slide> loadSlide(std::wstring_view reference, std::uint64_t moment) {
    SlideReference parts = splitReference(reference);
    const bool isLibrary = !parts.slide.empty();
    if (isLibrary)
        parts.path += L".slb";
    else if (!hasExtension(parts.path))
        parts.path += L".sld";
    const LoadedFile* const file = loadedFile(parts.path, isLibrary, moment);
    if (file == nullptr) return nullptr;
    const auto found = file->slides.find(upperAscii(toUtf8(parts.slide)));
    return found == file->slides.end() ? nullptr : found->second;
}

}  // namespace prancheta::slides
