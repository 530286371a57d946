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

/// Group codes of one byte (R12) or two are told by the first group. A truncated file or a group
/// that makes no sense is an error that names the byte.
Result<BinaryText> textOfBinary(std::string_view bytes);

}  // namespace prancheta::dxf
