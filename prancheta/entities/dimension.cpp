// SPDX-License-Identifier: MIT
// What all dimensions have: style, text, scale.
#include "dbdim.h"
#include "prancheta/entities/common.h"
#include "prancheta/entities/dimension_layout.h"

using namespace prancheta;

ACRX_NO_CONS_DEFINE_MEMBERS(AcDbDimension, AcDbEntity)

Acad::ErrorStatus AcDbDimension::setDimensionStyle(AcDbObjectId id) {
    if (!isWriteEnabled()) return Acad::eNotOpenForWrite;
    assertWriteEnabled();
    m_style = id;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbDimension::setDimensionText(const ACHAR* text) {
    if (!isWriteEnabled()) return Acad::eNotOpenForWrite;
    assertWriteEnabled();
    m_text = text != nullptr ? text : L"";
    return Acad::eOk;
}

AcGePoint3d AcDbDimension::textPosition() const {
    return m_userTextPosition ? m_textPosition : defaultTextPosition();
}

Acad::ErrorStatus AcDbDimension::setTextPosition(const AcGePoint3d& p) {
    if (!isWriteEnabled()) return Acad::eNotOpenForWrite;
    assertWriteEnabled();
    m_textPosition = p;
    m_userTextPosition = true;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbDimension::useDefaultTextPosition() {
    if (!isWriteEnabled()) return Acad::eNotOpenForWrite;
    assertWriteEnabled();
    m_userTextPosition = false;
    return Acad::eOk;
}

double AcDbDimension::dimscale() const { return styleValues(*this).dimscale; }

Acad::ErrorStatus AcDbDimension::setDimscale(double scale) {
    if (!isWriteEnabled()) return Acad::eNotOpenForWrite;
    if (!(scale >= 0.0)) return Acad::eInvalidInput;
    assertWriteEnabled();
    m_dimscale = scale;
    return Acad::eOk;
}

std::wstring AcDbDimension::shownText() const {
    constexpr std::wstring_view kMeasured = L"<>";
    const std::wstring measured = measureText(measurement(), styleValues(*this));
    if (m_text.empty()) return measured;
    std::wstring shown;
    std::size_t from = 0;
    for (std::size_t at; (at = m_text.find(kMeasured, from)) != std::wstring::npos;
         from = at + kMeasured.size())
        shown.append(m_text, from, at - from).append(measured);
    return shown.append(m_text, from);
}

Acad::ErrorStatus AcDbDimension::dwgOutFields(AcDbDwgFiler* filer) const {
    const Acad::ErrorStatus es = AcDbEntity::dwgOutFields(filer);
    if (es != Acad::eOk) return es;
    filer->writeInt16(kFieldsVersion);
    filer->writeHardPointerId(m_style);
    filer->writeString(m_text.c_str());
    filer->writePoint3d(m_textPosition);
    filer->writeBool(m_userTextPosition);
    filer->writeDouble(m_dimscale);
    return filer->filerStatus();
}

Acad::ErrorStatus AcDbDimension::dwgInFields(AcDbDwgFiler* filer) {
    Acad::ErrorStatus es = AcDbEntity::dwgInFields(filer);
    if (es == Acad::eOk) es = readVersion(filer);
    if (es != Acad::eOk) return es;
    AcDbHardPointerId style;
    filer->readHardPointerId(&style);
    m_style = style;
    es = readText(filer, m_text);
    if (es != Acad::eOk) return es;
    filer->readPoint3d(&m_textPosition);
    filer->readBool(&m_userTextPosition);
    filer->readDouble(&m_dimscale);
    return filer->filerStatus();
}
