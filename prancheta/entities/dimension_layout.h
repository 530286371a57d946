// SPDX-License-Identifier: MIT
// How a dimension stands: where lines, arrows and text of an aligned dimension go.
#pragma once

#include <string>

#include "dbdim.h"
#include "dbsymtb.h"

namespace prancheta {

/// Values of the dimension's style (the database's current one for a null id, the standard ones
/// without a database) with the dimension's own scale; `dimscale` is never 0.
AcDbDimStyleValues styleValues(const AcDbDimension& dimension);

/// Sizes of a style in drawing units, already multiplied by its scale.
struct DimensionSizes {
    explicit DimensionSizes(const AcDbDimStyleValues& style);
    double arrow, extensionOffset, extensionBeyond, textHeight, gap;
};

/// Frame and places of an aligned dimension. `along` and `across` are unit vectors, x and y when
/// the points coincide.
struct AlignedLayout {
    explicit AlignedLayout(const AcDbAlignedDimension& dimension);

    AcGeVector3d along;  ///< from the first to the second extension line
    AcGeVector3d
        across;          ///< towards the dimension line; left of `along` when that is on the points
    AcGeVector3d slant;  ///< direction of the extension lines, unit
    AcGePoint3d first;   ///< dimension line at the first extension line
    AcGePoint3d second;  ///< dimension line at the second extension line
    AcGeVector3d reading;  ///< direction of the text: readable from below or from the right
};

/// True when the style puts the text on the dimension line instead of above it.
bool textOnLine(const AcDbDimStyleValues& style, const AlignedLayout& layout);

/// Room of the text along the dimension line.
struct TextRoom {
    TextRoom(const AcDbAlignedDimension& dimension, const AcDbDimStyleValues& style,
             const AlignedLayout& layout);

    double length;  ///< of the text
    /// Between the extension lines; otherwise it stands, in its default position, beyond the second
    /// one over a continued dimension line. Points that coincide have no beyond.
    bool between;
    double beyond;  ///< middle of a text that stands outside, from the second extension line
    double end;     ///< end of the line under it, from there
};

/// Draws lines, arrows and text through the dimension's own traits.
void drawAligned(const AcDbAlignedDimension& dimension, AcGiGeometry& to);

/// Point on the dimension line at the second extension line: the point that files name.
AcGePoint3d definitionPoint10(const AcDbAlignedDimension& dimension);

/// A measured value as the style writes it, with decimal separator and suppressed zeros.
std::wstring measureText(double value, const AcDbDimStyleValues& style);

}  // namespace prancheta
