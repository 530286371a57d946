// SPDX-License-Identifier: MIT
// What the commands share that draw dimensions.
#pragma once

#include <optional>

#include "dbdim.h"
#include "prancheta/editor/commands/support.h"
#include "prancheta/graphics/edges.h"

namespace prancheta::commands {

/// The two points that are measured, world.
struct Ends {
    AcGePoint3d first;
    AcGePoint3d second;
};

struct Measured {
    int status = RTCAN;
    Ends ends;
};

/// Two origins, or by Enter the ends of an object: a line, an arc, a segment of a polyline, an edge
/// of a piece or of a block, the diameter of a circle through the pick.
Task<Measured> askEnds(CommandContext context, std::wstring first, std::wstring second);

/// The edge of what an entity shows that is nearest to a point; nothing of one without edges.
std::optional<Edge> edgeAt(const CommandContext& context, AcDbObjectId id, const AcGePoint3d& pick);

/// Asks for an object until one has an edge that `takes` says yes to; else `refusal` is told.
/// `status` RTNORM, RTNONE for Enter, RTCAN.
struct PickedEdge {
    int status = RTCAN;
    AcDbObjectId id;
    AcGePoint3d pick;
    Edge edge;
};
Task<PickedEdge> askEdge(CommandContext context, std::wstring question, bool (*takes)(const Edge&),
                         std::wstring refusal);
inline bool anyEdge(const Edge&) { return true; }

/// What the user says about the text of a dimension before it is placed.
struct DimensionWords {
    std::wstring text;      ///< empty: what is measured
    double rotation = 0.0;  ///< 0: as the style has it
};

/// Current style, scale of the drawing, text as it was asked for.
std::unique_ptr<AcDbDimension> dressed(const CommandContext& context,
                                       std::unique_ptr<AcDbDimension> dimension,
                                       const DimensionWords& words = {});

/// Appends it, tied to what its points lie on, and tells its text. Null when that failed.
AcDbObjectId addDimension(const CommandContext& context, std::unique_ptr<AcDbEntity> dimension);

/// The last question of a command that draws a dimension.
struct Placing {
    std::wstring question;
    std::optional<AcGePoint3d> from;  ///< of the rubber band
    std::function<std::unique_ptr<AcDbDimension>(const AcGePoint3d&)> make;
    AcGePoint3d trial;                ///< a place for the dimension whose text is offered
    std::span<const Word> more = {};  ///< options beside those of the text
    std::function<Task<int>(InputValue)> takeMore = {};  ///< RTNORM or RTCAN
};
/// Shows the dimension at the pointer, takes the options, and draws it where the point is given.
CommandTask placeDimension(CommandContext context, Placing placing);

/// A dimension that others go on from.
struct LinearModel {
    AcDbObjectId id;
    AcGePoint3d first;
    AcGePoint3d second;
    AcGePoint3d line;  ///< a point of the dimension line
    double rotation = 0.0;
    AcDbObjectId style;
    double scale = 1.0;
    double spacing = 0.0;  ///< DIMDLI by the scale
};
/// Of an aligned or rotated dimension; the origin nearer to `near` comes second.
std::optional<LinearModel> linearModel(AcDbObjectId id, const AcGePoint3d* near = nullptr);

}  // namespace prancheta::commands
