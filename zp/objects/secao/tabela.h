// SPDX-License-Identifier: MIT
// The table of section classes: one row holds all that a class is.
#pragma once

#include "zp/objects/secao/montagem.h"
#include "zp/objects/secao/textos.h"

namespace zp::secao {

using enum Papel;
using enum Composicao;

inline constexpr Rotulo kLargura{B1, L"Largura (b)"};
inline constexpr Rotulo kLarguraDasMesas{B1, L"Largura das mesas (b)"};
inline constexpr Rotulo kLarguraDeUma{B1, L"Largura de uma cantoneira (b)"};
inline constexpr Rotulo kLarguraTotal{Vao, L"Largura total (a)"};

// clang-format off
inline constexpr std::array<Descricao, kClasses> kTabela{{
    {Classe::Nenhuma, L"", {}, {}, Uma, montagem::nenhuma, L"", textos::nenhum},
    {Classe::UDobrado, L"ZpUDobrado",
     {Papeis{H, B1, B2, T, Ri, Ang1, Ang2, L, Giro, Zero, Aba}},
     {Papeis{H, B1, B2, T, Ri, Ang1, Ang2, Zero, Aba}},
     Uma, montagem::uDobradoSimples, textos::u, textos::hbtComAba},
    {Classe::ZDobrado, L"ZpZDobrado",
     {Papeis{H, B1, Aba, T, Ri, Ang1, Ang2, L, Zero, Zero, Zero, Zero}},
     {Papeis{H, B1, Aba, T, Ri, Ang1, Ang2, Zero, Zero, Zero}},
     Uma, montagem::z, L"Z", textos::hbtComAba, {{kLarguraDasMesas}}},
    {Classe::Cartola, L"ZpCartola",
     {Papeis{H, B1, T, Ri, Aba, L, Zero, Zero}},
     {Papeis{H, B1, T, Ri, Aba, Zero}},
     Uma, montagem::chapeu, L"Cr", textos::hbtComAba, {{kLargura}}},
    {Classe::CantoneiraDobrada, L"ZpCantoneiraDobrada",
     {Papeis{H, B1, T, Ri, Ang1, L, Giro, Zero, Zero}},
     {Papeis{H, B1, T, Ri, Ang1, Zero, Zero}},
     Uma, montagem::cantoneira, L"L", textos::hbt, {{kLargura, {Ang1, L"Ângulo entre as abas"}}}},
    {Classe::CaixaDobrado, L"ZpCaixaDobrado",
     {Papeis{H, B1, T, Ri, Vao, L, Zero, Zero, Aba}},
     {Papeis{H, B1, T, Ri, Vao, Zero, Aba}},
     Duas, montagem::caixaDobrado, textos::caixa, textos::hbtComLargura,
     {{{B1, L"Largura de um perfil (b)"}, kLarguraTotal}}},
    {Classe::Box, L"ZpBox",
     {Papeis{H, B1, T, Ri, L, Zero, Zero}},
     {Papeis{H, B1, T, Ri, Zero}},
     Uma, montagem::tuboRetangular, textos::tuboRetangular, textos::hbt, {{kLargura}}},
    {Classe::Tubo, L"ZpTubo",
     {},
     {Papeis{D, Dint}},
     Uma, montagem::redondo, L"TC", textos::diametroEParede},
    {Classe::BarraRedonda, L"ZpBarraRedonda",
     {Papeis{D, L, Zero}},
     {Papeis{D}},
     Uma, montagem::redondo, L"BR", textos::diametro},
    {Classe::BNLaminado, L"ZpBNLaminado",
     {Papeis{H, T, E, Ri, Zero, Zero, L, M, A}},
     {Papeis{H, T, E, Ri, Zero, M, A}},
     Uma, montagem::bn, L"L", textos::hht},
    {Classe::CantLaminada, L"ZpCantLaminada",
     {Papeis{H, B1, T, Ex, Ey, Ri, Zero, Zero, L, M, A}},
     {Papeis{H, B1, T, Ex, Ey, Ri, Zero, M, A}},
     Uma, montagem::cantLaminada, L"L", textos::hbt, {{kLargura}}},
    {Classe::CantLaminadaCaixa, L"ZpCantLaminadaCaixa",
     {Papeis{H, B1, T, Ri, Zero, Zero, L, M, A}},
     {Papeis{H, B1, T, Ri, Zero, M, A}},
     Duas, montagem::caixaDeCantoneiras, L"2L []", textos::hbt, {{kLargura}}},
    {Classe::ULaminado, L"ZpULaminado",
     {Papeis{H, B1, T, B2, Tf1, Tf2, Ex, Ri, Zero, Giro, L, A, M}},
     {Papeis{H, B1, T, B2, Tf1, Tf2, Ex, Ri, Zero, A, M}},
     Uma, montagem::uLaminadoSimples, L"U", textos::massaDeUma},
    {Classe::CantTDobrada, L"ZpCantTDobrada",
     {Papeis{H, B1, T, Ri, Vao, L, Giro, Zero, Zero}},
     {Papeis{H, B1, T, Ri, Vao, Zero, Zero}},
     Duas, montagem::tDobrada, L"2L T", textos::hbtComVao, {{kLarguraDeUma}}},
    {Classe::CantUDobrada, L"ZpCantUDobrada",
     {Papeis{H, B1, T, Ri, Vao, L, Giro, Zero, Zero}},
     {Papeis{H, B1, T, Ri, Vao, Zero, Zero}},
     Duas, montagem::uDeDobradas, L"2L U", textos::hbtComVao, {{kLarguraDeUma, kLarguraTotal}}},
    {Classe::XDobrado, L"ZpXDobrado",
     {Papeis{H, B1, T, Ri, Vao, L, Giro, Zero, Zero, Zero}},
     {Papeis{H, B1, T, Ri, Vao, Zero, Zero, Zero}},
     Duas, montagem::xDobrado, L"2L X", textos::hbtComVao, {{kLarguraDeUma}}},
    {Classe::CantTEELaminada, L"ZpCantTEELaminada",
     {Papeis{H, B1, T, Ex, Ey, Ri, Vao, Zero, Giro, L, M, A}},
     {Papeis{H, B1, T, Ex, Ey, Ri, Vao, Zero, M, A}},
     DuasEmCm2, montagem::tLaminada, L"2L T", textos::hbtComVao, {{kLarguraDeUma}}},
    {Classe::CantULaminada, L"ZpCantULaminada",
     {Papeis{H, B1, T, Ex, Ey, Ri, Vao, Zero, Giro, L, M, A}},
     {Papeis{H, B1, T, Ex, Ey, Ri, Vao, Zero, M, A}},
     DuasEmCm2, montagem::uDeLaminadas, L"2L U", textos::hbtComVao, {{kLarguraDeUma, kLarguraTotal}}},
    {Classe::BNDuplaLaminada, L"ZpBNDuplaLaminada",
     {Papeis{H, T, E, Ri, Vao, Zero, Giro, L, M, A}},
     {Papeis{H, T, E, Ri, Vao, Zero, M, A}},
     DuasEmCm2, montagem::bnDupla, L"2L X", textos::hhtComVao},
    {Classe::CantCruzLaminada, L"ZpCantCruzLaminada",
     {Papeis{H, B1, T, Ri, Vao, VaoV, Zero, Giro, L, M, A}},
     {Papeis{H, B1, T, Ri, Vao, VaoV, Zero, M, A}},
     DuasEmCm2, montagem::cruz, L"2L +", textos::hbtComVaos, {{kLarguraDeUma}}},
    {Classe::CantZLaminada, L"ZpCantZLaminada",
     {Papeis{H, B1, T, Ri, Vao, VaoV, Zero, Giro, L, M, A}},
     {Papeis{H, B1, T, Ri, Vao, VaoV, Zero, M, A}},
     DuasEmCm2, montagem::zDeLaminadas, L"2L Z", textos::hbtComVaos, {{kLarguraDeUma}}},
    {Classe::UULaminado, L"ZpUULaminado",
     {Papeis{H, B1, T, B2, Tf1, Tf2, Vao, Ri, Zero, Giro, L, A, M}},
     {Papeis{H, B1, T, B2, Tf1, Tf2, Vao, Ri, Zero, A, M}},
     Duas, montagem::uULaminado, L"2U []", textos::massaDeDuasComVao, {{kLarguraTotal}}},
    {Classe::DoisULaminado, L"Zp2ULaminado",
     {Papeis{H, B1, T, B2, Tf1, Tf2, Ex, Ri, Vao, Zero, Giro, L, A, M}},
     {Papeis{H, B1, T, B2, Tf1, Tf2, Ex, Ri, Vao, Zero, A, M}},
     Duas, montagem::doisULaminado, L"2U ][", textos::massaDeDuasComVao},
    {Classe::IDobrado, L"ZpIDobrado",
     {Papeis{H, B1, B2, T, Ri, Vao, L, Aba, Especie, Zero}},
     {Papeis{H, B1, B2, T, Ri, Vao, Aba, Especie}},
     Duas, montagem::iDobrado, textos::iDobrado, textos::hbtComAbaEVao},
    {Classe::ISoldado, L"ZpISoldado",
     {Papeis{H, Bc, Bb, Tw, Tc, L, Zero, Zero, M},
      Papeis{H, Bc, Bb, Tc, Tb, Tw, L, Zero, Zero, Zero}},
     {Papeis{H, Bc, Bb, Tw, Tc, Zero, M}, Papeis{H, Bc, Bb, Tc, Tb, Tw, Zero, Zero}},
     Uma, montagem::iSoldado, textos::iSoldado, textos::soldado,
     {{{Tc, L"Espessura da mesa superior (tf)"}}}},
    {Classe::ILaminadoUSA, L"ZpILaminadoUSA",
     {Papeis{H, B1, Tw, Tf1, Tipo, Zero, Zero, L, A, M}},
     {Papeis{H, B1, Tw, Tf1, Tipo, Zero, A, M}},
     Uma, montagem::iLaminado, textos::iLaminado, textos::laminado, {{kLarguraDasMesas}}},
    {Classe::Chapa, L"ZpChapa",
     {Papeis{D1, D2, D3, Rot1, Rot2}},
     {},
     Uma, montagem::nenhuma, L"CH", textos::larguraEEspessura},
}};
// clang-format on

constexpr const Descricao& linha(Classe classe) {
    return kTabela[static_cast<std::size_t>(classe)];
}

}  // namespace zp::secao
