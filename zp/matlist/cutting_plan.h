// SPDX-License-Identifier: MIT
// Cutting plans of a material list: one for each designation and material.
#pragma once

#include <string>
#include <vector>

#include "zp/cutting/plan.h"
#include "zp/matlist/left_overs.h"
#include "zp/matlist/zpmatlist.h"

namespace zp::matlist {

/// What the command PLANOCORTE asks for; mm.
struct CutSettings {
    std::vector<double> stock{6000.0, 12000.0};
    double sawCut = 3.0;
    double trim = 0.0;
};
/// The answers given last.
CutSettings& lastCutSettings();

struct ProductPlan {
    std::wstring designation;
    std::wstring material;
    std::wstring name;  ///< designation, with the material where that alone tells two apart
    cutting::Plan plan;
    bool tooMany = false;  ///< more pieces than are planned; the plan is empty
};
/// Of one product, in a plan.
inline constexpr long long kMostPieces = 200000;

/// Plans of the rows that count, plates left out, in the order of the list. Left-overs of a
/// designation serve its materials in that order.
std::vector<ProductPlan> plansOf(const std::vector<Linha>& rows, const CutSettings& settings,
                                 LeftOvers leftOvers);

/// "U 200x75x3: 7 barras de 6000, aproveitamento 93,1 %, mínimo teórico 7."
std::wstring lineOf(const ProductPlan& product);
/// One for each member that fits no bar.
std::vector<std::wstring> tooLongLines(const ProductPlan& product, const CutSettings& settings);

/// "7 barras de 6000 e 2 de 12000 e 1 retalho".
std::wstring barsInWords(const cutting::Plan& plan);
/// "7" bars where one length is bought, "36000 mm" otherwise.
std::wstring leastInWords(const cutting::Plan& plan);

/// What of a bar can be used again: without trims, pieces and the cuts behind them; mm.
double restOf(const cutting::Bar& bar, const CutSettings& settings);
/// Length of its pieces over its own; 0 to 1.
double utilisationOf(const cutting::Bar& bar);

}  // namespace zp::matlist
