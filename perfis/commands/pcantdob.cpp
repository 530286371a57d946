// SPDX-License-Identifier: MIT
// Command pcantoneira: cold-formed angle.
#include <numbers>

#include "perfis/commands/common_secoes.h"
#include "perfis/commands/handlers.h"
#include "perfis/commands/travejamento_run.h"
#include "perfis/entities/zpdobrados.h"

namespace perfis {
namespace {

constexpr double kPi = std::numbers::pi;

constexpr Insertion kInsertions[] = {
    {L"RIGHT UPPER", [](const Medidas& m) { return Shift(-2.0 * m.b / 3.0, -m.h / 3.0); }},
    {L"LEFT DOWN", [](const Medidas& m) { return Shift(m.b / 3.0, 2.0 * m.h / 3.0); }},
    {L"CENTER", [](const Medidas&) { return Shift(); }},
};

/// Views 1 and 4 are drawn as the opposite face of a piece turned by half a circle.
Shift barraShift(const Medidas& m, const BarraPlace& place) {
    switch (place.vista) {
        case 1:
            return shiftByReach({-m.b / 3.0, 2.0 * m.b / 3.0}, place);
        case 2:
            return shiftByReach({-2.0 * m.b / 3.0, m.b / 3.0}, place);
        case 4:
            return shiftByReach({-m.h / 3.0, 2.0 * m.h / 3.0}, place);
        default:
            return shiftByReach({-2.0 * m.h / 3.0, m.h / 3.0}, place);
    }
}

constexpr Face kFaces[] = {
    {ZpObject::kVistaSecao},   {ZpObject::kVistaInferior, kPi}, {ZpObject::kVistaInferior},
    {ZpObject::kVistaDireita}, {ZpObject::kVistaDireita, kPi},
};

constexpr RoleValue kValues[] = {
    {H, &Medidas::h}, {B1, &Medidas::b}, {T, &Medidas::t}, {Ri, &Medidas::t}, {Ang1, kRightAngle},
};

const PerfilDescription kCantoneira = {
    .dialog = L"pl_geracao",
    .list = L"pl.lst",
    .buildRow = rowOfHbta,
    .slides = L"pl",
    .figures = 4,
    .tiles = kTilesHbta,
    .insertions = kInsertions,
    .wrong = wrongHbt,
    .barraShift = barraShift,
    .pecas = kPecaClass<ZpCantoneiraDobrada, Kind::CantoneiraDobrada>,
    .values = kValues,
    .faces = kFaces,
    .cotaSecao = cotaWVT,
};

constexpr ToggleTravejamento kTravejamento = {
    .maxAltura = [](const Medidas& m) { return 2.0 * m.b / 3.0; },
    .edgeRow = [](const Medidas& m) { return m.h / 3.0 + m.t / 2.0; },
};

}  // namespace

const PerfilCommand pcantdob{kCantoneira, [] { return makeTravejado(kCantoneira, kTravejamento); }};

}  // namespace perfis
