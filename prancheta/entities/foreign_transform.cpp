// SPDX-License-Identifier: MIT
// Moves, turns and scales the groups of foreign entities.
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

/// Which groups of a type are what. Vectors are turned and scaled, directions only turned; angles
/// are degrees about the normal. `inPlane`: told in the plane of the normal, so that only
/// transformations which keep z upright can be taken.
struct TypeGroups {
    std::string_view name;
    bool inPlane;
    Codes points;
    Codes vectors;
    Codes directions;
    Codes lengths;
    Codes angles;
    Codes elevations = {};
};

constexpr TypeGroups kTypes[] = {
    {"MTEXT", false, {10}, {}, {11, 210}, {40, 41, 42, 43, 46}, {50}},
    {"ELLIPSE", false, {10}, {11}, {210}, {}, {}},
    {"SPLINE", false, {10, 11}, {}, {12, 13, 210}, {}, {}},
    {"3DFACE", false, {10, 11, 12, 13}, {}, {}, {}, {}},
    {"LEADER", false, {10}, {212, 213}, {210, 211}, {40, 41}, {}},
    {"ATTRIB", true, {10, 11}, {}, {}, {40}, {50}},
    {"TEXT", true, {10, 11}, {}, {}, {40}, {50}},
    {"TRACE", true, {10, 11, 12, 13}, {}, {}, {}, {}},
    {"SOLID", true, {10, 11, 12, 13}, {}, {}, {}, {}},
    {"LWPOLYLINE", true, {10}, {}, {}, {40, 41, 43}, {}, {38}},
    {"INSERT", true, {10}, {}, {}, {41, 42, 43, 44, 45}, {50}},
    {"SEQEND", false, {}, {}, {}, {}, {}},
};

/// A similarity taken apart into what numbers, angles and points need.
struct Motion {
    AcGeMatrix3d matrix;
    double scale = 1.0;
    double turn = 0.0;  ///< degrees about z; meaningful when z stays upright
    bool upright = false;
};

bool has(Codes codes, int code) {
    return std::find(codes.begin(), codes.end(), code) != codes.end();
}

AcGePoint3d asPoint(const AcGeVector3d& v) { return {v.x, v.y, v.z}; }

void turnAngle(RawTag& tag, double degrees) {
    const double angle = std::fmod(tagNumber(tag) + degrees, 360.0);
    setNumber(tag, angle < 0.0 ? angle + 360.0 : angle);
}

void movePoint(RawTags& tags, std::size_t i, const Motion& motion) {
    setPointAt(tags, i, motion.matrix * pointAt(tags, i));
}

void turnVector(RawTags& tags, std::size_t i, const Motion& motion, bool scaled) {
    const AcGeVector3d v = motion.matrix * pointAt(tags, i).asVector();
    setPointAt(tags, i, asPoint(scaled ? v : v / motion.scale));
}

void scaleLength(RawTag& tag, const Motion& motion) {
    setNumber(tag, tagNumber(tag) * motion.scale);
}

void raise(RawTag& elevation, const Motion& motion) {
    setNumber(elevation, tagNumber(elevation) * motion.scale + motion.matrix.entry[2][3]);
}

void moveByTable(const TypeGroups& type, RawTags& tags, const Motion& motion) {
    const std::size_t end = knownLength(tags);
    for (std::size_t i = 0; i < end; ++i) {
        const int code = tags[i].code;
        if (has(type.points, code)) movePoint(tags, i, motion);
        if (has(type.vectors, code)) turnVector(tags, i, motion, true);
        if (has(type.directions, code)) turnVector(tags, i, motion, false);
        if (has(type.lengths, code)) scaleLength(tags[i], motion);
        if (has(type.angles, code) && motion.upright) turnAngle(tags[i], motion.turn);
        if (has(type.elevations, code)) raise(tags[i], motion);
    }
}

