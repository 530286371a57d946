// SPDX-License-Identifier: MIT
// The ways in which PLINE takes an arc segment.
#include <cmath>

#include "prancheta/editor/commands/arcs.h"
#include "prancheta/editor/commands/pline_draft.h"
#include "prancheta/geometry/angles.h"
#include "prancheta/geometry/bulge.h"

namespace prancheta::commands {

namespace {

InputValue arcTo(const CommandContext& context, const InputValue& end,
                 std::optional<double> bulge) {
    InputValue segment = end;
    if (end.status == RTNORM && !bulge) {
        say(context, L"Não existe um arco assim.");
        segment.status = RTERROR;
    }
    segment.number = bulge.value_or(0.0);
    return segment;
}

Prompt endPoint(const AcGePoint3d& start) {
    Prompt prompt(InputKind::Point, L"\nEspecifique a extremidade do arco: ");
    return prompt.from(start).required();
}

Task<InputValue> byAngle(CommandContext context, AcGePoint3d start) {
    const InputValue sweep = co_await context.ask(
        Prompt(InputKind::Angle, L"\nEspecifique o ângulo incluído: ").required().bits(RSG_NOZERO));
    if (sweep.status != RTNORM) co_return sweep;
    const InputValue end = co_await context.ask(endPoint(start));
    std::optional<double> bulge;
    if (std::abs(sweep.number) < kTwoPi) bulge = bulgeOfSweep(sweep.number);
    co_return arcTo(context, end, bulge);
}

/// Counter-clockwise about the centre, to the ray through the point given.
Task<InputValue> byCenter(CommandContext context, AcGePoint3d start) {
    const InputValue center =
        co_await context.ask(Prompt(InputKind::Point, L"\nEspecifique o ponto central do arco: ")
                                 .from(start)
                                 .required());
    if (center.status != RTNORM) co_return center;
    InputValue end = co_await context.ask(endPoint(center.point));
    if (end.status != RTNORM) co_return end;
    const double radius = std::hypot(start.x - center.point.x, start.y - center.point.y);
    const double sweep =
        positiveAngle(directionOf(center.point, end.point) - directionOf(center.point, start));
    const AcGeVector3d ray = end.point - center.point;
    const double reach = std::hypot(ray.x, ray.y);
    std::optional<double> bulge;
    if (sweep > 1e-9 && radius > 0.0 && reach > 0.0) {
        bulge = bulgeOfSweep(sweep);
        end.point = center.point + ray * (radius / reach);
    }
    co_return arcTo(context, end, bulge);
}

Task<InputValue> byDirection(CommandContext context, AcGePoint3d start) {
    const InputValue direction = co_await context.ask(
        Prompt(InputKind::Angle, L"\nEspecifique a direção da tangente no ponto inicial do arco: ")
            .from(start)
            .absolute()
            .required());
    if (direction.status != RTNORM) co_return direction;
    const InputValue end = co_await context.ask(endPoint(start));
    co_return arcTo(context, end,
                    bulgeByDirection(start, end.point, direction.number + userTurn(context)));
}

Task<InputValue> byRadius(CommandContext context, AcGePoint3d start) {
    const InputValue radius = co_await context.ask(
        Prompt(InputKind::Distance, L"\nEspecifique o raio do arco: ").required().bits(RSG_NOZERO));
    if (radius.status != RTNORM) co_return radius;
    const InputValue end = co_await context.ask(endPoint(start));
    co_return arcTo(context, end, bulgeByRadius(start, end.point, radius.number));
}

Task<InputValue> bySecondPoint(CommandContext context, AcGePoint3d start) {
    const InputValue middle =
        co_await context.ask(Prompt(InputKind::Point, L"\nEspecifique o segundo ponto do arco: ")
                                 .from(start)
                                 .required());
    if (middle.status != RTNORM) co_return middle;
    const InputValue end = co_await context.ask(endPoint(middle.point));
    co_return arcTo(context, end, bulgeThrough(start, middle.point, end.point));
}

struct Way {
    const wchar_t* word;
    Task<InputValue> (*ask)(CommandContext, AcGePoint3d);
};
constexpr Way kWays[] = {
    {L"Angle", byAngle},   {L"CEnter", byCenter},      {L"Direction", byDirection},
    {L"Radius", byRadius}, {L"Second", bySecondPoint},
};

}  // namespace

Task<InputValue> plineArc(CommandContext context, AcGePoint3d start, double direction,
                          InputValue choice) {
    for (const Way& way : kWays) {
        if (!isWord(choice, way.word)) continue;
        InputValue segment = co_await way.ask(context, start);
        co_return segment;
    }
    co_return arcTo(context, choice, bulgeByDirection(start, choice.point, direction));
}

}  // namespace prancheta::commands
