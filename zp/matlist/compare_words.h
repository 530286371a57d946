// SPDX-License-Identifier: MIT
// What differs between two members, in words.
#pragma once

#include "zp/matlist/compare.h"
#include "zp/matlist/file_table.h"

namespace zp::matlist {

/// "L 5980 -> 6020, aço A36 -> A572"; empty when they are the same but for their place.
std::wstring differenceOf(const JobMember& before, const JobMember& after);
/// Another turn about the own axis; what is seen from another side is the same.
bool turned(const JobMember& before, const JobMember& after);
/// "movida 1000; 0", "girada 30°", "giro 0° -> 90°".
std::wstring movementOf(const JobMember& before, const JobMember& after);
/// The name, and whether the member is in no list.
std::wstring nameWithin(const JobMember& member);
/// A row for each change, handles in its last columns.
FileTable tableOf(const std::vector<MemberChange>& changes);
/// "+2"
std::wstring signedWords(long long number);

}  // namespace zp::matlist
