// SPDX-License-Identifier: MIT
// Where the entity's point stands, given the point that the user picked.
#pragma once

#include "perfis/commands/medidas.h"

namespace perfis {

/// One entry of "ins_list": the point of the section's box that stands on the picked point, and the
/// shift from there to the section's reference point.
struct Insertion {
    const wchar_t* name;
    Shift (*shift)(const Medidas&);
};

/// How a longitudinal view is placed.
struct BarraPlace {
    int vista = 0;      ///< figure chosen in the views dialog, 1 to 4
    int alignment = 0;  ///< 1 upper edge at the start, 2 at mid length; 3 axis at the start; 4
                        ///< lower edge at the start, 5 at mid length; every other code acts like 3
    double comprimento = 0.0;  ///< mm
};

/// Lower and upper edge of a longitudinal view, measured from the axis.
struct Reach {
    double lower = 0.0;
    double upper = 0.0;
};

/// Views 3 and 4 show half the height, 1 and 2 half the width to both sides of the axis.
Reach symmetricReach(double altura, double largura, int vista);

/// Shift from the picked point to the start of the axis.
Shift shiftByReach(const Reach& reach, const BarraPlace& place);

/// The rule of the U sections, whose height and flange count in whole mm.
Shift uBarraShift(const Medidas& medidas, const BarraPlace& place);

}  // namespace perfis
