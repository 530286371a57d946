// SPDX-License-Identifier: MIT
// Binary DXF files, read by turning them into text.
#pragma once

#include <string>
#include <vector>

#include "prancheta/base/result.h"
#include "prancheta/dxf/tag.h"

namespace prancheta::dxf {

/// The 22 bytes with which a binary file begins.
std::string_view binarySignature();
bool isBinary(std::string_view bytes);

/// The same groups as text, and where each of them stood in the binary file.
struct BinaryText {
    std::string text;
    std::vector<std::size_t> offsets;
};

/// What a damaged file has instead of an end or of a group that makes sense.
enum class Damage {
    IsAnError,   ///< that names the byte
    PassedOver,  ///< up to the next record; a pair of lines that are no group tells of it
};

/// Group codes of one byte (R12) or two are told by the first group. A truncated file or a group
/// that makes no sense is an error that names the byte, unless damage is passed over.
Result<BinaryText> textOfBinary(std::string_view bytes, Damage damage = Damage::IsAnError);

}  // namespace prancheta::dxf
