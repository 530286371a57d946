// SPDX-License-Identifier: MIT
// Image tiles, and images that are buttons.
#pragma once

#include <QWidget>

#include "prancheta/desktop/dialogs/tile_view.h"

namespace prancheta::desktop {

class ImageTile : public QWidget {
    Q_OBJECT
public:
    ImageTile(TileHost& host, dcl::Tile& tile);

    bool isButton() const { return m_isButton; }
    /// A program marked it, as one does with what is chosen of several.
    bool isMarked() const { return m_tile.highlighted; }
    /// As the space bar does. The window may be over afterwards.
    void press();

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void drawFrames(QPainter& painter);

    TileHost& m_host;
    dcl::Tile& m_tile;
    bool m_isButton;
    bool m_down = false;
};

}  // namespace prancheta::desktop
