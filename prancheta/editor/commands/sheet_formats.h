// SPDX-License-Identifier: MIT
// The formats of drawing sheets, as the installation folder has them.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "prancheta/base/result.h"

namespace prancheta::commands {

/// Lying: `width` is the longer side. All in mm.
struct SheetFormat {
    std::wstring name;
    double width = 0.0;
    double height = 0.0;
    double binding = 0.0;  ///< left margin
    double margin = 0.0;   ///< each other one
    double frameLine = 0.0;
    std::wstring titleBlock;           ///< file of sheetFolder(), without its ending
    std::vector<double> foldsAcross;   ///< from the right edge
    std::vector<double> foldsUpwards;  ///< from the lower edge
};

/// Where formats and title blocks are; empty when no installation folder is known.
std::filesystem::path sheetFolder();
/// In the file's order, never empty. An error names the file and the line that is wrong.
Result<std::vector<SheetFormat>> sheetFormats();

}  // namespace prancheta::commands
