// SPDX-License-Identifier: MIT
// The cells of a title block.
#include "prancheta/editor/commands/sheet_cells.h"

#include <algorithm>
#include <cmath>

#include "prancheta/editor/commands/blocks.h"
#include "prancheta/editor/commands/sheets.h"
#include "prancheta/entities/insert_parts.h"
#include "prancheta/entities/plane_curve.h"
#include "prancheta/entities/text_layout.h"

namespace prancheta::commands {

namespace {

constexpr int kLeft = 0;  ///< horizontal justification
constexpr int kRight = 2;
constexpr double kClear = 0.5;  ///< mm, between a text and the side of its cell

/// Left and right side of the cell around a place.
struct CellSides {
    double left = -1e300;
    double right = 1e300;
};

CellSides sidesAround(const std::vector<Segment>& sides, double x, double y) {
    CellSides found;
    for (const Segment& side : sides) {
        const Vec2 a = side.at(0.0);
        const Vec2 b = side.at(1.0);
        if (y < std::min(a.y, b.y) || y > std::max(a.y, b.y)) continue;
        if (a.x <= x) found.left = std::max(found.left, a.x);
        if (a.x > x) found.right = std::min(found.right, a.x);
    }
    return found;
}

}  // namespace

SheetCells::SheetCells(const AcDbBlockReference& title)
    : m_toBlock(title.blockTransform().inverse()) {
    for (const AcDbObjectId& id : contentOf(title.blockTableRecord())) {
        const AcDbObjectPointer<AcDbEntity> entity(id, AcDb::kForRead);
        if (entity.openStatus() != Acad::eOk) continue;
        const std::optional<Curve> curve = planeCurve(*entity.object());
        if (!curve) continue;
        for (const Segment& each : curve->segments())
            if (!each.isRound() && std::abs(each.at(0.0).x - each.at(1.0).x) < 1e-6)
                m_sides.push_back(each);
    }
}

bool SheetCells::fit(AcDbText& text) const {
    if (standsBetweenPoints(text)) return true;
    const std::unique_ptr<AcDbText> shown = textLike(text, text.textStringConst());
    if (shown->transformBy(m_toBlock) != Acad::eOk) return true;
    const Box2d box = entityBox(*shown);
    if (box.empty() || !(box.width() > 0.0)) return true;
    const int mode = text.horizontalMode();
    const double middle = 0.5 * (box.left + box.right);
    const double anchor = mode == kLeft ? box.left : mode == kRight ? box.right : middle;
    const CellSides cell = sidesAround(m_sides, anchor, 0.5 * (box.bottom + box.top));
    const double before = anchor - cell.left - kClear;
    const double behind = cell.right - anchor - kClear;
    const double room = mode == kLeft    ? behind
                        : mode == kRight ? before
                                         : 2.0 * std::min(before, behind);
    if (box.width() <= room) return true;
    const double own = text.widthFactor();
    const double least = std::min(own, kNarrowest);
    const double wanted = own * room / box.width();
    (void)text.setWidthFactor(std::max(wanted, least));  // above 0
    return wanted >= least;
}

}  // namespace prancheta::commands
