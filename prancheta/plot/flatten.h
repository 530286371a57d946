// SPDX-License-Identifier: MIT
// Arcs as curves or chords of a painter path.
#pragma once

#include <QPainterPath>
#include <QRectF>

namespace prancheta {

/// An arc in device coordinates: centre + x cos t + y sin t, t from 0 to `sweep` (signed). An arc
/// seen at a slant has axes of different length.
struct DeviceArc {
    QPointF center;
    QPointF x;
    QPointF y;
    double sweep = 0.0;

    /// `t` from 0 to 1.
    QPointF at(double t) const;
};

/// Appends the arc to a path that stands at its start, as cubics within `deviation`.
void appendCubics(QPainterPath& path, const DeviceArc& arc, double deviation);

/// The same as chords within `deviation` where the arc comes near `visible`, and coarser elsewhere:
/// an arc of any radius costs what is seen of it.
void appendChords(QPainterPath& path, const DeviceArc& arc, double deviation,
                  const QRectF& visible);

}  // namespace prancheta
