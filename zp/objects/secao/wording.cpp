// SPDX-License-Identifier: MIT
// Names and sizes of sections as texts.
#include <algorithm>
#include <array>
#include <cmath>
#include <initializer_list>

#include "texts/number.h"
#include "zp/objects/secao/assembly.h"
#include "zp/objects/secao/secao.h"
#include "zp/objects/secao/wording.h"

namespace zp::secao {
namespace {

using enum Role;

std::wstring joinedByX(std::initializer_list<double> values) {
    std::wstring text;
    for (const double v : values) {
        if (!text.empty()) text += L'x';
        text += texts::withComma(v);
    }
    return text;
}

bool hasAba(const RoleValues& d) { return effectiveAba(d[Aba], d[T]) != 0.0; }

std::wstring dobradoWithAba(const RoleValues& d) {
    return hasAba(d) ? joinedByX({d[H], d[B1], std::abs(d[Aba]), d[T]})
                     : joinedByX({d[H], d[B1], d[T]});
}

/// A mass that names the size.
bool named(const RoleValues& d) { return d[M] > 0.0 && !d.printed.otherMass; }

std::wstring withPeso(const RoleValues& d, double pecas) {
    return named(d) ? joinedByX({d[H], d[M] / pecas}) : joinedByX({d[H], d[B1], d[T]});
}

std::wstring vao(const RoleValues& d) { return L" a=" + texts::withComma(d[Vao]); }

}  // namespace

namespace wording {

std::wstring none(const RoleValues&, int) { return {}; }

std::wstring u(const RoleValues& d, int) { return hasAba(d) ? L"Ue" : L"U"; }
std::wstring caixa(const RoleValues& d, int) { return hasAba(d) ? L"2Ue []" : L"2U []"; }
std::wstring tuboRetangular(const RoleValues& d, int) { return d[H] == d[B1] ? L"TQ" : L"TR"; }

std::wstring iDobrado(const RoleValues& d, int) {
    if (!hasAba(d)) return L"2U ][";
    return d[Species] == 1.0 ? L"2Cr ][" : L"2Ue ][";
}

std::wstring iSoldado(const RoleValues& d, int series) {
    constexpr std::array<const wchar_t*, 4> kSeries{L"PS", L"VS", L"CVS", L"CS"};
    if (d.variant == 1) return L"PSM";
    return kSeries[static_cast<std::size_t>(std::clamp(series, 0, 3))];
}

std::wstring iLaminado(const RoleValues& d, int) {
    if (d[Type] == 0.0) return L"IPE";
    if (d[Type] == 2.0) return L"I";
    // In the tables an HP is the one whose web is as thick as its flanges.
    return d[Tw] >= 0.95 * d[Tf1] ? L"HP" : L"W";
}

std::wstring hbt(const RoleValues& d, int) { return joinedByX({d[H], d[B1], d[T]}); }
std::wstring hht(const RoleValues& d, int) { return joinedByX({d[H], d[H], d[T]}); }
std::wstring hbtWithAba(const RoleValues& d, int) { return dobradoWithAba(d); }
std::wstring hbtWithLargura(const RoleValues& d, int) {
    return dobradoWithAba(d) + (d[Vao] > 2.0 * d[B1] ? L" l=" + texts::withComma(d[Vao]) : L"");
}
std::wstring hbtWithVao(const RoleValues& d, int) {
    return joinedByX({d[H], d[B1], d[T]}) + vao(d);
}
std::wstring hhtWithVao(const RoleValues& d, int) { return joinedByX({d[H], d[H], d[T]}) + vao(d); }
std::wstring hbtWithVaos(const RoleValues& d, int) {
    return joinedByX({d[H], d[B1], d[T]}) + vao(d) + L" av=" + texts::withComma(d[VaoV]);
}
std::wstring hbtWithAbaAndVao(const RoleValues& d, int) { return dobradoWithAba(d) + vao(d); }
std::wstring diametroAndParede(const RoleValues& d, int) {
    return joinedByX({d[D], 0.5 * (d[D] - d[Dint])});
}
std::wstring diametro(const RoleValues& d, int) { return joinedByX({d[D]}); }
std::wstring pesoOfOne(const RoleValues& d, int) { return withPeso(d, 1.0); }
std::wstring pesoOfTwoWithVao(const RoleValues& d, int) { return withPeso(d, 2.0) + vao(d); }
std::wstring larguraAndEspessura(const RoleValues& d, int) { return joinedByX({d[D1], d[D2]}); }

std::wstring soldado(const RoleValues& d, int series) {
    if (d.variant == 1) return joinedByX({d[H], d[Bc], d[Tc], d[Bb], d[Tb], d[Tw]});
    return series >= 1 && series <= 3 && named(d) ? joinedByX({d[H], d[M]})
                                                  : joinedByX({d[H], d[Bc], d[Tc], d[Tw]});
}

std::wstring laminado(const RoleValues& d, int) {
    return named(d) ? joinedByX({d[H], d[M]}) : joinedByX({d[H], d[B1], d[Tf1], d[Tw]});
}

}  // namespace wording

std::wstring perfilText(Kind kind, const RoleValues& d, int series) {
    const Name& name = description(kind).perfil;
    return name.rule != nullptr ? name.rule(d, series) : name.fixed;
}

std::wstring dimensoesText(Kind kind, const RoleValues& d, int series) {
    return description(kind).dimensoes(d, series);
}

}  // namespace zp::secao
