// SPDX-License-Identifier: MIT
// Zeros of what two ellipses ask of each other.
//
// Between two neighbouring extremes f is monotone and halving finds its zero surely. The extremes
// are the zeros of f', which is of the same form; f'' is, too, and so it would go on. But f' has at
// most four zeros: a sign change of f' is looked for on a fine round, and where f' touches 0
// unseen between two steps, f runs on without a turn and nothing is lost but a turn of no height.
#include "prancheta/curves/conic_roots.h"

#include <algorithm>

#include "prancheta/geometry/angles.h"

namespace prancheta {

namespace {

template <class Function>
double halved(const Function& f, double low, double high, bool rising) {
    for (int i = 0; i < 80; ++i) {
        const double middle = (low + high) / 2.0;
        if (middle == low || middle == high) break;
        ((f(middle) > 0.0) == rising ? high : low) = middle;
    }
    return (low + high) / 2.0;
}

}  // namespace

std::vector<double> rootsOf(const TrigonometricQuadratic& f, double slack) {
    constexpr int kSteps = 720;
    const auto value = [&](double a) { return f.at(a); };
    const auto slope = [&](double a) { return f.slope(a); };
    std::vector<double> turns;
    bool rises = slope(-kPi) > 0.0;
    const bool risesAtFirst = rises;
    for (int i = 0; i < kSteps; ++i) {
        const double low = -kPi + kTwoPi * i / kSteps;
        const double high = -kPi + kTwoPi * (i + 1) / kSteps;
        // The round ends as it began, whatever rounding makes of the same place.
        const bool risesNext = i + 1 < kSteps ? slope(high) > 0.0 : risesAtFirst;
        if (rises != risesNext) turns.push_back(halved(slope, low, high, risesNext));
        rises = risesNext;
    }
    std::vector<double> roots;
    for (std::size_t i = 0; i < turns.size(); ++i) {
        const double low = turns[i];
        const double high = i + 1 < turns.size() ? turns[i + 1] : turns.front() + kTwoPi;
        const bool touches = std::abs(value(low)) <= slack;
        if (touches) roots.push_back(low);
        if (touches || std::abs(value(high)) <= slack) continue;
        const bool rising = value(high) > 0.0;
        if ((value(low) > 0.0) != rising) roots.push_back(halved(value, low, high, rising));
    }
    return roots;
}

}  // namespace prancheta
