// SPDX-License-Identifier: MIT
// Reads dialog files into a library of definitions.
//
// Design. A recursive-descent parser with one token of look-ahead. A name is resolved at the moment
// it is used, against what stands above it in the file, then against the predefined tiles: the
// language wants definitions before uses, and so a definition can only point back. Parents are
// merged into a definition when its body opens (the leftmost one wins), children are shared by
// pointer: reading costs time and memory in proportion to the text, and the whole is an acyclic
// graph by construction. A use that points forward is kept aside and reported at the end, as a
// circle when it closes one. Limits (nesting, attributes, tiles of a dialog) are far above any real
// dialog and keep damaged or hostile files harmless.
#pragma once

#include <filesystem>
#include <string_view>

#include "prancheta/dcl/definition.h"

namespace prancheta::dcl {

/// Reads a file and what it includes. Wrong syntax, a missing include and a circle of includes
/// fail; what is wrong with the meaning is left in `findings`, already cut to the file's audit
/// level.
Result<Library> parseFile(const std::filesystem::path& path);

/// The same for a text; `name` stands for the file in messages, and includes are looked for in the
/// current folder only.
Result<Library> parseText(std::string_view text, std::string_view name);

/// The predefined tiles and exit buttons.
const Library& baseLibrary();

/// Largest dialog, in tiles, and deepest one, in levels.
constexpr std::size_t kMostTiles = 5000;

}  // namespace prancheta::dcl
