// SPDX-License-Identifier: MIT
// Frames of pieces, and records of pieces taken apart.
#include "prancheta/dxf/piece_record.h"

#include <algorithm>
#include <charconv>
#include <cmath>

#include "prancheta/base/text.h"
#include "prancheta/dxf/fields.h"
#include "prancheta/geometry/angles.h"

namespace prancheta::dxf {
namespace {

/// Code that a value of an XRECORD has in extended data.
struct CodePair {
    int xrecord;
    int xdata;
};
constexpr CodePair kCodes[] = {{1, 1000},  {40, 1040}, {10, 1010}, {20, 1020},
                               {30, 1030}, {70, 1070}, {90, 1071}, {330, 1005}};

/// Reads "70x3" or "1/2"; false when it is neither.
bool parseEntry(std::string_view entry, int& code, int& count, int& parts) {
    code = -1;
    count = parts = 1;
    if (entry == "=") return true;
    const char* const end = entry.data() + entry.size();
    auto [at, error] = std::from_chars(entry.data(), end, code);
    if (error != std::errc() || code < 0) return false;
    if (at == end) return true;
    int* const number = *at == 'x' ? &count : *at == '/' ? &parts : nullptr;
    if (number == nullptr) return false;
    const auto [last, bad] = std::from_chars(at + 1, end, *number);
    return bad == std::errc() && last == end && *number > 0 && *number < 100000;
}

bool parseCodes(std::string_view list, PieceRecord& record) {
    while (!list.empty()) {
        const std::size_t comma = std::min(list.find(','), list.size());
        int code = 0;
        int count = 0;
        int parts = 0;
        if (!parseEntry(list.substr(0, comma), code, count, parts)) return false;
        for (; count > 0; --count) record.codes.emplace_back(code, parts);
        list.remove_prefix(std::min(comma + 1, list.size()));
    }
    return true;
}

/// True when the values are those that the list of codes tells.
bool valuesMatch(const PieceRecord& record) {
    std::size_t at = 0;
    const auto is = [&](std::size_t i, int code) {
        return i < record.values.size() && record.values[i].code == code;
    };
    for (const auto& [code, parts] : record.codes) {
        if (code < 0) continue;
        if (at >= record.values.size()) return false;
        const int kind = record.values[at].code;
        if (kind == 1010 && (!is(at + 1, 1020) || !is(at + 2, 1030))) return false;
        if (!fieldSuits(code, kind)) return false;
        const std::size_t size = kind == 1010 ? 3 : static_cast<std::size_t>(parts);
        for (std::size_t i = 1; kind != 1010 && i < size; ++i)
            if (kind != 1000 || !is(at + i, 1000)) return false;
        at += size;
    }
    return at == record.values.size();
}

/// Takes the list of codes, which goes on while it ends with a comma.
bool takeCodes(const Tag*& at, const Tag* last, PieceRecord& record) {
    std::string list;
    do {
        if (at == last || at->code != 1000) return false;
        list += trim(at++->value);
    } while (list.ends_with(','));
    if (list == "@") {
        record.apart = true;
        return true;
    }
    return parseCodes(list, record);
}

bool isBrace(const Tag& tag, std::string_view brace) {
    return tag.code == 1002 && trim(tag.value) == brace;
}

bool takeFrame(const Tag* at, const Tag* last, PieceFrame& frame) {
    double numbers[5] = {0.0, 0.0, 0.0, 0.0, 1.0};
    constexpr int kFrameCodes[5] = {1010, 1020, 1030, 1040, 1040};
    int count = 0;
    for (; at != last && count < 5 && at->code == kFrameCodes[count]; ++at, ++count)
        if (!parseReal(at->value, numbers[count])) return false;
    frame = {{numbers[0], numbers[1], numbers[2]}, numbers[3], numbers[4]};
    return count >= 3 && at != last && isBrace(*at, "}") && numbers[4] != 0.0;
}

}  // namespace

bool fieldSuits(int code, int xdataCode) {
    switch (kindOf(code)) {
        case ValueKind::Text:
        case ValueKind::Binary:
            return xdataCode == 1000;
        case ValueKind::Handle:
            return xdataCode == 1005;
        case ValueKind::Real:
            return xdataCode == 1040 || xdataCode == 1010;
        default:
            return xdataCode == 1070 || xdataCode == 1071;
    }
}

AcGeMatrix3d PieceFrame::matrix() const {
    const double size = std::abs(scale);
    AcGeMatrix3d scaling;
    scaling.setCoordSystem(AcGePoint3d::kOrigin, AcGeVector3d::kXAxis * scale,
                           AcGeVector3d::kYAxis * size, AcGeVector3d::kZAxis * size);
    return AcGeMatrix3d::translation(origin.asVector()) *
           AcGeMatrix3d::rotation(radiansOf(degrees), AcGeVector3d::kZAxis) * scaling;
}

bool frameOf(const AcGeMatrix3d& matrix, PieceFrame& frame) {
    if (!matrix.isUniScaledOrtho()) return false;
    AcGeVector3d x;
    AcGeVector3d y;
    AcGeVector3d z;
    matrix.getCoordSystem(frame.origin, x, y, z);
    const double size = matrix.scale();
    const bool flat = std::abs(x.z) <= 1e-12 * size && std::abs(y.z) <= 1e-12 * size && z.z > 0.0;
    if (!flat || !(size > 0.0)) return false;
    const bool mirrored = x.x * y.y - x.y * y.x < 0.0;
    const double angle = mirrored ? std::atan2(-x.y, -x.x) : std::atan2(x.y, x.x);
    frame.degrees = degreesOf(positiveAngle(angle));
    frame.scale = std::abs(size - 1.0) < 1e-12 ? 1.0 : size;
    if (mirrored) frame.scale = -frame.scale;
    return true;
}

bool parsePieceRecord(const Tag* first, const Tag* last, PieceRecord& record) {
    record = {};
    const Tag* at = first;
    if (at == last || at->code != 1000) return false;
    record.className = at++->value;
    if (at == last || at->code != 1071 || !parseInteger(at->value, record.version)) return false;
    ++at;
    if (record.version != kPieceVersion) return true;
    if (!takeCodes(at, last, record)) return false;
    for (; at != last && at->code != 1002; ++at) record.values.push_back(*at);
    if (at == last || !isBrace(*at, "{") || !takeFrame(at + 1, last, record.frame)) return false;
    return record.apart ? record.values.empty() : valuesMatch(record);
}

bool parsePieceXrecord(const Tags& body, PieceRecord& record) {
    Tags tags;
    for (const Tag& tag : body) {
        for (const CodePair& pair : kCodes)
            if (tag.code == pair.xrecord) tags.push_back({pair.xdata, tag.value});
    }
    const Tag* at = tags.data();
    const Tag* const last = at + tags.size();
    if (!takeCodes(at, last, record)) return false;
    record.values.assign(at, last);
    return valuesMatch(record);
}

}  // namespace prancheta::dxf
