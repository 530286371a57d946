// SPDX-License-Identifier: MIT
// The user's layer names: Perfis/camadas.ini of the installation folder.
#pragma once

#include <filesystem>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "acdb.h"

namespace zp {

/// Standard name in lower case to the user's name. Lines "standard = user"; ";" and "#" start
/// comments; section headings and lines without "=" are passed over. UTF-8, or the Windows western
/// code page when the bytes are no UTF-8. Empty when the file cannot be read.
std::map<std::wstring, std::wstring> readLayers(const std::filesystem::path& file);

/// The folder that ZPFORJA2010 names; empty without the variable. Every piece asks: the path is
/// made anew only when the variable has changed.
const std::filesystem::path& installationFolder();

/// The file below the folder that ZPFORJA2010 names, found without regard to case; empty without
/// the variable.
std::filesystem::path layerFile();

/// What camadas.ini says of a layer: "NAME", "NAME, 0.35" or ", 0.35"; the pen in mm, the nearest
/// that there is, on paper.
struct UserLayer {
    std::wstring name;  ///< empty: the standard one
    std::optional<AcDb::LineWeight> lineWeight;
};
UserLayer userLayer(std::wstring_view text);
/// What is wrong with the lines of camadas.ini, each as "Perfis/camadas.ini:LINE: what", in
/// Portuguese: no "=", a name that no layer can have, a pen that is no number from 0 to 10.
std::vector<std::wstring> layerFileFaults(const std::filesystem::path& file);

/// Colour index of a standard layer that has to be made, and its pen where the user names none.
int layerColour(const std::wstring& standardName);
AcDb::LineWeight layerLineWeight(const std::wstring& standardName);

}  // namespace zp
