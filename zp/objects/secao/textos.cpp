// SPDX-License-Identifier: MIT
// Names and sizes of sections as texts.
#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <initializer_list>

#include "zp/objects/secao/montagem.h"
#include "zp/objects/secao/secao.h"

namespace zp::secao {
namespace {

using enum Papel;

std::wstring vezes(std::initializer_list<double> valores) {
    std::wstring texto;
    for (const double v : valores) {
        if (!texto.empty()) texto += L'x';
        texto += numero(v);
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

std::wstring vao(const Dados& d) { return L" a=" + numero(d[Vao]); }

std::wstring soldado(const Dados& d, int subtipo) {
    if (d.variante == 1) return vezes({d[H], d[Bc], d[Tc], d[Bb], d[Tb], d[Tw]});
    return subtipo >= 1 && subtipo <= 3 && d[M] > 0.0 ? vezes({d[H], d[M]})
                                                      : vezes({d[H], d[Bc], d[Tc], d[Tw]});
}

}  // namespace

std::wstring numero(double valor, int decimais) {
    if (!std::isfinite(valor)) return L"0";
    std::array<char, 400> texto;
    const auto fim = std::to_chars(texto.data(), texto.data() + texto.size(), valor,
                                   std::chars_format::fixed, decimais)
                         .ptr;
    std::string s(texto.data(), fim);
    if (s.find('.') != std::string::npos) {
        s.erase(s.find_last_not_of('0') + 1);
        if (s.back() == '.') s.pop_back();
    }
    if (s == "-0") s = "0";
    std::replace(s.begin(), s.end(), '.', ',');
    return {s.begin(), s.end()};
}

std::wstring textoPerfil(Classe classe, const Dados& d, int subtipo) {
    constexpr std::array<const wchar_t*, 4> kSeries{L"PS", L"VS", L"CVS", L"CS"};
    switch (classe) {
        case Classe::UDobrado:
            return temAba(d) ? L"Ue" : L"U";
        case Classe::ZDobrado:
            return L"Z";
        case Classe::Cartola:
            return L"Cr";
        case Classe::CantoneiraDobrada:
        case Classe::BNLaminado:
        case Classe::CantLaminada:
            return L"L";
        case Classe::CaixaDobrado:
            return temAba(d) ? L"2Ue []" : L"2U []";
        case Classe::Box:
            return d[H] == d[B1] ? L"TQ" : L"TR";
        case Classe::Tubo:
            return L"TC";
        case Classe::BarraRedonda:
            return L"BR";
        case Classe::ULaminado:
            return L"U";
        case Classe::CantLaminadaCaixa:
            return L"2L []";
        case Classe::CantTDobrada:
        case Classe::CantTEELaminada:
            return L"2L T";
        case Classe::CantUDobrada:
        case Classe::CantULaminada:
            return L"2L U";
        case Classe::XDobrado:
        case Classe::BNDuplaLaminada:
            return L"2L X";
        case Classe::CantCruzLaminada:
            return L"2L +";
        case Classe::CantZLaminada:
            return L"2L Z";
        case Classe::UULaminado:
            return L"2U []";
        case Classe::DoisULaminado:
            return L"2U ][";
        case Classe::IDobrado:
            if (!temAba(d)) return L"2U ][";
            return d[Especie] == 1.0 ? L"2Cr ][" : L"2Ue ][";
        case Classe::ISoldado:
            if (d.variante == 1) return L"PSM";
            return kSeries[static_cast<std::size_t>(std::clamp(subtipo, 0, 3))];
        case Classe::ILaminadoUSA:
            if (d[Tipo] == 0.0) return L"IPE";
            if (d[Tipo] == 2.0) return L"I";
            return d[B1] >= 0.95 * d[H] ? L"HP" : L"W";
        case Classe::Chapa:
            return L"CH";
        case Classe::Nenhuma:
            break;
    }
    return L"";
}

std::wstring textoDimensoes(Classe classe, const Dados& d, int subtipo) {
    switch (classe) {
        case Classe::UDobrado:
        case Classe::ZDobrado:
        case Classe::Cartola:
            return dobradoComAba(d);
        case Classe::CantoneiraDobrada:
        case Classe::CantLaminada:
        case Classe::CantLaminadaCaixa:
        case Classe::Box:
            return vezes({d[H], d[B1], d[T]});
        case Classe::BNLaminado:
            return vezes({d[H], d[H], d[T]});
        case Classe::CaixaDobrado:
            return dobradoComAba(d) + (d[Vao] > 2.0 * d[B1] ? L" l=" + numero(d[Vao]) : L"");
        case Classe::Tubo:
            return vezes({d[D], 0.5 * (d[D] - d[Dint])});
        case Classe::BarraRedonda:
            return vezes({d[D]});
        case Classe::ULaminado:
            return comMassa(d, 1.0);
        case Classe::CantTDobrada:
        case Classe::CantUDobrada:
        case Classe::XDobrado:
        case Classe::CantTEELaminada:
        case Classe::CantULaminada:
            return vezes({d[H], d[B1], d[T]}) + vao(d);
        case Classe::BNDuplaLaminada:
            return vezes({d[H], d[H], d[T]}) + vao(d);
        case Classe::CantCruzLaminada:
        case Classe::CantZLaminada:
            return vezes({d[H], d[B1], d[T]}) + vao(d) + L" av=" + numero(d[VaoV]);
        case Classe::UULaminado:
        case Classe::DoisULaminado:
            return comMassa(d, 2.0) + vao(d);
        case Classe::IDobrado:
            return dobradoComAba(d) + vao(d);
        case Classe::ISoldado:
            return soldado(d, subtipo);
        case Classe::ILaminadoUSA:
            return d[M] > 0.0 ? vezes({d[H], d[M]}) : vezes({d[H], d[B1], d[Tf1], d[Tw]});
        case Classe::Chapa:
            return vezes({d[D1], d[D2]});
        case Classe::Nenhuma:
            break;
    }
    return L"";
}

}  // namespace zp::secao
