// SPDX-License-Identifier: MIT
// Labels of the sizes.
#include "zp/objects/secao/labels.h"

namespace zp::secao {
namespace {

using enum Role;

// clang-format off
constexpr Label kLabels[] = {
    {H,    L"Altura (h)"},
    {D,    L"Diâmetro externo (d)"},
    {Dint, L"Diâmetro interno (di)"},
    {B1,   L"Aba (b)"},
    {B2,   L"Aba inferior (b2)"},
    {Bc,   L"Mesa superior: largura (bc)"},
    {Bb,   L"Mesa inferior: largura (bb)"},
    {T,    L"Espessura (t)"},
    {Tw,   L"Espessura da alma (tw)"},
    {Tf1,  L"Espessura da mesa (tf)"},
    {Tf2,  L"Espessura da mesa inferior (tf2)"},
    {Tc,   L"Mesa superior: espessura (tc)"},
    {Tb,   L"Mesa inferior: espessura (tb)"},
    {Ri,   L"Raio interno (ri)"},
    {Aba,  L"Enrijecedor (a)"},
    {Vao,  L"Vão entre as peças (a)"},
    {VaoV, L"Vão na altura (av)"},
    {Ang1, L"Ângulo da mesa superior"},
    {Ang2, L"Ângulo da mesa inferior"},
    {D1,   L"Largura (d1)"},
    {D2,   L"Espessura (d2)"},
    {M,    L"Peso por metro do catálogo (m)"},
};
// clang-format on

}  // namespace

const wchar_t* label(Role role, Kind kind) {
    for (const Label& r : description(kind).labels)
        if (r.role == role && r.text != nullptr) return r.text;
    for (const Label& r : kLabels)
        if (r.role == role) return r.text;
    return L"";
}

}  // namespace zp::secao
