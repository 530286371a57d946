// SPDX-License-Identifier: MIT
// The curve of a spline: de Boor's algorithm span by span; fit points become cubic Bezier pieces.
#include "prancheta/entities/spline_curve.h"

#include <algorithm>
#include <cmath>
#include <numeric>

#include "prancheta/entities/tag_list.h"

namespace prancheta {
namespace {

constexpr int kHighestDegree = 25;
/// Of the size of the control points.
constexpr double kDeviation = 1e-5;
constexpr int kDeepest = 9;

using Points = std::vector<AcGePoint3d>;

/// Point with weight, already multiplied by it.
struct Weighted {
    AcGeVector3d v;
    double w = 1.0;
};

Weighted between(const Weighted& a, const Weighted& b, double t) {
    return {a.v * (1.0 - t) + b.v * t, std::lerp(a.w, b.w, t)};
}

AcGePoint3d pointAt(const SplineData& s, std::size_t span, double u) {
    Weighted work[kHighestDegree + 1];
    const auto p = static_cast<std::size_t>(s.degree);
    for (std::size_t j = 0; j <= p; ++j) {
        const double w = s.weights.empty() ? 1.0 : s.weights[span - p + j];
        work[j] = {s.control[span - p + j].asVector() * w, w};
    }
    for (std::size_t r = 1; r <= p; ++r) {
        for (std::size_t j = p; j >= r; --j) {
            const double low = s.knots[span - p + j];
            const double high = s.knots[span + 1 + j - r];
            const double t = high > low ? (u - low) / (high - low) : 0.0;
            work[j] = between(work[j - 1], work[j], t);
        }
    }
    return AcGePoint3d::kOrigin + work[p].v / work[p].w;
}

/// Distance of q from the line through two points, or from the first when they are one.
double offLine(const AcGePoint3d& a, const AcGePoint3d& b, const AcGePoint3d& q) {
    const AcGeVector3d along = b - a;
    const double length = along.length();
    return length > 0.0 ? along.crossProduct(q - a).length() / length : a.distanceTo(q);
}

/// Distance of q from the circle through three points of its plane.
double offArc(const AcGePoint3d& a, const AcGePoint3d& m, const AcGePoint3d& b,
              const AcGePoint3d& q) {
    const AcGeVector3d u = m - a;
    const AcGeVector3d v = b - a;
    const AcGeVector3d n = u.crossProduct(v);
    const double area = n.dotProduct(n);
    if (area <= 1e-18 * u.dotProduct(u) * v.dotProduct(v)) return offLine(a, b, q);
    const AcGeVector3d arm =
        (n.crossProduct(u) * v.dotProduct(v) + v.crossProduct(n) * u.dotProduct(u)) / (2.0 * area);
    return std::abs((q - (a + arm)).length() - arm.length());
}

class Follower {
public:
    Follower(const SplineData& s, By by, Points& out, std::vector<double>* knots)
        : m_spline(s), m_by(by), m_out(out), m_knots(knots) {
        // The same however it is turned.
        for (const AcGePoint3d& p : s.control)
            m_tolerance = std::max(m_tolerance, p.distanceTo(s.control[0]) * kDeviation);
    }

    void run() {
        const auto& k = m_spline.knots;
        const auto p = static_cast<std::size_t>(m_spline.degree);
        for (std::size_t span = p; span < m_spline.control.size(); ++span) {
            if (!(k[span + 1] > k[span])) continue;
            m_span = span;
            const AcGePoint3d from = pointAt(m_spline, span, k[span]);
            if (m_out.empty()) add(from, k[span]);
            // A span with an S in it would look straight in its middle.
            const double middle = std::midpoint(k[span], k[span + 1]);
            const AcGePoint3d half = pointAt(m_spline, span, middle);
            const AcGePoint3d to = pointAt(m_spline, span, k[span + 1]);
            piece(k[span], middle, from, half, 1);
            piece(middle, k[span + 1], half, to, 1);
        }
    }

private:
    void piece(double low, double high, const AcGePoint3d& a, const AcGePoint3d& b, int depth) {
        const double middle = std::midpoint(low, high);
        const AcGePoint3d m = pointAt(m_spline, m_span, middle);
        const AcGePoint3d first = pointAt(m_spline, m_span, std::midpoint(low, middle));
        const AcGePoint3d second = pointAt(m_spline, m_span, std::midpoint(middle, high));
        const double off = m_by == By::Arcs
                               ? std::max(offArc(a, m, b, first), offArc(a, m, b, second))
                               : std::max(offLine(a, m, first), offLine(m, b, second));
        if (off <= m_tolerance || depth >= kDeepest) {
            add(m, middle);
            add(b, high);
            return;
        }
        piece(low, middle, a, m, depth + 1);
        piece(middle, high, m, b, depth + 1);
    }

