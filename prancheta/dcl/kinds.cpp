// SPDX-License-Identifier: MIT
// Table of the kinds of tiles.
#include "prancheta/dcl/kinds.h"

#include <array>

namespace prancheta::dcl {
namespace {

enum Trait : unsigned {
    kCluster = 1,
    kRadio = 2,
    kHorizontal = 4,
    kBoxed = 8,
    kActive = 16,
    kImage = 32,
    kList = 64,
};

struct Entry {
    TileKind kind;
    std::string_view name;
    std::string_view user;
    unsigned traits;
};

// In the order of TileKind.
constexpr std::array kTable{
    Entry{TileKind::Dialog, "dialog", "a caixa de diálogo", kCluster},
    Entry{TileKind::Row, "row", "um grupo", kCluster | kHorizontal},
    Entry{TileKind::Column, "column", "um grupo", kCluster},
    Entry{TileKind::BoxedRow, "boxed_row", "um grupo", kCluster | kHorizontal | kBoxed},
    Entry{TileKind::BoxedColumn, "boxed_column", "um grupo", kCluster | kBoxed},
    Entry{TileKind::RadioRow, "radio_row", "um grupo de opções", kCluster | kRadio | kHorizontal},
    Entry{TileKind::RadioColumn, "radio_column", "um grupo de opções", kCluster | kRadio},
    Entry{TileKind::BoxedRadioRow, "boxed_radio_row", "um grupo de opções",
          kCluster | kRadio | kHorizontal | kBoxed},
    Entry{TileKind::BoxedRadioColumn, "boxed_radio_column", "um grupo de opções",
          kCluster | kRadio | kBoxed},
    Entry{TileKind::Concatenation, "concatenation", "um texto fixo", kCluster | kHorizontal},
    Entry{TileKind::Paragraph, "paragraph", "um texto fixo", kCluster},
    Entry{TileKind::Button, "button", "um botão", kActive},
    Entry{TileKind::EditBox, "edit_box", "uma caixa de edição", kActive},
    Entry{TileKind::ListBox, "list_box", "uma lista", kActive | kList},
    Entry{TileKind::PopupList, "popup_list", "uma lista suspensa", kActive | kList},
    Entry{TileKind::RadioButton, "radio_button", "um botão de opção", kActive},
    Entry{TileKind::Toggle, "toggle", "uma chave liga-desliga", kActive},
    Entry{TileKind::Slider, "slider", "um controle deslizante", kActive},
    Entry{TileKind::ImageButton, "image_button", "um botão de imagem", kActive | kImage},
    Entry{TileKind::Image, "image", "uma imagem fixa", kImage},
    Entry{TileKind::Text, "text", "um texto fixo", 0},
    Entry{TileKind::TextPart, "text_part", "um texto fixo", 0},
    Entry{TileKind::Spacer, "spacer", "um espaço", 0},
};

constexpr bool inOrder() {
    for (std::size_t i = 0; i < kTable.size(); ++i)
        if (static_cast<std::size_t>(kTable[i].kind) != i) return false;
    return true;
}
static_assert(inOrder() && static_cast<std::size_t>(TileKind::Spacer) + 1 == kTable.size());

const Entry& entry(TileKind kind) { return kTable[static_cast<std::size_t>(kind)]; }
bool has(TileKind kind, unsigned trait) { return (entry(kind).traits & trait) != 0; }

}  // namespace

std::string_view kindName(TileKind kind) { return entry(kind).name; }
std::string_view kindForUser(TileKind kind) { return entry(kind).user; }
bool isCluster(TileKind kind) { return has(kind, kCluster); }
bool isRadioCluster(TileKind kind) { return has(kind, kRadio); }
bool isHorizontal(TileKind kind) { return has(kind, kHorizontal); }
bool isBoxed(TileKind kind) { return has(kind, kBoxed); }
bool isActive(TileKind kind) { return has(kind, kActive); }
bool isImage(TileKind kind) { return has(kind, kImage); }
bool isList(TileKind kind) { return has(kind, kList); }

}  // namespace prancheta::dcl
