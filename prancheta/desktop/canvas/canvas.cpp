// SPDX-License-Identifier: MIT
// The drawing area: what it follows, and how the view moves.
#include "prancheta/desktop/canvas/canvas.h"

#include <QAccessibleWidget>
#include <QPainter>
#include <QResizeEvent>

#include <algorithm>
#include <cmath>

#include "prancheta/database/database_core.h"
#include "prancheta/desktop/canvas/canvas_impl.h"
#include "prancheta/plot/through.h"

namespace prancheta::desktop {
namespace {

using namespace std::chrono_literals;

/// Time for painting the drawing: within the event that changed it, and in one following turn of
/// the event loop.
constexpr Clock::duration kAtOnce = 3ms;
constexpr Clock::duration kTurn = 6ms;

constexpr double kExtentsMargin = 1.02;
constexpr double kLeastHeight = 1e-6;
constexpr double kMostHeight = 1e12;
constexpr int kWheelRest = 600;  // milliseconds
/// Selections above this show no grips.
constexpr std::size_t kMostGripped = 100;

/// A direction without a spacing of its own has that of the snap grid.
QSizeF gridSpacing(const SystemVariables& variables) {
    const AcGePoint3d own = variables.point(L"GRIDUNIT");
    const AcGePoint3d snap = variables.point(L"SNAPUNIT");
    const auto chosen = [](double first, double second) {
        if (first > 0.0) return first;
        return second > 0.0 ? second : 1.0;
    };
    return {chosen(own.x, snap.x), chosen(own.y, snap.y)};
}

QAccessibleInterface* interfaceOf(const QString&, QObject* object) {
    auto* const canvas = qobject_cast<Canvas*>(object);
    return canvas != nullptr ? new QAccessibleWidget(canvas, QAccessible::Canvas) : nullptr;
}

}  // namespace

Canvas::Canvas(QWidget* parent) : QWidget(parent), m_impl(std::make_unique<Impl>(*this)) {
    setMouseTracking(true);
    setFocusPolicy(Qt::StrongFocus);
    setAttribute(Qt::WA_OpaquePaintEvent);
    setCursor(Qt::BlankCursor);
    setMinimumSize(64, 64);
    QAccessible::installFactory(interfaceOf);  // the same one again changes nothing
    setAccessibleName("Área de desenho");
}

Canvas::~Canvas() = default;

void Canvas::setEditor(Editor* editor) {
    Impl& d = *m_impl;
    d.editor = editor;
    d.request = nullptr;
    d.drawing.setEditor(editor);
    d.shownList = nullptr;
    d.grips.clear();
    d.frame.reset();
    d.hover = AcDbObjectId::kNull;
    if (editor != nullptr) editor->screen().resize(width(), height());
    d.sheet.spoilAll();
    refresh();
}

void Canvas::refresh() { m_impl->follow(); }

void Canvas::setColors(const Palette& colors) {
    m_impl->drawing.look.palette = colors;
    refresh();
}

void Canvas::setTyped(const QString& text, int caret) {
    m_impl->typed = {text.toStdWString(), static_cast<std::size_t>(caret)};
    update();
}

bool Canvas::complete() const { return m_impl->sheet.complete(); }

void Canvas::resizeEvent(QResizeEvent*) {
    if (m_impl->editor != nullptr) m_impl->editor->screen().resize(width(), height());
    refresh();
}

void Canvas::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    m_impl->paint(painter);
    if (m_impl->textEditor != nullptr) m_impl->textEditor->place(m_impl->viewport);
}

void Canvas::timerEvent(QTimerEvent* event) {
    if (event->timerId() == m_impl->wheelRest.timerId()) m_impl->wheelRest.stop();
    if (event->timerId() == m_impl->mouseRest.timerId()) m_impl->rest();
    if (event->timerId() != m_impl->refining.timerId()) return;
    m_impl->refine(kTurn);
    update();
}

// --- Following ----------------------------------------------------------------------------------

void Canvas::Impl::follow() {
    ++follows;
    canvas.update();
    if (editor == nullptr || canvas.width() < 1 || canvas.height() < 1) return;
    viewport = Viewport(editor->screen().view(), canvas.size());
    const double ratio = canvas.devicePixelRatioF();
    const SystemVariables& variables = editor->database().core().variables();
    Look& look = drawing.look;
    look.ratio = ratio;
    look.pixelsPerMillimetre = canvas.logicalDpiX() / 25.4;
    look.lineWeights = variables.number(L"LWDISPLAY") != 0;
    look.grid = variables.number(L"GRIDMODE") != 0;
    look.gridSpacing = gridSpacing(variables);
    look.userToWorld = flat(editor->ucs());
    if (look != shownLook) {
        shownLook = look;
        sheet.spoilAll();
    }
    const bool onSheet = editor->spaces().onSheet();
    editor->appearances().setDashScale(onSheet ? dashScaleOnSheet(editor->database()) : 1.0);
    const QTransform toDevice = tabViewport().transform(ratio);
    const QSize size = (QSizeF(canvas.size()) * ratio).toSize();
    sheet.show(toDevice, size, look.palette.ground);
    followDrawing();
    followSelection();
    if (request != nullptr) aimAgain();
    refine(kAtOnce);
}

