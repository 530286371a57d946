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
void CALLB onBarType(ads_callback_packet* packet) {
    (void)editBarType(*static_cast<int*>(packet->client_data));
}

bool isOn(const ads_callback_packet& packet) { return texts::toInt(packet.value) != 0; }

}  // namespace

void ProfileRun::wire(ads_hdlg dialog) {
    static constexpr TileAction kActions[] = {
        {L"accept", callback<&ProfileRun::onAccept>},
        {L"lista", callback<&ProfileRun::onList>},
        {L"vista0", callback<&ProfileRun::onSectionOnly>},
        {L"dimensionar", callback<&ProfileRun::onDimensioning>},
        {L"visualizar", callback<&ProfileRun::onShowInsertion>},
        {L"ins_list", callback<&ProfileRun::onInsertion>},
        {L"OutraVista", callback<&ProfileRun::onOtherView>},
    };
    static constexpr TileAction kEditActions[] = {
        {L"addtolist", callback<&ProfileRun::onAdd>},
        {L"substolist", callback<&ProfileRun::onReplace>},
        {L"deltolist", callback<&ProfileRun::onRemove>},
    };
    wireTile(dialog, {L"ButtonTipoBarra", onBarType}, &m_state.barType);
    for (const DimensionTile& tile : m_description.tiles)
        if (tile.hasAction) wireTile(dialog, {tile.key, callback<&ProfileRun::onDimension>}, this);
    for (const TileAction& action : kActions) wireTile(dialog, action, this);
    if (!editable()) return;
    for (const TileAction& action : kEditActions) wireTile(dialog, action, this);
}

void ProfileRun::onList(const ads_callback_packet& packet) {
    const int index = texts::toInt(packet.value);
    if (*packet.value != L'\0' && index >= 0) pickRow(packet.dialog, index);
}

void ProfileRun::pickRow(ads_hdlg dialog, int index) {
    std::wstring row;
    if (!m_catalogue->rowAt(index, row)) return;
    m_state.selectedRow = index;
    takeRow(dialog, row);
    if (!editable()) return;
    refresh(dialog);
    showPreview(dialog);
    enableTile(dialog, L"deltolist", true);
}

void ProfileRun::refillList(ads_hdlg dialog) { m_catalogue->fill(dialog, L"lista"); }

void ProfileRun::onAdd(const ads_callback_packet& packet) {
    refresh(packet.dialog);
    showPreview(packet.dialog);
    const std::wstring row = m_description.buildRow(packet.dialog);
    if (!m_catalogue->contains(row)) m_catalogue->append(row);
    refillList(packet.dialog);
    setTile(packet.dialog, L"lista", m_state.selectedRow);
}

void ProfileRun::onReplace(const ads_callback_packet& packet) {
    if (m_catalogue->count() == 0) return;
    refresh(packet.dialog);
    showPreview(packet.dialog);
    const auto build = m_description.buildReplacement != nullptr ? m_description.buildReplacement
                                                                 : m_description.buildRow;
    const std::wstring row = build(packet.dialog);
    if (hasSelectedRow() && !m_catalogue->contains(row))
        m_catalogue->replace(m_state.selectedRow, row);
    refillList(packet.dialog);
    setTile(packet.dialog, L"lista", m_state.selectedRow);
}

void ProfileRun::onRemove(const ads_callback_packet& packet) {
    if (!hasSelectedRow()) return;
    refresh(packet.dialog);
    showPreview(packet.dialog);
    m_catalogue->remove(m_state.selectedRow);
    refillList(packet.dialog);
    if (hasSelectedRow()) {
        setTile(packet.dialog, L"lista", m_state.selectedRow);
    } else {
        m_state.selectedRow = 0;
        enableTile(packet.dialog, L"deltolist", false);
    }
}

void ProfileRun::onSectionOnly(const ads_callback_packet& packet) {
    ViewsChoice& views = m_state.views;
    views.sectionOnly = isOn(packet);
    setSectionModes(packet.dialog);
    enableTile(packet.dialog, L"dimensionar", views.sectionOnly || !views.pickAndGo);
    refresh(packet.dialog);
}

void ProfileRun::onShowInsertion(const ads_callback_packet& packet) {
    m_state.showInsertion = isOn(packet);
    if (m_state.showInsertion)
        m_state.slide =
            texts::toInt(tileText(packet.dialog, L"ins_list", 80)) + kFirstInsertionSlide;
    showPreview(packet.dialog);
    refresh(packet.dialog);
}

void ProfileRun::onInsertion(const ads_callback_packet& packet) {
    m_state.slide = texts::toInt(packet.value) + kFirstInsertionSlide;
    m_state.insertion = m_state.slide - kFirstInsertionSlide;
    if (m_state.showInsertion) showPreview(packet.dialog);
    refresh(packet.dialog);
}

void ProfileRun::onDimensioning(const ads_callback_packet& packet) {
    sharedDimensionFlag() = isOn(packet) ? 1 : 0;
    refresh(packet.dialog);
}

void ProfileRun::onOtherView(const ads_callback_packet& packet) {
    for (std::size_t i = 0; i < m_description.tiles.size(); ++i)
        m_state.texts[i] = tileText(packet.dialog, m_description.tiles[i].key, 80);
    (void)ads_done_dialog(packet.dialog, kDialogReopen);
}

void ProfileRun::onAccept(const ads_callback_packet& packet) {
    if (const std::optional<Fault> fault = acceptFault(packet.dialog))
        showFault(packet.dialog, *fault);
    else
        (void)ads_done_dialog(packet.dialog, kDialogAccepted);
}

}  // namespace perfis
