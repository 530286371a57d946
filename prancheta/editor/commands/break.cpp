// SPDX-License-Identifier: MIT
// BREAK: takes out what lies between two points, or parts an object at one.
#include "prancheta/editor/commands/cut.h"
#include "prancheta/editor/commands/table.h"
#include "prancheta/editor/editor.h"

namespace prancheta::commands {

namespace {

/// A circle or arc is broken counter-clockwise from the first point to the second, a closed
/// polyline the way it goes.
void breakBetween(const CommandContext& context, const CutTarget& target, const AcGePoint3d& first,
                  const AcGePoint3d& second) {
    const Curve& curve = target.curve;
    double from = curve.nearest(seen(first));
    double to = curve.nearest(seen(second));
    const double apart = std::abs(curve.lengthAt(to) - curve.lengthAt(from));
    const bool onePoint = apart <= 4.0 * curve.tolerance();
    if (curve.closed()) {
        if (onePoint) return refuse(context, L"Um objeto fechado se quebra entre dois pontos.");
        // Seen from below, a circle goes clockwise.
        if (curve.segments().size() == 1 && curve.area() < 0.0) std::swap(from, to);
        if (to < from) to += curve.count();
    } else {
        if (to < from) std::swap(from, to);
        const double whole = curve.length();
        const double near = 4.0 * curve.tolerance();
        const bool nothing = curve.lengthAt(from) <= near && curve.lengthAt(to) >= whole - near;
        const bool atEnd =
            onePoint && (curve.lengthAt(to) <= near || curve.lengthAt(from) >= whole - near);
        if (nothing) return refuse(context, L"Entre os pontos está o objeto todo: use APAGAR.");
        if (atEnd) return refuse(context, L"O ponto está na ponta do objeto: nada a quebrar.");
    }
    (void)takeOut(context, target, from, onePoint ? from : to);
}

}  // namespace

CommandTask breakObject(CommandContext context) {
    static constexpr Word kFirst[] = {{L"Primeiro", L"First"}};
    std::optional<CutTarget> target;
    AcGePoint3d first;
    while (!target) {
        const InputValue picked = co_await context.ask(
            Prompt(InputKind::Entity, L"\nSelecione o objeto a quebrar: ").required());
        if (picked.status == RTCAN) co_return CommandEnd::Cancelled;
        if (picked.entities.empty()) {
            refuse(context, L"Nenhum objeto aí.");
            continue;
        }
        target = cutTarget(context, pickedToCut(context, picked), Cuts::SplinesToo);
        first = picked.point;
    }
    InputValue second = co_await context.ask(
        Prompt(InputKind::Point,
               L"\nSegundo ponto de quebra ou [Primeiro ponto] (@: só um ponto): ")
            .words(kFirst)
            .required());
    if (isWord(second, L"First")) {
        const InputValue point = co_await context.ask(
            Prompt(InputKind::Point, L"\nPrimeiro ponto de quebra: ").required());
        if (point.status != RTNORM) co_return endOf(point.status);
        first = point.point;
        second = co_await context.ask(
            Prompt(InputKind::Point, L"\nSegundo ponto de quebra (@: só um ponto): ").required());
    }
    if (second.status != RTNORM) co_return endOf(second.status);
    breakBetween(context, *target, first, second.point);
    co_return CommandEnd::Done;
}

}  // namespace prancheta::commands
