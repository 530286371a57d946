// SPDX-License-Identifier: MIT
// DIMRADIUS and DIMDIAMETER: of a circle, an arc, or a round part of anything that is shown.
#include "prancheta/editor/commands/dimensions.h"
#include "prancheta/editor/commands/table.h"

namespace prancheta::commands {

namespace {

enum class Kind { Radius, Diameter };

bool isRound(const Edge& edge) { return edge.isArc(); }

std::unique_ptr<AcDbDimension> dimensionAt(const CommandContext& context, Kind kind,
                                           const Edge& edge, const AcGePoint3d& text) {
    const AcGeVector3d radius = AcGeVector3d::kXAxis * edge.radius;
    std::unique_ptr<AcDbDimension> dimension;
    if (kind == Kind::Radius)
        dimension = std::make_unique<AcDbRadialDimension>(edge.center, edge.center + radius, 0.0);
    else
        dimension = std::make_unique<AcDbDiametricDimension>(edge.center + radius,
                                                             edge.center - radius, 0.0);
    dimension = dressed(context, std::move(dimension));  // its sizes say how long the leader is
    (void)dimension->moveText(text);                     // not resident
    return dimension;
}

CommandTask round(CommandContext context, Kind kind) {
    const PickedEdge picked =
        co_await askEdge(context, L"\nSelecione o arco ou o círculo: ", isRound,
                         L"Selecione um arco, um círculo ou uma parte redonda de um objeto.");
    if (picked.status != RTNORM) co_return endOf(picked.status);
    const Edge edge = picked.edge;
    Placing placing;
    placing.question = L"\nPosição da linha de cota ou [textoM/Texto/Ângulo]: ";
    placing.from = edge.center;
    placing.trial = picked.pick;
    placing.make = [context, kind, edge](const AcGePoint3d& text) {
        return dimensionAt(context, kind, edge, text);
    };
    co_return co_await placeDimension(context, std::move(placing));
}

}  // namespace

CommandTask dimradius(CommandContext context) { return round(context, Kind::Radius); }
CommandTask dimdiameter(CommandContext context) { return round(context, Kind::Diameter); }

}  // namespace prancheta::commands
