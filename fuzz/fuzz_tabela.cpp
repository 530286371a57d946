// SPDX-License-Identifier: MIT
// Any bytes as a table of published sizes: rows, numbers, faults.
#include "fuzz/input.h"
#include "zp/tables/published.h"

using namespace zp::tables;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const fuzz::MemoryFile file(fuzz::textOf(data, size));
    TableFile table = TableFile::read(file.path());
    constexpr const wchar_t* kColumns[] = {L"h", L"b", L"tw", L"tf"};
    for (const Row& row : table.rows()) {
        (void)sizedRow(table, row, kColumns);
        (void)table.text(row, table.column(L"nome"));
    }
    for (const Fault& fault : table.faults()) fuzz::expect(!told(fault).empty(), "an empty fault");
    return 0;
}
