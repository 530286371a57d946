// SPDX-License-Identifier: MIT
// Rules of the values, kind by kind.
#include "prancheta/dcl/tile_value.h"

#include <algorithm>
#include <cmath>

#include "prancheta/base/text.h"
#include "prancheta/dcl/definition.h"
#include "prancheta/dcl/kinds.h"

namespace prancheta::dcl {
namespace {

constexpr std::size_t kLargestRow = 99999;

void releaseButtons(Tile& cluster) {
    for (const auto& child : cluster.children)
        if (child->kind == TileKind::RadioButton) child->value = L"0";
    cluster.value.clear();
}

bool setCluster(Tile& cluster, std::wstring_view value) {
    if (value.empty()) {
        releaseButtons(cluster);
        return true;
    }
    const std::string key = toUtf8(value);
    for (const auto& child : cluster.children) {
        if (child->kind != TileKind::RadioButton || child->key != key) continue;
        pressRadioButton(*child);
        return true;
    }
    return false;
}

bool setRadioButton(Tile& button, std::wstring_view value) {
    if (value == L"1") {
        pressRadioButton(button);
    } else {
        const bool wasOn = button.value == L"1";
        button.value = L"0";
        if (wasOn && button.parent != nullptr && isRadioCluster(button.parent->kind))
            button.parent->value.clear();
    }
    return true;
}

bool setList(Tile& list, std::wstring_view value) {
    const auto rows = rowNumbers(value);
    if (!rows) return false;
    const bool several = list.kind == TileKind::ListBox && flagAttribute(list, "multiple_select");
    std::wstring chosen;
    for (std::size_t row : *rows) {
        if (row >= list.rows.size()) continue;
        if (!chosen.empty() && !several) break;
        if (!chosen.empty()) chosen += L' ';
        chosen += std::to_wstring(row);
    }
    // Asking only for rows that are not there changes nothing.
    if (chosen.empty() && !rows->empty()) return true;
    list.value = std::move(chosen);
    showFirstRow(list);
    return true;
}

/// What a program's `atoi` would make of it.
std::wstring_view leadingInteger(std::wstring_view text) {
    const std::size_t sign = text.starts_with(L'-') || text.starts_with(L'+') ? 1 : 0;
    return text.substr(0, std::min(text.find_first_not_of(L"0123456789", sign), text.size()));
}

bool setSlider(Tile& slider, std::wstring_view value) {
    double number = 0;
    if (!parseNumber(leadingInteger(trim(value)), number)) return false;
    const SliderRange range = sliderRange(slider);
    number = std::clamp(number, static_cast<double>(range.low), static_cast<double>(range.high));
    slider.value = std::to_wstring(static_cast<int>(number));
    return true;
}

}  // namespace

void pressRadioButton(Tile& button) {
    if (button.parent != nullptr && isRadioCluster(button.parent->kind)) {
        releaseButtons(*button.parent);
        button.parent->value = toWide(button.key);
    }
    button.value = L"1";
}

bool setValue(Tile& tile, std::wstring_view value) {
    if (isRadioCluster(tile.kind)) return setCluster(tile, value);
    switch (tile.kind) {
        case TileKind::EditBox:
        case TileKind::Text:
        case TileKind::TextPart:
        case TileKind::Dialog:
            tile.value = value;
            return true;
        case TileKind::Toggle:
            tile.value = value == L"1" ? L"1" : L"0";
            return true;
        case TileKind::RadioButton:
            return setRadioButton(tile, value);
        case TileKind::ListBox:
        case TileKind::PopupList:
            return setList(tile, value);
        case TileKind::Slider:
            return setSlider(tile, value);
        default:
            return true;  // buttons, images, clusters and spacers have no value
    }
}

std::optional<std::vector<std::size_t>> rowNumbers(std::wstring_view text) {
    std::vector<std::size_t> rows;
    for (text = trim(text); !text.empty(); text = trim(text)) {
        std::size_t row = 0;
        std::size_t digits = 0;
        while (digits < text.size() && text[digits] >= L'0' && text[digits] <= L'9' &&
               row <= kLargestRow)
            row = row * 10 + static_cast<std::size_t>(text[digits++] - L'0');
        const bool ended = digits == text.size() || text[digits] == L' ' || text[digits] == L'\t';
        if (digits == 0 || !ended) return std::nullopt;
        rows.push_back(row);
        text.remove_prefix(digits);
    }
    std::sort(rows.begin(), rows.end());
    rows.erase(std::unique(rows.begin(), rows.end()), rows.end());
    return rows;
}

void showFirstRow(Tile& list) {
    if (list.kind == TileKind::PopupList && list.value.empty() && !list.rows.empty())
        list.value = L"0";
}

SliderRange sliderRange(const Tile& slider) {
    const auto limit = [&](const char* name, double fallback) {
        return static_cast<int>(
            std::clamp(numberAttribute(slider, name, fallback), -32768.0, 32767.0));
    };
    const int start = limit("min_value", 0);
    const int end = limit("max_value", 10000);
    return {start, std::min(start, end), std::max(start, end)};
}

double numberAttribute(const Tile& tile, std::string_view name, double fallback) {
    double number = 0;
    const bool good =
        parseNumber(std::string_view(tile.attribute(name)), number) && std::isfinite(number);
    return good ? number : fallback;
}

bool flagAttribute(const Tile& tile, std::string_view name) {
    return tile.attribute(name) == "true";
}

bool isUsable(const Tile& tile) {
    for (const Tile* t = &tile; t != nullptr; t = t->parent)
        if (!t->enabled) return false;
    return true;
}

bool isHidden(const Tile& tile) {
    for (const Tile* t = &tile; t != nullptr; t = t->parent)
        if (flagAttribute(*t, "is_hidden")) return true;
    return false;
}

std::string Tile::attribute(std::string_view name, std::string_view fallback) const {
    const Value* const value = definition != nullptr ? definition->attribute(name) : nullptr;
    return value != nullptr ? value->text : std::string(fallback);
}

}  // namespace prancheta::dcl
