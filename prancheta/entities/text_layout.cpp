// SPDX-License-Identifier: MIT
// Where a text stands.
#include "prancheta/entities/text_layout.h"

#include <algorithm>

#include "prancheta/entities/common.h"
#include "prancheta/graphics/text_metrics.h"

namespace prancheta {

namespace {

enum Horizontal { kLeft = 0, kCenter = 1, kRight = 2, kAligned = 3, kMiddle = 4, kFit = 5 };
enum Vertical { kBaseline = 0, kBottom = 1, kMiddleV = 2, kTop = 3 };

/// Depth of the letters that hang below the baseline, over the height.
constexpr double kDescent = 1.0 / 3.0;

TextPlace betweenPoints(const AcDbText& text) {
    const AcGeVector3d span = text.alignmentPoint() - text.position();
    const double natural = textWidth(text.textStringConst(), 1.0, 1.0);
    TextPlace place{text.position(), directionInPlane(text.rotation(), text.normal()),
                    text.height(), text.widthFactor(), text.oblique()};
    if (span.isZeroLength() || !(natural > 0.0)) return place;
    place.direction = span.normal();
    if (text.horizontalMode() == kFit)
        place.widthFactor = span.length() / (natural * std::max(text.height(), 1e-9));
    else
        place.height = span.length() / (natural * text.widthFactor());
    return place;
}

/// About which the letters are turned over: for a text between two points, the middle of its
/// baseline.
AcGeVector3d pivotOf(const AcDbText& text, const TextPlace& place) {
    if (!standsBetweenPoints(text)) return alignmentOffset(text);
    const double width = textWidth(text.textStringConst(), place.height, place.widthFactor);
    return {width / 2.0, 0.0, 0.0};
}

}  // namespace

bool standsBetweenPoints(const AcDbText& text) {
    return text.horizontalMode() == kAligned || text.horizontalMode() == kFit;
}

AcGeVector3d alignmentOffset(const AcDbText& text) {
    const double width = textWidth(text.textStringConst(), text.height(), text.widthFactor());
    AcGeVector3d offset;
    switch (text.horizontalMode()) {
        case kCenter:
            offset.x = width / 2.0;
            break;
        case kRight:
            offset.x = width;
            break;
        case kMiddle:
            return {width / 2.0, text.height() / 2.0, 0.0};
        default:
            break;
    }
    if (text.verticalMode() == kBottom) offset.y = -text.height() * kDescent;
    if (text.verticalMode() == kMiddleV) offset.y = text.height() / 2.0;
    if (text.verticalMode() == kTop) offset.y = text.height();
    return offset;
}

TextPlace placeOf(const AcDbText& text) {
    if (standsBetweenPoints(text)) return betweenPoints(text);
    const AcGeVector3d along = directionInPlane(text.rotation(), text.normal());
    TextPlace place{text.position(), along, text.height(), text.widthFactor(), text.oblique()};
    if (text.horizontalMode() == kLeft && text.verticalMode() == kBaseline) return place;
    const AcGeVector3d offset = alignmentOffset(text);
    const AcGeVector3d up = text.normal().crossProduct(along);
    place.start = text.alignmentPoint() - along * offset.x - up * offset.y;
    return place;
}

TextPlace shownPlaceOf(const AcDbText& text) {
    TextPlace place = placeOf(text);
    const AcGeVector3d pivot = pivotOf(text, place);
    const AcGeVector3d along = place.direction;
    const auto turnOver = [&place](const AcGeVector3d& by) {
        place.start += by;
        place.widthFactor = -place.widthFactor;
        place.oblique = -place.oblique;
    };
    if (text.isMirroredInX()) turnOver(along * (2.0 * pivot.x));
    if (!text.isMirroredInY()) return place;
    turnOver(text.normal().crossProduct(along) * (2.0 * pivot.y));
    place.direction = -along;
    return place;
}

AcGeVector3d middleOf(const AcDbText& text) {
    const TextPlace place = placeOf(text);
    const AcGeVector3d pivot = pivotOf(text, place);
    const double width = textWidth(text.textStringConst(), place.height, place.widthFactor);
    AcGeVector3d middle(width / 2.0, place.height / 2.0, 0.0);
    if (text.isMirroredInX()) middle.x = 2.0 * pivot.x - middle.x;
    if (text.isMirroredInY()) middle.y = 2.0 * pivot.y - middle.y;
    return middle;
}

}  // namespace prancheta
