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
    if (own() != nullptr || !id.isNull()) makeOwn().style = id;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbDimension::setDimensionText(const ACHAR* text) {
    if (!isWriteEnabled()) return Acad::eNotOpenForWrite;
    assertWriteEnabled();
    const std::wstring_view wanted = text != nullptr ? text : L"";
    if (own() != nullptr || !wanted.empty()) makeOwn().text = wanted;
    return Acad::eOk;
}

AcGePoint3d AcDbDimension::textPosition() const {
    return isUsingDefaultTextPosition() ? defaultTextPosition() : own()->textPosition;
}

Acad::ErrorStatus AcDbDimension::setTextPosition(const AcGePoint3d& p) {
    if (!isWriteEnabled()) return Acad::eNotOpenForWrite;
    assertWriteEnabled();
    makeOwn().textPosition = p;
    makeOwn().userTextPosition = true;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbDimension::useDefaultTextPosition() {
    if (!isWriteEnabled()) return Acad::eNotOpenForWrite;
    assertWriteEnabled();
    if (own() != nullptr) makeOwn().userTextPosition = false;
    return Acad::eOk;
}

double AcDbDimension::dimscale() const { return styleValues(*this).dimscale; }

Acad::ErrorStatus AcDbDimension::setDimscale(double scale) {
    if (!isWriteEnabled()) return Acad::eNotOpenForWrite;
    if (!(scale >= 0.0)) return Acad::eInvalidInput;
    assertWriteEnabled();
    if (own() != nullptr || scale != 0.0) makeOwn().dimscale = scale;
    return Acad::eOk;
}

std::wstring AcDbDimension::shownText() const {
    constexpr std::wstring_view kMeasured = L"<>";
    std::wstring measured = measureText(measurement(), styleValues(*this));
    const std::wstring text = dimensionTextConst();
    if (text.empty()) return measured;
    std::wstring shown;
    std::size_t from = 0;
    for (std::size_t at; (at = text.find(kMeasured, from)) != std::wstring::npos;
         from = at + kMeasured.size())
        shown.append(text, from, at - from).append(measured);
    return shown.append(text, from);
}

Acad::ErrorStatus AcDbDimension::dwgOutFields(AcDbDwgFiler* filer) const {
    const Acad::ErrorStatus es = AcDbEntity::dwgOutFields(filer);
    if (es != Acad::eOk) return es;
    filer->writeInt16(kFieldsVersion);
    filer->writeBool(own() != nullptr);
    if (own() == nullptr) return filer->filerStatus();
    filer->writeHardPointerId(own()->style);
    filer->writeString(own()->text.c_str());
    filer->writePoint3d(own()->textPosition);
    filer->writeBool(own()->userTextPosition);
    filer->writeDouble(own()->dimscale);
    filer->writeDouble(own()->oblique);
    return filer->filerStatus();
}

Acad::ErrorStatus AcDbDimension::dwgInFields(AcDbDwgFiler* filer) {
    Acad::ErrorStatus es = AcDbEntity::dwgInFields(filer);
    if (es == Acad::eOk) es = readVersion(filer);
    if (es != Acad::eOk) return es;
    bool said = false;
    filer->readBool(&said);
    m_own.reset();
    if (!said) return filer->filerStatus();
    Own& read = makeOwn();
    AcDbHardPointerId style;
    filer->readHardPointerId(&style);
    read.style = style;
    es = readText(filer, read.text);
    if (es != Acad::eOk) return es;
    filer->readPoint3d(&read.textPosition);
    filer->readBool(&read.userTextPosition);
    filer->readDouble(&read.dimscale);
    filer->readDouble(&read.oblique);
    return filer->filerStatus();
}
