// SPDX-License-Identifier: MIT
// Pictures to painter calls: what looks alike is gathered into one path.
#include "prancheta/plot/painter.h"

#include <cmath>
#include <limits>
#include <optional>

#include "prancheta/geometry/angles.h"
#include "prancheta/graphics/curves.h"
#include "prancheta/graphics/text_metrics.h"
#include "prancheta/plot/flatten.h"
#include "prancheta/plot/lettering.h"
#include "prancheta/plot/marks.h"
#include "prancheta/plot/pens.h"

namespace prancheta {
namespace {

constexpr double kDeviation = 0.1;
constexpr std::size_t kNone = std::numeric_limits<std::size_t>::max();
/// Paths longer than this are drawn in pieces: strokers keep the whole of one in memory.
constexpr int kLongPath = 20000;

/// By what is drawn: its pen, and its layer where layers are told apart.
struct Look {
    std::size_t pen = kNone;
    std::size_t layer = 0;
    bool operator==(const Look&) const = default;
};

/// Distance of underlines below and overlines above the letters, over their height.
constexpr double kUnder = 0.2;
constexpr double kOver = 1.2;

struct PlacedText {
    QTransform place;  ///< from the font's pixels to the device
    QString text;
};

}  // namespace

struct PicturePainter::Impl {
    QPainter& painter;
    AppearanceTable& appearances;
    const Settings settings;
    const double scale;
    Pens pens;
    std::optional<LetteringFont> font;  ///< made for the first text
    QRectF visible;

    /// What is gathered, all of it drawn by one pen: within one colour the order does not show.
    Look look;
    QPainterPath strokes;
    QPainterPath triangles;
    std::vector<QPolygonF> polygons;
    std::vector<PlacedText> texts;
    std::vector<Look> looks;  ///< of the picture's traits

    Impl(QPainter& p, AppearanceTable& table, const Settings& s)
        : painter(p),
          appearances(table),
          settings(s),
          scale(std::sqrt(std::abs(s.toDevice.determinant()))),
          pens(settings, scale) {
        triangles.setFillRule(Qt::WindingFill);
    }

    QPointF exact(const AcGePoint3d& p) const { return settings.toDevice.map(QPointF(p.x, p.y)); }
    QPointF map(const AcGePoint3d& p) const {
        const QPointF at = exact(p);
        return settings.vector ? QPointF(std::round(at.x()), std::round(at.y())) : at;
    }
    QPointF mapVector(const AcGeVector3d& v) const {
        const QTransform& t = settings.toDevice;
        return {t.m11() * v.x + t.m21() * v.y, t.m12() * v.x + t.m22() * v.y};
    }

    void addArc(const AcGePoint3d& center, double radius, const AcGeVector3d& normal,
                const AcGeVector3d& start, double sweep) {
        const DeviceArc arc{exact(center), mapVector(start * radius),
                            mapVector(normal.crossProduct(start) * radius), sweep};
        if (settings.vector)
            appendCubics(strokes, arc, kDeviation);
        else
            appendChords(strokes, arc, kDeviation, visible);
    }

    void addPolyline(std::span<const AcGePoint3d> points) {
        const QPointF first = map(points[0]);
        if (points.size() == 1) {
            const QPointF half(settings.leastLineWidth / 2.0, 0.0);
            strokes.moveTo(first - half);
            strokes.lineTo(first + half);
            return;
        }
        strokes.moveTo(first);
        for (const AcGePoint3d& p : points.subspan(1)) strokes.lineTo(map(p));
    }

