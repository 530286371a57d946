// SPDX-License-Identifier: MIT
// Extended data between typed lists and the groups in which they are kept.
#include "prancheta/database/xdata.h"

#include <charconv>
#include <cmath>
#include <cstdlib>

#include "prancheta/base/text.h"

namespace prancheta {
namespace {

constexpr int kMaxBinary = 127;

bool isPointCode(int code) { return code >= 1010 && code <= 1013; }

std::string hexOf(const ads_binary& binary) {
    static const char kDigits[] = "0123456789ABCDEF";
    std::string text;
    for (short i = 0; i < binary.clen; ++i) {
        const auto byte = static_cast<unsigned char>(binary.buf[i]);
        text += kDigits[byte >> 4];
        text += kDigits[byte & 15];
    }
    return text;
}

bool binaryOfHex(const std::string& text, ads_binary& binary) {
    const std::size_t size = text.size() / 2;
    if (text.size() % 2 != 0 || size > kMaxBinary) return false;
    auto* bytes = static_cast<char*>(std::malloc(size + 1));
    for (std::size_t i = 0; i < size; ++i) {
        unsigned value = 0;
        const char* first = text.data() + 2 * i;
        if (std::from_chars(first, first + 2, value, 16).ptr != first + 2) {
            std::free(bytes);
            return false;
        }
        bytes[i] = static_cast<char>(value);
    }
    binary.buf = bytes;
    binary.clen = static_cast<short>(size);
    return true;
}

bool isHandle(std::string_view text) {
    return !text.empty() && text.size() <= 16 &&
           text.find_first_not_of("0123456789ABCDEFabcdef") == std::string_view::npos;
}

/// Appends the groups of one item: three for a point.
bool appendItem(const resbuf& item, RawTags& tags) {
    const int code = item.restype;
    if (code < 1000 || code > 1071) return false;
    switch (kindOfValue(code)) {
        case ValueKind::Text: {
            std::string text = item.resval.rstring != nullptr ? toUtf8(item.resval.rstring) : "";
            if (writtenSize(text) > kMaxXdataText ||
                text.find_first_of("\r\n") != std::string::npos)
                return false;
            if (code == 1005 && !isHandle(text)) return false;
            if (code == 1002 && text != "{" && text != "}") return false;
            tags.push_back({code, std::move(text)});
            return true;
        }
        case ValueKind::Binary:
            if (item.resval.rbinary.clen < 0 || item.resval.rbinary.clen > kMaxBinary) return false;
            tags.push_back({code, hexOf(item.resval.rbinary)});
            return true;
        case ValueKind::Point:
            for (int i = 0; i < 3; ++i) {
                if (!std::isfinite(item.resval.rpoint[i])) return false;
                tags.push_back({code + 10 * i, numberText(item.resval.rpoint[i])});
            }
            return true;
        case ValueKind::Real:
            if (code < 1040 || code > 1042 || !std::isfinite(item.resval.rreal)) return false;
            tags.push_back({code, numberText(item.resval.rreal)});
            return true;
        case ValueKind::Int16:
            tags.push_back({code, std::to_string(item.resval.rint)});
            return code == 1070;
        case ValueKind::Int32:
            tags.push_back({code, std::to_string(item.resval.rlong)});
            return true;
        default:
            return false;
    }
}

template <class Number>
bool wholeNumber(const std::string& text, Number& value) {
    const std::string_view trimmed = trim(text);
    const auto [end, error] =
        std::from_chars(trimmed.data(), trimmed.data() + trimmed.size(), value);
    return error == std::errc() && end == trimmed.data() + trimmed.size();
}

/// The value of tags[i]; a point takes the two groups that follow. Null when it makes no sense.
resbuf* itemOfTag(const RawTags& tags, std::size_t i) {
    const RawTag& tag = tags[i];
    const ValueKind kind = kindOfValue(tag.code);
    if (kind == ValueKind::Text) return newTextItem(tag.code, toWide(tag.value));
    ListOwner item(acutNewRb(tag.code));
    bool good = false;
    if (kind == ValueKind::Real) good = parseNumber(tag.value, item->resval.rreal);
    if (kind == ValueKind::Int16) good = wholeNumber(tag.value, item->resval.rint);
    if (kind == ValueKind::Int32) good = wholeNumber(tag.value, item->resval.rlong);
    if (kind == ValueKind::Binary) good = binaryOfHex(tag.value, item->resval.rbinary);
    if (kind == ValueKind::Point) {
        good = i + 2 < tags.size() && tags[i + 1].code == tag.code + 10 &&
               tags[i + 2].code == tag.code + 20;
        for (std::size_t k = 0; good && k < 3; ++k)
            good = parseNumber(tags[i + k].value, item->resval.rpoint[k]);
    }
    return good ? item.release() : nullptr;
}

std::size_t sizeOfTag(int code, std::string_view value) {
    switch (kindOfValue(code)) {
        case ValueKind::Text:
            return code == 1005 ? 9 : 3 + writtenSize(value);
        case ValueKind::Binary:
            return 2 + value.size() / 2;
        case ValueKind::Int16:
            return 3;
        case ValueKind::Int32:
            return 5;
        default:
            return 9;
    }
}

}  // namespace

std::size_t writtenSize(std::string_view utf8) {
    constexpr std::size_t kEscape = 7;
    std::size_t size = 0;
    for (const char c : utf8) {
        const auto byte = static_cast<unsigned char>(c);
        const bool continues = byte >= 0x80 && byte < 0xC0;
        if (byte < 0x80)
            size += 1;
        else if (!continues)  // beyond U+FFFF two escapes
            size += byte < 0xC4 ? 2 : byte < 0xF0 ? kEscape : 2 * kEscape;
    }
    return size;
}

Acad::ErrorStatus tagsOfList(const resbuf* list, RawTags& tags) {
    if (list == nullptr || list->restype != 1001) return Acad::eInvalidInput;
    int open = 0;
    for (; list != nullptr; list = list->rbnext) {
        if (list->restype == 1001 && open != 0) return Acad::eInvalidInput;
        if (!appendItem(*list, tags)) return Acad::eInvalidInput;
        if (list->restype == 1002) open += tags.back().value == "{" ? 1 : -1;
        if (open < 0) return Acad::eInvalidInput;
    }
    return open == 0 ? Acad::eOk : Acad::eInvalidInput;
}

ListOwner listOfTags(const RawTags& tags, const ACHAR* application) {
    ListBuilder list;
    bool wanted = application == nullptr;
    for (std::size_t i = 0; i < tags.size(); ++i) {
        if (tags[i].code == 1001 && application != nullptr)
            wanted = equalNoCase(toWide(tags[i].value), application);
        if (!wanted) continue;
        if (resbuf* item = itemOfTag(tags, i)) list.add(item);
        if (isPointCode(tags[i].code)) i += 2;
    }
    return ListOwner(list.release());
}

std::size_t xdataSize(const RawTags& tags) {
    std::size_t size = 0;
    for (const RawTag& tag : tags) size += sizeOfTag(tag.code, tag.value);
    return size;
}

std::size_t xdataSize(const PackedTags& tags) {
    std::size_t size = 0;
    for (const RawTagView& tag : tags) size += sizeOfTag(tag.code, tag.value);
    return size;
}

void transformXdata(RawTags& tags, const AcGeMatrix3d& m) {
    const double scale = m.scale();
    for (std::size_t i = 0; i < tags.size(); ++i) {
        double number = 0.0;
        if ((tags[i].code == 1041 || tags[i].code == 1042) && parseNumber(tags[i].value, number))
            tags[i].value = numberText(number * scale);
        if (!isPointCode(tags[i].code)) continue;
        const ListOwner item(itemOfTag(tags, i));
        if (item == nullptr) continue;
        const ads_point& p = item->resval.rpoint;
        AcGeVector3d v(p[X], p[Y], p[Z]);
        const double length = v.length();
        if (tags[i].code == 1011) v = (m * AcGePoint3d(v.x, v.y, v.z)).asVector();
        if (tags[i].code == 1012 || tags[i].code == 1013) v = m * v;
        if (tags[i].code == 1013 && v.length() > 0.0) v *= length / v.length();
        tags[i].value = numberText(v.x);
        tags[i + 1].value = numberText(v.y);
        tags[i + 2].value = numberText(v.z);
        i += 2;
    }
}

}  // namespace prancheta
