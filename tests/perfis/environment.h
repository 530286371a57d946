// SPDX-License-Identifier: MIT
// The environment variable by which the module finds its files.
#pragma once

#include <cstdlib>
#include <string>

inline void installAt(const std::string& folder) {
#ifdef _WIN32
    ::_putenv_s("ZPFORJA2010", folder.c_str());  // an empty text takes it away
#else
    if (folder.empty())
        ::unsetenv("ZPFORJA2010");
    else
        ::setenv("ZPFORJA2010", folder.c_str(), 1);
#endif
}
