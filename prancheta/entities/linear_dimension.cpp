// SPDX-License-Identifier: MIT
// Aligned and rotated dimensions.
#include <cmath>

#include "dbdim.h"
#include "prancheta/entities/common.h"
#include "prancheta/entities/dimension_layout.h"

using namespace prancheta;

ACRX_DXF_DEFINE_MEMBERS(AcDbAlignedDimension, AcDbDimension, 0, 0, 0, DIMENSION, "Prancheta")
ACRX_DXF_DEFINE_MEMBERS(AcDbRotatedDimension, AcDbDimension, 0, 0, 0, DIMENSION, "Prancheta")

namespace {

/// Where the parts of a linear dimension go. `along` and `across` are unit vectors.
struct Frame {
    AcGeVector3d along;  ///< from the first to the second extension line
    AcGeVector3d
        across;          ///< towards the dimension line; left of `along` when that is on the points
    AcGeVector3d slant;  ///< direction of the extension lines, to the side of `across`
    AcGePoint3d first;   ///< dimension line at the first extension line
    AcGePoint3d second;
};

Frame frameOf(const PranchetaLinearDimension& dimension) {
    const AcGePoint3d from = dimension.xLine1Point();
    const AcGePoint3d to = dimension.xLine2Point();
    Frame f;
    f.along = dimension.measuredAlong();
    if ((to - from).dotProduct(f.along) < 0.0) f.along = -f.along;
    f.across = AcGeVector3d::kZAxis.crossProduct(f.along);
    const AcGePoint3d line = dimension.dimLinePoint();
    // The side of the origin that is farther from the line says it for both.
    const double one = (line - from).dotProduct(f.across);
    const double other = (line - to).dotProduct(f.across);
    if ((std::abs(one) >= std::abs(other) ? one : other) < 0.0) f.across = -f.across;
    f.slant = f.across;
    if (dimension.oblique() != 0.0) {
        f.slant = f.along;
        f.slant.rotateBy(dimension.oblique(), AcGeVector3d::kZAxis);
        if (f.slant.dotProduct(f.across) < 0.0) f.slant = -f.slant;
        // Extension lines along the dimension line would never reach it.
        if (f.slant.dotProduct(f.across) < 1e-6) f.slant = f.across;
    }
    const double reach = 1.0 / f.slant.dotProduct(f.across);
    f.first = from + f.slant * ((line - from).dotProduct(f.across) * reach);
    f.second = to + f.slant * ((line - to).dotProduct(f.across) * reach);
    f.first.z = from.z;
    f.second.z = to.z;
    return f;
}

/// From a little off the measured point to a little beyond the dimension line.
void extensionLine(const AcGePoint3d& origin, const AcGePoint3d& foot, const Frame& f,
                   DimensionLayout& out) {
    double distance = (foot - origin).dotProduct(f.slant);
    const AcGeVector3d slant = distance < 0.0 ? -f.slant : f.slant;
    distance = std::abs(distance) + out.sizes.extensionBeyond;
    if (distance <= out.sizes.extensionOffset) return;
    out.line(origin + slant * out.sizes.extensionOffset, origin + slant * distance,
             DimensionPart::Kind::Extension);
}

}  // namespace

PranchetaLinearDimension::PranchetaLinearDimension(const AcGePoint3d& xLine1,
                                                   const AcGePoint3d& xLine2,
                                                   const AcGePoint3d& dimLinePoint,
                                                   const ACHAR* text, AcDbObjectId style)
    : m_points{xLine1, xLine2, dimLinePoint} {
    if (text != nullptr) (void)setDimensionText(text);
    if (!style.isNull()) (void)setDimensionStyle(style);
}

Acad::ErrorStatus PranchetaLinearDimension::setOblique(double angle) {
    if (!isWriteEnabled()) return Acad::eNotOpenForWrite;
    assertChange();
    if (own() != nullptr || angle != 0.0) makeOwn().oblique = angle;
    return Acad::eOk;
}

