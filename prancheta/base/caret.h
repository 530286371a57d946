// SPDX-License-Identifier: MIT
// Control characters as drawing files write them.
#pragma once

#include <string>

namespace prancheta {

/// ^I, ^J ... become the control characters that they stand for, "^ " a ^; what stands for nothing
/// stays.
void decodeCarets(std::wstring& text);

}  // namespace prancheta
