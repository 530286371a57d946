// SPDX-License-Identifier: MIT
// The lacing dialog: three values and the spacing that follows from them.
#include <string>

#include "perfis/dialogs/dialog_loop.h"
#include "perfis/dialogs/installation.h"
#include "perfis/dialogs/tiles.h"
#include "perfis/dialogs/travejamento.h"
#include "texts/number.h"

namespace perfis {
namespace {

/// Client data of every tile: the callbacks work on it, never on the caller's values.
struct Edited {
    TravejamentoLimites limits;
    TravejamentoParams params;

    void onAltura(const ads_callback_packet& packet) { params.A = texts::toReal(packet.value); }
    void onLargura(const ads_callback_packet& packet);
    void onParts(const ads_callback_packet& packet);
    void onSpacing(const ads_callback_packet& packet);
    void onAccept(const ads_callback_packet& packet);
    void showSpacing(ads_hdlg dialog) const;
};

void setDim(ads_hdlg dialog, const wchar_t* key, double value) {
    (void)ads_set_tile(dialog, key, FormatDim(value));
}

void Edited::showSpacing(ads_hdlg dialog) const {
    double L1 = 0.0;
    if (CalcEspacamento(params, limits.comp, L1) != 0) setDim(dialog, L"l_travejam", L1);
}

void Edited::onLargura(const ads_callback_packet& packet) {
    params.C = texts::toReal(packet.value);
    showSpacing(packet.dialog);
}

void Edited::onParts(const ads_callback_packet& packet) {
    params.n = texts::toInt(packet.value);
    showSpacing(packet.dialog);
}

void Edited::onSpacing(const ads_callback_packet& packet) {
    double L1 = texts::toReal(packet.value);
    CalcPartes(params, limits.comp, L1);
    setTile(packet.dialog, L"n_partes", params.n);
    setDim(packet.dialog, L"l_travejam", L1);
}

void Edited::onAccept(const ads_callback_packet& packet) {
    if (const std::optional<Fault> fault = travejamentoFault(params, limits))
        showFault(packet.dialog, *fault);
    else
        (void)ads_done_dialog(packet.dialog, kDialogAccepted);
}

template <void (Edited::*Method)(const ads_callback_packet&)>
constexpr CLIENTFUNC callback = dialogCallback<Edited, Method>;

void show(ads_hdlg dialog, const Edited& edited) {
    const bool wholeTravejamento = edited.limits.somenteAltura == 0;
    showSlide(dialog, L"tr_img", L"puf", L"trav");
    enableTile(dialog, L"altura", edited.limits.alturaEditavel != 0);
    for (const wchar_t* const key : {L"largura", L"l_travejam", L"n_partes"})
        enableTile(dialog, key, wholeTravejamento);
    setDim(dialog, L"altura", edited.params.A);
    if (!wholeTravejamento) return;
    setDim(dialog, L"largura", edited.params.C);
    setTile(dialog, L"n_partes", edited.params.n);
    edited.showSpacing(dialog);
}

void wire(ads_hdlg dialog, Edited& edited) {
    static constexpr TileAction kAlways[] = {
        {L"altura", callback<&Edited::onAltura>},
        {L"accept", callback<&Edited::onAccept>},
    };
    static constexpr TileAction kWholeTravejamento[] = {
        {L"l_travejam", callback<&Edited::onSpacing>},
        {L"n_partes", callback<&Edited::onParts>},
        {L"largura", callback<&Edited::onLargura>},
    };
    for (const TileAction& action : kAlways) wireTile(dialog, action, &edited);
    if (edited.limits.somenteAltura != 0) return;
    for (const TileAction& action : kWholeTravejamento) wireTile(dialog, action, &edited);
}

}  // namespace

int EditTravejamento(TravejamentoParams& params, const TravejamentoLimites& limits) {
    Edited edited{limits, params};
    const std::wstring path =
        dialogPath(installationFolder().value_or(L""), L"travejam.dcl").value_or(L"");
    int dialogFile = 0;
    (void)ads_load_dialog(path.c_str(), &dialogFile);
    ads_hdlg dialog = nullptr;
    if (ads_new_dialog(L"zp_travejam", dialogFile, NULLCB, &dialog) != RTNORM)
        (void)acedAlert(L"\nNão Foi Possível Carregar DCL Travejamento");
    // Against a dialog that is not there every call fails, and so does the whole.
    show(dialog, edited);
    wire(dialog, edited);
    int status = kDialogCancelled;
    (void)ads_start_dialog(dialog, &status);
    (void)ads_unload_dialog(dialogFile);
    if (status != kDialogAccepted) return 0;
    params = edited.params;
    return 1;
}

}  // namespace perfis
