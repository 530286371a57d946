// SPDX-License-Identifier: MIT
// FILLET and CHAMFER: what they do alike.
#pragma once

#include "prancheta/database/undo.h"
#include "prancheta/editor/commands/cut.h"

namespace prancheta::commands {

/// One of the two objects of a corner.
struct CornerSide {
    CutTarget target;
    Vec2 pick;
    std::size_t segment = 0;  ///< of the target's curve, that was picked

    const Segment& picked() const { return target.curve.segments()[segment]; }
};

/// What is cut off both sides of a corner of a polyline.
struct CornerCut {
    double before = 0.0;  ///< drawing units from the corner
    double behind = 0.0;
    double sweep = 0.0;  ///< of the arc between, radians as the polyline turns; 0: straight
};

/// What comes between two objects: where their sides end, and the curve from one to the other.
struct CornerPlan {
    Vec2 atFirst;
    Vec2 atSecond;
    Curve between;
};

/// What makes the two different.
class CornerMaker {
public:
    virtual ~CornerMaker() = default;
    virtual std::wstring settings(const CommandContext& context) const = 0;
    virtual std::wstring prompt() const = 0;
    virtual std::span<const Word> words() const = 0;
    /// One of its own options; RTCAN ends the command.
    virtual Task<int> take(CommandContext context, std::wstring word) = 0;
    /// Of a corner where the polyline turns by `turn` radians, left above 0, not 0.
    virtual CornerCut cut(double turn) const = 0;
    /// Nothing would be cut off: the corner stays sharp.
    virtual bool sharp() const = 0;
    /// Nothing, and the reason in `whyNot`, where there can be none.
    virtual std::optional<CornerPlan> plan(const CornerSide& first, const CornerSide& second,
                                           const wchar_t*& whyNot) const = 0;
};

CommandTask makeCorners(CommandContext context, CornerMaker& maker);

/// TRIMMODE.
bool trimsSides(const CommandContext& context);
/// Parameter on the whole curve of a place on the picked segment's line or circle; nothing when
/// that lies beyond a segment inside a chain.
std::optional<double> parameterOf(const CornerSide& side, const Vec2& p);
/// Where the picked segments, without ends, meet nearest to the picks.
std::optional<Vec2> meetingOf(const CornerSide& first, const CornerSide& second);

}  // namespace prancheta::commands
