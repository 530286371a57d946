// SPDX-License-Identifier: MIT
// Opens a dialog again and again until it closes for good.
#include "perfis/dialogs/dialog_loop.h"

#include <optional>

#include "perfis/dialogs/installation.h"

namespace perfis {

int ReopeningDialog::runLoop(const wchar_t* file, const wchar_t* name) {
    int dialogFile = loadsOnce() ? load(file) : 0;
    int status = kDialogReopen;
    while (reopensAfter(status)) {
        if (!loadsOnce()) dialogFile = load(file);
        ads_hdlg dialog = nullptr;
        if (ads_new_dialog(name, dialogFile, NULLCB, &dialog) != RTNORM) {
            reportMissing();
            return kDialogMissing;
        }
        open(dialog);
        status = kDialogCancelled;
        (void)ads_start_dialog(dialog, &status);
        closed(status);
    }
    // Where the file is loaded at every pass the host keeps one copy, so one unload is enough.
    (void)ads_unload_dialog(dialogFile);
    return kDialogDone;
}

int ReopeningDialog::load(const wchar_t* file) {
    const std::wstring folder = installationFolder().value_or(L"");
    const std::wstring path = dialogPath(folder, file).value_or(L"");
    int dialogFile = 0;
    (void)ads_load_dialog(path.c_str(), &dialogFile);
    return dialogFile;
}

void wireTile(ads_hdlg dialog, const TileAction& action, CLIENTDATA data) {
    (void)ads_client_data_tile(dialog, action.key, data);
    (void)ads_action_tile(dialog, action.key, action.callback);
}

}  // namespace perfis
