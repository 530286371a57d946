// SPDX-License-Identifier: MIT
// Labels of the sizes and of the section's sheet.
#include "zp/objects/secao/labels.h"

#include <algorithm>
#include <numbers>

#include "texts/number.h"
#include "zp/objects/secao/sheet.h"

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

template <double Properties::*Member>
std::optional<double> of(const Sheet& s) {
    return s.p.*Member;
}
template <auto Member>
std::optional<double> own(const Sheet& s) {
    return s.*Member;
}

std::optional<double> degrees(const Sheet& s) {
    return s.p.principalAngle * 180.0 / std::numbers::pi;
}

// clang-format off
constexpr SheetRow kSheetRows[] = {
    {L"A", L"Área (A)", L"cm²", 1e-2, 3, of<&Properties::area>},
    {L"m2_m", L"Pintura por metro", L"m²/m", 1.0, 4, own<&Sheet::m2Metro>},
    {L"xg", L"Centroide à face esquerda (xg)", L"mm", 1.0, 2, own<&Sheet::xg>},
    {L"yg", L"Centroide à face inferior (yg)", L"mm", 1.0, 2, own<&Sheet::yg>},
    {L"xo", L"Centroide em x, do ponto de inserção", L"mm", 1.0, 2, of<&Properties::xg>, true},
    {L"yo", L"Centroide em y, do ponto de inserção", L"mm", 1.0, 2, of<&Properties::yg>, true},
    {L"Ix", L"Momento de inércia (Ix)", L"cm⁴", 1e-4, 2, of<&Properties::ix>},
    {L"Iy", L"Momento de inércia (Iy)", L"cm⁴", 1e-4, 2, of<&Properties::iy>},
    {L"Ixy", L"Produto de inércia (Ixy)", L"cm⁴", 1e-4, 2, of<&Properties::ixy>},
    {L"I1", L"Inércia principal maior (I1)", L"cm⁴", 1e-4, 2, of<&Properties::i1>},
    {L"I2", L"Inércia principal menor (I2)", L"cm⁴", 1e-4, 2, of<&Properties::i2>},
    {L"angulo", L"Ângulo do eixo 1", L"graus", 1.0, 2, degrees},
    {L"Wx_sup", L"Módulo elástico superior (Wx)", L"cm³", 1e-3, 2, of<&Properties::wxUpper>},
    {L"Wx_inf", L"Módulo elástico inferior (Wx)", L"cm³", 1e-3, 2, of<&Properties::wxLower>},
    {L"Wy_esq", L"Módulo elástico esquerdo (Wy)", L"cm³", 1e-3, 2, of<&Properties::wyLeft>},
    {L"Wy_dir", L"Módulo elástico direito (Wy)", L"cm³", 1e-3, 2, of<&Properties::wyRight>},
    {L"Zx", L"Módulo plástico (Zx)", L"cm³", 1e-3, 2, own<&Sheet::zx>},
    {L"Zy", L"Módulo plástico (Zy)", L"cm³", 1e-3, 2, own<&Sheet::zy>},
    {L"rx", L"Raio de giração (rx)", L"cm", 0.1, 3, of<&Properties::rx>},
    {L"ry", L"Raio de giração (ry)", L"cm", 0.1, 3, of<&Properties::ry>},
    {L"r0", L"Raio de giração polar (r0)", L"cm", 0.1, 3, own<&Sheet::r0>},
    {L"It", L"Momento de inércia à torção (It)", L"cm⁴", 1e-4, 4, own<&Sheet::it>},
    {L"Cw", L"Constante de empenamento (Cw)", L"cm⁶", 1e-6, 2, own<&Sheet::cw>},
    {L"x0", L"Centro de torção x0, do centroide", L"mm", 1.0, 2, own<&Sheet::x0>},
    {L"y0", L"Centro de torção y0, do centroide", L"mm", 1.0, 2, own<&Sheet::y0>},
};
// clang-format on

}  // namespace

std::span<const SheetRow> sheetRows() { return kSheetRows; }

std::wstring slendernessText(const Sheet& sheet) {
    std::vector<std::pair<std::wstring, int>> groups;
    for (const Element& e : sheet.elements) {
        const std::wstring text = texts::withComma(e.b, 2) + L'/' + texts::withComma(e.t, 2) +
                                  L" = " + texts::withComma(e.b / e.t, 2);
        const auto same = std::ranges::find(groups, text, &std::pair<std::wstring, int>::first);
        if (same == groups.end())
            groups.emplace_back(text, 1);
        else
            ++same->second;
    }
    std::wstring all;
    for (const auto& [text, times] : groups)
        all += (all.empty() ? L"" : L"; ") +
               (times > 1 ? std::to_wstring(times) + L"x " : std::wstring()) + text;
    return all;
}

const wchar_t* label(Role role, Kind kind) {
    for (const Label& r : description(kind).labels)
        if (r.role == role && r.text != nullptr) return r.text;
    for (const Label& r : kLabels)
        if (r.role == role) return r.text;
    return L"";
}

}  // namespace zp::secao
