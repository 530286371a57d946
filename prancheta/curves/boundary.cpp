// SPDX-License-Identifier: MIT
// The area around a point.
#include "prancheta/curves/boundary.h"

#include <algorithm>
#include <limits>
#include <numeric>

#include "prancheta/curves/box_tree.h"
#include "prancheta/curves/crossings.h"
#include "prancheta/curves/region.h"
#include "prancheta/geometry/angles.h"

namespace prancheta {

namespace {

using Edge = BoundaryFinder::Edge;

/// Interleaved bits of a place among 65536 x 65536: neighbours stand near each other in a row.
std::uint32_t mortonCode(double x, double y) {
    const auto spread = [](double part) {
        std::uint64_t v = static_cast<std::uint64_t>(std::clamp(part, 0.0, 1.0) * 65535.0);
        v = (v | (v << 8)) & 0x00ff00ff;
        v = (v | (v << 4)) & 0x0f0f0f0f;
        v = (v | (v << 2)) & 0x33333333;
        v = (v | (v << 1)) & 0x55555555;
        return static_cast<std::uint32_t>(v);
    };
    return spread(x) | (spread(y) << 1);
}

std::vector<Edge> inRow(std::vector<Edge> edges) {
    Box2d all;
    for (const Edge& e : edges) all.add(e.segment.box());
    std::vector<std::pair<std::uint32_t, std::uint32_t>> order;
    for (std::uint32_t i = 0; i < edges.size(); ++i) {
        const Box2d box = edges[i].segment.box();
        order.emplace_back(
            mortonCode(((box.left + box.right) / 2.0 - all.left) / std::max(all.width(), 1e-9),
                       ((box.bottom + box.top) / 2.0 - all.bottom) / std::max(all.height(), 1e-9)),
            i);
    }
    std::sort(order.begin(), order.end());
    std::vector<Edge> sorted;
    for (const auto& [code, i] : order) sorted.push_back(std::move(edges[i]));
    return sorted;
}

/// A whole turn begins nowhere: as two halves it has ends like all else.
std::vector<Edge> usable(std::vector<Edge> edges) {
    std::vector<Edge> all;
    for (Edge& e : edges) {
        if (!e.segment.isBounded()) continue;
        if (e.segment.isWhole()) {
            all.push_back({e.segment.part(0.0, 0.5), e.owner});
            all.push_back({e.segment.part(0.5, 1.0), e.owner});
        } else if (e.segment.lengthBetween(0.0, 1.0) > 0.0) {
            all.push_back(std::move(e));
        }
    }
    return all;
}

Vec2 rightmost(const Segment& s) {
    Vec2 best = s.at(0.0).x > s.at(1.0).x ? s.at(0.0) : s.at(1.0);
    if (!s.isRound()) return best;
    const double t = s.parameterOfAngle(std::atan2(s.v.x, s.u.x));
    return t <= 1.0 && s.at(t).x > best.x ? s.at(t) : best;
}

double angleOf(const Vec2& v) { return std::atan2(v.y, v.x); }

}  // namespace

struct BoundaryFinder::Index {
    explicit Index(const std::vector<Edge>& edges) : tree(boxes(edges)), cuts(edges.size()) {
        Box2d all;
        for (const Edge& e : edges) {
            all.add(e.segment.box());
            lengths.push_back(e.segment.lengthBetween(0.0, 1.0));
        }
        const double farthest = edges.empty() ? 0.0
                                              : std::max({std::abs(all.left), std::abs(all.right),
                                                          std::abs(all.bottom), std::abs(all.top)});
        near = 2e-6 + 1e-11 * farthest;
    }
    static std::vector<Box2d> boxes(const std::vector<Edge>& edges) {
        std::vector<Box2d> all;
        for (const Edge& e : edges) all.push_back(e.segment.box());
        return all;
    }

