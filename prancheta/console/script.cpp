// SPDX-License-Identifier: MIT
// Lines of a script.
#include "prancheta/console/script.h"

#include <cstdio>
#include <iostream>
#include <sstream>

#include "prancheta/base/file.h"
#include "prancheta/base/library.h"
#include "prancheta/base/text.h"
#include "prancheta/base/utf8_path.h"

namespace prancheta::console {

Result<Script> Script::open(const std::string& path) {
    if (path == "-") {
        const bool interactive = inputIsTerminal();
        // Waiting looks at the terminal: nothing may lie in a buffer before it.
        if (interactive) std::setvbuf(stdin, nullptr, _IONBF, 0);
        return Script(nullptr, std::cin, "entrada", interactive);
    }
    auto content = readFile(pathFromUtf8(path));
    if (!content) return content.error();
    auto stream = std::make_unique<std::istringstream>(std::move(*content));
    std::istream& in = *stream;
    return Script(std::move(stream), in, path, false);
}

std::optional<std::string> Script::next() {
    constexpr std::string_view kMark = "\xEF\xBB\xBF";
    for (std::string text; !m_stopped;) {
        if (m_interactive && m_in->good()) waitForInput();
        const bool broken = m_interactive && takeInterrupt();
        if (broken || !std::getline(*m_in, text)) {
            if (!broken && !(m_interactive && takeInterrupt())) break;
            m_in->clear();
            std::clearerr(stdin);
            std::cout << std::endl;  // behind the ^C that the terminal shows
            return "^C";
        }
        if (endWish() != 0) break;  // the line may be half of one
        ++m_line;
        if (m_line == 1 && text.starts_with(kMark)) text.erase(0, kMark.size());
        if (text.starts_with(';')) continue;
        return std::string(trim(std::string_view(text)));
    }
    return std::nullopt;
}

}  // namespace prancheta::console
