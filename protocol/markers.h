// SPDX-License-Identifier: MIT
// Selection markers by which a module tells any host what a part of a picture is.
#pragma once

#include "adesk.h"

namespace protocol {

/// A centre line: it is seen, picked and snapped to as the rest, but nothing is cut or bounded by
/// it. Hosts have smaller numbers below zero for what they draw themselves.
inline constexpr Adesk::GsMarker kCentreLineMarker = -5;

}  // namespace protocol
