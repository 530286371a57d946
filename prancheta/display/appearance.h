// SPDX-License-Identifier: MIT
// How a primitive looks: colour, dashes and line weight after by-layer and by-block are resolved.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "dbapserv.h"
#include "prancheta/graphics/palette.h"
#include "prancheta/graphics/picture.h"

namespace prancheta {

struct Appearance {
    Rgb color;
    int colorIndex = 7;  ///< 1 to 255, from which the colour came, or nearest to it; by block: 0
    std::wstring layer;
    bool followsGround = false;  ///< colour 7: black on light ground, white on dark
    double lineWeight = 0.25;    ///< mm on paper
    /// Dash lengths in drawing units, pen down and up in turn (0 = dot), LTSCALE and the entity's
    /// scale included; empty: continuous.
    std::vector<double> dashes;
    double dashPeriod = 0.0;  ///< sum of `dashes`
};

/// Resolves traits of pictures against the layers and linetypes of one drawing; each is looked up
/// once, until invalidate().
class AppearanceTable {
public:
    /// Dashes are `dashScale` times as long as LTSCALE and entities ask.
    explicit AppearanceTable(AcDbDatabase& database, double dashScale = 1.0);
    ~AppearanceTable();
    /// The reference is good until invalidate().
    const Appearance& of(const PictureTraits& traits);
    void invalidate();
    void setDashScale(double scale);

private:
    struct Impl;
    std::unique_ptr<Impl> m_impl;
};

}  // namespace prancheta
