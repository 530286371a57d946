// SPDX-License-Identifier: MIT
// Dimensions of radii and diameters.
#include <algorithm>
#include <cmath>

#include "dbdim.h"
#include "prancheta/entities/common.h"
#include "prancheta/entities/dimension_layout.h"

using namespace prancheta;

ACRX_DXF_DEFINE_MEMBERS(AcDbRadialDimension, AcDbDimension, 0, 0, 0, DIMENSION, "Prancheta")
ACRX_DXF_DEFINE_MEMBERS(AcDbDiametricDimension, AcDbDimension, 0, 0, 0, DIMENSION, "Prancheta")

namespace {

AcGeVector3d directionOf(const AcGePoint3d& from, const AcGePoint3d& to) {
    AcGeVector3d along = to - from;
    along.z = 0.0;
    return along.isZeroLength() ? AcGeVector3d::kXAxis : along.normal();
}

/// The line from `inner` to `outer`, a point of the circle, with the text on it when it fits there
/// and none is asked for outside; else a leader from `outer` outwards. `both`: an arrow at the
/// inner end, too.
void layOutLine(const AcGePoint3d& inner, const AcGePoint3d& outer, double leader, bool both,
                DimensionLayout& out) {
    const DimensionSizes& sizes = out.sizes;
    const AcGeVector3d along = directionOf(inner, outer);
    const double length = inner.distanceTo(outer);
    const double arrows = both ? 2.0 * sizes.arrow : sizes.arrow;
    const bool fits = out.textLength + 2.0 * sizes.gap + arrows <= length;
    out.filedPoint = inner;
    if (leader <= 0.0 && (fits || out.style.dimtix != 0)) {
        out.read(along, out.style.dimtih != 0);
        const bool onLine = out.textOnLine() || out.style.dimtih != 0;
        out.putText(inner + (outer - inner) * 0.5, !onLine);
        out.arrow(outer, along, 1);
        if (both) out.arrow(inner, -along, 0);
        out.openLine(both ? inner + along * sizes.arrow : inner, outer - along * sizes.arrow,
                     onLine && !out.userPosition ? out.opening(along) : 0.0);
        return;
    }
    const AcGePoint3d end = outer + along * std::max(leader, 2.0 * sizes.arrow);
    out.arrow(outer, -along, 1);
    out.line(outer + along * sizes.arrow, end);
    const bool level = out.style.dimtoh != 0;
    out.read(along, level);
    // The text goes on where the line ends, level ones behind a hook.
    const AcGeVector3d onwards = !level          ? along
                                 : along.x < 0.0 ? -AcGeVector3d::kXAxis
                                                 : AcGeVector3d::kXAxis;
    const AcGePoint3d hook = level ? end + onwards * sizes.arrow : end;
    const AcGePoint3d middle = hook + onwards * (sizes.gap + out.textLength / 2.0);
    out.putText(middle, !out.textOnLine());
    if (out.userPosition) return;
    out.line(end, out.textOnLine() ? hook : middle + onwards * (out.textLength / 2.0));
}

double leaderTo(const AcGePoint3d& inner, const AcGePoint3d& outer, const AcGePoint3d& text,
                const DimensionLayout& layout) {
    const double beyond = inner.distanceTo(text) - inner.distanceTo(outer);
    const double hook = layout.style.dimtoh != 0 ? layout.sizes.arrow : 0.0;
    // A text outside begins where the leader ends.
    return beyond <= 0.0 ? 0.0
                         : std::max(beyond - layout.textLength / 2.0 - layout.sizes.gap - hook,
                                    layout.sizes.arrow);
}

}  // namespace

PranchetaRadialDimension::PranchetaRadialDimension(const AcGePoint3d& a, const AcGePoint3d& b,
                                                   double leaderLength, const ACHAR* text,
                                                   AcDbObjectId style)
    : m_points{a, b}, m_leaderLength(leaderLength) {
    if (text != nullptr) (void)setDimensionText(text);
    if (!style.isNull()) (void)setDimensionStyle(style);
}

Acad::ErrorStatus PranchetaRadialDimension::setLeaderLength(double length) {
    if (!isWriteEnabled()) return Acad::eNotOpenForWrite;
    assertChange();
    m_leaderLength = length;
    return Acad::eOk;
}

void PranchetaRadialDimension::layOut(DimensionLayout& out) const {
    layOutLine(innerPoint(), chordPoint(), m_leaderLength, !innerPoint().isEqualTo(middle()), out);
}

Acad::ErrorStatus PranchetaRadialDimension::moveText(const AcGePoint3d& p) {
    if (!isWriteEnabled()) return Acad::eNotOpenForWrite;
    assertChange();
    const AcGePoint3d centre = middle();
    const AcGeVector3d along = directionOf(centre, p);
    const double inner = centre.distanceTo(innerPoint());
    const double radius = centre.distanceTo(chordPoint());
    setLine(centre - along * inner, centre + along * radius);
    m_leaderLength = leaderTo(centre, chordPoint(), p, DimensionLayout(*this));
    return useDefaultTextPosition();
}

Acad::ErrorStatus PranchetaRadialDimension::subTransformBy(const AcGeMatrix3d& m) {
    const Acad::ErrorStatus es = AcDbDimension::subTransformBy(m);
    if (es == Acad::eOk) m_leaderLength *= m.scale();
    return es;
}

Acad::ErrorStatus PranchetaRadialDimension::dwgOutFields(AcDbDwgFiler* filer) const {
    const Acad::ErrorStatus es = AcDbDimension::dwgOutFields(filer);
    if (es != Acad::eOk) return es;
    filer->writeDouble(m_leaderLength);
    return filer->filerStatus();
}

Acad::ErrorStatus PranchetaRadialDimension::dwgInFields(AcDbDwgFiler* filer) {
    const Acad::ErrorStatus es = AcDbDimension::dwgInFields(filer);
    if (es == Acad::eOk) filer->readDouble(&m_leaderLength);
    return es;
}