    /// What is seen of a line that has no end; dashes begin where they would from its own start, so
    /// that parts painted one by one fit together.
    void addEndless(const PrimitiveView& p) {
        const QPointF a = exact(p.points()[0]);
        const QPointF along = exact(p.points()[1]) - a;
        double from = 0.0;
        double to = 1.0;
        const auto clip = [&](double start, double step, double low, double high) {
            if (step == 0.0) {
                if (start < low || start > high) to = -1.0;
                return;
            }
            const double t = (low - start) / step;
            const double u = (high - start) / step;
            from = std::max(from, std::min(t, u));
            to = std::min(to, std::max(t, u));
        };
        clip(a.x(), along.x(), visible.left(), visible.right());
        clip(a.y(), along.y(), visible.top(), visible.bottom());
        if (!(from < to)) return;
        const double length = std::hypot(along.x(), along.y());
        const double period = appearances.of(p.traits()).dashPeriod * scale / length;
        if (period > 0.0) from = std::floor(from / period) * period;
        strokes.moveTo(a + along * from);
        strokes.lineTo(a + along * to);
    }

    void addPline(const PrimitiveView& p) {
        const AcGeVector3d normal = p.normal();
        strokes.moveTo(map(p.points()[0]));
        forEachSegment(
            p.points(), p.bulges(), p.closed(), normal,
            [&](const AcGePoint3d&, const AcGePoint3d& b) { strokes.lineTo(map(b)); },
            [&](const BulgeArc& arc, const AcGePoint3d&, const AcGePoint3d&) {
                addArc(arc.center, arc.radius, normal, arc.start, arc.sweep);
            });
        if (p.closed()) strokes.closeSubpath();
    }

    /// Triangles, which arrow heads are, go into one path: all turned the same way, overlapping
    /// ones do not punch holes.
    void addPolygon(std::span<const AcGePoint3d> points) {
        QPolygonF polygon;
        polygon.reserve(static_cast<qsizetype>(points.size()));
        for (const AcGePoint3d& p : points) polygon.append(map(p));
        if (polygon.size() != 3) {
            polygons.push_back(std::move(polygon));
            return;
        }
        const QPointF u = polygon[1] - polygon[0];
        const QPointF v = polygon[2] - polygon[0];
        if (u.x() * v.y() - u.y() * v.x() < 0.0) std::swap(polygon[1], polygon[2]);
        triangles.addPolygon(polygon);
        triangles.closeSubpath();
    }

    void addText(const PrimitiveView& p) {
        const double width = textWidth(p.text(), p.height(), p.widthFactor());
        const AcGeVector3d up = p.normal().crossProduct(p.direction());
        const QPointF origin = exact(p.position());
        const QPointF along = mapVector(p.direction() * width);
        const QPointF rise = mapVector((up + p.direction() * std::tan(p.oblique())) * p.height());
        const QPolygonF box({origin, origin + along, origin + along + rise, origin + rise});
        const double below = p.height() * scale * kUnder;
        if (!box.boundingRect().adjusted(-below, -below, below, below).intersects(visible)) return;
        if (p.height() * scale < settings.leastTextHeight) {
            strokes.moveTo(origin + rise / 2.0);
            strokes.lineTo(origin + along + rise / 2.0);
            return;
        }
        if (!font) font.emplace();
        const Lettering lettering = font->lettering(p.text());
        if (!(lettering.width > 0.0)) return;
        const QPointF x = along / lettering.width;
        const QPointF y = -rise / font->capHeight();
        if (std::abs(x.x() * y.y() - x.y() * y.x()) < 1e-12) return;
        texts.push_back(
            {QTransform(x.x(), x.y(), y.x(), y.y(), origin.x(), origin.y()), lettering.text});
        for (const Lettering::Stroke& stroke : lettering.strokes) {
            const QPointF offset = origin + rise * (stroke.above ? kOver : -kUnder);
            strokes.moveTo(offset + x * stroke.from);
            strokes.lineTo(offset + x * stroke.to);
        }
    }

    void addPrimitive(const PrimitiveView& p) {
        switch (p.kind()) {
            case PrimitiveKind::Polyline:
                if (p.traits().marker == kEndlessMarker && p.points().size() == 2)
                    return addEndless(p);
                return addPolyline(p.points());
            case PrimitiveKind::Polygon:
                return addPolygon(p.points());
            case PrimitiveKind::Circle: {
                const AcGeVector3d start = arbitraryXAxis(p.normal());
                strokes.moveTo(map(p.center() + start * p.radius()));
                addArc(p.center(), p.radius(), p.normal(), start, kTwoPi);
                strokes.closeSubpath();
                return;
            }
            case PrimitiveKind::Arc:
                strokes.moveTo(map(p.center() + p.start() * p.radius()));
                return addArc(p.center(), p.radius(), p.normal(), p.start(), p.sweep());
            case PrimitiveKind::Text:
                return addText(p);
            case PrimitiveKind::Pline:
                return addPline(p);
        }
    }

