// SPDX-License-Identifier: MIT
// What is drawn over the drawing.
#include "prancheta/desktop/canvas/marks.h"

#include <QGuiApplication>

#include <QPainterPath>

#include <cmath>

namespace prancheta::desktop {
namespace {

const QColor kWindowColor(64, 128, 255);
const QColor kCrossingColor(60, 180, 75);
const QColor kGripColors[] = {QColor(45, 110, 245), QColor(245, 150, 180), QColor(230, 40, 40)};

QRectF around(const QPointF& p, double half) {
    return {p.x() - half, p.y() - half, 2.0 * half, 2.0 * half};
}

using Draw = void (*)(QPainterPath&, const QPointF&, double);

void square(QPainterPath& path, const QPointF& p, double r) { path.addRect(around(p, r)); }
void circle(QPainterPath& path, const QPointF& p, double r) { path.addEllipse(around(p, r)); }
void triangle(QPainterPath& path, const QPointF& p, double r) {
    path.addPolygon(QPolygonF{QPointF(p.x() - r, p.y() + r * 0.8),
                              QPointF(p.x() + r, p.y() + r * 0.8), QPointF(p.x(), p.y() - r),
                              QPointF(p.x() - r, p.y() + r * 0.8)});
}
void diamond(QPainterPath& path, const QPointF& p, double r) {
    const double d = r * 1.2;
    path.addPolygon(QPolygonF{QPointF(p.x() - d, p.y()), QPointF(p.x(), p.y() - d),
                              QPointF(p.x() + d, p.y()), QPointF(p.x(), p.y() + d),
                              QPointF(p.x() - d, p.y())});
}
void cross(QPainterPath& path, const QPointF& p, double r) {
    path.moveTo(p.x() - r, p.y() - r);
    path.lineTo(p.x() + r, p.y() + r);
    path.moveTo(p.x() - r, p.y() + r);
    path.lineTo(p.x() + r, p.y() - r);
}
void crossedCircle(QPainterPath& path, const QPointF& p, double r) {
    circle(path, p, r);
    cross(path, p, r * 0.7);
}
void twoSquares(QPainterPath& path, const QPointF& p, double r) {
    path.addRect(QRectF(p.x() - r, p.y() - r, r * 1.3, r * 1.3));
    path.addRect(QRectF(p.x() - r * 0.3, p.y() - r * 0.3, r * 1.3, r * 1.3));
}
void rightAngle(QPainterPath& path, const QPointF& p, double r) {
    path.moveTo(p.x() - r, p.y() - r);
    path.lineTo(p.x() - r, p.y() + r);
    path.lineTo(p.x() + r, p.y() + r);
    path.moveTo(p.x() - r, p.y());
    path.lineTo(p.x(), p.y());
    path.lineTo(p.x(), p.y() + r);
}
void circleWithLine(QPainterPath& path, const QPointF& p, double r) {
    path.addEllipse(around(p, r * 0.7));
    path.moveTo(p.x() - r, p.y() - r * 0.7);
    path.lineTo(p.x() + r, p.y() - r * 0.7);
}
void hourglass(QPainterPath& path, const QPointF& p, double r) {
    path.addPolygon(QPolygonF{QPointF(p.x() - r, p.y() - r), QPointF(p.x() + r, p.y() - r),
                              QPointF(p.x() - r, p.y() + r), QPointF(p.x() + r, p.y() + r),
                              QPointF(p.x() - r, p.y() - r)});
}

struct Marker {
    int mode;
    Draw draw;
};
constexpr Marker kMarkers[] = {
    {1, square},   {2, triangle},    {4, circle},       {8, crossedCircle},    {16, diamond},
    {32, cross},   {64, twoSquares}, {128, rightAngle}, {256, circleWithLine}, {512, hourglass},
    {2048, cross}, {4096, cross},    {8192, cross},
};

}  // namespace

void drawCursor(QPainter& painter, const Palette& palette, const QPointF& at, const QRectF& reach,
                const QPointF& x, Cursor kind, double pickBox) {
    painter.setRenderHint(QPainter::Antialiasing, false);
    painter.setPen(QPen(palette.cursor, 0));
    painter.setBrush(Qt::NoBrush);
    const double gap = kind == Cursor::Cross ? 0.0 : pickBox;
    if (kind != Cursor::Cross) painter.drawRect(around(at, pickBox));
    if (kind == Cursor::Box) return;
    painter.save();
    painter.setClipRect(reach, Qt::IntersectClip);
    const QPointF along(x.x(), -x.y());
    const double beyond = reach.width() + reach.height();
    for (const QPointF& arm :
         {along, -along, QPointF(-along.y(), along.x()), QPointF(along.y(), -along.x())})
        painter.drawLine(at + arm * gap, at + arm * beyond);
    painter.restore();
}

void drawBand(QPainter& painter, const Palette& palette, const QPointF& from, const QPointF& to) {
    QPen pen(palette.band, 0, Qt::CustomDashLine);
    pen.setDashPattern({5.0, 4.0});
    painter.setPen(pen);
    painter.drawLine(from, to);
}

void drawFrame(QPainter& painter, const Palette& palette, const QRectF& frame, Frame kind) {
    const QColor color = kind == Frame::Plain    ? palette.cursor
                         : kind == Frame::Window ? kWindowColor
                                                 : kCrossingColor;
    QColor inside = color;
    inside.setAlpha(kind == Frame::Plain ? 0 : 50);
    painter.setPen(QPen(color, 0, kind == Frame::Crossing ? Qt::DashLine : Qt::SolidLine));
    painter.setBrush(inside);
    painter.drawRect(frame);
    painter.setBrush(Qt::NoBrush);
}

void drawGrip(QPainter& painter, const QPointF& at, double half, GripState state) {
    const QRectF box = around(at, half);
    painter.fillRect(box, kGripColors[static_cast<int>(state)]);
    painter.setPen(QPen(QColor(20, 24, 30), 0));
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(box);
}

void drawSnap(QPainter& painter, const Palette& palette, const QPointF& at, int mode) {
    constexpr double kHalf = 7.0;
    const QColor color = palette.snap;
    for (const Marker& marker : kMarkers) {
        if (marker.mode != mode) continue;
        QPainterPath path;
        marker.draw(path, at, kHalf);
        painter.setRenderHint(QPainter::Antialiasing, true);
        painter.setPen(QPen(color, 2.0));
        painter.setBrush(Qt::NoBrush);
        painter.drawPath(path);
        painter.setRenderHint(QPainter::Antialiasing, false);
        return;
    }
}

void drawTag(QPainter& painter, const Palette& palette, const QPointF& cursor, const QSizeF& area,
             const QString& text, TagPlace place) {
    constexpr double kAway = 16.0;
    // Previews leave the font of their own texts in the painter.
    painter.setFont(QGuiApplication::font());
    QRectF box = QRectF(painter.fontMetrics().boundingRect(text)).adjusted(-5.0, -2.0, 5.0, 2.0);
    box.moveTopLeft(cursor +
                    QPointF(kAway, place == TagPlace::Below ? kAway : -kAway - box.height()));
    if (box.right() > area.width()) box.moveRight(cursor.x() - kAway);
    if (box.bottom() > area.height()) box.moveBottom(cursor.y() - kAway);
    if (box.top() < 0.0) box.moveTop(cursor.y() + kAway);
    painter.setPen(QPen(palette.gridMajor, 0));
    painter.setBrush(palette.tag);
    painter.drawRect(box);
    painter.setPen(palette.tagText);
    painter.drawText(box, Qt::AlignCenter, text);
    painter.setBrush(Qt::NoBrush);
}

void drawTrack(QPainter& painter, const Palette& palette, const QPointF& from, const QPointF& to,
               const QSizeF& area) {
    const QLineF line(from, to);
    if (line.length() <= 0.0) return;
    QPen pen(palette.snap, 0, Qt::CustomDashLine);
    pen.setDashPattern({1.0, 4.0});
    painter.setPen(pen);
    const double beyond = line.length() + area.width() + area.height();
    painter.drawLine(QLineF(from, line.pointAt(beyond / line.length())));
}

void drawTracked(QPainter& painter, const Palette& palette, const QPointF& at) {
    constexpr double kHalf = 4.0;
    painter.setPen(QPen(palette.snap, 1.5));
    painter.drawLine(at - QPointF(kHalf, 0), at + QPointF(kHalf, 0));
    painter.drawLine(at - QPointF(0, kHalf), at + QPointF(0, kHalf));
}

void drawValues(QPainter& painter, const Palette& palette, const QPointF& cursor,
                const QSizeF& area, const std::vector<ValueBox>& values) {
    constexpr double kAway = 16.0;
    constexpr double kGap = 4.0;
    const QColor onHighlight(qGray(palette.highlight.rgb()) < 128 ? Qt::white : Qt::black);
    painter.setFont(QGuiApplication::font());
    const QFontMetricsF metrics(painter.font());
    const double height = metrics.height() + 4.0;
    std::vector<double> widths;
    double all = -kGap;
    for (const ValueBox& value : values) {
        widths.push_back(std::max(metrics.horizontalAdvance(value.text) + 10.0, 44.0));
        all += widths.back() + kGap;
    }
    QPointF at = cursor + QPointF(kAway, -kAway - height);
    if (at.x() + all > area.width()) at.setX(cursor.x() - kAway - all);
    if (at.y() < 0.0) at.setY(cursor.y() + kAway);
    for (std::size_t i = 0; i < values.size(); ++i) {
        const QRectF box(at, QSizeF(widths[i], height));
        const bool active = values[i].active;
        painter.setPen(QPen(active ? palette.highlight : palette.gridMajor, active ? 2.0 : 0.0));
        painter.setBrush(values[i].typed ? palette.highlight : palette.tag);
        painter.drawRect(box);
        painter.setPen(values[i].typed ? onHighlight : palette.tagText);
        painter.drawText(box, Qt::AlignCenter, values[i].text);
        at.rx() += widths[i] + kGap;
    }
    painter.setBrush(Qt::NoBrush);
}

void drawAxes(QPainter& painter, const Palette& palette, const QPointF& origin, const QPointF& x,
              const QPointF& y) {
    constexpr double kLength = 42.0;
    painter.setFont(QGuiApplication::font());
    constexpr double kHead = 7.0;
    painter.setRenderHint(QPainter::Antialiasing, true);
    const auto arrow = [&](const QPointF& along, const QColor& color, const QString& name) {
        const QPointF on(along.x(), -along.y());
        const QPointF across(on.y(), -on.x());
        const QPointF tip = origin + on * kLength;
        painter.setPen(QPen(color, 1.5));
        painter.drawLine(origin, tip);
        painter.drawLine(tip, tip - on * kHead + across * (kHead / 2.5));
        painter.drawLine(tip, tip - on * kHead - across * (kHead / 2.5));
        painter.drawText(around(tip + on * 10.0, 9.0), Qt::AlignCenter, name);
    };
    arrow(x, QColor(225, 80, 70), QStringLiteral("X"));
    arrow(y, QColor(70, 185, 85), QStringLiteral("Y"));
    painter.setPen(QPen(palette.cursor, 1.0));
    painter.drawRect(around(origin, 3.0));
    painter.setRenderHint(QPainter::Antialiasing, false);
}

}  // namespace prancheta::desktop
