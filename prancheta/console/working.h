// SPDX-License-Identifier: MIT
// What the program is at, for whoever waits at a terminal.
#pragma once

#include <mutex>
#include <string>
#include <thread>

namespace prancheta::console {

/// As long as it lives: after half a second one line on standard error, "abrindo obra.dxf: 3 s",
/// that renews itself and is gone at the end. Nothing where standard error is no terminal.
class Working {
public:
    explicit Working(const std::string& what);
    ~Working() = default;
    Working(const Working&) = delete;
    Working& operator=(const Working&) = delete;

private:
    std::mutex m_mutex;
    std::jthread m_clock;
};

}  // namespace prancheta::console
