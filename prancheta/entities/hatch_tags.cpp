// SPDX-License-Identifier: MIT
// A hatch as the groups of a file.
#include "prancheta/entities/hatch_tags.h"

#include <algorithm>
#include <cmath>

#include "prancheta/base/text.h"
#include "prancheta/entities/tag_list.h"
#include "prancheta/geometry/degrees.h"

namespace prancheta {

namespace {

/// Counts of a damaged file may be anything; more groups than there are cannot come.
class Reader {
public:
    Reader(const RawTags& tags, const std::vector<AcDbObjectId>& references)
        : m_tags(tags), m_references(references) {}

    bool run(AcDbHatch& hatch) {
        const bool headKnown = head(hatch);
        std::vector<HatchLoop> loops;
        const bool loopsKnown = paths(loops);
        // A broken path is not closed by guesswork: the others still show where the hatch is.
        if (!loopsKnown && !loops.empty()) loops.pop_back();
        (void)hatch.setLoops(std::move(loops));
        return tail(hatch) && headKnown && loopsKnown;
    }

private:
    bool ends() const { return m_at >= m_tags.size(); }
    int code() const { return ends() ? -1 : m_tags[m_at].code; }

    bool take(int wanted, double& value) {
        if (code() != wanted) return false;
        value = tagNumber(m_tags[m_at++]);
        return true;
    }
    bool take(int wanted, int& value) {
        if (code() != wanted) return false;
        value = tagWhole(m_tags[m_at++]);
        return true;
    }
    bool take(int wanted, AcGePoint2d& p) { return take(wanted, p.x) && take(wanted + 10, p.y); }
    template <class T>
    bool takeMany(int count, int wanted, std::vector<T>& list) {
        for (int i = 0; i < count; ++i) {
            T value{};
            if (!take(wanted, value)) return false;
            list.push_back(value);
        }
        return true;
    }
    bool takeAngle(int wanted, double& radians) {
        double degrees = 0.0;
        if (!take(wanted, degrees)) return false;
        radians = radiansOf(degrees);
        return true;
    }

    /// Up to the number of paths.
    bool head(AcDbHatch& hatch) {
        bool known = true;
        for (; !ends() && code() != 91; ++m_at) {
            const RawTag& tag = m_tags[m_at];
            if (tag.code == 2) m_name = toWide(tag.value);
            if (tag.code == 30) (void)hatch.setElevation(tagNumber(tag));
            if (tag.code == 70) (void)hatch.setSolidFill(tagWhole(tag) != 0);
            if (tag.code == 71) (void)hatch.setAssociative(tagWhole(tag) != 0);
            if (tag.code == 210) (void)hatch.setNormal(pointAt(m_tags, m_at).asVector());
            constexpr int kKnown[] = {100, 10, 20, 30, 210, 220, 230, 2, 70, 71};
            known = known && std::ranges::find(kKnown, tag.code) != std::end(kKnown);
            known = known && (tag.code != 10 && tag.code != 20 ? true : tagNumber(tag) == 0.0);
        }
        return known;
    }

    bool paths(std::vector<HatchLoop>& loops) {
        int count = 0;
        if (!take(91, count)) return false;
        for (int i = 0; i < count; ++i) {
            HatchLoop loop;
            if (!take(92, loop.kind)) return false;
            loops.emplace_back();
            const bool read = loop.isPolyline() ? polylinePath(loop) : edgePath(loop);
            loops.back() = loop;
            if (!read || !sources(loops.back())) return false;
        }
        return true;
    }

    bool polylinePath(HatchLoop& loop) {
        int hasBulges = 0;
        int closed = 1;
        int count = 0;
        while (code() == 72 || code() == 73)
            (void)(code() == 72 ? take(72, hasBulges) : take(73, closed));
        loop.closed = closed != 0;
        if (!take(93, count)) return false;
        for (int i = 0; i < count; ++i) {
            AcGePoint2d p;
            if (!take(10, p)) return false;
            HatchVertex v{p.x, p.y, 0.0};
            (void)take(42, v.bulge);  // 0 where it is not told
            loop.vertices.push_back(v);
        }
        return true;
    }

    bool edgePath(HatchLoop& loop) {
        int count = 0;
        if (!take(93, count)) return false;
        for (int i = 0; i < count; ++i) {
            HatchEdge edge;
            int kind = 0;
            if (!take(72, kind)) return false;
            edge.kind = static_cast<HatchEdge::Kind>(kind);
            if (!curve(edge)) return false;
            loop.edges.push_back(std::move(edge));
        }
        return true;
    }

