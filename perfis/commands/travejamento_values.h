// SPDX-License-Identifier: MIT
// The lacing of a drawn member, read back from its plates.
#pragma once

#include "perfis/commands/chapa_schemes.h"
#include "perfis/commands/peca_values.h"
#include "perfis/dialogs/travejamento.h"

namespace perfis {

struct PecaTravejamento {
    TravejamentoParams chapas;  ///< A = 0: no lacing
    TravejamentoPlanes planes = TravejamentoPlanes::kBoth;
    double pitch = 0.0;        ///< of the plates that stand
    double comprimento = 0.0;  ///< of the member that they were laid for
};

PecaTravejamento travejamentoOf(const PecaValues& peca);

/// Spacing of the lacing in a member of this length: where that is its own nothing moves, in
/// another one the number of parts stays.
double spacingFor(const PecaTravejamento& travejamento, double comprimento);

/// From the left edge of the first plate to that of the next one; 0 without a second one.
double chapaPitch(const PecaValues& peca);

}  // namespace perfis
