// SPDX-License-Identifier: MIT
// What a person does with an open dialog, and why it cannot be done.
#include <cmath>

#include "prancheta/base/text.h"
#include "prancheta/dcl/kinds.h"
#include "prancheta/dcl/open_dialog.h"
#include "prancheta/dcl/session.h"
#include "prancheta/dcl/tile_value.h"

namespace prancheta::dcl {
namespace {

std::string inQuotes(std::string_view text) { return '"' + std::string(text) + '"'; }

Error refusal(std::string text) { return {std::move(text), {}, 0, 0}; }

Error wrongKind(const Tile& tile, std::string_view butNeeded) {
    return refusal(inQuotes(tile.key) + " é " + std::string(kindForUser(tile.kind)) +
                   std::string(butNeeded));
}

/// Empty when a person can use the tile.
std::string whyUnusable(const Tile& tile) {
    if (!isActive(tile.kind) && !isRadioCluster(tile.kind))
        return wrongKind(tile, ": não responde ao usuário").text;
    if (!tile.enabled) return inQuotes(tile.key) + " está desabilitado";
    if (isUsable(tile)) return {};
    for (const Tile* cluster = tile.parent; cluster != nullptr; cluster = cluster->parent)
        if (!cluster->enabled && !cluster->key.empty())
            return inQuotes(tile.key) + " está desabilitado com o grupo " + inQuotes(cluster->key);
    return inQuotes(tile.key) + " está desabilitado com o seu grupo";
}

/// Rows that a person can select in the list, or why not.
Result<std::vector<std::size_t>> rowsToSelect(const Tile& list, std::string_view text) {
    const auto rows = rowNumbers(toWide(text));
    const bool several = list.kind == TileKind::ListBox && flagAttribute(list, "multiple_select");
    if (!rows || (rows->empty() && !several))
        return refusal(inQuotes(text) + " não é o número de uma linha de " + inQuotes(list.key));
    if (rows->size() > 1 && !several)
        return refusal("em " + inQuotes(list.key) + " só se escolhe uma linha por vez");
    if (rows->empty() || rows->back() < list.rows.size()) return *rows;
    if (list.rows.empty()) return refusal(inQuotes(list.key) + " não tem linhas");
    const std::string count =
        std::to_string(list.rows.size()) + (list.rows.size() == 1 ? " linha" : " linhas");
    return refusal("a linha " + std::to_string(rows->back()) + " não existe: " +
                   inQuotes(list.key) + " tem " + count + ", contadas a partir de 0");
}

Result<void> fitsEditBox(const Tile& box, std::wstring_view text) {
    constexpr double kDefaultLimit = 132;
    constexpr double kUpperLimit = 256;
    const double wanted = numberAttribute(box, "edit_limit", kDefaultLimit);
    const double limit = wanted >= 0 ? std::min(wanted, kUpperLimit) : kDefaultLimit;
    if (static_cast<double>(text.size()) <= limit) return {};
    return refusal(inQuotes(box.key) + " aceita até " + numberText(std::floor(limit)) +
                   " caracteres, e o texto tem " + std::to_string(text.size()));
}

}  // namespace

/// The tile, ready to be used, after the edit box that was being typed into has been left. Null
/// when that closed the dialog.
Result<Tile*> OpenDialog::touch(std::string_view key) {
    if (m_finished) return refusal("a caixa de diálogo " + inQuotes(m_name) + " já foi fechada");
    if (!session().isFrontmost(*this))
        return refusal("há outra caixa de diálogo aberta sobre " + inQuotes(m_name));
    Tile* tile = find(key);
    if (tile == nullptr)
        return refusal("não há o componente " + inQuotes(key) + " na caixa de diálogo " +
                       inQuotes(m_name));
    if (std::string why = whyUnusable(*tile); !why.empty()) return refusal(std::move(why));
    if (m_editing != tile) leave();
    if (m_finished) return nullptr;
    if (std::string why = whyUnusable(*tile); !why.empty()) return refusal(std::move(why));
    m_focus = tile;
    return tile;
}

void OpenDialog::leave() {
    Tile* left = m_editing;
    m_editing = nullptr;
    if (left != nullptr && !m_finished) fire(*left, Reason::LostFocus);
}

void OpenDialog::focusOn(Tile& tile) {
    if (m_finished || !isUsable(tile)) return;
    // Before the field is left: what its callback says about the keyboard counts.
    m_focus = &tile;
    if (m_callbacks == 0 && m_editing != &tile) leave();
}

Result<void> OpenDialog::edit(std::string_view key, std::string_view text) {
    Result<Tile*> tile = touch(key);
    if (!tile) return tile.error();
    if (*tile == nullptr) return {};
    if (Result<void> typed = typeEdit(**tile, text); !typed) return typed;
    if (flagAttribute(**tile, "reports_typing")) fire(**tile, Reason::Drag);
    return {};
}

Result<void> OpenDialog::typeEdit(Tile& box, std::string_view text) {
    if (box.kind != TileKind::EditBox) return wrongKind(box, ": não se digita nele");
    std::wstring wide = toWide(text);
    if (Result<void> fits = fitsEditBox(box, wide); !fits) return fits;
    box.value = std::move(wide);
    m_editing = &box;
    return {};
}

Result<void> OpenDialog::type(std::string_view key, std::string_view text) {
    Result<Tile*> touched = touch(key);
    if (!touched) return touched.error();
    if (*touched == nullptr) return {};
    Tile& tile = **touched;
    if (isRadioCluster(tile.kind)) return typeRadio(tile, text);
    switch (tile.kind) {
        case TileKind::EditBox: {
            if (Result<void> typed = typeEdit(tile, text); !typed) return typed;
            leave();
            return {};
        }
        case TileKind::Toggle:
            return typeToggle(tile, text);
        case TileKind::ListBox:
        case TileKind::PopupList:
            return typeList(tile, text);
        case TileKind::RadioButton:
            return typeRadio(tile, text);
        case TileKind::Slider:
            return typeSlider(tile, text, Reason::Select);
        default:
            return wrongKind(tile, ": aperte-o, ele não recebe valor");
    }
}

Result<void> OpenDialog::typeToggle(Tile& toggle, std::string_view text) {
    if (text != "0" && text != "1")
        return refusal(inQuotes(toggle.key) + " só pode ficar em 0 ou 1, e não em " +
                       inQuotes(text));
    if (toggle.value == toWide(text)) return {};
    toggle.value = toWide(text);
    fire(toggle, Reason::Select);
    return {};
}

Result<void> OpenDialog::typeList(Tile& list, std::string_view text) {
    Result<std::vector<std::size_t>> rows = rowsToSelect(list, text);
    if (!rows) return rows.error();
    setValue(list, toWide(text));
    fire(list, Reason::Select);
    return {};
}

Result<void> OpenDialog::typeSlider(Tile& slider, std::string_view text, Reason reason) {
    double number = 0;
    if (!parseNumber(trim(text), number) || number != std::floor(number))
        return refusal(inQuotes(text) + " não é um número inteiro para " + inQuotes(slider.key));
    const SliderRange range = sliderRange(slider);
    if (number < range.low || number > range.high)
        return refusal(inQuotes(slider.key) + " vai de " + std::to_string(range.low) + " a " +
                       std::to_string(range.high) + ", e não chega a " + numberText(number));
    setValue(slider, toWide(text));
    fire(slider, reason);
    return {};
}

Result<void> OpenDialog::typeRadio(Tile& tile, std::string_view text) {
    if (tile.kind == TileKind::RadioButton) {
        if (text != "1")
            return refusal(inQuotes(tile.key) +
                           " só recebe 1: um botão de opção se desliga ligando outro");
        chooseRadio(tile);
        return {};
    }
    for (const auto& child : tile.children) {
        if (child->kind != TileKind::RadioButton || child->key.empty() || child->key != text)
            continue;
        if (std::string why = whyUnusable(*child); !why.empty()) return refusal(std::move(why));
        chooseRadio(*child);
        return {};
    }
    return refusal(inQuotes(tile.key) + " não tem o botão " + inQuotes(text));
}

void OpenDialog::chooseRadio(Tile& button) {
    pressRadioButton(button);
    fire(button, Reason::Select);
    // Its cluster hears of it too; alone when the button has no action of its own.
    Tile* const cluster = button.parent;
    const bool open = !m_finished && !m_pending;
    if (open && button.action != nullptr && cluster != nullptr && cluster->action != nullptr)
        fire(*cluster, Reason::Select);
}

Result<void> OpenDialog::drag(std::string_view key, std::string_view number) {
    Result<Tile*> tile = touch(key);
    if (!tile) return tile.error();
    if (*tile == nullptr) return {};
    if ((*tile)->kind != TileKind::Slider) return wrongKind(**tile, ": não se arrasta");
    return typeSlider(**tile, number, Reason::Drag);
}

Result<void> OpenDialog::press(std::string_view key, long x, long y) {
    Result<Tile*> touched = touch(key);
    if (!touched) return touched.error();
    if (*touched == nullptr) return {};
    Tile& tile = **touched;
    switch (tile.kind) {
        case TileKind::Button:
            pressButton(tile);
            return {};
        case TileKind::ImageButton:
            fire(tile, Reason::Select, x, y);
            return {};
        case TileKind::RadioButton:
            chooseRadio(tile);
            return {};
        default:
            return wrongKind(tile, ", e não um botão: dê o seu valor");
    }
}

/// Without a callback the two usual exits close the dialog by themselves; with one, only the
/// program does.
void OpenDialog::pressButton(Tile& button) {
    if (fire(button, Reason::Select) || m_finished) return;
    if (button.key == "accept")
        finish(DLGOK);
    else if (button.key == "cancel" || flagAttribute(button, "is_cancel"))
        finish(DLGCANCEL);
}

Tile* OpenDialog::buttonWith(const char* flag) {
    for (Tile* tile : m_tiles)
        if (tile->kind == TileKind::Button && flagAttribute(*tile, flag))
            return isUsable(*tile) ? tile : nullptr;
    return nullptr;
}

Result<void> OpenDialog::doubleClick(std::string_view key, std::string_view row) {
    Result<Tile*> touched = touch(key);
    if (!touched) return touched.error();
    if (*touched == nullptr) return {};
    Tile& tile = **touched;
    if (tile.kind == TileKind::ListBox) {
        if (rowNumbers(toWide(row)).value_or(std::vector<std::size_t>()).size() != 1)
            return refusal(inQuotes(row) + " não é o número de uma linha de " + inQuotes(tile.key));
        if (Result<void> selected = typeList(tile, row); !selected) return selected;
    } else if (tile.kind == TileKind::ImageButton) {
        fire(tile, Reason::Select);
    } else {
        return wrongKind(tile, ": o clique duplo só serve para listas e botões de imagem");
    }
    clickAgain(tile);
    return {};
}

Result<void> OpenDialog::secondClick(std::string_view key) {
    Result<Tile*> touched = touch(key);
    if (!touched) return touched.error();
    if (*touched == nullptr) return {};
    Tile& tile = **touched;
    if (tile.kind != TileKind::ListBox && tile.kind != TileKind::ImageButton)
        return wrongKind(tile, ": o clique duplo só serve para listas e botões de imagem");
    if (tile.kind == TileKind::ListBox && tile.value.empty())
        return refusal("em " + inQuotes(tile.key) + " nenhuma linha está escolhida");
    clickAgain(tile);
    return {};
}

void OpenDialog::clickAgain(Tile& tile) {
    if (!m_finished) fire(tile, Reason::DoubleClick);
    if (m_finished || !flagAttribute(tile, "allow_accept")) return;
    if (Tile* button = buttonWith("is_default")) pressButton(*button);
}

Result<void> OpenDialog::enter(std::string_view key) {
    bool accepts = true;
    if (!key.empty()) {
        Result<Tile*> tile = touch(key);
        if (!tile) return tile.error();
        if (*tile == nullptr) return {};
        if ((*tile)->kind == TileKind::EditBox) {
            m_editing = nullptr;
            fire(**tile, Reason::Select);
            accepts = flagAttribute(**tile, "allow_accept");
        }
    } else {
        leave();
    }
    if (!accepts || m_finished) return {};
    Tile* button = buttonWith("is_default");
    if (button == nullptr)
        return refusal("nenhum botão atende à tecla Enter nesta caixa de diálogo");
    pressButton(*button);
    return {};
}

void OpenDialog::escape() {
    if (m_finished || !session().isFrontmost(*this)) return;
    m_editing = nullptr;
    if (Tile* button = buttonWith("is_cancel"))
        pressButton(*button);
    else
        finish(DLGCANCEL);
}

}  // namespace prancheta::dcl
