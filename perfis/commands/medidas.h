// SPDX-License-Identifier: MIT
// The numbers of a section as the commands read them from their dialogs.
#pragma once

#include <initializer_list>

namespace perfis {

/// Dimensions in mm, m in kg/m. A command uses those that its dialog has.
struct Medidas {
    double h = 0.0;   ///< height
    double b = 0.0;   ///< width of a flange or leg
    double t = 0.0;   ///< thickness
    double a = 0.0;   ///< lip, gap between pieces or outside width
    double d = 0.0;   ///< outer diameter
    double di = 0.0;  ///< wall of a tube
    double e = 0.0;   ///< lip of a built-up profile
    double av = 0.0;  ///< gap in height
    double bb = 0.0;  ///< width of the lower flange
    double tb = 0.0;  ///< thickness of the lower flange
    double bc = 0.0;  ///< width of the upper flange
    double tc = 0.0;  ///< thickness of the upper flange
    double m = 0.0;   ///< linear mass of the row last picked
};

/// One of the numbers; null: none of them.
using Medida = double Medidas::*;

/// The first of these that is not above 0.
constexpr Medida firstNotPositive(const Medidas& medidas, std::initializer_list<Medida> needed) {
    for (const Medida medida : needed)
        if (!(medidas.*medida > 0.0)) return medida;
    return nullptr;
}

/// Vector in the drawing's plane.
struct Shift {
    double x = 0.0;
    double y = 0.0;
};

}  // namespace perfis