Viewport Canvas::Impl::tabViewport() const {
    return Viewport(editor->spaces().tabView(), canvas.size());
}

void Canvas::Impl::followDrawing() {
    const Spaces& spaces = editor->spaces();
    DisplayList& list = editor->displayOf(spaces.tab());
    const std::uint64_t revision = list.revision();
    // What changes in the model may be seen through any viewport.
    const std::uint64_t model =
        spaces.onSheet() ? editor->displayOf(editor->database().core().modelSpaceId()).revision()
                         : 0;
    const AcDbObjectId through = spaces.viewport();
    const bool modelIsOther = model != std::exchange(shownModel, model) ||
                              through != std::exchange(shownThrough, through);
    if (&list == shownList && revision == shownRevision && !modelIsOther) return;
    if (&list != shownList || revision < shownRevision || modelIsOther) {
        sheet.spoilAll();
    } else {
        for (const Box2d& box : list.changedSince(shownRevision)) sheet.spoil(box);
    }
    shownList = &list;
    shownRevision = revision;
    hover = AcDbObjectId::kNull;
    grips.clear();
}

void Canvas::Impl::followSelection() {
    const std::vector<AcDbObjectId>& pickfirst = editor->selection().ids();
    const bool before =
        request == nullptr || atCommand() || !editor->selection().hotGrips().empty();
    const std::vector<AcDbObjectId>& shown =
        before || request->selection.empty() ? pickfirst : request->selection.ids();
    if (shown != drawing.selection()) {
        drawing.setSelection(shown, sheet);
        grips.clear();
    }
    const bool gripped = &shown == &pickfirst && !shown.empty() && shown.size() <= kMostGripped &&
                         editor->database().core().variables().number(L"GRIPS") != 0;
    if (!gripped)
        grips.clear();
    else if (grips.empty())
        for (const AcDbObjectId& id : shown) appendGrips(id, grips);
    if (knownPickfirst != pickfirst) {
        knownPickfirst = pickfirst;
        emit canvas.selectionChanged();
    }
}

void Canvas::Impl::refine(Clock::duration time) {
    if (editor == nullptr) return;
    const Clock::time_point until = Clock::now() + time;
    const QPointF focus = mouse.value_or(canvas.rect().center()) * drawing.look.ratio;
    sheet.paint(drawing, until, focus.toPoint());
    if (canvas.complete())
        refining.stop();
    else if (!refining.isActive())
        refining.start(0, &canvas);
}

// --- Moving the view ----------------------------------------------------------------------------

void Canvas::Impl::show(const View& view, Step step) {
    const unsigned before = follows;
    editor->screen().show(view,
                          step == Step::First ? Screen::Change::Step : Screen::Change::Continued);
    // The front end's refresh comes back here, if there is one.
    if (follows == before) follow();
}

/// The world point at `about` stays there.
void Canvas::Impl::zoom(const QPointF& about, double factor) {
    View view = editor->screen().view();
    const double height = std::clamp(view.height / factor, kLeastHeight, kMostHeight);
    const AcGePoint3d fixed = viewport.toWorld(about);
    const double k = height / view.height;
    view.centre.x = fixed.x + (view.centre.x - fixed.x) * k;
    view.centre.y = fixed.y + (view.centre.y - fixed.y) * k;
    view.height = height;
    const Step step = wheelRest.isActive() ? Step::Next : Step::First;
    wheelRest.start(kWheelRest, &canvas);
    show(view, step);
}

/// By whole device pixels, so that what is painted can be shifted.
void Canvas::Impl::pan(const QPointF& by, Step step) {
    const double ratio = drawing.look.ratio;
    const QPointF whole((by * ratio).toPoint());
    View view = editor->screen().view();
    view.centre.x -= whole.x() / ratio * viewport.unit();
    view.centre.y += whole.y() / ratio * viewport.unit();
    show(view, step);
}

void Canvas::Impl::zoomExtents() {
    const Box2d box = editor->display().extents();
    if (box.empty()) return;
    View view = editor->screen().view();
    view.centre.x = (box.left + box.right) / 2.0;
    view.centre.y = (box.bottom + box.top) / 2.0;
    const double height = std::max(box.height(), box.width() * canvas.height() / canvas.width());
    if (height > 0.0) view.height = height * kExtentsMargin;
    show(view, Step::First);
}

// --- Painting -----------------------------------------------------------------------------------

void Canvas::Impl::paint(QPainter& painter) {
    if (editor == nullptr) {
        painter.fillRect(canvas.rect(), palette().ground);
        return;
    }
    const double ratio = drawing.look.ratio;
    const QRectF area(canvas.rect());
    painter.drawImage(area, sheet.image(), QRectF(QPointF(0, 0), area.size() * ratio));
    paintOverlays(painter);
}

}  // namespace prancheta::desktop
