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
    Placing placing;
    placing.question = L"\nEspecifique a localização da linha de cota ou [textoM/Texto/Ângulo]: ";
    placing.from = placing.trial = ends.second;
    placing.make = [ends](const AcGePoint3d& line) {
        return std::make_unique<AcDbAlignedDimension>(ends.first, ends.second, line);
    };
    co_return co_await placeDimension(context, std::move(placing));
}

}  // namespace prancheta::commands
