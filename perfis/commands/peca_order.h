// SPDX-License-Identifier: MIT
// What a command's dialogs are filled in with, all at once.
#pragma once

#include <optional>

#include "perfis/commands/run_state.h"
#include "perfis/dialogs/travejamento.h"

namespace perfis {

/// Plates as the lacing dialog gives them, mm.
struct OrderedChapas {
    /// A and the number of parts as in the dialog; nothing: A is what the command makes it.
    std::optional<double> A;
    double C = 0.0;
    int n = 1;
    double spacing = 0.0;  ///< of its own; 0: as the number of parts gives it
};

struct PecaOrder {
    RunState state;
    bool cotas = false;
    std::optional<OrderedChapas> chapas;
    /// Of a star, as its dialog numbers them from 0; nothing: both.
    std::optional<int> plano;
};

}  // namespace perfis
