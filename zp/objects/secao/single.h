// SPDX-License-Identifier: MIT
// What a section is bought as: the single shapes of a built-up one, the strip of a bent one.
#pragma once

#include <string>

#include "zp/objects/secao/secao.h"

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

/// Width of the strip that one single shape is bent from: its developed mid-line, mm. 0 for what is
/// not bent from strip; tubes are bought as tubes.
double tira(Kind kind, const Secao& secao);

}  // namespace zp::secao
