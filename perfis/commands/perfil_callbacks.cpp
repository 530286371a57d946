// SPDX-License-Identifier: MIT
// What the tiles of a profile dialog do when the user touches them.
#include "perfis/commands/perfil_run.h"
#include "perfis/dialogs/tiles.h"
#include "perfis/dialogs/tipo_barra_dialog.h"
#include "perfis/output/shared_cota.h"
#include "texts/number.h"

namespace perfis {
namespace {

/// The selector needs nothing but the bar type, which is the tile's client data.
void CALLB onTipoBarra(ads_callback_packet* packet) {
    (void)editTipoBarra(*static_cast<int*>(packet->client_data));
}

bool isOn(const ads_callback_packet& packet) { return texts::toInt(packet.value) != 0; }

}  // namespace

void PerfilRun::wire(ads_hdlg dialog) {
    static constexpr TileAction kActions[] = {
        {L"accept", callback<&PerfilRun::onAccept>},
        {L"lista", callback<&PerfilRun::onList>},
        {L"busca", callback<&PerfilRun::onSearch>},
        {L"vista0", callback<&PerfilRun::onSecaoOnly>},
        {L"dimensionar", callback<&PerfilRun::onCotas>},
        {L"visualizar", callback<&PerfilRun::onShowInsertion>},
        {L"ins_list", callback<&PerfilRun::onInsertion>},
        {L"OutraVista", callback<&PerfilRun::onOtherVista>},
        {L"ultima", callback<&PerfilRun::onLast>},
    };
    static constexpr TileAction kEditActions[] = {
        {L"addtolist", callback<&PerfilRun::onAdd>},
        {L"substolist", callback<&PerfilRun::onReplace>},
        {L"deltolist", callback<&PerfilRun::onRemove>},
    };
    wireTile(dialog, {L"ButtonTipoBarra", onTipoBarra}, &m_state.tipoBarra);
    for (const MedidaTile& tile : m_description.tiles)
        wireTile(dialog,
                 {tile.key, tile.hasAction ? callback<&PerfilRun::onMedida>
                                           : callback<&PerfilRun::onQuietMedida>},
                 this);
    for (const TileAction& action : kActions) wireTile(dialog, action, this);
    if (!editable()) return;
    for (const TileAction& action : kEditActions) wireTile(dialog, action, this);
}

void PerfilRun::onMedida(const ads_callback_packet& packet) {
    refresh(packet.dialog);
    followTyped(packet.dialog);
}

void PerfilRun::onList(const ads_callback_packet& packet) {
    if (*packet.value == L'\0') return;
    const int row = m_search.rowAt(texts::toInt(packet.value));
    if (row < 0) return;
    m_marked = row;
    showNearest(packet.dialog, {});
    pickRow(packet.dialog, row);
    followTyped(packet.dialog);
}

void PerfilRun::pickRow(ads_hdlg dialog, int index) {
    std::wstring row;
    if (!m_catalogue->rowAt(index, row)) return;
    rememberRow(index);
    takeRow(dialog, row);
    notePicked(dialog);
    if (!editable()) return;
    refresh(dialog);
    showPreview(dialog);
    enableRemove(dialog, true);
}

void PerfilRun::rememberRow(int index) {
    m_state.selectedRow = index;
    m_state.rowPicked = true;
}

/// The rows are others now.
void PerfilRun::refillList(ads_hdlg dialog) {
    stopSearch(dialog);
    fillList(dialog);
    m_marked = m_typedRow = kNoRow;
}

void PerfilRun::onAdd(const ads_callback_packet& packet) {
    refresh(packet.dialog);
    showPreview(packet.dialog);
    const std::wstring row = m_description.buildRow(packet.dialog);
    if (!m_catalogue->contains(row)) m_catalogue->append(row);
    refillList(packet.dialog);
    markRow(packet.dialog, m_state.selectedRow);
    showTyped(packet.dialog);
}

void PerfilRun::onReplace(const ads_callback_packet& packet) {
    if (m_catalogue->count() == 0) return;
    takeMarkedRow();
    refresh(packet.dialog);
    showPreview(packet.dialog);
    const auto build = m_description.buildReplacement != nullptr ? m_description.buildReplacement
                                                                 : m_description.buildRow;
    const std::wstring row = build(packet.dialog);
    if (hasSelectedRow() && !m_catalogue->contains(row))
        m_catalogue->replace(m_state.selectedRow, row);
    refillList(packet.dialog);
    markRow(packet.dialog, m_state.selectedRow);
    showTyped(packet.dialog);
}

void PerfilRun::onRemove(const ads_callback_packet& packet) {
    takeMarkedRow();
    if (!hasSelectedRow()) return;
    refresh(packet.dialog);
    showPreview(packet.dialog);
    m_catalogue->remove(m_state.selectedRow);
    refillList(packet.dialog);
    if (hasSelectedRow()) {
        markRow(packet.dialog, m_state.selectedRow);
    } else {
        m_state.selectedRow = 0;
        m_state.rowPicked = false;
        enableRemove(packet.dialog, false);
    }
    showTyped(packet.dialog);
}

void PerfilRun::onSecaoOnly(const ads_callback_packet& packet) {
    VistasChoice& vistas = m_state.vistas;
    vistas.secaoOnly = isOn(packet);
    setSecaoModes(packet.dialog);
    enableTile(packet.dialog, L"dimensionar", vistas.secaoOnly || !vistas.pickAndGo);
    refresh(packet.dialog);
    showTyped(packet.dialog);
}

void PerfilRun::onShowInsertion(const ads_callback_packet& packet) {
    m_state.showInsertion = isOn(packet);
    if (m_state.showInsertion)
        m_state.slide =
            texts::toInt(tileText(packet.dialog, L"ins_list", 80)) + kFirstInsertionSlide;
    showPreview(packet.dialog);
    refresh(packet.dialog);
}

void PerfilRun::onInsertion(const ads_callback_packet& packet) {
    m_state.slide = texts::toInt(packet.value) + kFirstInsertionSlide;
    m_state.insertion = m_state.slide - kFirstInsertionSlide;
    if (m_state.showInsertion) showPreview(packet.dialog);
    refresh(packet.dialog);
    showTyped(packet.dialog);
}

void PerfilRun::onCotas(const ads_callback_packet& packet) {
    sharedCotaFlag() = isOn(packet) ? 1 : 0;
    refresh(packet.dialog);
}

void PerfilRun::keepTexts(ads_hdlg dialog) {
    for (std::size_t i = 0; i < m_description.tiles.size(); ++i)
        m_state.texts[i] = tileText(dialog, m_description.tiles[i].key, 80);
}

/// The values of the piece that this command drew before.
void PerfilRun::onLast(const ads_callback_packet& packet) {
    const std::optional<LastPeca>& last = lastPeca(m_description);
    if (!last || editing()) return;
    stopSearch(packet.dialog);
    takeLast(*last);
    show(packet.dialog);
    (void)ads_mode_tile(packet.dialog, L"accept", MODE_SETFOCUS);  // Enter draws it
}

void PerfilRun::onOtherVista(const ads_callback_packet& packet) {
    keepTexts(packet.dialog);
    (void)ads_done_dialog(packet.dialog, kDialogReopen);
}

void PerfilRun::onAccept(const ads_callback_packet& packet) {
    if (const std::optional<Fault> fault = acceptFault(packet.dialog))
        return showFault(packet.dialog, *fault);
    keepTexts(packet.dialog);
    (void)ads_done_dialog(packet.dialog, kDialogAccepted);
}

}  // namespace perfis
