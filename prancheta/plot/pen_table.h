// SPDX-License-Identifier: MIT
// Pens of the plotted sheet: how what has a colour, or lies on a layer, comes onto paper.
#pragma once

#include <map>
#include <optional>
#include <string>
#include <string_view>

#include "prancheta/base/result.h"
#include "prancheta/display/appearance.h"

namespace prancheta {

struct PlotPen {
    std::optional<Rgb> ink;            ///< nothing: the object's colour
    std::optional<double> lineWeight;  ///< mm; nothing: the object's
    double screen = 1.0;               ///< 0 white, 1 full
};

/// Lines `cor NÚMERO, PENA, ESPESSURA, RETÍCULA` and `camada NOME, ...`; penas.txt of the
/// installation folder explains them.
class PenTable {
public:
    /// `name` is told with what is wrong.
    static Result<PenTable> parse(std::string_view text, const std::string& name);

    /// A layer goes before a colour, a colour before `*`. Null: as the object has it.
    const PlotPen* of(const Appearance& appearance) const;

private:
    Result<void> take(std::wstring_view line);
    std::map<std::wstring, PlotPen> m_layers;  ///< names in one case
    std::map<int, PlotPen> m_colors;           ///< 0: all others
};

/// Prancheta/penas.txt of the installation folder, read again when it changes; empty without the
/// file. Good until the next call.
const Result<PenTable>& usualPens();

}  // namespace prancheta
