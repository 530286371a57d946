// SPDX-License-Identifier: MIT
// ARC: through three points.
#include "dbents.h"
#include "prancheta/editor/commands/arcs.h"
#include "prancheta/editor/commands/support.h"
#include "prancheta/editor/commands/table.h"
#include "prancheta/geometry/angles.h"

namespace prancheta::commands {

CommandTask arc(CommandContext context) {
    const InputValue start = co_await context.ask(
        Prompt(InputKind::Point, L"\nEspecifique o ponto inicial do arco: ").required());
    if (start.status != RTNORM) co_return endOf(start.status);
    const InputValue middle =
        co_await context.ask(Prompt(InputKind::Point, L"\nEspecifique o segundo ponto do arco: ")
                                 .from(start.point)
                                 .required());
    if (middle.status != RTNORM) co_return endOf(middle.status);
    const InputValue end =
        co_await context.ask(Prompt(InputKind::Point, L"\nEspecifique a extremidade do arco: ")
                                 .from(middle.point)
                                 .required());
    if (end.status != RTNORM) co_return endOf(end.status);

    const std::optional<PlaneCircle> circle = circleThrough(start.point, middle.point, end.point);
    const std::optional<double> bulge = bulgeThrough(start.point, middle.point, end.point);
    if (!circle || !bulge) {
        say(context, L"O arco não existe: os pontos estão em uma linha reta.");
        co_return CommandEnd::Failed;
    }
    // An arc runs counter-clockwise: one drawn the other way begins at its end.
    const AcGePoint3d& from = *bulge > 0.0 ? start.point : end.point;
    const AcGePoint3d& to = *bulge > 0.0 ? end.point : start.point;
    const AcDbObjectId id = addEntity(
        context, std::make_unique<AcDbArc>(circle->center, circle->radius,
                                           positiveAngle(directionOf(circle->center, from)),
                                           positiveAngle(directionOf(circle->center, to))));
    co_return id.isNull() ? CommandEnd::Failed : CommandEnd::Done;
}

}  // namespace prancheta::commands
