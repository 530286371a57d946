// SPDX-License-Identifier: MIT
// Curves beside a curve: every segment is moved aside; where the whole crosses itself it is cut,
// and what lies nearer to the curve than the distance is left out.
//
// Corners on the outer side are lengthened until they meet; on the inner side lines are cut where
// they meet, and where they do not an arc about the corner keeps the whole in one piece and goes
// with what is left out.
#include "prancheta/curves/offset.h"

#include <algorithm>
#include <limits>

#include "prancheta/curves/box_tree.h"
#include "prancheta/curves/chaining.h"
#include "prancheta/curves/crossings.h"
#include "prancheta/geometry/angles.h"

namespace prancheta {

namespace {

/// Moved to the left. An arc turned inside out keeps its way about the centre.
Segment moved(const Segment& s, double aside) {
    if (!s.isRound()) {
        const Vec2 step = s.u.left() * (aside / s.u.length());
        return straight(s.origin + step, s.origin + s.u + step);
    }
    const bool leftIsInwards = (s.sweep > 0.0) == (cross(s.u, s.v) > 0.0);
    const double factor = 1.0 + (leftIsInwards ? -aside : aside) / s.radius();
    Segment m = s;
    m.u = s.u * factor;
    m.v = s.v * factor;
    return m;
}

/// What becomes of the corner between two moved segments.
struct Corner {
    enum class Kind { Smooth, Round, Outer, Inner };
    Kind kind = Kind::Smooth;
    double end = 1.0;    ///< of the segment before it
    double begin = 0.0;  ///< of the one behind it
    Segment arc;         ///< Round