    bool curve(HatchEdge& e) {
        int counterClockwise = 1;
        bool read = false;
        switch (e.kind) {
            case HatchEdge::kLine:
                return take(10, e.a) && take(11, e.b);
            case HatchEdge::kArc:
                read = take(10, e.a) && take(40, e.radius) && takeAngle(50, e.start) &&
                       takeAngle(51, e.end) && take(73, counterClockwise);
                break;
            case HatchEdge::kEllipse:
                read = take(10, e.a) && take(11, e.b) && take(40, e.radius) &&
                       takeAngle(50, e.start) && takeAngle(51, e.end) && take(73, counterClockwise);
                break;
            case HatchEdge::kSpline:
                return spline(e);
            default:
                return false;
        }
        e.clockwise = counterClockwise == 0;
        return read;
    }

    bool spline(HatchEdge& e) {
        int degree = 0;
        int rational = 0;
        int periodic = 0;
        int knots = 0;
        int points = 0;
        if (!take(94, degree) || !take(73, rational) || !take(74, periodic) || !take(95, knots) ||
            !take(96, points) || !takeMany(knots, 40, e.knots))
            return false;
        e.degree = static_cast<Adesk::Int16>(std::clamp(degree, 0, 100));
        e.rational = rational != 0;
        e.periodic = periodic != 0;
        for (int i = 0; i < points; ++i) {
            AcGePoint2d p;
            if (!take(10, p)) return false;
            e.control.push_back(p);
            double weight = 1.0;
            if (take(42, weight)) e.weights.push_back(weight);
        }
        int fit = 0;
        if (!take(97, fit)) return code() == 72;
        // Older releases have no fit points. The number of objects behind the last curve of a path
        // has the same code.
        e.fitTold = fit > 0 ? code() == 11 : code() == 72 || code() == 97;
        if (!e.fitTold) {
            --m_at;
            return true;
        }
        if (!takeMany(fit, 11, e.fit)) return false;
        if (code() == 12 || code() == 13) {
            e.tangents.resize(2);
            return take(12, e.tangents[0]) && take(13, e.tangents[1]);
        }
        return true;
    }

    bool sources(HatchLoop& loop) {
        int count = 0;
        if (!take(97, count)) return code() != 330;
        for (int i = 0; i < count; ++i) {
            if (code() != 330) return false;
            ++m_at;
            const AcDbObjectId id =
                m_reference < m_references.size() ? m_references[m_reference] : AcDbObjectId();
            ++m_reference;
            if (!id.isNull()) loop.sources.push_back(id);
        }
        return true;
    }

    bool tail(AcDbHatch& hatch) {
        bool known = true;
        int style = 0;
        int type = 1;
        int doubled = 0;
        int count = 0;
        double angle = 0.0;
        double scale = 1.0;
        double pixel = 0.0;
        std::vector<HatchFamily> families;
        std::vector<AcGePoint2d> seeds;
        while (!ends()) {
            if (take(75, style) || take(76, type) || takeAngle(52, angle) || take(41, scale) ||
                take(77, doubled) || take(47, pixel))
                continue;
            bool good = false;
            if (take(78, count))
                good = lines(count, families);
            else if (take(98, count))
                good = takeMany(count, 10, seeds);
            if (!good && !ends()) ++m_at;
            known = known && good;
        }
        (void)hatch.setHatchStyle(static_cast<AcDbHatch::HatchStyle>(std::clamp(style, 0, 2)));
        (void)hatch.setPattern(type, m_name, angle, scale, doubled != 0, std::move(families));
        (void)hatch.setPixelSize(pixel);
        (void)hatch.setSeeds(std::move(seeds));
        return known && style >= 0 && style <= 2;
    }

    bool lines(int count, std::vector<HatchFamily>& families) {
        for (int i = 0; i < count; ++i) {
            HatchFamily f;
            int dashes = 0;
            if (!takeAngle(53, f.angle) || !take(43, f.base.x) || !take(44, f.base.y) ||
                !take(45, f.offset.x) || !take(46, f.offset.y) || !take(79, dashes) ||
                !takeMany(dashes, 49, f.dashes))
                return false;
            families.push_back(std::move(f));
        }
        return true;
    }