/// Values that files leave out because they are usual must be told once they change.
void tellDefaults(std::string_view typeName, RawTags& tags, const Motion& motion) {
    const auto find = [&](int code) {
        return std::find_if(tags.begin(), tags.end(),
                            [&](const RawTag& t) { return t.code == code; });
    };
    const auto lacks = [&](int code) { return find(code) == tags.end(); };
    const bool turned = motion.turn != 0.0 || !motion.upright;
    if (typeName == "MTEXT" && turned && lacks(11) && lacks(50)) {
        const RawTag direction[] = {{11, "1"}, {21, "0"}, {31, "0"}};
        const auto at = tags.begin() + static_cast<std::ptrdiff_t>(knownLength(tags));
        tags.insert(at, std::begin(direction), std::end(direction));
    }
    if ((typeName == "ATTRIB" || typeName == "TEXT") && turned && lacks(50) && !lacks(40))
        tags.insert(find(40) + 1, {50, "0"});
    if (typeName != "INSERT" || lacks(10)) return;
    const auto at = static_cast<std::size_t>(find(10) - tags.begin());
    const auto next = static_cast<std::ptrdiff_t>(at + pointLength(tags, at));
    if (turned && lacks(50)) tags.insert(tags.begin() + next, {50, "0"});
    for (const int factor : {43, 42, 41})
        if (motion.scale != 1.0 && lacks(factor)) tags.insert(tags.begin() + next, {factor, "1"});
}

Motion motionOf(const AcGeMatrix3d& m) {
    Motion motion{m, m.scale(), 0.0, false};
    const AcGeVector3d z = m * AcGeVector3d::kZAxis;
    motion.upright = z.isEqualTo(AcGeVector3d::kZAxis * motion.scale);
    const AcGeVector3d x = m * AcGeVector3d::kXAxis;
    if (motion.upright) motion.turn = angleInPlane(x, AcGeVector3d::kZAxis) * 180.0 / kPi;
    return motion;
}

/// The motion as seen in the plane in which the entity is told; false when it leaves that plane.
bool intoPlane(const RawTags& tags, Motion& motion) {
    const AcGeVector3d normal = planeNormal(tags);
    if (!normal.isEqualTo(AcGeVector3d::kZAxis)) {
        const AcGeMatrix3d plane = planeToWorld(normal);
        motion = motionOf(plane.inverse() * motion.matrix * plane);
    }
    return motion.upright;
}

bool moveRecord(std::string_view typeName, RawTags& tags, Motion motion) {
    for (const TypeGroups& type : kTypes) {
        if (type.name != typeName) continue;
        if (type.inPlane && !intoPlane(tags, motion)) return false;
        tellDefaults(typeName, tags, motion);
        moveByTable(type, tags, motion);
        return true;
    }
    return false;
}

/// The header's point is an elevation with x and y of 0; the vertices have the places.
bool movePolyline(RawTags& tags, Motion motion) {
    constexpr int k3dPolyline = 8;
    constexpr int kMeshes = 16 | 64;
    constexpr int kTangentGiven = 2;
    const int flags = findWhole(tags, 70, 0);
    const bool inSpace = (flags & k3dPolyline) != 0;
    if ((flags & kMeshes) != 0 || (!inSpace && !intoPlane(tags, motion))) return false;
    bool header = true;
    bool tangent = false;
    for (std::size_t i = 0; i < tags.size(); ++i) {
        const int code = tags[i].code;
        if (code == 0) {
            header = false;
            tangent = false;
            for (std::size_t k = i + 1; k < tags.size() && tags[k].code != 0; ++k)
                if (tags[k].code == 70) tangent = (tagWhole(tags[k]) & kTangentGiven) != 0;
        }
        if (code == 10 && !header) movePoint(tags, i, motion);
        if (code == 30 && header && !inSpace) raise(tags[i], motion);
        if (code == 40 || code == 41) scaleLength(tags[i], motion);
        if (code == 50 && tangent) turnAngle(tags[i], motion.turn);
    }
    return true;
}

/// What the groups of a hatch mean depends on where they stand; see drawHatch for the order.
class HatchMover {
public:
    HatchMover(RawTags& tags, const Motion& motion) : m_tags(tags), m_motion(motion) {}

