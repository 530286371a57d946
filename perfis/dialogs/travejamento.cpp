// SPDX-License-Identifier: MIT
// Rules of the lacing values.
#include "perfis/dialogs/travejamento.h"

#include <cfloat>
#include <cmath>
#include <cwchar>
#include <string>

#include "perfis/entities/zpfuncoes.h"
#include "texts/number.h"

namespace perfis {
namespace {

/// A spacing that was made of a number of parts gives it back: what the two divisions rounded away
/// is not cut off once more.
int wholeParts(double quotient) {
    const double nearest = std::round(quotient);
    const bool isWhole = std::abs(quotient - nearest) <= 4.0 * DBL_EPSILON * nearest;
    return texts::realToInt(isWhole ? nearest : quotient);
}

}  // namespace

std::optional<Fault> travejamentoFault(const TravejamentoParams& params,
                                       const TravejamentoLimites& limits) {
    if (params.A == 0.0) return {};
    if (limits.minA >= params.A)
        return Fault{L"A deve ser maior que " + std::wstring(FormatInString(limits.minA)),
                     L"altura"};
    if (params.A > limits.maxA)
        return Fault{L"A deve ser menor ou igual a " + std::wstring(FormatInString(limits.maxA)),
                     L"altura"};
    if (limits.somenteAltura != 0) return {};
    if (params.C <= 0.0) return Fault{L"C deve ser maior que 0.0", L"largura"};
    const double half = 0.5 * limits.comp;
    if (params.C >= half)
        return Fault{L"C deve ser menor que comp/2 (" + texts::fixed(half, 2) + L")", L"largura"};
    if (params.n <= 0) return Fault{L"n deve ser maior que 0", L"n_partes"};
    double L1 = 0.0;
    (void)CalcEspacamento(params, limits.comp, L1);
    if (params.C < L1) return {};
    // The number shown is C, which the user can compare with the spacing in its own tile.
    return Fault{L"L1 deve ser maior que C (" + texts::fixed(params.C, 2) + L")", L"l_travejam"};
}

int ValidaTravejamento(const TravejamentoParams& params, const TravejamentoLimites& limits,
                       wchar_t* message) {
    const std::optional<Fault> fault = travejamentoFault(params, limits);
    if (fault && message != nullptr) std::wcscpy(message, fault->message.c_str());
    return fault ? 0 : 1;
}

int CalcEspacamento(const TravejamentoParams& params, double comp, double& L1) {
    if (params.n == 0) return 0;
    L1 = (comp - params.C) / params.n;
    if (L1 < 0.0) L1 = 0.0;
    return 1;
}

void CalcPartes(TravejamentoParams& params, double comp, double& L1) {
    if (params.C > L1) L1 = params.C;
    params.n = wholeParts((comp - params.C) / L1);
    if (params.n < 1) params.n = 1;
    (void)CalcEspacamento(params, comp, L1);
}

ZpString FormatDim(double value) { return texts::withoutZeros(texts::fixed(value, 2)); }

}  // namespace perfis
