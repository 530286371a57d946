// SPDX-License-Identifier: MIT
// What the trade calls the profiles that the lists have under short names.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace perfis {

/// Any name at all.
inline constexpr std::wstring_view kAnyName = L"*";

/// A name of the lists, in small letters, or the form of a built-up.
struct NamedProfile {
    std::wstring name;
    int rank;  ///< 0 for what the word means first
};

/// The names that a word stands for, "tubo" for TC, TR and TQ; of a tube with `numbers` numbers
/// three mean a rectangular one first. Its first three letters are enough. None for other words.
std::vector<NamedProfile> profilesCalled(std::wstring_view word, std::size_t numbers);

/// "dobrad", "laminad" or "soldad" where a text says how a shape is made; else empty. A writing of
/// that word alone tells it of a row.
std::wstring_view makingIn(std::wstring_view text);
bool isMaking(std::wstring_view word);

/// True for "viga" and "perfil", which say nothing beside another word.
bool isGeneral(std::wstring_view word);
bool isCaixa(std::wstring_view word);
/// True for "perfil", which says nothing alone either.
bool saysNothing(std::wstring_view word);

}  // namespace perfis
