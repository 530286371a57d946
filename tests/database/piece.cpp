// SPDX-License-Identifier: MIT
// A small entity of the tests' own, and what stands for the command line.
#include "piece.h"

#include <cstdarg>
#include <cwchar>

#include "acutads.h"
#include "acutmem.h"
#include "prancheta/database/database_core.h"

ACRX_DXF_DEFINE_MEMBERS(Piece, AcDbEntity, 0, 0, 0, PIECE, "TESTS")

Acad::ErrorStatus Piece::dwgOutFields(AcDbDwgFiler* filer) const {
    AcDbEntity::dwgOutFields(filer);
    filer->writeInt16(1);
    filer->writeDouble(m_size);
    filer->writeString(m_name.c_str());
    filer->writeSoftPointerId(m_partner);
    return filer->filerStatus();
}

Acad::ErrorStatus Piece::dwgInFields(AcDbDwgFiler* filer) {
    assertWriteEnabled();
    AcDbEntity::dwgInFields(filer);
    Adesk::Int16 version = 0;
    filer->readInt16(&version);
    filer->readDouble(&m_size);
    ACHAR* name = nullptr;
    filer->readString(&name);
    m_name = name;
    acutDelString(name);
    AcDbSoftPointerId partner;
    filer->readSoftPointerId(&partner);
    m_partner = partner;
    return filer->filerStatus();
}

// The square is drawn for the world, a cross over it per view.
Adesk::Boolean Piece::subWorldDraw(AcGiWorldDraw* draw) {
    const AcGePoint3d p[] = {
        {0, 0, 0}, {m_size, 0, 0}, {m_size, m_size, 0}, {0, m_size, 0}, {0, 0, 0}};
    draw->geometry().polyline(5, p);
    return Adesk::kFalse;
}

void Piece::subViewportDraw(AcGiViewportDraw* draw) {
    const AcGePoint3d p[] = {{-m_size, 0, 0}, {0, 0, 0}};
    draw->subEntityTraits().setColor(1);
    draw->geometry().polyline(2, p);
}

AcDbObjectId append(AcDbDatabase& database, AcDbEntity* entity) {
    AcDbObjectPointer<AcDbBlockTableRecord> space(database.currentSpaceId(), AcDb::kForWrite);
    AcDbObjectId id;
    if (space->appendAcDbEntity(id, entity) != Acad::eOk) return {};
    entity->close();
    return id;
}

double sizeOf(AcDbObjectId id) {
    AcDbObjectPointer<Piece> piece(id, AcDb::kForRead);
    return piece.object() != nullptr ? piece->size() : -1.0;
}

void resize(AcDbObjectId id, double size) {
    AcDbObjectPointer<Piece> piece(id, AcDb::kForWrite);
    if (piece.object() != nullptr) piece->setSize(size);
}

static std::wstring g_printed;

int acutPrintf(const ACHAR* format, ...) {
    wchar_t line[1000];
    va_list arguments;
    va_start(arguments, format);
    const int length = std::vswprintf(line, std::size(line), format, arguments);
    va_end(arguments);
    if (length > 0) g_printed.append(line, static_cast<std::size_t>(length));
    return RTNORM;
}

std::wstring takePrinted() { return std::exchange(g_printed, {}); }
