// SPDX-License-Identifier: MIT
// Parts that several built-up commands have in common: tiles, validity, insertion points,
// dimensions of the section.
#pragma once

#include <span>

#include "perfis/commands/perfil_description.h"

namespace perfis {

/// Rolled sections: h, b, t from the row, a typed.
extern const std::span<const MedidaTile> kTilesRolled;
/// The same with the gap in height av.
extern const std::span<const MedidaTile> kTilesRolledAv;
/// Cold-formed sections with a lip: h, b, t, a and, where the row has it, e.
extern const std::span<const MedidaTile> kTilesWithAba;

/// h, b, t must be above 0, the gap a not below it.
Medida wrongVao(const Medidas& medidas);
/// The same, and e above 0.
Medida wrongVaoOrAba(const Medidas& medidas);
/// The same as wrongVao, and av not below 0.
Medida wrongVaoOrAv(const Medidas& medidas);
/// h, b, t must be above 0, the width a 0 (the pieces touch) or at least 2b.
Medida wrongLargura(const Medidas& medidas);

/// Width over the whole of two pieces with legs b, drawn at least 2b wide.
double outsideLargura(const Medidas& medidas);
/// Half the width of two pieces of width b with the gap a between them.
double halfAcrossVao(const Medidas& medidas);
/// Half of the width of the whole, mm.
double halfOutsideLargura(const Medidas& medidas);
/// mm.
double halfAltura(const Medidas& medidas);
/// mm.
double thirdOfAltura(const Medidas& medidas);

/// Kind of an I of two U whose lips point outwards.
inline constexpr double kCartolas = 1.0;

/// Area in cm2 and mass of two rolled angles, as their built-up classes take them.
inline double pairPeso(const Medidas& m) { return 2.0 * m.m; }
/// Area of two pieces in cm2 from the linear mass of one in kg/m.
inline double pairArea(const Medidas& m) { return 2.0 * m.m * 1.271848; }

/// A distance from the reference point to an edge of the section's box.
using Extent = double (*)(const Medidas&);

/// Both upper corners and the centre.
template <Extent X, Extent Upper>
inline constexpr Insertion kUpperCorners[] = {
    {L"RIGHT UPPER", [](const Medidas& m) { return Shift(-X(m), -Upper(m)); }},
    {L"LEFT UPPER", [](const Medidas& m) { return Shift(X(m), -Upper(m)); }},
    {L"CENTER", [](const Medidas&) { return Shift(); }},
};

/// Two opposite corners and the centre.
template <Extent X, Extent Upper, Extent Lower>
inline constexpr Insertion kOppositeCorners[] = {
    {L"RIGHT UPPER", [](const Medidas& m) { return Shift(-X(m), -Upper(m)); }},
    {L"LEFT DOWN", [](const Medidas& m) { return Shift(X(m), Lower(m)); }},
    {L"CENTER", [](const Medidas&) { return Shift(); }},
};

/// All corners and the centre.
template <Extent X, Extent Y>
inline constexpr Insertion kFourCorners[] = {
    {L"RIGHT DOWN", [](const Medidas& m) { return Shift(-X(m), Y(m)); }},
    {L"LEFT DOWN", [](const Medidas& m) { return Shift(X(m), Y(m)); }},
    {L"RIGHT UPPER", [](const Medidas& m) { return Shift(-X(m), -Y(m)); }},
    {L"LEFT UPPER", [](const Medidas& m) { return Shift(X(m), -Y(m)); }},
    {L"CENTER", [](const Medidas&) { return Shift(); }},
};

/// T of two angles: width, height, thickness, gap between the stems.
void cotaTee(PecaCotas& cotas, const Medidas& medidas);
/// U of two angles: width, height, thickness, opening between the legs.
void cotaTrough(PecaCotas& cotas, const Medidas& medidas);
/// Two angles heel to heel, legs at 45 degrees: width, height, gap, thickness at the upper right
/// tip. `heelX` is the heel of the right one, `leg` its upper leg.
void cotaHeels(PecaCotas& cotas, const Medidas& medidas, double heelX, double leg);
/// Two sections facing each other: width, height, web, opening between the toes.
void cotaFacing(PecaCotas& cotas, const Medidas& medidas);
/// Gap between two backs, at the lower edge.
void cotaVaoBelow(PecaCotas& cotas, const Medidas& medidas);

}  // namespace perfis
