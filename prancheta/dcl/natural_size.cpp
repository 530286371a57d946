// SPDX-License-Identifier: MIT
// Natural sizes; all figures in character widths and heights, our own choice for a common desktop
// font.
#include "prancheta/dcl/natural_size.h"

#include <algorithm>
#include <string>

#include "prancheta/base/text.h"
#include "prancheta/dcl/kinds.h"
#include "prancheta/dcl/layout.h"
#include "prancheta/dcl/tile_value.h"

namespace prancheta::dcl {
namespace {

constexpr double kGapWide = 1.0;
constexpr double kGapHigh = 0.5;
constexpr double kMarginWide = 1.0;
constexpr double kMarginHigh = 0.5;
constexpr double kTitleLine = 1.0;

constexpr double kInputLine = 1.6;   // edit box, popup and button
constexpr double kChoiceLine = 1.3;  // toggle and radio button
constexpr double kChoiceMark = 3.0;
constexpr double kButtonMargins = 4.0;
constexpr double kButtonLeast = 8.0;
constexpr double kEditFrame = 2.0;
constexpr double kPopupFrame = 4.0;
constexpr double kInputDefault = 10.0;
constexpr double kInputLeast = 3.0;
constexpr double kListFrame = 0.5;
constexpr double kListRows = 6.0;
constexpr double kListWide = 20.0;
constexpr double kSliderLong = 20.0;
constexpr double kSliderTall = 8.0;
constexpr double kSliderThick = 3.0;
constexpr double kImageWide = 10.0;
constexpr double kImageHigh = 5.0;
constexpr double kLargest = 4096.0;

bool isTitled(const Tile& cluster) {
    return cluster.kind != TileKind::Dialog && !cluster.attribute("label").empty();
}

}  // namespace

std::wstring labelText(const Tile& tile) {
    const std::wstring label = toWide(tile.attribute("label"));
    std::wstring text;
    for (std::size_t i = 0; i < label.size(); ++i) {
        if (label[i] == L'&' && i + 1 < label.size()) ++i;
        text += label[i];
    }
    return text;
}

double NaturalSizes::given(const Tile& tile, const char* attribute) const {
    return std::clamp(numberAttribute(tile, attribute, 0), 0.0, kLargest);
}

double NaturalSizes::labelWidth(const Tile& tile) const {
    const std::wstring text = labelText(tile);
    const bool bold = tile.kind == TileKind::Text && flagAttribute(tile, "is_bold");
    const auto& width = bold && m_metrics.boldWidth ? m_metrics.boldWidth : m_metrics.textWidth;
    return width ? width(text) : wide(static_cast<double>(text.size()));
}

double NaturalSizes::lineHeight(double lines, const Metrics::Widget& widget) const {
    return std::max(high(lines), widget.height);
}

double NaturalSizes::frameWidth(double characters, const Metrics::Widget& widget) const {
    return std::max(wide(characters), widget.frame);
}

double NaturalSizes::gap(bool horizontal) const {
    return horizontal ? std::max(wide(kGapWide), m_metrics.columnGap)
                      : std::max(high(kGapHigh), m_metrics.rowGap);
}

double NaturalSizes::labelRoom(const Tile& tile) const {
    const double label = labelWidth(tile);
    return label > 0 ? label + wide(kGapWide) : 0;
}

double NaturalSizes::inputFrame(const Tile& tile) const {
    return tile.kind == TileKind::PopupList ? frameWidth(kPopupFrame, m_metrics.popup)
                                            : frameWidth(kEditFrame, m_metrics.edit);
}

double NaturalSizes::inputWidth(const Tile& tile) const {
    const double characters = given(tile, "edit_width");
    return characters > 0 ? wide(characters) + inputFrame(tile) : 0;
}

double NaturalSizes::titleHeight(const Tile& tile) const {
    return tile.attribute("label").empty() ? 0 : high(kTitleLine) + m_metrics.titleGap;
}

Insets NaturalSizes::insets(const Tile& cluster) const {
    const bool titled = isTitled(cluster);
    const bool plain = cluster.kind != TileKind::Dialog && !isBoxed(cluster.kind) && !titled;
    if (plain) return {};
    const double least = cluster.kind == TileKind::Dialog ? m_metrics.dialogMargin : 0;
    const double side = std::max(wide(kMarginWide), least);
    const double margin = std::max(high(kMarginHigh), least);
    return {side, margin + (titled ? high(kTitleLine) + m_metrics.titleGap : 0), side, margin};
}

Size NaturalSizes::ofCluster(const Tile& cluster, const Size& inside) const {
    const Insets in = insets(cluster);
    const bool hasTitle = isTitled(cluster) || cluster.kind == TileKind::Dialog;
    const double title = hasTitle ? labelWidth(cluster) : 0;
    return {std::max({inside.width + in.left + in.right, title + in.left + in.right,
                      wide(given(cluster, "width"))}),
            std::max(inside.height + in.top + in.bottom, high(given(cluster, "height")))};
}

Size NaturalSizes::imageSize(const Tile& tile) const {
    const double width = wide(given(tile, "width"));
    const double height = high(given(tile, "height"));
    const double ratio = numberAttribute(tile, "aspect_ratio", 0);
    Size size{width > 0 ? width : wide(kImageWide), height > 0 ? height : high(kImageHigh)};
    if (ratio > 0 && height > 0 && width <= 0) size.width = height * ratio;
    if (ratio > 0 && height <= 0) size.height = size.width / ratio;
    return {std::min(size.width, wide(kLargest)), std::min(size.height, high(kLargest))};
}

/// What the kind and the label need.
Size NaturalSizes::natural(const Tile& tile) const {
    const double label = labelWidth(tile);
    switch (tile.kind) {
        case TileKind::Button:
            return {
                std::max(label + frameWidth(kButtonMargins, m_metrics.button), wide(kButtonLeast)),
                lineHeight(kInputLine, m_metrics.button)};
        case TileKind::EditBox:
        case TileKind::PopupList: {
            const bool free = given(tile, "width") <= 0;
            const double input = inputWidth(tile);
            const double least = wide(free ? kInputDefault : kInputLeast) + inputFrame(tile);
            const bool popup = tile.kind == TileKind::PopupList;
            return {labelRoom(tile) + (input > 0 ? input : least),
                    lineHeight(kInputLine, popup ? m_metrics.popup : m_metrics.edit)};
        }
        case TileKind::RadioButton:
        case TileKind::Toggle:
            return {label + frameWidth(kChoiceMark, m_metrics.choice),
                    lineHeight(kChoiceLine, m_metrics.choice)};
        case TileKind::ListBox: {
            const double width =
                given(tile, "width") > 0 ? label : std::max(label, wide(kListWide));
            const double rows = given(tile, "height") > 0 ? 1.0 : kListRows;
            return {width, titleHeight(tile) + high(rows + kListFrame)};
        }
        case TileKind::Slider:
            if (tile.attribute("layout") == "vertical")
                return {wide(kSliderThick), high(kSliderTall)};
            return {given(tile, "width") > 0 ? 0 : wide(kSliderLong),
                    lineHeight(kInputLine, m_metrics.slider)};
        case TileKind::Text:
        case TileKind::TextPart:
            return {label,
                    std::max(high(1),
                             flagAttribute(tile, "fixed_width_font") ? m_metrics.fixedLine : 0)};
        default:
            return {};
    }
}

Size NaturalSizes::of(const Tile& tile) const {
    if (isImage(tile.kind)) return imageSize(tile);
    if (tile.kind == TileKind::Spacer)
        return {wide(std::clamp(numberAttribute(tile, "width", 1), 0.0, kLargest)),
                high(std::clamp(numberAttribute(tile, "height", 1), 0.0, kLargest))};
    const Size least = natural(tile);
    return {std::max(least.width, wide(given(tile, "width"))),
            std::max(least.height, high(given(tile, "height")))};
}

}  // namespace prancheta::dcl
