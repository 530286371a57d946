// SPDX-License-Identifier: MIT
// Layouts.
#include "dblayout.h"

#include "prancheta/database/memory_filer.h"
#include "prancheta/database/object_access.h"

using namespace prancheta;

ACRX_DXF_DEFINE_MEMBERS(AcDbLayout, AcDbObject, 0, 0, 0, LAYOUT, "")

void AcDbLayout::getPlotPaperSize(double& width, double& height) const {
    width = m_paper[0];
    height = m_paper[1];
}

void AcDbLayout::getPlotPaperMargins(double& left, double& bottom, double& right,
                                     double& top) const {
    left = m_margins[0];
    bottom = m_margins[1];
    right = m_margins[2];
    top = m_margins[3];
}

Acad::ErrorStatus AcDbLayout::setLayoutName(const ACHAR* name) {
    if (name == nullptr || *name == L'\0') return Acad::eInvalidInput;
    if (!isWriteEnabled()) return Acad::eNotOpenForWrite;
    assertWriteEnabled();
    m_name = name;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbLayout::setTabOrder(int order) {
    if (!isWriteEnabled()) return Acad::eNotOpenForWrite;
    assertWriteEnabled();
    m_tabOrder = order;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbLayout::setBlockTableRecordId(AcDbObjectId id) {
    if (!isWriteEnabled()) return Acad::eNotOpenForWrite;
    assertWriteEnabled();
    m_block = id;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbLayout::setPlotPaper(const ACHAR* media, double width, double height) {
    if (!(width > 0.0) || !(height > 0.0)) return Acad::eInvalidInput;
    if (!isWriteEnabled()) return Acad::eNotOpenForWrite;
    assertWriteEnabled();
    m_media = media != nullptr ? media : L"";
    m_paper[0] = width;
    m_paper[1] = height;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbLayout::setPlotRotation(PlotRotation rotation) {
    if (!isWriteEnabled()) return Acad::eNotOpenForWrite;
    assertWriteEnabled();
    m_rotation = static_cast<Adesk::Int16>(rotation);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbLayout::setPlotPaperMargins(double left, double bottom, double right,
                                                  double top) {
    if (!isWriteEnabled()) return Acad::eNotOpenForWrite;
    assertWriteEnabled();
    const double margins[4] = {left, bottom, right, top};
    std::copy(margins, margins + 4, m_margins);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbLayout::dwgOutFields(AcDbDwgFiler* filer) const {
    const Acad::ErrorStatus es = AcDbObject::dwgOutFields(filer);
    if (es != Acad::eOk) return es;
    writeText(*filer, m_name);
    writeText(*filer, m_media);
    filer->writeSoftPointerId(m_block);
    for (const double size : m_paper) filer->writeDouble(size);
    for (const double margin : m_margins) filer->writeDouble(margin);
    filer->writeInt32(m_tabOrder);
    filer->writeInt16(m_rotation);
    return filer->filerStatus();
}

Acad::ErrorStatus AcDbLayout::dwgInFields(AcDbDwgFiler* filer) {
    const Acad::ErrorStatus es = AcDbObject::dwgInFields(filer);
    if (es != Acad::eOk) return es;
    m_name = readText(*filer);
    m_media = readText(*filer);
    AcDbSoftPointerId block;
    filer->readSoftPointerId(&block);
    m_block = block;
    for (double& size : m_paper) filer->readDouble(&size);
    for (double& margin : m_margins) filer->readDouble(&margin);
    filer->readInt32(&m_tabOrder);
    filer->readInt16(&m_rotation);
    return filer->filerStatus();
}
