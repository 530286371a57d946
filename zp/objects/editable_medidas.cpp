// SPDX-License-Identifier: MIT
// Values of pieces as a user changes them.
#include "zp/objects/editable_medidas.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "zp/objects/peca.h"

namespace zp::fichas {
namespace {

using secao::Classe;
using secao::Papel;
using enum Papel;

constexpr double kGraus = 180.0 / std::numbers::pi;

// clang-format off
constexpr Medida kMedidas[] = {
    {H,    L"h",    L"mm",   1.0,    Limite::Positivo},
    {D,    L"d",    L"mm",   1.0,    Limite::Positivo},
    {Dint, L"dint", L"mm",   1.0,    Limite::Livre},
    {B1,   L"b1",   L"mm",   1.0,    Limite::Positivo},
    {B2,   L"b2",   L"mm",   1.0,    Limite::Positivo},
    {Bc,   L"bc",   L"mm",   1.0,    Limite::Positivo},
    {Bb,   L"bb",   L"mm",   1.0,    Limite::Positivo},
    {T,    L"t",    L"mm",   1.0,    Limite::Positivo},
    {Tw,   L"tw",   L"mm",   1.0,    Limite::Positivo},
    {Tf1,  L"tf1",  L"mm",   1.0,    Limite::Positivo},
    {Tf2,  L"tf2",  L"mm",   1.0,    Limite::Positivo},
    {Tc,   L"tc",   L"mm",   1.0,    Limite::Positivo},
    {Tb,   L"tb",   L"mm",   1.0,    Limite::Positivo},
    {Ri,   L"ri",   L"mm",   1.0,    Limite::NaoNegativo},
    {Aba,  L"aba",  L"mm",   1.0,    Limite::Livre},
    {Vao,  L"vao",  L"mm",   1.0,    Limite::NaoNegativo},
    {VaoV, L"vaov", L"mm",   1.0,    Limite::NaoNegativo},
    {Ang1, L"ang1", L"°",    kGraus, Limite::AnguloRaso},
    {Ang2, L"ang2", L"°",    kGraus, Limite::AnguloRaso},
    {D1,   L"d1",   L"mm",   1.0,    Limite::Positivo},
    {D2,   L"d2",   L"mm",   1.0,    Limite::Positivo},
    {M,    L"m",    L"kg/m", 1.0,    Limite::NaoNegativo},
};

/// A value that the drawing commands derive from another one. It goes along as long as it follows
/// the rule.
struct Regra {
    Papel papel;
    Papel de;
    double fator;
};

constexpr Regra kRegras[] = {
    {B2,  B1, 1.0}, {Bb,  Bc, 1.0}, {Ri,  T, 1.0}, {Tf1, T, 1.0}, {Tf2, T, 1.0},
    {Ex,  B1, 1.0 / 3.0}, {Ey, H, 2.0 / 3.0}, {E, H, -1.0 / (3.0 * std::numbers::sqrt2)},
};
// clang-format on

bool igual(double a, double b) { return std::abs(a - b) <= 1e-9 * std::max(1.0, std::abs(b)); }

void acompanha(Peca& p, Papel mudado, double antes, double agora) {
    for (const Regra& regra : kRegras) {
        if (regra.de != mudado) continue;
        double* const seguidor = p.valor(regra.papel);
        if (seguidor != nullptr && igual(*seguidor, regra.fator * antes))
            *seguidor = regra.fator * agora;
    }
}

void largaCatalogo(Peca& p) {
    for (const Papel papel : {M, A})
        if (double* const dado = p.valor(papel)) *dado = 0.0;
    p.subtipo = 0;
}

}  // namespace

const wchar_t* foraDoLimite(Limite limite, double v) {
    if (!std::isfinite(v)) return L"O valor é grande demais.";
    switch (limite) {
        case Limite::Positivo:
            return v > 0.0 ? nullptr : L"O valor deve ser maior que zero.";
        case Limite::NaoNegativo:
            return v >= 0.0 ? nullptr : L"O valor não pode ser negativo.";
        case Limite::AnguloRaso:
            return v > 0.0 && v < std::numbers::pi ? nullptr
                                                   : L"O ângulo deve ficar entre 0 e 180 graus.";
        case Limite::Livre:
            break;
    }
    return nullptr;
}

std::span<const Medida> medidas() { return kMedidas; }

const Medida* medidaDe(const std::wstring& chave) {
    const auto* const achada =
        std::ranges::find_if(kMedidas, [&](const Medida& m) { return chave == m.chave; });
    return achada != std::end(kMedidas) ? achada : nullptr;
}

std::wstring muda(Peca& p, const Medida& medida, double novo) {
    double* const alvo = p.valor(medida.papel);
    if (alvo == nullptr) return L"Esta peça não tem esta medida.";
    if (const wchar_t* const motivo = foraDoLimite(medida.limite, novo)) return motivo;
    const double antes = *alvo;
    *alvo = novo;
    acompanha(p, medida.papel, antes, novo);
    if (medida.papel == M) {
        // The area of the catalogue belongs to its mass.
        if (double* const area = p.valor(A)) *area = 0.0;
    } else if (medida.papel != Vao && medida.papel != VaoV) {
        // Two pieces further apart are the same ones.
        largaCatalogo(p);
    }
    p.secaoGuardada.reset();
    if (!p.chapa() && p.secao().invalida())
        return L"Com este valor as medidas não formam uma seção; confira espessuras, abas e raios.";
    p.dados = p.atuais;
    return {};
}

}  // namespace zp::fichas
