// SPDX-License-Identifier: MIT
// A text tile: one line that a program may change, cut with an ellipsis where it is too long.
#pragma once

#include <QWidget>

#include "prancheta/dcl/dialog.h"

namespace prancheta::desktop {

class TextTile : public QWidget {
    Q_OBJECT
public:
    TextTile(const dcl::Tile& tile, QWidget* parent);

    void showTile();
    QString text() const { return m_text; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    const dcl::Tile& m_tile;
    QString m_text;
    bool m_isMessage;  ///< the line where programs say what is wrong
    bool m_isOverColumns;
};

}  // namespace prancheta::desktop
