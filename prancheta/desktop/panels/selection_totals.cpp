// SPDX-License-Identifier: MIT
// Pieces, mass and paint area of what is selected.
#include "prancheta/desktop/panels/module_sheet.h"
#include "prancheta/desktop/panels/panels.h"
#include "prancheta/desktop/panels/text.h"

namespace prancheta::desktop {

QString selectionTotals(Editor& editor) {
    protocol::EntityProperties::Totals sum;
    for (const AcDbObjectId id : editor.selection().ids()) {
        const AcDbObjectPointer<AcDbEntity> entity(id, AcDb::kForRead);
        if (entity.object() == nullptr) continue;
        const protocol::EntityProperties* properties = moduleProperties(*entity.object());
        if (properties == nullptr) continue;
        const protocol::EntityProperties::Totals own = properties->totals(*entity.object());
        sum.pieces += own.pieces;
        sum.mass += own.mass;
        sum.paintArea += own.paintArea;
    }
    if (sum.pieces == 0) return {};
    return QStringLiteral("%1 %2   %3 kg   %4 m²")
        .arg(QString::number(sum.pieces),
             sum.pieces == 1 ? QStringLiteral("peça") : QStringLiteral("peças"),
             commaText(sum.mass, 2), commaText(sum.paintArea, 2));
}

}  // namespace prancheta::desktop
