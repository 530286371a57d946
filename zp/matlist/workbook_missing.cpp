// SPDX-License-Identifier: MIT
// Workbooks in a build without the library that writes them.
#include "zp/matlist/file_table.h"
#include "zp/matlist/formats.h"

namespace zp::matlist {

const ListWriter kWriteXlsx = nullptr;
const TableWriter kWriteTableXlsx = nullptr;

}  // namespace zp::matlist
