// SPDX-License-Identifier: MIT
// What a section is bought as: the single shapes of a built-up one.
#pragma once

#include <string>
#include <string_view>

namespace zp::secao {

/// One of the equal shapes that a section is made of.
struct Single {
    int count = 1;  ///< of them in the section
    std::wstring perfil;
    std::wstring dimensoes;
};

/// From the texts of a section (perfilText, dimensoesText); gaps and total widths belong to the
/// whole and are left off. Texts of no built-up class are their own single.
Single singleOf(const std::wstring& perfil, const std::wstring& dimensoes);

/// Name of a section in the trade, from its texts and the name of its single shape: that name, of a
/// built-up section its form, the name without its letter and the gaps. An empty name gives the
/// texts.
std::wstring designacaoText(const std::wstring& perfil, const std::wstring& dimensoes,
                            const std::wstring& name);

/// "Ue 200x75x20x2,65" however it is typed: no blanks, small letters, decimal commas.
std::wstring designationKey(std::wstring_view designation);

}  // namespace zp::secao
