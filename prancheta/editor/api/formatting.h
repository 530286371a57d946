// SPDX-License-Identifier: MIT
// Formatted texts as modules write them.
#pragma once

#include <cstdarg>
#include <string>

#include "adesk.h"

namespace prancheta {

/// printf of wide texts: `%s` and `%ls` both take a wide text, `%hs` a narrow one (UTF-8), `%S`
/// too. Flags, width, precision, `*` and the positional form `%1$s` as usual; numbers with decimal
/// point. A conversion that is not known ends the formatting; its text stands as it is.
std::wstring formatText(const ACHAR* format, std::va_list& arguments);

}  // namespace prancheta
