// SPDX-License-Identifier: MIT
// Where a text stands: from its justification to the left end of its baseline.
#pragma once

#include "dbents.h"

namespace prancheta {

/// Left end of the baseline, reading direction, and the sizes with which the text is drawn (aligned
/// and fitted texts derive them from their two points).
struct TextPlace {
    AcGePoint3d start;
    AcGeVector3d direction;
    double height;
    double widthFactor;
    double oblique = 0.0;
};
/// Of its letters as they would run if they were neither backwards nor upside down.
TextPlace placeOf(const AcDbText& text);
/// As they do: letters that are seen from behind have a width factor below 0.
TextPlace shownPlaceOf(const AcDbText& text);

/// From the left end of the baseline to the middle of what is shown, in the text's own frame.
AcGeVector3d middleOf(const AcDbText& text);

/// From the left end of the baseline to the alignment point in the text's own frame, x along the
/// baseline; for justifications by one point.
AcGeVector3d alignmentOffset(const AcDbText& text);

/// True for aligned and fitted texts, which stand between two points.
bool standsBetweenPoints(const AcDbText& text);

}  // namespace prancheta
