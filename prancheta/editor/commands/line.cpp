// SPDX-License-Identifier: MIT
// LINE: a chain of lines.
#include "dbents.h"
#include "prancheta/editor/commands/arcs.h"
#include "prancheta/editor/commands/support.h"
#include "prancheta/editor/commands/table.h"
#include "prancheta/editor/editor.h"

namespace prancheta::commands {

namespace {

constexpr Word kUndo[] = {{L"Desfazer", L"Undo"}};
constexpr Word kCloseUndo[] = {{L"Fechar", L"Close"}, {L"Desfazer", L"Undo"}};

Prompt nextPoint(const CommandContext& context, const std::vector<AcGePoint3d>& corners) {
    const bool closable = corners.size() > 2;
    Prompt prompt(InputKind::Point, closable
                                        ? L"\nEspecifique o próximo ponto ou [Fechar/Desfazer]: "
                                        : L"\nEspecifique o próximo ponto ou [Desfazer]: ");
    prompt.from(corners.back());
    prompt.showing(context, [from = corners.back()](const AcGePoint3d& to) {
        return std::make_unique<AcDbLine>(from, to);
    });
    if (closable)
        prompt.words(kCloseUndo);
    else
        prompt.words(kUndo);
    return prompt;
}

}  // namespace

CommandTask line(CommandContext context) {
    InputValue answer =
        co_await context.ask(Prompt(InputKind::Point, L"\nEspecifique o primeiro ponto: "));
    if (answer.status == RTCAN) co_return CommandEnd::Cancelled;
    std::vector<AcGePoint3d> corners{answer.status == RTNONE ? context.editor().lastPoint()
                                                             : answer.point};
    Ids lines;
    for (;;) {
        answer = co_await context.ask(nextPoint(context, corners));
        if (isWord(answer, L"Undo")) {
            if (lines.empty()) {
                say(context, L"Todos os segmentos já foram desfeitos.");
                continue;
            }
            (void)eraseAll(context, {lines.back()});
            lines.pop_back();
            corners.pop_back();
            context.editor().setLastPoint(corners.back());
            continue;
        }
        const bool closing = isWord(answer, L"Close");
        if (answer.status != RTNORM && !closing) break;
        const AcGePoint3d end = closing ? corners.front() : answer.point;
        const AcDbObjectId id = addEntity(context, std::make_unique<AcDbLine>(corners.back(), end));
        if (id.isNull()) co_return CommandEnd::Failed;
        lines.push_back(id);
        corners.push_back(end);
        if (closing) break;
    }
    if (!lines.empty())
        keepLastAngle(context, directionOf(corners[corners.size() - 2], corners.back()));
    // Esc only ends the chain: the lines drawn stay.
    co_return lines.empty() ? endOf(answer.status) : CommandEnd::Done;
}

}  // namespace prancheta::commands
