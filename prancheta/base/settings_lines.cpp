// SPDX-License-Identifier: MIT
// Lines of settings files.
#include "prancheta/base/settings_lines.h"

#include <algorithm>

#include "prancheta/base/text.h"

namespace prancheta {

std::vector<SettingsLine> settingsLines(std::string_view file) {
    std::vector<SettingsLine> lines;
    if (file.starts_with("\xEF\xBB\xBF")) file.remove_prefix(3);
    for (int number = 1; !file.empty(); ++number) {
        const std::size_t end = std::min(file.find('\n'), file.size());
        const std::string_view text = trim(file.substr(0, std::min(end, file.find(';'))));
        if (!text.empty()) lines.push_back({text, number});
        file.remove_prefix(std::min(end + 1, file.size()));
    }
    return lines;
}

std::vector<std::wstring_view> partsOf(std::wstring_view line, wchar_t separator) {
    std::vector<std::wstring_view> parts;
    for (std::size_t from = 0; from <= line.size();) {
        const std::size_t end = std::min(line.find(separator, from), line.size());
        parts.push_back(trim(line.substr(from, end - from)));
        from = end + 1;
    }
    return parts;
}

}  // namespace prancheta
