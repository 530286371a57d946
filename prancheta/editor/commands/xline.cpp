// SPDX-License-Identifier: MIT
// XLINE, RAY: construction lines.
#include <cmath>

#include "dbents.h"
#include "prancheta/editor/commands/arcs.h"
#include "prancheta/editor/commands/memory.h"
#include "prancheta/editor/commands/picked_edge.h"
#include "prancheta/editor/commands/table.h"
#include "prancheta/editor/editor.h"
#include "prancheta/geometry/angles.h"

namespace prancheta::commands {

namespace {

constexpr Word kXlineWays[] = {{L"Hor", L"Hor"},
                               {L"Ver", L"Ver"},
                               {L"Âng", L"Ang"},
                               {L"Bissetriz", L"Bisect"},
                               {L"Deslocamento", L"Offset"}};
constexpr Word kReference[] = {{L"Referência", L"Reference"}};
constexpr Word kThrough[] = {{L"Através", L"Through"}};

/// Null for no direction.
template <class Line>
std::unique_ptr<AcDbEntity> lineThrough(const AcGePoint3d& at, const AcGeVector3d& direction) {
    if (direction.length() < 1e-9) return nullptr;
    auto line = std::make_unique<Line>();
    (void)line->setBasePoint(at);  // a new entity takes any value but a zero vector
    (void)line->setUnitDir(direction);
    return line;
}

/// One line after the other from the first point through others, until Enter.
template <class Line>
CommandTask drawFrom(CommandContext context, AcGePoint3d from) {
    for (;;) {
        const InputValue to =
            co_await context.ask(Prompt(InputKind::Point, L"\nPonto de passagem: ")
                                     .from(from)
                                     .showing(context, [from](const AcGePoint3d& at) {
                                         return lineThrough<Line>(from, at - from);
                                     }));
        if (to.status != RTNORM) co_return CommandEnd::Done;
        std::unique_ptr<AcDbEntity> line = lineThrough<Line>(from, to.point - from);
        if (!line)
            context.editor().complain(L"Os dois pontos coincidem: informe outro ponto de passagem.",
                                      Complaint::Refused);
        else if (addEntity(context, std::move(line)).isNull())
            co_return CommandEnd::Failed;
    }
}

CommandTask drawParallel(CommandContext context, AcGeVector3d direction) {
    for (;;) {
        const InputValue at =
            co_await context.ask(Prompt(InputKind::Point, L"\nPonto de passagem: ")
                                     .showing(context, [direction](const AcGePoint3d& to) {
                                         return lineThrough<AcDbXline>(to, direction);
                                     }));
        if (at.status != RTNORM) co_return CommandEnd::Done;
        if (addEntity(context, lineThrough<AcDbXline>(at.point, direction)).isNull())
            co_return CommandEnd::Failed;
    }
}

/// A straight edge of an object; a line by its direction and a point of it.
struct Straight {
    int status = RTCAN;
    AcGePoint3d at;
    AcGeVector3d direction;
};

Task<Straight> askStraight(CommandContext context, bool ends) {
    Straight found;
    for (;;) {
        Prompt prompt(InputKind::Entity, L"\nSelecione um objeto linear: ");
        if (!ends) prompt.required();
        const InputValue picked = co_await context.ask(prompt);
        found.status = picked.status;
        if (picked.status == RTCAN || picked.status == RTNONE) co_return found;
        if (!picked.entities.empty()) {
            const std::optional<Edge> edge = pickedEdge(context, picked);
            if (edge && !edge->isArc()) {
                found.at = edge->a;
                found.direction = (edge->b - edge->a).normal();
                co_return found;
            }
        }
        context.editor().complain(L"Nenhuma linha reta aí: selecione uma linha ou uma aresta reta.",
                                  Complaint::Refused);
    }
}

AcGeVector3d userDirection(const CommandContext& context, double angle) {
    const auto [s, c] = sineCosine(angle);
    return context.editor().ucs() * AcGeVector3d(c, s, 0.0);
}

CommandTask drawAtAngle(CommandContext context) {
    InputValue angle =
        co_await context.ask(Prompt(InputKind::Angle, L"\nÂngulo da linha ou [Referência] <0>: ")
                                 .words(kReference)
                                 .absolute());
    if (angle.status == RTCAN) co_return CommandEnd::Cancelled;
    AcGeVector3d direction = userDirection(context, angle.number);
    if (angle.status == RTKWORD) {
        const Straight line = co_await askStraight(context, false);
        if (line.status != RTNORM) co_return endOf(line.status);
        angle = co_await context.ask(Prompt(InputKind::Angle, L"\nÂngulo a partir dela <0>: "));
        if (angle.status == RTCAN) co_return CommandEnd::Cancelled;
        direction = AcGeMatrix3d::rotation(angle.number, AcGeVector3d::kZAxis) * line.direction;
    }
    const CommandEnd end = co_await drawParallel(context, direction);
    co_return end;
}

AcGeVector3d bisector(const AcGePoint3d& corner, const AcGePoint3d& a, const AcGePoint3d& b) {
    const AcGeVector3d u = (a - corner).normal();
    const AcGeVector3d sum = u + (b - corner).normal();
    // Of a straight angle it is the perpendicular.
    return sum.length() > 1e-9 ? sum : AcGeVector3d::kZAxis.crossProduct(u);
}

CommandTask drawBisectors(CommandContext context) {
    const InputValue corner =
        co_await context.ask(Prompt(InputKind::Point, L"\nVértice do ângulo: ").required());
    if (corner.status != RTNORM) co_return endOf(corner.status);
    const InputValue first = co_await context.ask(
        Prompt(InputKind::Point, L"\nPonto no primeiro lado: ").from(corner.point).required());
    if (first.status != RTNORM) co_return endOf(first.status);
    for (;;) {
        const InputValue second = co_await context.ask(
            Prompt(InputKind::Point, L"\nPonto no segundo lado: ")
                .from(corner.point)
                .showing(context, [at = corner.point, a = first.point](const AcGePoint3d& b) {
                    return lineThrough<AcDbXline>(at, bisector(at, a, b));
                }));
        if (second.status != RTNORM) co_return CommandEnd::Done;
        const AcGeVector3d direction = bisector(corner.point, first.point, second.point);
        if (addEntity(context, lineThrough<AcDbXline>(corner.point, direction)).isNull())
            co_return CommandEnd::Failed;
    }
}

/// Parallel to `line` at this distance on the side of `to`; 0: through it.
std::unique_ptr<AcDbEntity> parallel(const Straight& line, double distance, const AcGePoint3d& to) {
    const AcGeVector3d across = AcGeVector3d::kZAxis.crossProduct(line.direction);
    const double reach = (to - line.at).dotProduct(across);
    const double by = distance > 0.0 ? std::copysign(distance, reach) : reach;
    return lineThrough<AcDbXline>(line.at + across * by, line.direction);
}

CommandTask drawOffsets(CommandContext context) {
    const InputValue distance = co_await context.ask(
        Prompt(InputKind::Distance, L"\nDistância de deslocamento ou [Através] <Através>: ")
            .words(kThrough)
            .bits(RSG_NOZERO | RSG_NONEG));
    if (distance.status == RTCAN) co_return CommandEnd::Cancelled;
    const double by = distance.status == RTNORM ? distance.number : 0.0;
    for (;;) {
        const Straight line = co_await askStraight(context, true);
        if (line.status != RTNORM) co_return CommandEnd::Done;
        const InputValue side =
            co_await context.ask(Prompt(InputKind::Point, by > 0.0 ? L"\nPonto no lado a deslocar: "
                                                                   : L"\nPonto de passagem: ")
                                     .required()
                                     .showing(context, [line, by](const AcGePoint3d& to) {
                                         return parallel(line, by, to);
                                     }));
        if (side.status != RTNORM) co_return CommandEnd::Done;
        if (addEntity(context, parallel(line, by, side.point)).isNull())
            co_return CommandEnd::Failed;
    }
}

}  // namespace

CommandTask xline(CommandContext context) {
    const InputValue first = co_await context.ask(
        Prompt(InputKind::Point, L"\nPonto ou [Hor/Ver/Âng/Bissetriz/Deslocamento]: ")
            .words(kXlineWays)
            .required());
    CommandEnd end = endOf(first.status);
    if (isWord(first, L"Hor"))
        end = co_await drawParallel(context, userDirection(context, 0.0));
    else if (isWord(first, L"Ver"))
        end = co_await drawParallel(context, userDirection(context, kPi / 2.0));
    else if (isWord(first, L"Ang"))
        end = co_await drawAtAngle(context);
    else if (isWord(first, L"Bisect"))
        end = co_await drawBisectors(context);
    else if (isWord(first, L"Offset"))
        end = co_await drawOffsets(context);
    else if (first.status == RTNORM)
        end = co_await drawFrom<AcDbXline>(context, first.point);
    co_return end;
}

CommandTask ray(CommandContext context) {
    const InputValue first =
        co_await context.ask(Prompt(InputKind::Point, L"\nPonto inicial: ").required());
    if (first.status != RTNORM) co_return endOf(first.status);
    const CommandEnd end = co_await drawFrom<AcDbRay>(context, first.point);
    co_return end;
}

}  // namespace prancheta::commands
