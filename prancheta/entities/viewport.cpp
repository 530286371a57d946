// SPDX-License-Identifier: MIT
// Viewports.
#include "dbviewport.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <optional>

#include "dbsymtb.h"
#include "prancheta/entities/common.h"
#include "prancheta/entities/listing.h"
#include "prancheta/entities/viewports.h"

using namespace prancheta;

ACRX_DXF_DEFINE_MEMBERS(AcDbViewport, AcDbEntity, 0, 0, 0, VIEWPORT, "Prancheta")

namespace {

// Bits of group 90.
constexpr Adesk::Int32 kLockedBit = 16384;
constexpr Adesk::Int32 kClippedBit = 65536;
constexpr Adesk::Int32 kOffBit = 131072;
constexpr int kSheetsOwn = 1;
constexpr double kQuarter = std::numbers::pi / 2.0;

/// Sides of the frame that corners 0 to 3 take along; all four corners move it as a whole.
struct MovedSides {
    explicit MovedSides(const AcDbIntArray& corners) {
        bool corner[4] = {};
        for (const int index : corners)
            if (index >= 0 && index < 4) corner[index] = true;
        left = corner[0] || corner[3];
        right = corner[1] || corner[2];
        bottom = corner[0] || corner[1];
        top = corner[2] || corner[3];
        all = corner[0] && corner[1] && corner[2] && corner[3];
        // Two sides of a rectangle that go different ways would make none of it.
        if (left && right && !all) left = right = false;
        if (bottom && top && !all) bottom = top = false;
    }
    bool left, right, bottom, top, all;
};

/// Whole quarter turns that a map makes of the x axis; nothing for an angle between.
std::optional<int> quarterTurns(const AcGeMatrix3d& m) {
    const AcGeVector3d x = m * AcGeVector3d::kXAxis;
    const double turns = std::atan2(x.y, x.x) / kQuarter;
    const double whole = std::round(turns);
    if (std::abs(turns - whole) > 1e-9) return {};
    return static_cast<int>(whole);
}

}  // namespace

bool AcDbViewport::isOn() const { return m_status != 0 && (m_flags & kOffBit) == 0; }
bool AcDbViewport::isLocked() const { return (m_flags & kLockedBit) != 0; }

bool AcDbViewport::isNonRectClipOn() const {
    return !m_clip.isNull() && !m_clip.isErased() && (m_flags & kClippedBit) != 0;
}

Acad::ErrorStatus AcDbViewport::setNonRectClipEntityId(AcDbObjectId outline) {
    if (!isWriteEnabled()) return Acad::eNotOpenForWrite;
    assertWriteEnabled();
    m_clip = outline;
    m_flags = outline.isNull() ? m_flags & ~kClippedBit : m_flags | kClippedBit;
    return Acad::eOk;
}

bool AcDbViewport::isLayerFrozenInViewport(AcDbObjectId layer) const {
    return std::find(m_frozen.begin(), m_frozen.end(), layer) != m_frozen.end();
}

#define PRANCHETA_SETTER(NAME, TYPE, GOOD, CHANGE)            \
    Acad::ErrorStatus AcDbViewport::NAME(TYPE value) {        \
        if (!isWriteEnabled()) return Acad::eNotOpenForWrite; \
        if (!(GOOD)) return Acad::eInvalidInput;              \
        assertWriteEnabled();                                 \
        CHANGE;                                               \
        return Acad::eOk;                                     \
    }

PRANCHETA_SETTER(setCenterPoint, const AcGePoint3d&, true, m_center = value)
PRANCHETA_SETTER(setWidth, double, value > 0.0, m_width = value)
PRANCHETA_SETTER(setHeight, double, value > 0.0, m_height = value)
PRANCHETA_SETTER(setViewCenter, const AcGePoint2d&, true, m_viewCenter = value)
PRANCHETA_SETTER(setViewHeight, double, value > 0.0, m_viewHeight = value)
PRANCHETA_SETTER(setViewTarget, const AcGePoint3d&, true, m_target = value)
PRANCHETA_SETTER(setTwistAngle, double, true, m_twist = value)
PRANCHETA_SETTER(setCustomScale, double, value > 0.0, m_viewHeight = m_height / value)
PRANCHETA_SETTER(setNumber, Adesk::Int16, value > 0, m_number = value)
PRANCHETA_SETTER(setFrozenLayers, const std::vector<AcDbObjectId>&, true, m_frozen = value)

#undef PRANCHETA_SETTER

