// SPDX-License-Identifier: MIT
// Variables of section HEADER.
#pragma once

#include <span>
#include <string>
#include <string_view>

namespace prancheta::dxf {

/// A variable that the host keeps among its own. Those of the dimension style are written from the
/// current style and not read, because the style says them.
struct HeaderVariable {
    const char* name;  ///< with the dollar sign
    int code;          ///< of its first group
    bool inDimStyle = false;
    bool hasHeight = false;  ///< a point of three coordinates
};

/// Kept from an opened file when its texts come back byte by byte.
constexpr const char* kCodePage = "$DWGCODEPAGE";

std::span<const HeaderVariable> headerVariables();
const HeaderVariable* headerVariable(std::string_view name);

/// Release, seed, code page, extents: made anew with each save.
bool isWritersOwn(std::string_view name);
/// True for variables that a release of this version does not know.
bool isUnknownTo(std::string_view acadVersion, std::string_view name);

/// Colour of $CECOLOR as the variable CECOLOR says it, and back.
std::wstring colorText(int index);
int colorIndex(std::wstring_view text);

}  // namespace prancheta::dxf
