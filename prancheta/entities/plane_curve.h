// SPDX-License-Identifier: MIT
// Entities as plane curves, seen from above, and curves as entities.
#pragma once

#include <memory>
#include <optional>
#include <span>

#include "dbpl.h"
#include "prancheta/curves/curve.h"
#include "prancheta/entities/polyline_width.h"
#include "prancheta/graphics/edges.h"

namespace prancheta {

/// Of a line, arc, circle, ellipse or polyline; nothing of anything else, and of what is seen
/// edge-on. The parameters go as the entity goes: a polyline's count its vertices.
std::optional<Curve> planeCurve(const AcDbEntity& entity);

/// The same, and of a spline its chords: what can be parted, if not made to go on.
std::optional<Curve> partableCurve(const AcDbEntity& entity);

/// Whether what it shows may cut, bound or be moved aside: curves, blocks and pieces, no
/// annotations. Of foreign ones those that are curves or show a block.
bool hasEdges(const AcDbEntity& entity);

/// An edge of a picture, seen from above.
Segment segmentOf(const Edge& edge);

/// The entity becomes the part between two parameters, as Curve::part says; heights, bulges and
/// widths go along. It must be open for write or in no drawing. eNotApplicable, and no change, for
/// a circle, which would have to be an arc, for a spline beyond its ends, and for what is no curve.
Acad::ErrorStatus keepCurvePart(AcDbEntity& entity, double from, double to);

/// That part as an entity of its own with the same properties, in no drawing; null for what is no
/// curve.
std::unique_ptr<AcDbEntity> curvePart(const AcDbEntity& entity, double from, double to);

/// Line, arc, circle or, of a chain, polyline at height z, in no drawing; null for an empty curve
/// and one with unbounded or elliptic segments.
std::unique_ptr<AcDbEntity> entityOf(const Curve& curve, double z);

/// Polyline at height z, in no drawing, of straight and circular segments; a width for each of the
/// first ones.
std::unique_ptr<AcDbPolyline> polylineOf(const Curve& curve, double z,
                                         std::span<const SegmentWidth> widths = {});

}  // namespace prancheta
