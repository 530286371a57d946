// SPDX-License-Identifier: MIT
// Palettes. What stands for reading has at least 7:1 in the high contrast, 4.5:1 in the others.
#include "prancheta/desktop/shell/theme.h"

#include <QApplication>
#include <QStyle>

namespace prancheta::desktop {
namespace {

struct Colors {
    QRgb window, base, button, text, disabled, highlight, highlighted, link, line;
    QRgb pressed = line;  ///< under the words of a button that is on
};

constexpr Colors kLight{0xffefefef, 0xffffffff, 0xffefefef, 0xff101010, 0xff6e6e6e,
                        0xff1f6fb2, 0xffffffff, 0xff0b57a4, 0xff8a8a8a};
constexpr Colors kDark{0xff2b2b2b, 0xff1e1e1e, 0xff3a3a3a, 0xfff0f0f0, 0xff9a9a9a,
                       0xff2a6fb0, 0xffffffff, 0xff7db8f0, 0xff6a6a6a};
constexpr Colors kContrast{0xff000000, 0xff000000, 0xff303030, 0xffffffff, 0xffb0b0b0,
                           0xffffff00, 0xff000000, 0xff00ffff, 0xffffffff, 0xff505050};

QPalette paletteFrom(const Colors& c) {
    QPalette palette;
    const auto set = [&](QPalette::ColorRole role, QRgb color) { palette.setColor(role, color); };
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText,
                            QPalette::ToolTipText, QPalette::BrightText})
        set(role, c.text);
    set(QPalette::Window, c.window);
    for (const auto role : {QPalette::Base, QPalette::AlternateBase, QPalette::ToolTipBase})
        set(role, c.base);
    set(QPalette::Button, c.button);
    set(QPalette::Highlight, c.highlight);
    set(QPalette::HighlightedText, c.highlighted);
    set(QPalette::Link, c.link);
    set(QPalette::LinkVisited, c.link);
    set(QPalette::Light, c.pressed);
    for (const auto role : {QPalette::Midlight, QPalette::Mid, QPalette::Dark}) set(role, c.line);
    set(QPalette::Shadow, c.text);
    set(QPalette::PlaceholderText, c.disabled);
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        palette.setColor(QPalette::Disabled, role, QColor(c.disabled));
    return palette;
}

}  // namespace

QPalette paletteOf(Theme theme) {
    switch (theme) {
        case Theme::Light:
            return paletteFrom(kLight);
        case Theme::Dark:
            return paletteFrom(kDark);
        case Theme::Contrast:
            return paletteFrom(kContrast);
        case Theme::System:
            break;
    }
    return QPalette();  // nothing set: the desktop's
}

void applyTheme(Theme theme) {
    // Of the program's start, to come back to.
    static const QString theUsualStyle = QApplication::style()->objectName();
    // A desktop's own style does not take colours that are not its own, and Fusion draws its frames
    // in a darker shade of the ground, which a black one does not have.
    const QString style = theme == Theme::System     ? theUsualStyle
                          : theme == Theme::Contrast ? QStringLiteral("windows")
                                                     : QStringLiteral("fusion");
    if (QApplication::style()->objectName() != style) QApplication::setStyle(style);
    QApplication::setPalette(paletteOf(theme));
}

}  // namespace prancheta::desktop
