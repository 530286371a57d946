// SPDX-License-Identifier: MIT
// Moves, turns, scales and mirrors the groups of foreign entities.
#include <algorithm>
#include <cmath>
#include <initializer_list>

#include "prancheta/base/text.h"
#include "prancheta/entities/common.h"
#include "prancheta/entities/foreign_types.h"
#include "prancheta/entities/tag_list.h"

namespace prancheta {

namespace {

using Codes = std::initializer_list<int>;

struct Usual {
    int code;
    const char* value;
};

/// Which groups of a type are what. Those of the first lines are told in the world, those from
/// `planePoints` on in the plane of the normal; the normal itself, group 210, is known.
struct TypeGroups {
    std::string_view name;
    Codes points = {};
    Codes vectors = {};     ///< turned and scaled
    Codes directions = {};  ///< only turned
    Codes lengths = {};
    Codes planePoints = {};
    Codes elevations = {};
    Codes degrees = {};
    Codes radians = {};
    Codes bulges = {};
    bool normal = false;  ///< has one even though nothing is told in its plane
    /// Values that files leave out because they are usual: told once they change.
    std::initializer_list<Usual> usual = {};
    /// What a table cannot say. After the groups above; `before` is the entity as it was.
    void (*also)(RawTags& tags, const RawTags& before, const Motion& world,
                 const Motion& plane) = nullptr;

