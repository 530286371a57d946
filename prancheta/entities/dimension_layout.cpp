// SPDX-License-Identifier: MIT
// How a dimension stands.
#include "prancheta/entities/dimension_layout.h"

#include <algorithm>
#include <cmath>

#include "prancheta/entities/common.h"
#include "prancheta/entities/listing.h"
#include "prancheta/graphics/text_metrics.h"

namespace prancheta {

namespace {

/// Bits of DIMZIN for decimal numbers.
constexpr int kSuppressLeadingZero = 4;
constexpr int kSuppressTrailingZeros = 8;

AcDbObjectId styleOf(const AcDbDimension& dimension) {
    if (!dimension.dimensionStyle().isNull()) return dimension.dimensionStyle();
    const AcDbDatabase* database = dimension.database();
    if (database == nullptr) database = acdbHostApplicationServices()->workingDatabase();
    return database != nullptr ? database->dimstyle() : AcDbObjectId::kNull;
}

double positiveOr(double value, double otherwise) { return value > 0.0 ? value : otherwise; }

/// Turned by half a turn when it would read upside down.
AcGeVector3d readable(const AcGeVector3d& along) {
    const bool reads = along.x > 1e-9 || (along.x > -1e-9 && along.y > 0.0);
    return reads ? along : -along;
}

}  // namespace

AcDbDimStyleValues styleValues(const AcDbDimension& dimension) {
    AcDbDimStyleValues values;
    const AcDbObjectPointer<AcDbDimStyleTableRecord> style(styleOf(dimension), AcDb::kForRead);
    if (style.openStatus() == Acad::eOk) values = style->values();
    values.dimscale = positiveOr(dimension.ownDimscale(), positiveOr(values.dimscale, 1.0));
    return values;
}

DimensionSizes::DimensionSizes(const AcDbDimStyleValues& style)
    : arrow(style.dimasz * style.dimscale),
      extensionOffset(style.dimexo * style.dimscale),
      extensionBeyond(style.dimexe * style.dimscale),
      textHeight(style.dimtxt * style.dimscale),
      gap(std::abs(style.dimgap) * style.dimscale) {}

AlignedLayout::AlignedLayout(const AcDbAlignedDimension& dimension) {
    const AcGePoint3d from = dimension.xLine1Point();
    const AcGePoint3d to = dimension.xLine2Point();
    along = AcGeVector3d(to.x - from.x, to.y - from.y, 0.0);
    along = along.isZeroLength() ? AcGeVector3d::kXAxis : along.normal();
    across = AcGeVector3d::kZAxis.crossProduct(along);
    double distance = (dimension.dimLinePoint() - from).dotProduct(across);
    if (distance < 0.0) {
        across = -across;
        distance = -distance;
    }
    slant = across;
    if (dimension.oblique() != 0.0) {
        slant = along;
        slant.rotateBy(dimension.oblique(), AcGeVector3d::kZAxis);
        if (slant.dotProduct(across) < 0.0) slant = -slant;
        // Extension lines along the dimension line would never reach it.
        if (slant.dotProduct(across) < 1e-6) slant = across;
    }
    const double reach = distance / slant.dotProduct(across);
    first = from + slant * reach;
    second = to + slant * reach;
    reading = readable(along);
}

bool textOnLine(const AcDbDimStyleValues& style, const AlignedLayout& layout) {
    const bool level = layout.reading.isEqualTo(AcGeVector3d::kXAxis);
    return style.dimtad == 0 || (style.dimtih != 0 && !level);
}

TextRoom::TextRoom(const AcDbAlignedDimension& dimension, const AcDbDimStyleValues& style,
                   const AlignedLayout& layout) {
    const DimensionSizes sizes(style);
    length = textWidth(dimension.shownText(), sizes.textHeight, 1.0);
    const double room = (layout.second - layout.first).length();
    between = room <= 1e-9 || length + 2.0 * sizes.gap <= room || textOnLine(style, layout);
    beyond = sizes.arrow + sizes.gap + length / 2.0;
    end = beyond + length / 2.0 + sizes.gap;
}

AcGePoint3d definitionPoint10(const AcDbAlignedDimension& dimension) {
    return AlignedLayout(dimension).second;
}

std::wstring measureText(double value, const AcDbDimStyleValues& style) {
    // Halves go up, also when turning the piece has left them a hair below.
    std::wstring text = fixedText(value + 1e-9, std::clamp<int>(style.dimdec, 0, 8));
    const std::size_t point = text.find(L'.');
    if (point == std::wstring::npos) return text;
    if ((style.dimzin & kSuppressTrailingZeros) != 0) {
        text.erase(text.find_last_not_of(L'0') + 1);
        if (text.back() == L'.') {
            text.pop_back();
            return text;
        }
    }
    text[point] = style.dimdsep > 0 ? static_cast<wchar_t>(style.dimdsep) : L'.';
    if ((style.dimzin & kSuppressLeadingZero) != 0 && text.size() > 2 && text.front() == L'0')
        text.erase(0, 1);
    return text;
}

}  // namespace prancheta