    const RawTags& m_tags;
    const std::vector<AcDbObjectId>& m_references;
    std::size_t m_at = 0;
    std::size_t m_reference = 0;
    std::wstring m_name;
};

class Writer {
public:
    RawTags run(const AcDbHatch& hatch) {
        real(10, 0.0);
        real(20, 0.0);
        real(30, hatch.elevation());
        const AcGeVector3d normal = hatch.normal();
        real(210, normal.x);
        real(220, normal.y);
        real(230, normal.z);
        m_tags.push_back({2, toUtf8(hatch.patternName())});
        whole(70, hatch.isSolidFill());
        whole(71, hatch.associative());
        whole(91, hatch.numLoops());
        for (const HatchLoop& loop : hatch.loops()) path(loop);
        whole(75, hatch.hatchStyle());
        whole(76, hatch.patternType());
        if (!hatch.isSolidFill()) pattern(hatch);
        if (hatch.pixelSize() != 0.0) real(47, hatch.pixelSize());
        whole(98, static_cast<long long>(hatch.seeds().size()));
        for (const AcGePoint2d& seed : hatch.seeds()) point(10, seed);
        return std::move(m_tags);
    }

private:
    void real(int code, double value) { m_tags.push_back({code, numberText(value)}); }
    void whole(int code, long long value) { m_tags.push_back({code, std::to_string(value)}); }
    void angle(int code, double radians) { real(code, degreesOf(radians)); }
    void point(int code, const AcGePoint2d& p) {
        real(code, p.x);
        real(code + 10, p.y);
    }
    template <class List>
    void count(int code, const List& list) {
        whole(code, static_cast<long long>(list.size()));
    }

    void path(const HatchLoop& loop) {
        whole(92, loop.kind);
        if (loop.isPolyline())
            corners(loop);
        else
            count(93, loop.edges);
        for (const HatchEdge& e : loop.edges) edge(e);
        std::vector<AcDbObjectId> alive;
        for (const AcDbObjectId id : loop.sources)
            if (!id.isErased()) alive.push_back(id);
        count(97, alive);
        for (const AcDbObjectId id : alive) {
            ACHAR handle[17];
            id.handle().getIntoAsciiBuffer(handle);
            m_tags.push_back({330, toUtf8(handle)});
        }
    }

    void corners(const HatchLoop& loop) {
        const bool bulges =
            std::ranges::any_of(loop.vertices, [](const HatchVertex& v) { return v.bulge != 0.0; });
        whole(72, bulges);
        whole(73, loop.closed);
        count(93, loop.vertices);
        for (const HatchVertex& v : loop.vertices) {
            point(10, {v.x, v.y});
            if (bulges) real(42, v.bulge);
        }
    }

    void edge(const HatchEdge& e) {
        whole(72, e.kind);
        if (e.kind == HatchEdge::kSpline) return spline(e);
        point(10, e.a);
        if (e.kind != HatchEdge::kArc) point(11, e.b);
        if (e.kind == HatchEdge::kLine) return;
        real(40, e.radius);
        angle(50, e.start);
        angle(51, e.end);
        whole(73, !e.clockwise);
    }

    void spline(const HatchEdge& e) {
        whole(94, e.degree);
        whole(73, e.rational);
        whole(74, e.periodic);
        count(95, e.knots);
        count(96, e.control);
        for (const double knot : e.knots) real(40, knot);
        for (std::size_t i = 0; i < e.control.size(); ++i) {
            point(10, e.control[i]);
            if (i < e.weights.size()) real(42, e.weights[i]);
        }
        if (e.fitTold) count(97, e.fit);
        for (const AcGePoint2d& p : e.fit) point(11, p);
        for (std::size_t i = 0; i < e.tangents.size(); ++i)
            point(12 + static_cast<int>(i), e.tangents[i]);
    }

    void pattern(const AcDbHatch& hatch) {
        angle(52, hatch.patternAngle());
        real(41, hatch.patternScale());
        whole(77, hatch.patternDouble());
        count(78, hatch.families());
        for (const HatchFamily& f : hatch.families()) {
            angle(53, f.angle);
            real(43, f.base.x);
            real(44, f.base.y);
            real(45, f.offset.x);
            real(46, f.offset.y);
            count(79, f.dashes);
            for (const double dash : f.dashes) real(49, dash);
        }
    }

    RawTags m_tags;
};

}  // namespace

bool readHatch(const RawTags& tags, const std::vector<AcDbObjectId>& references, AcDbHatch& hatch) {
    return Reader(tags, references).run(hatch);
}

RawTags hatchTags(const AcDbHatch& hatch) { return Writer().run(hatch); }

}  // namespace prancheta