    /// The visible part of the device in the painter's present coordinates.
    void findVisible() {
        const QPaintDevice* device = painter.device();
        const QRectF all(0.0, 0.0, device->width(), device->height());
        visible = painter.combinedTransform().inverted().mapRect(all).adjusted(-2, -2, 2, 2);
    }

    void add(const Picture& picture) {
        if (look.pen == kNone) findVisible();
        looks.clear();
        for (const PictureTraits& traits : picture.allTraits()) looks.push_back(lookOf(traits));
        for (const PrimitiveView primitive : picture) {
            const Look wanted = looks[primitive.traitsIndex()];
            if (wanted != look || strokes.elementCount() > kLongPath) draw();
            look = wanted;
            addPrimitive(primitive);
        }
    }

    Look lookOf(const PictureTraits& traits) {
        const Appearance& appearance = appearances.of(traits);
        return {traits.marker == kCoverMarker ? pens.ofGround() : pens.of(appearance),
                settings.layers != nullptr ? settings.layers->numberOf(appearance.layer) : 0};
    }

    void draw() {
        if (look.pen == kNone) return;
        if (settings.layers != nullptr) settings.layers->begin(painter, look.layer);
        drawWith(pens.at(look.pen));
        look = {};
    }

    /// Fills first: then strokes and texts share the pen.
    void drawWith(const QPen& pen) {
        if (!triangles.isEmpty() || !polygons.empty()) {
            use(QPen(Qt::NoPen));
            painter.setBrush(pen.color());
            if (!triangles.isEmpty()) painter.drawPath(triangles);
            for (const QPolygonF& polygon : polygons) painter.drawPolygon(polygon, Qt::OddEvenFill);
            triangles.clear();
            polygons.clear();
        }
        if (strokes.isEmpty() && texts.empty()) return;
        use(pen);
        if (painter.brush().style() != Qt::NoBrush) painter.setBrush(Qt::NoBrush);
        if (!strokes.isEmpty()) painter.drawPath(strokes);
        strokes.clear();
        drawTexts();
    }

    void drawTexts() {
        if (texts.empty()) return;
        if (painter.font() != font->font()) painter.setFont(font->font());
        const QTransform before = painter.worldTransform();
        for (const PlacedText& text : texts) {
            painter.setWorldTransform(text.place * before);
            painter.drawText(QPointF(0.0, 0.0), text.text);
        }
        painter.setWorldTransform(before);
        texts.clear();
    }

    /// Setting a pen costs output even when it is the one that is set.
    void use(const QPen& pen) {
        if (painter.pen() != pen) painter.setPen(pen);
    }
};

PicturePainter::PicturePainter(QPainter& painter, AppearanceTable& appearances,
                               const Settings& settings)
    : m_impl(std::make_unique<Impl>(painter, appearances, settings)) {}

PicturePainter::~PicturePainter() = default;

void PicturePainter::paint(const Picture& picture) {
    add(picture);
    flush();
}

void PicturePainter::add(const Picture& picture) { m_impl->add(picture); }

void PicturePainter::flush() {
    m_impl->draw();
    if (m_impl->settings.layers != nullptr) m_impl->settings.layers->end(m_impl->painter);
}

void PicturePainter::paintPlain(const Picture& picture, const QPen& pen) {
    flush();
    m_impl->findVisible();
    for (const PrimitiveView primitive : picture)
        if (primitive.traits().marker != kCoverMarker) m_impl->addPrimitive(primitive);
    m_impl->drawWith(pen);
}

}  // namespace prancheta
