// SPDX-License-Identifier: MIT
// List boxes and popup lists.
#pragma once

#include <QComboBox>
#include <QListView>

#include "prancheta/desktop/dialogs/row_model.h"
#include "prancheta/desktop/dialogs/tile_view.h"

namespace prancheta::desktop {

/// Pixels from the edge of the rows to their text, and from the frame of the list.
inline constexpr int kCellMargin = 4;
inline constexpr int kRowMargin = kCellMargin + 1;

/// Reports every click on a row, also on the one that is selected, and every step of the keyboard.
class ListBox : public QListView {
    Q_OBJECT
public:
    ListBox(TileHost& host, dcl::Tile& tile);
    void showTile();

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    std::wstring selection() const;
    void report();
    void reportChange();

    TileHost& m_host;
    dcl::Tile& m_tile;
    RowModel m_model;
    RowPainter m_rows;
};

class PopupBox : public QComboBox {
    Q_OBJECT
public:
    PopupBox(TileHost& host, dcl::Tile& tile);
    void showTile();

protected:
    void paintEvent(QPaintEvent* event) override;
    /// Turning the wheel over a popup that nobody works with must not change it.
    void wheelEvent(QWheelEvent* event) override;

private:
    TileHost& m_host;
    dcl::Tile& m_tile;
    RowModel m_model;
    RowPainter m_rows;
};

}  // namespace prancheta::desktop
