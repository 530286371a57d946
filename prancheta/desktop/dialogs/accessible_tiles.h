// SPDX-License-Identifier: MIT
// Tiles for who does not see them: roles and presses of those that no widget of the toolkit is.
#pragma once

namespace prancheta::desktop {

/// To be called before the first dialog opens; once is enough.
void announceTiles();

}  // namespace prancheta::desktop
