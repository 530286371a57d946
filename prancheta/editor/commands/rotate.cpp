// SPDX-License-Identifier: MIT
// ROTATE: turns a selection about a point.
#include "acedads.h"
#include "prancheta/editor/commands/arcs.h"
#include "prancheta/editor/commands/memory.h"
#include "prancheta/editor/commands/support.h"
#include "prancheta/editor/commands/table.h"
#include "prancheta/editor/editor.h"
#include "prancheta/geometry/angles.h"

namespace prancheta::commands {

namespace {

constexpr Word kAngleWords[] = {{L"Copiar", L"Copy"}, {L"Referência", L"Reference"}};
constexpr Word kNewAngleWords[] = {{L"Pontos", L"Points"}};

void printAngleDirection(const CommandContext& context) {
    const SystemVariables& variables = context.editor().variables();
    ACHAR base[512] = L"0";
    (void)acdbRToS(variables.real(L"ANGBASE") * 180.0 / kPi, 2, variables.number(L"AUPREC"), base);
    const bool clockwise = variables.number(L"ANGDIR") != 0;
    say(context, L"Ângulo positivo atual no UCS:  ANGDIR=" +
                     std::wstring(clockwise ? L"horário" : L"anti-horário") + L"  ANGBASE=" +
                     std::wstring(base));
}

/// `number` is new angle less reference; `status` RTCAN when a question was refused.
Task<InputValue> angleByReference(CommandContext context, AcGePoint3d base, Ids ids) {
    Memory& kept = memory(context);
    InputValue reference = co_await context.ask(
        Prompt(InputKind::Angle, L"\nEspecifique o ângulo de referência <" +
                                     directionText(kept.referenceAngle) + L">: ")
            .absolute());
    if (reference.status == RTCAN) co_return reference;
    if (reference.status == RTNORM) kept.referenceAngle = reference.number;

    const double turn = userTurn(context);
    InputValue wanted = co_await context.ask(
        Prompt(InputKind::Angle,
               L"\nEspecifique o novo ângulo ou [Pontos] <" + directionText(kept.newAngle) + L">: ")
            .from(base)
            .words(kNewAngleWords)
            .absolute()
            .changing(ids, [base, old = kept.referenceAngle + turn](const AcGePoint3d& to) {
                return AcGeMatrix3d::rotation(directionOf(base, to) - old, AcGeVector3d::kZAxis,
                                              base);
            }));
    if (wanted.status == RTKWORD) {
        const InputValue start = co_await context.ask(
            Prompt(InputKind::Point, L"\nEspecifique o primeiro ponto: ").required());
        if (start.status != RTNORM) co_return start;
        wanted = co_await context.ask(Prompt(InputKind::Point, L"\nEspecifique o segundo ponto: ")
                                          .from(start.point)
                                          .required());
        wanted.number = directionOf(start.point, wanted.point) - turn;
    }
    if (wanted.status == RTCAN) co_return wanted;
    if (wanted.status == RTNORM) kept.newAngle = wanted.number;
    wanted.status = RTNORM;
    wanted.number = kept.newAngle - kept.referenceAngle;
    co_return wanted;
}

}  // namespace

CommandTask rotate(CommandContext context) {
    printAngleDirection(context);
    const Selection chosen = co_await selectForChange(context);
    if (chosen.status != RTNORM) co_return endOf(chosen.status);
    const InputValue base =
        co_await context.ask(Prompt(InputKind::Point, L"\nEspecifique o ponto base: ").required());
    if (base.status != RTNORM) co_return endOf(base.status);

    Memory& kept = memory(context);
    bool copying = false;
    for (;;) {
        InputValue answer = co_await context.ask(
            Prompt(InputKind::Angle, L"\nEspecifique o ângulo de rotação ou [Copiar/Referência] <" +
                                         turnText(context, kept.rotation) + L">: ")
                .from(base.point)
                .words(kAngleWords)
                .turning(chosen.ids));
        if (isWord(answer, L"Copy")) {
            say(context, L"Girando uma cópia dos objetos selecionados.");
            copying = true;
            continue;
        }
        if (isWord(answer, L"Reference"))
            answer = co_await angleByReference(context, base.point, chosen.ids);
        if (answer.status == RTCAN) co_return CommandEnd::Cancelled;
        if (answer.status == RTNORM) kept.rotation = answer.number;
        break;
    }
    transformOrCopy(context, chosen.ids,
                    AcGeMatrix3d::rotation(kept.rotation, AcGeVector3d::kZAxis, base.point),
                    copying ? Originals::Stay : Originals::Change);
    co_return CommandEnd::Done;
}

}  // namespace prancheta::commands
