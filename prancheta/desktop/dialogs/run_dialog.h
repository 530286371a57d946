// SPDX-License-Identifier: MIT
// Serves a DCL dialog with native widgets.
#pragma once

#include <QColor>
#include <QWidget>

#include <functional>

#include "prancheta/dcl/dialog.h"

namespace prancheta::desktop {

/// Shows the dialog modally over `parent` and returns when it is finished. Dialogs opened by its
/// callbacks are served the same way, inside.
void runDialog(dcl::Dialog& dialog, QWidget* parent);

/// Whether a dialog stands open, with those inside one another.
bool isDialogOpen();

/// Tells the dialog functions the metrics of the present font, by which image tiles are measured
/// before a window exists; to be called once at start and after a change of font.
void announceMetrics(const QWidget& like);

/// Ground of the drawing area, which image tiles show as graphics_background; dark until told
/// otherwise.
void announceGround(const QColor& ground);

/// What F1 in a dialog does: its window, and its name in the file; nothing until told.
void announceHelp(std::function<void(QWidget& window, const QString& dialog)> help);

}  // namespace prancheta::desktop
