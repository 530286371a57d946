// SPDX-License-Identifier: MIT
// The dialog in which the user chooses the view, alignment and length of a member.
#pragma once

#include <optional>
#include <string>

#include "perfis/dialogs/tiles.h"

namespace perfis {

/// What a command remembers of the views dialog.
struct VistasChoice {
    int vista = 3;             ///< ZpObject::ZpVistas of the member
    int alignment = 3;         ///< insertion code of the member, 1 to 9
    double comprimento = 0.0;  ///< mm
    bool secaoOnly = true;
    bool materialList = false;
    int pecas = 0;           ///< in the material list
    bool pickAndGo = false;  ///< pieces are placed by start and end point
    std::wstring marca{};    ///< in the material list; empty: the next free one
};

/// Why the dialog may not be left with this choice; nothing when it may.
std::optional<Fault> vistasFault(const VistasChoice& choice);

/// Runs the dialog on a copy of `choice`, which is changed on OK; Cancel turns secaoOnly on when
/// no length and no pick-and-go had been chosen. `library` holds the figures' slides, of which the
/// first `figures` answer to clicks. kDialogDone, or kDialogMissing.
int editVistas(const wchar_t* library, VistasChoice& choice, int figures);

}  // namespace perfis