    BoxTree tree;
    std::vector<double> lengths;
    double near = 0.0;  ///< places nearer to each other are one
    /// Of each edge the parameters at which it ends or meets another, ascending; empty until
    /// somebody asks.
    mutable std::vector<std::vector<double>> cuts;
};

/// Goes along borders with the area at its left hand.
class BoundaryFinder::Walk {
public:
    struct Step {
        std::uint32_t edge;
        double from;
        double to;
    };
    Walk(const std::vector<Edge>& edges, const Index& index) : m_edges(edges), m_index(index) {}

    const std::vector<double>& cutsOf(std::uint32_t i) const {
        std::vector<double>& cuts = m_index.cuts[i];
        if (!cuts.empty()) return cuts;
        const Segment& s = m_edges[i].segment;
        cuts = {0.0, 1.0};
        std::vector<Meeting> found;
        m_index.tree.visit(s.box().grown(m_index.near), [&](std::size_t j) {
            if (j == i) return;
            const Segment& other = m_edges[j].segment;
            appendMeetings(s, other, found);
            for (const double end : {0.0, 1.0}) {
                const Vec2 p = other.at(end);
                const double t = s.nearest(p);
                if (distance(s.at(t), p) <= m_index.near) cuts.push_back(t);
            }
        });
        for (const Meeting& m : found) cuts.push_back(std::clamp(m.first, 0.0, 1.0));
        std::sort(cuts.begin(), cuts.end());
        return cuts;
    }

    /// Edges that meet this one.
    void neighbours(std::uint32_t i, std::vector<std::uint32_t>& out) const {
        const Segment& s = m_edges[i].segment;
        m_index.tree.visit(s.box().grown(m_index.near), [&](std::size_t j) {
            if (j == i) return;
            const Segment& other = m_edges[j].segment;
            std::vector<Meeting> found;
            appendMeetings(s, other, found);
            bool meets = !found.empty();
            for (const double end : {0.0, 1.0}) {
                const Vec2 p = other.at(end);
                const Vec2 q = s.at(end);
                meets = meets || distance(s.at(s.nearest(p)), p) <= m_index.near ||
                        distance(other.at(other.nearest(q)), q) <= m_index.near;
            }
            if (meets) out.push_back(static_cast<std::uint32_t>(j));
        });
    }

    /// From a place on an edge, reached from the direction in which `back` lies, all along the
    /// border to where it begins again. False when it does not come back.
    bool run(const Vec2& start, double back) {
        m_steps.clear();
        m_arrived.reset();
        const std::size_t most = 100 * m_edges.size() + 1000;
        Vec2 at = start;
        Vec2 begin = start;
        for (std::size_t i = 0; i < most; ++i) {
            const std::optional<Way> way = choose(at, back);
            if (!way) return false;
            // The first stretch may begin in the middle of one: all counts from its end on.
            if (i > 1 && isFirst(at, begin, *way)) return true;
            if (i == 1) {
                m_first = *way;
                begin = at;
            }
            if (i > 0) m_steps.push_back({way->edge, way->from, way->to});
            const Segment& s = m_edges[way->edge].segment;
            at = s.at(way->to);
            m_arrived = *way;
        }
        return false;
    }

    const std::vector<Step>& steps() const { return m_steps; }
    /// Where a walk had to turn round.
    struct FreeEnd {
        Vec2 at;
        std::uint32_t edge;
    };
    const std::vector<FreeEnd>& freeEnds() const { return m_freeEnds; }

    /// Signed area left of the walk.
    double area() const {
        if (m_steps.empty()) return 0.0;
        const Vec2 about = m_edges[m_steps[0].edge].segment.at(m_steps[0].from);
        double area = 0.0;
        for (const Step& step : m_steps) area += pieceOf(step).areaAbout(about);
        return area;
    }

