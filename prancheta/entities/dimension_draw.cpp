// SPDX-License-Identifier: MIT
// Draws aligned dimensions.
#include <algorithm>
#include <cmath>

#include "prancheta/entities/dimension_layout.h"
#include "prancheta/graphics/text_metrics.h"

namespace prancheta {

namespace {

void line(const AcGePoint3d& a, const AcGePoint3d& b, AcGiGeometry& to) {
    if ((b - a).isZeroLength()) return;
    const AcGePoint3d points[2] = {a, b};
    to.polyline(2, points);
}

/// From a little off the measured point to a little beyond the dimension line.
void extensionLine(const AcGePoint3d& origin, const AcGePoint3d& foot, const AlignedLayout& layout,
                   const DimensionSizes& sizes, AcGiGeometry& to) {
    const double length = (foot - origin).dotProduct(layout.slant) + sizes.extensionBeyond;
    if (length <= sizes.extensionOffset) return;
    line(origin + layout.slant * sizes.extensionOffset, origin + layout.slant * length, to);
}

/// Closed filled arrow, its tip at `tip`, three times as long as wide; `towards` is a unit vector.
void arrow(const AcGePoint3d& tip, const AcGeVector3d& towards, double size, AcGiGeometry& to) {
    const AcGePoint3d tail = tip - towards * size;
    const AcGeVector3d half = AcGeVector3d::kZAxis.crossProduct(towards) * (size / 6.0);
    const AcGePoint3d corners[3] = {tip, tail + half, tail - half};
    to.polygon(3, corners);
}

/// Part of the dimension line from the arrows' tails, with a gap where the text stands on it.
void dimensionLine(const AcGePoint3d& a, const AcGePoint3d& b, double opening, AcGiGeometry& to) {
    const AcGeVector3d span = b - a;
    const double length = span.length();
    if (opening <= 0.0) return line(a, b, to);
    if (opening >= length) return;
    const AcGeVector3d piece = span * ((length - opening) / 2.0 / length);
    line(a, a + piece, to);
    line(b - piece, b, to);
}

/// Length that a box about the middle of the line covers of it; the box lies along `reading`.
double openingFor(const AcGeVector3d& along, const AcGeVector3d& reading, double width,
                  double height) {
    const double cosine = std::abs(along.dotProduct(reading));
    const double sine = std::sqrt(std::max(0.0, 1.0 - cosine * cosine));
    return cosine * height > sine * width ? width / cosine : height / sine;
}

}  // namespace

void drawAligned(const AcDbAlignedDimension& dimension, AcGiGeometry& to) {
    const AcDbDimStyleValues style = styleValues(dimension);
    const DimensionSizes sizes(style);
    const AlignedLayout layout(dimension);
    extensionLine(dimension.xLine1Point(), layout.first, layout, sizes, to);
    extensionLine(dimension.xLine2Point(), layout.second, layout, sizes, to);

    const std::wstring text = dimension.shownText();
    const TextRoom room(dimension, style, layout);
    const double textLength = room.length;
    const AcGeVector3d reading = style.dimtih != 0 ? AcGeVector3d::kXAxis : layout.reading;
    const AcGeVector3d up = AcGeVector3d::kZAxis.crossProduct(reading);
    const bool onLine = dimension.isUsingDefaultTextPosition() && textOnLine(style, layout);
    const double opening = onLine ? openingFor(layout.along, reading, textLength + 2.0 * sizes.gap,
                                               sizes.textHeight + 2.0 * sizes.gap)
                                  : 0.0;
    const double length = (layout.second - layout.first).length();
    const bool textBeyond = dimension.isUsingDefaultTextPosition() && !room.between;
    const bool inside = length >= 2.0 * (sizes.arrow + sizes.gap) && !textBeyond;
    const AcGeVector3d arm = layout.along * sizes.arrow;
    const AcGeVector3d outwards = inside ? layout.along : -layout.along;
    arrow(layout.first, -outwards, sizes.arrow, to);
    arrow(layout.second, outwards, sizes.arrow, to);
    if (inside) {
        dimensionLine(layout.first + arm, layout.second - arm, opening, to);
    } else {
        // Arrows that do not fit stand outside, each with a tail of its own length.
        dimensionLine(layout.first, layout.second, opening, to);
        line(layout.first - arm, layout.first - arm * 2.0, to);
        const AcGeVector3d tail = textBeyond ? layout.along * room.end : arm * 2.0;
        line(layout.second + arm, layout.second + tail, to);
    }

    const AcGePoint3d start =
        dimension.textPosition() - reading * (textLength / 2.0) - up * (sizes.textHeight / 2.0);
    to.text(start, AcGeVector3d::kZAxis, reading, sizes.textHeight, 1.0, 0.0, text.c_str());
}

}  // namespace prancheta
