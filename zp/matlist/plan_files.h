// SPDX-License-Identifier: MIT
// A list's cutting plan as a table: on the sheet, in text files and in workbooks.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "zp/matlist/cutting_plan.h"
#include "zp/matlist/file_table.h"
#include "zp/matlist/plan_stamp.h"

namespace zp::matlist {

/// Its rows in the order of the plans: the bars of each that are cut alike, what fits no bar, and a
/// line of the plan's totals.
FileTable tableOf(const std::vector<ProductPlan>& plans, const CutSettings& settings);
/// "2 x 2000 P1 + 1500 P2"
std::wstring cutsInWords(const cutting::Bar& bar);

/// True for a file that the list's command fills with the plan instead of the list: its name ends
/// in "-plano".
bool namesPlan(const std::filesystem::path& destination);
/// The plan with the answers given last, in the format that the extension tells. A failure leaves
/// the file that was there.
bool writePlan(const std::filesystem::path& destination, const std::vector<Linha>& rows);

/// The table and below it each bar with its cuts, from the upper left corner on in the current
/// space; the table's first line keeps the stamp.
void drawPlan(const std::vector<ProductPlan>& plans, const CutSettings& settings,
              const AcGePoint3d& corner, const PlanStamp& stamp);

/// The command PLANOCORTE.
void cuttingPlanCommand();
inline constexpr const wchar_t* kPlanCommand = L"PLANOCORTE";
/// What there is to say when a list has no plan.
inline constexpr const wchar_t* kNothingToCut = L"A lista não tem barras para cortar.";

}  // namespace zp::matlist
