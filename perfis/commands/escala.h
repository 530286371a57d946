// SPDX-License-Identifier: MIT
// The section of the typed numbers, drawn to scale beside the prepared slide.
#pragma once

#include <optional>
#include <string>

#include "adsdlg.h"
#include "perfis/commands/perfil_description.h"

namespace perfis {

/// Paints the section into the tile "escala", and the point by which it is placed when there is
/// one: `shift` leads from it to the piece's own point. Numbers that make no section leave the tile
/// cleared.
void showEscala(ads_hdlg dialog, const PerfilDescription& description, const PecaRequest& request,
                const std::optional<Shift>& shift);

/// What is odd about such a section, for the user; it can be drawn all the same. Empty when nothing
/// is.
std::wstring warningsOf(const PerfilDescription& description, const PecaRequest& request);

}  // namespace perfis
