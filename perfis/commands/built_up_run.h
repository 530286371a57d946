// SPDX-License-Identifier: MIT
// Commands that draw two pieces held together by plates: a button "travejar" in their dialog.
#pragma once

#include "perfis/commands/chapa_schemes.h"
#include "perfis/commands/perfil_run.h"

namespace perfis {

/// What the tile "a" measures.
enum class Clearance {
    kGap,    ///< between the pieces
    kWidth,  ///< over the whole; 0: the pieces touch
};

/// Which sides of the member are drawn.
enum class SidesDrawn {
    kAll,
    kAboveAndRight,  ///< the opposite sides show the same and are drawn as these
};

/// Who gives the height A of the plates.
enum class PlateHeight {
    kUser,
    kClearance,  ///< they fill "a" and are as high
};

/// What differs between the commands besides their description, mm.
struct BuiltUpRule {
    Clearance clearance;
    SidesDrawn sides;
    PlateHeight plateHeight;
    /// Limits of the plate height: above the one, not above the other.
    double (*minHeight)(const Medidas&);
    double (*maxHeight)(const Medidas&);
    LaidPlates (*layPlates)(const LacedMember&);
    /// The dialog has a popup "plano".
    bool choosesPlanes = false;
};

/// A run of a built-up command.
std::unique_ptr<ProfileRun> makeBuiltUp(const ProfileDescription& description,
                                        const BuiltUpRule& rule);

/// What a dialog's lacing is tested with; lengths in mm.
struct LacingTest {
    double space = 0.0;      ///< clear space between the pieces, which A must span
    double minHeight = 0.0;  ///< A must be greater when there is a space
    bool sectionOnly = true;
};

/// True when plates A high and C wide at the spacing L1 hold the pieces together; A = 0 will do
/// for pieces that touch.
bool lacingHolds(double A, double C, double L1, const LacingTest& test);

}  // namespace perfis
