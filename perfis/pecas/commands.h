// SPDX-License-Identifier: MIT
// Commands PECA, PECATEXTO and PECAS: pieces as text and tables.
#pragma once

namespace perfis {

inline constexpr const wchar_t* kPecaCommand = L"PECA";
inline constexpr const wchar_t* kPecaTextCommand = L"PECATEXTO";
inline constexpr const wchar_t* kPecasCommand = L"PECAS";

/// Asks for a line, and goes on as the command that draws such pieces does behind its dialog. No
/// exception leaves these.
void pecaCommand();
/// Prints the lines of the selected pieces, in the order in which they were drawn.
void pecaTextCommand();
/// Asks for a table of pieces and draws all of them, or none.
void pecasCommand();

/// Answers a host that wants a table to be drawn; takes the answer away.
void installPieceTable();
void removePieceTable();

}  // namespace perfis
