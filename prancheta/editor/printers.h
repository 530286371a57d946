// SPDX-License-Identifier: MIT
// The system's printers, which take what is plotted.
#pragma once

#include <span>
#include <string>
#include <vector>

#include "prancheta/editor/plotter.h"

namespace prancheta {

/// Their names, as CUPS lists them; empty without any, and where there is no CUPS.
std::vector<std::wstring> printers();
/// What is said where there are none.
inline constexpr const wchar_t* kNoPrinter =
    L"Nenhuma impressora: o sistema de impressão (CUPS) não tem ou não está instalado.";

/// Plots the sheets, true to their size, on that printer. Answers with the printer's own name of
/// the job. All sheets have the first one's paper.
Result<std::wstring> print(Editor& editor, std::span<const PlotSettings> sheets,
                           const std::wstring& printer);

}  // namespace prancheta
