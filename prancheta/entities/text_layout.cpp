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
    TextPlace place{text.position(), directionInPlane(text.rotation(), AcGeVector3d::kZAxis),
                    text.height(), text.widthFactor()};
    if (span.isZeroLength() || !(natural > 0.0)) return place;
    place.direction = span.normal();
    if (text.horizontalMode() == kFit)
        place.widthFactor = span.length() / (natural * std::max(text.height(), 1e-9));
    else
        place.height = span.length() / (natural * text.widthFactor());
    return place;
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
    const AcGeVector3d along = directionInPlane(text.rotation(), AcGeVector3d::kZAxis);
    TextPlace place{text.position(), along, text.height(), text.widthFactor()};
    if (text.horizontalMode() == kLeft && text.verticalMode() == kBaseline) return place;
    const AcGeVector3d offset = alignmentOffset(text);
    const AcGeVector3d up = AcGeVector3d::kZAxis.crossProduct(along);
    place.start = text.alignmentPoint() - along * offset.x - up * offset.y;
    return place;
}

}  // namespace prancheta
