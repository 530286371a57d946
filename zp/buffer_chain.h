// SPDX-License-Identifier: MIT
// Lists of result buffers that release themselves.
#pragma once

#include <memory>

#include "acutads.h"

namespace zp {

struct SoltaCorrente {
    void operator()(resbuf* inicio) const { acutRelRb(inicio); }
};
/// Owns a whole list by its first item.
using Corrente = std::unique_ptr<resbuf, SoltaCorrente>;

}  // namespace zp
