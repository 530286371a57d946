// SPDX-License-Identifier: MIT
// Values of pieces as a user changes them.
#include "zp/objects/editable_medidas.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "zp/objects/peca.h"
#include "zp/objects/published.h"

namespace zp::sheets {
namespace {

using secao::Role;
using enum Role;

constexpr double kDegrees = 180.0 / std::numbers::pi;

// clang-format off
constexpr Medida kMedidas[] = {
    {H,    L"h",    L"mm",   1.0,    Limit::Positive},
    {D,    L"d",    L"mm",   1.0,    Limit::Positive},
    {Dint, L"dint", L"mm",   1.0,    Limit::Free},
    {B1,   L"b1",   L"mm",   1.0,    Limit::Positive},
    {B2,   L"b2",   L"mm",   1.0,    Limit::Positive},
    {Bc,   L"bc",   L"mm",   1.0,    Limit::Positive},
    {Bb,   L"bb",   L"mm",   1.0,    Limit::Positive},
    {T,    L"t",    L"mm",   1.0,    Limit::Positive},
    {Tw,   L"tw",   L"mm",   1.0,    Limit::Positive},
    {Tf1,  L"tf1",  L"mm",   1.0,    Limit::Positive},
    {Tf2,  L"tf2",  L"mm",   1.0,    Limit::Positive},
    {Tc,   L"tc",   L"mm",   1.0,    Limit::Positive},
    {Tb,   L"tb",   L"mm",   1.0,    Limit::Positive},
    {Ri,   L"ri",   L"mm",   1.0,    Limit::NonNegative},
    {Aba,  L"aba",  L"mm",   1.0,    Limit::Free},
    {Vao,  L"vao",  L"mm",   1.0,    Limit::NonNegative},
    {VaoV, L"vaov", L"mm",   1.0,    Limit::NonNegative},
    {Ang1, L"ang1", L"°",    kDegrees, Limit::WithinStraight},
    {Ang2, L"ang2", L"°",    kDegrees, Limit::WithinStraight},
    {D1,   L"d1",   L"mm",   1.0,    Limit::Positive},
    {D2,   L"d2",   L"mm",   1.0,    Limit::Positive},
    {M,    L"m",    L"kg/m", 1.0,    Limit::NonNegative},
};

/// A value that the drawing commands derive from another one. It goes along as long as it follows
/// the rule.
struct Rule {
    Role role;
    Role from;
    double factor;
};

constexpr Rule kRules[] = {
    {B2,  B1, 1.0}, {Bb,  Bc, 1.0}, {Ri,  T, 1.0}, {Tf1, T, 1.0}, {Tf2, T, 1.0},
    {Ex,  B1, 1.0 / 3.0}, {Ey, H, 2.0 / 3.0}, {E, H, -1.0 / (3.0 * std::numbers::sqrt2)},
};
// clang-format on

bool equal(double a, double b) { return std::abs(a - b) <= 1e-9 * std::max(1.0, std::abs(b)); }

void followRule(Peca& p, Role changed, double before, double now) {
    for (const Rule& rule : kRules) {
        if (rule.from != changed) continue;
        double* const follower = p.value(rule.role);
        if (follower != nullptr && equal(*follower, rule.factor * before))
            *follower = rule.factor * now;
    }
}

void dropCatalogue(Peca& p) {
    for (const Role role : {M, A})
        if (double* const given = p.value(role)) *given = 0.0;
    p.series = 0;
}

}  // namespace

const wchar_t* outsideLimit(Limit limit, double v) {
    if (!std::isfinite(v)) return L"O valor é grande demais.";
    switch (limit) {
        case Limit::Positive:
            return v > 0.0 ? nullptr : L"O valor deve ser maior que zero.";
        case Limit::NonNegative:
            return v >= 0.0 ? nullptr : L"O valor não pode ser negativo.";
        case Limit::WithinStraight:
            return v > 0.0 && v < std::numbers::pi ? nullptr
                                                   : L"O ângulo deve ficar entre 0 e 180 graus.";
        case Limit::Free:
            break;
    }
    return nullptr;
}

std::span<const Medida> medidas() { return kMedidas; }

const Medida* medidaFor(const std::wstring& key) {
    const auto* const found =
        std::ranges::find_if(kMedidas, [&](const Medida& m) { return key == m.key; });
    return found != std::end(kMedidas) ? found : nullptr;
}

std::wstring change(Peca& p, const Medida& medida, double fresh) {
    double* const target = p.value(medida.role);
    if (target == nullptr) return L"Esta peça não tem esta medida.";
    if (const wchar_t* const reason = outsideLimit(medida.limit, fresh)) return reason;
    const double before = *target;
    *target = fresh;
    followRule(p, medida.role, before, fresh);
    if (medida.role == M) {
        // The area of the catalogue belongs to its mass.
        if (double* const area = p.value(A)) *area = 0.0;
    } else if (medida.role != Vao && medida.role != VaoV) {
        // Two pieces further apart are the same ones.
        dropCatalogue(p);
    }
    p.cachedSecao.reset();
    published::follow(p, medida.role);
    if (!p.chapa() && p.secao().invalid())
        return L"Com este valor as medidas não formam uma seção; confira espessuras, abas e raios.";
    p.given = p.actual;
    return {};
}

}  // namespace zp::sheets
