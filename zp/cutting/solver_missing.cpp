// SPDX-License-Identifier: MIT
// Cutting plans in a build without the libraries that improve them.
#include "zp/cutting/pattern.h"

namespace zp::cutting {

Improved improved(const Task& task, const Layout& start) { return {start, leastByVolume(task)}; }

}  // namespace zp::cutting
