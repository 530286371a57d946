// SPDX-License-Identifier: MIT
// SOLDA: the symbol of a weld, from one line of text.
#include "prancheta/editor/commands/support.h"
#include "prancheta/editor/commands/table.h"
#include "prancheta/editor/editor.h"
#include "prancheta/entities/weld_symbol.h"

namespace prancheta::commands {

CommandTask solda(CommandContext context) {
    const InputValue tip =
        co_await context.ask(Prompt(InputKind::Point, L"\nPonta da seta: ").required());
    if (tip.status != RTNORM) co_return endOf(tip.status);
    const double dimscale = context.database().dimscale();
    const double scale = dimscale > 0.0 ? dimscale : 1.0;
    Prompt place(InputKind::Point, L"\nInício da linha de referência: ");
    place.from(tip.point).required();
    place.showing(context, [from = tip.point, scale](const AcGePoint3d& at) {
        return std::make_unique<WeldSymbol>(from, at, scale);
    });
    const InputValue elbow = co_await context.ask(place);
    if (elbow.status != RTNORM) co_return endOf(elbow.status);
    for (;;) {
        const InputValue line = co_await context.ask(
            Prompt(InputKind::Text, L"\nSolda (filete 6 60-150 ambos campo): ").wholeLine());
        if (line.status != RTNORM || line.text.empty()) co_return endOf(line.status);
        auto symbol = std::make_unique<WeldSymbol>(tip.point, elbow.point, scale);
        if (symbol->setDescription(line.text) == Acad::eOk)
            co_return addEntity(context, std::move(symbol)).isNull() ? CommandEnd::Failed
                                                                     : CommandEnd::Done;
        Weld unused;
        std::wstring why;
        (void)readWeld(line.text, unused, why);
        context.editor().complain(why, Complaint::Refused);
    }
}

}  // namespace prancheta::commands
