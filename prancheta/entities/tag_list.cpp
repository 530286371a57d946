// SPDX-License-Identifier: MIT
// Reading and changing the groups of a foreign entity.
#include "prancheta/entities/tag_list.h"

#include <cmath>

#include "prancheta/base/caret.h"
#include "prancheta/base/text.h"

namespace prancheta {

double tagNumber(const RawTag& tag) {
    double value = 0.0;
    (void)parseNumber(trim(std::string_view(tag.value)), value);
    return std::isfinite(value) ? value : 0.0;
}

int tagWhole(const RawTag& tag) {
    const double value = tagNumber(tag);
    return std::abs(value) < 2e9 ? static_cast<int>(value) : 0;
}

namespace {

const RawTag* find(const RawTags& tags, int code) {
    for (const RawTag& tag : tags)
        if (tag.code == code) return &tag;
    return nullptr;
}

}  // namespace

double findNumber(const RawTags& tags, int code, double fallback) {
    const RawTag* tag = find(tags, code);
    return tag != nullptr ? tagNumber(*tag) : fallback;
}

int findWhole(const RawTags& tags, int code, int fallback) {
    const RawTag* tag = find(tags, code);
    return tag != nullptr ? tagWhole(*tag) : fallback;
}

std::wstring findText(const RawTags& tags, int code) {
    const RawTag* tag = find(tags, code);
    return tag != nullptr ? toWide(tag->value) : std::wstring();
}

std::wstring findName(const RawTags& tags, int code) {
    std::wstring name(trim(std::wstring_view(findText(tags, code))));
    decodeCarets(name);
    return name;
}

std::size_t pointLength(const RawTags& tags, std::size_t i) {
    const int code = tags[i].code;
    std::size_t length = 1;
    if (i + 1 < tags.size() && tags[i + 1].code == code + 10) ++length;
    if (length == 2 && i + 2 < tags.size() && tags[i + 2].code == code + 20) ++length;
    return length;
}

AcGePoint3d pointAt(const RawTags& tags, std::size_t i) {
    const std::size_t length = pointLength(tags, i);
    return {tagNumber(tags[i]), length > 1 ? tagNumber(tags[i + 1]) : 0.0,
            length > 2 ? tagNumber(tags[i + 2]) : 0.0};
}

void setPointAt(RawTags& tags, std::size_t i, const AcGePoint3d& p) {
    const double values[3] = {p.x, p.y, p.z};
    const std::size_t length = pointLength(tags, i);
    for (std::size_t k = 0; k < length; ++k) setNumber(tags[i + k], values[k]);
}

AcGePoint3d findPoint(const RawTags& tags, int code, const AcGePoint3d& fallback) {
    for (std::size_t i = 0; i < tags.size(); ++i)
        if (tags[i].code == code) return pointAt(tags, i);
    return fallback;
}

std::vector<AcGePoint3d> findPoints(const RawTags& tags, int code) {
    std::vector<AcGePoint3d> points;
    for (std::size_t i = 0; i < tags.size(); ++i)
        if (tags[i].code == code) points.push_back(pointAt(tags, i));
    return points;
}

std::vector<double> findNumbers(const RawTags& tags, int code) {
    std::vector<double> numbers;
    for (const RawTag& tag : tags)
        if (tag.code == code) numbers.push_back(tagNumber(tag));
    return numbers;
}

void setNumber(RawTag& tag, double value) {
    if (tagNumber(tag) != value) tag.value = numberText(value);
}

void setFirst(RawTags& tags, int code, double value) {
    for (RawTag& tag : tags)
        if (tag.code == code) return setNumber(tag, value);
    tags.push_back({code, numberText(value)});
}

void writeBytes(AcDbDwgFiler& filer, const std::string& text) {
    filer.writeUInt32(static_cast<Adesk::UInt32>(text.size()));
    if (!text.empty()) filer.writeBytes(text.data(), static_cast<Adesk::UInt32>(text.size()));
}

Acad::ErrorStatus readBytes(AcDbDwgFiler& filer, std::string& text) {
    Adesk::UInt32 size = 0;
    const Acad::ErrorStatus es = filer.readUInt32(&size);
    if (es != Acad::eOk) return es;
    text.resize(size);
    return size == 0 ? Acad::eOk : filer.readBytes(text.data(), size);
}

void writeTags(AcDbDwgFiler& filer, const RawTags& tags) {
    filer.writeUInt32(static_cast<Adesk::UInt32>(tags.size()));
    for (const RawTag& tag : tags) {
        filer.writeInt32(tag.code);
        writeBytes(filer, tag.value);
    }
}

Acad::ErrorStatus readTags(AcDbDwgFiler& filer, RawTags& tags) {
    Adesk::UInt32 count = 0;
    Acad::ErrorStatus es = filer.readUInt32(&count);
    if (es != Acad::eOk) return es;
    tags.resize(count);
    for (RawTag& tag : tags) {
        Adesk::Int32 code = 0;
        filer.readInt32(&code);
        tag.code = code;
        es = readBytes(filer, tag.value);
        if (es != Acad::eOk) return es;
    }
    return Acad::eOk;
}

}  // namespace prancheta