Acad::ErrorStatus AcDbViewport::setFiledState(Adesk::Int16 status, Adesk::Int32 flags) {
    if (!isWriteEnabled()) return Acad::eNotOpenForWrite;
    assertWriteEnabled();
    m_status = status;
    m_flags = flags;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbViewport::setOn() {
    return setFiledState(m_status != 0 ? m_status : m_number, m_flags & ~kOffBit);
}
Acad::ErrorStatus AcDbViewport::setOff() { return setFiledState(0, m_flags | kOffBit); }
Acad::ErrorStatus AcDbViewport::setLocked() {
    return setFiledState(m_status, m_flags | kLockedBit);
}
Acad::ErrorStatus AcDbViewport::setUnlocked() {
    return setFiledState(m_status, m_flags & ~kLockedBit);
}

AcGeMatrix3d AcDbViewport::modelToSheet() const {
    const AcGeVector3d middle(m_viewCenter.x, m_viewCenter.y, 0.0);
    return AcGeMatrix3d::translation(m_center.asVector()) * AcGeMatrix3d::scaling(customScale()) *
           AcGeMatrix3d::translation(-middle) *
           AcGeMatrix3d::rotation(m_twist, AcGeVector3d::kZAxis) *
           AcGeMatrix3d::translation(-m_target.asVector());
}

Acad::ErrorStatus AcDbViewport::dwgOutFields(AcDbDwgFiler* filer) const {
    const Acad::ErrorStatus es = AcDbEntity::dwgOutFields(filer);
    if (es != Acad::eOk) return es;
    filer->writeInt16(kFieldsVersion);
    filer->writePoint3d(m_center);
    filer->writePoint3d(m_target);
    for (const double number :
         {m_viewCenter.x, m_viewCenter.y, m_width, m_height, m_viewHeight, m_twist})
        filer->writeDouble(number);
    filer->writeInt32(m_flags);
    filer->writeInt16(m_status);
    filer->writeInt16(m_number);
    filer->writeSoftOwnershipId(m_clip);
    filer->writeUInt32(static_cast<Adesk::UInt32>(m_frozen.size()));
    for (const AcDbObjectId& layer : m_frozen) filer->writeSoftPointerId(layer);
    return filer->filerStatus();
}

Acad::ErrorStatus AcDbViewport::dwgInFields(AcDbDwgFiler* filer) {
    Acad::ErrorStatus es = AcDbEntity::dwgInFields(filer);
    if (es == Acad::eOk) es = readVersion(filer);
    if (es != Acad::eOk) return es;
    filer->readPoint3d(&m_center);
    filer->readPoint3d(&m_target);
    for (double* const number :
         {&m_viewCenter.x, &m_viewCenter.y, &m_width, &m_height, &m_viewHeight, &m_twist})
        filer->readDouble(number);
    filer->readInt32(&m_flags);
    filer->readInt16(&m_status);
    filer->readInt16(&m_number);
    AcDbSoftOwnershipId clip;
    filer->readSoftOwnershipId(&clip);
    m_clip = clip;
    if (m_clip.isNull()) m_flags &= ~kClippedBit;
    Adesk::UInt32 count = 0;
    filer->readUInt32(&count);
    m_frozen.clear();
    for (; count > 0 && filer->filerStatus() == Acad::eOk; --count) {
        AcDbSoftPointerId layer;
        filer->readSoftPointerId(&layer);
        if (!layer.isNull()) m_frozen.push_back(layer);
    }
    return filer->filerStatus();
}

Adesk::Boolean AcDbViewport::subWorldDraw(AcGiWorldDraw* draw) {
    if (m_number == kSheetsOwn) return Adesk::kTrue;
    AcGePoint3dArray corners;
    AcDbIntArray none;
    (void)subGetStretchPoints(corners, none, none);
    corners.append(AcGePoint3d(corners[0]));
    draw->geometry().polyline(5, corners.asArrayPtr());
    return Adesk::kTrue;
}

/// What is seen stays upright: a mirror only moves the frame.
Acad::ErrorStatus AcDbViewport::subTransformBy(const AcGeMatrix3d& m) {
    if (!m.isUniScaledOrtho()) return Acad::eCannotScaleNonUniformly;
    const std::optional<int> turns = quarterTurns(m);
    if (!turns) return Acad::eNotApplicable;
    assertWriteEnabled();
    m_center.transformBy(m);
    const double scale = m.scale();
    m_width *= scale;
    m_height *= scale;
    m_viewHeight *= scale;
    if (m.det() > 0.0 && *turns != 0) {
        const AcGeVector3d middle =
            AcGeMatrix3d::rotation(*turns * kQuarter, AcGeVector3d::kZAxis) *
            AcGeVector3d(m_viewCenter.x, m_viewCenter.y, 0.0);
        m_viewCenter = {middle.x, middle.y};
        m_twist += *turns * kQuarter;
    }
    if (*turns % 2 != 0) {
        const double shown = customScale();
        std::swap(m_width, m_height);
        m_viewHeight = m_height / shown;
    }
    xDataTransformBy(m);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbViewport::subExplode(AcDbVoidPtrArray&) const {
    return Acad::eCannotExplodeEntity;
}

void AcDbViewport::subList() const {
    assertReadEnabled();
    AcDbEntity::subList();
    const double scale = customScale();
    listPoint(L"Centro da janela,", m_center);
    listNumber(L"Largura =", m_width);
    listNumber(L"Altura =", m_height);
    listText(L"Escala",
             scale < 1.0 ? L"1:" + commaText(1.0 / scale, 2) : commaText(scale, 2) + L":1");
    listText(L"Vista", std::wstring(isOn() ? L"ligada" : L"desligada") +
                           (isLocked() ? L", travada" : L", destravada"));
    listText(L"Anotação", sizesAnnotations(*this) ? L"na escala da janela" : L"como no modelo");
    if (isNonRectClipOn()) listText(L"Recorte", L"pelo contorno de um objeto da folha");
    if (m_twist != 0.0) listAngle(L"Torção =", m_twist);
    for (const AcDbObjectId& layer : m_frozen) {
        const AcDbObjectPointer<AcDbLayerTableRecord> record(layer, AcDb::kForRead);
        const ACHAR* name = nullptr;
        if (record.openStatus() == Acad::eOk && record->getName(name) == Acad::eOk)
            listText(L"Congelada nesta janela:", name);
    }
}

Acad::ErrorStatus AcDbViewport::subGetGripPoints(AcGePoint3dArray& points, AcDbIntArray& modes,
                                                 AcDbIntArray& ids) const {
    if (m_number == kSheetsOwn) return Acad::eOk;
    points.append(m_center);
    return subGetStretchPoints(points, modes, ids);
}

Acad::ErrorStatus AcDbViewport::subGetStretchPoints(AcGePoint3dArray& points, AcDbIntArray&,
                                                    AcDbIntArray&) const {
    if (m_number == kSheetsOwn) return Acad::eOk;
    for (const auto& [x, y] : {std::pair(-1, -1), {1, -1}, {1, 1}, {-1, 1}})
        points.append(m_center + AcGeVector3d(x * m_width / 2.0, y * m_height / 2.0, 0.0));
    return Acad::eOk;
}

/// A frame that would be turned over stays as it is.
void AcDbViewport::setFrame(double left, double bottom, double right, double top) {
    if (!(left < right) || !(bottom < top)) return;
    const double scale = customScale();
    const AcGePoint3d middle((left + right) / 2.0, (bottom + top) / 2.0, m_center.z);
    m_viewCenter.x += (middle.x - m_center.x) / scale;
    m_viewCenter.y += (middle.y - m_center.y) / scale;
    m_center = middle;
    m_width = right - left;
    m_height = top - bottom;
    m_viewHeight = m_height / scale;
}

Acad::ErrorStatus AcDbViewport::subMoveStretchPointsAt(const AcDbIntArray& indices,
                                                       const AcGeVector3d& offset) {
    assertWriteEnabled();
    const MovedSides moved(indices);
    if (moved.all) {
        m_center += offset;
        return Acad::eOk;
    }
    const double x = m_width / 2.0;
    const double y = m_height / 2.0;
    setFrame(m_center.x - x + (moved.left ? offset.x : 0.0),
             m_center.y - y + (moved.bottom ? offset.y : 0.0),
             m_center.x + x + (moved.right ? offset.x : 0.0),
             m_center.y + y + (moved.top ? offset.y : 0.0));
    return Acad::eOk;
}

/// Grip 0 is the middle, the corners follow it.
Acad::ErrorStatus AcDbViewport::subMoveGripPointsAt(const AcDbIntArray& indices,
                                                    const AcGeVector3d& offset) {
    assertWriteEnabled();
    if (indices.contains(0)) {
        m_center += offset;
        return Acad::eOk;
    }
    AcDbIntArray corners;
    for (const int index : indices) corners.append(index - 1);
    return subMoveStretchPointsAt(corners, offset);
}
