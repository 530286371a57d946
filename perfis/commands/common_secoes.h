// SPDX-License-Identifier: MIT
// Parts that several single-piece commands have in common.
#pragma once

#include <numbers>
#include <span>
#include <string>

#include "perfis/commands/perfil_description.h"

namespace perfis {

/// h, b, t and h, b, t, a.
extern const std::span<const MedidaTile> kTilesHbt;
extern const std::span<const MedidaTile> kTilesHbta;

/// Corners and centre of a U whose web stands a third of the flange left of the axis.
extern const std::span<const Insertion> kUInsertions;

/// Edges and centre of a round section.
extern const std::span<const Insertion> kRoundInsertions;

/// Area in mm2 of a linear mass in kg/m, as the rolled classes take it.
inline constexpr double kAreaOfPeso = 127.1848;

/// A U seen from below is the one seen from above, turned.
inline constexpr Face kChannelFaces[] = {
    {ZpObject::kVistaSecao},
    {ZpObject::kVistaSuperior},
    {ZpObject::kVistaInferior, std::numbers::pi},
    {ZpObject::kVistaDireita},
    {ZpObject::kVistaEsquerda},
};

/// Between web and flange before a bend is opened or closed, radians.
inline constexpr double kRightAngle = std::numbers::pi / 2.0;

/// Area in mm2 of the row last picked, from its linear mass.
double areaOfPeso(const Medidas& medidas);

/// What the classes of turned equal angles take: a third of the leg along the angle's own axes,
/// twice over.
double equalCantoneiraAxis(const Medidas& medidas);
/// Of equal legs a class keeps one.
void readEqualLegs(Medidas& medidas, const zp::secao::RoleValues& values);

/// Area of one rolled U in mm2, in the factors in which the trade has it.
double rolledUArea(const Medidas& medidas);
/// Thickness of its flanges at their toes.
double rolledUToe(const Medidas& medidas);

/// Row of the tiles h, b, t and, when the dialog has it, a.
std::wstring rowOfHbta(ads_hdlg dialog);

/// h, b, t must be above 0.
Medida wrongHbt(const Medidas& medidas);
/// h, b, t, a must be above 0.
Medida wrongHbta(const Medidas& medidas);

/// Width, height, thickness.
void cotaWVT(PecaCotas& cotas, const Medidas& medidas);

/// A member seen h high and b wide, symmetric to its axis.
Shift boxBarraShift(const Medidas& medidas, const BarraPlace& place);

/// A round member of diameter d.
Shift roundBarraShift(const Medidas& medidas, const BarraPlace& place);

}  // namespace perfis
