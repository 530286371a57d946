// SPDX-License-Identifier: MIT
// Short names of commands, from a file that the user may edit.
#pragma once

#include <filesystem>
#include <map>
#include <string>
#include <string_view>

namespace prancheta {

class Aliases {
public:
    /// Starts with the usual ones.
    Aliases();

    /// Lines `RO, *ROTATE`; `;` begins a comment. Replaces the present table; lines that make no
    /// sense are left out. False when the file cannot be read: the table stays.
    bool load(const std::filesystem::path& file);
    void parse(std::string_view text);
    /// Command for an alias, case ignored; empty when there is none.
    std::wstring find(std::wstring_view name) const;
    std::size_t size() const { return m_commands.size(); }
    /// Command by alias, the alias in the spelling of foldCase().
    const std::map<std::wstring, std::wstring, std::less<>>& all() const { return m_commands; }

private:
    std::map<std::wstring, std::wstring, std::less<>> m_commands;  // folded alias
};

}  // namespace prancheta
