// SPDX-License-Identifier: MIT
// What assistive programs are told of image and text tiles.
#include "prancheta/desktop/dialogs/accessible_tiles.h"

#include <QAccessibleWidget>

#include "prancheta/desktop/dialogs/image_tile.h"
#include "prancheta/desktop/dialogs/text_tile.h"

namespace prancheta::desktop {
namespace {

class ImageInterface : public QAccessibleWidget {
public:
    explicit ImageInterface(ImageTile& tile)
        : QAccessibleWidget(&tile, tile.isButton() ? QAccessible::Button : QAccessible::Graphic) {}

    QStringList actionNames() const override {
        QStringList names = QAccessibleWidget::actionNames();
        if (image().isButton()) names.prepend(pressAction());
        return names;
    }
    void doAction(const QString& name) override {
        if (name != pressAction()) return QAccessibleWidget::doAction(name);
        if (image().isButton() && image().isEnabled()) image().press();
    }
    QAccessible::State state() const override {
        QAccessible::State state = QAccessibleWidget::state();
        state.checked = image().isMarked();
        return state;
    }

private:
    ImageTile& image() const { return *static_cast<ImageTile*>(widget()); }
};

QAccessibleInterface* interfaceOf(const QString&, QObject* object) {
    if (auto* const image = qobject_cast<ImageTile*>(object)) return new ImageInterface(*image);
    if (auto* const text = qobject_cast<TextTile*>(object))
        return new QAccessibleWidget(text, QAccessible::StaticText);
    return nullptr;
}

}  // namespace

void announceTiles() { QAccessible::installFactory(interfaceOf); }

}  // namespace prancheta::desktop
