// SPDX-License-Identifier: MIT
// What the sheets of the drawing area show: the drawing, and the highlight of what is selected.
#pragma once

#include <QColor>

#include <unordered_set>

#include "prancheta/desktop/canvas/sheet.h"
#include "prancheta/editor/editor.h"

namespace prancheta::desktop {

/// Colours of the drawing area.
struct Palette {
    QColor ground;
    QColor grid;
    QColor gridMajor;
    QColor cursor;
    QColor band;  ///< rubber bands
    QColor tag;   ///< ground of small texts
    QColor tagText;
    QColor highlight;
    bool dark;
};
const Palette& darkPalette();
const Palette& lightPalette();

/// How the drawing is to be shown.
struct Look {
    const Palette* palette = &darkPalette();
    double ratio = 1.0;  ///< device pixels of a logical one
    double pixelsPerMillimetre = 3.78;
    bool lineWeights = false;
    bool grid = false;
    bool operator==(const Look&) const = default;
};

class DrawingSource : public SheetSource {
public:
    void setEditor(Editor* editor) { m_editor = editor; }
    Look look;

    void ground(QImage& piece, const QTransform& toPiece) override;
    Items items(const Box2d& area) override;
    bool paint(QImage& piece, const QTransform& toPiece, const Items& items, std::size_t& next,
               Clock::time_point until) override;

private:
    QRgb colorOf(AcDbObjectId layer);

    Editor* m_editor = nullptr;
};

class HighlightSource : public SheetSource {
public:
    void setEditor(Editor* editor);
    /// False when these are highlighted already.
    bool setSelection(const std::vector<AcDbObjectId>& ids);
    const std::vector<AcDbObjectId>& selection() const { return m_ids; }
    const Palette* palette = &darkPalette();
    double ratio = 1.0;

    void ground(QImage& piece, const QTransform& toPiece) override;
    Items items(const Box2d& area) override;
    bool paint(QImage& piece, const QTransform& toPiece, const Items& items, std::size_t& next,
               Clock::time_point until) override;

private:
    Editor* m_editor = nullptr;
    std::vector<AcDbObjectId> m_ids;
    std::unordered_set<Adesk::LongPtr> m_set;
};

}  // namespace prancheta::desktop
