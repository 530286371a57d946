// SPDX-License-Identifier: MIT
// Which of a drawing's material lists, which piece.
#pragma once

#include <optional>
#include <vector>

#include "zp/matlist/lists.h"

namespace zp::matlist {

/// The only one of `all`, or the one that the user names; offered is the one taken last. Nothing
/// when there is none or the user declined.
std::optional<MaterialList> askWhich(const std::vector<MaterialList>& all);
/// The same of a drawing's lists, which are shown when there are several; told when there is none.
std::optional<MaterialList> chooseList(AcDbDatabase& drawing);
/// The list that is offered next.
void offerNext(int number);
/// To be called when a drawing goes away: another one's lists have the same numbers.
void forgetLast();

/// The bar that the user picks, by itself, by one of its plates or by its mark. Null, and told,
/// when he picks none.
AcDbObjectId askBar(AcDbDatabase& drawing);
/// Told by commands that need the length of the piece, of a section.
inline constexpr const wchar_t* kNoLength =
    L"Uma seção não tem comprimento; selecione uma vista longitudinal da peça.";

}  // namespace zp::matlist
