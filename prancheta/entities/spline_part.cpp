// SPDX-License-Identifier: MIT
// Parts of splines: Boehm's knot insertion at both ends, until the curve passes through a control
// point there. O(control points) a knot.
#include "prancheta/entities/spline_part.h"

#include <algorithm>
#include <cmath>

namespace prancheta {
namespace {

/// The same curve with one more knot.
void insertKnot(SplineData& s, double u) {
    const auto p = static_cast<std::size_t>(s.degree);
    const auto above = std::upper_bound(s.knots.begin(), s.knots.end(), u);
    const auto span = static_cast<std::size_t>(above - s.knots.begin()) - 1;
    const bool rational = !s.weights.empty();
    std::vector<AcGePoint3d> control = s.control;
    std::vector<double> weights = s.weights;
    control.insert(control.begin() + static_cast<std::ptrdiff_t>(span), s.control[span - 1]);
    if (rational)
        weights.insert(weights.begin() + static_cast<std::ptrdiff_t>(span), s.weights[span - 1]);
    for (std::size_t i = span - p + 1; i <= span; ++i) {
        const double wide = s.knots[i + p] - s.knots[i];
        const double part = wide > 0.0 ? (u - s.knots[i]) / wide : 0.0;
        const double before = rational ? s.weights[i - 1] : 1.0;
        const double behind = rational && i < s.weights.size() ? s.weights[i] : 1.0;
        const AcGePoint3d& next = i < s.control.size() ? s.control[i] : s.control.back();
        const double weight = std::lerp(before, behind, part);
        const AcGeVector3d sum = s.control[i - 1].asVector() * (before * (1.0 - part)) +
                                 next.asVector() * (behind * part);
        control[i] = AcGePoint3d::kOrigin + sum / weight;
        if (rational) weights[i] = weight;
    }
    s.control = std::move(control);
    s.weights = std::move(weights);
    s.knots.insert(s.knots.begin() + static_cast<std::ptrdiff_t>(span) + 1, u);
}

/// Knots until the curve passes through a control point at this one.
void meet(SplineData& s, double u) {
    for (auto times = std::ranges::count(s.knots, u); times < s.degree; ++times) insertKnot(s, u);
}

double knotAt(const std::vector<double>& knots, double t) {
    const double last = static_cast<double>(knots.size() - 1);
    const auto i = static_cast<std::size_t>(std::clamp(std::floor(t), 0.0, last - 1.0));
    return std::lerp(knots[i], knots[i + 1], std::clamp(t - static_cast<double>(i), 0.0, 1.0));
}

}  // namespace

Curve chordsOf(const SplineData& curve) {
    const std::vector<AcGePoint3d> places = splinePlaces(curve, By::Chords);
    std::vector<Segment> chain;
    for (std::size_t i = 0; i + 1 < places.size(); ++i)
        chain.push_back(straight({places[i].x, places[i].y}, {places[i + 1].x, places[i + 1].y}));
    return Curve(std::move(chain), false);
}

SplineData splinePart(const SplineData& curve, double from, double to) {
    std::vector<double> knots;
    (void)splinePlaces(curve, By::Chords, &knots);
    const double low = knotAt(knots, from);
    const double high = knotAt(knots, to);
    SplineData part = controlledBy(curve);
    meet(part, low);
    meet(part, high);
    const auto p = static_cast<std::ptrdiff_t>(part.degree);
    const auto first = std::ranges::upper_bound(part.knots, low) - part.knots.begin() - 1 - p;
    const auto end = std::ranges::lower_bound(part.knots, high) - part.knots.begin();
    const auto cut = [&](auto& all) { all = {all.begin() + first, all.begin() + end}; };
    std::vector<double> inside(part.knots.begin() + first + p + 1, part.knots.begin() + end);
    cut(part.control);
    if (!part.weights.empty()) cut(part.weights);
    const auto ends = static_cast<std::size_t>(p) + 1;
    part.knots.assign(ends, low);
    part.knots.insert(part.knots.end(), inside.begin(), inside.end());
    part.knots.insert(part.knots.end(), ends, high);
    part.fit.clear();
    part.tangents[0] = part.tangents[1] = {};
    part.flags &= ~(SplineData::kClosed | SplineData::kPeriodic);
    return part;
}

}  // namespace prancheta
