// SPDX-License-Identifier: MIT
// How an error is shown.
#include "prancheta/base/result.h"

namespace prancheta {

std::string Error::message() const {
    std::string out;
    if (!file.empty()) out += file + ":";
    if (line > 0) out += std::to_string(line) + ":";
    if (line > 0 && column > 0) out += std::to_string(column) + ":";
    if (!out.empty()) out += " ";
    return out + text;
}

}  // namespace prancheta
