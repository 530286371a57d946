// SPDX-License-Identifier: MIT
// Any bytes as a table of pieces, and each of its lines as a piece's own line.
#include "fuzz/input.h"
#include "perfis/pecas/line.h"
#include "perfis/pecas/table.h"

using namespace perfis;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const PecaTable table = readTable(fuzz::textOf(data, size));
    int last = 0;
    for (const TableRow& row : table.rows) {
        fuzz::expect(row.line > last, "rows out of order");
        last = row.line;
    }
    for (const TableFault& fault : table.faults) {
        fuzz::expect(!fault.text.empty(), "a fault without a text");
        (void)table.columnOf(fault.column);
    }
    return 0;
}
