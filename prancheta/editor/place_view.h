// SPDX-License-Identifier: MIT
// The view of the place that is drawn in: the screen's, or that of the viewport.
#pragma once

#include "prancheta/editor/editor.h"

namespace prancheta {

/// What fills the screen or, through a viewport that is not locked, the viewport's frame.
View placeView(const Editor& editor);
/// Height of the same over its width.
double placeProportion(const Editor& editor);
void showInPlace(Editor& editor, const View& view);

}  // namespace prancheta
