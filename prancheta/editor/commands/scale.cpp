// SPDX-License-Identifier: MIT
// SCALE: enlarges or reduces a selection about a point.
#include "prancheta/editor/commands/answer_bits.h"
#include "prancheta/editor/commands/memory.h"
#include "prancheta/editor/commands/support.h"
#include "prancheta/editor/commands/table.h"

namespace prancheta::commands {

namespace {

constexpr Word kFactorWords[] = {{L"Copiar", L"Copy"}, {L"Referência", L"Reference"}};
constexpr Word kNewLengthWords[] = {{L"Pontos", L"Points"}};

/// Scaling by nothing is no scaling.
AcGeMatrix3d byFactor(const AcGePoint3d& base, double factor) {
    return factor > 0.0 ? AcGeMatrix3d::scaling(factor, base) : AcGeMatrix3d::kIdentity;
}

/// `number` is new length over reference; `status` RTCAN when a question was refused.
Task<InputValue> factorByReference(CommandContext context, AcGePoint3d base, Ids ids) {
    Memory& kept = memory(context);
    const InputValue reference = co_await context.ask(
        Prompt(InputKind::Distance, L"\nEspecifique o comprimento de referência <" +
                                        lengthText(kept.referenceLength) + L">: ")
            .bits(kPositive));
    if (reference.status == RTCAN) co_return reference;
    if (reference.status == RTNORM) kept.referenceLength = reference.number;

    InputValue wanted = co_await context.ask(
        Prompt(InputKind::Distance, L"\nEspecifique o novo comprimento ou [Pontos] <" +
                                        lengthText(kept.newLength) + L">: ")
            .from(base)
            .words(kNewLengthWords)
            .bits(kPositive)
            .changing(ids, [base, old = kept.referenceLength](const AcGePoint3d& to) {
                return byFactor(base, base.distanceTo(to) / old);
            }));
    if (wanted.status == RTKWORD)
        wanted = co_await askTwoPoints(context, L"\nEspecifique o primeiro ponto: ",
                                       L"\nEspecifique o segundo ponto: ");
    if (wanted.status == RTCAN) co_return wanted;
    if (wanted.status == RTNORM) kept.newLength = wanted.number;
    wanted.status = RTNORM;
    wanted.number = kept.newLength / kept.referenceLength;
    co_return wanted;
}

}  // namespace

CommandTask scale(CommandContext context) {
    const Selection chosen = co_await selectForChange(context);
    if (chosen.status != RTNORM) co_return endOf(chosen.status);
    const InputValue base =
        co_await context.ask(Prompt(InputKind::Point, L"\nEspecifique o ponto base: ").required());
    if (base.status != RTNORM) co_return endOf(base.status);

    Memory& kept = memory(context);
    bool copying = false;
    for (;;) {
        InputValue answer = co_await context.ask(
            Prompt(InputKind::Distance,
                   L"\nEspecifique o fator de escala ou [Copiar/Referência] <" +
                       lengthText(kept.scale) + L">: ")
                .from(base.point)
                .words(kFactorWords)
                .bits(kPositive)
                .changing(chosen.ids, [from = base.point](const AcGePoint3d& to) {
                    return byFactor(from, from.distanceTo(to));
                }));
        if (isWord(answer, L"Copy")) {
            say(context, L"Aplicando a escala a uma cópia dos objetos selecionados.");
            copying = true;
            continue;
        }
        if (isWord(answer, L"Reference"))
            answer = co_await factorByReference(context, base.point, chosen.ids);
        if (answer.status == RTCAN) co_return CommandEnd::Cancelled;
        if (answer.status == RTNORM && !(answer.number > 0.0)) {
            say(context, L"O fator de escala deve ser maior que zero.");
            continue;
        }
        if (answer.status == RTNORM) kept.scale = answer.number;
        break;
    }
    transformOrCopy(context, chosen.ids, AcGeMatrix3d::scaling(kept.scale, base.point),
                    copying ? Originals::Stay : Originals::Change);
    co_return CommandEnd::Done;
}

}  // namespace prancheta::commands
