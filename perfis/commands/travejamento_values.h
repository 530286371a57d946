// SPDX-License-Identifier: MIT
// The lacing of a drawn member: as it knows it, else read back from its plates.
#pragma once

#include <string>

#include "perfis/commands/chapa_schemes.h"
#include "perfis/commands/peca_values.h"
#include "perfis/dialogs/travejamento.h"

namespace perfis {

struct PecaTravejamento {
    TravejamentoParams chapas;  ///< A = 0: no lacing
    TravejamentoPlanes planes = TravejamentoPlanes::kBoth;
    double pitch = 0.0;        ///< 0: as the number of parts gives it
    double comprimento = 0.0;  ///< of the member that they were laid for
};

PecaTravejamento travejamentoOf(const PecaValues& peca);

/// Spacing of the lacing in a member of this length: where that is its own nothing moves, in
/// another one the number of parts stays.
double spacingFor(const PecaTravejamento& travejamento, double comprimento);

/// What a member keeps of plates A high and C wide; `planes` as zp::Lacing has them. In a section,
/// and without C or spacing, there is one part.
zp::Lacing lacingFor(double A, double C, const ChapaSpacing& spacing, int planes);

/// Said when lacing that a member had does not fit its new length.
std::wstring tooManyParts(const PecaTravejamento& travejamento, double comprimento);

}  // namespace perfis
