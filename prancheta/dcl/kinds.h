// SPDX-License-Identifier: MIT
// Kinds of tiles: their names in the language and for the user, and what they are good for.
#pragma once

#include <optional>
#include <string_view>

#include "prancheta/dcl/dialog.h"

namespace prancheta::dcl {

/// Name in the language ("edit_box").
std::string_view kindName(TileKind kind);

/// With its article, for messages ("uma caixa de edição").
std::string_view kindForUser(TileKind kind);

/// May hold other tiles.
bool isCluster(TileKind kind);
bool isRadioCluster(TileKind kind);
/// Lays its children out from left to right.
bool isHorizontal(TileKind kind);
/// Draws a frame whatever its attributes say.
bool isBoxed(TileKind kind);
/// Answers to the user.
bool isActive(TileKind kind);
bool isImage(TileKind kind);
bool isList(TileKind kind);

}  // namespace prancheta::dcl
