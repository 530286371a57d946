// SPDX-License-Identifier: MIT
// Where the installation keeps its dialogs, lists and slides.
#pragma once

#include <initializer_list>
#include <optional>
#include <string>
#include <string_view>

namespace perfis {

/// Value of the environment variable ZPFORJA2010, without trailing separator; nothing when unset.
std::optional<std::wstring> installationFolder();

/// The same; prints why there is none on the command line.
std::optional<std::wstring> requiredInstallationFolder();

/// Paths fit a buffer of this many characters, terminator included.
inline constexpr std::size_t kPathBuffer = 512;

/// The parts one after another; nothing when they do not fit the path buffer.
std::optional<std::wstring> composePath(std::initializer_list<std::wstring_view> parts);

/// folder\Perfis\file, for dialog files.
std::optional<std::wstring> dialogPath(std::wstring_view folder, std::wstring_view file);
/// folder\Perfis\Listas\file.
std::optional<std::wstring> listPath(std::wstring_view folder, std::wstring_view file);
/// folder\Perfis\Slides\library(slide), without library the bare slide name.
std::optional<std::wstring> slidePath(std::wstring_view folder, std::wstring_view library,
                                      std::wstring_view slide);

/// Says on the command line that a path does not fit.
void reportLongPath();

}  // namespace perfis
