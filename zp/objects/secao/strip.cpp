// SPDX-License-Identifier: MIT
// Developed widths.
#include "zp/objects/secao/strip.h"

#include <cmath>

#include "zp/objects/secao/single.h"

namespace zp::secao {
namespace {

/// Of the shop's width from the mid-line.
constexpr double kMostOff = 0.15;
constexpr double kMidLine = 0.5;

double factorK(const StripRules& rules, double t) {
    // A sheet of 3 mm is not thicker than 3 mm.
    const auto found = rules.factorK.lower_bound(t - 1e-6);
    return found == rules.factorK.end() ? kMidLine : found->second;
}

}  // namespace

std::optional<Strip> stripOf(const Sheet& sheet, const std::wstring& single,
                             const StripRules& rules) {
    if (sheet.strip.empty()) return {};
    Strip strip;
    strip.espessura = sheet.strip.front().tBegin;
    const double k = factorK(rules, strip.espessura);
    double sign = 0.0;
    for (const Wall& wall : sheet.strip) {
        double length = wall.line.comprimento();
        if (wall.line.arc()) {
            const double inner = wall.line.radius - 0.5 * strip.espessura;
            length = std::abs(wall.line.sweep) * (inner + k * strip.espessura);
            strip.midLine += std::abs(wall.line.sweep) * (kMidLine - k) * strip.espessura;
            if (sign == 0.0) sign = wall.line.sweep > 0.0 ? 1.0 : -1.0;
            strip.bends.push_back({strip.width + 0.5 * length, sign * wall.line.sweep, inner});
        }
        strip.width += length;
    }
    strip.midLine += strip.width;
    const auto own = rules.widths.find(designationKey(single));
    if (own == rules.widths.end()) return strip;
    if (std::abs(own->second / strip.midLine - 1.0) > kMostOff) {
        strip.refused = own->second;
        return strip;
    }
    for (Strip::Bend& bend : strip.bends) bend.at *= own->second / strip.width;
    strip.width = own->second;
    strip.own = true;
    return strip;
}

}  // namespace zp::secao
