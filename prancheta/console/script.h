// SPDX-License-Identifier: MIT
// The lines that answer: from a file, from standard input, or typed on a terminal.
#pragma once

#include <istream>
#include <memory>
#include <optional>
#include <string>

#include "prancheta/base/result.h"

namespace prancheta::console {

class Script {
public:
    /// "-" is standard input. A file that cannot be read is an error.
    static Result<Script> open(const std::string& path);

    /// Next answer, without surrounding blanks; comments answer nothing. Empty at the end, and when
    /// the program is wanted to end. The interrupt key of a terminal answers `^C`, once it is
    /// caught.
    std::optional<std::string> next();
    /// Gives no more answers: what follows an error was meant for something else.
    void stop() { m_stopped = true; }

    /// Number of the line given last, from 1.
    int line() const { return m_line; }
    /// As errors name it.
    const std::string& name() const { return m_name; }
    /// A person types.
    bool interactive() const { return m_interactive; }

private:
    Script(std::unique_ptr<std::istream> owned, std::istream& in, std::string name,
           bool interactive)
        : m_owned(std::move(owned)),
          m_in(&in),
          m_name(std::move(name)),
          m_interactive(interactive) {}

    std::unique_ptr<std::istream> m_owned;
    std::istream* m_in;
    std::string m_name;
    bool m_interactive;
    bool m_stopped = false;
    int m_line = 0;
};

}  // namespace prancheta::console