    /// Without the stretches that were gone both ways; steps on along one edge are one.
    Loop loop() const {
        std::vector<Step> kept;
        for (const Step& step : m_steps) {
            if (!kept.empty() && undoes(kept.back(), step))
                kept.pop_back();
            else
                kept.push_back(step);
        }
        std::size_t first = 0;
        while (first + 1 < kept.size() && undoes(kept[first], kept.back())) {
            kept.pop_back();
            ++first;
        }
        Loop loop;
        std::vector<Segment> chain;
        for (std::size_t i = first; i < kept.size(); ++i) {
            Step step = kept[i];
            while (i + 1 < kept.size() && kept[i + 1].edge == step.edge &&
                   kept[i + 1].from == step.to &&
                   (kept[i + 1].to > kept[i + 1].from) == (step.to > step.from))
                step.to = kept[++i].to;
            chain.push_back(pieceOf(step));
            loop.owners.push_back(m_edges[step.edge].owner);
        }
        std::sort(loop.owners.begin(), loop.owners.end());
        loop.owners.erase(std::unique(loop.owners.begin(), loop.owners.end()), loop.owners.end());
        loop.curve = Curve(std::move(chain), true);
        return loop;
    }

private:
    static constexpr double kGlance = 0.01;  ///< of a stretch: what tells its direction
    struct Way {
        std::uint32_t edge;
        double from;
        double to;
        double length;  ///< of the stretch
        double angle;   ///< in which it leaves
    };

    Segment pieceOf(const Step& step) const {
        const Segment& s = m_edges[step.edge].segment;
        if (step.from < step.to) return s.part(step.from, step.to);
        return s.part(step.to, step.from).reversed();
    }
    /// Over the same stretch, or over a twin of it.
    bool undoes(const Step& a, const Step& b) const {
        const Segment& s = m_edges[a.edge].segment;
        const Segment& r = m_edges[b.edge].segment;
        const auto same = [&](const Vec2& p, const Vec2& q) {
            return distance(p, q) <= 2.0 * m_index.near;
        };
        return same(s.at(a.from), r.at(b.to)) && same(s.at(a.to), r.at(b.from)) &&
               same(s.at((a.from + a.to) / 2.0), r.at((b.from + b.to) / 2.0));
    }
    bool isFirst(const Vec2& at, const Vec2& start, const Way& way) const {
        return distance(at, start) <= 2.0 * m_index.near &&
               ((way.edge == m_first.edge && (way.to > way.from) == (m_first.to > m_first.from)) ||
                std::abs(std::remainder(way.angle - m_first.angle, kTwoPi)) < 1e-9);
    }

    /// Both ways along every edge that passes the place.
    void waysFrom(const Vec2& at, std::vector<Way>& ways) const {
        const double near = m_index.near;
        m_index.tree.visit(Box2d{at.x, at.y, at.x, at.y}.grown(near), [&](std::size_t j) {
            const auto i = static_cast<std::uint32_t>(j);
            const Segment& s = m_edges[i].segment;
            const double t = s.nearest(at);
            if (distance(s.at(t), at) > near) return;
            const std::vector<double>& cuts = cutsOf(i);
            const auto far = [&](double to) { return distance(s.at(to), at) > near; };
            const auto next =
                std::find_if(std::upper_bound(cuts.begin(), cuts.end(), t), cuts.end(), far);
            if (next != cuts.end()) ways.push_back(wayTo(i, t, *next));
            const auto before = std::find_if(
                std::make_reverse_iterator(std::lower_bound(cuts.begin(), cuts.end(), t)),
                cuts.rend(), far);
            if (before != cuts.rend()) ways.push_back(wayTo(i, t, *before));
        });
    }
    Way wayTo(std::uint32_t i, double from, double to) const {
        return {i, from, to, std::abs(m_edges[i].segment.lengthBetween(from, to)), 0.0};
    }

