// SPDX-License-Identifier: MIT
// Icons from SVG resources and from slides.
#include "prancheta/desktop/shell/icons.h"

#include <QFile>
#include <QPainter>
#include <QPainterPath>
#include <QPixmap>
#include <QSvgRenderer>

#include "prancheta/slides/library.h"

namespace prancheta::desktop {
namespace {

constexpr int kSizes[] = {16, 20, 24, 32, 48};

template <class Paint>
QIcon iconOf(Paint paint) {
    QIcon icon;
    for (const int size : kSizes) {
        QPixmap pixmap(size, size);
        pixmap.fill(Qt::transparent);
        QPainter painter(&pixmap);
        painter.setRenderHint(QPainter::Antialiasing);
        paint(painter, QRectF(0, 0, size, size));
        painter.end();
        icon.addPixmap(pixmap);
    }
    return icon;
}

QRectF boundsOf(const slides::Slide& slide) {
    QPolygonF all;
    for (const slides::Element& element : slide.elements)
        for (const slides::Pixel& p : element.points) all << QPointF(p.x, p.y);
    return all.boundingRect();
}

/// The strokes that touch are one path, so that a section keeps whole corners when it is small.
QPainterPath strokesOf(const slides::Slide& slide) {
    QPainterPath path;
    for (const slides::Element& element : slide.elements) {
        QPolygonF line;
        for (const slides::Pixel& p : element.points) line << QPointF(p.x, p.y);
        if (line.size() < 2) continue;
        if (path.elementCount() > 0 && path.currentPosition() == line.first()) {
            path.lineTo(line.last());
        } else {
            path.addPolygon(line);
        }
    }
    return path;
}

}  // namespace

QIcon drawnIcon(const QString& name, const QPalette& palette) {
    QFile file(":/icones/" + name + ".svg");
    if (name.isEmpty() || !file.open(QIODevice::ReadOnly)) return {};
    QByteArray svg = file.readAll();
    svg.replace("currentColor", palette.color(QPalette::WindowText).name().toLatin1());
    QSvgRenderer renderer(svg);
    return iconOf([&](QPainter& painter, const QRectF& box) { renderer.render(&painter, box); });
}

QIcon slideIcon(const std::filesystem::path& folder, const QString& reference,
                const QPalette& palette) {
    const auto slide = slides::loadSlide((folder / reference.toStdString()).wstring());
    if (!slide) return {};
    const QRectF bounds = boundsOf(*slide);
    if (bounds.isEmpty()) return {};
    const QPainterPath path = strokesOf(*slide);
    const double aspect = slide->aspect * slide->height / std::max(slide->width, 1);
    return iconOf([&](QPainter& painter, const QRectF& box) {
        const double room = box.width() - 3.0;
        const double scale = std::min(room / (bounds.width() * aspect), room / bounds.height());
        QTransform place;
        place.translate(box.center().x(), box.center().y());
        place.scale(scale * aspect, -scale);
        place.translate(-bounds.center().x(), -bounds.center().y());
        painter.setPen(QPen(palette.color(QPalette::WindowText), box.width() < 32 ? 1.0 : 1.4));
        painter.drawPath(place.map(path));
    });
}

}  // namespace prancheta::desktop
