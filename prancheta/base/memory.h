// SPDX-License-Identifier: MIT
// Lack of memory: an error as any other, told and survived.
#pragma once

#include <new>
#include <utility>

#include "prancheta/base/result.h"

namespace prancheta {

inline Error outOfMemory() {
    return Error{"memória insuficiente; feche outros programas ou desenhos e tente de novo"};
}

/// What `work` answers, a Result; an error when memory ran out on the way.
template <class Work>
auto withinMemory(Work&& work) -> decltype(work()) {
    try {
        return std::forward<Work>(work)();
    } catch (const std::bad_alloc&) {
        return outOfMemory();
    }
}

/// Work that must not stay half done, and may be begun again: a second chance with what the first
/// one has freed.
template <class Work>
auto insist(Work&& work) -> decltype(work()) {
    try {
        return work();
    } catch (const std::bad_alloc&) {
        return work();
    }
}

}  // namespace prancheta
