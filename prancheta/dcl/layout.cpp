// SPDX-License-Identifier: MIT
// The two passes of the layout; see the header for the design.
#include "prancheta/dcl/layout.h"

#include <algorithm>
#include <cmath>

#include "prancheta/base/text.h"
#include "prancheta/dcl/kinds.h"
#include "prancheta/dcl/natural_size.h"
#include "prancheta/dcl/tile_value.h"

namespace prancheta::dcl {
namespace {

enum class Axis { Horizontal, Vertical };
Axis across(Axis axis) { return axis == Axis::Horizontal ? Axis::Vertical : Axis::Horizontal; }

double& along(Size& size, Axis axis) { return axis == Axis::Horizontal ? size.width : size.height; }
double along(const Size& size, Axis axis) {
    return axis == Axis::Horizontal ? size.width : size.height;
}

struct Span {
    double start;
    double length;
};

Rect rectOf(Axis axis, Span main, Span cross) {
    if (axis == Axis::Horizontal) return {main.start, cross.start, main.length, cross.length};
    return {cross.start, main.start, cross.length, main.length};
}
Span spanOf(const Rect& rect, Axis axis) {
    return axis == Axis::Horizontal ? Span{rect.x, rect.width} : Span{rect.y, rect.height};
}

struct Node {
    const Tile* tile = nullptr;
    Size natural;
    std::vector<Node> children;
};

Axis axisOf(const Tile& tile) {
    return isHorizontal(tile.kind) ? Axis::Horizontal : Axis::Vertical;
}

/// The tile keeps its natural size along the axis.
bool isFixed(const Tile& tile, Axis axis) {
    const bool horizontal = axis == Axis::Horizontal;
    const std::string own = tile.attribute(horizontal ? "fixed_width" : "fixed_height");
    if (!own.empty()) return own == "true";
    if (tile.parent != nullptr &&
        flagAttribute(*tile.parent, horizontal ? "children_fixed_width" : "children_fixed_height"))
        return true;
    return tile.kind == TileKind::Slider && !horizontal && tile.attribute("layout") != "vertical";
}

/// Share of the free room that stands before a fixed tile: 0 at the start, 1 at the end.
double alignmentShare(const Tile& tile, Axis crossAxis) {
    const bool column = crossAxis == Axis::Horizontal;
    const std::string inherited =
        tile.parent != nullptr ? tile.parent->attribute("children_alignment") : std::string();
    for (const std::string& word : {tile.attribute("alignment"), inherited}) {
        if (word == (column ? "left" : "top")) return 0.0;
        if (word == (column ? "right" : "bottom")) return 1.0;
        if (word == "centered") return 0.5;
    }
    return column ? 0.0 : 0.5;
}

/// Parts of a text stand together, whatever room there is.
bool isRunningText(const Tile& tile) {
    return tile.kind == TileKind::Concatenation || tile.kind == TileKind::Paragraph;
}

class Arranger {
public:
    explicit Arranger(const Metrics& metrics) : m_sizes(metrics) {}

    Node measure(const Tile& tile) const;
    void place(const Node& node, const Rect& frame, int level, Layout& layout) const;

private:
    Size clusterSize(const Node& node) const;
    std::vector<Span> divide(const Node& node, Span room) const;
    Rect partOf(const Tile& tile, const Rect& frame) const;
    std::vector<double> gaps(const Node& node) const;

