// SPDX-License-Identifier: MIT
// LENGTHEN: the end nearer to the pick goes on or back.
#include <cmath>

#include "prancheta/database/database_core.h"
#include "prancheta/editor/commands/cut.h"
#include "prancheta/editor/commands/table.h"
#include "prancheta/editor/editor.h"
#include "prancheta/editor/picking.h"
#include "prancheta/geometry/angles.h"

namespace prancheta::commands {

namespace {

constexpr Word kLengthenWords[] = {{L"DElta", L"DElta"},
                                   {L"Percentual", L"Percent"},
                                   {L"Total", L"Total"},
                                   {L"DInâmico", L"DYnamic"}};

/// The end that is nearer along the curve.
CurveEnd endNear(const Curve& curve, const Vec2& pick) {
    return curve.lengthAt(curve.nearest(pick)) < curve.length() / 2.0 ? CurveEnd::Start
                                                                      : CurveEnd::End;
}

/// Made `length` long at one end; false when told why not.
bool makeLong(const CommandContext& context, const CutTarget& target, CurveEnd end, double length) {
    const Curve& curve = target.curve;
    const double near = 4.0 * curve.tolerance();
    const Segment& last =
        end == CurveEnd::Start ? curve.segments().front() : curve.segments().back();
    const double beyond = length - curve.length();
    const double room = last.isRound()
                            ? last.lengthBetween(0.0, kTwoPi / std::abs(last.sweep) - 1.0)
                            : beyond + near;
    if (!(length > near)) {
        refuse(context, L"O objeto ficaria sem comprimento.");
        return false;
    }
    if (beyond > room - near && last.isRound()) {
        refuse(context, L"O arco daria a volta toda: peça menos comprimento.");
        return false;
    }
    if (end == CurveEnd::End) return setEnds(context, target, 0.0, curve.parameterAt(length));
    return setEnds(context, target, curve.parameterAt(curve.length() - length), curve.count());
}

/// How long the object becomes.
struct Rule {
    std::wstring kind;  ///< global word
    double value = 0.0;

    double lengthFor(double present) const {
        if (kind == L"DElta") return present + value;
        return kind == L"Percent" ? present * value / 100.0 : value;
    }
};

Task<InputValue> askRule(CommandContext context, std::wstring kind) {
    if (kind == L"DElta")
        co_return co_await context.ask(
            Prompt(InputKind::Distance, L"\nQuanto a mais (negativo: a menos): ").required());
    if (kind == L"Percent")
        co_return co_await context.ask(Prompt(InputKind::Real, L"\nPercentual do comprimento: ")
                                           .required()
                                           .bits(RSG_NOZERO | RSG_NONEG));
    co_return co_await context.ask(Prompt(InputKind::Distance, L"\nComprimento total: ")
                                       .required()
                                       .bits(RSG_NOZERO | RSG_NONEG));
}

/// Where the picked end goes is shown by a point, which falls square on the object.
Task<int> dragEnd(CommandContext context, const CutTarget& target, CurveEnd end) {
    Prompt prompt(InputKind::Point, L"\nNova ponta: ");
    const InputValue to = co_await context.ask(prompt.required());
    if (to.status != RTNORM) co_return to.status;
    const Curve& curve = target.curve;
    const double t = curve.nearest(seen(to.point));
    double length = end == CurveEnd::End ? curve.lengthAt(t) : curve.length() - curve.lengthAt(t);
    const std::optional<Extension> on = extensionOf(curve, end);
    if (on) {
        const double further = on->curve.nearest(seen(to.point));
        const double miss = distance(curve.at(t), seen(to.point));
        if (further > 0.0 && distance(on->curve.at(further), seen(to.point)) <= miss)
            length = curve.length() + on->curve.lengthAt(further);
    }
    (void)makeLong(context, target, end, length);
    co_return RTNORM;
}

void tellLength(const CommandContext& context, AcDbObjectId id) {
    if (const std::optional<CutTarget> target = cutTarget(context, id))
        say(context, L"Comprimento atual: " + toldLength(target->curve.length()));
}

}  // namespace

CommandTask lengthen(CommandContext context) {
    static constexpr Word kUndo[] = {{L"Desfazer", L"Undo"}};
    Rule rule;
    while (rule.kind.empty()) {
        const InputValue answer = co_await context.ask(
            Prompt(InputKind::Entity,
                   L"\nSelecione um objeto ou [DElta/Percentual/Total/DInâmico]: ")
                .words(kLengthenWords));
        if (answer.status == RTNONE || answer.status == RTCAN) co_return endOf(answer.status);
        if (answer.status == RTKWORD)
            rule.kind = answer.text;
        else if (answer.entities.empty())
            refuse(context, L"Nenhum objeto aí.");
        else
            tellLength(context, answer.entities.front());
    }
    if (rule.kind != L"DYnamic") {
        const InputValue value = co_await askRule(context, rule.kind);
        if (value.status != RTNORM) co_return endOf(value.status);
        rule.value = value.number;
    }
    UndoSteps steps(context.database().core().undo());
    for (;;) {
        const InputValue answer = co_await context.ask(
            Prompt(InputKind::Entity, L"\nSelecione o objeto a mudar ou [Desfazer]: ")
                .words(kUndo));
        if (answer.status == RTNONE || answer.status == RTCAN) break;
        if (answer.status == RTKWORD) {
            if (!steps.undo()) say(context, L"Nada a desfazer.");
            continue;
        }
        if (answer.entities.empty()) {
            refuse(context, L"Nenhum objeto aí.");
            continue;
        }
        const std::optional<CutTarget> target = cutTarget(context, answer.entities.front());
        if (!target) continue;
        if (target->curve.closed()) {
            refuse(context, L"Um objeto fechado não tem ponta a estender.");
            continue;
        }
        const CurveEnd end = endNear(target->curve, seen(answer.point));
        if (rule.kind != L"DYnamic")
            (void)makeLong(context, *target, end, rule.lengthFor(target->curve.length()));
        else if (co_await dragEnd(context, *target, end) == RTCAN)
            break;
        steps.next();
    }
    co_return CommandEnd::Done;  // Esc only ends the picking
}

}  // namespace prancheta::commands
