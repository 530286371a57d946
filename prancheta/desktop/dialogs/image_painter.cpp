// SPDX-License-Identifier: MIT
// Painting in device pixels: strokes are as wide as a whole number of them.
//
// Horizontal and vertical strokes are moved to the raster, so that a line one pixel wide is one row
// of pixels and not two grey ones; slanted ones stay where they are, or curves would be jagged.
#include "prancheta/desktop/dialogs/image_painter.h"

#include <algorithm>
#include <cmath>

#include "adsdlg.h"
#include "prancheta/display/appearance.h"
#include "prancheta/slides/library.h"

namespace prancheta::desktop {
namespace {

bool isDark(const QColor& color) { return qGray(color.rgb()) < 128; }

class DevicePainter {
public:
    DevicePainter(QPainter& painter, const QSize& size, const QColor& ground,
                  const ImageColors& colors)
        : m_painter(painter),
          m_size(size),
          m_scale(painter.device()->devicePixelRatioF()),
          m_width(std::max(1.0, std::round(m_scale))),
          m_ground(ground),
          m_colors(colors) {
        m_painter.scale(1 / m_scale, 1 / m_scale);
        m_painter.setRenderHint(QPainter::Antialiasing);
    }

    void fill(const dcl::Paint& paint);
    void vector(const dcl::Paint& paint);
    void slide(const dcl::Paint& paint);

private:
    void stroke(QPointF from, QPointF to, const QColor& color);
    /// Middle of the nearest row of pixels.
    double onRaster(double at) const {
        const bool odd = std::fmod(m_width, 2.0) == 1.0;
        return odd ? std::floor(at) + 0.5 : std::round(at);
    }

    QPainter& m_painter;
    QSize m_size;
    double m_scale;
    double m_width;
    QColor m_ground;  ///< the last fill: what strokes must stand out from
    const ImageColors& m_colors;
};

void DevicePainter::fill(const dcl::Paint& paint) {
    m_ground = m_colors.fill(paint.color);
    // Programs pass the largest coordinates as sizes: the last column and row are meant as well.
    const auto reach = [](int start, int length, int whole) {
        return start + length >= whole - 1 ? whole - start : length;
    };
    const QRectF area(paint.x1, paint.y1, reach(paint.x1, paint.x2, m_size.width()),
                      reach(paint.y1, paint.y2, m_size.height()));
    const QRectF device(area.x() * m_scale, area.y() * m_scale, area.width() * m_scale,
                        area.height() * m_scale);
    m_painter.fillRect(device.toAlignedRect(), m_ground);
}

void DevicePainter::stroke(QPointF from, QPointF to, const QColor& color) {
    constexpr double kStraight = 1e-6;
    const bool vertical = std::abs(from.x() - to.x()) < kStraight;
    const bool horizontal = std::abs(from.y() - to.y()) < kStraight;
    if (vertical) from.setX(onRaster(from.x()));
    if (vertical) to.setX(from.x());
    if (horizontal) from.setY(onRaster(from.y()));
    if (horizontal) to.setY(from.y());
    const Qt::PenCapStyle cap = vertical || horizontal ? Qt::SquareCap : Qt::RoundCap;
    m_painter.setPen(QPen(color, m_width, Qt::SolidLine, cap));
    if (vertical && horizontal)
        m_painter.drawPoint(from);
    else
        m_painter.drawLine(from, to);
}

void DevicePainter::vector(const dcl::Paint& paint) {
    const auto at = [&](int x, int y) { return QPointF((x + 0.5) * m_scale, (y + 0.5) * m_scale); };
    stroke(at(paint.x1, paint.y1), at(paint.x2, paint.y2), m_colors.stroke(paint.color, m_ground));
}

/// Fits the slide into the rectangle, centred, in its physical proportion.
void DevicePainter::slide(const dcl::Paint& paint) {
    constexpr double kGreatestAspect = 10.0;
    const auto slide = slides::loadSlide(paint.slide);
    if (slide == nullptr || slide->width <= 0 || slide->height <= 0) return;
    const double width = (paint.x2 + 1) * m_scale;
    const double height = (paint.y2 + 1) * m_scale;
    if (width <= 0 || height <= 0) return;
    const bool sane = slide->aspect > 0 && slide->aspect <= kGreatestAspect;
    const double aspect = sane ? slide->aspect : static_cast<double>(slide->width) / slide->height;
    const double drawnWidth = std::min(width, height * aspect);
    const double drawnHeight = drawnWidth / aspect;
    const double left = paint.x1 * m_scale + (width - drawnWidth) / 2;
    const double top = paint.y1 * m_scale + (height - drawnHeight) / 2;
    const auto at = [&](const slides::Pixel& pixel) {
        return QPointF(left + (pixel.x + 0.5) * drawnWidth / slide->width,
                       top + drawnHeight - (pixel.y + 0.5) * drawnHeight / slide->height);
    };
    for (const slides::Element& element : slide->elements) {
        const QColor color = m_colors.stroke(element.color, m_ground);
        if (element.points.size() == 2) {
            stroke(at(element.points[0]), at(element.points[1]), color);
            continue;
        }
        QPolygonF outline;
        for (const slides::Pixel& pixel : element.points) outline << at(pixel);
        m_painter.setPen(Qt::NoPen);
        m_painter.setBrush(color);
        m_painter.drawPolygon(outline);
    }
}

}  // namespace

QColor ImageColors::fill(int index) const {
    switch (index) {
        case GRAPHICS_BACKGROUND:
            return m_ground;
        case DIALOG_FOREGROUND:
            return m_palette.color(QPalette::WindowText);
        case DIALOG_LINE:
            return m_palette.color(QPalette::Mid);
        default:
            break;
    }
    if (index == 0) return Qt::black;
    if (index < 0 || index > 255) return m_palette.color(QPalette::Window);
    const Rgb rgb = paletteColor(index);
    return QColor(rgb.red, rgb.green, rgb.blue);
}

QColor ImageColors::stroke(int index, const QColor& ground) const {
    if (index == 0 || index == 7) return isDark(ground) ? Qt::white : Qt::black;
    return fill(index);
}

void paintImage(QPainter& painter, const std::vector<dcl::Paint>& paints, const QSize& size,
                const QColor& ground, const ImageColors& colors) {
    painter.save();
    painter.setClipRect(QRect(QPoint(0, 0), size));
    painter.fillRect(QRect(QPoint(0, 0), size), ground);
    DevicePainter device(painter, size, ground, colors);
    for (const dcl::Paint& paint : paints) {
        switch (paint.kind) {
            case dcl::Paint::Kind::Fill:
                device.fill(paint);
                break;
            case dcl::Paint::Kind::Vector:
                device.vector(paint);
                break;
            case dcl::Paint::Kind::Slide:
                device.slide(paint);
                break;
        }
    }
    painter.restore();
}

}  // namespace prancheta::desktop
