// SPDX-License-Identifier: MIT
// Lacing ("travejamento"): the values, their limits, and the dialog that edits them.
#pragma once

#include <limits>
#include <optional>

#include "perfis/dialogs/tiles.h"
#include "zp/forja/zpstring.h"

namespace perfis {

/// Lengths in mm.
struct TravejamentoParams {
    double A = 0.0;  ///< height of a plate, across the member; 0: no lacing
    double C = 0.0;  ///< width of a plate, along the member
    int n = 1;       ///< spaces into which the plates divide the member
};

struct TravejamentoLimites {
    int somenteAltura = 1;   ///< only A is edited: the section alone is drawn
    int pickngo = 0;         ///< kept for the caller
    int alturaEditavel = 1;  ///< 0: A is given by the profile
    double comp = 1000.0;    ///< length over which the plates are spread
    double minA = 0.0;       ///< A must be greater
    double maxA = std::numeric_limits<double>::max();  ///< A must not be greater
};

/// Room for every message of ValidaTravejamento, terminator included.
inline constexpr int kTravejamentoMessage = 400;

/// Runs the dialog. 1 and `params` changed when it was accepted, else 0.
int EditTravejamento(TravejamentoParams& params, const TravejamentoLimites& limits);

/// The first fault of the values; nothing when they are acceptable.
std::optional<Fault> travejamentoFault(const TravejamentoParams& params,
                                       const TravejamentoLimites& limits);

/// 1 when the values are acceptable. 0 otherwise, with the reason and its terminator in `message`
/// unless that is null.
int ValidaTravejamento(const TravejamentoParams& params, const TravejamentoLimites& limits,
                       wchar_t* message);

/// Spacing of the plates, not below 0. 0, and L1 untouched, when n is 0.
int CalcEspacamento(const TravejamentoParams& params, double comp, double& L1);

/// Whole number of spaces for the wanted spacing, and the spacing that comes of it.
void CalcPartes(TravejamentoParams& params, double comp, double& L1);

/// At most two decimals, no trailing zeros.
ZpString FormatDim(double value);

}  // namespace perfis
