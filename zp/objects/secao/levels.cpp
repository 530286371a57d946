// SPDX-License-Identifier: MIT
// Edges of a longitudinal view. A sweep over heights w: at each candidate edge the front surface
// just below and just above it tells whether the edge is seen.
#include "zp/objects/secao/levels.h"

#include <algorithm>
#include <cmath>
#include <functional>
#include <limits>
#include <numbers>

namespace zp::secao {
namespace {

constexpr double kNothing = -std::numeric_limits<double>::infinity();

struct Candidate {
    double w;
    double p;
};

class Viewer {
public:
    explicit Viewer(int vista) : m_vista(vista) {}

    VistaPoint see(Point q) const { return secao::see(m_vista, q); }
    /// Angle of the section plane at which w is largest on a circle.
    double angleOfTop() const { return m_vista <= 2 ? std::numbers::pi : 0.5 * std::numbers::pi; }

private:
    int m_vista;
};

/// True when the direction `angle` lies on the arc, its ends included within `tolerance` radians.
bool contains(const Segment& s, double angle, double tolerance) {
    constexpr double kFullTurn = 2.0 * std::numbers::pi;
    const double sign = s.sweep > 0.0 ? 1.0 : -1.0;
    double d = std::fmod(sign * (angle - s.start), kFullTurn);
    if (d < -tolerance) d += kFullTurn;
    if (d > kFullTurn - tolerance) d -= kFullTurn;
    return d >= -tolerance && d <= std::abs(s.sweep) + tolerance;
}

/// Direction of travel at an end of a segment.
double direction(const Segment& s, bool atEnd) {
    if (!s.arc()) return std::atan2(s.b.y - s.a.y, s.b.x - s.a.x);
    const double radius = s.start + (atEnd ? s.sweep : 0.0);
    return radius + (s.sweep > 0.0 ? 0.5 : -0.5) * std::numbers::pi;
}

void outlineCandidates(const Outline& c, const Viewer& o, double bounds,
                       std::vector<Candidate>& list) {
    const auto include = [&](VistaPoint q) { list.push_back({q.w, q.p}); };
    const std::size_t n = c.segments.size();
    for (std::size_t i = 0; i < n; ++i) {
        const Segment& s = c.segments[i];
        const double turn = std::remainder(
            direction(c.segments[(i + 1) % n], false) - direction(s, true), 2.0 * std::numbers::pi);
        if (std::abs(turn) > 1e-3) include(o.see(s.b));
        if (!s.arc()) {
            const VistaPoint a = o.see(s.a);
            const VistaPoint b = o.see(s.b);
            if (std::abs(a.w - b.w) <= 1e-9 * bounds) list.push_back({a.w, std::max(a.p, b.p)});
            continue;
        }
        for (const double half : {0.0, std::numbers::pi}) {
            const double angle = o.angleOfTop() + half;
            // At an end the neighbour decides: a face seen edge-on is an edge of its own. Only the
            // two halves of a circle have none.
            if (!contains(s, angle, c.circle ? 1e-9 : -1e-9)) continue;
            include(o.see({s.centre.x + s.radius * std::cos(angle),
                           s.centre.y + s.radius * std::sin(angle)}));
        }
    }
    for (const ToeCorner& toe : c.toes) {
        const Segment& s = c.segments[toe.arc];
        if (!contains(s, o.angleOfTop(), 1e-6) &&
            !contains(s, o.angleOfTop() + std::numbers::pi, 1e-6))
            include(o.see(toe.corner));
    }
}

/// Calls back with p of every outline on the line of sight at height w.
template <class Visit>
void eachCrossing(const std::vector<Outline>& outlines, const Viewer& o, double w, Visit visit) {
    for (const Outline& c : outlines)
        for (const Segment& s : c.segments) {
            const VistaPoint a = o.see(s.a);
            const VistaPoint b = o.see(s.b);
            if (!s.arc()) {
                if ((a.w - w) * (b.w - w) <= 0.0 && a.w != b.w)
                    visit(a.p + (b.p - a.p) * (w - a.w) / (b.w - a.w));
                continue;
            }
            const VistaPoint centre = o.see(s.centre);
            const double altura = w - centre.w;
            if (std::abs(altura) > s.radius) continue;
            const double half = std::acos(altura / s.radius);
            for (const double angle : {o.angleOfTop() + half, o.angleOfTop() - half})
                if (contains(s, angle, 1e-12))
                    visit(o.see({s.centre.x + s.radius * std::cos(angle),
                                 s.centre.y + s.radius * std::sin(angle)})
                              .p);
        }
}

/// Largest p of steel on the line of sight at height w.
double frontmost(const std::vector<Outline>& outlines, const Viewer& o, double w) {
    double largest = kNothing;
    eachCrossing(outlines, o, w, [&](double p) { largest = std::max(largest, p); });
    return largest;
}

/// All of them, the nearest first.
std::vector<double> crossings(const std::vector<Outline>& outlines, const Viewer& o, double w) {
    std::vector<double> all;
    eachCrossing(outlines, o, w, [&](double p) { all.push_back(p); });
    std::ranges::sort(all, std::greater());
    return all;
}

/// How near two fronts, and how far beside an edge they are taken, over the size of the section.
constexpr double kSameFront = 1e-4;
constexpr double kBeside = 1e-7;

bool visible(const std::vector<Outline>& outlines, const Viewer& o, const Candidate& c,
             double bounds) {
    const double e = kBeside * bounds;
    const double below = frontmost(outlines, o, c.w - e);
    const double above = frontmost(outlines, o, c.w + e);
    if (below == kNothing || above == kNothing) return true;
    const double tolerance = kSameFront * bounds;
    return std::abs(below - above) > tolerance || c.p >= std::max(below, above) - tolerance;
}

void joinStretches(Vista& v, double bounds) {
    std::sort(v.stretches.begin(), v.stretches.end());
    std::vector<std::pair<double, double>> joined;
    for (const auto& t : v.stretches) {
        if (!joined.empty() && t.first <= joined.back().second + 1e-9 * bounds)
            joined.back().second = std::max(joined.back().second, t.second);
        else
            joined.push_back(t);
    }
    v.stretches = std::move(joined);
}

}  // namespace

VistaPoint see(int vista, const Point& q) {
    switch (vista) {
        case 1:
            return {-q.x, q.y};
        case 2:
            return {-q.x, -q.y};
        case 3:
            return {q.y, q.x};
        default:
            return {q.y, -q.x};
    }
}

std::vector<VistaPoint> frontBetween(const std::vector<Outline>& outlines, int vista, double from,
                                     double to) {
    constexpr int kParts = 8;  // of a rounding
    const Viewer o(vista);
    const double inset = 1e-7 * (to - from);
    const auto at = [&](double part) {
        const double w = from + (to - from) * part;
        return VistaPoint{w, frontmost(outlines, o, std::clamp(w, from + inset, to - inset))};
    };
    const VistaPoint a = at(0.0);
    const VistaPoint middle = at(0.5);
    const VistaPoint b = at(1.0);
    if (a.p == kNothing || middle.p == kNothing || b.p == kNothing) return {};
    if (std::abs(0.5 * (a.p + b.p) - middle.p) <= 1e-6 * (to - from)) return {a, b};
    std::vector<VistaPoint> parts;
    for (int i = 0; i < kParts; ++i) {
        parts.push_back(at(static_cast<double>(i) / kParts));
        parts.push_back(at(static_cast<double>(i + 1) / kParts));
    }
    return parts;
}

std::vector<std::pair<double, double>> seenBehind(const std::vector<Outline>& outlines, int vista,
                                                  double w) {
    const Viewer o(vista);
    Bounds bounds;
    for (const Outline& c : outlines) bounds.include(c.bounds);
    const double side = bounds.side();
    const std::vector<double> sides[] = {crossings(outlines, o, w - kBeside * side),
                                         crossings(outlines, o, w + kBeside * side)};
    std::vector<double> depths = sides[0];
    depths.insert(depths.end(), sides[1].begin(), sides[1].end());
    std::ranges::sort(depths, std::greater());
    std::vector<std::pair<double, double>> seen;
    for (std::size_t i = 1; i < depths.size(); ++i) {
        const double middle = 0.5 * (depths[i - 1] + depths[i]);
        double front[] = {kNothing, kNothing};
        bool inSteel = false;
        for (const std::size_t k : {0U, 1U}) {
            const auto next = std::ranges::lower_bound(sides[k], middle, std::greater());
            if (next != sides[k].end()) front[k] = *next;
            inSteel = inSteel || (next - sides[k].begin()) % 2 != 0;
        }
        if (!inSteel && front[0] != front[1] &&
            !(std::abs(front[0] - front[1]) <= kSameFront * side))
            seen.emplace_back(depths[i - 1], depths[i]);
    }
    return seen;
}

Vista vistaLongitudinal(const std::vector<Outline>& outlines, int vista) {
    Vista v;
    const Viewer o(vista);
    Bounds bounds;
    for (const Outline& c : outlines) {
        bounds.include(c.bounds);
        if (c.hole || c.bounds.empty()) continue;
        const double w0 = o.see({c.bounds.x0, c.bounds.y0}).w;
        const double w1 = o.see({c.bounds.x1, c.bounds.y1}).w;
        v.stretches.push_back(std::minmax(w0, w1));
    }
    if (v.stretches.empty()) return v;
    const double side = bounds.side();
    joinStretches(v, side);
    v.wMin = v.stretches.front().first;
    v.wMax = v.stretches.back().second;

    std::vector<Candidate> list;
    for (const Outline& c : outlines) outlineCandidates(c, o, side, list);
    std::sort(list.begin(), list.end(),
              [](const Candidate& a, const Candidate& b) { return a.w < b.w; });
    for (const Candidate& c : list) {
        const bool same = !v.levels.empty() && c.w - v.levels.back().w <= 1e-9 * side;
        if (!same) v.levels.push_back({c.w, false, c.p});
        v.levels.back().p = std::max(v.levels.back().p, c.p);
        if (!v.levels.back().visible) v.levels.back().visible = visible(outlines, o, c, side);
    }
    v.axis = v.wMin < 0.0 && v.wMax > 0.0 &&
             std::none_of(v.levels.begin(), v.levels.end(),
                          [&](const Level& n) { return std::abs(n.w) <= 1e-6 * side; });
    return v;
}

}  // namespace zp::secao
