// SPDX-License-Identifier: MIT
// What every dialog does with its tiles: texts, modes, lists, slides.
#pragma once

#include <string>
#include <string_view>

#include "adsdlg.h"

class ZpStringList;

namespace perfis {

/// How many characters of a tile are read where nothing else is said.
inline constexpr int kTileText = 79;

/// Text of a tile, at most `comprimento` characters; empty for a tile that the dialog does not
/// have.
std::wstring tileText(ads_hdlg dialog, const wchar_t* key, int comprimento = kTileText);
/// Leading number of a user's text; 0 when it is too large for a real.
double typedReal(std::wstring_view text);
/// The same of a tile's text.
double tileReal(ads_hdlg dialog, const wchar_t* key);

void setTile(ads_hdlg dialog, const wchar_t* key, const std::wstring& text);
void setTile(ads_hdlg dialog, const wchar_t* key, int number);
/// "0" or "1".
void setToggle(ads_hdlg dialog, const wchar_t* key, bool on);
void enableTile(ads_hdlg dialog, const wchar_t* key, bool enabled);
/// Why a dialog may not be accepted.
struct Fault {
    std::wstring message;
    const wchar_t* tile;  ///< where it is mended
};
/// Shows the message in the tile "error" and takes the keyboard to the faulty tile, its text
/// selected.
void showFault(ads_hdlg dialog, const Fault& fault);

/// Last entry of every fixed table of strings; case is ignored.
inline constexpr const wchar_t* kEndMark = L"##FIM##";
/// Result of fillFixedList for a table without end mark among its first thousand entries.
inline constexpr int kNoEndMark = 301;

/// Fills a list or popup tile from a table that ends with kEndMark. RTNORM; kNoEndMark, and the
/// tile is left as it was.
int fillFixedList(ads_hdlg dialog, const wchar_t* key, const wchar_t* const* table);

/// Fills a list tile from a list of the string library: 1, or 0 when the tile takes no list.
int fillList(ads_hdlg dialog, const wchar_t* key, const ZpStringList& list);

/// Clears an image tile and paints a slide over the whole of it. `library` may be empty. A missing
/// slide leaves the tile cleared.
void showSlide(ads_hdlg dialog, const wchar_t* key, std::wstring_view library,
               std::wstring_view slide, short color = GRAPHICS_BACKGROUND);

}  // namespace perfis
