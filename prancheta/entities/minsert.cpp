// SPDX-License-Identifier: MIT
// Arrays of insertions.
#include <algorithm>

#include "dbents.h"
#include "prancheta/entities/common.h"
#include "prancheta/entities/insert_parts.h"
#include "prancheta/entities/listing.h"

using namespace prancheta;

ACRX_DXF_DEFINE_MEMBERS(AcDbMInsertBlock, AcDbBlockReference, 0, 0, 0, INSERT, "Prancheta")

namespace {

/// Direction in which the columns stand, and the rows, unit length.
AcGeVector3d columnDirection(const AcDbBlockReference& r) {
    return directionInPlane(r.rotation(), r.normal());
}
AcGeVector3d rowDirection(const AcDbBlockReference& r) {
    return r.normal().crossProduct(columnDirection(r));
}

}  // namespace

AcDbMInsertBlock::AcDbMInsertBlock(const AcGePoint3d& position, AcDbObjectId blockTableRecord,
                                   int columns, int rows, double columnSpacing, double rowSpacing)
    : AcDbBlockReference(position, blockTableRecord),
      m_columns(std::max(columns, 1)),
      m_rows(std::max(rows, 1)),
      m_columnSpacing(columnSpacing),
      m_rowSpacing(rowSpacing) {}

Acad::ErrorStatus AcDbMInsertBlock::dwgOutFields(AcDbDwgFiler* filer) const {
    const Acad::ErrorStatus es = AcDbBlockReference::dwgOutFields(filer);
    if (es != Acad::eOk) return es;
    filer->writeInt32(m_columns);
    filer->writeInt32(m_rows);
    filer->writeDouble(m_columnSpacing);
    return filer->writeDouble(m_rowSpacing);
}

Acad::ErrorStatus AcDbMInsertBlock::dwgInFields(AcDbDwgFiler* filer) {
    const Acad::ErrorStatus es = AcDbBlockReference::dwgInFields(filer);
    if (es != Acad::eOk) return es;
    filer->readInt32(&m_columns);
    filer->readInt32(&m_rows);
    filer->readDouble(&m_columnSpacing);
    return filer->readDouble(&m_rowSpacing);
}

Acad::ErrorStatus AcDbMInsertBlock::subTransformBy(const AcGeMatrix3d& m) {
    const AcGeVector3d column = m * (columnDirection(*this) * m_columnSpacing);
    const AcGeVector3d row = m * (rowDirection(*this) * m_rowSpacing);
    const Acad::ErrorStatus es = AcDbBlockReference::subTransformBy(m);
    if (es != Acad::eOk) return es;
    // A mirror may turn the block's x axis round and not its columns.
    m_columnSpacing = column.dotProduct(columnDirection(*this));
    m_rowSpacing = row.dotProduct(rowDirection(*this));
    return Acad::eOk;
}

void AcDbMInsertBlock::subList() const {
    AcDbBlockReference::subList();
    listNumber(L"colunas:", m_columns);
    listNumber(L"linhas:", m_rows);
    listNumber(L"distância entre colunas:", m_columnSpacing);
    listNumber(L"distância entre linhas:", m_rowSpacing);
}

namespace prancheta {

std::vector<AcGeMatrix3d> placesOf(const AcDbBlockReference& reference) {
    const AcGeMatrix3d first = reference.blockTransform();
    const auto* const array = AcDbMInsertBlock::cast(&reference);
    if (array == nullptr) return {first};
    const AcGeVector3d column = columnDirection(reference) * array->columnSpacing();
    const AcGeVector3d row = rowDirection(reference) * array->rowSpacing();
    std::vector<AcGeMatrix3d> places;
    for (int r = 0; r < array->rows(); ++r)
        for (int c = 0; c < array->columns(); ++c)
            places.push_back(AcGeMatrix3d::translation(column * c + row * r) * first);
    return places;
}

}  // namespace prancheta
