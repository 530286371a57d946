// SPDX-License-Identifier: MIT
// The event record: one JSON object a line, written as things happen.
#pragma once

#include <filesystem>
#include <fstream>
#include <ostream>

#include "prancheta/base/event.h"
#include "prancheta/base/result.h"
#include "prancheta/console/script.h"

namespace prancheta::console {

/// Records every event of the process from open() until it is destroyed, each with the script's
/// line.
class EventLog {
public:
    explicit EventLog(const Script& script) : m_script(script) {}
    ~EventLog();
    EventLog(const EventLog&) = delete;
    EventLog& operator=(const EventLog&) = delete;

    Result<void> open(const std::filesystem::path& path);
    /// Flushes and reports a record that could not be written whole.
    Result<void> close();

private:
    void write(const Event& event);

    const Script& m_script;
    std::filesystem::path m_path;
    std::ofstream m_file;
    std::ostream m_out{nullptr};  ///< writes to the file, or to standard output
    int m_errno = 0;
};

}  // namespace prancheta::console
