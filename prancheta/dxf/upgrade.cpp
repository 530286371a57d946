// SPDX-License-Identifier: MIT
// Subclass markers for entity types of files without them.
#include "prancheta/dxf/upgrade.h"

#include <algorithm>

#include "prancheta/dxf/tag.h"

namespace prancheta::dxf {
namespace {

constexpr int kMaxCodes = 28;
constexpr int kAll = -1;

/// A subclass and the groups that belong to it; kAll takes what is left.
struct Subclass {
    const char* marker;
    int codes[kMaxCodes];
};

/// Type, bits of group 70 that select this row (value under mask), subclasses in file order.
struct Markers {
    const char* type;
    int mask;
    int value;
    Subclass subclasses[3];
};

#define PRANCHETA_TEXT_CODES 10, 20, 30, 40, 1, 50, 41, 51, 7, 71, 72, 11, 21, 31, 39, 210, 220, 230
#define PRANCHETA_DIMENSION_CODES \
    2, 10, 20, 30, 11, 21, 31, 12, 22, 32, 70, 1, 71, 72, 41, 42, 51, 53, 3, 210, 220, 230

constexpr Markers kMarkers[] = {
    {"3DFACE", 0, 0, {{"AcDbFace", {kAll}}}},
    {"TRACE", 0, 0, {{"AcDbTrace", {kAll}}}},
    {"SOLID", 0, 0, {{"AcDbTrace", {kAll}}}},
    {"SHAPE", 0, 0, {{"AcDbShape", {kAll}}}},
    {"LINE", 0, 0, {{"AcDbLine", {kAll}}}},
    {"POINT", 0, 0, {{"AcDbPoint", {kAll}}}},
    {"CIRCLE", 0, 0, {{"AcDbCircle", {kAll}}}},
    {"ARC", 0, 0, {{"AcDbCircle", {10, 20, 30, 40, 39, 210, 220, 230}}, {"AcDbArc", {kAll}}}},
    {"TEXT", 0, 0, {{"AcDbText", {PRANCHETA_TEXT_CODES}}, {"AcDbText", {kAll}}}},
    {"INSERT", 0, 0, {{"AcDbBlockReference", {kAll}}}},
    {"VIEWPORT", 0, 0, {{"AcDbViewport", {kAll}}}},
    {"ATTDEF", 0, 0, {{"AcDbText", {PRANCHETA_TEXT_CODES}}, {"AcDbAttributeDefinition", {kAll}}}},
    {"ATTRIB", 0, 0, {{"AcDbText", {PRANCHETA_TEXT_CODES}}, {"AcDbAttribute", {kAll}}}},
    {"POLYLINE", 8, 8, {{"AcDb3dPolyline", {kAll}}}},
    {"POLYLINE", 16, 16, {{"AcDbPolygonMesh", {kAll}}}},
    {"POLYLINE", 64, 64, {{"AcDbPolyFaceMesh", {kAll}}}},
    {"POLYLINE", 0, 0, {{"AcDb2dPolyline", {kAll}}}},
    {"VERTEX", 192, 128, {{"AcDbFaceRecord", {kAll}}}},
    {"VERTEX", 192, 192, {{"AcDbVertex", {0}}, {"AcDbPolyFaceMeshVertex", {kAll}}}},
    {"VERTEX", 64, 64, {{"AcDbVertex", {0}}, {"AcDbPolygonMeshVertex", {kAll}}}},
    {"VERTEX", 32, 32, {{"AcDbVertex", {0}}, {"AcDb3dPolylineVertex", {kAll}}}},
    {"VERTEX", 0, 0, {{"AcDbVertex", {0}}, {"AcDb2dVertex", {kAll}}}},
    {"DIMENSION",
     7,
     0,
     {{"AcDbDimension", {PRANCHETA_DIMENSION_CODES}},
      {"AcDbAlignedDimension", {kAll}},
      {"AcDbRotatedDimension", {0}}}},
    {"DIMENSION",
     7,
     1,
     {{"AcDbDimension", {PRANCHETA_DIMENSION_CODES}}, {"AcDbAlignedDimension", {kAll}}}},
    {"DIMENSION",
     7,
     2,
     {{"AcDbDimension", {PRANCHETA_DIMENSION_CODES}}, {"AcDb2LineAngularDimension", {kAll}}}},
    {"DIMENSION",
     7,
     3,
     {{"AcDbDimension", {PRANCHETA_DIMENSION_CODES}}, {"AcDbDiametricDimension", {kAll}}}},
    {"DIMENSION",
     7,
     4,
     {{"AcDbDimension", {PRANCHETA_DIMENSION_CODES}}, {"AcDbRadialDimension", {kAll}}}},
    {"DIMENSION",
     7,
     5,
     {{"AcDbDimension", {PRANCHETA_DIMENSION_CODES}}, {"AcDb3PointAngularDimension", {kAll}}}},
    {"DIMENSION",
     7,
     6,
     {{"AcDbDimension", {PRANCHETA_DIMENSION_CODES}}, {"AcDbOrdinateDimension", {kAll}}}},
};

#undef PRANCHETA_TEXT_CODES
#undef PRANCHETA_DIMENSION_CODES

long long flagsOf(const RawTags& tags) {
    long long flags = 0;
    for (const RawTag& tag : tags)
        if (tag.code == 70) (void)parseInteger(tag.value, flags);
    return flags;
}

const Markers* markersOf(std::string_view type, const RawTags& tags) {
    const long long flags = flagsOf(tags);
    for (const Markers& row : kMarkers)
        if (type == row.type && (flags & row.mask) == row.value) return &row;
    return nullptr;
}

bool holds(const Subclass& subclass, int code) {
    return std::find(std::begin(subclass.codes), std::end(subclass.codes), code) !=
           std::end(subclass.codes);
}

/// Groups that belong to every entity, not to its type.
constexpr int kCommonCodes[] = {5, 6, 8, 48, 60, 62, 67};

bool isCommon(int code) {
    return std::find(std::begin(kCommonCodes), std::end(kCommonCodes), code) !=
           std::end(kCommonCodes);
}

bool has(const RawTags& tags, int code) {
    return std::any_of(tags.begin(), tags.end(),
                       [code](const RawTag& tag) { return tag.code == code; });
}

/// A record's own handle, unless it is null.
bool isOwnHandle(const RawTag& tag) {
    std::uint64_t handle = 0;
    return tag.code == 5 && parseHandle(tag.value, handle) && handle != 0;
}

constexpr std::pair<const char*, const char*> kTableMarkers[] = {
    {"VPORT", "AcDbViewportTableRecord"},
    {"VIEW", "AcDbViewTableRecord"},
    {"UCS", "AcDbUCSTableRecord"},
    {"STYLE", "AcDbTextStyleTableRecord"},
};

}  // namespace

void addSubclassMarkers(std::string_view type, RawTags& tags) {
    const Markers* const row = markersOf(type, tags);
    if (row == nullptr) return;
    RawTags out;
    for (const Subclass& subclass : row->subclasses) {
        if (subclass.marker == nullptr) break;
        out.push_back({100, subclass.marker});
        for (RawTag& tag : tags) {
            if (tag.code < 0) continue;
            if (subclass.codes[0] != kAll && !holds(subclass, tag.code)) continue;
            out.push_back(tag);
            tag.code = -1;  // taken
        }
    }
    tags = std::move(out);
}

void completePart(RawTags& part, Adesk::UInt64 owner, const std::function<Adesk::UInt64()>& fresh) {
    const bool marked = has(part, 100);
    const bool owned = has(part, 330);
    const bool named = std::any_of(part.begin(), part.end(), isOwnHandle);
    if (marked && owned && named) return;
    const std::string type = part.front().value;
    RawTags head{part.front()};
    RawTags common;
    RawTags own;
    RawTags xdata;
    for (std::size_t i = 1; i < part.size(); ++i) {
        const RawTag& tag = part[i];
        if (tag.code == 5 && !isOwnHandle(tag)) continue;
        if (tag.code == 5)
            head.push_back(tag);
        else if (tag.code >= 1000)
            xdata.push_back(tag);
        else if (!marked && isCommon(tag.code))
            common.push_back(tag);
        else
            own.push_back(tag);
    }
    if (!named) head.push_back({5, handleText(fresh())});
    if (!owned) head.push_back({330, handleText(owner)});
    if (!marked) {
        head.push_back({100, "AcDbEntity"});
        addSubclassMarkers(type, own);
    }
    part = std::move(head);
    for (RawTags* more : {&common, &own, &xdata})
        part.insert(part.end(), more->begin(), more->end());
}

void completeTableRecord(RawTags& record, Adesk::UInt64 owner,
                         const std::function<Adesk::UInt64()>& fresh) {
    const bool isTable = record.front().value == "TABLE";
    const bool marked = has(record, 100);
    RawTags head{record.front()};
    RawTags rest;
    std::string handle;
    for (std::size_t i = 1; i < record.size(); ++i) {
        if (record[i].code == 5 && handle.empty())
            handle = isOwnHandle(record[i]) ? record[i].value : std::string();
        else if (isTable && record[i].code == 2)
            head.push_back(record[i]);
        else
            rest.push_back(record[i]);
    }
    head.push_back({5, handle.empty() ? handleText(fresh()) : handle});
    if (!has(record, 330)) head.push_back({330, handleText(owner)});
    if (!marked) {
        head.push_back({100, isTable ? "AcDbSymbolTable" : "AcDbSymbolTableRecord"});
        for (const auto& [name, marker] : kTableMarkers)
            if (record.front().value == name) head.push_back({100, marker});
    }
    record = std::move(head);
    record.insert(record.end(), rest.begin(), rest.end());
}

void completeObject(RawTags& record, Adesk::UInt64 owner, Adesk::UInt64 root) {
    std::size_t at = 1;
    std::string text = owner != 0 ? handleText(owner) : std::string();
    bool inGroup = false;
    for (std::size_t i = 1; i < record.size() && record[i].code != 100; ++i) {
        if (record[i].code == 102) inGroup = record[i].value != "}";
        if (record[i].code == 330 && !inGroup) return;
        if (record[i].code == 330 && text.empty()) text = record[i].value;
        if (record[i].code == 5 || record[i].code == 102) at = i + 1;
    }
    record.insert(record.begin() + static_cast<std::ptrdiff_t>(at),
                  {330, text.empty() ? handleText(root) : text});
}

}  // namespace prancheta::dxf
