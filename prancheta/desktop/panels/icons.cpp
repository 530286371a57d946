// SPDX-License-Identifier: MIT
// Small pictures drawn by hand, in a square of 16 units.
#include "prancheta/desktop/panels/icons.h"

#include <QGuiApplication>
#include <QHash>
#include <QPainter>
#include <QPainterPath>

#include <cmath>

#include "prancheta/desktop/panels/text.h"
#include "prancheta/display/appearance.h"

namespace prancheta::desktop {
namespace {

const QColor kWarm(240, 180, 30);
const QColor kCold(70, 150, 230);
const QColor kMetal(205, 140, 40);
const QColor kGood(60, 160, 75);

/// The same ink, nearly gone: what is switched off.
QColor faint(QColor ink) {
    ink.setAlpha(110);
    return ink;
}

void bulb(QPainter& p, const QColor& ink, bool on) {
    p.setPen(QPen(on ? QColor(190, 130, 0) : faint(ink), 1.2));
    p.setBrush(on ? QBrush(kWarm) : QBrush(Qt::NoBrush));
    QPainterPath glass;
    glass.moveTo(6, 11);
    glass.cubicTo(6, 9, 3.5, 8.5, 3.5, 5.5);
    glass.cubicTo(3.5, 0.2, 12.5, 0.2, 12.5, 5.5);
    glass.cubicTo(12.5, 8.5, 10, 9, 10, 11);
    glass.closeSubpath();
    p.drawPath(glass);
    p.setPen(QPen(on ? ink : faint(ink), 1.2));
    p.drawLine(QPointF(6, 12.8), QPointF(10, 12.8));
    p.drawLine(QPointF(7, 14.6), QPointF(9, 14.6));
}

/// Sun or snowflake: six rays, with barbs on ice.
void weather(QPainter& p, const QColor& ink, bool frozen) {
    p.setPen(QPen(frozen ? kCold : faint(ink), frozen ? 1.3 : 1.1));
    p.translate(8, 8);
    for (int i = 0; i < 6; ++i) {
        p.drawLine(QPointF(0, frozen ? 0 : 4.6), QPointF(0, 6.8));
        if (frozen) {
            p.drawLine(QPointF(0, 4.2), QPointF(-1.9, 6.1));
            p.drawLine(QPointF(0, 4.2), QPointF(1.9, 6.1));
        }
        p.rotate(60);
    }
    if (frozen) return;
    p.setBrush(Qt::NoBrush);
    p.drawEllipse(QPointF(0, 0), 2.8, 2.8);
}

void padlock(QPainter& p, const QColor& ink, bool locked) {
    const QColor line = locked ? kMetal.darker(130) : faint(ink);
    p.setPen(QPen(line, 1.5));
    p.setBrush(Qt::NoBrush);
    QPainterPath shackle;
    const double side = locked ? 11 : 14.5;
    shackle.moveTo(side - 6, 7.5);
    shackle.lineTo(side - 6, 5);
    shackle.arcTo(QRectF(side - 6, 1.8, 6, 6), 180, -180);
    shackle.lineTo(side, locked ? 7.5 : 6);
    p.drawPath(shackle);
    p.setPen(QPen(line, 1.0));
    p.setBrush(locked ? QBrush(kMetal) : QBrush(Qt::NoBrush));
    p.drawRoundedRect(QRectF(3.5, 7.5, 9, 6.8), 1.2, 1.2);
}

void printer(QPainter& p, const QColor& ink, bool plotted) {
    p.setPen(QPen(plotted ? ink : faint(ink), 1.1));
    p.setBrush(Qt::NoBrush);
    p.drawRect(QRectF(4.5, 1.5, 7, 4.5));
    p.drawRoundedRect(QRectF(1.8, 6, 12.4, 5), 1, 1);
    p.drawRect(QRectF(4.5, 9.5, 7, 5));
    if (plotted) return;
    p.setPen(QPen(QColor(210, 60, 50), 1.6));
    p.drawLine(QPointF(2, 14), QPointF(14, 2));
}

void check(QPainter& p) {
    p.setPen(QPen(kGood, 2.2, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    p.drawPolyline(QPolygonF{QPointF(3, 8.5), QPointF(6.5, 12), QPointF(13, 4)});
}

void plus(QPainter& p) {
    p.setPen(QPen(kGood, 2.4));
    p.drawLine(QPointF(8, 2.5), QPointF(8, 13.5));
    p.drawLine(QPointF(2.5, 8), QPointF(13.5, 8));
}

void cross(QPainter& p) {
    p.setPen(QPen(QColor(205, 65, 55), 2.2));
    p.drawLine(QPointF(3.5, 3.5), QPointF(12.5, 12.5));
    p.drawLine(QPointF(12.5, 3.5), QPointF(3.5, 12.5));
}

void paint(QPainter& p, Glyph glyph, const QColor& ink) {
    switch (glyph) {
        case Glyph::On:
        case Glyph::Off:
            return bulb(p, ink, glyph == Glyph::On);
        case Glyph::Frozen:
        case Glyph::Thawed:
            return weather(p, ink, glyph == Glyph::Frozen);
        case Glyph::Locked:
        case Glyph::Unlocked:
            return padlock(p, ink, glyph == Glyph::Locked);
        case Glyph::Plotted:
        case Glyph::NotPlotted:
            return printer(p, ink, glyph == Glyph::Plotted);
        case Glyph::Current:
            return check(p);
        case Glyph::Add:
            return plus(p);
        case Glyph::Remove:
            return cross(p);
    }
}

/// Draws on a square of 16 units at the screen's density.
template <class Draw>
QIcon drawn(Draw draw) {
    const double ratio = std::ceil(qGuiApp->devicePixelRatio());
    QPixmap pixmap(static_cast<int>(kIconSize * ratio), static_cast<int>(kIconSize * ratio));
    pixmap.setDevicePixelRatio(ratio);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    draw(painter);
    painter.end();
    return QIcon(pixmap);
}

}  // namespace

QColor swatchColor(int color) {
    const Rgb rgb = color >= kTrueColors ? rgbOf(color) : paletteColor(color);
    return {rgb.red, rgb.green, rgb.blue};
}

QIcon glyphIcon(Glyph glyph, const QColor& ink) {
    static QHash<quint64, QIcon> made;
    const quint64 key = static_cast<quint64>(glyph) << 32 | ink.rgba();
    auto it = made.find(key);
    if (it == made.end()) it = made.insert(key, drawn([&](QPainter& p) { paint(p, glyph, ink); }));
    return *it;
}

QIcon swatchIcon(int color, const QColor& frame) {
    static QHash<quint64, QIcon> made;
    const quint64 key = static_cast<quint64>(color) << 32 | frame.rgba();
    auto it = made.find(key);
    if (it != made.end()) return *it;
    const auto draw = [&](QPainter& p) {
        const QRectF box(1.5, 2.5, 13, 11);
        p.setRenderHint(QPainter::Antialiasing, false);
        p.setPen(QPen(frame, 1));
        if (color >= kTrueColors || (color >= 1 && color <= 255)) p.setBrush(swatchColor(color));
        p.drawRect(box);
        if (color != 7) return;
        p.setRenderHint(QPainter::Antialiasing);
        p.setPen(Qt::NoPen);
        p.setBrush(Qt::black);
        p.drawPolygon(QPolygonF{box.bottomLeft() + QPointF(1, 0), box.bottomRight(),
                                box.topRight() + QPointF(0, 1)});
    };
    return *made.insert(key, drawn(draw));
}

}  // namespace prancheta::desktop
