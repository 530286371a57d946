// SPDX-License-Identifier: MIT
// The drawing area: shows the drawing, and turns mouse and keys into answers.
#pragma once

#include <QWidget>

#include <memory>
#include <optional>

#include "prancheta/desktop/canvas/palette.h"
#include "prancheta/editor/editor.h"

namespace prancheta::desktop {

class Canvas : public QWidget {
    Q_OBJECT
public:
    explicit Canvas(QWidget* parent = nullptr);
    ~Canvas() override;

    /// The editor must outlive the canvas or be taken away with null. To be called again after the
    /// drawing was replaced.
    void setEditor(Editor* editor);
    /// What is being asked for; decides what clicks, rubber band and previews do. Null while
    /// nothing is asked (a program is working): clicks do nothing. The request must live until the
    /// next call.
    void setRequest(const InputRequest* request);
    /// The drawing, the view or the selection may have changed.
    void refresh();
    void setColors(const Palette& colors);
    /// What is typed as an answer, for the values beside the cursor.
    void setTyped(const QString& text, int caret);
    /// Where the pointer stands, world, after snap and ortho; nothing before it entered.
    std::optional<AcGePoint3d> pointer() const;
    /// False while the picture is still being refined.
    bool complete() const;

public slots:
    /// Esc: gives up a frame that was begun, or the grips taken hold of. False when there was
    /// nothing of the kind: then Esc is the command line's.
    bool escape();

signals:
    /// A click, a finished window, a step of a drag, Enter by the right button.
    void answered(const prancheta::RawInput& input);
    /// Keys that belong to the command line.
    void keyTyped(QKeyEvent* event);
    /// Drawing units.
    void pointerMoved(const AcGePoint3d& world);
    /// The set of selected entities before a command (CurrentSelection) changed.
    void selectionChanged();
    /// Double click on an entity at "Comando:".
    void entityActivated(AcDbObjectId entity);
    /// The canvas wants a command to run, as if typed at "Comando:".
    void commandWanted(const QString& line);
    void contextMenuWanted(const QPoint& global);
    /// Tab where there is no snap point to go on to.
    void fieldWanted();
    /// Shift and the right button while a point is asked for.
    void snapMenuWanted(const QPoint& global);

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void timerEvent(QTimerEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void enterEvent(QEnterEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    bool focusNextPrevChild(bool next) override;

private:
    struct Impl;
    std::unique_ptr<Impl> m_impl;
};

}  // namespace prancheta::desktop