    void roundOff() {
        kind = Kind::Round;
        end = 1.0;
        begin = 0.0;
    }
};

/// Where the segments, lengthened, meet first.
bool meetOutside(const Segment& a, const Segment& b, Corner& corner) {
    const std::optional<Extension> onwards = extensionOf(Curve(a), CurveEnd::End);
    const std::optional<Extension> backwards = extensionOf(Curve(b), CurveEnd::Start);
    if (!onwards || !backwards) return false;
    const std::vector<Meeting> all = meetingsOf(onwards->curve, backwards->curve);
    if (all.empty()) return false;
    corner.kind = Corner::Kind::Outer;
    corner.end = onwards->parameter(all.front().first);
    corner.begin = backwards->parameter(all.front().second);
    return true;
}

/// Of two lines only: arcs may meet where the curve has gone elsewhere.
bool meetInside(const Segment& a, const Segment& b, Corner& corner) {
    if (a.isRound() || b.isRound()) return false;
    std::vector<Meeting> all;
    appendMeetings(a, b, all);
    if (all.size() != 1) return false;
    corner.kind = Corner::Kind::Inner;
    corner.end = all.front().first;
    corner.begin = all.front().second;
    return true;
}

Corner cornerBetween(const Segment& before, const Segment& after, double aside) {
    const Segment a = moved(before, aside);
    const Segment b = moved(after, aside);
    const Vec2 out = before.tangent(1.0);
    const Vec2 in = after.tangent(0.0);
    const double turn = std::atan2(cross(out, in), dot(out, in));
    Corner corner;
    if (std::abs(turn) <= 1e-12) return corner;
    const Vec2 tip = after.at(0.0);
    const Vec2 arm = a.at(1.0) - tip;
    corner.kind = Corner::Kind::Round;
    corner.arc = {tip, arm, arm.left(), 0.0, turn};
    if (turn * aside < 0.0 ? meetOutside(a, b, corner) : meetInside(a, b, corner)) return corner;
    corner.roundOff();
    return corner;
}

/// The curve moved aside, before anything is left out.
Curve wholeMoved(const Curve& curve, double aside) {
    std::vector<Segment> source;
    for (const Segment& s : curve.segments())
        if (s.lengthBetween(0.0, 1.0) > 0.0) source.push_back(s);
    const std::size_t n = source.size();
    const bool closed = curve.closed() && n > 1;
    std::vector<Corner> corners(n);  // behind each segment
    for (std::size_t i = 0; i + (closed ? 0 : 1) < n; ++i)
        corners[i] = cornerBetween(source[i], source[(i + 1) % n], aside);
    const auto before = [&](std::size_t i) -> Corner& { return corners[(i + n - 1) % n]; };
    for (std::size_t i = 0; i < n; ++i) {
        if (before(i).begin < corners[i].end) continue;
        // Shorter than what its corners take.
        for (Corner* const corner : {&before(i), &corners[i]})
            if (corner->kind == Corner::Kind::Inner) corner->roundOff();
    }
    std::vector<Segment> chain;
    for (std::size_t i = 0; i < n; ++i) {
        const Segment m = moved(source[i], aside);
        const double begin = closed || i > 0 ? before(i).begin : 0.0;
        if (m.u.length() > 1e-12 * source[i].u.length()) {
            const bool as = begin == 0.0 && corners[i].end == 1.0;
            chain.push_back(as ? m : m.part(begin, corners[i].end));
        }
        if (corners[i].kind == Corner::Kind::Round) chain.push_back(corners[i].arc);
    }
    return Curve(std::move(chain), curve.closed());
}

/// Whether a point is nearer to the curve than `reach`.
class Nearness {
public:
    explicit Nearness(const Curve& curve) : m_curve(curve), m_tree(boxesOf(curve)) {}
    bool within(const Vec2& p, double reach) const {
        bool found = false;
        m_tree.visitNear(p, reach, [&](std::size_t i) {
            const Segment& s = m_curve.segments()[i];
            found = distance(s.at(s.nearest(p)), p) < reach;
            return found;
        });
        return found;
    }

private:
    const Curve& m_curve;
    BoxTree m_tree;
};

/// From cut to cut along the moved curve.
std::vector<Stretch> stretchesOf(const Curve& whole) {
    std::vector<double> cuts;
    for (const Meeting& m : meetingsWithin(whole)) {
        cuts.push_back(m.first);
        cuts.push_back(m.second);
    }
    std::sort(cuts.begin(), cuts.end());
    if (!whole.closed()) {
        cuts.insert(cuts.begin(), 0.0);
        cuts.push_back(whole.count());
    } else {
        if (cuts.empty()) cuts.push_back(0.0);
        cuts.push_back(cuts.front() + whole.count());
    }
    std::vector<Stretch> all;
    const double least = 4.0 * whole.tolerance();
    for (std::size_t i = 1; i < cuts.size(); ++i)
        if (whole.lengthAt(cuts[i]) - whole.lengthAt(cuts[i - 1]) > least)
            all.push_back({cuts[i - 1], cuts[i]});
    return all;
}

double parameterBetween(const Curve& curve, const Stretch& s, double share) {
    const double from = curve.lengthAt(s.from);
    double at = from + (curve.lengthAt(s.to) - from) * share;
    if (curve.closed() && at >= curve.length()) at -= curve.length();
    return curve.parameterAt(at);
}

}  // namespace

bool canOffset(const Curve& curve) {
    return std::all_of(curve.segments().begin(), curve.segments().end(), [](const Segment& s) {
        return s.isBounded() && (!s.isRound() || s.isCircular());
    });
}

std::vector<Curve> offset(const Curve& curve, double distance) {
    if (!canOffset(curve) || !(curve.length() > 0.0) || distance == 0.0) return {};
    const Curve whole = wholeMoved(curve, distance);
    if (whole.empty()) return {};
    const double reach = std::abs(distance) * (1.0 - 1e-9) - 4.0 * whole.tolerance();
    const Nearness nearness(curve);
    std::vector<Stretch> kept = stretchesOf(whole);
    std::erase_if(kept, [&](const Stretch& s) {
        return nearness.within(whole.at(parameterBetween(whole, s, 0.37)), reach) ||
               nearness.within(whole.at(parameterBetween(whole, s, 0.61)), reach);
    });
    std::vector<Curve> result = chained(whole, kept);
    if (curve.closed()) std::erase_if(result, [](const Curve& c) { return !c.closed(); });
    return result;
}

}  // namespace prancheta
