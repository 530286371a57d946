// SPDX-License-Identifier: MIT
// Workbooks in a build without the library that writes them.
#include "zp/matlist/formats.h"
#include "zp/matlist/plan_files.h"

namespace zp::matlist {

const ListWriter kWriteXlsx = nullptr;
const PlanWriter kWritePlanXlsx = nullptr;

}  // namespace zp::matlist
