// SPDX-License-Identifier: MIT
// Cutting plan: pieces of one product laid into bars.
#pragma once

#include <string>
#include <vector>

namespace zp::cutting {

struct Piece {
    std::wstring marca;
    double length = 0.0;  ///< mm
    int quantity = 0;
};

struct LeftOver {
    double length = 0.0;  ///< mm
    int quantity = 0;
};

/// Pieces p1..pk fit a bar when their sum and k-1 saw cuts do not exceed its length without both
/// trims. Lengths count to 1e-6 mm.
struct Problem {
    std::vector<Piece> pieces;  ///< those without length or quantity are passed over
    std::vector<double> stock;  ///< lengths that can be bought, mm
    std::vector<LeftOver> leftOvers;
    double sawCut = 0.0;  ///< mm
    double trim = 0.0;    ///< off either end of every bar, mm
};

struct Cut {
    std::wstring marca;
    double length = 0.0;

    bool operator==(const Cut&) const = default;
};

/// Bars that are cut alike.
struct Bar {
    double length = 0.0;
    bool leftOver = false;
    std::vector<Cut> cuts;  ///< the longest first
    int count = 1;
};

struct Plan {
    std::vector<Bar> bars;       ///< left-overs first, then the longest
    std::vector<Piece> tooLong;  ///< what fits no bar
    double bought = 0.0;         ///< length of the bars that are no left-overs, mm
    double laid = 0.0;           ///< length of all bars
    double used = 0.0;           ///< length of all pieces in them
    /// No plan for these pieces buys less.
    double leastBought = 0.0;
    /// Nor fewer bars, where all are of one length.
    int leastBars = 0;
    bool proved = false;  ///< none buys less than this one

    double utilisation() const { return laid > 0.0 ? used / laid : 0.0; }
    int boughtBars() const;
};

/// Buys the least length, and among equal ones the fewest bars; of both the least that is found in
/// a limited work, which the bound and `proved` tell for the length. Left-overs cost nothing and
/// are used before bars are bought: what fits into one of them does not stay in a bought bar. Equal
/// problems have equal plans. Some seconds for a hundred different lengths.
Plan solve(const Problem& problem);

}  // namespace zp::cutting
