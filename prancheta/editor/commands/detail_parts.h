// SPDX-License-Identifier: MIT
// The parts of a detail that DETALHE draws.
#pragma once

#include "prancheta/editor/commands/support.h"
#include "prancheta/editor/details.h"

namespace prancheta::commands {

/// What the user asked for.
struct DetailOrder {
    std::unique_ptr<AcDbEntity> outline;  ///< in the model, in no drawing yet
    double scale = 1.0;                   ///< drawing units per mm of paper
    std::wstring letter;
    AcGePoint3d place;  ///< of its middle: in the model, or on the sheet that is shown
};

/// Something that a detail can show lies within the border.
bool showsSomething(const CommandContext& context, const Curve& border);
/// How much larger than in the model a detail of this scale is where it is drawn.
double sizeOnScreen(const CommandContext& context, double scale);
/// The outline of the detail about a place; null for one that cannot be so large.
std::unique_ptr<AcDbEntity> outlineAt(const AcDbEntity& outline, const AcGePoint3d& at,
                                      double factor);
/// Mark, detail and, on a sheet, label. Failed, after saying why, leaves nothing behind.
CommandEnd drawDetail(const CommandContext& context, DetailOrder order);

}  // namespace prancheta::commands
