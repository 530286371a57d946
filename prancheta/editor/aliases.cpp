// SPDX-License-Identifier: MIT
// Short names of commands.
#include "prancheta/editor/aliases.h"

#include "prancheta/base/file.h"
#include "prancheta/base/settings_lines.h"
#include "prancheta/base/text.h"
#include "usual_aliases.h"

namespace prancheta {

Aliases::Aliases() { parse(kUsualAliases); }

bool Aliases::load(const std::filesystem::path& file) {
    const Result<std::string> text = readFile(file);
    if (!text) return false;
    parse(*text);
    return true;
}

void Aliases::parse(std::string_view text) {
    m_commands.clear();
    for (const SettingsLine& row : settingsLines(text)) {
        const std::size_t comma = row.text.find(',');
        if (comma == row.text.npos) continue;
        const std::wstring alias = foldCase(toWide(trim(row.text.substr(0, comma))));
        std::string_view command = trim(row.text.substr(comma + 1));
        if (command.starts_with('*')) command.remove_prefix(1);
        if (!alias.empty() && !command.empty()) m_commands[alias] = toWide(trim(command));
    }
}

std::wstring Aliases::find(std::wstring_view name) const {
    const auto at = m_commands.find(foldCase(name));
    return at == m_commands.end() ? std::wstring() : at->second;
}

}  // namespace prancheta
