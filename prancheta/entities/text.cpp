// SPDX-License-Identifier: MIT
// One line of text.
#include <utility>

#include "dbents.h"
#include "prancheta/entities/common.h"
#include "prancheta/entities/foreign_motion.h"
#include "prancheta/entities/listing.h"
#include "prancheta/entities/text_layout.h"

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

Acad::ErrorStatus AcDbText::setNormal(const AcGeVector3d& normal) {
    if (!isWriteEnabled()) return Acad::eNotOpenForWrite;
    if (normal.isZeroLength()) return Acad::eInvalidInput;
    assertWriteEnabled();
    m_normal = normal.normal();
    justify();
    return Acad::eOk;
}

Acad::ErrorStatus AcDbText::mirrorInX(bool backwards) {
    if (!isWriteEnabled()) return Acad::eNotOpenForWrite;
    assertWriteEnabled();
    m_backwards = backwards;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbText::mirrorInY(bool upsideDown) {
    if (!isWriteEnabled()) return Acad::eNotOpenForWrite;
    assertWriteEnabled();
    m_upsideDown = upsideDown;
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
    filer->writeVector3d(m_normal);
    filer->writeBool(m_backwards);
    filer->writeBool(m_upsideDown);
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
    filer->readVector3d(&m_normal);
    filer->readBool(&m_backwards);
    filer->readBool(&m_upsideDown);
    return filer->filerStatus();
}

Adesk::Boolean AcDbText::subWorldDraw(AcGiWorldDraw* draw) {
    const TextPlace place = shownPlaceOf(*this);
    draw->geometry().text(place.start, m_normal, place.direction, place.height, place.widthFactor,
                          place.oblique, m_text.c_str());
    return Adesk::kTrue;
}

Acad::ErrorStatus AcDbText::subTransformBy(const AcGeMatrix3d& m) {
    assertWriteEnabled();
    const TextPlace place = placeOf(*this);
    const AcGeVector3d offset = alignmentOffset(*this);
    const AcGeVector3d middle = middleOf(*this);
    const AcGeVector3d along = m * place.direction;
    const AcGeVector3d up = m * m_normal.crossProduct(place.direction);
    m_normal = mappedNormal(m, m_normal);
    const bool behind = along.crossProduct(up).dotProduct(m_normal) < 0.0;
    const bool readable = isReadable(planeToWorld(m_normal).inverse() * along);
    // A mirror keeps the text readable in the mirrored place: either its foot becomes its head, or
    // its right end its left one.
    AcGeVector3d shift;
    if (behind) shift = readable ? up * (2.0 * middle.y) : along * (2.0 * middle.x);
    const bool turned = behind && !readable;

    m_position.transformBy(m);
    m_alignment.transformBy(m);
    xDataTransformBy(m);
    if (m.isUniScaledOrtho()) m_height *= m.scale();
    if (!along.isZeroLength()) m_rotation = angleInPlane(turned ? -along : along, m_normal);
    if (standsBetweenPoints(*this)) {
        if (turned) std::swap(m_position, m_alignment);
        if (behind && readable) {
            m_position += shift;
            m_alignment += shift;
        }
        return Acad::eOk;
    }
    m_position = m * place.start + shift;
    const AcGeVector3d reading = directionInPlane(m_rotation, m_normal);
    const AcGeVector3d rise = m_normal.crossProduct(reading);
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
    if (m_backwards) listText(L"letras", L"de trás para frente");
    if (m_upsideDown) listText(L"letras", L"de cabeça para baixo");
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
