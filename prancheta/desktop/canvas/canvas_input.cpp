// SPDX-License-Identifier: MIT
// The drawing area: mouse and keys.
#include <QApplication>
#include <QMouseEvent>
#include <QWheelEvent>

#include <algorithm>
#include <cmath>

#include "prancheta/database/database_core.h"
#include "prancheta/desktop/canvas/canvas_impl.h"
#include "prancheta/editor/picking.h"

namespace prancheta::desktop {
namespace {

/// Change of scale of one notch of a wheel.
constexpr double kNotch = 1.2;
constexpr double kNotchAngle = 120.0;
/// So long the mouse stands where it points at something, milliseconds.
constexpr int kRest = 350;

}  // namespace

// --- The request --------------------------------------------------------------------------------

void Canvas::Impl::editText(const std::shared_ptr<const TextFrame>& frame) {
    if (textEditor != nullptr) {
        textEditor->disconnect(&canvas);
        textEditor->deleteLater();  // it may be what called
        textEditor.clear();
    }
    if (frame == nullptr) return;
    textEditor = new TextEditor(frame, &canvas);
    const auto answerWith = [this](RawInput::Kind kind, const QString& lines) {
        canvas.setFocus();
        RawInput input;
        input.kind = kind;
        input.text = lines.toStdWString();
        emit canvas.answered(input);
    };
    QObject::connect(
        textEditor.data(), &TextEditor::finished, &canvas,
        [answerWith](const QString& lines) { answerWith(RawInput::Kind::Text, lines); });
    QObject::connect(textEditor.data(), &TextEditor::givenUp, &canvas,
                     [answerWith] { answerWith(RawInput::Kind::Cancel, {}); });
    textEditor->place(viewport);
    textEditor->show();
    textEditor->setFocus();
}

void Canvas::setRequest(const InputRequest* request) {
    Impl& d = *m_impl;
    d.request = request;
    d.frame.reset();
    d.hover = AcDbObjectId::kNull;
    update();
    d.editText(request != nullptr && d.editor != nullptr ? request->inPlace : nullptr);
    if (request == nullptr || d.editor == nullptr) {
        d.ghost.clear();
        return;
    }
    d.ghost.prepare(*d.editor, *request);
    if (std::exchange(d.tracksFor, request->prompt) != request->prompt) d.aim.forget();
    d.follow();
    if (request->kind != InputKind::Drag) d.sentMove.reset();
    if (d.sentPrompt != request->prompt) d.sentMove.reset();
    if (request->kind == InputKind::Drag) d.sendMove();
}

std::optional<AcGePoint3d> Canvas::pointer() const {
    if (m_impl->editor == nullptr || !m_impl->mouse) return {};
    return m_impl->aim.point();
}

bool Canvas::escape() {
    Impl& d = *m_impl;
    update();
    if (d.frame) {
        d.frame.reset();
        return true;
    }
    if (d.editor == nullptr || !d.atCommand() || d.editor->selection().hotGrips().empty())
        return false;
    d.editor->selection().coolAll();
    return true;
}

void Canvas::Impl::answer(RawInput::Kind kind, const AcGePoint3d& point,
                          std::vector<AcDbObjectId> entities, bool removes,
                          std::vector<AcGePoint3d> crossing) {
    RawInput input;
    input.kind = kind;
    input.point = point;
    input.entities = std::move(entities);
    input.removes = removes;
    input.crossing = std::move(crossing);
    input.pointer = aim.point();
    emit canvas.answered(input);
}

/// The last position of a drag, once the event queue is empty: positions that came meanwhile are
/// told as one.
void Canvas::Impl::sendMove() {
    if (moveWaits || !mouse || (sentMove && *sentMove == aim.point())) return;
    moveWaits = true;
    QMetaObject::invokeMethod(
        &canvas,
        [this] {
            moveWaits = false;
            if (request == nullptr || request->kind != InputKind::Drag || !mouse) return;
            if (sentMove && *sentMove == aim.point()) return;
            sentMove = aim.point();
            sentPrompt = request->prompt;
            answer(RawInput::Kind::Move, aim.point());
        },
        Qt::QueuedConnection);
}

// --- The mouse ----------------------------------------------------------------------------------

void Canvas::Impl::aimAgain() {
    if (!mouse || editor == nullptr) return;
    aim.take(*editor, request, viewport.toWorld(*mouse), (modifiers & Qt::ShiftModifier) != 0);
}

void Canvas::Impl::rest() {
    mouseRest.stop();
    if (editor == nullptr || request == nullptr || !mouse || panFrom) return;
    if (!aim.rest(*editor, *request, viewport.toWorld(*mouse))) return;
    aimAgain();
    canvas.update();
}

void Canvas::Impl::moveTo(const QPointF& at, Qt::KeyboardModifiers keys) {
    if (mouse != at) mouseRest.start(kRest, &canvas);
    mouse = at;
    modifiers = keys;
    if (editor == nullptr) return;
    aimAgain();
    hover = AcDbObjectId::kNull;
    const bool picks = selects() || (request != nullptr && request->kind == InputKind::Entity);
    if (picks && !frame && !panFrom) hover = entityAt(*editor, viewport.toWorld(at));
    canvas.update();
    emit canvas.pointerMoved(aim.point());
    if (request != nullptr && request->kind == InputKind::Drag) sendMove();
}

void Canvas::Impl::press(const QPointF& at, Qt::KeyboardModifiers keys) {
    if (request == nullptr) return;
    const bool shift = (keys & Qt::ShiftModifier) != 0;
    if (asksForPoint(*request)) {
        const AcGePoint3d meant = aim.point();
        aim.forget();
        mouseRest.stop();
        return answer(RawInput::Kind::Pick, meant);
    }
    const AcGePoint3d world = viewport.toWorld(at);
    if (request->kind == InputKind::Entity) {
        const AcDbObjectId hit = entityAt(*editor, world);
        return answer(RawInput::Kind::Pick, world,
                      hit.isNull() ? std::vector<AcDbObjectId>() : std::vector{hit}, shift);
    }
    if (selects()) selectAt(at, shift);
}

void Canvas::Impl::selectAt(const QPointF& at, bool shift) {
    if (frame) return finishFrame(at, shift);
    if (atCommand() && takeGrip(at, shift)) return;
    const AcGePoint3d world = viewport.toWorld(at);
    if (const AcDbObjectId hit = entityAt(*editor, world); !hit.isNull())
        return select({hit}, world, shift);
    if (editor->database().core().variables().number(L"PICKAUTO") == 0) return;
    frame = OpenFrame{world, at, true};
    hover = AcDbObjectId::kNull;
    canvas.update();
}

/// A frame that was drawn with the button held ends where it goes up; one begun by a click ends by
/// the next click.
void Canvas::Impl::release(const QPointF& at, Qt::KeyboardModifiers keys) {
    if (!frame || !frame->held) return;
    frame->held = false;
    if ((at - frame->press).manhattanLength() < QApplication::startDragDistance()) return;
    finishFrame(at, (keys & Qt::ShiftModifier) != 0);
}

void Canvas::Impl::finishFrame(const QPointF& at, bool shift) {
    const AcGePoint3d first = frame->first;
    const AcGePoint3d second = viewport.toWorld(at);
    frame.reset();
    canvas.update();
    const bool crossing = second.x < first.x;
    const std::vector<AcDbObjectId> ids = crossing ? entitiesCrossing(*editor, first, second)
                                                   : entitiesInWindow(*editor, first, second);
    // An answer without entities would be read as a point.
    if (ids.empty()) return;
    if (crossing && !atCommand())
        return answer(RawInput::Kind::Pick, second, ids, shift, cornersBetween(first, second));
    select(ids, second, shift);
}

void Canvas::Impl::select(const std::vector<AcDbObjectId>& ids, const AcGePoint3d& at, bool shift) {
    if (!atCommand()) return answer(RawInput::Kind::Pick, at, ids, shift);
    editor->selection().pick(ids,
                             shift ? CurrentSelection::Shift::Down : CurrentSelection::Shift::Up);
    follow();
}

void Canvas::Impl::enter() {
    frame.reset();
    RawInput input;
    input.kind = RawInput::Kind::Text;
    if (mouse) input.pointer = aim.point();
    emit canvas.answered(input);
}

// --- Grips --------------------------------------------------------------------------------------

double Canvas::Impl::gripReach() const {
    return editor->database().core().variables().number(L"GRIPSIZE") - 0.5;
}

const Grip* Canvas::Impl::gripAt(const QPointF& at) const {
    for (const Grip& grip : grips) {
        const QPointF away = screen(grip.at) - at;
        if (std::max(std::abs(away.x()), std::abs(away.y())) <= gripReach() + 1.0) return &grip;
    }
    return nullptr;
}

/// All grips at one place are taken together. With Shift more are gathered, without it the
/// stretching begins.
bool Canvas::Impl::takeGrip(const QPointF& at, bool shift) {
    const Grip* const taken = gripAt(at);
    if (taken == nullptr) return false;
    const AcGePoint3d place = taken->at;
    CurrentSelection& selection = editor->selection();
    const bool cools = shift && selection.isHot(*taken);
    for (const Grip& grip : grips) {
        if (!(grip.at == place)) continue;
        cools ? selection.cool(grip) : selection.heat(grip);
    }
    canvas.update();
    if (!shift) emit canvas.commandWanted(QStringLiteral("_GRIPS"));
    return true;
}

// --- Events -------------------------------------------------------------------------------------

void Canvas::mousePressEvent(QMouseEvent* event) {
    Impl& d = *m_impl;
    setFocus(Qt::MouseFocusReason);
    d.moveTo(event->position(), event->modifiers());
    if (d.editor == nullptr) return;
    if (event->button() == Qt::MiddleButton) {
        d.panFrom = event->position();
        d.panStep = Impl::Step::First;
        setCursor(Qt::ClosedHandCursor);
    } else if (event->button() == Qt::LeftButton) {
        d.press(event->position(), event->modifiers());
    } else if (event->button() == Qt::RightButton) {
        if (d.frame)
            d.frame.reset();
        else if (d.atCommand())
            emit contextMenuWanted(event->globalPosition().toPoint());
        else if (d.request != nullptr && asksForPoint(*d.request) &&
                 (event->modifiers() & Qt::ShiftModifier) != 0)
            emit snapMenuWanted(event->globalPosition().toPoint());
        else if (d.request != nullptr)
            d.enter();
        update();
    }
}

void Canvas::mouseReleaseEvent(QMouseEvent* event) {
    Impl& d = *m_impl;
    if (event->button() == Qt::MiddleButton) {
        d.panFrom.reset();
        setCursor(Qt::BlankCursor);
        d.moveTo(event->position(), event->modifiers());
    } else if (event->button() == Qt::LeftButton && d.editor != nullptr) {
        d.mouse = event->position();
        d.release(event->position(), event->modifiers());
    }
}

/// Into a viewport, or out of the one that is drawn through; false where a double click stays.
bool Canvas::Impl::goThrough(const QPointF& at, AcDbObjectId hit) {
    Spaces& spaces = editor->spaces();
    if (!spaces.onSheet()) return false;
    const AcDbObjectId there = spaces.viewportAt(tabViewport().toWorld(at));
    // What stands on the sheet itself is edited.
    const bool onPaper = spaces.viewport().isNull() && !hit.isNull();
    if (there == spaces.viewport() || onPaper) return false;
    std::wstring why;
    if (there.isNull())
        spaces.leave();
    else
        why = spaces.enter(there);
    if (!why.empty()) editor->print(why + L"\n");
    return true;
}

void Canvas::mouseDoubleClickEvent(QMouseEvent* event) {
    Impl& d = *m_impl;
    if (d.editor == nullptr) return;
    if (event->button() == Qt::MiddleButton) return d.zoomExtents();
    if (event->button() != Qt::LeftButton) return;
    if (!d.atCommand()) return mousePressEvent(event);
    // The first click of the two has begun a frame where there is no entity.
    const AcDbObjectId hit = entityAt(*d.editor, d.viewport.toWorld(event->position()));
    if (d.goThrough(event->position(), hit)) return;
    if (!hit.isNull())
        emit entityActivated(hit);
    else
        d.press(event->position(), event->modifiers());
}

void Canvas::mouseMoveEvent(QMouseEvent* event) {
    Impl& d = *m_impl;
    if (d.panFrom && d.editor != nullptr) {
        const QPointF by = event->position() - *d.panFrom;
        if (by.manhattanLength() < 1.0) return;
        d.mouse = event->position();
        d.panFrom = event->position();
        d.pan(by, d.panStep);
        d.panStep = Impl::Step::Next;
        return;
    }
    d.moveTo(event->position(), event->modifiers());
}

void Canvas::wheelEvent(QWheelEvent* event) {
    Impl& d = *m_impl;
    if (d.editor == nullptr) return;
    d.mouse = event->position();
    const double notches = event->angleDelta().y() / kNotchAngle;
    if (notches != 0.0) d.zoom(event->position(), std::pow(kNotch, notches));
    event->accept();
}

void Canvas::enterEvent(QEnterEvent* event) {
    m_impl->moveTo(event->position(), QGuiApplication::keyboardModifiers());
}

void Canvas::leaveEvent(QEvent*) {
    m_impl->mouse.reset();
    m_impl->hover = AcDbObjectId::kNull;
    update();
}

void Canvas::keyPressEvent(QKeyEvent* event) {
    Impl& d = *m_impl;
    if (event->key() == Qt::Key_Shift && d.mouse)
        d.moveTo(*d.mouse, event->modifiers() | Qt::ShiftModifier);
    if (event->key() == Qt::Key_Tab && d.aim.caught() != nullptr) {
        d.aim.cycle();
        emit pointerMoved(d.aim.point());
        update();
        return;
    }
    if (event->key() == Qt::Key_Tab) return void(emit fieldWanted());
    const bool erases = event->key() == Qt::Key_Delete && d.editor != nullptr && d.atCommand() &&
                        !d.editor->selection().empty();
    if (erases)
        emit commandWanted(QStringLiteral("_ERASE"));
    else
        emit keyTyped(event);
}

void Canvas::keyReleaseEvent(QKeyEvent* event) {
    Impl& d = *m_impl;
    if (event->key() == Qt::Key_Shift && d.mouse)
        d.moveTo(*d.mouse, event->modifiers() & ~Qt::ShiftModifier);
}

// Tab goes through the snap points.
bool Canvas::focusNextPrevChild(bool) { return false; }

}  // namespace prancheta::desktop
