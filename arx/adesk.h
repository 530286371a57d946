// SPDX-License-Identifier: MIT
// Basic types of the host's interface.
#pragma once

#include <cstddef>
#include <cstdint>

/// Character of every text that crosses the interface.
using ACHAR = wchar_t;

/// Handle of a module's resources; unused outside Windows.
using HINSTANCE = void*;

namespace Adesk {
using Int8 = std::int8_t;
using Int16 = std::int16_t;
using Int32 = std::int32_t;
using Int64 = std::int64_t;
using UInt8 = std::uint8_t;
using UInt16 = std::uint16_t;
using UInt32 = std::uint32_t;
using UInt64 = std::uint64_t;
/// `int`-like truth value: kTrue or kFalse.
using Boolean = int;
using LongPtr = std::intptr_t;
using GsMarker = std::intptr_t;
constexpr Boolean kFalse = 0;
constexpr Boolean kTrue = 1;
}  // namespace Adesk
