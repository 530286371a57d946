// SPDX-License-Identifier: MIT
// The displacement that MOVE, COPY and STRETCH ask for.
#include "prancheta/editor/commands/displacement.h"

namespace prancheta::commands {

Task<InputValue> askDisplacement(CommandContext context, ShowsDisplacement shows) {
    Memory& kept = memory(context);
    Prompt prompt(InputKind::Point, L"\nEspecifique o deslocamento <" +
                                        pointText(AcGePoint3d::kOrigin + kept.displacement) +
                                        L">: ");
    shows(prompt.from(AcGePoint3d::kOrigin), AcGePoint3d::kOrigin);
    InputValue answer = co_await context.ask(prompt);
    if (answer.status == RTCAN) co_return answer;
    if (answer.status == RTNORM) kept.displacement = answer.point.asVector();
    answer.status = RTNORM;
    answer.point = AcGePoint3d::kOrigin + kept.displacement;
    co_return answer;
}

Task<InputValue> askBaseAndSecond(CommandContext context, ShowsDisplacement shows) {
    static constexpr Word kDisplacementWords[] = {{L"Deslocamento", L"Displacement"}};
    const InputValue base = co_await context.ask(
        Prompt(InputKind::Point, L"\nEspecifique o ponto base ou [Deslocamento] <Deslocamento>: ")
            .words(kDisplacementWords));
    if (base.status == RTCAN) co_return base;
    if (base.status != RTNORM) co_return co_await askDisplacement(context, shows);
    Prompt prompt(InputKind::Point,
                  L"\nEspecifique o segundo ponto ou <usar o primeiro ponto como deslocamento>: ");
    shows(prompt.from(base.point), base.point);
    InputValue second = co_await context.ask(prompt);
    if (second.status == RTCAN) co_return second;
    if (second.status == RTNONE)
        second.point = base.point;
    else
        second.point = AcGePoint3d::kOrigin + (second.point - base.point);
    second.status = RTNORM;
    co_return second;
}

}  // namespace prancheta::commands
