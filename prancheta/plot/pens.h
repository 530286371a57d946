// SPDX-License-Identifier: MIT
// Pens for appearances: colour by ground, width by line weight, dashes in pixels.
#pragma once

#include <QPen>
#include <optional>
#include <unordered_map>
#include <vector>

#include "prancheta/plot/painter.h"

namespace prancheta {

class Pens {
public:
    /// `scale`: pixels of one drawing unit.
    Pens(const PicturePainter::Settings& settings, double scale);

    /// Number of the pen in at(); equal numbers for what looks alike.
    std::size_t of(const Appearance& appearance);
    /// Of areas that hide what lies under them.
    std::size_t ofGround();
    const QPen& at(std::size_t index) const { return m_pens[index]; }

private:
    QPen make(const Appearance& appearance) const;

    const PicturePainter::Settings& m_settings;
    double m_scale;
    std::unordered_map<const Appearance*, std::size_t> m_known;
    std::vector<QPen> m_pens;
    std::optional<std::size_t> m_ground;
};

}  // namespace prancheta
