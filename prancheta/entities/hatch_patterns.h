// SPDX-License-Identifier: MIT
// The patterns that come with the program.
#pragma once

#include <span>
#include <string_view>

#include "dbhatch.h"

namespace prancheta {

struct HatchPattern {
    const wchar_t* name;                    ///< as files have it
    const wchar_t* global;                  ///< answers, too
    const wchar_t* use;                     ///< what it stands for, for the user
    std::span<const HatchFamily> families;  ///< at scale 1, drawing units are mm; none: solid
};

std::span<const HatchPattern> hatchPatterns();
/// Upper or lower case; null for an unknown name.
const HatchPattern* hatchPattern(std::wstring_view name);

/// Gives the hatch the pattern at a scale, turned about the origin.
void setPattern(AcDbHatch& hatch, const HatchPattern& pattern, double scale, double angle);
/// The hatch, open for write and no solid fill, keeps its pattern, `factor` times as large about
/// the origin.
void scalePattern(AcDbHatch& hatch, double factor);

}  // namespace prancheta