    /// The first way clockwise from where the walk came.
    std::optional<Way> choose(const Vec2& at, double back) {
        std::vector<Way> ways;
        waysFrom(at, ways);
        if (ways.empty()) return {};
        double glance = std::numeric_limits<double>::infinity();
        for (const Way& way : ways) glance = std::min(glance, way.length * kGlance);
        const Way* best = nullptr;
        double least = std::numeric_limits<double>::infinity();
        for (Way& way : ways) {
            const Segment& s = m_edges[way.edge].segment;
            // All looked at from the same distance, so that curves that touch stand in order.
            way.angle = angleOf(s.at(way.from + (way.to - way.from) * (glance / way.length)) -
                                s.at(way.from));
            const bool isBack = m_arrived && way.edge == m_arrived->edge &&
                                (way.to > way.from) != (m_arrived->to > m_arrived->from);
            if (isBack) back = way.angle;
        }
        for (const Way& way : ways) {
            double turn = std::fmod(back - way.angle, kTwoPi);
            if (turn < 0.0) turn += kTwoPi;
            if (turn < kSameDirection) turn += kTwoPi;
            if (turn >= least) continue;
            least = turn;
            best = &way;
        }
        if (ways.size() == 1 && m_arrived) m_freeEnds.push_back({at, best->edge});
        return *best;
    }
    static constexpr double kSameDirection = 1e-7;

