// SPDX-License-Identifier: MIT
// Structural roles by their words.
#pragma once

#include <optional>
#include <string>

namespace perfis {

/// ZpObject::TipoBarra of "montante", "banzo_inferior" or of its number; nothing for what is none.
std::optional<int> roleCalled(const std::wstring& word);
/// The word for a role; empty for a plain bar.
std::wstring roleWord(int role);
/// All of them, "barra, montante, ...".
std::wstring roleWords();

}  // namespace perfis