    bool hasNormal() const {
        return normal ||
               planePoints.size() + elevations.size() + degrees.size() + bulges.size() > 0;
    }
};

/// Runs the other way round about the same normal: what began at the end begins there.
void mirrorSweep(RawTags& tags, const RawTags& before, int first, int last, double turn,
                 double whole) {
    const double start = findNumber(before, first, 0.0);
    double end = findNumber(before, last, whole);
    while (end <= start && end < start + whole) end += whole;
    const double begin = turn - end;
    const double from = begin - std::floor(begin / whole) * whole;
    setFirst(tags, first, from);
    setFirst(tags, last, from + end - start);
}

void alsoEllipse(RawTags& tags, const RawTags& before, const Motion& world, const Motion&) {
    if (world.mirrored) mirrorSweep(tags, before, 41, 42, 0.0, kTwoPi);
}

void alsoArc(RawTags& tags, const RawTags& before, const Motion&, const Motion& plane) {
    if (plane.mirrored) mirrorSweep(tags, before, 50, 51, plane.turn, 360.0);
}

/// A mirror shows in the factor of x, and columns of an array run the other way.
void alsoInsert(RawTags& tags, const RawTags&, const Motion&, const Motion& plane) {
    if (!plane.mirrored) return;
    for (RawTag& tag : tags) {
        if (tag.code == 41 || tag.code == 44) setNumber(tag, 0.0 - tagNumber(tag));
        if (tag.code == 50) setNumber(tag, std::fmod(tagNumber(tag) + 180.0, 360.0));
    }
}

void alsoText(RawTags& tags, const RawTags& before, const Motion&, const Motion& plane) {
    turnText(tags, before, 73, plane);
}
void alsoAttribute(RawTags& tags, const RawTags& before, const Motion&, const Motion& plane) {
    turnText(tags, before, 74, plane);
}

/// The elements lie to the side of their line as seen from the normal.
void alsoMline(RawTags& tags, const RawTags&, const Motion& world, const Motion&) {
    for (std::size_t i = 0; world.mirrored && i < tags.size(); ++i)
        if (tags[i].code == 210)
            setPointAt(tags, i, AcGePoint3d::kOrigin - pointAt(tags, i).asVector());
}

/// A value that was left out, behind the first point of this code.
void tellBehind(RawTags& tags, int point, int code, double value) {
    const auto firstOf = [&](int wanted) {
        return std::find_if(tags.begin(), tags.end(),
                            [wanted](const RawTag& tag) { return tag.code == wanted; });
    };
    const auto at = firstOf(point);
    if (at == tags.end() || firstOf(code) != tags.end()) return;
    const std::size_t length = pointLength(tags, static_cast<std::size_t>(at - tags.begin()));
    RawTag told{code, "0"};
    setNumber(told, value);
    tags.insert(at + static_cast<std::ptrdiff_t>(length), told);
}

/// Groups that all dimensions have.
void moveMeasure(RawTags& tags, bool ofAngle, const Motion& plane) {
    const bool turned = plane.turn != 0.0 || plane.mirrored;
    for (RawTag& tag : tags) {
        const double value = tagNumber(tag);
        if (tag.code == 42 && !ofAngle) moveLength(tag, plane);
        // Counts clockwise.
        if (tag.code == 51 && turned)
            setNumber(tag, std::fmod(360.0 - movedReadingAngle(0.0 - value, plane), 360.0));
        if (tag.code == 52 && plane.mirrored) setNumber(tag, 0.0 - value);
        // 0 says that the text stands as the style has it.
        if (tag.code == 53 && value != 0.0) setNumber(tag, movedReadingAngle(value, plane));
    }
}

void alsoDimension(RawTags& tags, const RawTags& before, const Motion&, const Motion& plane) {
    constexpr int kRotated = 0;
    constexpr int kOrdinate = 6;
    const int kind = findWhole(before, 70, 0) & 7;
    const bool turned = plane.turn != 0.0 || plane.mirrored;
    if (turned && kind == kRotated) tellBehind(tags, 14, 50, movedAngle(0.0, plane));
    if (turned && kind == kOrdinate) tellBehind(tags, 10, 51, 0.0);
    moveMeasure(tags, kind == 2 || kind == 5, plane);
}

/// Of arcs and of large radii: their group 70 has other kinds.
void alsoLengthDimension(RawTags& tags, const RawTags&, const Motion&, const Motion& plane) {
    moveMeasure(tags, false, plane);
}

/// A pair of groups that is no point by its codes, and a vector when it does not move along.
void movePair(RawTags& tags, std::size_t i, const AcGeMatrix3d& by, bool place) {
    if (i + 1 >= tags.size() || tags[i + 1].code != tags[i].code + 1) return;
    const AcGePoint3d p(tagNumber(tags[i]), tagNumber(tags[i + 1]), 0.0);
    const AcGePoint3d moved = place ? by * p : AcGePoint3d::kOrigin + by * p.asVector();
    setNumber(tags[i], moved.x);
    setNumber(tags[i + 1], moved.y);
}

/// The first point is the height of the plane; behind it come the corners, and the lines of the
/// pattern each with a place and a step.
void alsoArea(RawTags& tags, const RawTags&, const Motion&, const Motion& plane) {
    bool corners = false;
    for (std::size_t i = 0; i < tags.size(); ++i) {
        if (tags[i].code == 10 && corners) movePoint(tags, i, plane);
        if (tags[i].code == 10) corners = true;
        if (tags[i].code == 11) moveVector(tags, i, plane, Length::Scaled);
        if (tags[i].code == 43) movePair(tags, i, plane.matrix, true);
        if (tags[i].code == 45) movePair(tags, i, plane.matrix, false);
    }
}

/// What follows the groups of an MTEXT in columns.
constexpr std::string_view kColumns = "MTEXT in columns";

const TypeGroups kTypes[] = {
    {.name = "LINE", .points = {10, 11}},
    {.name = "RAY", .points = {10}, .directions = {11}},
    {.name = "XLINE", .points = {10}, .directions = {11}},
    {.name = "3DFACE", .points = {10, 11, 12, 13}},
    {.name = "MESH", .points = {10}},
    {.name = "SPLINE", .points = {10, 11}, .directions = {12, 13}},
    {.name = "ELLIPSE", .points = {10}, .vectors = {11}, .normal = true, .also = alsoEllipse},
    {.name = "IMAGE", .points = {10}, .vectors = {11, 12}},
    {.name = "WIPEOUT", .points = {10}, .vectors = {11, 12}},
    {.name = "LEADER",
     .points = {10},
     .vectors = {212, 213},
     .directions = {211},
     .lengths = {40, 41},
     .normal = true},
    {.name = "MLINE",
     .points = {10, 11},
     .directions = {12, 13},
     .lengths = {40, 41, 42},
     .usual = {{210, "0"}, {220, "0"}, {230, "1"}},
     .also = alsoMline},
    {.name = "MTEXT",
     .points = {10},
     .lengths = {40, 41, 42, 43, 46, 48, 49},
     .normal = true,
     .also = turnParagraphs},
    {.name = kColumns, .points = {11}, .directions = {10}, .lengths = {40, 41, 42, 43, 44, 45, 46}},
    {.name = "TOLERANCE",
     .points = {10},
     .directions = {11},
     .normal = true,
     .usual = {{11, "1"}, {21, "0"}, {31, "0"}},
     .also = turnTolerance},
    {.name = "MULTILEADER", .lengths = {41, 42, 45}, .also = turnMultileader},
    {.name = "CONTEXT_DATA{",
     .points = {10, 12, 15, 110},
     .directions = {11, 13, 14, 111, 112},
     .lengths = {16, 26, 36, 40, 41, 43, 44, 140, 142, 143, 144, 145},
     .radians = {42, 46}},
    {.name = "LEADER{", .points = {10, 12, 13}, .directions = {11}, .lengths = {40}},
    {.name = "LEADER_LINE{", .points = {10, 11, 12}, .lengths = {40}},
    {.name = "POINT", .points = {10}, .lengths = {39}, .degrees = {50}},
    {.name = "CIRCLE", .lengths = {39, 40}, .planePoints = {10}},
    {.name = "ARC", .lengths = {39, 40}, .planePoints = {10}, .degrees = {50, 51}, .also = alsoArc},
    {.name = "TRACE", .lengths = {39}, .planePoints = {10, 11, 12, 13}},
    {.name = "SOLID", .lengths = {39}, .planePoints = {10, 11, 12, 13}},
    {.name = "LWPOLYLINE",
     .lengths = {39, 40, 41, 43},
     .planePoints = {10},
     .elevations = {38},
     .bulges = {42}},
    {.name = "TEXT",
     .lengths = {39, 40},
     .planePoints = {10, 11},
     .degrees = {50},
     .usual = {{50, "0"}},
     .also = alsoText},
    {.name = "ATTRIB",
     .lengths = {39, 40},
     .planePoints = {10, 11},
     .degrees = {50},
     .usual = {{50, "0"}},
     .also = alsoAttribute},
    {.name = "ATTDEF",
     .lengths = {39, 40},
     .planePoints = {10, 11},
     .degrees = {50},
     .usual = {{50, "0"}},
     .also = alsoAttribute},
    {.name = "INSERT",
     .lengths = {41, 42, 43, 44, 45},
     .planePoints = {10},
     .degrees = {50},
     .usual = {{41, "1"}, {42, "1"}, {43, "1"}, {50, "0"}},
     .also = alsoInsert},
    {.name = "DIMENSION",
     .points = {10, 13, 14, 15},
     .lengths = {40},
     .planePoints = {11, 12, 16},
     .degrees = {50},
     .also = alsoDimension},
    {.name = "ARC_DIMENSION",
     .points = {10, 13, 14, 15, 16, 17},
     .planePoints = {11, 12},
     .also = alsoLengthDimension},
    {.name = "LARGE_RADIAL_DIMENSION",
     .points = {10, 13, 14, 15},
     .planePoints = {11, 12},
     .also = alsoLengthDimension},
    {.name = "MPOLYGON",
     .lengths = {41, 49},
     .elevations = {30},
     .degrees = {52, 53},
     .bulges = {42},
     .also = alsoArea},
    {.name = "SEQEND"},
};

const TypeGroups* groupsOf(std::string_view name) {
    for (const TypeGroups& type : kTypes)
        if (type.name == name) return &type;
    return nullptr;
}

bool has(Codes codes, int code) {
    return std::find(codes.begin(), codes.end(), code) != codes.end();
}

void moveGroup(const TypeGroups& type, RawTags& tags, std::size_t i, const Motion& world,
               const Motion& plane) {
    const int code = tags[i].code;
    if (has(type.points, code)) movePoint(tags, i, world);
    if (has(type.vectors, code)) moveVector(tags, i, world, Length::Scaled);
    if (has(type.directions, code)) moveVector(tags, i, world, Length::Kept);
    if (has(type.lengths, code)) moveLength(tags[i], world);
    if (has(type.planePoints, code)) movePoint(tags, i, plane);
    if (has(type.elevations, code)) moveElevation(tags[i], plane);
    if (has(type.degrees, code)) moveAngle(tags[i], plane);
    if (has(type.bulges, code)) moveBulge(tags[i], plane);
    if (has(type.radians, code) && (plane.turn != 0.0 || plane.mirrored))
        setNumber(tags[i], movedAngle(tagNumber(tags[i]) * 180.0 / kPi, plane) * kPi / 180.0);
}

/// Parts of a MULTILEADER stand one inside the other, each between its own pair of groups: 300 and
/// 301, 302 and 303, 304 and 305.
void moveGroups(const TypeGroups& type, RawTags& tags, const Motion& world, const Motion& plane) {
    std::vector<const TypeGroups*> parts{&type};
    for (std::size_t i = 0; i < tags.size(); ++i) {
        const int depth = static_cast<int>(parts.size()) - 1;
        const TypeGroups* part = nullptr;
        if (tags[i].code == 300 + 2 * depth && tags[i].value.ends_with('{'))
            part = groupsOf(trim(std::string_view(tags[i].value)));
        if (part != nullptr)
            parts.push_back(part);
        else if (depth > 0 && tags[i].code == 299 + 2 * depth)
            parts.pop_back();
        else
            moveGroup(*parts.back(), tags, i, world, plane);
    }
}

RawTags::iterator beforePoint(RawTags& tags) {
    return std::find_if(tags.begin(), tags.end(), [](const RawTag& tag) { return tag.code == 10; });
}

void tellUsual(const TypeGroups& type, RawTags& tags) {
    RawTags usual;
    for (const auto& [code, value] : type.usual)
        if (std::none_of(tags.begin(), tags.end(),
                         [code = code](const RawTag& tag) { return tag.code == code; }))
            usual.push_back({code, value});
    tags.insert(beforePoint(tags), usual.begin(), usual.end());
}

/// Heights that were not told are 0.
void tellHeights(const TypeGroups& type, RawTags& tags) {
    for (const int code : type.elevations)
        if (std::none_of(tags.begin(), tags.end(),
                         [code](const RawTag& tag) { return tag.code == code; }))
            tags.insert(beforePoint(tags), {code, "0"});
    if (type.elevations.size() > 0) return;
    RawTags told;
    for (std::size_t i = 0; i < tags.size(); ++i) {
        const int code = tags[i].code;
        const bool point = has(type.points, code) || has(type.planePoints, code);
        told.push_back(tags[i]);
        if (!point || pointLength(tags, i) != 2) continue;
        told.push_back(tags[++i]);
        told.push_back({code + 20, "0"});
    }
    tags = std::move(told);
}

/// A normal that was not told is z.
void moveNormal(RawTags& tags, const AcGeVector3d& moved, bool hasNormal) {
    for (std::size_t i = 0; i < tags.size(); ++i)
        if (tags[i].code == 210) return setPointAt(tags, i, AcGePoint3d::kOrigin + moved);
    if (!hasNormal || moved.isEqualTo(AcGeVector3d::kZAxis)) return;
    RawTags normal{{210, "0"}, {220, "0"}, {230, "0"}};
    setPointAt(normal, 0, AcGePoint3d::kOrigin + moved);
    tags.insert(beforePoint(tags), normal.begin(), normal.end());
}

bool moveRecord(std::string_view typeName, RawTags& tags, const Motion& world);

/// The object behind group 101: columns of a paragraph, or the paragraph of an attribute.
void moveNested(std::string_view typeName, RawTags& nested, const RawTags& moved,
                const Motion& world) {
    const bool columns = typeName == "MTEXT";
    (void)moveRecord(columns ? kColumns : "MTEXT", nested, world);  // both are in the table
    if (!columns) return;
    const AcGePoint3d along = findPoint(moved, 11);
    for (std::size_t i = 0; i < nested.size() && !along.asVector().isZeroLength(); ++i)
        if (nested[i].code == 10) return setPointAt(nested, i, along);
}

bool moveRecord(std::string_view typeName, RawTags& tags, const Motion& world) {
    const TypeGroups* const type = groupsOf(typeName);
    if (type == nullptr) return false;
    const auto known = tags.begin() + static_cast<std::ptrdiff_t>(knownLength(tags));
    RawTags nested(known, tags.end());
    tags.erase(known, tags.end());
    const AcGeVector3d normal = planeNormal(tags);
    const Motion plane = motionInPlane(world, normal);
    if (!world.onlyMoves) tellUsual(*type, tags);
    if (!world.flat || !plane.flat) tellHeights(*type, tags);
    const RawTags before = type->also != nullptr ? tags : RawTags();
    moveGroups(*type, tags, world, plane);
    if (!world.onlyMoves) moveNormal(tags, mappedNormal(world.matrix, normal), type->hasNormal());
    if (type->also != nullptr) type->also(tags, before, world, plane);
    if (!nested.empty()) {
        const RawTag opening = nested.front();
        nested.erase(nested.begin());
        moveNested(typeName, nested, tags, world);
        tags.push_back(opening);
        tags.insert(tags.end(), nested.begin(), nested.end());
    }
    return true;
}

/// The header's point is an elevation with x and y of 0; the vertices have the places. Faces of a
/// net of faces have none.
void movePolyline(RawTags& tags, const Motion& world) {
    constexpr int kInSpace = 8 | 16 | 64;
    constexpr int kTangentGiven = 2;
    constexpr int kFace = 128;
    constexpr int kPlace = 64;
    const bool inSpace = (findWhole(tags, 70, 0) & kInSpace) != 0;
    const AcGeVector3d normal = planeNormal(tags);
    const Motion motion = inSpace ? world : motionInPlane(world, normal);
    std::vector<RawTags> records = recordsOf(tags);
    if (!inSpace && !world.onlyMoves)
        moveNormal(records[0], mappedNormal(world.matrix, normal), true);
    tags.clear();
    for (RawTags& record : records) {
        const bool header = record[0].code != 0;
        const int flags = header ? 0 : findWhole(record, 70, 0);
        const bool face = (flags & (kFace | kPlace)) == kFace;
        for (std::size_t i = 0; i < record.size(); ++i) {
            const int code = record[i].code;
            if (code == 10 && !header && !face) movePoint(record, i, motion);
            if (code == 30 && header && !inSpace) moveElevation(record[i], motion);
            if (code == 39 || code == 40 || code == 41) moveLength(record[i], motion);
            if (code == 42) moveBulge(record[i], motion);
            if (code == 50 && (flags & kTangentGiven) != 0) moveAngle(record[i], motion);
        }
        tags.insert(tags.end(), record.begin(), record.end());
    }
}

}  // namespace

std::size_t knownLength(const RawTags& tags) {
    const auto nested = [](const RawTag& tag) { return tag.code == 101; };
    return static_cast<std::size_t>(std::find_if(tags.begin(), tags.end(), nested) - tags.begin());
}

AcGeVector3d planeNormal(const RawTags& tags) {
    const AcGeVector3d normal = findPoint(tags, 210, {0, 0, 1}).asVector();
    return normal.isZeroLength() ? AcGeVector3d::kZAxis : normal.normal();
}

std::vector<RawTags> recordsOf(const RawTags& tags) {
    std::vector<RawTags> records;
    for (const RawTag& tag : tags) {
        if (records.empty() || tag.code == 0) records.emplace_back();
        records.back().push_back(tag);
    }
    return records;
}

bool isDimension(std::string_view typeName) { return typeName.ends_with("DIMENSION"); }

bool transformForeign(const std::string& typeName, RawTags& tags, const AcGeMatrix3d& m) {
    if (!m.isUniScaledOrtho() || tags.empty()) return false;
    const Motion world = motionOf(m);
    if (typeName == "POLYLINE") {
        movePolyline(tags, world);
        return true;
    }
    std::vector<RawTags> records = recordsOf(tags);
    for (RawTags& record : records) {
        const bool own = record[0].code != 0;
        if (!moveRecord(own ? typeName : trim(std::string_view(record[0].value)), record, world))
            return false;
    }
    tags.clear();
    for (const RawTags& record : records) tags.insert(tags.end(), record.begin(), record.end());
    return true;
}

}  // namespace prancheta
