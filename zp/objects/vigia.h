// SPDX-License-Identifier: MIT
// Watches drawings and commands, so that what is tied to a piece goes with it once per command.
#pragma once

#include "dbapserv.h"

namespace zp::vigia {

/// Starts and stops listening to the editor's commands.
void comeca();
void encerra();

/// Starts and stops watching a drawing; watching twice is watching once. A drawing that goes away
/// is forgotten by itself.
void observa(AcDbDatabase* desenho);
void abandona(AcDbDatabase* desenho);

/// Drops, in a watched drawing, the links that their other side does not know.
void confere(AcDbDatabase* desenho);

}  // namespace zp::vigia
