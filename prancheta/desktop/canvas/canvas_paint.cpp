// SPDX-License-Identifier: MIT
// The drawing area: what lies over the drawing.
#include <QPainter>

#include <cmath>

#include "acedads.h"
#include "prancheta/database/database_core.h"
#include "prancheta/desktop/canvas/canvas_impl.h"
#include "prancheta/editor/picking.h"
#include "prancheta/entities/viewports.h"
#include "prancheta/plot/painter.h"

namespace prancheta::desktop {
namespace {

QString lengthText(double value) {
    ACHAR text[512];
    if (acdbRToS(value, -1, -1, text) != RTNORM) return {};
    return QString::fromWCharArray(text);
}

QString directionText(double angle) {
    ACHAR text[512];
    if (acdbAngToS(angle, -1, -1, text) != RTNORM) return {};
    return QString::fromWCharArray(text);
}

QString lineName(const TrackLine& line) {
    switch (line.kind) {
        case TrackLine::Kind::Polar:
            return QStringLiteral("Polar");
        case TrackLine::Kind::Extension:
            return QStringLiteral("Extensão");
        case TrackLine::Kind::Parallel:
            return QStringLiteral("Paralelo");
        case TrackLine::Kind::Object:
            break;
    }
    return QString::fromWCharArray(snapName(line.mode));
}

QPointF unitOf(const AcGeVector3d& v) {
    const double length = std::hypot(v.x, v.y);
    return length > 0.0 ? QPointF(v.x / length, v.y / length) : QPointF();
}

}  // namespace

void Canvas::Impl::paintOverlays(QPainter& painter) {
    const SystemVariables& variables = editor->database().core().variables();
    if (variables.number(L"UCSICON") != 0) paintAxes(painter);
    if (const AcDbViewport* const through = viewportOf(editor->spaces().viewport())) {
        const Box2d box = frameOf(*through);
        painter.setPen(QPen(palette().highlight, 2.0));
        painter.setBrush(Qt::NoBrush);
        painter.drawRect(QRectF(tabViewport().toScreen({box.left, box.top, 0.0}),
                                tabViewport().toScreen({box.right, box.bottom, 0.0})));
    }
    if (!hover.isNull() && mouse) {
        PicturePainter::Settings settings;
        settings.toDevice = viewport.transform();
        settings.darkGround = palette().dark;
        QColor color = palette().highlight;
        color.setAlpha(210);
        PicturePainter(painter, editor->appearances(), settings)
            .paintPlain(editor->shownDisplay().picture(hover), QPen(color, 2.0));
    }
    const bool shift = (modifiers & Qt::ShiftModifier) != 0;
    if (request != nullptr && asksForPoint(*request) && mouse) {
        const QPointF to = screen(aim.point());
        if (request->base && request->kind == InputKind::Corner)
            drawFrame(painter, palette(), QRectF(screen(*request->base), to).normalized(),
                      Frame::Plain);
        else if (request->base)
            drawBand(painter, palette(), screen(*request->base), to);
        ghost.paint(painter, *editor, *request, aim.point(), shift, viewport, drawing.look);
    } else if (request != nullptr && request->kind == InputKind::Entity && mouse) {
        ghost.paint(painter, *editor, *request, viewport.toWorld(*mouse), shift, viewport,
                    drawing.look);
    }
    if (frame && mouse) {
        const QPointF first = screen(frame->first);
        drawFrame(painter, palette(), QRectF(first, *mouse).normalized(),
                  mouse->x() < first.x() ? Frame::Crossing : Frame::Window);
    }
    paintGrips(painter);
    if (!mouse || panFrom) return;
    paintTracks(painter);
    if (const SnapHit* caught = aim.caught())
        drawSnap(painter, palette(), screen(caught->point), caught->mode);
    const double pickBox = variables.number(L"PICKBOX");
    const bool boxOnly =
        request != nullptr && !atCommand() &&
        (request->kind == InputKind::Selection || request->kind == InputKind::Entity);
    const QPointF cursor = aim.onGrid() ? screen(aim.point()) : *mouse;
    QRectF reach = canvas.rect();
    if (const int percent = variables.number(L"CURSORSIZE"); percent < 100) {
        reach.setSize(reach.size() * percent / 100.0);
        reach.moveCenter(cursor);
    }
    AcGePoint3d origin;
    AcGeVector3d x, y, z;
    editor->ucs().getCoordSystem(origin, x, y, z);
    drawCursor(painter, palette(), cursor, reach, unitOf(x),
               boxOnly       ? Cursor::Box
               : atCommand() ? Cursor::CrossWithBox
                             : Cursor::Cross,
               pickBox);
    paintTags(painter);
}

void Canvas::Impl::paintGrips(QPainter& painter) const {
    if (!atCommand() && editor->selection().hotGrips().empty()) return;
    const Grip* const under = mouse && atCommand() ? gripAt(*mouse) : nullptr;
    for (const Grip& grip : grips) {
        const QPointF at = screen(grip.at);
        if (!QRectF(canvas.rect()).adjusted(-8, -8, 8, 8).contains(at)) continue;
        drawGrip(painter, at, gripReach(),
                 editor->selection().isHot(grip) ? GripState::Hot
                 : &grip == under                ? GripState::Hover
                                                 : GripState::Cold);
    }
}

void Canvas::Impl::paintTracks(QPainter& painter) const {
    for (const Tracking::Point& point : aim.tracking().points())
        drawTracked(painter, palette(), screen(point.at));
    for (const TrackLine& line : aim.lines())
        drawTrack(painter, palette(), screen(line.from), screen(aim.point()), canvas.size());
}

void Canvas::Impl::paintTags(QPainter& painter) const {
    const AcGeMatrix3d toUser = editor->ucs().inverse();
    const auto polar = [&](const AcGePoint3d& from) {
        const AcGeVector3d reach = toUser * (aim.point() - from);
        return lengthText(reach.length()) + QStringLiteral(" < ") +
               directionText(std::atan2(reach.y, reach.x)) + u'°';
    };
    QStringList below;
    if (const SnapHit* caught = aim.caught())
        below += QString::fromWCharArray(snapName(caught->mode));
    for (const TrackLine& line : aim.lines()) below += lineName(line) + ": " + polar(line.from);
    if (!below.isEmpty())
        drawTag(painter, palette(), *mouse, canvas.size(), below.join(QStringLiteral(", ")),
                TagPlace::Below);
    if (request == nullptr || !asksForPoint(*request) || paintValues(painter)) return;
    // A jig sets the last point to where its entity starts.
    if (request->dragged == nullptr) return;
    const AcGePoint3d base = request->base.value_or(editor->ucs() * editor->lastPoint());
    drawTag(painter, palette(), *mouse, canvas.size(), polar(base), TagPlace::Above);
}

bool Canvas::Impl::paintValues(QPainter& painter) const {
    std::vector<ValueBox> boxes;
    for (const DynamicField& field : dynamicFields(*editor, *request, aim.point(), typed))
        boxes.push_back({QString::fromStdWString(field.text), field.typed, field.active});
    if (!boxes.empty()) drawValues(painter, palette(), *mouse, canvas.size(), boxes);
    return !boxes.empty();
}

/// In the lower left corner, or at the origin of a user system that is in view.
void Canvas::Impl::paintAxes(QPainter& painter) const {
    AcGePoint3d origin;
    AcGeVector3d x, y, z;
    editor->ucs().getCoordSystem(origin, x, y, z);
    constexpr double kRoom = 26.0;
    QPointF place(kRoom, canvas.height() - kRoom);
    const QPointF there = screen(origin);
    const bool inView =
        QRectF(canvas.rect()).adjusted(kRoom, kRoom, -kRoom, -kRoom).contains(there);
    if (inView && editor->ucs() != AcGeMatrix3d::kIdentity) place = there;
    drawAxes(painter, palette(), place, unitOf(x), unitOf(y));
}

}  // namespace prancheta::desktop
