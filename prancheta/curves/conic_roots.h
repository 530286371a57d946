// SPDX-License-Identifier: MIT
// Zeros of what two ellipses ask of each other.
#pragma once

#include <cmath>
#include <vector>

namespace prancheta {

/// f(a) = c + x cos a + y sin a + xx cos 2a + yy sin 2a.
struct TrigonometricQuadratic {
    double c, x, y, xx, yy;

    double at(double a) const {
        return c + x * std::cos(a) + y * std::sin(a) + xx * std::cos(2.0 * a) +
               yy * std::sin(2.0 * a);
    }
    double slope(double a) const {
        return y * std::cos(a) - x * std::sin(a) +
               2.0 * (yy * std::cos(2.0 * a) - xx * std::sin(2.0 * a));
    }
    /// The greatest value that it could have.
    double size() const {
        return std::abs(c) + std::abs(x) + std::abs(y) + std::abs(xx) + std::abs(yy);
    }
};

/// Angles in (-pi, pi] at which f is 0, each once, up to four; also where f only comes within
/// `slack` of 0 and turns back.
std::vector<double> rootsOf(const TrigonometricQuadratic& f, double slack);

}  // namespace prancheta
