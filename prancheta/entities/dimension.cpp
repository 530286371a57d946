// SPDX-License-Identifier: MIT
// What all dimensions have: style, text, scale, and the points by which they stand.
#include "dbdim.h"
#include "prancheta/entities/common.h"
#include "prancheta/entities/dimension_layout.h"
#include "prancheta/entities/filed_dimension.h"
#include "prancheta/entities/listing.h"
#include "prancheta/entities/picture_entities.h"
#include "prancheta/entities/tag_list.h"
#include "prancheta/graphics/picture_recorder.h"

using namespace prancheta;

ACRX_NO_CONS_DEFINE_MEMBERS(AcDbDimension, AcDbEntity)

// --- Values --------------------------------------------------------------------------------------

Acad::ErrorStatus AcDbDimension::setDimensionStyle(AcDbObjectId id) {
    if (!isWriteEnabled()) return Acad::eNotOpenForWrite;
    assertChange();
    if (own() != nullptr || !id.isNull()) makeOwn().style = id;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbDimension::setDimensionText(const ACHAR* text) {
    if (!isWriteEnabled()) return Acad::eNotOpenForWrite;
    assertChange();
    const std::wstring_view wanted = text != nullptr ? text : L"";
    if (own() != nullptr || !wanted.empty()) makeOwn().text = wanted;
    return Acad::eOk;
}

AcGePoint3d AcDbDimension::textPosition() const {
    if (!isUsingDefaultTextPosition()) return own()->textPosition;
    if (const FiledDimension* const as = filed()) return as->textMiddle;
    DimensionLayout layout(*this);
    layOut(layout);
    return layout.textMiddle;
}

Acad::ErrorStatus AcDbDimension::setTextPosition(const AcGePoint3d& p) {
    if (!isWriteEnabled()) return Acad::eNotOpenForWrite;
    assertChange();
    makeOwn().textPosition = p;
    makeOwn().userTextPosition = true;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbDimension::useDefaultTextPosition() {
    if (!isWriteEnabled()) return Acad::eNotOpenForWrite;
    assertChange();
    if (own() != nullptr) makeOwn().userTextPosition = false;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbDimension::setTextRotation(double angle) {
    if (!isWriteEnabled()) return Acad::eNotOpenForWrite;
    assertChange();
    if (own() != nullptr || angle != 0.0) makeOwn().textRotation = angle;
    return Acad::eOk;
}

double AcDbDimension::dimscale() const { return styleValues(*this).dimscale; }

Acad::ErrorStatus AcDbDimension::setDimscale(double scale) {
    if (!isWriteEnabled()) return Acad::eNotOpenForWrite;
    if (!(scale >= 0.0)) return Acad::eInvalidInput;
    assertChange();
    if (own() != nullptr || scale != 0.0) makeOwn().dimscale = scale;
    return Acad::eOk;
}

std::wstring AcDbDimension::shownText() const {
    const std::wstring measured = measuredText(*this);
    const std::wstring text = dimensionTextConst();
    return text.empty() ? measured : withMeasure(text, measured);
}

const FiledDimension* AcDbDimension::filed() const {
    const bool stands = m_filed && !m_filed->block.isErased() && m_filed->style == styleMark(*this);
    return stands ? m_filed.get() : nullptr;
}

// --- Points --------------------------------------------------------------------------------------

std::span<AcGePoint3d> AcDbDimension::points() {
    const std::span<const AcGePoint3d> all = definitionPoints();
    return {const_cast<AcGePoint3d*>(all.data()), all.size()};  // this object's own, not const here
}

Acad::ErrorStatus AcDbDimension::setDefinitionPoint(std::size_t index, const AcGePoint3d& p) {
    if (!isWriteEnabled()) return Acad::eNotOpenForWrite;
    if (index >= points().size()) return Acad::eInvalidIndex;
    assertChange();
    points()[index] = p;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbDimension::subTransformBy(const AcGeMatrix3d& m) {
    if (!m.isUniScaledOrtho()) return Acad::eCannotScaleNonUniformly;
    if (m == AcGeMatrix3d::kIdentity) return Acad::eOk;
    assertChange();
    for (AcGePoint3d& p : points()) p.transformBy(m);
    if (own() != nullptr) {
        Own& mine = makeOwn();
        mine.textPosition.transformBy(m);
        if (m.det() < 0.0) mine.oblique = 0.0 - mine.oblique;
        if (mine.textRotation != 0.0) {
            AcGeVector3d reading = m * directionInPlane(mine.textRotation, AcGeVector3d::kZAxis);
            // Readable in a mirror, too.
            if (m.det() < 0.0 && (reading.x < -1e-9 || (reading.x < 1e-9 && reading.y < 0.0)))
                reading = -reading;
            mine.textRotation = angleInPlane(reading, AcGeVector3d::kZAxis);
        }
    }
    xDataTransformBy(m);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbDimension::subGetGripPoints(AcGePoint3dArray& points, AcDbIntArray&,
                                                  AcDbIntArray&) const {
    for (const AcGePoint3d& p : definitionPoints()) points.append(p);
    points.append(textPosition());
    return Acad::eOk;
}

Acad::ErrorStatus AcDbDimension::subMoveGripPointsAt(const AcDbIntArray& indices,
                                                     const AcGeVector3d& offset) {
    assertChange();
    const std::span<AcGePoint3d> all = points();
    const AcGePoint3d text = textPosition();
    const int count = static_cast<int>(all.size());
    for (int i = 0; i < count; ++i)
        if (indices.contains(i)) all[static_cast<std::size_t>(i)] += offset;
    if (indices.contains(count)) return moveText(text + offset);
    if (!isUsingDefaultTextPosition() && indices.length() >= count)
        makeOwn().textPosition += offset;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbDimension::subGetStretchPoints(AcGePoint3dArray& points, AcDbIntArray& modes,
                                                     AcDbIntArray& ids) const {
    AcGePoint3dArray grips;
    (void)subGetGripPoints(grips, modes, ids);  // answers always
    const int count = grips.length() - (isUsingDefaultTextPosition() ? 1 : 0);
    for (int i = 0; i < count; ++i) points.append(grips[i]);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbDimension::subGetOsnapPoints(AcDb::OsnapMode mode, Adesk::GsMarker marker,
                                                   const AcGePoint3d& pick, const AcGePoint3d& last,
                                                   const AcGeMatrix3d& view,
                                                   AcGePoint3dArray& points,
                                                   AcDbIntArray& geomIds) const {
    if (mode != AcDb::kOsModeNode)
        return AcDbEntity::subGetOsnapPoints(mode, marker, pick, last, view, points, geomIds);
    DimensionLayout layout(*this);
    layOut(layout);
    const std::span<const AcGePoint3d> all = definitionPoints();
    for (std::size_t i = 0; i < measuredPoints(); ++i) points.append(all[i]);
    for (const AcGePoint3d& p : {layout.filedPoint, textPosition()}) points.append(p);
    return Acad::eOk;
}

// --- Picture -------------------------------------------------------------------------------------

Adesk::Boolean AcDbDimension::subWorldDraw(AcGiWorldDraw* draw) {
    drawDimension(*this, *draw);
    return Adesk::kTrue;
}

Acad::ErrorStatus AcDbDimension::subExplode(AcDbVoidPtrArray& set) const {
    assertReadEnabled();
    Picture picture;
    PictureRecorder recorder(picture);
    recorder.begin(traitsOf(*this));
    drawDimension(*this, recorder);
    appendEntities(picture, set);
    return Acad::eOk;
}

void AcDbDimension::subList() const {
    assertReadEnabled();
    AcDbEntity::subList();
    const std::span<const AcGePoint3d> all = definitionPoints();
    for (std::size_t i = 0; i < all.size(); ++i)
        listPoint(i < measuredPoints() ? L"ponto " + std::to_wstring(i + 1) + L","
                                       : std::wstring(L"linha de cota por,"),
                  all[i]);
    listPoint(L"posição do texto,", textPosition());
    if (isAngular())
        listAngle(L"medida", measurement());
    else
        listNumber(L"medida", measurement());
    listText(L"texto", shownText());
    listNumber(L"escala da cota", dimscale());
}

// --- Filing --------------------------------------------------------------------------------------

Acad::ErrorStatus AcDbDimension::dwgOutFields(AcDbDwgFiler* filer) const {
    const Acad::ErrorStatus es = AcDbEntity::dwgOutFields(filer);
    if (es != Acad::eOk) return es;
    filer->writeInt16(kFieldsVersion);
    for (const AcGePoint3d& p : definitionPoints()) filer->writePoint3d(p);
    filer->writeBool(own() != nullptr);
    if (own() != nullptr) {
        filer->writeHardPointerId(own()->style);
        filer->writeString(own()->text.c_str());
        filer->writePoint3d(own()->textPosition);
        filer->writeBool(own()->userTextPosition);
        for (const double value : {own()->dimscale, own()->oblique, own()->textRotation})
            filer->writeDouble(value);
    }
    filer->writeBool(m_filed != nullptr);
    if (m_filed == nullptr) return filer->filerStatus();
    filer->writeHardPointerId(m_filed->block);
    filer->writePoint3d(m_filed->textMiddle);
    filer->writeBytes(&m_filed->style, sizeof m_filed->style);
    writeTags(*filer, m_filed->tags);
    writeTags(*filer, m_filed->xdata);
    return filer->filerStatus();
}

namespace {

std::shared_ptr<const FiledDimension> readFiled(AcDbDwgFiler& filer) {
    auto filed = std::make_shared<FiledDimension>();
    AcDbHardPointerId block;
    filer.readHardPointerId(&block);
    filed->block = block;
    filer.readPoint3d(&filed->textMiddle);
    filer.readBytes(&filed->style, sizeof filed->style);
    for (PackedTags* const groups : {&filed->tags, &filed->xdata}) {
        RawTags read;
        if (readTags(filer, read) != Acad::eOk) return nullptr;
        *groups = read;
    }
    return filed->block.isNull() ? nullptr : filed;
}

}  // namespace

Acad::ErrorStatus AcDbDimension::dwgInFields(AcDbDwgFiler* filer) {
    Acad::ErrorStatus es = AcDbEntity::dwgInFields(filer);
    if (es == Acad::eOk) es = readVersion(filer);
    if (es != Acad::eOk) return es;
    for (AcGePoint3d& p : points()) filer->readPoint3d(&p);
    bool said = false;
    filer->readBool(&said);
    m_own.reset();
    if (said) {
        Own& read = makeOwn();
        AcDbHardPointerId style;
        filer->readHardPointerId(&style);
        read.style = style;
        es = readText(filer, read.text);
        if (es != Acad::eOk) return es;
        filer->readPoint3d(&read.textPosition);
        filer->readBool(&read.userTextPosition);
        for (double* const value : {&read.dimscale, &read.oblique, &read.textRotation})
            filer->readDouble(value);
    }
    bool filed = false;
    filer->readBool(&filed);
    m_filed = filed ? readFiled(*filer) : nullptr;
    return filer->filerStatus();
}
