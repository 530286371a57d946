// SPDX-License-Identifier: MIT
// Left-overs of bars: the file retalhos.lst among the lists, which is only read.
#pragma once

#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "zp/cutting/plan.h"

namespace zp::matlist {

struct LeftOvers {
    std::map<std::wstring, std::vector<cutting::LeftOver>> byKey;  ///< by keyOf the designation
    std::vector<std::wstring> faults;  ///< for the user: line, what, what becomes of it
};

/// Designations that differ in blanks, case or the decimal sign are one.
std::wstring keyOf(std::wstring_view designation);

/// Designation, length in mm and quantity between tabs; empty lines and those that begin with ";"
/// are passed over.
LeftOvers leftOversIn(std::wstring_view text);

/// Of Perfis/Listas/retalhos.lst below the installation folder; none without the file. Tells the
/// user the faults.
LeftOvers readLeftOvers();

}  // namespace zp::matlist