void PranchetaLinearDimension::layOut(DimensionLayout& out) const {
    const Frame f = frameOf(*this);
    const DimensionSizes& sizes = out.sizes;
    if (out.style.dimse1 == 0) extensionLine(xLine1Point(), f.first, f, out);
    if (out.style.dimse2 == 0) extensionLine(xLine2Point(), f.second, f, out);

    // A text beyond the second line stands over a continued dimension line. Points that coincide
    // have no beyond.
    const double length = (f.second - f.first).length();
    const bool level = out.style.dimtih != 0;
    out.read(f.along, level);
    const bool onLine =
        out.textOnLine() || (level && std::abs(f.along.dotProduct(AcGeVector3d::kYAxis)) > 1e-9);
    const bool between = length <= 1e-9 || out.textLength + 2.0 * sizes.gap <= length || onLine ||
                         out.style.dimtix != 0;
    const double beyond = sizes.arrow + sizes.gap + out.textLength / 2.0;
    out.putText(between ? f.first + (f.second - f.first) * 0.5 : f.second + f.along * beyond,
                !onLine);
    out.filedPoint = f.second;

    const bool textBeyond = !out.userPosition && !between;
    const bool inside = length >= 2.0 * (sizes.arrow + sizes.gap) && !textBeyond;
    const double opening = !out.userPosition && onLine ? out.opening(f.along) : 0.0;
    const AcGeVector3d arm = f.along * sizes.arrow;
    const AcGeVector3d outwards = inside ? f.along : -f.along;
    out.arrow(f.first, -outwards, 0);
    out.arrow(f.second, outwards, 1);
    if (inside) {
        // Strokes stand across a line that goes through them.
        const AcGeVector3d tail = out.style.dimtsz > 0.0 ? AcGeVector3d() : arm;
        out.openLine(f.first + tail, f.second - tail, opening);
        return;
    }
    // Arrows that do not fit stand outside, each with a tail of its own length.
    out.openLine(f.first, f.second, opening);
    out.line(f.first - arm, f.first - arm * 2.0);
    const double end = textBeyond ? beyond + out.textLength / 2.0 + sizes.gap : sizes.arrow * 2.0;
    out.line(f.second + arm, f.second + f.along * end);
}

Acad::ErrorStatus PranchetaLinearDimension::subGetGripPoints(AcGePoint3dArray& points,
                                                             AcDbIntArray&, AcDbIntArray&) const {
    const Frame f = frameOf(*this);
    for (const AcGePoint3d& p : {xLine1Point(), xLine2Point(), f.first, f.second, textPosition()})
        points.append(p);
    return Acad::eOk;
}

Acad::ErrorStatus PranchetaLinearDimension::subMoveGripPointsAt(const AcDbIntArray& indices,
                                                                const AcGeVector3d& offset) {
    assertChange();
    const AcGePoint3d text = textPosition();
    if (indices.contains(0)) m_points[0] += offset;
    if (indices.contains(1)) m_points[1] += offset;
    if (indices.contains(2) || indices.contains(3)) m_points[2] += offset;
    if (indices.contains(4)) return setTextPosition(text + offset);
    if (!isUsingDefaultTextPosition() && indices.length() >= 4) makeOwn().textPosition += offset;
    return Acad::eOk;
}

AcGePoint3d prancheta::definitionPoint10(const PranchetaLinearDimension& dimension) {
    return frameOf(dimension).second;
}

// --- Aligned -------------------------------------------------------------------------------------

AcGeVector3d AcDbAlignedDimension::measuredAlong() const {
    AcGeVector3d along = xLine2Point() - xLine1Point();
    along.z = 0.0;
    return along.isZeroLength() ? AcGeVector3d::kXAxis : along.normal();
}

// --- Rotated -------------------------------------------------------------------------------------

AcGeVector3d AcDbRotatedDimension::measuredAlong() const {
    return directionInPlane(m_rotation, AcGeVector3d::kZAxis);
}

double AcDbRotatedDimension::measurement() const {
    return std::abs((xLine2Point() - xLine1Point()).dotProduct(measuredAlong()));
}

Acad::ErrorStatus AcDbRotatedDimension::setRotation(double angle) {
    if (!isWriteEnabled()) return Acad::eNotOpenForWrite;
    assertChange();
    m_rotation = angle;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbRotatedDimension::subTransformBy(const AcGeMatrix3d& m) {
    const AcGeVector3d along = measuredAlong();
    const Acad::ErrorStatus es = AcDbDimension::subTransformBy(m);
    // What only moves keeps its angle to the last digit.
    if (es == Acad::eOk && !(m * along).isEqualTo(along * m.scale()))
        m_rotation = angleInPlane(m * along, AcGeVector3d::kZAxis);
    return es;
}

Acad::ErrorStatus AcDbRotatedDimension::dwgOutFields(AcDbDwgFiler* filer) const {
    const Acad::ErrorStatus es = AcDbDimension::dwgOutFields(filer);
    if (es != Acad::eOk) return es;
    filer->writeDouble(m_rotation);
    return filer->filerStatus();
}

Acad::ErrorStatus AcDbRotatedDimension::dwgInFields(AcDbDwgFiler* filer) {
    const Acad::ErrorStatus es = AcDbDimension::dwgInFields(filer);
    if (es == Acad::eOk) filer->readDouble(&m_rotation);
    return es;
}
