// SPDX-License-Identifier: MIT
// What a person types: points, numbers, angles, option words. Pure readers; the decimal sign is the
// point.
#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "prancheta/editor/question.h"

namespace prancheta {

/// "12", "-.5", "1e3", "+2", "1/2".
std::optional<double> readNumber(std::wstring_view text);
/// Whole number, nothing else.
std::optional<long> readInteger(std::wstring_view text);
/// Radians: plain number by `units` (AUNITS 0, 1 degrees, 2 grads, 3 radians), or with its unit:
/// "45d", "45d30'15\"", "50g", "1.5r". A leading `<` is accepted.
std::optional<double> readAngle(std::wstring_view text, int units);

struct TypedPoint {
    enum class Kind {
        None,       ///< no point syntax
        Point,      ///< `world`
        Distance,   ///< plain number: direct distance entry
        Direction,  ///< `<45`: `number` is the direction in the user system, radians
    };
    Kind kind = Kind::None;
    AcGePoint3d world;
    double number = 0.0;
    bool raised = false;  ///< a third coordinate other than 0 was typed
};

/// `10,20,5` `@10,20` `@50<30` `50<30` `@` `@50<30,10` `@50<30<45` `*10,20` `@*10,20` `#10,20`
/// `<45` `50`.
TypedPoint readPoint(std::wstring_view text, const InputFrame& frame);

/// Direction in the user system of an angle as typed, by ANGBASE and ANGDIR.
double directionOf(double typedAngle, const InputFrame& frame);

/// The option that was typed: first by its whole word, then by its abbreviation (its capitals) or a
/// beginning that holds them; case ignored. `_` asks for the global word; without it the local one
/// counts first. Accents may be missing where nothing fits with them. Null when none fits.
const Keyword* matchKeyword(std::wstring_view text, std::span<const Keyword> keywords);

/// List of acedInitGet: words separated by blanks, local ones, then after a single `_` the global
/// ones.
std::vector<Keyword> readKeywordList(std::wstring_view list);

/// Upper case of the letters used in names (ASCII and Latin-1).
std::wstring upperCase(std::wstring_view text);

/// Handle of `(handent "2A")`; 0 when the text is not that.
Adesk::UInt64 readHandent(std::wstring_view text);

}  // namespace prancheta
