// SPDX-License-Identifier: MIT
// A row of a command's list, as all commands have it: a text that is shown and the numbers of a
// size.
#pragma once

#include <string>
#include <vector>

#include "perfis/commands/perfil_description.h"

namespace perfis {

struct ListRow {
    std::wstring shown;
    /// Texts of the size in the order of the tiles, the linear mass behind them. Empty: none.
    std::vector<std::wstring> fields;

    bool empty() const { return fields.empty() || fields.front().empty(); }
};

/// Sizes nearer than this are one, mm: lists have two decimals, inches a third.
inline constexpr double kSameSize = 0.006;

/// The dialog's numbers of a row; those that it lacks are 0.
Medidas medidasOf(const PerfilDescription& description, const ListRow& row);
/// True when the row has the numbers that stand in the tiles it fills.
bool isLike(const PerfilDescription& description, const ListRow& row, const Medidas& medidas);
/// The numbers by which the sizes of a command are told apart: not the distance of two pieces,
/// which every user chooses.
std::vector<Medida> tellingMedidas(const PerfilDescription& description);

/// Name and sizes as a drawn piece has them, "Ue 200x75x20x2,65".
std::wstring sizeName(const PerfilDescription& description, const Medidas& medidas, int source);
/// All the ways in which a row of a list may be written.
std::vector<std::wstring> writingsOf(const PerfilDescription& description, const ListRow& row,
                                     int source);

}  // namespace perfis
