// SPDX-License-Identifier: MIT
// One line of text.
#include <cmath>
#include <utility>

#include "dbents.h"
#include "prancheta/entities/common.h"
#include "prancheta/entities/listing.h"
#include "prancheta/entities/text_layout.h"
#include "prancheta/graphics/text_metrics.h"

using namespace prancheta;

ACRX_DXF_DEFINE_MEMBERS(AcDbText, AcDbEntity, 0, 0, 0, TEXT, "Prancheta")

AcDbText::AcDbText(const AcGePoint3d& position, const ACHAR* text, AcDbObjectId style,
                   double height, double rotation)
    : m_position(position),
      m_text(text != nullptr ? text : L""),
      m_style(style),
      m_height(height > 0.0 ? height : 2.5),
      m_rotation(rotation) {}

void AcDbText::justify() {
    if (!standsBetweenPoints(*this)) m_position = placeOf(*this).start;
}

Acad::ErrorStatus AcDbText::setPosition(const AcGePoint3d& p) {
    if (!isWriteEnabled()) return Acad::eNotOpenForWrite;
    assertWriteEnabled();
    m_position = p;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbText::setAlignmentPoint(const AcGePoint3d& p) {
    if (!isWriteEnabled()) return Acad::eNotOpenForWrite;
    assertWriteEnabled();
    m_alignment = p;
    justify();
    return Acad::eOk;
}

Acad::ErrorStatus AcDbText::setTextString(const ACHAR* text) {
    if (!isWriteEnabled()) return Acad::eNotOpenForWrite;
    if (text == nullptr) return Acad::eInvalidInput;
    assertWriteEnabled();
    m_text = text;
    justify();
    return Acad::eOk;
}

Acad::ErrorStatus AcDbText::setHeight(double height) {
    if (!isWriteEnabled()) return Acad::eNotOpenForWrite;
    if (!(height > 0.0)) return Acad::eInvalidInput;
    assertWriteEnabled();
    m_height = height;
    justify();
    return Acad::eOk;
}

Acad::ErrorStatus AcDbText::setRotation(double angle) {
    if (!isWriteEnabled()) return Acad::eNotOpenForWrite;
    assertWriteEnabled();
    m_rotation = angle;
    justify();
    return Acad::eOk;
}

Acad::ErrorStatus AcDbText::setWidthFactor(double factor) {
    if (!isWriteEnabled()) return Acad::eNotOpenForWrite;
    if (!(factor > 0.0)) return Acad::eInvalidInput;
    assertWriteEnabled();
    m_widthFactor = factor;
    justify();
    return Acad::eOk;
}

Acad::ErrorStatus AcDbText::setOblique(double angle) {
    if (!isWriteEnabled()) return Acad::eNotOpenForWrite;
    assertWriteEnabled();
    m_oblique = angle;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbText::setTextStyle(AcDbObjectId id) {
    if (!isWriteEnabled()) return Acad::eNotOpenForWrite;
    assertWriteEnabled();
    m_style = id;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbText::setHorizontalMode(int mode) {
    if (!isWriteEnabled()) return Acad::eNotOpenForWrite;
    if (mode < 0 || mode > 5) return Acad::eInvalidInput;
    assertWriteEnabled();
    m_horizontal = static_cast<Adesk::Int16>(mode);
    justify();
    return Acad::eOk;
}

Acad::ErrorStatus AcDbText::setVerticalMode(int mode) {
    if (!isWriteEnabled()) return Acad::eNotOpenForWrite;
    if (mode < 0 || mode > 3) return Acad::eInvalidInput;
    assertWriteEnabled();
    m_vertical = static_cast<Adesk::Int16>(mode);
    justify();
    return Acad::eOk;
}

Acad::ErrorStatus AcDbText::dwgOutFields(AcDbDwgFiler* filer) const {
    const Acad::ErrorStatus es = AcDbEntity::dwgOutFields(filer);
    if (es != Acad::eOk) return es;
    filer->writeInt16(kFieldsVersion);
    filer->writePoint3d(m_position);
    filer->writePoint3d(m_alignment);
    filer->writeString(m_text.c_str());
    filer->writeHardPointerId(m_style);
    for (const double v : {m_height, m_rotation, m_widthFactor, m_oblique}) filer->writeDouble(v);
    filer->writeInt16(m_horizontal);
    filer->writeInt16(m_vertical);
    return filer->filerStatus();
}

Acad::ErrorStatus AcDbText::dwgInFields(AcDbDwgFiler* filer) {
    Acad::ErrorStatus es = AcDbEntity::dwgInFields(filer);
    if (es == Acad::eOk) es = readVersion(filer);
    if (es != Acad::eOk) return es;
    filer->readPoint3d(&m_position);
    filer->readPoint3d(&m_alignment);
    es = readText(filer, m_text);
    if (es != Acad::eOk) return es;
    AcDbHardPointerId style;
    filer->readHardPointerId(&style);
    m_style = style;
    for (double* v : {&m_height, &m_rotation, &m_widthFactor, &m_oblique}) filer->readDouble(v);
    filer->readInt16(&m_horizontal);
    filer->readInt16(&m_vertical);
    return filer->filerStatus();
}

Adesk::Boolean AcDbText::subWorldDraw(AcGiWorldDraw* draw) {
    const TextPlace place = placeOf(*this);
    draw->geometry().text(place.start, AcGeVector3d::kZAxis, place.direction, place.height,
                          place.widthFactor, m_oblique, m_text.c_str());
    return Adesk::kTrue;
}

Acad::ErrorStatus AcDbText::subTransformBy(const AcGeMatrix3d& m) {
    assertWriteEnabled();
    const TextPlace place = placeOf(*this);
    const AcGeVector3d offset = alignmentOffset(*this);
    const double width = textWidth(m_text, place.height, place.widthFactor);
    const AcGeVector3d along = m * place.direction;
    const AcGeVector3d up = m * AcGeVector3d::kZAxis.crossProduct(place.direction);
    const bool behind = along.crossProduct(up).z < 0.0;
    const bool readable = along.x > 1e-9 || (along.x > -1e-9 && along.y > 0.0);
    // A mirror keeps the text readable in the mirrored place: either its foot becomes its head, or
    // its right end its left one.
    AcGeVector3d shift;
    if (behind) shift = readable ? up * place.height : along * width;
    const bool turned = behind && !readable;

    m_position.transformBy(m);
    m_alignment.transformBy(m);
    xDataTransformBy(m);
    if (m.isUniScaledOrtho()) m_height *= m.scale();
    if (std::hypot(along.x, along.y) > 1e-9)
        m_rotation = angleInPlane(turned ? -along : along, AcGeVector3d::kZAxis);
    if (standsBetweenPoints(*this)) {
        if (turned) std::swap(m_position, m_alignment);
        if (behind && readable) {
            m_position += shift;
            m_alignment += shift;
        }
        return Acad::eOk;
    }
    m_position = m * place.start + shift;
    const AcGeVector3d reading = directionInPlane(m_rotation, AcGeVector3d::kZAxis);
    const AcGeVector3d rise = AcGeVector3d::kZAxis.crossProduct(reading);
    const double scale = m.isUniScaledOrtho() ? m.scale() : 1.0;
    m_alignment = m_position + (reading * offset.x + rise * offset.y) * scale;
    return Acad::eOk;
}

void AcDbText::subList() const {
    assertReadEnabled();
    AcDbEntity::subList();
    listText(L"texto", m_text);
    listPoint(L"a partir do ponto,", m_position);
    listNumber(L"altura", m_height);
    listDirection(L"ângulo de rotação", m_rotation);
    listNumber(L"fator de largura", m_widthFactor);
}

Acad::ErrorStatus AcDbText::subGetGripPoints(AcGePoint3dArray& points, AcDbIntArray&,
                                             AcDbIntArray&) const {
    points.append(m_position);
    if (m_horizontal != 0 || m_vertical != 0) points.append(m_alignment);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbText::subMoveGripPointsAt(const AcDbIntArray& indices,
                                                const AcGeVector3d& offset) {
    assertWriteEnabled();
    if (indices.isEmpty()) return Acad::eOk;
    const bool both = !standsBetweenPoints(*this);
    if (both || indices.contains(0)) m_position += offset;
    if (both || indices.contains(1)) m_alignment += offset;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbText::subGetStretchPoints(AcGePoint3dArray& points, AcDbIntArray&,
                                                AcDbIntArray&) const {
    const bool aligned = m_horizontal != 0 || m_vertical != 0;
    if (!aligned || standsBetweenPoints(*this)) points.append(m_position);
    if (aligned) points.append(m_alignment);
    return Acad::eOk;
}
