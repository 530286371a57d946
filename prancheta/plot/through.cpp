// SPDX-License-Identifier: MIT
// The model through a viewport.
#include "prancheta/plot/through.h"

#include <QPaintEngine>
#include <QPainterPath>
#include <algorithm>

#include "prancheta/database/database_core.h"
#include "prancheta/display/visible_part.h"
#include "prancheta/entities/viewports.h"
#include "prancheta/plot/marks.h"

namespace prancheta {
namespace {

QTransform planOf(const AcGeMatrix3d& m) {
    return {m.entry[0][0], m.entry[1][0], m.entry[0][1],
            m.entry[1][1], m.entry[0][3], m.entry[1][3]};
}

Box2d boxOf(const QRectF& rect) {
    Box2d box;
    box.add(rect.left(), rect.top());
    box.add(rect.right(), rect.bottom());
    return box;
}

QRectF rectOf(const Box2d& box) { return {box.left, box.bottom, box.width(), box.height()}; }

QPolygonF polygonOf(const std::vector<Vec2>& corners) {
    QPolygonF polygon;
    for (const Vec2& corner : corners) polygon << QPointF(corner.x, corner.y);
    return polygon;
}

/// The toolkit's writer of SVG does not clip: the frame is marked for finishSvg().
class Frame {
public:
    Frame(QPainter& painter, const QRectF& frame, const QPolygonF& outline) : m_painter(painter) {
        painter.save();
        const QPaintEngine* const engine = painter.paintEngine();
        m_marked = engine != nullptr && engine->type() == QPaintEngine::SVG;
        if (!m_marked) {
            painter.setClipRect(frame, Qt::IntersectClip);
            if (outline.isEmpty()) return;
            QPainterPath inside;
            inside.addPolygon(outline);
            painter.setClipPath(inside, Qt::IntersectClip);
            return;
        }
        const QRect whole = frame.toRect();
        drawMark(painter, Mark::FrameBegin, whole.topLeft(), QPointF(whole.width(), whole.height()),
                 outline);
    }
    ~Frame() {
        if (m_marked) drawMark(m_painter, Mark::FrameEnd);
        m_painter.restore();
    }
    Frame(const Frame&) = delete;
    Frame& operator=(const Frame&) = delete;

private:
    QPainter& m_painter;
    bool m_marked = false;
};

/// Marks of the traits that are not to be seen; empty when all are.
std::vector<bool> hiddenTraits(const Picture& picture,
                               const std::function<bool(AcDbObjectId)>& hides) {
    const std::vector<PictureTraits>& traits = picture.allTraits();
    std::vector<bool> hidden;
    for (std::size_t i = 0; i < traits.size(); ++i) {
        if (!hides(traits[i].layer)) continue;
        hidden.resize(traits.size());
        hidden[i] = true;
    }
    return hidden;
}

}  // namespace

double dashScaleOnSheet(const AcDbDatabase& database) {
    const double scale = database.dimscale();
    const bool alike = database.core().variables().number(L"PSLTSCALE") != 0;
    return alike && scale > 0.0 ? 1.0 / scale : 1.0;
}

void paintThrough(QPainter& painter, Editor& editor, const AcDbViewport& viewport,
                  const ThroughViewport& how) {
    if (!viewport.isOn()) return;
    const AcGeMatrix3d toSheet = viewport.modelToSheet();
    const QRectF seen = rectOf(frameOf(viewport)) & rectOf(how.area);
    if (seen.isEmpty()) return;
    PicturePainter::Settings settings = how.sheet;
    settings.toDevice = planOf(toSheet) * how.sheet.toDevice;
    const Frame frame(painter, how.sheet.toDevice.mapRect(rectOf(frameOf(viewport))),
                      how.sheet.toDevice.map(polygonOf(clipOutline(viewport))));
    const bool alike = editor.database().core().variables().number(L"PSLTSCALE") != 0;
    AppearanceTable appearances(
        editor.database(),
        alike ? dashScaleOnSheet(editor.database()) / viewport.customScale() : 1.0);
    PicturePainter pictures(painter, appearances, settings);
    const auto hides = [&](AcDbObjectId layer) {
        return viewport.isLayerFrozenInViewport(layer) || (how.hides && how.hides(layer));
    };
    DisplayList& model = editor.displayThrough(viewport);
    for (const DisplayList::Item& item :
         model.find(boxOf(planOf(toSheet).inverted().mapRect(seen)))) {
        if (hides(item.layer)) continue;
        const Picture& picture = model.picture(item.id);
        const std::vector<bool> hidden = hiddenTraits(picture, hides);
        pictures.add(hidden.empty() ? picture : visiblePart(picture, hidden));
        if (how.after) how.after(pictures, item, picture);
    }
    pictures.flush();
}

}  // namespace prancheta
