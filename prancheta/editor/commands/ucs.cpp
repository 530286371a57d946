// SPDX-License-Identifier: MIT
// UCS: where the user's coordinates begin, and which way their X axis runs in the plane.
#include <cmath>

#include "prancheta/editor/commands/object_frame.h"
#include "prancheta/editor/commands/table.h"
#include "prancheta/editor/editor.h"

namespace prancheta::commands {

namespace {

constexpr Word kUcsWays[] = {{L"Mundo", L"World"},
                             {L"3pontos", L"3point"},
                             {L"Objeto", L"OBject"},
                             {L"Anterior", L"Previous"}};

using System = std::optional<AcGeMatrix3d>;

/// `status` RTNORM with the system that was said, RTNONE for Enter, RTCAN.
struct SaidSystem {
    int status = RTCAN;
    System system;
};

void refuseAnswer(const CommandContext& context, std::wstring_view why) {
    context.editor().complain(why, Complaint::Refused);
}

/// The X axis through a point; by Enter, where that is an answer, it keeps its direction.
Task<SaidSystem> askX(CommandContext context, AcGePoint3d origin, bool required) {
    for (;;) {
        Prompt prompt(InputKind::Point,
                      required ? L"\nPonto no eixo X: " : L"\nPonto no eixo X <aceitar>: ");
        prompt.from(origin);
        if (required) prompt.required();
        const InputValue x = co_await context.ask(prompt);
        if (x.status == RTCAN) co_return SaidSystem();
        const AcGeVector3d kept = context.editor().ucs() * AcGeVector3d::kXAxis;
        const System system = systemAlong(origin, x.status == RTNORM ? x.point - origin : kept);
        if (system) co_return SaidSystem{RTNORM, system};
        refuseAnswer(context, L"O eixo X precisa de um ponto fora da origem.");
    }
}

/// The third point says on which side Y lies: Z stays, so that it can only be the left one.
Task<SaidSystem> askThreePoints(CommandContext context) {
    const InputValue origin =
        co_await context.ask(Prompt(InputKind::Point, L"\nOrigem do SCP: ").required());
    if (origin.status != RTNORM) co_return SaidSystem();
    const SaidSystem said = co_await askX(context, origin.point, true);
    if (said.status != RTNORM) co_return said;
    for (;;) {
        const InputValue y = co_await context.ask(
            Prompt(InputKind::Point, L"\nPonto do lado positivo do eixo Y <aceitar>: ")
                .from(origin.point));
        if (y.status == RTCAN) co_return SaidSystem();
        if (y.status == RTNONE) co_return said;
        const AcGePoint3d at = said.system->inverse() * y.point;
        if (at.y > 1e-9 * (1.0 + std::abs(at.x))) co_return said;
        refuseAnswer(context,
                     std::abs(at.y) <= 1e-9 * (1.0 + std::abs(at.x))
                         ? L"Os três pontos estão em uma linha: indique um ponto fora do eixo X."
                         : L"Com Y para esse lado, Z apontaria para trás do desenho: indique um "
                           L"ponto do outro lado do eixo X.");
    }
}

Task<SaidSystem> askObject(CommandContext context) {
    for (;;) {
        const InputValue picked = co_await context.ask(
            Prompt(InputKind::Entity, L"\nSelecione o objeto que alinha o SCP: ").required());
        if (picked.status == RTCAN) co_return SaidSystem();
        std::wstring whyNot = L"Nenhum objeto aí.";
        std::optional<ObjectFrame> frame;
        if (!picked.entities.empty())
            frame = frameOfObject(picked.entities.front(), picked.point, whyNot);
        const System system = frame ? systemAlong(frame->origin, frame->along) : System();
        if (system) co_return SaidSystem{RTNORM, system};
        refuseAnswer(context, whyNot);
    }
}

Task<SaidSystem> askSystem(CommandContext context) {
    for (;;) {
        const InputValue answer = co_await context.ask(
            Prompt(InputKind::Point,
                   L"\nOrigem do SCP ou [Mundo/3pontos/Objeto/Anterior] <Mundo>: ")
                .words(kUcsWays));
        SaidSystem said;
        if (answer.status == RTNONE || isWord(answer, L"World"))
            said = {RTNORM, AcGeMatrix3d()};
        else if (isWord(answer, L"3point"))
            said = co_await askThreePoints(context);
        else if (isWord(answer, L"OBject"))
            said = co_await askObject(context);
        else if (answer.status == RTNORM)
            said = co_await askX(context, answer.point, false);
        else if (isWord(answer, L"Previous"))
            said.status = RTNONE;
        if (said.status != RTNONE || !context.editor().formerUcs().empty()) co_return said;
        refuseAnswer(context, L"Não há um SCP anterior.");
    }
}

}  // namespace

CommandTask ucs(CommandContext context) {
    Editor& editor = context.editor();
    if (editor.spaces().drawsOnPaper()) {
        say(context,
            L"No papel vale o SCP do papel: entre em uma janela com MSPACE ou vá à aba "
            L"Modelo.");
        co_return CommandEnd::Done;
    }
    const SaidSystem said = co_await askSystem(context);
    if (said.status == RTCAN) co_return CommandEnd::Cancelled;
    std::vector<AcGeMatrix3d>& former = editor.formerUcs();
    if (said.status == RTNONE) {
        editor.setUcs(former.back());
        former.pop_back();
        co_return CommandEnd::Done;
    }
    if (*said.system == editor.ucs()) {
        say(context, L"O SCP já é esse: nada mudou.");
        co_return CommandEnd::Done;
    }
    former.push_back(editor.ucs());
    editor.setUcs(*said.system);
    co_return CommandEnd::Done;
}

}  // namespace prancheta::commands
