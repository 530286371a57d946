// SPDX-License-Identifier: MIT
// What the dialogs of one session have in common: font, metrics, ground of images, places.
#pragma once

#include <QColor>
#include <QFont>
#include <QPoint>
#include <QWidget>

#include <functional>
#include <map>
#include <optional>
#include <string>

#include "prancheta/dcl/dialog.h"

namespace prancheta::desktop {

struct DialogSettings {
    std::optional<QFont> font;  ///< of which the metrics were told; nothing before that
    QColor ground{0x21, 0x28, 0x30};
    std::function<void(QWidget& window, const QString& dialog)> help;  ///< F1
    std::map<std::string, QPoint> places;  ///< upper left corner a dialog had when it closed
};

/// Of the process, as the dialog functions are: they reach a front end without an object to keep
/// this in.
DialogSettings& dialogSettings();

/// Measured on widgets of the same font and style.
dcl::Metrics metricsOf(const QWidget& like);

/// The fixed-pitch font that goes with a font.
QFont fixedFont(const QFont& like);

}  // namespace prancheta::desktop
