// SPDX-License-Identifier: MIT
// The view that a drawing shows when it is opened.
#pragma once

#include "prancheta/editor/editor.h"

namespace prancheta {

/// The active viewport that the file holds, when it is a plan view that shows something of the
/// drawing; else the extents; of an empty drawing the usual view. Fitted to the editor's screen.
View openingView(const Editor& editor);

}  // namespace prancheta
