// SPDX-License-Identifier: MIT
// CIRCLE: by centre and radius or diameter, by three points, by the ends of a diameter, by two
// tangents and the radius.
#include "dbents.h"
#include "prancheta/editor/commands/arcs.h"
#include "prancheta/editor/commands/memory.h"
#include "prancheta/editor/commands/picked_edge.h"
#include "prancheta/editor/commands/support.h"
#include "prancheta/editor/commands/table.h"
#include "prancheta/editor/commands/tangent_circle.h"
#include "prancheta/editor/editor.h"

namespace prancheta::commands {

namespace {

constexpr Word kCircleWays[] = {{L"3P", L"3P"}, {L"2P", L"2P"}, {L"Ttr", L"Ttr"}};
constexpr Word kDiameter[] = {{L"Diâmetro", L"Diameter"}};

CommandEnd addCircle(const CommandContext& context, const AcGePoint3d& center, double radius) {
    memory(context).circleRadius = radius;
    const AcDbObjectId id =
        addEntity(context, std::make_unique<AcDbCircle>(center, AcGeVector3d::kZAxis, radius));
    return id.isNull() ? CommandEnd::Failed : CommandEnd::Done;
}

std::wstring withDefault(std::wstring prompt, double value) {
    if (value > 0.0) prompt += L" <" + lengthText(value) + L">";
    prompt += L": ";
    return prompt;
}

using Made = std::unique_ptr<AcDbEntity>;

Made circleBy(const AcGePoint3d& center, double radius) {
    if (!(radius > 0.0)) return nullptr;
    return std::make_unique<AcDbCircle>(center, AcGeVector3d::kZAxis, radius);
}

CommandTask threePoints(CommandContext context) {
    AcGePoint3d points[3];
    const wchar_t* const prompts[] = {L"\nEspecifique o primeiro ponto no círculo: ",
                                      L"\nEspecifique o segundo ponto no círculo: ",
                                      L"\nEspecifique o terceiro ponto no círculo: "};
    for (int i = 0; i < 3; ++i) {
        Prompt prompt(InputKind::Point, prompts[i]);
        prompt.required();
        if (i > 0) prompt.from(points[i - 1]);
        if (i == 2)
            prompt.showing(context, [a = points[0], b = points[1]](const AcGePoint3d& c) {
                const std::optional<PlaneCircle> circle = circleThrough(a, b, c);
                return circle ? circleBy(circle->center, circle->radius) : Made();
            });
        const InputValue answer = co_await context.ask(prompt);
        if (answer.status != RTNORM) co_return endOf(answer.status);
        points[i] = answer.point;
    }
    const std::optional<PlaneCircle> circle = circleThrough(points[0], points[1], points[2]);
    if (!circle) {
        say(context, L"O círculo não existe: os pontos estão em uma linha reta.");
        co_return CommandEnd::Failed;
    }
    co_return addCircle(context, circle->center, circle->radius);
}

CommandTask twoPoints(CommandContext context) {
    const InputValue first = co_await context.ask(
        Prompt(InputKind::Point, L"\nEspecifique a primeira extremidade do diâmetro do círculo: ")
            .required());
    if (first.status != RTNORM) co_return endOf(first.status);
    const InputValue second = co_await context.ask(
        Prompt(InputKind::Point, L"\nEspecifique a segunda extremidade do diâmetro do círculo: ")
            .from(first.point)
            .required()
            .showing(context, [from = first.point](const AcGePoint3d& to) {
                const AcGeVector3d half = (to - from) / 2.0;
                return circleBy(from + half, half.length());
            }));
    if (second.status != RTNORM) co_return endOf(second.status);
    const AcGeVector3d half = (second.point - first.point) / 2.0;
    if (half.isZeroLength()) {
        say(context, L"O círculo não existe: os dois pontos coincidem.");
        co_return CommandEnd::Failed;
    }
    co_return addCircle(context, first.point + half, half.length());
}

struct Touched {
    int status = RTCAN;
    TouchedCurve curve;
};

std::optional<TouchedCurve> curveAt(const CommandContext& context, const InputValue& picked) {
    const std::optional<Edge> edge = pickedEdge(context, picked);
    if (!edge) return {};
    if (edge->isArc()) return TouchedCurve{edge->center, {}, edge->radius, picked.point};
    return TouchedCurve{edge->a, edge->b - edge->a, 0.0, picked.point};
}

Task<Touched> askTouched(CommandContext context, std::wstring prompt) {
    Touched touched;
    for (;;) {
        const InputValue picked =
            co_await context.ask(Prompt(InputKind::Entity, prompt).required());
        touched.status = picked.status;
        if (picked.status == RTCAN) co_return touched;
        if (picked.status != RTNORM || picked.entities.empty()) {
            say(context, L"Nenhum objeto encontrado nesse ponto.");
            continue;
        }
        if (const std::optional<TouchedCurve> curve = curveAt(context, picked)) {
            touched.curve = *curve;
            co_return touched;
        }
        say(context, L"O objeto selecionado não tem linha nem arco para tangenciar.");
    }
}

CommandTask twoTangents(CommandContext context) {
    const Touched first = co_await askTouched(
        context, L"\nEspecifique o ponto no objeto para a primeira tangente do círculo: ");
    if (first.status != RTNORM) co_return endOf(first.status);
    const Touched second = co_await askTouched(
        context, L"\nEspecifique o ponto no objeto para a segunda tangente do círculo: ");
    if (second.status != RTNORM) co_return endOf(second.status);
    const double last = memory(context).circleRadius;
    Prompt prompt(InputKind::Distance, withDefault(L"\nEspecifique o raio do círculo", last));
    prompt.bits(RSG_NOZERO | RSG_NONEG);
    if (last <= 0.0) prompt.required();
    const InputValue size = co_await context.ask(prompt);
    if (size.status == RTCAN) co_return CommandEnd::Cancelled;
    const double radius = size.status == RTNONE ? last : size.number;
    const std::optional<AcGePoint3d> center = centerTouching(first.curve, second.curve, radius);
    if (!center) {
        say(context, L"O círculo não existe: nenhum com esse raio é tangente aos dois objetos.");
        co_return CommandEnd::Failed;
    }
    co_return addCircle(context, *center, radius);
}

}  // namespace

CommandTask circle(CommandContext context) {
    const InputValue center = co_await context.ask(
        Prompt(InputKind::Point, L"\nEspecifique o ponto central do círculo ou [3P/2P/Ttr]: ")
            .words(kCircleWays)
            .required());
    if (isWord(center, L"3P")) {
        const CommandEnd end = co_await threePoints(context);
        co_return end;
    }
    if (isWord(center, L"2P")) {
        const CommandEnd end = co_await twoPoints(context);
        co_return end;
    }
    if (isWord(center, L"Ttr")) {
        const CommandEnd end = co_await twoTangents(context);
        co_return end;
    }
    if (center.status != RTNORM) co_return endOf(center.status);

    const double last = memory(context).circleRadius;
    double parts = 1.0;  // of the radius in what is asked
    Prompt prompt(InputKind::Distance,
                  withDefault(L"\nEspecifique o raio do círculo ou [Diâmetro]", last));
    prompt.from(center.point).words(kDiameter).bits(RSG_NOZERO | RSG_NONEG);
    prompt.showing(context, [at = center.point](const AcGePoint3d& to) {
        return circleBy(at, at.distanceTo(to));
    });
    if (last <= 0.0) prompt.required();
    InputValue size = co_await context.ask(prompt);
    if (size.status == RTKWORD) {
        parts = 2.0;
        Prompt across(InputKind::Distance,
                      withDefault(L"\nEspecifique o diâmetro do círculo", 2.0 * last));
        across.from(center.point).bits(RSG_NOZERO | RSG_NONEG);
        across.showing(context, [at = center.point](const AcGePoint3d& to) {
            return circleBy(at, at.distanceTo(to) / 2.0);
        });
        if (last <= 0.0) across.required();
        size = co_await context.ask(across);
    }
    if (size.status == RTCAN) co_return CommandEnd::Cancelled;
    const double radius = size.status == RTNONE ? last : size.number / parts;
    co_return addCircle(context, center.point, radius);
}

}  // namespace prancheta::commands
