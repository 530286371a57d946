// SPDX-License-Identifier: MIT
// Layers, linetypes, text styles, dimension styles, registered applications.
#include <cmath>

#include "prancheta/database/dim_variables.h"
#include "prancheta/database/memory_filer.h"
#include "prancheta/database/object_access.h"
#include "prancheta/geometry/angles.h"

using namespace prancheta;

ACRX_DXF_DEFINE_MEMBERS(AcDbLinetypeTableRecord, AcDbSymbolTableRecord, 0, 0, 0, LTYPE, "")
ACRX_DXF_DEFINE_MEMBERS(AcDbLayerTableRecord, AcDbSymbolTableRecord, 0, 0, 0, LAYER, "")
ACRX_DXF_DEFINE_MEMBERS(AcDbTextStyleTableRecord, AcDbSymbolTableRecord, 0, 0, 0, STYLE, "")
ACRX_DXF_DEFINE_MEMBERS(AcDbDimStyleTableRecord, AcDbSymbolTableRecord, 0, 0, 0, DIMSTYLE, "")
ACRX_DXF_DEFINE_MEMBERS(AcDbRegAppTableRecord, AcDbSymbolTableRecord, 0, 0, 0, APPID, "")

namespace {

constexpr int kMaxDashes = 64;

/// Sets a member of an object that is open for write.
template <class Object, class Value>
Acad::ErrorStatus assign(Object& object, Value& member, const Value& value) {
    if (!object.isWriteEnabled()) return Acad::eNotOpenForWrite;
    object.assertWriteEnabled();
    member = value;
    return Acad::eOk;
}

}  // namespace

// --- Linetypes -----------------------------------------------------------------------------------

Acad::ErrorStatus AcDbLinetypeTableRecord::setComments(const ACHAR* text) {
    return assign(*this, m_comments, std::wstring(text != nullptr ? text : L""));
}
Acad::ErrorStatus AcDbLinetypeTableRecord::setNumDashes(int count) {
    if (count < 0 || count > kMaxDashes) return Acad::eInvalidInput;
    std::vector<double> dashes = m_dashes;
    dashes.resize(static_cast<std::size_t>(count));
    return assign(*this, m_dashes, dashes);
}
Acad::ErrorStatus AcDbLinetypeTableRecord::setDashLengthAt(int index, double length) {
    if (index < 0 || index >= numDashes()) return Acad::eInvalidIndex;
    if (!std::isfinite(length)) return Acad::eInvalidInput;
    return assign(*this, m_dashes[static_cast<std::size_t>(index)], length);
}
double AcDbLinetypeTableRecord::patternLength() const {
    double sum = 0.0;
    for (double dash : m_dashes) sum += std::abs(dash);
    return sum;
}
Acad::ErrorStatus AcDbLinetypeTableRecord::dwgOutFields(AcDbDwgFiler* filer) const {
    AcDbSymbolTableRecord::dwgOutFields(filer);
    writeText(*filer, m_comments);
    filer->writeUInt8(static_cast<Adesk::UInt8>(m_dashes.size()));
    for (double dash : m_dashes) filer->writeDouble(dash);
    return filer->filerStatus();
}
Acad::ErrorStatus AcDbLinetypeTableRecord::dwgInFields(AcDbDwgFiler* filer) {
    AcDbSymbolTableRecord::dwgInFields(filer);
    m_comments = readText(*filer);
    Adesk::UInt8 count = 0;
    filer->readUInt8(&count);
    m_dashes.resize(count);
    for (double& dash : m_dashes) filer->readDouble(&dash);
    return filer->filerStatus();
}

// --- Layers --------------------------------------------------------------------------------------

Acad::ErrorStatus AcDbLayerTableRecord::setIsFrozen(bool frozen) {
    if (frozen && database() != nullptr && database()->clayer() == objectId())
        return Acad::eInvalidLayer;
    return assign(*this, m_frozen, frozen);
}
Acad::ErrorStatus AcDbLayerTableRecord::setIsLocked(bool locked) {
    return assign(*this, m_locked, locked);
}
Acad::ErrorStatus AcDbLayerTableRecord::setIsOff(bool off) { return assign(*this, m_off, off); }
Acad::ErrorStatus AcDbLayerTableRecord::setIsPlottable(bool plottable) {
    return assign(*this, m_plottable, plottable);
}
Acad::ErrorStatus AcDbLayerTableRecord::setColorIndex(Adesk::UInt16 index) {
    if (index < 1 || index > 255) return Acad::eInvalidInput;
    const Acad::ErrorStatus es = assign(*this, m_color, index);
    if (es == Acad::eOk) ObjectAccess::dropTrueColor(*this);
    return es;
}
AcDbObjectId AcDbLayerTableRecord::linetypeObjectId() const {
    if (m_linetype.isNull() && database() != nullptr) return database()->continuousLinetype();
    return m_linetype;
}
Acad::ErrorStatus AcDbLayerTableRecord::setLinetypeObjectId(AcDbObjectId id) {
    if (id.isNull()) return Acad::eNullObjectId;
    if (id.objectClass() != AcDbLinetypeTableRecord::desc()) return Acad::eWrongObjectType;
    return assign(*this, m_linetype, id);
}
Acad::ErrorStatus AcDbLayerTableRecord::setLineWeight(AcDb::LineWeight weight) {
    if (weight < AcDb::kLnWtByLwDefault || weight > AcDb::kLnWt211) return Acad::eInvalidInput;
    return assign(*this, m_lineWeight, static_cast<Adesk::Int16>(weight));
}
Acad::ErrorStatus AcDbLayerTableRecord::dwgOutFields(AcDbDwgFiler* filer) const {
    AcDbSymbolTableRecord::dwgOutFields(filer);
    filer->writeHardPointerId(m_linetype);
    filer->writeUInt16(m_color);
    filer->writeInt16(m_lineWeight);
    for (bool flag : {m_frozen, m_locked, m_off, m_plottable}) filer->writeBool(flag);
    return filer->filerStatus();
}
Acad::ErrorStatus AcDbLayerTableRecord::dwgInFields(AcDbDwgFiler* filer) {
    AcDbSymbolTableRecord::dwgInFields(filer);
    AcDbHardPointerId linetype;
    filer->readHardPointerId(&linetype);
    m_linetype = linetype;
    filer->readUInt16(&m_color);
    filer->readInt16(&m_lineWeight);
    for (bool* flag : {&m_frozen, &m_locked, &m_off, &m_plottable}) filer->readBool(flag);
    return filer->filerStatus();
}

