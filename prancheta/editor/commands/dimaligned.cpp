// SPDX-License-Identifier: MIT
// DIMALIGNED: an aligned dimension of two points or of an object.
#include "prancheta/editor/commands/dimensions.h"
#include "prancheta/editor/commands/table.h"

namespace prancheta::commands {

CommandTask dimaligned(CommandContext context) {
    const Measured measured = co_await askEnds(
        context, L"\nEspecifique a origem da primeira linha de extensão ou <selecionar objeto>: ",
        L"\nEspecifique a origem da segunda linha de extensão: ");
    if (measured.status != RTNORM) co_return endOf(measured.status);
    const Ends ends = measured.ends;
    DimensionWords words;
    const auto at = [context, ends](const DimensionWords& said, const AcGePoint3d& line) {
        return dressed(context,
                       std::make_unique<AcDbAlignedDimension>(ends.first, ends.second, line), said);
    };
    for (;;) {
        Prompt place(InputKind::Point,
                     L"\nEspecifique a localização da linha de cota ou [textoM/Texto/Ângulo]: ");
        place.from(ends.second).words(kTextWords).required();
        place.showing(context, [at, words](const AcGePoint3d& line) { return at(words, line); });
        const InputValue answer = co_await context.ask(place);
        if (answer.status == RTKWORD) {
            const auto trial = at({}, ends.second);
            if (co_await askWords(context, answer, static_cast<const AcDbDimension&>(*trial),
                                  words) == RTCAN)
                co_return CommandEnd::Cancelled;
            continue;
        }
        if (answer.status != RTNORM) co_return endOf(answer.status);
        if (addDimension(context, at(words, answer.point)).isNull()) co_return CommandEnd::Failed;
        co_return CommandEnd::Done;
    }
}

}  // namespace prancheta::commands
