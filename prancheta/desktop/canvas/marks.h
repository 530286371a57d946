// SPDX-License-Identifier: MIT
// What is drawn over the drawing: cursor, rubber bands, frames, grips, snap markers, small texts.
// Everything in logical pixels of the drawing area.
#pragma once

#include <QPainter>
#include <QString>

#include <vector>

#include "prancheta/desktop/canvas/sources.h"

namespace prancheta::desktop {

enum class Cursor { Cross, CrossWithBox, Box };
/// The lines of the cross end at the edges of `reach`; one runs along `x`, a direction in the
/// world's plane of length 1.
void drawCursor(QPainter& painter, const Palette& palette, const QPointF& at, const QRectF& reach,
                const QPointF& x, Cursor kind, double pickBox);
void drawBand(QPainter& painter, const Palette& palette, const QPointF& from, const QPointF& to);

enum class Frame { Plain, Window, Crossing };
void drawFrame(QPainter& painter, const Palette& palette, const QRectF& frame, Frame kind);

enum class GripState { Cold, Hover, Hot };
/// `half` its side.
void drawGrip(QPainter& painter, const QPointF& at, double half, GripState state);

/// The marker of a snap mode (bit of OSMODE) at the point it caught.
void drawSnap(QPainter& painter, const Palette& palette, const QPointF& at, int mode);
/// A small text by the cursor that stays inside the area; `row` 0 stands below it, 1 above it.
enum class TagPlace { Below, Above };
void drawTag(QPainter& painter, const Palette& palette, const QPointF& cursor, const QSizeF& area,
             const QString& text, TagPlace place);
/// A line that holds the pointer, dotted through the whole area; both points lie on it, `from`
/// first.
void drawTrack(QPainter& painter, const Palette& palette, const QPointF& from, const QPointF& to,
               const QSizeF& area);
/// The mark of a point that is tracked.
void drawTracked(QPainter& painter, const Palette& palette, const QPointF& at);

/// A value beside the cursor; the next letter goes into one that is active.
struct ValueBox {
    QString text;
    bool typed = false;
    bool active = false;
};
/// In a row above the cursor that stays inside the area.
void drawValues(QPainter& painter, const Palette& palette, const QPointF& cursor,
                const QSizeF& area, const std::vector<ValueBox>& values);
/// The axes of the user's coordinate system; directions in the world's plane.
void drawAxes(QPainter& painter, const Palette& palette, const QPointF& origin, const QPointF& x,
              const QPointF& y);

}  // namespace prancheta::desktop
