// SPDX-License-Identifier: MIT
// The user's layer names: Perfis/camadas.ini of the installation folder.
#pragma once

#include <filesystem>
#include <map>
#include <string>

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

/// Colour index of a standard layer that has to be made.
int layerColour(const std::wstring& standardName);

}  // namespace zp
