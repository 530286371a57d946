// SPDX-License-Identifier: MIT
// Bar type selector: a radio row whose buttons stand for the values of a table.
#include "perfis/dialogs/tipo_barra_dialog.h"

#include <iterator>

#include "perfis/dialogs/dialog_loop.h"
#include "perfis/dialogs/installation.h"
#include "perfis/dialogs/tiles.h"

namespace perfis {
namespace {

constexpr const wchar_t* kRow = L"TipoRow";

/// Position = bar type. 7 and 8 have no button and hold their places.
constexpr const wchar_t* kButtons[] = {L"bt_barra", L"bt_mt",    L"bt_di", L"bt_bi", L"bt_bs",
                                       L"bt_viga",  L"bt_pilar", L"",      L"",      L"bt_terca"};

void CALLB onButton(ads_callback_packet* packet) {
    wchar_t pressed[513] = {};
    if (ads_get_tile(packet->dialog, kRow, pressed, 511) != RTNORM) return;
    for (int type = 0; type < static_cast<int>(std::size(kButtons)); ++type) {
        if (std::wstring_view(pressed) != kButtons[type]) continue;
        *static_cast<int*>(packet->client_data) = type;
        return;
    }
}

}  // namespace

int editTipoBarra(int& tipoBarra) {
    int working = tipoBarra;
    const std::wstring path =
        dialogPath(installationFolder().value_or(L""), L"perfis.dcl").value_or(L"");
    int dialogFile = 0;
    (void)ads_load_dialog(path.c_str(), &dialogFile);
    ads_hdlg dialog = nullptr;
    const int opened = ads_new_dialog(L"tipo_barras", dialogFile, NULLCB, &dialog);
    if (opened != RTNORM) return opened;
    for (const wchar_t* const key : kButtons)
        if (*key != L'\0') wireTile(dialog, {key, onButton}, &working);
    const bool known = working >= 0 && working < static_cast<int>(std::size(kButtons));
    (void)ads_set_tile(dialog, kRow, known ? kButtons[working] : L"");
    int status = kDialogCancelled;
    (void)ads_start_dialog(dialog, &status);
    (void)ads_unload_dialog(dialogFile);
    if (status == kDialogAccepted) tipoBarra = working;
    return RTNORM;
}

}  // namespace perfis
