// SPDX-License-Identifier: MIT
// Callbacks, ends and focus of an open dialog.
#include "prancheta/dcl/open_dialog.h"

#include <algorithm>

#include "prancheta/base/event.h"
#include "prancheta/base/text.h"
#include "prancheta/dcl/kinds.h"
#include "prancheta/dcl/session.h"
#include "prancheta/dcl/tile_value.h"

namespace prancheta::dcl {
namespace {

constexpr unsigned kTileBits = 16;

}  // namespace

OpenDialog::OpenDialog(std::uint32_t serial, std::unique_ptr<Tile> root, std::string name,
                       std::string file, CLIENTFUNC fallback, const Metrics& metrics,
                       std::shared_ptr<DialogForm> form)
    : m_serial(serial),
      m_root(std::move(root)),
      m_name(std::move(name)),
      m_file(std::move(file)),
      m_fallback(fallback),
      m_metrics(metrics),
      m_form(std::move(form)) {
    index(*m_root, !m_form->keys.empty());
    Tile* first = find(m_root->attribute("initial_focus"));
    if (first != nullptr && isTabStop(*first))
        m_focus = first;
    else
        moveFocusFrom(*m_tiles.back());
}

void OpenDialog::index(Tile& tile, bool isKnown) {
    m_tiles.push_back(&tile);
    if (!tile.key.empty() && !isKnown) m_form->keys.try_emplace(tile.key, tile.place);
    for (const auto& child : tile.children) index(*child, isKnown);
}

// Only attributes decide it, and they do not change: a front end without a window pays for it when
// a program asks for a size, and a dialog that opens again takes it from the last time.
const Layout& OpenDialog::layout() const {
    if (m_layout) return *m_layout;
    if (m_form->boxes.size() != m_tiles.size()) {
        m_layout = layOut(*m_root, m_metrics);
        m_form->boxes = m_layout->boxes;
        return *m_layout;
    }
    m_layout.emplace();
    m_layout->boxes = m_form->boxes;
    for (std::size_t i = 0; i < m_tiles.size(); ++i) m_layout->boxes[i].tile = m_tiles[i];
    return *m_layout;
}

Tile* OpenDialog::find(std::string_view key) {
    const auto it = m_form->keys.find(std::string(key));
    return it != m_form->keys.end() ? m_tiles[it->second] : nullptr;
}

ads_hdlg OpenDialog::handle() const {
    return reinterpret_cast<ads_hdlg>(static_cast<std::uintptr_t>(m_serial) << kTileBits);
}

ads_htile OpenDialog::tileHandle(const Tile& tile) const {
    const std::uintptr_t place = tile.place + 1;
    return reinterpret_cast<ads_htile>((static_cast<std::uintptr_t>(m_serial) << kTileBits) |
                                       place);
}

const Tile* OpenDialog::tileOf(ads_htile handle) const {
    const auto bits = reinterpret_cast<std::uintptr_t>(handle);
    const std::uintptr_t place = bits & ((std::uintptr_t{1} << kTileBits) - 1);
    if (bits >> kTileBits != m_serial || place == 0 || place > m_tiles.size()) return nullptr;
    return m_tiles[place - 1];
}

bool OpenDialog::fire(Tile& tile, Reason reason, long x, long y) {
    Tile* owner = &tile;
    const bool inCluster = tile.kind == TileKind::RadioButton && tile.parent != nullptr;
    if (inCluster && tile.action == nullptr && tile.parent->action != nullptr) owner = tile.parent;
    const CLIENTFUNC callback = owner->action != nullptr ? owner->action : m_fallback;
    if (callback == nullptr) return false;

    std::wstring value = owner->value;
    if (recording())
        record({"acao",
                {{"chave", {owner->key}},
                 {"valor", {toUtf8(value)}},
                 {"motivo", {static_cast<long long>(reason)}}}});
    ads_callback_packet packet{};
    packet.dialog = handle();
    packet.tile = tileHandle(*owner);
    packet.client_data = owner->clientData;
    packet.value_length = static_cast<int>(value.size());
    packet.reason = static_cast<int>(reason);
    packet.value = value.data();
    packet.x = x;
    packet.y = y;
    {
        // Even when the callback throws.
        struct Running {
            int& count;
            explicit Running(int& c) : count(++c) {}
            ~Running() { --count; }
        } const running(m_callbacks);
        callback(&packet);
    }
    session().discardAbove(*this);
    if (m_callbacks == 0 && m_pending && !m_finished) finish(*m_pending);
    return true;
}

void OpenDialog::finish(int status) {
    m_finished = true;
    m_status = status;
}

bool OpenDialog::done(int status) {
    if (m_callbacks == 0) return false;
    if (!m_terminated) m_pending = status;
    return true;
}

void OpenDialog::terminate() {
    m_terminated = true;
    if (m_callbacks > 0)
        m_pending = DLGALLCANCEL;
    else if (!m_finished)
        finish(DLGALLCANCEL);
}

void OpenDialog::changed(Tile& tile) {
    if (!onTileChanged) return;
    Tile* cluster = tile.kind == TileKind::RadioButton ? tile.parent : &tile;
    if (cluster == nullptr || !isRadioCluster(cluster->kind)) {
        onTileChanged(tile);
        return;
    }
    onTileChanged(*cluster);
    for (const auto& child : cluster->children) onTileChanged(*child);
}

bool OpenDialog::setMode(Tile& tile, short mode) {
    switch (mode) {
        case MODE_ENABLE:
        case MODE_DISABLE:
            tile.enabled = mode == MODE_ENABLE;
            // What cannot be typed into any more was not left by anybody: no callback.
            if (m_editing != nullptr && !isUsable(*m_editing)) m_editing = nullptr;
            if (m_focus != nullptr && !isUsable(*m_focus)) {
                moveFocusFrom(*m_focus);
                if (m_focus != nullptr && onFocus) onFocus(*m_focus, MODE_SETFOCUS);
            }
            break;
        case MODE_SETFOCUS:
            return setFocus(tile);
        case MODE_SETSEL:
            if (tile.kind != TileKind::EditBox) return false;
            if (onFocus) onFocus(tile, mode);
            return true;
        case MODE_FLIP:
            if (!isImage(tile.kind)) return false;
            tile.highlighted = !tile.highlighted;
            break;
        default:
            return false;
    }
    changed(tile);
    return true;
}

bool OpenDialog::setFocus(Tile& tile) {
    if ((!isActive(tile.kind) && !isRadioCluster(tile.kind)) || !isUsable(tile)) return false;
    m_focus = &tile;
    if (onFocus) onFocus(tile, MODE_SETFOCUS);
    return true;
}

/// A radio cluster is one stop, and so are radio buttons that stand alone.
bool OpenDialog::isTabStop(const Tile& tile) const {
    const bool kind = isRadioCluster(tile.kind) || isActive(tile.kind);
    const bool inCluster = tile.kind == TileKind::RadioButton && tile.parent != nullptr &&
                           isRadioCluster(tile.parent->kind);
    return kind && !inCluster && tile.attribute("is_tab_stop") != "false" && isUsable(tile) &&
           !isHidden(tile);
}

void OpenDialog::moveFocusFrom(const Tile& tile) {
    const std::size_t from = tile.place;
    m_focus = nullptr;
    for (std::size_t step = 1; step <= m_tiles.size() && m_focus == nullptr; ++step) {
        Tile* next = m_tiles[(from + step) % m_tiles.size()];
        if (isTabStop(*next)) m_focus = next;
    }
}

}  // namespace prancheta::dcl
