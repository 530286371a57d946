// SPDX-License-Identifier: MIT
// A flag that is up while something goes on.
#pragma once

namespace prancheta {

/// Up until the end of the block, whatever ends it.
class Raised {
public:
    explicit Raised(bool& flag) : m_flag(flag) { m_flag = true; }
    ~Raised() { m_flag = false; }
    Raised(const Raised&) = delete;
    Raised& operator=(const Raised&) = delete;

private:
    bool& m_flag;
};

}  // namespace prancheta
