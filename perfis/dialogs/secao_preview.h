// SPDX-License-Identifier: MIT
// Which prepared slide of a section stands in a dialog's picture.
#pragma once

#include <string_view>

#include "adsdlg.h"

namespace perfis {

/// Position of the first insertion point's slide in the table; the section alone stands at 0.
inline constexpr int kSecaoSlide = 0;
inline constexpr int kFirstInsertionSlide = 2;

/// Name of the slide at a position of the table "secao", "flecha", "ip0" to "ip4"; "secao" outside
/// it.
const wchar_t* secaoSlide(int index);

/// Paints that slide of the command's library into the tile "showall".
void showSecao(ads_hdlg dialog, std::wstring_view library, int index);

}  // namespace perfis
