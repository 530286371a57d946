// SPDX-License-Identifier: MIT
// ARC: through three points.
#include "dbents.h"
#include "prancheta/editor/commands/arcs.h"
#include "prancheta/editor/commands/support.h"
#include "prancheta/editor/commands/table.h"
#include "prancheta/geometry/angles.h"

namespace prancheta::commands {

namespace {

/// Null when the points lie on one line.
std::unique_ptr<AcDbEntity> arcThrough(const AcGePoint3d& start, const AcGePoint3d& middle,
                                       const AcGePoint3d& end) {
    const std::optional<PlaneCircle> circle = circleThrough(start, middle, end);
    const std::optional<double> bulge = bulgeThrough(start, middle, end);
    if (!circle || !bulge) return nullptr;
    // An arc runs counter-clockwise: one drawn the other way begins at its end.
    const AcGePoint3d& from = *bulge > 0.0 ? start : end;
    const AcGePoint3d& to = *bulge > 0.0 ? end : start;
    return std::make_unique<AcDbArc>(circle->center, circle->radius,
                                     positiveAngle(directionOf(circle->center, from)),
                                     positiveAngle(directionOf(circle->center, to)));
}

}  // namespace

CommandTask arc(CommandContext context) {
    const InputValue start = co_await context.ask(
        Prompt(InputKind::Point, L"\nEspecifique o ponto inicial do arco: ").required());
    if (start.status != RTNORM) co_return endOf(start.status);
    const InputValue middle =
        co_await context.ask(Prompt(InputKind::Point, L"\nEspecifique o segundo ponto do arco: ")
                                 .from(start.point)
                                 .required());
    if (middle.status != RTNORM) co_return endOf(middle.status);
    const InputValue end = co_await context.ask(
        Prompt(InputKind::Point, L"\nEspecifique a extremidade do arco: ")
            .from(middle.point)
            .required()
            .showing(context, [a = start.point, b = middle.point](const AcGePoint3d& c) {
                return arcThrough(a, b, c);
            }));
    if (end.status != RTNORM) co_return endOf(end.status);

    std::unique_ptr<AcDbEntity> made = arcThrough(start.point, middle.point, end.point);
    if (!made) {
        say(context, L"O arco não existe: os pontos estão em uma linha reta.");
        co_return CommandEnd::Failed;
    }
    const AcDbObjectId id = addEntity(context, std::move(made));
    if (id.isNull()) co_return CommandEnd::Failed;
    const double bulge = bulgeThrough(start.point, middle.point, end.point).value_or(0.0);
    keepLastAngle(context, endDirectionOf(start.point, end.point, bulge));
    co_return CommandEnd::Done;
}

}  // namespace prancheta::commands
