// SPDX-License-Identifier: MIT
// The window of one open dialog.
#pragma once

#include <QDialog>

#include <unordered_map>

#include "prancheta/desktop/dialogs/tile_view.h"

namespace prancheta::desktop {

/// Native widgets where the layout of the dialog says. All that the user does goes through the
/// dialog's functions; exec() returns once it is finished.
class DialogWindow : public QDialog, private TileHost {
    Q_OBJECT
public:
    /// The dialog must outlive the window.
    DialogWindow(dcl::Dialog& dialog, QWidget* parent);
    ~DialogWindow() override;

    /// The close button of the frame does what Esc does.
    void reject() override;

protected:
    void keyPressEvent(QKeyEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    dcl::Dialog& dialog() override { return m_dialog; }
    QWidget& face() override { return *m_face; }
    void act(dcl::Tile& tile, const std::function<Result<void>()>& action) override;
    void serve(const std::function<Result<void>()>& action, const dcl::Tile* tile = nullptr);

    void makeFace();
    void makeViews(dcl::Tile& tile);
    void showTile(const dcl::Tile& tile);
    void showEnabled(const dcl::Tile& tile);
    bool searches(const dcl::Tile& tile, QEvent* event);
    void focusTile(const dcl::Tile& tile, short mode);

    dcl::Dialog& m_dialog;
    QWidget* m_face = nullptr;
    std::unordered_map<const dcl::Tile*, TileView> m_views;
    std::unordered_map<const QObject*, dcl::Tile*> m_tiles;
};

}  // namespace prancheta::desktop
