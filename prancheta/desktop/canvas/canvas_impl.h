// SPDX-License-Identifier: MIT
// State of the drawing area, shared by its painting and its input.
#pragma once

#include <QBasicTimer>
#include <QPointer>

#include <optional>
#include <vector>

#include "prancheta/desktop/canvas/aim.h"
#include "prancheta/desktop/canvas/canvas.h"
#include "prancheta/desktop/canvas/ghost.h"
#include "prancheta/desktop/canvas/marks.h"
#include "prancheta/desktop/canvas/sheet.h"
#include "prancheta/desktop/canvas/sources.h"
#include "prancheta/desktop/canvas/text_editor.h"
#include "prancheta/desktop/canvas/viewport.h"
#include "prancheta/editor/dynamic_input.h"

namespace prancheta::desktop {

/// A selection frame that was begun.
struct OpenFrame {
    AcGePoint3d first;  ///< world
    QPointF press;      ///< where the button went down
    bool held = true;   ///< the button is still down
};

struct Canvas::Impl {
    explicit Impl(Canvas& of) : canvas(of) {}

    // --- What is shown ---------------------------------------------------------------------------
    void follow();
    void followDrawing();
    /// Of the tab, whatever is drawn through.
    Viewport tabViewport() const;
    void followSelection();
    void refine(Clock::duration time);
    void paint(QPainter& painter);
    void paintOverlays(QPainter& painter);
    void paintGrips(QPainter& painter) const;
    void paintTracks(QPainter& painter) const;
    void paintTags(QPainter& painter) const;
    /// The values of what is asked for; false when the window shows none.
    bool paintValues(QPainter& painter) const;
    void paintAxes(QPainter& painter) const;
    const Palette& palette() const { return drawing.look.palette; }
    /// Pixels of the drawing area.
    QPointF screen(const AcGePoint3d& p) const { return viewport.toScreen(p); }

    // --- Moving the view -------------------------------------------------------------------------
    enum class Step { First, Next };
    /// `about` in pixels stays where it is; a factor above 1 comes nearer.
    void zoom(const QPointF& about, double factor);
    void pan(const QPointF& by, Step step);
    void zoomExtents();
    void show(const View& view, Step step);

    // --- Text edited in place --------------------------------------------------------------------
    /// Null ends it.
    void editText(const std::shared_ptr<const TextFrame>& frame);

    // --- Input -----------------------------------------------------------------------------------
    bool atCommand() const { return request != nullptr && request->kind == InputKind::Command; }
    bool selects() const {
        return request != nullptr &&
               (request->kind == InputKind::Command || request->kind == InputKind::Selection);
    }
    void moveTo(const QPointF& at, Qt::KeyboardModifiers modifiers);
    void aimAgain();
    /// The mouse stands still.
    void rest();
    void press(const QPointF& at, Qt::KeyboardModifiers modifiers);
    void release(const QPointF& at, Qt::KeyboardModifiers modifiers);
    void enter();
    void selectAt(const QPointF& at, bool shift);
    bool goThrough(const QPointF& at, AcDbObjectId hit);
    void finishFrame(const QPointF& at, bool shift);
    /// `at` in world coordinates.
    void select(const std::vector<AcDbObjectId>& ids, const AcGePoint3d& at, bool shift);
    bool takeGrip(const QPointF& at, bool shift);
    const Grip* gripAt(const QPointF& at) const;
    /// Half the side of a grip, pixels.
    double gripReach() const;
    /// World coordinates.
    void answer(RawInput::Kind kind, const AcGePoint3d& point,
                std::vector<AcDbObjectId> entities = {}, bool removes = false,
                std::vector<AcGePoint3d> crossing = {});
    void sendMove();

    Canvas& canvas;
    Editor* editor = nullptr;
    const InputRequest* request = nullptr;

    Viewport viewport;
    DrawingSource drawing;
    Sheet sheet{QImage::Format_RGB32};
    Look shownLook;
    unsigned follows = 0;
    const DisplayList* shownList = nullptr;
    std::uint64_t shownRevision = 0;
    std::uint64_t shownModel = 0;  ///< revision of what viewports show
    AcDbObjectId shownThrough;
    QBasicTimer refining;

    std::optional<QPointF> mouse;  ///< nothing while it is outside
    Qt::KeyboardModifiers modifiers;
    Aim aim;
    Ghost ghost;
    AcDbObjectId hover;
    std::vector<Grip> grips;
    std::vector<AcDbObjectId> knownPickfirst;
    std::optional<OpenFrame> frame;
    std::optional<QPointF> panFrom;
    QPointer<TextEditor> textEditor;
    Step panStep = Step::First;
    QBasicTimer wheelRest;  ///< runs while turns of the wheel belong together
    QBasicTimer mouseRest;  ///< runs from the last move until the mouse counts as resting
    TypedLine typed;
    std::wstring tracksFor;  ///< the prompt whose points are tracked

    /// Last position told in a drag, and of which question.
    std::optional<AcGePoint3d> sentMove;
    std::wstring sentPrompt;
    bool moveWaits = false;
};

}  // namespace prancheta::desktop