// --- Text styles ---------------------------------------------------------------------------------

Acad::ErrorStatus AcDbTextStyleTableRecord::setTextSize(double size) {
    if (!(size >= 0.0) || !std::isfinite(size)) return Acad::eInvalidInput;
    return assign(*this, m_textSize, size);
}
Acad::ErrorStatus AcDbTextStyleTableRecord::setXScale(double scale) {
    if (!(scale > 0.0) || !std::isfinite(scale)) return Acad::eInvalidInput;
    return assign(*this, m_xScale, scale);
}
Acad::ErrorStatus AcDbTextStyleTableRecord::setObliquingAngle(double angle) {
    constexpr double kMost = 85.0 * kPi / 180.0;
    if (!(std::abs(angle) < kMost)) return Acad::eInvalidInput;
    return assign(*this, m_oblique, angle);
}
Acad::ErrorStatus AcDbTextStyleTableRecord::setFileName(const ACHAR* name) {
    return assign(*this, m_fileName, std::wstring(name != nullptr ? name : L""));
}
Acad::ErrorStatus AcDbTextStyleTableRecord::dwgOutFields(AcDbDwgFiler* filer) const {
    AcDbSymbolTableRecord::dwgOutFields(filer);
    filer->writeDouble(m_textSize);
    filer->writeDouble(m_xScale);
    filer->writeDouble(m_oblique);
    writeText(*filer, m_fileName);
    return filer->filerStatus();
}
Acad::ErrorStatus AcDbTextStyleTableRecord::dwgInFields(AcDbDwgFiler* filer) {
    AcDbSymbolTableRecord::dwgInFields(filer);
    filer->readDouble(&m_textSize);
    filer->readDouble(&m_xScale);
    filer->readDouble(&m_oblique);
    m_fileName = readText(*filer);
    return filer->filerStatus();
}

// --- Dimension styles ----------------------------------------------------------------------------

Acad::ErrorStatus AcDbDimStyleTableRecord::setValues(const AcDbDimStyleValues& values) {
    const Acad::ErrorStatus es = assign(*this, m_values, values);
    if (es == Acad::eOk && database() != nullptr) database()->core().recordChanged(*this);
    return es;
}
Acad::ErrorStatus AcDbDimStyleTableRecord::setDimtxsty(AcDbObjectId id) {
    if (id.isNull()) return Acad::eNullObjectId;
    if (id.objectClass() != AcDbTextStyleTableRecord::desc()) return Acad::eWrongObjectType;
    const Acad::ErrorStatus es = assign(*this, m_textStyle, id);
    if (es == Acad::eOk && database() != nullptr) database()->core().recordChanged(*this);
    return es;
}
Acad::ErrorStatus AcDbDimStyleTableRecord::dwgOutFields(AcDbDwgFiler* filer) const {
    AcDbSymbolTableRecord::dwgOutFields(filer);
    for (const DimVariable& variable : dimVariables()) {
        if (variable.real != nullptr) filer->writeDouble(m_values.*variable.real);
        if (variable.integer != nullptr) filer->writeInt16(m_values.*variable.integer);
        if (variable.text != nullptr) filer->writeString((m_values.*variable.text).c_str());
        if (variable.block != nullptr) filer->writeHardPointerId(m_values.*variable.block);
    }
    filer->writeHardPointerId(m_textStyle);
    return filer->filerStatus();
}
Acad::ErrorStatus AcDbDimStyleTableRecord::dwgInFields(AcDbDwgFiler* filer) {
    AcDbSymbolTableRecord::dwgInFields(filer);
    AcDbHardPointerId style;
    for (const DimVariable& variable : dimVariables()) {
        if (variable.real != nullptr) filer->readDouble(&(m_values.*variable.real));
        if (variable.integer != nullptr) filer->readInt16(&(m_values.*variable.integer));
        if (variable.text != nullptr) m_values.*variable.text = readText(*filer);
        if (variable.block == nullptr) continue;
        filer->readHardPointerId(&style);
        m_values.*variable.block = style;
    }
    filer->readHardPointerId(&style);
    m_textStyle = style;
    if (database() != nullptr) database()->core().recordChanged(*this);
    return filer->filerStatus();
}