    void run() {
        const std::size_t end = knownLength(m_tags);
        for (std::size_t i = 0; i < end; ++i) {
            const int code = m_tags[i].code;
            if (code == 91) m_part = Part::Paths;
            if (code == 75) m_part = Part::Pattern;
            if (code == 98) m_part = Part::Seeds;
            if (code == 92) m_polylinePath = (tagWhole(m_tags[i]) & 2) != 0;
            if (code == 72 && m_part == Part::Paths) m_edge = tagWhole(m_tags[i]);
            if (m_part == Part::Head && code == 30) raise(m_tags[i], m_motion);
            if (m_part == Part::Paths) path(i);
            if (m_part == Part::Pattern) pattern(i);
            if (m_part == Part::Seeds && code == 10) movePoint(m_tags, i, m_motion);
        }
    }

private:
    enum class Part { Head, Paths, Pattern, Seeds };
    enum Edge { kLine = 1, kArc = 2, kEllipse = 3, kSpline = 4 };

    void path(std::size_t i) {
        const int code = m_tags[i].code;
        if (code == 10) movePoint(m_tags, i, m_motion);
        if (m_polylinePath) return;
        if (code == 11 && m_edge != kEllipse) movePoint(m_tags, i, m_motion);
        if (code == 11 && m_edge == kEllipse) turnVector(m_tags, i, m_motion, true);
        if (code == 12 || code == 13) turnVector(m_tags, i, m_motion, false);
        if (code == 40 && m_edge == kArc) scaleLength(m_tags[i], m_motion);
        if (code == 50 && m_edge == kArc) turnArc(i);
    }

    /// Both angles together, so that the sweep between them stays.
    void turnArc(std::size_t i) {
        const double turn = clockwise(i) ? -m_motion.turn : m_motion.turn;
        const double start = tagNumber(m_tags[i]) + turn;
        const double whole = std::floor(start / 360.0) * 360.0;
        setNumber(m_tags[i], start - whole);
        if (i + 1 < m_tags.size() && m_tags[i + 1].code == 51)
            setNumber(m_tags[i + 1], tagNumber(m_tags[i + 1]) + turn - whole);
    }

    /// Clockwise arcs give their angles clockwise; the flag stands after them.
    bool clockwise(std::size_t i) const {
        for (std::size_t k = i + 1; k < m_tags.size() && k < i + 3; ++k)
            if (m_tags[k].code == 73) return tagWhole(m_tags[k]) == 0;
        return false;
    }

    void pattern(std::size_t i) {
        const int code = m_tags[i].code;
        if (code == 52 || code == 53) turnAngle(m_tags[i], m_motion.turn);
        if (code == 41 || code == 47 || code == 49) scaleLength(m_tags[i], m_motion);
        // Pairs 43/44 and 45/46 are a point and a vector whose codes do not step by ten.
        if ((code == 43 || code == 45) && i + 1 < m_tags.size() && m_tags[i + 1].code == code + 1) {
            const AcGePoint3d given(tagNumber(m_tags[i]), tagNumber(m_tags[i + 1]), 0.0);
            const AcGePoint3d moved =
                code == 43 ? m_motion.matrix * given : asPoint(m_motion.matrix * given.asVector());
            setNumber(m_tags[i], moved.x);
            setNumber(m_tags[i + 1], moved.y);
        }
    }

    RawTags& m_tags;
    const Motion& m_motion;
    Part m_part = Part::Head;
    bool m_polylinePath = false;
    int m_edge = 0;
};

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

bool transformForeign(const std::string& typeName, RawTags& tags, const AcGeMatrix3d& m) {
    if (!m.isUniScaledOrtho() || m.det() < 0.0) return false;
    Motion motion = motionOf(m);
    if (typeName == "POLYLINE") return movePolyline(tags, motion);
    if (typeName == "HATCH") {
        if (!intoPlane(tags, motion)) return false;
        HatchMover(tags, motion).run();
        return true;
    }
    std::vector<RawTags> records = recordsOf(tags);
    for (RawTags& record : records) {
        const bool own = record[0].code != 0;
        if (!moveRecord(own ? typeName : trim(std::string_view(record[0].value)), record, motion))
            return false;
    }
    tags.clear();
    for (const RawTags& record : records) tags.insert(tags.end(), record.begin(), record.end());
    return true;
}

}  // namespace prancheta
