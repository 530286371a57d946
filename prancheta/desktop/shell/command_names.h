// SPDX-License-Identifier: MIT
// Names that can be typed at "Comando:", for completion.
#pragma once

#include <QAbstractItemModel>

#include "prancheta/editor/editor.h"

namespace prancheta::desktop {

/// Local names, also without their accents, global names with their `_`, aliases with the command
/// that they stand for, and variables; shown in the display role, typed in the user role. Sorted as
/// they are typed.
QAbstractItemModel* makeCommandNames(Editor& editor, QObject* parent);

}  // namespace prancheta::desktop
