// SPDX-License-Identifier: MIT
// Tiles of the host's dialogs, a step more comfortable than its own functions.
#include "perfis/dialogs/tiles.h"

#include <cmath>

#include "perfis/dialogs/installation.h"
#include "texts/letters.h"
#include "texts/number.h"
#include "zp/forja/zpstringlist.h"

namespace perfis {
namespace {

constexpr int kLongestTile = 511;

struct SlideScale {
    double x = 1.0;
    double y = 1.0;
};

/// `fill` paints the tile with the colour first.
void drawSlide(ads_hdlg dialog, const wchar_t* key, const std::wstring& slide, bool fill,
               short color, const SlideScale& scale) {
    if (ads_start_image(dialog, key) != RTNORM) return;
    short width = 0;
    short height = 0;
    (void)ads_dimensions_tile(dialog, key, &width, &height);
    if (fill) (void)ads_fill_image(0, 0, width, height, color);
    (void)ads_slide_image(0, 0, static_cast<short>(width * scale.x),
                          static_cast<short>(height * scale.y), slide.c_str());
    (void)ads_end_image();
}

}  // namespace

std::wstring tileText(ads_hdlg dialog, const wchar_t* key, int comprimento) {
    // Hosts differ in whether the length counts the terminator.
    wchar_t text[kLongestTile + 2] = {};
    if (comprimento > kLongestTile) comprimento = kLongestTile;
    if (ads_get_tile(dialog, key, text, comprimento) != RTNORM) return {};
    return text;
}

double typedReal(std::wstring_view text) {
    const double value = texts::toReal(text);
    return std::isfinite(value) ? value : 0.0;
}

double tileReal(ads_hdlg dialog, const wchar_t* key) { return typedReal(tileText(dialog, key)); }

void setTile(ads_hdlg dialog, const wchar_t* key, const std::wstring& text) {
    (void)ads_set_tile(dialog, key, text.c_str());
}

void setTile(ads_hdlg dialog, const wchar_t* key, int number) {
    setTile(dialog, key, std::to_wstring(number));
}

void setToggle(ads_hdlg dialog, const wchar_t* key, bool on) {
    (void)ads_set_tile(dialog, key, on ? L"1" : L"0");
}

void enableTile(ads_hdlg dialog, const wchar_t* key, bool enabled) {
    (void)ads_mode_tile(dialog, key, enabled ? MODE_ENABLE : MODE_DISABLE);
}

void showFault(ads_hdlg dialog, const Fault& fault) {
    setTile(dialog, L"error", fault.message);
    (void)ads_mode_tile(dialog, fault.tile, MODE_SETFOCUS);
    (void)ads_mode_tile(dialog, fault.tile, MODE_SETSEL);  // a button has no text: nothing happens
}

int fillFixedList(ads_hdlg dialog, const wchar_t* key, const wchar_t* const* table) {
    constexpr int kMostEntries = 1000;
    int count = 0;
    while (count < kMostEntries && !texts::equalIgnoringCase(table[count], kEndMark)) ++count;
    if (count == kMostEntries) return kNoEndMark;
    if (ads_start_list(dialog, key, LIST_NEW, 0) != RTNORM) return RTERROR;
    for (int i = 0; i < count; ++i) (void)ads_add_list(table[i]);
    (void)ads_end_list();
    return RTNORM;
}

int fillList(ads_hdlg dialog, const wchar_t* key, const ZpStringList& list) {
    if (ads_start_list(dialog, key, LIST_NEW, 0) != RTNORM) return 0;
    for (int i = 0; i < list.length(); ++i)
        (void)ads_add_list(static_cast<const wchar_t*>(list.at(i)));
    (void)ads_end_list();
    return 1;
}

void showSlide(ads_hdlg dialog, const wchar_t* key, std::wstring_view library,
               std::wstring_view slide, short color) {
    const std::optional<std::wstring> folder = installationFolder();
    if (!folder) return;
    // A path that does not fit names no slide: the tile is cleared all the same.
    const std::optional<std::wstring> path = slidePath(*folder, library, slide);
    drawSlide(dialog, key, path.value_or(L""), true, color, SlideScale{});
}

}  // namespace perfis
