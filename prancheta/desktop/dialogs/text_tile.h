// SPDX-License-Identifier: MIT
// A text tile: one line that a program may change, cut with an ellipsis where it is too long; with
// a fixed font it is laid out as the row of a list, with its own tab stops.
#pragma once

#include <QWidget>

#include <optional>

#include "prancheta/dcl/dialog.h"
#include "prancheta/desktop/dialogs/row_model.h"

namespace prancheta::desktop {

class TextTile : public QWidget {
    Q_OBJECT
public:
    /// `dialog`: metrics by which the dialog was laid out. `list`: over whose columns the text
    /// stands; null for any other text.
    TextTile(const dcl::Tile& tile, const dcl::Metrics& dialog, const dcl::Tile* list,
             QWidget* parent);

    void showTile();
    QString text() const { return m_text; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    const dcl::Tile& m_tile;
    QString m_text;
    bool m_isMessage;                     ///< the line where programs say what is wrong
    std::optional<RowPainter> m_columns;  ///< of a title that stands over those of a list
};

}  // namespace prancheta::desktop
