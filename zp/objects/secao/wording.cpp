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

using enum Papel;

std::wstring vezes(std::initializer_list<double> valores) {
    std::wstring texto;
    for (const double v : valores) {
        if (!texto.empty()) texto += L'x';
        texto += texts::withComma(v);
    }
    return texto;
}

bool temAba(const Dados& d) { return abaEfetiva(d[Aba], d[T]) != 0.0; }

std::wstring dobradoComAba(const Dados& d) {
    return temAba(d) ? vezes({d[H], d[B1], std::abs(d[Aba]), d[T]}) : vezes({d[H], d[B1], d[T]});
}

std::wstring comMassa(const Dados& d, double pecas) {
    return d[M] > 0.0 ? vezes({d[H], d[M] / pecas}) : vezes({d[H], d[B1], d[T]});
}

std::wstring vao(const Dados& d) { return L" a=" + texts::withComma(d[Vao]); }

}  // namespace

namespace textos {

std::wstring nenhum(const Dados&, int) { return {}; }

std::wstring u(const Dados& d, int) { return temAba(d) ? L"Ue" : L"U"; }
std::wstring caixa(const Dados& d, int) { return temAba(d) ? L"2Ue []" : L"2U []"; }
std::wstring tuboRetangular(const Dados& d, int) { return d[H] == d[B1] ? L"TQ" : L"TR"; }

std::wstring iDobrado(const Dados& d, int) {
    if (!temAba(d)) return L"2U ][";
    return d[Especie] == 1.0 ? L"2Cr ][" : L"2Ue ][";
}

std::wstring iSoldado(const Dados& d, int subtipo) {
    constexpr std::array<const wchar_t*, 4> kSeries{L"PS", L"VS", L"CVS", L"CS"};
    if (d.variante == 1) return L"PSM";
    return kSeries[static_cast<std::size_t>(std::clamp(subtipo, 0, 3))];
}

std::wstring iLaminado(const Dados& d, int) {
    if (d[Tipo] == 0.0) return L"IPE";
    if (d[Tipo] == 2.0) return L"I";
    // In the tables an HP is the one whose web is as thick as its flanges.
    return d[Tw] >= 0.95 * d[Tf1] ? L"HP" : L"W";
}

std::wstring hbt(const Dados& d, int) { return vezes({d[H], d[B1], d[T]}); }
std::wstring hht(const Dados& d, int) { return vezes({d[H], d[H], d[T]}); }
std::wstring hbtComAba(const Dados& d, int) { return dobradoComAba(d); }
std::wstring hbtComLargura(const Dados& d, int) {
    return dobradoComAba(d) + (d[Vao] > 2.0 * d[B1] ? L" l=" + texts::withComma(d[Vao]) : L"");
}
std::wstring hbtComVao(const Dados& d, int) { return vezes({d[H], d[B1], d[T]}) + vao(d); }
std::wstring hhtComVao(const Dados& d, int) { return vezes({d[H], d[H], d[T]}) + vao(d); }
std::wstring hbtComVaos(const Dados& d, int) {
    return vezes({d[H], d[B1], d[T]}) + vao(d) + L" av=" + texts::withComma(d[VaoV]);
}
std::wstring hbtComAbaEVao(const Dados& d, int) { return dobradoComAba(d) + vao(d); }
std::wstring diametroEParede(const Dados& d, int) { return vezes({d[D], 0.5 * (d[D] - d[Dint])}); }
std::wstring diametro(const Dados& d, int) { return vezes({d[D]}); }
std::wstring massaDeUma(const Dados& d, int) { return comMassa(d, 1.0); }
std::wstring massaDeDuasComVao(const Dados& d, int) { return comMassa(d, 2.0) + vao(d); }
std::wstring larguraEEspessura(const Dados& d, int) { return vezes({d[D1], d[D2]}); }

std::wstring soldado(const Dados& d, int subtipo) {
    if (d.variante == 1) return vezes({d[H], d[Bc], d[Tc], d[Bb], d[Tb], d[Tw]});
    return subtipo >= 1 && subtipo <= 3 && d[M] > 0.0 ? vezes({d[H], d[M]})
                                                      : vezes({d[H], d[Bc], d[Tc], d[Tw]});
}

std::wstring laminado(const Dados& d, int) {
    return d[M] > 0.0 ? vezes({d[H], d[M]}) : vezes({d[H], d[B1], d[Tf1], d[Tw]});
}

}  // namespace textos

std::wstring textoPerfil(Classe classe, const Dados& d, int subtipo) {
    const Nome& nome = descricao(classe).perfil;
    return nome.regra != nullptr ? nome.regra(d, subtipo) : nome.fixo;
}

std::wstring textoDimensoes(Classe classe, const Dados& d, int subtipo) {
    return descricao(classe).dimensoes(d, subtipo);
}

}  // namespace zp::secao
