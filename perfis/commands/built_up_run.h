// SPDX-License-Identifier: MIT
// Commands that draw two pieces held together by plates: a button "travejar" in their dialog.
#pragma once

#include "perfis/commands/chapa_schemes.h"
#include "perfis/commands/perfil_run.h"

namespace perfis {

/// What the tile "a" measures.
enum class Clearance {
    kVao,      ///< between the pieces
    kLargura,  ///< over the whole; 0: the pieces touch
};

/// Which sides of the member are drawn.
enum class SidesDrawn {
    kAll,
    kAboveAndRight,  ///< the opposite sides show the same and are drawn as these
};

/// Who gives the height A of the plates.
enum class ChapaAltura {
    kUser,
    kClearance,  ///< they fill "a" and are as high
};

/// What differs between the commands besides their description, mm.
struct BuiltUpRule {
    Clearance clearance;
    SidesDrawn sides;
    ChapaAltura chapaAltura;
    /// Limits of the plate height: above the one, not above the other.
    double (*minAltura)(const Medidas&);
    double (*maxAltura)(const Medidas&);
    LaidChapas (*layChapas)(const BarraTravejada&);
    /// The dialog has a popup "plano".
    bool choosesPlanes = false;
};

/// A run of a built-up command.
std::unique_ptr<PerfilRun> makeBuiltUp(const PerfilDescription& description,
                                       const BuiltUpRule& rule);

/// What a dialog's lacing is tested with; lengths in mm.
struct TravejamentoTest {
    double space = 0.0;      ///< clear space between the pieces, which A must span
    double minAltura = 0.0;  ///< A must be greater when there is a space
    bool secaoOnly = true;
};

/// True when plates A high and C wide at the spacing L1 hold the pieces together; A = 0 will do
/// for pieces that touch.
bool travejamentoHolds(double A, double C, double L1, const TravejamentoTest& test);

}  // namespace perfis
