// SPDX-License-Identifier: MIT
// Aligned dimension.
#include "dbdim.h"
#include "prancheta/entities/common.h"
#include "prancheta/entities/dimension_layout.h"
#include "prancheta/entities/listing.h"
#include "prancheta/entities/picture_entities.h"
#include "prancheta/graphics/picture_recorder.h"

using namespace prancheta;

ACRX_DXF_DEFINE_MEMBERS(AcDbAlignedDimension, AcDbDimension, 0, 0, 0, DIMENSION, "Prancheta")

AcDbAlignedDimension::AcDbAlignedDimension(const AcGePoint3d& xLine1, const AcGePoint3d& xLine2,
                                           const AcGePoint3d& dimLinePoint, const ACHAR* text,
                                           AcDbObjectId style)
    : m_xLine1(xLine1), m_xLine2(xLine2), m_dimLine(dimLinePoint) {
    if (text != nullptr) (void)setDimensionText(text);
    if (!style.isNull()) (void)setDimensionStyle(style);
}

Acad::ErrorStatus AcDbAlignedDimension::setXLine1Point(const AcGePoint3d& p) {
    if (!isWriteEnabled()) return Acad::eNotOpenForWrite;
    assertWriteEnabled();
    m_xLine1 = p;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbAlignedDimension::setXLine2Point(const AcGePoint3d& p) {
    if (!isWriteEnabled()) return Acad::eNotOpenForWrite;
    assertWriteEnabled();
    m_xLine2 = p;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbAlignedDimension::setDimLinePoint(const AcGePoint3d& p) {
    if (!isWriteEnabled()) return Acad::eNotOpenForWrite;
    assertWriteEnabled();
    m_dimLine = p;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbAlignedDimension::setOblique(double angle) {
    if (!isWriteEnabled()) return Acad::eNotOpenForWrite;
    assertWriteEnabled();
    if (own() != nullptr || angle != 0.0) makeOwn().oblique = angle;
    return Acad::eOk;
}

double AcDbAlignedDimension::measurement() const { return m_xLine1.distanceTo(m_xLine2); }

AcGePoint3d AcDbAlignedDimension::defaultTextPosition() const {
    const AlignedLayout layout(*this);
    const AcGePoint3d middle = layout.first + (layout.second - layout.first) * 0.5;
    const AcDbDimStyleValues style = styleValues(*this);
    if (textOnLine(style, layout)) return middle;
    const DimensionSizes sizes(style);
    const AcGeVector3d up = AcGeVector3d::kZAxis.crossProduct(layout.reading);
    const AcGeVector3d above = up * (sizes.gap + sizes.textHeight / 2.0);
    const TextRoom room(*this, style, layout);
    return (room.between ? middle : layout.second + layout.along * room.beyond) + above;
}

Acad::ErrorStatus AcDbAlignedDimension::dwgOutFields(AcDbDwgFiler* filer) const {
    const Acad::ErrorStatus es = AcDbDimension::dwgOutFields(filer);
    if (es != Acad::eOk) return es;
    filer->writeInt16(kFieldsVersion);
    for (const AcGePoint3d& p : {m_xLine1, m_xLine2, m_dimLine}) filer->writePoint3d(p);
    return filer->filerStatus();
}

Acad::ErrorStatus AcDbAlignedDimension::dwgInFields(AcDbDwgFiler* filer) {
    Acad::ErrorStatus es = AcDbDimension::dwgInFields(filer);
    if (es == Acad::eOk) es = readVersion(filer);
    if (es != Acad::eOk) return es;
    for (AcGePoint3d* p : {&m_xLine1, &m_xLine2, &m_dimLine}) filer->readPoint3d(p);
    return filer->filerStatus();
}

Adesk::Boolean AcDbAlignedDimension::subWorldDraw(AcGiWorldDraw* draw) {
    drawAligned(*this, draw->geometry());
    return Adesk::kTrue;
}

Acad::ErrorStatus AcDbAlignedDimension::subTransformBy(const AcGeMatrix3d& m) {
    if (!m.isUniScaledOrtho()) return Acad::eCannotScaleNonUniformly;
    assertWriteEnabled();
    for (AcGePoint3d* p : {&m_xLine1, &m_xLine2, &m_dimLine}) p->transformBy(m);
    if (own() != nullptr) {
        makeOwn().textPosition.transformBy(m);
        if (m.det() < 0.0) makeOwn().oblique = 0.0 - own()->oblique;
    }
    xDataTransformBy(m);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbAlignedDimension::subExplode(AcDbVoidPtrArray& set) const {
    assertReadEnabled();
    Picture picture;
    PictureRecorder recorder(picture);
    recorder.begin(traitsOf(*this));
    drawAligned(*this, recorder.geometry());
    appendEntities(picture, set);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbAlignedDimension::subGetOsnapPoints(
    AcDb::OsnapMode mode, Adesk::GsMarker marker, const AcGePoint3d& pick, const AcGePoint3d& last,
    const AcGeMatrix3d& view, AcGePoint3dArray& points, AcDbIntArray& geomIds) const {
    if (mode != AcDb::kOsModeNode)
        return AcDbEntity::subGetOsnapPoints(mode, marker, pick, last, view, points, geomIds);
    for (const AcGePoint3d& p : {m_xLine1, m_xLine2, definitionPoint10(*this), textPosition()})
        points.append(p);
    return Acad::eOk;
}

void AcDbAlignedDimension::subList() const {
    assertReadEnabled();
    AcDbEntity::subList();
    listPoint(L"primeiro ponto,", m_xLine1);
    listPoint(L"segundo ponto,", m_xLine2);
    listPoint(L"linha de cota por,", m_dimLine);
    listPoint(L"posição do texto,", textPosition());
    listNumber(L"medida", measurement());
    listText(L"texto", shownText());
    listNumber(L"escala da cota", dimscale());
}

Acad::ErrorStatus AcDbAlignedDimension::subGetGripPoints(AcGePoint3dArray& points, AcDbIntArray&,
                                                         AcDbIntArray&) const {
    const AlignedLayout layout(*this);
    for (const AcGePoint3d& p : {m_xLine1, m_xLine2, layout.first, layout.second, textPosition()})
        points.append(p);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbAlignedDimension::subGetStretchPoints(AcGePoint3dArray& points, AcDbIntArray&,
                                                            AcDbIntArray&) const {
    const AlignedLayout layout(*this);
    for (const AcGePoint3d& p : {m_xLine1, m_xLine2, layout.first, layout.second}) points.append(p);
    if (!isUsingDefaultTextPosition()) points.append(textPosition());
    return Acad::eOk;
}

Acad::ErrorStatus AcDbAlignedDimension::subMoveGripPointsAt(const AcDbIntArray& indices,
                                                            const AcGeVector3d& offset) {
    assertWriteEnabled();
    const AcGePoint3d text = textPosition();
    if (indices.contains(0)) m_xLine1 += offset;
    if (indices.contains(1)) m_xLine2 += offset;
    if (indices.contains(2) || indices.contains(3)) m_dimLine += offset;
    if (indices.contains(4)) {
        makeOwn().textPosition = text + offset;
        makeOwn().userTextPosition = true;
    } else if (!isUsingDefaultTextPosition() && indices.length() >= 4) {
        makeOwn().textPosition += offset;
    }
    return Acad::eOk;
}
