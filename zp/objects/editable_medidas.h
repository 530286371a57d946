// SPDX-License-Identifier: MIT
// The constructor values that a user changes one by one: names, limits, what goes along.
#pragma once

#include <span>
#include <string>

#include "zp/objects/secao/kinds.h"

namespace zp {
struct Peca;
}

namespace zp::fichas {

/// What a value may be.
enum class Limite { Positivo, NaoNegativo, AnguloRaso, Livre };

/// Why a value is none of these, in Portuguese; null when it is.
const wchar_t* foraDoLimite(Limite limite, double valor);

struct Medida {
    secao::Papel papel;
    const wchar_t* chave;
    const wchar_t* unidade;  ///< null for a number without unit
    double fator;            ///< shown value over stored value
    Limite limite;
};

/// All of them in the order in which a sheet shows them.
std::span<const Medida> medidas();
/// Null for an unknown key.
const Medida* medidaDe(const std::wstring& chave);

/// Changes one value of a piece that is in no drawing, and those that depend on it: sizes equal by
/// rule stay equal, a mass or area that a catalogue gave for the old sizes of a piece is dropped, a
/// size of a series becomes a free one. `valor` as stored. The reason, in Portuguese, when the
/// value gives no sound section; empty when it is taken. Otherwise the piece is of no use.
std::wstring muda(Peca& peca, const Medida& medida, double valor);

}  // namespace zp::fichas