    void add(const AcGePoint3d& p, double knot) {
        m_out.push_back(p);
        if (m_knots != nullptr) m_knots->push_back(knot);
    }

    const SplineData m_spline;
    const By m_by;
    Points& m_out;
    std::vector<double>* m_knots;
    std::size_t m_span = 0;
    double m_tolerance = 0.0;
};

/// Cubic pieces through the fit points whose tangents come from the neighbours on both sides,
/// weighted by the distance to them: local, and without loops where points lie unevenly.
SplineData throughFit(const SplineData& data) {
    SplineData made;
    Points fit = data.fit;
    fit.erase(std::unique(fit.begin(), fit.end()), fit.end());
    const bool closed = (data.flags & SplineData::kClosed) != 0 && fit.size() > 2;
    if (closed && fit.front() == fit.back()) fit.pop_back();
    const auto count = static_cast<int>(fit.size());
    const auto at = [&](int i) {
        return fit[static_cast<std::size_t>(closed ? (i + count) % count
                                                   : std::clamp(i, 0, count - 1))];
    };
    const auto tangent = [&](int i) {
        if (!closed && i == 0 && !data.tangents[0].isZeroLength()) return data.tangents[0].normal();
        if (!closed && i == count - 1 && !data.tangents[1].isZeroLength())
            return data.tangents[1].normal();
        const AcGeVector3d before = at(i) - at(i - 1);
        const AcGeVector3d behind = at(i + 1) - at(i);
        const double p = before.length();
        const double q = behind.length();
        if (p == 0.0) return behind / q;
        if (q == 0.0) return before / p;
        return (before * (q / p) + behind * (p / q)) / (p + q);
    };
    made.control.push_back(at(0));
    made.knots.assign(4, 0.0);
    const int pieces = closed ? count : count - 1;
    for (int i = 0; i < pieces; ++i) {
        const double third = at(i).distanceTo(at(i + 1)) / 3.0;
        made.control.push_back(at(i) + tangent(i) * third);
        made.control.push_back(at(i + 1) - tangent(i + 1) * third);
        made.control.push_back(at(i + 1));
        made.knots.insert(made.knots.end(), i + 1 < pieces ? 3 : 4, i + 1.0);
    }
    return made;
}

}  // namespace

SplineData splineOf(const RawTags& tags) {
    SplineData data;
    data.flags = findWhole(tags, 70, 0);
    data.degree = findWhole(tags, 71, 0);
    data.control = findPoints(tags, 10);
    data.knots = findNumbers(tags, 40);
    data.weights = findNumbers(tags, 41);
    data.fit = findPoints(tags, 11);
    data.normal = findPoint(tags, 210).asVector();
    for (int i = 0; i < 2; ++i) data.tangents[i] = findPoint(tags, 12 + i).asVector();
    for (int i = 0; i < 3; ++i) data.tolerances[i] = findNumber(tags, 42 + i, -1.0);
    return data;
}

bool isCurve(const SplineData& s) {
    if (s.control.empty())
        return std::ranges::adjacent_find(s.fit, std::not_equal_to<>()) != s.fit.end();
    const auto p = static_cast<std::size_t>(std::max(s.degree, 0));
    return s.degree >= 1 && s.degree <= kHighestDegree && s.control.size() > p &&
           s.knots.size() == s.control.size() + p + 1 &&
           std::is_sorted(s.knots.begin(), s.knots.end()) &&
           s.knots[p] < s.knots[s.control.size()] &&
           (s.weights.empty() ||
            (s.weights.size() == s.control.size() &&
             std::ranges::all_of(s.weights, [](double w) { return w > 0.0; })));
}

SplineData controlledBy(const SplineData& data) {
    if (!data.control.empty()) return data;
    SplineData made = throughFit(data);
    made.normal = data.normal;
    return made;
}

std::vector<AcGePoint3d> splinePlaces(const SplineData& data, By by, std::vector<double>* knots) {
    Points places;
    Follower(controlledBy(data), by, places, knots).run();
    return places;
}

}  // namespace prancheta
