// SPDX-License-Identifier: MIT
// Popup in which a colour of the palette is clicked: the seven standard ones large, then the hues
// in columns from light to dark, then the greys.
#include "prancheta/desktop/panels/color_popup.h"

#include <QGuiApplication>
#include <QMouseEvent>
#include <QPainter>
#include <QScreen>

#include <algorithm>

#include "prancheta/desktop/panels/icons.h"
#include "prancheta/desktop/panels/text.h"

namespace prancheta::desktop {
namespace {

constexpr int kMargin = 8;
constexpr int kLarge = 20;
constexpr int kSmall = 14;
constexpr int kHues = 24;
constexpr int kShades = 10;
constexpr int kGap = 6;
constexpr int kCaption = 18;

constexpr int kHuesTop = kMargin + kLarge + kGap;
constexpr int kGreysTop = kHuesTop + kShades * kSmall + kGap;

}  // namespace

ColorPopup::ColorPopup(int current, Logical logical, QWidget* parent)
    : QWidget(parent, Qt::Popup), m_current(current), m_logical(logical == Logical::Yes) {
    setAttribute(Qt::WA_DeleteOnClose);
    setMouseTracking(true);
    setFixedSize(2 * kMargin + kHues * kSmall, kGreysTop + kLarge + kGap + kCaption + kMargin / 2);
}

void ColorPopup::showAt(const QPoint& where) {
    const QScreen* const under = QGuiApplication::screenAt(where);
    const QRect room = (under != nullptr ? under : screen())->availableGeometry();
    const auto within = [](int at, int first, int last) {
        return std::max(first, std::min(at, last));
    };
    move(within(where.x(), room.left(), room.right() + 1 - width()),
         within(where.y(), room.top(), room.bottom() + 1 - height()));
    show();
}

/// Place of a colour: 1-9 in the first row, 10-249 by hue and shade, 250-255 below.
QRect ColorPopup::cell(int color) const {
    constexpr int kLogicalWidth = 76;
    if (color == 256 || color == 0) {
        const int right = width() - kMargin - (color == 0 ? 0 : kLogicalWidth + 4);
        return m_logical ? QRect(right - kLogicalWidth, kGreysTop, kLogicalWidth, kLarge) : QRect();
    }
    if (color < 10) return {kMargin + (color - 1) * (kLarge + 4), kMargin, kLarge, kLarge};
    if (color >= 250) return {kMargin + (color - 250) * (kLarge + 4), kGreysTop, kLarge, kLarge};
    // Even numbers are the pure shades from light to dark, odd ones the same half mixed with white.
    const int shade = color % 10;
    const int row = shade % 2 == 0 ? 4 - shade / 2 : 5 + shade / 2;
    return {kMargin + (color / 10 - 1) * kSmall, kHuesTop + row * kSmall, kSmall, kSmall};
}

int ColorPopup::colorAt(const QPoint& where) const {
    for (int color = 0; color <= 256; ++color)
        if (cell(color).contains(where)) return color;
    return -1;
}

QString ColorPopup::caption() const {
    const int color = m_hovered >= 0 ? m_hovered : m_current;
    if (color < 0) return {};
    const QString name = colorText(color);
    const QString number = QString::number(color);
    return color == 0 || color == 256 || name == number
               ? QStringLiteral("Cor: ") + name
               : QStringLiteral("Cor: %1 (%2)").arg(number, name);
}

void ColorPopup::paintEvent(QPaintEvent*) {
    QPainter p(this);
    p.fillRect(rect(), palette().window());
    p.setPen(palette().color(QPalette::Mid));
    p.drawRect(rect().adjusted(0, 0, -1, -1));
    const QColor ink = palette().color(QPalette::WindowText);
    for (int color = 1; color <= 255; ++color) {
        const QRect box = cell(color);
        p.fillRect(box, swatchColor(color));
        if (box.width() != kLarge) continue;
        p.setPen(palette().color(QPalette::Mid));
        p.drawRect(box.adjusted(0, 0, -1, -1));
    }
    for (const int color : {256, 0}) {
        if (!m_logical) break;
        p.setPen(palette().color(QPalette::Mid));
        p.drawRect(cell(color).adjusted(0, 0, -1, -1));
        p.setPen(ink);
        p.drawText(cell(color), Qt::AlignCenter, colorText(color));
    }
    const auto mark = [&](int color, const QColor& outer) {
        if (color < 0 || cell(color).isEmpty()) return;
        const QRect box = cell(color);
        p.setPen(outer);
        p.drawRect(box.adjusted(0, 0, -1, -1));
        p.setPen(outer.lightness() > 128 ? Qt::black : Qt::white);
        p.drawRect(box.adjusted(1, 1, -2, -2));
    };
    mark(m_current, palette().color(QPalette::Highlight));
    mark(m_hovered, ink);
    p.setPen(ink);
    p.drawText(QRect(kMargin, kGreysTop + kLarge + kGap, width() - 2 * kMargin, kCaption),
               Qt::AlignLeft | Qt::AlignVCenter, caption());
}

void ColorPopup::mouseMoveEvent(QMouseEvent* event) {
    const int color = colorAt(event->position().toPoint());
    if (color == m_hovered) return;
    m_hovered = color;
    update();
}

void ColorPopup::leaveEvent(QEvent*) {
    m_hovered = -1;
    update();
}

void ColorPopup::mouseReleaseEvent(QMouseEvent* event) {
    const int color = colorAt(event->position().toPoint());
    if (color < 0) {
        // The release of the click that opened the popup lands outside it, too.
        if (!rect().contains(event->position().toPoint())) event->ignore();
        return;
    }
    emit chosen(color);
    close();
}

}  // namespace prancheta::desktop
