// SPDX-License-Identifier: MIT
// Painting and pressing of image tiles.
#include "prancheta/desktop/dialogs/image_tile.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>

#include "prancheta/dcl/attributes.h"
#include "prancheta/desktop/dialogs/image_painter.h"
#include "prancheta/desktop/dialogs/settings.h"

namespace prancheta::desktop {
namespace {

constexpr int kUsualColor = 7;
constexpr double kHighlightFrame = 3.0;

void drawFrame(QPainter& painter, const QRect& around, double width, const QColor& color,
               Qt::PenStyle style = Qt::SolidLine) {
    const double half = width / 2;
    QPen pen(color, width, style);
    pen.setJoinStyle(Qt::MiterJoin);
    painter.setPen(pen);
    painter.drawRect(QRectF(around).adjusted(half, half, -half, -half));
}

}  // namespace

ImageTile::ImageTile(TileHost& host, dcl::Tile& tile)
    : QWidget(&host.face()),
      m_host(host),
      m_tile(tile),
      m_isButton(tile.kind == dcl::TileKind::ImageButton) {
    setAttribute(Qt::WA_OpaquePaintEvent);
    if (!m_isButton) return;
    setFocusPolicy(Qt::StrongFocus);
    setCursor(Qt::PointingHandCursor);
}

void ImageTile::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const ImageColors colors(palette(), dialogSettings().ground);
    const QColor ground =
        colors.fill(dcl::colorIndex(m_tile.attribute("color")).value_or(kUsualColor));
    paintImage(painter, m_tile.paints, size(), ground, colors);
    drawFrames(painter);
}

void ImageTile::drawFrames(QPainter& painter) {
    constexpr int kVeil = 160;
    const QPalette& colors = palette();
    if (!isEnabled()) {
        QColor veil = colors.color(QPalette::Window);
        veil.setAlpha(kVeil);
        painter.fillRect(rect(), veil);
    }
    drawFrame(painter, rect(), 1.0, colors.color(m_down ? QPalette::Shadow : QPalette::Mid));
    if (m_tile.highlighted)
        drawFrame(painter, rect(), kHighlightFrame, colors.color(QPalette::Highlight));
    if (m_isButton && hasFocus())
        drawFrame(painter, rect().adjusted(4, 4, -4, -4), 1.0, colors.color(QPalette::Highlight),
                  Qt::DotLine);
}

void ImageTile::mousePressEvent(QMouseEvent* event) {
    if (!m_isButton || event->button() != Qt::LeftButton) return event->ignore();
    m_down = true;
    update();
}

void ImageTile::mouseReleaseEvent(QMouseEvent* event) {
    if (!m_down || event->button() != Qt::LeftButton) return event->ignore();
    m_down = false;
    update();
    const QPoint at = event->position().toPoint();
    if (!rect().contains(at)) return;
    m_host.act(m_tile, [&] { return m_host.dialog().press(m_tile.key, at.x(), at.y()); });
}

void ImageTile::mouseDoubleClickEvent(QMouseEvent* event) {
    if (!m_isButton || event->button() != Qt::LeftButton) return event->ignore();
    m_host.act(m_tile, [&] { return m_host.dialog().secondClick(m_tile.key); });
}

void ImageTile::keyPressEvent(QKeyEvent* event) {
    if (!m_isButton || event->key() != Qt::Key_Space) return QWidget::keyPressEvent(event);
    press();
}

void ImageTile::press() {
    m_host.act(m_tile, [&] { return m_host.dialog().press(m_tile.key); });
}

}  // namespace prancheta::desktop
