// SPDX-License-Identifier: MIT
// The strip that a bent section is made from, and where it is bent.
#pragma once

#include <map>
#include <optional>
#include <string>
#include <vector>

#include "zp/objects/secao/sheet.h"

namespace zp::secao {

/// How a shop develops its strips.
struct StripRules {
    /// Neutral line of a bend from its inner face over the thickness (factor K), by the largest
    /// thickness that it holds for, mm. Thicker sheets, and all where there is none: 0.5, the
    /// mid-line.
    std::map<double, double> factorK;
    /// The shop's own widths, mm, by designationKey of the single shape. One that is more than 15 %
    /// off the mid-line is a slip of the pen and does not hold.
    std::map<std::wstring, double> widths;
};

struct Strip {
    double width = 0.0;  ///< mm
    struct Bend {
        double at = 0.0;  ///< middle of the bend from the first edge, mm
        double angle =
            0.0;  ///< radians, positive towards the side that the first edge's is bent to
        double radius = 0.0;  ///< inner, mm
    };
    std::vector<Bend> bends;
    double espessura = 0.0;
    bool own = false;               ///< the width is the shop's; bends are spread as developed
    std::optional<double> refused;  ///< the shop's width that does not hold, mm
    double midLine = 0.0;           ///< developed width of the mid-line, mm
};

/// Of one single shape; nothing where it is bent from no strip (tubes are bought as tubes).
/// `single`: perfil and dimensions of the single shape.
std::optional<Strip> stripOf(const Sheet& sheet, const std::wstring& single,
                             const StripRules& rules);

}  // namespace zp::secao
