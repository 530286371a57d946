// SPDX-License-Identifier: MIT
// Insertion rules of longitudinal views.
#include "perfis/commands/insertion.h"

#include "texts/number.h"

namespace perfis {
namespace {

/// Factors of half the length (to the left) and of the height (upwards).
struct Factors {
    double a = 0.0;
    double c = 0.0;
};

Factors factorsOf(int alignment) {
    switch (alignment) {
        case 1:
            return {0.0, -1.0};
        case 2:
            return {1.0, -1.0};
        case 4:
            return {0.0, 1.0};
        case 5:
            return {1.0, 1.0};
        default:
            return {};
    }
}

constexpr double kOneThird = 1.0 / 3.0;
constexpr double kTwoThirds = 2.0 / 3.0;

}  // namespace

Reach symmetricReach(double altura, double largura, int vista) {
    const double half = (vista == 3 || vista == 4 ? altura : largura) / 2.0;
    return {-half, half};
}

Shift shiftByReach(const Reach& reach, const BarraPlace& place) {
    const Factors factors = factorsOf(place.alignment);
    const double rise = factors.c < 0.0 ? -reach.upper : factors.c > 0.0 ? -reach.lower : 0.0;
    return {-factors.a * place.comprimento / 2.0, rise};
}

Shift uBarraShift(const Medidas& medidas, const BarraPlace& place) {
    const Factors factors = factorsOf(place.alignment);
    double c = factors.c;
    double d = 0.0;
    if (place.vista == 3 || place.vista == 4) {
        const int half =
            texts::realToInt(medidas.h) / 2;  // whole-number division is part of the rule
        d = half;
    } else {
        // The web stands a third of the flange off the axis, and view 2 is drawn turned.
        if (place.vista == 2 && c != 0.0) c = c < 0.0 ? -kTwoThirds : kOneThird;
        if (place.vista == 1 && c != 0.0) c = c > 0.0 ? kTwoThirds : -kOneThird;
        d = texts::realToInt(medidas.b);
    }
    return {-factors.a * place.comprimento / 2.0, c * d};
}

}  // namespace perfis
