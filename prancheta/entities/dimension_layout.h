// SPDX-License-Identifier: MIT
// How a dimension stands: where its lines, arrows and text go.
#pragma once

#include <string>
#include <vector>

#include "dbdim.h"
#include "dbsymtb.h"

namespace prancheta {

/// Values of the dimension's style (the database's current one for a null id, the standard ones
/// without a database) with what the dimension says for itself in its extended data and with its
/// own scale; `dimscale` is never 0.
AcDbDimStyleValues styleValues(const AcDbDimension& dimension);
/// The same for what else follows a dimension style; `ownScale` 0 takes the style's.
AcDbDimStyleValues styleValues(const AcDbEntity& entity, AcDbObjectId style, double ownScale);

/// Takes what the dimension, open for write, says against its style out of its extended data.
void forgetOverrides(AcDbDimension& dimension);
/// DIMLFAC of the dimension alone: what it measures is multiplied by it. Open for write, or in no
/// drawing.
void setLengthFactor(AcDbDimension& dimension, double factor);

/// Sizes of a style in drawing units, already multiplied by its scale.
struct DimensionSizes {
    explicit DimensionSizes(const AcDbDimStyleValues& style);
    double arrow, extensionOffset, extensionBeyond, textHeight, gap;
};

/// A part of a dimension's picture but its text.
struct DimensionPart {
    enum class Kind { Extension, Line, Arc, Arrow };
    Kind kind;
    /// Of lines the ends, of an arc the centre and its start, of an arrow its tip and where its
    /// tail is, a unit away.
    AcGePoint3d a;
    AcGePoint3d b;
    double sweep = 0.0;  ///< of an arc, counter-clockwise
    int end = 0;         ///< of an arrow: at the first (0) or the second end (1)
};

/// Filled by the class of the dimension.
struct DimensionLayout {
    /// Style, sizes and text; the rest stays empty.
    explicit DimensionLayout(const AcDbDimension& dimension);

    void line(const AcGePoint3d& a, const AcGePoint3d& b,
              DimensionPart::Kind kind = DimensionPart::Kind::Line);
    /// `towards`: unit vector from tail to tip.
    void arrow(const AcGePoint3d& tip, const AcGeVector3d& towards, int end);
    /// Part of a dimension line between two points, with a gap in its middle.
    void openLine(const AcGePoint3d& a, const AcGePoint3d& b, double opening);
    /// Puts a text that stands over the line above its middle, one on the line there.
    void putText(const AcGePoint3d& onLine, bool over);
    /// Chooses the direction of the text for a line that runs along a unit vector.
    void read(const AcGeVector3d& along, bool level);
    /// True when the style puts the text on the dimension line instead of above it.
    bool textOnLine() const;
    /// Length that the text covers of a line along a unit vector, 0 when it does not stand on it.
    double opening(const AcGeVector3d& along) const;

    const AcDbDimStyleValues style;
    const DimensionSizes sizes;
    const std::wstring text;
    const double textLength;
    const bool userPosition;
    const double userRotation;
    std::vector<DimensionPart> parts;
    AcGePoint3d textMiddle;
    AcGeVector3d reading = AcGeVector3d::kXAxis;  ///< direction of the text
    AcGePoint3d filedPoint;  ///< of linear ones: the point of the line that files name
};

/// Draws a dimension with the colours of its style.
void drawDimension(const AcDbDimension& dimension, AcGiWorldDraw& to);

/// Point on the dimension line at the second extension line: the point that files name.
AcGePoint3d definitionPoint10(const PranchetaLinearDimension& dimension);

/// The text with each "<>" replaced.
std::wstring withMeasure(std::wstring_view text, std::wstring_view measure);
/// What the dimension measures, as its style writes it.
std::wstring measuredText(const AcDbDimension& dimension);
/// A measured value as the style writes it, with decimal separator and suppressed zeros.
std::wstring measureText(double value, const AcDbDimStyleValues& style);

}  // namespace prancheta
