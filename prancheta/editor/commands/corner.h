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
    /// Between two objects; false, after telling why, when nothing was done.
    virtual bool make(const CommandContext& context, const CornerSide& first,
                      const CornerSide& second) const = 0;
};

CommandTask makeCorners(CommandContext context, CornerMaker& maker);

/// TRIMMODE.
bool trimsSides(const CommandContext& context);
/// Parameter on the whole curve of a place on the picked segment's line or circle; nothing when
/// that lies beyond a segment inside a chain.
std::optional<double> parameterOf(const CornerSide& side, const Vec2& p);
/// Both sides keep what lies beyond these places, seen from their corner, if TRIMMODE asks for it;
/// closed ones stay as they are. False, after telling why, when nothing would be left: all or
/// nothing.
bool trimBoth(const CommandContext& context, const CornerSide& first, const Vec2& atFirst,
              const CornerSide& second, const Vec2& atSecond);
/// Where the picked segments, without ends, meet nearest to the picks.
std::optional<Vec2> meetingOf(const CornerSide& first, const CornerSide& second);
/// Adds what lies between the two sides: on their layer when it is one, else on the current one.
bool addBetween(const CommandContext& context, const CornerSide& first, const CornerSide& second,
                const Curve& curve);

}  // namespace prancheta::commands
