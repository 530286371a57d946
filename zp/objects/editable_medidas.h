// SPDX-License-Identifier: MIT
// The constructor values that a user changes one by one: names, limits, what goes along.
#pragma once

#include <span>
#include <string>

#include "zp/objects/secao/kinds.h"

namespace zp {
struct Peca;
}

namespace zp::sheets {

/// What a value may be.
enum class Limit { Positive, NonNegative, WithinStraight, Free };

/// Why a value is none of these, in Portuguese; null when it is.
const wchar_t* outsideLimit(Limit limit, double value);

struct Medida {
    secao::Role role;
    const wchar_t* key;
    const wchar_t* unit;  ///< null for a number without unit
    double factor;        ///< shown value over stored value
    Limit limit;
};

/// All of them in the order in which a sheet shows them.
std::span<const Medida> medidas();
/// Null for an unknown key.
const Medida* medidaFor(const std::wstring& key);

/// Changes one value of a piece that is in no drawing, and those that depend on it: sizes equal by
/// rule stay equal, a mass or area that a catalogue gave for the old sizes of a piece is dropped, a
/// size of a series becomes a free one. `value` as stored. The reason, in Portuguese, when the
/// value gives no sound section; empty when it is taken. Otherwise the piece is of no use.
std::wstring change(Peca& peca, const Medida& medida, double value);

}  // namespace zp::sheets
