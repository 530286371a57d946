// SPDX-License-Identifier: MIT
// Cutting plans for any host that shows them.
#pragma once

#include "zp/matlist/cutting_plan.h"

namespace zp::matlist {

void installPlans();
void uninstallPlans();

/// Shows the plan of a list where the host shows plans; nothing where it shows none.
void showPlan(int list, const std::vector<ProductPlan>& plans, const CutSettings& settings);

}  // namespace zp::matlist
