// SPDX-License-Identifier: MIT
// LENGTHEN: the end nearer to the pick goes on or back.
#include <algorithm>
#include <cmath>

#include "prancheta/database/database_core.h"
#include "prancheta/editor/commands/cut.h"
#include "prancheta/editor/commands/table.h"
#include "prancheta/editor/editor.h"
#include "prancheta/editor/picking.h"
#include "prancheta/editor/wanted.h"
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

using ParameterRange = std::pair<double, double>;

/// Parameters between which the curve is `length` long, changed at one end; nothing, and the reason
/// in `whyNot`, where it cannot be.
std::optional<ParameterRange> rangeFor(const Curve& curve, CurveEnd end, double length,
                                       const wchar_t*& whyNot) {
    const double near = 4.0 * curve.tolerance();
    const Segment& last =
        end == CurveEnd::Start ? curve.segments().front() : curve.segments().back();
    const double beyond = length - curve.length();
    const double room = last.isRound()
                            ? last.lengthBetween(0.0, kTwoPi / std::abs(last.sweep) - 1.0)
                            : beyond + near;
    whyNot = nullptr;
    if (!(length > near))
        whyNot = L"O objeto ficaria sem comprimento.";
    else if (beyond > room - near && last.isRound())
        whyNot = L"O arco daria a volta toda: peça menos comprimento.";
    if (whyNot != nullptr) return {};
    if (end == CurveEnd::End) return ParameterRange(0.0, curve.parameterAt(length));
    return ParameterRange(curve.parameterAt(curve.length() - length), curve.count());
}

/// Made `length` long at one end; false when told why not.
bool makeLong(const CommandContext& context, const CutTarget& target, CurveEnd end, double length) {
    const wchar_t* whyNot = nullptr;
    const std::optional<ParameterRange> range = rangeFor(target.curve, end, length, whyNot);
    if (!range) refuse(context, whyNot);
    return range && setEnds(context, target, range->first, range->second);
}

/// What comes or goes at that end.
void showLength(const CutTarget& target, CurveEnd end, double length, Picture& out) {
    const wchar_t* whyNot = nullptr;
    const std::optional<ParameterRange> range = rangeFor(target.curve, end, length, whyNot);
    if (!range) return;
    const bool start = end == CurveEnd::Start;
    const auto [from, to] =
        std::minmax(start ? 0.0 : target.curve.count(), start ? range->first : range->second);
    if (to > from) showPart(target, from, to, out);
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

/// How long it becomes when the picked end goes to a point, which falls square on the object.
double lengthTo(const Curve& curve, CurveEnd end, const Vec2& to) {
    const double t = curve.nearest(to);
    const double length =
        end == CurveEnd::End ? curve.lengthAt(t) : curve.length() - curve.lengthAt(t);
    const std::optional<Extension> on = extensionOf(curve, end);
    if (!on) return length;
    const double further = on->curve.nearest(to);
    const bool beyond =
        further > 0.0 && distance(on->curve.at(further), to) <= distance(curve.at(t), to);
    return beyond ? curve.length() + on->curve.lengthAt(further) : length;
}

Task<int> dragEnd(CommandContext context, const CutTarget& target, CurveEnd end) {
    Prompt prompt(InputKind::Point, L"\nNova ponta: ");
    prompt.required().preview([&target, end](const AcGePoint3d& at, Picture& out) {
        showLength(target, end, lengthTo(target.curve, end, seen(at)), out);
    });
    const InputValue to = co_await context.ask(prompt);
    if (to.status != RTNORM) co_return to.status;
    (void)makeLong(context, target, end, lengthTo(target.curve, end, seen(to.point)));
    co_return RTNORM;
}

/// What a pick there would do by the rule.
void showPick(const CommandContext& context, const Rule& rule, const AcGePoint3d& at,
              Picture& out) {
    const AcDbObjectId id = entityAt(context.editor(), at, canBeCut);
    const std::optional<CutTarget> target = id.isNull() ? std::nullopt : cutTargetOrNone(id);
    if (!target || target->curve.closed() || rule.kind == L"DYnamic") return;
    showLength(*target, endNear(target->curve, seen(at)), rule.lengthFor(target->curve.length()),
               out);
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
            tellLength(context, pickedToCut(context, answer));
    }
    if (rule.kind != L"DYnamic") {
        const InputValue value = co_await askRule(context, rule.kind);
        if (value.status != RTNORM) co_return endOf(value.status);
        rule.value = value.number;
    }
    UndoSteps steps(context.database().core().undo());
    for (;;) {
        Prompt prompt(InputKind::Entity, L"\nSelecione o objeto a mudar ou [Desfazer]: ");
        prompt.words(kUndo).preview([context, &rule](const AcGePoint3d& at, Picture& out) {
            showPick(context, rule, at, out);
        });
        const InputValue answer = co_await context.ask(prompt);
        if (answer.status == RTNONE || answer.status == RTCAN) break;
        if (answer.status == RTKWORD) {
            if (!steps.undo()) say(context, L"Nada a desfazer.");
            continue;
        }
        if (answer.entities.empty()) {
            refuse(context, L"Nenhum objeto aí.");
            continue;
        }
        const std::optional<CutTarget> target = cutTarget(context, pickedToCut(context, answer));
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
