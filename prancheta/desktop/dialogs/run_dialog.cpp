// SPDX-License-Identifier: MIT
// Shows a dialog and keeps its place for the next time.
#include "prancheta/desktop/dialogs/run_dialog.h"

#include <QApplication>
#include <QScreen>

#include <algorithm>

#include "prancheta/desktop/dialogs/dialog_window.h"
#include "prancheta/desktop/dialogs/settings.h"

namespace prancheta::desktop {
namespace {

/// A screen may have gone since the dialog was there.
bool isOnScreen(const QRect& window) {
    const auto screens = QGuiApplication::screens();
    return std::any_of(screens.begin(), screens.end(), [&](const QScreen* screen) {
        return screen->availableGeometry().contains(window);
    });
}

}  // namespace

bool isDialogOpen() { return dcl::openDialogs() > 0; }

void runDialog(dcl::Dialog& dialog, QWidget* parent) {
    QWidget* above = QApplication::activeModalWidget();
    DialogWindow window(dialog, above != nullptr ? above : parent);
    auto& places = dialogSettings().places;
    // Without a place of its own a dialog stands in the middle of its parent: Qt's own rule.
    const auto place = places.find(dialog.name());
    if (place != places.end() && isOnScreen(QRect(place->second, window.size())))
        window.move(place->second);
    window.exec();
    places[dialog.name()] = window.pos();
}

}  // namespace prancheta::desktop
