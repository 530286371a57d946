// SPDX-License-Identifier: MIT
// Whether a drawn table stays on its sheet of paper.
#include "zp/matlist/sheet_edge.h"

#include <algorithm>
#include <memory>

#include "dbdict.h"
#include "dblayout.h"

namespace zp::matlist {
namespace {

/// The paper as it lies, its printable corner in the origin; empty for none.
AcDbExtents paperOf(const AcDbLayout& layout) {
    double size[2];
    double margins[4];  // left, bottom, right, top, as the paper comes from the printer
    layout.getPlotPaperSize(size[0], size[1]);
    layout.getPlotPaperMargins(margins[0], margins[1], margins[2], margins[3]);
    // A quarter turn brings the next side to the left.
    const int turns = layout.plotRotation();
    if (turns % 2 != 0) std::swap(size[0], size[1]);
    const AcGePoint3d corner(-margins[turns], -margins[(turns + 1) % 4], 0.0);
    AcDbExtents paper;
    paper.addPoint(corner);
    paper.addPoint(corner + AcGeVector3d(size[0], size[1], 0.0));
    return paper;
}

/// Of the layout that shows a space; empty for the model, which is the first one.
AcDbExtents paperOf(AcDbObjectId space) {
    const AcDbObjectPointer<AcDbDictionary> root(space.database()->namedObjectsDictionaryId(),
                                                 AcDb::kForRead);
    AcDbObjectId id;
    if (root.openStatus() != Acad::eOk || root->getAt(L"ACAD_LAYOUT", id) != Acad::eOk) return {};
    const AcDbObjectPointer<AcDbDictionary> layouts(id, AcDb::kForRead);
    if (layouts.openStatus() != Acad::eOk) return {};
    const std::unique_ptr<AcDbDictionaryIterator> each(layouts->newIterator());
    for (; each != nullptr && !each->done(); each->next()) {
        const AcDbObjectPointer<AcDbLayout> layout(each->objectId(), AcDb::kForRead);
        if (layout.openStatus() == Acad::eOk && layout->blockTableRecordId() == space)
            return layout->tabOrder() > 0 ? paperOf(*layout) : AcDbExtents();
    }
    return {};
}

AcDbExtents extentsOf(const Header& header, AcDbObjectId& space) {
    AcDbExtents all;
    for (const AcDbObjectId id : header.table) {
        const AcDbObjectPointer<AcDbEntity> part(id, AcDb::kForRead);
        AcDbExtents extents;
        if (part.openStatus() != Acad::eOk || part->getGeomExtents(extents) != Acad::eOk) continue;
        all.addExt(extents);
        space = part->ownerId();
    }
    return all;
}

}  // namespace

bool passesSheet(const MaterialList& list) {
    constexpr double kSlack = 1e-6;
    const std::optional<Header> header = readHeader(list.id);
    AcDbObjectId space;
    const AcDbExtents table = header ? extentsOf(*header, space) : AcDbExtents();
    if (space.isNull()) return false;
    const AcDbExtents paper = paperOf(space);
    if (paper.isEmpty()) return false;
    const AcGeVector3d below = table.minPoint() - paper.minPoint();
    const AcGeVector3d above = paper.maxPoint() - table.maxPoint();
    return std::min({below.x, below.y, above.x, above.y}) < -kSlack;
}

}  // namespace zp::matlist