    NaturalSizes m_sizes;
};

/// Gap before each child: none before the first tile, nor on account of a spacer, which is a gap
/// itself.
std::vector<double> Arranger::gaps(const Node& node) const {
    std::vector<double> before(node.children.size(), 0.0);
    if (isRunningText(*node.tile)) return before;
    const double gap = m_sizes.gap(axisOf(*node.tile) == Axis::Horizontal);
    bool tileSeen = false;
    for (std::size_t i = 0; i < before.size(); ++i) {
        if (node.children[i].tile->kind == TileKind::Spacer) continue;
        if (tileSeen) before[i] = gap;
        tileSeen = true;
    }
    return before;
}

Node Arranger::measure(const Tile& tile) const {
    Node node;
    node.tile = &tile;
    if (!isCluster(tile.kind)) {
        node.natural = m_sizes.of(tile);
        return node;
    }
    double widest = 0;
    for (const auto& child : tile.children) {
        if (flagAttribute(*child, "is_hidden")) continue;
        node.children.push_back(measure(*child));
        if (child->kind == TileKind::Button)
            widest = std::max(widest, node.children.back().natural.width);
    }
    if (flagAttribute(tile, "children_equal_width"))
        for (Node& child : node.children)
            if (child.tile->kind == TileKind::Button) child.natural.width = widest;
    node.natural = clusterSize(node);
    return node;
}

Size Arranger::clusterSize(const Node& node) const {
    const Axis axis = axisOf(*node.tile);
    const std::vector<double> before = gaps(node);
    Size inside;
    for (std::size_t i = 0; i < node.children.size(); ++i) {
        const Size& child = node.children[i].natural;
        along(inside, axis) += before[i] + along(child, axis);
        along(inside, across(axis)) =
            std::max(along(inside, across(axis)), along(child, across(axis)));
    }
    return m_sizes.ofCluster(*node.tile, inside);
}

/// Spans of the children along the long axis.
std::vector<Span> Arranger::divide(const Node& node, Span room) const {
    const Axis axis = axisOf(*node.tile);
    const std::vector<double> before = gaps(node);
    double needed = 0;
    std::size_t growers = 0;
    for (std::size_t i = 0; i < node.children.size(); ++i) {
        needed += before[i] + along(node.children[i].natural, axis);
        if (!isFixed(*node.children[i].tile, axis)) ++growers;
    }
    const double extra = std::max(0.0, room.length - needed);
    const double growth = growers > 0 ? extra / static_cast<double>(growers) : 0;
    const bool widens = growers == 0 && node.children.size() > 1 && !isRunningText(*node.tile);
    const double widening = widens ? extra / static_cast<double>(node.children.size() - 1) : 0;

    std::vector<Span> spans;
    double at = room.start;
    for (std::size_t i = 0; i < node.children.size(); ++i) {
        const Node& child = node.children[i];
        at += before[i] + (i > 0 ? widening : 0);
        const double length =
            along(child.natural, axis) + (isFixed(*child.tile, axis) ? 0 : growth);
        spans.push_back({at, length});
        at += length;
    }
    return spans;
}

Rect Arranger::partOf(const Tile& tile, const Rect& frame) const {
    if (isCluster(tile.kind)) {
        const Insets in = m_sizes.insets(tile);
        return {frame.x + in.left, frame.y + in.top, frame.width - in.left - in.right,
                frame.height - in.top - in.bottom};
    }
    if (tile.kind == TileKind::EditBox || tile.kind == TileKind::PopupList) {
        const double most = frame.width - m_sizes.labelRoom(tile);
        const double wanted = m_sizes.inputWidth(tile);
        const double width = wanted > 0 ? std::min(wanted, most) : most;
        return {frame.x + frame.width - width, frame.y, width, frame.height};
    }
    if (tile.kind == TileKind::ListBox) {
        const double title = m_sizes.titleHeight(tile);
        return {frame.x, frame.y + title, frame.width, frame.height - title};
    }
    return frame;
}

Rect rounded(const Rect& rect) {
    const double left = std::round(rect.x);
    const double top = std::round(rect.y);
    return {left, top, std::round(rect.x + rect.width) - left,
            std::round(rect.y + rect.height) - top};
}

/// Boxes without size: every tile has one, in the order of the file.
void leaveOut(const Tile& tile, int level, Layout& layout) {
    layout.boxes.push_back({&tile, level, {}, {}});
    for (const auto& child : tile.children) leaveOut(*child, level + 1, layout);
}

void Arranger::place(const Node& node, const Rect& frame, int level, Layout& layout) const {
    const Rect part = partOf(*node.tile, frame);
    layout.boxes.push_back({node.tile, level, rounded(frame), rounded(part)});

    const Axis axis = axisOf(*node.tile);
    const Span room = spanOf(part, across(axis));
    const std::vector<Span> spans = divide(node, spanOf(part, axis));
    std::size_t i = 0;
    for (const auto& tile : node.tile->children) {
        if (i == node.children.size() || node.children[i].tile != tile.get()) {
            leaveOut(*tile, level + 1, layout);
            continue;
        }
        const Node& child = node.children[i];
        Span cross = room;
        if (isFixed(*child.tile, across(axis))) {
            cross.length = std::min(room.length, along(child.natural, across(axis)));
            cross.start += (room.length - cross.length) * alignmentShare(*child.tile, across(axis));
        }
        place(child, rectOf(axis, spans[i++], cross), level + 1, layout);
    }
}

void appendRect(std::string& out, const Rect& rect) {
    appendNumber(out, rect.x);
    out += ',';
    appendNumber(out, rect.y);
    out += ' ';
    appendNumber(out, rect.width);
    out += 'x';
    appendNumber(out, rect.height);
}

}  // namespace

const Box* Layout::find(const Tile& tile) const {
    const bool ours = tile.place < boxes.size() && boxes[tile.place].tile == &tile;
    return ours ? &boxes[tile.place] : nullptr;
}

Layout layOut(const Tile& root, const Metrics& metrics) {
    const Arranger arranger(metrics);
    const Node node = arranger.measure(root);
    Layout layout;
    arranger.place(node, {0, 0, node.natural.width, node.natural.height}, 0, layout);
    return layout;
}

std::string dumpLayout(const Layout& layout) {
    std::string out;
    for (const Box& box : layout.boxes) {
        const Tile& tile = *box.tile;
        out.append(2 * static_cast<std::size_t>(box.level), ' ');
        out += kindName(tile.kind);
        out += ' ';
        out += tile.key.empty() ? "-" : tile.key;
        out += ' ';
        appendRect(out, box.frame);
        if (tile.kind == TileKind::EditBox || isList(tile.kind)) {
            out += " [";
            appendRect(out, box.part);
            out += ']';
        }
        out += '\n';
    }
    return out;
}

}  // namespace prancheta::dcl
