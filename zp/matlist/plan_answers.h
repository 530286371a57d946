// SPDX-License-Identifier: MIT
// What is typed for a cutting plan, and what it means.
#pragma once

#include <optional>
#include <string>

#include "zp/matlist/cutting_plan.h"

namespace zp::matlist {

/// What an answer means; without it why not, a sentence for the user.
template <class T>
struct Answered {
    std::optional<T> value;
    std::wstring fault;
};

/// "6000,12000"
std::wstring inWords(const std::vector<double>& lengths);
/// Lengths with commas between, or with semicolons, and then a comma is the decimal one.
Answered<std::vector<double>> stockOf(const std::wstring& typed);

/// The widest saw cut, and the longest trim, with which something is left of the shortest bar; mm.
double widestCut(const std::vector<double>& stock);
double longestTrim(const std::vector<double>& stock);

/// All three answers; one that is empty stays as `before`.
Answered<CutSettings> settingsOf(const std::wstring& stock, const std::wstring& sawCut,
                                 const std::wstring& trim, CutSettings before);

}  // namespace zp::matlist
