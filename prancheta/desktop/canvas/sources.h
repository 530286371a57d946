// SPDX-License-Identifier: MIT
// What the sheet of the drawing area shows: the drawing, with what is selected highlighted.
#pragma once

#include <QSizeF>
#include <QTransform>

#include <unordered_set>

#include "prancheta/desktop/canvas/palette.h"
#include "prancheta/desktop/canvas/sheet.h"
#include "prancheta/editor/editor.h"

namespace prancheta::desktop {

/// How the drawing is to be shown.
struct Look {
    Palette palette = darkPalette();
    double ratio = 1.0;  ///< device pixels of a logical one
    double pixelsPerMillimetre = 3.78;
    bool lineWeights = false;
    bool grid = false;
    QSizeF gridSpacing{10.0, 10.0};  ///< least one, drawing units
    QTransform userToWorld;          ///< its lines run along the user's axes
    bool operator==(const Look&) const = default;
};

class DrawingSource : public SheetSource {
public:
    /// Selects nothing.
    void setEditor(Editor* editor);
    /// The entities that are highlighted from now on. What changes by it is spoilt on the sheet.
    void setSelection(const std::vector<AcDbObjectId>& ids, Sheet& sheet);
    const std::vector<AcDbObjectId>& selection() const { return m_selection; }
    Look look;

    void ground(QImage& piece, const QTransform& toPiece) override;
    Items items(const Box2d& area) override;
    bool paint(QImage& piece, const QTransform& toPiece, const Items& items, std::size_t& next,
               Clock::time_point until) override;

private:
    using Set = std::unordered_set<Adesk::LongPtr>;

    DisplayList& shownList() const;
    void paintSheetEdge(QImage& piece, const QTransform& toPiece) const;
    QRgb colorOf(AcDbObjectId layer);
    bool isSelected(AcDbObjectId id) const { return m_selected.contains(id.asOldId()); }

    Editor* m_editor = nullptr;
    std::vector<AcDbObjectId> m_selection;
    Set m_selected;
};

}  // namespace prancheta::desktop
