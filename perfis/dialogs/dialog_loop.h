// SPDX-License-Identifier: MIT
// The loop of every dialog that closes to let the user work in the drawing and then opens again.
#pragma once

#include <exception>
#include <string>

#include "acedads.h"
#include "adsdlg.h"

namespace perfis {

/// Values with which the callbacks close a dialog.
enum DialogStatus : int {
    kDialogCancelled = 0,
    kDialogAccepted = 1,
    kDialogReopen = 10,
    /// Opens again at once, without an interactive step; built-up commands only.
    kDialogReopenAtOnce = 20,
};

/// Results of a dialog function.
inline constexpr int kDialogDone = 0;
inline constexpr int kDialogMissing = 2;

/// One dialog, opened as often as its user wants. What it shows lives in the derived object, so
/// every opening starts from the remembered values.
class ReopeningDialog {
public:
    virtual ~ReopeningDialog() = default;

    /// Opens `name` of the dialog file until it closes for good. kDialogDone, or kDialogMissing
    /// after reportMissing() when it cannot be opened.
    int runLoop(const wchar_t* file, const wchar_t* name);

protected:
    ReopeningDialog() = default;
    ReopeningDialog(const ReopeningDialog&) = delete;
    ReopeningDialog& operator=(const ReopeningDialog&) = delete;

    /// Wires the callbacks, sets values and modes, paints images, fills lists.
    virtual void open(ads_hdlg dialog) = 0;
    /// The dialog closed with this status.
    virtual void closed(int status) = 0;
    virtual bool reopensAfter(int status) const { return status == kDialogReopen; }
    virtual void reportMissing() = 0;
    /// The dialog file is loaded once instead of at every opening.
    virtual bool loadsOnce() const { return false; }

private:
    /// Number of the loaded file in the host.
    static int load(const wchar_t* file);
};

/// Text of every message about a dialog that cannot be opened.
inline constexpr const wchar_t* kMissingDialog = L"\nNão Foi Possível Carregar DCL Perfis";

/// A callback that runs a member function of the object given as the tile's client data. No
/// exception leaves it: the only one to be expected is lack of memory.
template <class Dialog, void (Dialog::*Method)(const ads_callback_packet&)>
void CALLB dialogCallback(ads_callback_packet* packet) {
    try {
        (static_cast<Dialog*>(packet->client_data)->*Method)(*packet);
    } catch (const std::exception&) {
        (void)acedPrompt(L"\nMemória insuficiente: a ação no diálogo não foi concluída.\n");
    }
}

/// One row of a dialog's callback table.
struct TileAction {
    const wchar_t* key;
    CLIENTFUNC callback;
};

/// Gives the tile its client data and its callback.
void wireTile(ads_hdlg dialog, const TileAction& action, CLIENTDATA data);

}  // namespace perfis
