// SPDX-License-Identifier: MIT
// What the commands of I sections with two equal flanges have in common: h = H, b = B, t = tf, a =
// tw.
#pragma once

#include <span>

#include "perfis/commands/perfil_description.h"

namespace perfis {

/// Shift from the lower edge or the centre of a box to its centre, in the order of "ins_list".
template <double Medidas::*Largura>
constexpr Insertion kBoxEdges[] = {
    {L"RIGHT DOWN", [](const Medidas& m) { return Shift(-(m.*Largura) / 2.0, m.h / 2.0); }},
    {L"MID DOWN", [](const Medidas& m) { return Shift(0.0, m.h / 2.0); }},
    {L"LEFT DOWN", [](const Medidas& m) { return Shift((m.*Largura) / 2.0, m.h / 2.0); }},
    {L"CENTER", [](const Medidas&) { return Shift(); }},
};

/// Without the blank at the end that the other commands have.
inline constexpr const wchar_t* kIInsertionPrompt = L"\nIndique o ponto de insercao:";

/// Halves and whole of the width, height, flange and web thickness.
void cotaISecao(PecaCotas& d, const Medidas& m);

}  // namespace perfis
