// SPDX-License-Identifier: MIT
// What keeps a file from going to the shop.
#pragma once

#include <set>
#include <string>

class AcDbDatabase;

namespace zp::matlist {

/// Why members with these marks are not handed over: a check finds faults in them. Names them and
/// what to do; empty when nothing is found. Hints keep nothing back.
std::wstring objectionTo(AcDbDatabase& drawing, const std::set<std::wstring>& marcas);

}  // namespace zp::matlist
