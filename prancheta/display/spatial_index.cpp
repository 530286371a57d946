// SPDX-License-Identifier: MIT
// Loose quadtree.
#include "prancheta/display/spatial_index.h"

#include <cmath>

namespace prancheta {
namespace {

constexpr std::uint16_t kLeafRoom = 8;
/// Drawing units; boxes at one place would divide leaves without end.
constexpr double kSmallestCell = 1e-3;
/// Beyond this a double no longer tells neighbouring cells apart.
constexpr double kFarthest = 1e12;

double sizeOf(const Box2d& box) { return std::max(box.width(), box.height()); }
double centreX(const Box2d& box) { return box.left + (box.right - box.left) / 2.0; }
double centreY(const Box2d& box) { return box.bottom + (box.top - box.bottom) / 2.0; }

bool isNear(const Box2d& box) {
    return box.left > -kFarthest && box.right < kFarthest && box.bottom > -kFarthest &&
           box.top < kFarthest;
}

}  // namespace

Box2d SpatialIndex::Cell::reach() const {
    const double margin = size * 0.500001 + (std::abs(x) + std::abs(y)) * 1e-14;
    return Box2d{x, y, x + size, y + size}.grown(margin);
}

void SpatialIndex::clear() {
    m_entries.clear();
    m_nodes.clear();
    m_far = kNone;
    m_live = 0;
    m_nodesWhenBuilt = 0;
}

void SpatialIndex::reserve(std::size_t keys) { m_entries.reserve(keys); }

std::uint32_t SpatialIndex::addNode() {
    m_nodes.emplace_back();
    return static_cast<std::uint32_t>(m_nodes.size() - 1);
}

void SpatialIndex::link(Key key, std::uint32_t node) {
    Entry& entry = m_entries[key];
    Key& first = node == kFar ? m_far : m_nodes[node].first;
    entry.node = node;
    entry.before = kNone;
    entry.next = first;
    if (first != kNone) m_entries[first].before = key;
    first = key;
}

void SpatialIndex::unlink(Key key) {
    Entry& entry = m_entries[key];
    Key& first = entry.node == kFar ? m_far : m_nodes[entry.node].first;
    if (entry.before == kNone)
        first = entry.next;
    else
        m_entries[entry.before].next = entry.next;
    if (entry.next != kNone) m_entries[entry.next].before = entry.before;
    // Leaves of the smallest size are not counted: they are never divided.
    if (entry.node != kFar && m_nodes[entry.node].leaf && m_nodes[entry.node].count > 0)
        --m_nodes[entry.node].count;
    entry.node = kNone;
}

void SpatialIndex::set(Key key, const Box2d& box) {
    if (key >= m_entries.size()) {
        // Doubling would leave half of the room unused in a drawing that has just been read.
        if (key >= m_entries.capacity())
            m_entries.reserve(m_entries.size() + m_entries.size() / 4 + 64 + 1);
        m_entries.resize(std::size_t(key) + 1);
    }
    if (m_entries[key].node != kNone) {
        unlink(key);
        --m_live;
    }
    m_entries[key].box = box;
    if (box.empty()) return;
    ++m_live;
    // Leaves that everything has left are not taken out one by one.
    if (m_nodes.size() > 2 * m_nodesWhenBuilt + m_live + 64) return rebuild();
    insert(key);
}

void SpatialIndex::rebuild() {
    m_nodes.clear();
    m_far = kNone;
    for (Key key = 0; key < m_entries.size(); ++key) {
        m_entries[key].node = kNone;
        if (!m_entries[key].box.empty()) insert(key);
    }
    m_nodesWhenBuilt = m_nodes.size();
}

void SpatialIndex::insert(Key key) {
    const Box2d& box = m_entries[key].box;
    if (!isNear(box)) return link(key, kFar);
    const double x = centreX(box);
    const double y = centreY(box);
    const double size = sizeOf(box);
    if (m_nodes.empty()) {
        m_root = addNode();
        const double side = std::exp2(std::ceil(std::log2(std::max(size * 4.0, 1.0))));
        m_rootCell = {std::floor(x / side) * side, std::floor(y / side) * side, side};
    }
    while (size > m_rootCell.size || !m_rootCell.holds(x, y)) growRoot(x, y);
    insertBelow(key, m_root, m_rootCell);
}

/// The root becomes a quarter of a new one that reaches out to (x, y).
void SpatialIndex::growRoot(double x, double y) {
    const unsigned which = (x < m_rootCell.x ? 1u : 0u) | (y < m_rootCell.y ? 2u : 0u);
    const std::uint32_t outer = addNode();
    m_nodes[outer].leaf = false;
    m_nodes[outer].child[which] = m_root;
    if (which & 1) m_rootCell.x -= m_rootCell.size;
    if (which & 2) m_rootCell.y -= m_rootCell.size;
    m_rootCell.size *= 2.0;
    m_root = outer;
}

void SpatialIndex::insertBelow(Key key, std::uint32_t node, Cell cell) {
    const Box2d& box = m_entries[key].box;
    const double size = sizeOf(box);
    while (!m_nodes[node].leaf && size <= cell.size / 2.0) {
        const double half = cell.size / 2.0;
        const unsigned which =
            (centreX(box) >= cell.x + half ? 1u : 0u) | (centreY(box) >= cell.y + half ? 2u : 0u);
        if (m_nodes[node].child[which] == kNone) {
            const std::uint32_t made = addNode();
            m_nodes[node].child[which] = made;
        }
        node = m_nodes[node].child[which];
        cell = cell.quarter(which);
    }
    link(key, node);
    if (!m_nodes[node].leaf || cell.size <= kSmallestCell) return;
    if (++m_nodes[node].count > kLeafRoom) divide(node, cell);
}

void SpatialIndex::divide(std::uint32_t node, const Cell& cell) {
    Key key = m_nodes[node].first;
    m_nodes[node].first = kNone;
    m_nodes[node].leaf = false;
    while (key != kNone) {
        const Key next = m_entries[key].next;
        insertBelow(key, node, cell);
        key = next;
    }
}

}  // namespace prancheta
