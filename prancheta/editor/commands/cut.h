// SPDX-License-Identifier: MIT
// What the commands that cut work on: lines, arcs, circles and polylines, and bars of modules along
// their axis.
#pragma once

#include <optional>

#include "prancheta/curves/curve.h"
#include "prancheta/editor/commands/support.h"

namespace prancheta::commands {

/// The curve of an object; of a bar its axis, parameter 0 to 1.
struct CutTarget {
    AcDbObjectId id;
    Curve curve;
    bool bar = false;
};
/// Splines can be parted, and not made to go on.
enum class Cuts { NoSplines, SplinesToo };
/// Nothing, after telling why (a refused answer), when the object cannot be cut: of another kind,
/// on a locked layer, or the module's own reason.
std::optional<CutTarget> cutTarget(const CommandContext& context, AcDbObjectId id,
                                   Cuts cuts = Cuts::NoSplines);
/// The same without a word, for previews.
std::optional<CutTarget> cutTargetOrNone(AcDbObjectId id, Cuts cuts = Cuts::NoSplines);

/// True when there is one.
bool canBeCut(AcDbObjectId id);
/// The same, splines too.
bool canBeParted(AcDbObjectId id);
/// The object of a pick that found one; where it cannot be cut, one that can and lies there too.
AcDbObjectId pickedToCut(const CommandContext& context, const InputValue& picked);

/// Takes away what lies between two parameters, `from` < `to` (equal: parts it there); of a closed
/// curve `to` may lie beyond its start. What remains, the object itself first; empty, after telling
/// why, when the object refuses.
Ids takeOut(const CommandContext& context, const CutTarget& target, double from, double to);
/// Makes the object what lies between two parameters, beyond its ends or not; false, after telling
/// why, when it refuses.
bool setEnds(const CommandContext& context, const CutTarget& target, double from, double to);
/// Appends what takeOut() would take, in the colour of what goes.
void showPart(const CutTarget& target, double from, double to, Picture& out);

/// Tells why an answer came to nothing; the question comes again.
void refuse(const CommandContext& context, std::wstring_view why);

inline Vec2 seen(const AcGePoint3d& p) { return {p.x, p.y}; }

}  // namespace prancheta::commands
