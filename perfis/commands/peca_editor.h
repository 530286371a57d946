// SPDX-License-Identifier: MIT
// Editing of drawn pieces by the dialogs of their commands.
#pragma once

#include "perfis/commands/handlers.h"
#include "zp/objects/edit.h"

namespace perfis {

/// The command whose dialog makes pieces with these values; null when there is none.
const PerfilCommand* commandOf(const PecaValues& peca);

/// Pieces of a drawing from before they knew their lacing read it from their plates.
void keepTravejamentos(AcDbDatabase& drawing);

/// Attaches the editor to the class of all pieces and keeps the plates of members that are changed
/// otherwise by their rule; takes both away again.
void installPecaEditor();
void removePecaEditor();

/// Another view of a drawn piece, as its command makes it; nothing when no command draws such a
/// piece.
zp::edit::DrawnVista drawVistaOf(AcDbObjectId peca, ZpObject::ZpVistas vista,
                                 const AcGePoint3d& start, bool cotas);

}  // namespace perfis
