// SPDX-License-Identifier: MIT
// Lists of result buffers that release themselves.
#pragma once

#include <memory>

#include "acutads.h"

namespace zp {

struct FreeChain {
    void operator()(resbuf* start) const { acutRelRb(start); }
};
/// Owns a whole list by its first item.
using BufferChain = std::unique_ptr<resbuf, FreeChain>;

}  // namespace zp
