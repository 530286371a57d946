// SPDX-License-Identifier: MIT
// The lists of a command, one after the other, through a run that nobody sees.
#include "perfis/commands/listed_sizes.h"

#include <algorithm>

#include "perfis/commands/command_table.h"

namespace perfis {

std::vector<ListedSize> listedSizes(const PerfilCommand& command) {
    std::vector<ListedSize> sizes;
    for (int source = 0; source < newRun(command)->sourceCount(); ++source) {
        // What cannot be read leaves a run the rows that it had.
        std::vector<ListRow> rows = newRun(command)->rowsOf(source);
        for (int row = 0; row < std::ssize(rows); ++row) {
            ListRow& text = rows[static_cast<std::size_t>(row)];
            if (!text.empty()) sizes.push_back({source, row, std::move(text)});
        }
    }
    return sizes;
}

std::vector<ListedSize> listedSizes(const PerfilDescription& description) {
    const auto table = commandTable();
    const auto its = std::ranges::find_if(
        table, [&](const CommandRow& row) { return &row.command.description == &description; });
    return its == table.end() ? std::vector<ListedSize>() : listedSizes(its->command);
}

}  // namespace perfis