    const std::vector<Edge>& m_edges;
    const Index& m_index;
    std::vector<Step> m_steps;
    std::vector<FreeEnd> m_freeEnds;  ///< of all walks
    Way m_first{};
    std::optional<Way> m_arrived;
};

BoundaryFinder::BoundaryFinder(std::vector<Edge> edges)
    : m_edges(inRow(usable(std::move(edges)))), m_index(std::make_unique<Index>(m_edges)) {}
BoundaryFinder::~BoundaryFinder() = default;

/// A ray to the right meets what bounds the point's area first, or something that stands free in
/// it: that is walked round on its outside, and the ray goes on behind it.
bool BoundaryFinder::enclose(const Vec2& p, Walk& walk) const {
    struct Hit {
        double x;
        std::uint32_t edge;
    };
    constexpr double kFar = 1e300;
    std::vector<Hit> hits;
    std::vector<Meeting> found;
    m_index->tree.visit({p.x, p.y, kFar, p.y}, [&](std::size_t j) {
        const Segment& s = m_edges[j].segment;
        found.clear();
        appendMeetings(straight(p, {std::max(s.box().right, p.x) + 1.0, p.y}), s, found);
        for (const Meeting& m : found) hits.push_back({m.point.x, static_cast<std::uint32_t>(j)});
    });
    std::sort(hits.begin(), hits.end(), [](const Hit& a, const Hit& b) { return a.x < b.x; });
    for (std::size_t i = 0; i < hits.size();) {
        const bool back = walk.run({hits[i].x, p.y}, kPi);
        if (!back) return false;
        if (walk.area() > m_index->near * m_index->near) return true;
        std::vector<bool> walked(m_edges.size());
        for (const Walk::Step& step : walk.steps()) walked[step.edge] = true;
        std::size_t last = i;
        for (std::size_t k = i; k < hits.size(); ++k)
            if (walked[hits[k].edge]) last = k;
        i = last + 1;
    }
    return false;
}

/// Of what meets one another outside `walked`, from a place as far right as it goes. Edges that
/// meet a walked one bound no island.
std::vector<BoundaryFinder::Loop> BoundaryFinder::freeBorders(
    const std::vector<std::uint32_t>& within, std::vector<std::uint8_t> seen) const {
    constexpr std::uint8_t kWalked = 2;
    std::vector<Loop> borders;
    Walk walk(m_edges, *m_index);
    std::vector<std::uint32_t> group;
    for (const std::uint32_t first : within) {
        if (seen[first] != 0) continue;
        seen[first] = 1;
        group = {first};
        bool free = true;
        Vec2 right = {-1e300, 0.0};
        for (std::size_t i = 0; i < group.size(); ++i) {
            const Vec2 p = rightmost(m_edges[group[i]].segment);
            if (p.x > right.x) right = p;
            std::vector<std::uint32_t> next;
            walk.neighbours(group[i], next);
            for (const std::uint32_t j : next) {
                if (seen[j] == kWalked) free = false;
                if (seen[j] != 0) continue;
                seen[j] = 1;
                group.push_back(j);
            }
        }
        if (!free || !walk.run(right, 0.0)) continue;
        if (walk.area() < -m_index->near * m_index->near) borders.push_back(walk.loop());
    }
    return borders;
}

std::optional<BoundaryFinder::Area> BoundaryFinder::around(const Vec2& p) const {
    Walk walk(m_edges, *m_index);
    if (!enclose(p, walk)) return {};
    Area area{walk.loop(), {}};
    std::vector<std::uint8_t> seen(m_edges.size());
    for (const Walk::Step& step : walk.steps()) seen[step.edge] = 2;
    std::vector<std::uint32_t> inside;
    m_index->tree.visit(area.outer.curve.box(), [&](std::size_t j) {
        if (seen[j] == 0 && insideOddly({&area.outer.curve, 1}, m_edges[j].segment.at(0.5)))
            inside.push_back(static_cast<std::uint32_t>(j));
    });
    area.islands = freeBorders(inside, std::move(seen));
    return area;
}

std::vector<BoundaryFinder::Loop> BoundaryFinder::borders() const {
    std::vector<std::uint32_t> all(m_edges.size());
    std::iota(all.begin(), all.end(), 0u);
    return freeBorders(all, std::vector<std::uint8_t>(m_edges.size()));
}

/// Free ends are bridged to what is nearest to them, the narrowest gaps first; how many bridges are
/// needed is found by halving.
std::optional<BoundaryFinder::Gap> BoundaryFinder::gapAround(const Vec2& p) const {
    constexpr std::size_t kMostEnds = 300;
    Walk walk(m_edges, *m_index);
    if (enclose(p, walk)) return {};
    std::vector<Walk::FreeEnd> ends = walk.freeEnds();
    std::sort(ends.begin(), ends.end(), [&](const Walk::FreeEnd& a, const Walk::FreeEnd& b) {
        return distance(a.at, p) < distance(b.at, p);
    });
    if (ends.size() > kMostEnds) ends.resize(kMostEnds);
    std::vector<Segment> bridges;
    for (const Walk::FreeEnd& end : ends) {
        std::optional<Vec2> to;
        double least = 1e300;
        const auto offer = [&](const Vec2& q) {
            const double width = distance(q, end.at);
            if (width >= least || width <= m_index->near) return;
            least = width;
            to = q;
        };
        for (const Walk::FreeEnd& other : ends) offer(other.at);
        const Box2d reach = Box2d{end.at.x, end.at.y, end.at.x, end.at.y}.grown(least);
        m_index->tree.visit(reach, [&](std::size_t j) {
            const Segment& s = m_edges[j].segment;
            if (j != end.edge) offer(s.at(s.nearest(end.at)));
        });
        if (to) bridges.push_back(straight(end.at, *to));
    }
    std::sort(bridges.begin(), bridges.end(),
              [](const Segment& a, const Segment& b) { return a.u.length() < b.u.length(); });
    const auto closes = [&](std::size_t count) {
        std::vector<Edge> edges = m_edges;
        for (std::size_t i = 0; i < count; ++i) edges.push_back({bridges[i], 0});
        const BoundaryFinder bridged(std::move(edges));
        Walk around(bridged.m_edges, *bridged.m_index);
        return bridged.enclose(p, around);
    };
    if (bridges.empty() || !closes(bridges.size())) return {};
    std::size_t low = 0;
    std::size_t high = bridges.size();  // closes
    while (high - low > 1) {
        const std::size_t middle = (low + high) / 2;
        (closes(middle) ? high : low) = middle;
    }
    const Segment& widest = bridges[high - 1];
    return Gap{widest.u.length(), widest.at(0.5)};
}

}  // namespace prancheta
