// SPDX-License-Identifier: MIT
// The solver's library, loaded when somebody plans: with the libraries that it needs it would
// double the time of a program's start.
#include <dlfcn.h>

#include "zp/cutting/pattern.h"

namespace zp::cutting {
namespace {

using Entry = void(const Task&, const Layout&, Improved&);

/// Lengths beyond which first fit is good enough: the solver would take minutes.
constexpr std::size_t kMostItems = 3000;

/// Null when the library does not stand beside the module.
Entry* solver() {
    static void* const library = dlopen("libzpsolver.so", RTLD_NOW | RTLD_LOCAL);
    return library != nullptr ? reinterpret_cast<Entry*>(dlsym(library, "zpCuttingImproved"))
                              : nullptr;
}

}  // namespace

Improved improved(const Task& task, const Layout& start) {
    Improved answer{start, leastByVolume(task)};
    if (Entry* const entry = solver(); entry != nullptr && task.items.size() <= kMostItems)
        entry(task, start, answer);
    return answer;
}

}  // namespace zp::cutting
