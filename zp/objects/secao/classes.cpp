// SPDX-License-Identifier: MIT
// The table of section classes.
#include "zp/objects/secao/classes.h"

namespace zp::secao {
namespace {

using enum Papel;

constexpr Papeis kNada{};

// clang-format off
constexpr std::array<Descricao, kClasses> kTabela{{
    {L"", {kNada, kNada}, {kNada, kNada}, false, false},
    {L"ZpUDobrado",
     {Papeis{H, B1, B2, T, Ri, Ang1, Ang2, L, Giro, Zero, Aba}, kNada},
     {Papeis{H, B1, B2, T, Ri, Ang1, Ang2, Zero, Aba}, kNada}, false, false},
    {L"ZpZDobrado",
     {Papeis{H, B1, Aba, T, Ri, Ang1, Ang2, L, Zero, Zero, Zero, Zero}, kNada},
     {Papeis{H, B1, Aba, T, Ri, Ang1, Ang2, Zero, Zero, Zero}, kNada}, false, false},
    {L"ZpCartola",
     {Papeis{H, B1, T, Ri, Aba, L, Zero, Zero}, kNada},
     {Papeis{H, B1, T, Ri, Aba, Zero}, kNada}, false, false},
    {L"ZpCantoneiraDobrada",
     {Papeis{H, B1, T, Ri, Ang1, L, Giro, Zero, Zero}, kNada},
     {Papeis{H, B1, T, Ri, Ang1, Zero, Zero}, kNada}, false, false},
    {L"ZpCaixaDobrado",
     {Papeis{H, B1, T, Ri, Vao, L, Zero, Zero, Aba}, kNada},
     {Papeis{H, B1, T, Ri, Vao, Zero, Aba}, kNada}, true, false},
    {L"ZpBox",
     {Papeis{H, B1, T, Ri, L, Zero, Zero}, kNada},
     {Papeis{H, B1, T, Ri, Zero}, kNada}, false, false},
    {L"ZpTubo", {kNada, kNada}, {Papeis{D, Dint}, kNada}, false, false},
    {L"ZpBarraRedonda", {Papeis{D, L, Zero}, kNada}, {Papeis{D}, kNada}, false, false},
    {L"ZpBNLaminado",
     {Papeis{H, T, E, Ri, Zero, Zero, L, M, A}, kNada},
     {Papeis{H, T, E, Ri, Zero, M, A}, kNada}, false, false},
    {L"ZpCantLaminada",
     {Papeis{H, B1, T, Ex, Ey, Ri, Zero, Zero, L, M, A}, kNada},
     {Papeis{H, B1, T, Ex, Ey, Ri, Zero, M, A}, kNada}, false, false},
    {L"ZpCantLaminadaCaixa",
     {Papeis{H, B1, T, Ri, Zero, Zero, L, M, A}, kNada},
     {Papeis{H, B1, T, Ri, Zero, M, A}, kNada}, true, false},
    {L"ZpULaminado",
     {Papeis{H, B1, T, B2, Tf1, Tf2, Ex, Ri, Zero, Giro, L, A, M}, kNada},
     {Papeis{H, B1, T, B2, Tf1, Tf2, Ex, Ri, Zero, A, M}, kNada}, false, false},
    {L"ZpCantTDobrada",
     {Papeis{H, B1, T, Ri, Vao, L, Giro, Zero, Zero}, kNada},
     {Papeis{H, B1, T, Ri, Vao, Zero, Zero}, kNada}, true, false},
    {L"ZpCantUDobrada",
     {Papeis{H, B1, T, Ri, Vao, L, Giro, Zero, Zero}, kNada},
     {Papeis{H, B1, T, Ri, Vao, Zero, Zero}, kNada}, true, false},
    {L"ZpXDobrado",
     {Papeis{H, B1, T, Ri, Vao, L, Giro, Zero, Zero, Zero}, kNada},
     {Papeis{H, B1, T, Ri, Vao, Zero, Zero, Zero}, kNada}, true, false},
    {L"ZpCantTEELaminada",
     {Papeis{H, B1, T, Ex, Ey, Ri, Vao, Zero, Giro, L, M, A}, kNada},
     {Papeis{H, B1, T, Ex, Ey, Ri, Vao, Zero, M, A}, kNada}, true, true},
    {L"ZpCantULaminada",
     {Papeis{H, B1, T, Ex, Ey, Ri, Vao, Zero, Giro, L, M, A}, kNada},
     {Papeis{H, B1, T, Ex, Ey, Ri, Vao, Zero, M, A}, kNada}, true, true},
    {L"ZpBNDuplaLaminada",
     {Papeis{H, T, E, Ri, Vao, Zero, Giro, L, M, A}, kNada},
     {Papeis{H, T, E, Ri, Vao, Zero, M, A}, kNada}, true, true},
    {L"ZpCantCruzLaminada",
     {Papeis{H, B1, T, Ri, Vao, VaoV, Zero, Giro, L, M, A}, kNada},
     {Papeis{H, B1, T, Ri, Vao, VaoV, Zero, M, A}, kNada}, true, true},
    {L"ZpCantZLaminada",
     {Papeis{H, B1, T, Ri, Vao, VaoV, Zero, Giro, L, M, A}, kNada},
     {Papeis{H, B1, T, Ri, Vao, VaoV, Zero, M, A}, kNada}, true, true},
    {L"ZpUULaminado",
     {Papeis{H, B1, T, B2, Tf1, Tf2, Vao, Ri, Zero, Giro, L, A, M}, kNada},
     {Papeis{H, B1, T, B2, Tf1, Tf2, Vao, Ri, Zero, A, M}, kNada}, true, false},
    {L"Zp2ULaminado",
     {Papeis{H, B1, T, B2, Tf1, Tf2, Ex, Ri, Vao, Zero, Giro, L, A, M}, kNada},
     {Papeis{H, B1, T, B2, Tf1, Tf2, Ex, Ri, Vao, Zero, A, M}, kNada}, true, false},
    {L"ZpIDobrado",
     {Papeis{H, B1, B2, T, Ri, Vao, L, Aba, Especie, Zero}, kNada},
     {Papeis{H, B1, B2, T, Ri, Vao, Aba, Especie}, kNada}, true, false},
    {L"ZpISoldado",
     {Papeis{H, Bc, Bb, Tw, Tc, L, Zero, Zero, M},
      Papeis{H, Bc, Bb, Tc, Tb, Tw, L, Zero, Zero, Zero}},
     {Papeis{H, Bc, Bb, Tw, Tc, Zero, M},
      Papeis{H, Bc, Bb, Tc, Tb, Tw, Zero, Zero}}, false, false},
    {L"ZpILaminadoUSA",
     {Papeis{H, B1, Tw, Tf1, Tipo, Zero, Zero, L, A, M}, kNada},
     {Papeis{H, B1, Tw, Tf1, Tipo, Zero, A, M}, kNada}, false, false},
    {L"ZpChapa", {Papeis{D1, D2, D3, Rot1, Rot2}, kNada}, {kNada, kNada}, false, false},
}};
// clang-format on

}  // namespace

const Descricao& descricao(Classe classe) { return kTabela[static_cast<std::size_t>(classe)]; }

int quantos(const Papeis& papeis) {
    int n = 0;
    while (n < kMaxValores && papeis[static_cast<std::size_t>(n)] != Fim) ++n;
    return n;
}

const Papeis* papeisDe(Classe classe, int pontos, int valores) {
    const Descricao& d = descricao(classe);
    for (const Papeis& p : pontos == 2 ? d.doisPontos : d.umPonto)
        if (valores > 0 && quantos(p) == valores) return &p;
    return nullptr;
}

Dados dadosDe(Classe classe, int pontos, std::span<const double> valores) {
    Dados dados;
    const Papeis* papeis = papeisDe(classe, pontos, static_cast<int>(valores.size()));
    if (papeis == nullptr) return dados;
    for (std::size_t i = 0; i < valores.size(); ++i) dados[(*papeis)[i]] = valores[i];
    dados[Zero] = 0.0;
    const Descricao& d = descricao(classe);
    dados.variante = papeis == &d.umPonto[1] || papeis == &d.doisPontos[1] ? 1 : 0;
    return dados;
}

int potencia(Papel papel) {
    switch (papel) {
        case Ang1:
        case Ang2:
        case Especie:
        case Tipo:
        case Giro:
        case Rot1:
        case Rot2:
        case Zero:
        case Fim:
            return 0;
        case M:
        case A:
            return 2;
        default:
            return 1;
    }
}

}  // namespace zp::secao
