// SPDX-License-Identifier: MIT
// Texts allocated on the host's heap (the one that `free` serves).
#pragma once

#include "acadstrc.h"

/// Copies `from` into a new text; null in both directions when `from` is null.
Acad::ErrorStatus acutNewString(const ACHAR* from, ACHAR*& to);

/// Frees a text and sets the pointer to null.
void acutDelString(ACHAR*& text);

/// Replaces the text behind `to` by a copy of `from`.
Acad::ErrorStatus acutUpdString(const ACHAR* from, ACHAR*& to);
