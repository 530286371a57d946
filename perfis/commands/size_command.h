// SPDX-License-Identifier: MIT
// Command PERFIL: a size by its name, whichever command draws it.
#pragma once

namespace perfis {

inline constexpr const wchar_t* kSizeCommand = L"PERFIL";

/// Asks for a size, finds it in the lists of all commands and opens the dialog of its command with
/// the size filled in. Of several it asks which. No exception leaves it.
void drawBySize();

}  // namespace perfis
