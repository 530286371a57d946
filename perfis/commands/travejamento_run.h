// SPDX-License-Identifier: MIT
// Commands of one piece that can be laced: a toggle "travejar" in their dialog.
#pragma once

#include "perfis/commands/perfil_run.h"

namespace perfis {

/// What differs between them, mm.
struct ToggleTravejamento {
    double (*maxAltura)(const Medidas&);  ///< greatest plate height
    double (*edgeRow)(const Medidas&);    ///< line of a row on edge, from the piece's point
};

/// A run of a profile command with lacing.
std::unique_ptr<PerfilRun> makeTravejado(const PerfilDescription& description,
                                         const ToggleTravejamento& travejamento);

}  // namespace perfis
