// SPDX-License-Identifier: MIT
// Chords of splines.
#include "prancheta/entities/ellipse.h"

#include <algorithm>
#include <cmath>

namespace prancheta {

namespace {

constexpr int kChordsOfSpan = 12;
constexpr int kHighestDegree = 11;

/// Point with weight, already multiplied by it.
struct Weighted {
    AcGeVector3d v;
    double w = 1.0;
};

Weighted between(const Weighted& a, const Weighted& b, double t) {
    return {a.v * (1.0 - t) + b.v * t, std::lerp(a.w, b.w, t)};
}

}  // namespace

void appendSpline(int degree, std::span<const double> knots, std::span<const AcGePoint3d> control,
                  std::span<const double> weights, std::vector<AcGePoint3d>& out) {
    const auto p = static_cast<std::size_t>(std::clamp(degree, 1, kHighestDegree));
    const std::size_t count = control.size();
    if (count < p + 1 || knots.size() != count + p + 1) return;
    if (!std::is_sorted(knots.begin(), knots.end())) return;
    const bool rational = weights.size() == count;
    Weighted work[kHighestDegree + 1];
    for (std::size_t span = p; span < count; ++span) {
        if (!(knots[span + 1] > knots[span])) continue;
        const int first = out.empty() ? 0 : 1;
        for (int step = first; step <= kChordsOfSpan; ++step) {
            const double u =
                std::lerp(knots[span], knots[span + 1], static_cast<double>(step) / kChordsOfSpan);
            for (std::size_t j = 0; j <= p; ++j) {
                const double w = rational ? weights[span - p + j] : 1.0;
                work[j] = {control[span - p + j].asVector() * w, w};
            }
            for (std::size_t r = 1; r <= p; ++r) {
                for (std::size_t j = p; j >= r; --j) {
                    const double low = knots[span - p + j];
                    const double high = knots[span + 1 + j - r];
                    const double t = high > low ? (u - low) / (high - low) : 0.0;
                    work[j] = between(work[j - 1], work[j], t);
                }
            }
            const double w = work[p].w != 0.0 ? work[p].w : 1.0;
            const AcGeVector3d v = work[p].v / w;
            out.emplace_back(v.x, v.y, v.z);
        }
    }
}

}  // namespace prancheta
