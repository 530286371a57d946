// SPDX-License-Identifier: MIT
// Boxes by place: a loose quadtree.
//
// Why this one: pieces differ in size by five powers of ten and change one by one while somebody
// drags, so a grid of one cell size and an index packed once are both out. In a loose quadtree
// every box stands in exactly one node, that of its centre among the cells not smaller than itself;
// putting in, taking out and moving cost O(depth), a query the boxes found and the nodes on the
// border of its area. Leaves are divided when they are full, so there are fewer nodes than boxes.
#pragma once

#include <cstdint>
#include <vector>

#include "prancheta/display/box.h"

namespace prancheta {

class SpatialIndex {
public:
    /// Small whole numbers chosen by the owner; boxes of all keys up to the greatest take room.
    using Key = std::uint32_t;

    void clear();
    void reserve(std::size_t keys);
    /// Gives the key this box; an empty one takes it out.
    void set(Key key, const Box2d& box);
    /// Empty for a key that was never set.
    Box2d box(Key key) const { return key < m_entries.size() ? m_entries[key].box : Box2d(); }

    /// Calls `found(key)` for every box that meets `area`, in no particular order. `found` may not
    /// change the index.
    template <class Found>
    void visit(const Box2d& area, Found&& found) const {
        visitList(m_far, area, found);
        if (!m_nodes.empty()) visitNode(m_root, m_rootCell, area, found);
    }

    std::size_t bytes() const {
        return m_entries.capacity() * sizeof(Entry) + m_nodes.capacity() * sizeof(Node);
    }

private:
    static constexpr std::uint32_t kNone = UINT32_MAX;
    static constexpr std::uint32_t kFar = UINT32_MAX - 1;

    struct Entry {
        Box2d box;
        std::uint32_t node = kNone;  ///< where it stands; kFar: too far or too large for the tree
        Key next = kNone;
        Key before = kNone;
    };
    struct Node {
        std::uint32_t child[4] = {kNone, kNone, kNone, kNone};
        Key first = kNone;
        std::uint16_t count = 0;  ///< of a leaf
        bool leaf = true;
    };
    struct Cell {
        double x = 0.0;  ///< left lower corner
        double y = 0.0;
        double size = 0.0;

        /// Drawing units; the lower and left edges count.
        bool holds(double px, double py) const {
            return px >= x && px < x + size && py >= y && py < y + size;
        }
        Cell quarter(unsigned which) const {
            const double half = size / 2.0;
            return {which & 1 ? x + half : x, which & 2 ? y + half : y, half};
        }
        /// Of everything that may stand here or below: half a cell more on each side, and what
        /// rounding may do to a centre.
        Box2d reach() const;
    };

    template <class Found>
    void visitList(Key key, const Box2d& area, Found& found) const {
        for (; key != kNone; key = m_entries[key].next)
            if (m_entries[key].box.meets(area)) found(key);
    }
    template <class Found>
    void visitNode(std::uint32_t index, const Cell& cell, const Box2d& area, Found& found) const {
        if (!cell.reach().meets(area)) return;
        const Node& node = m_nodes[index];
        visitList(node.first, area, found);
        if (node.leaf) return;
        for (unsigned i = 0; i < 4; ++i)
            if (node.child[i] != kNone) visitNode(node.child[i], cell.quarter(i), area, found);
    }

    void link(Key key, std::uint32_t node);
    void unlink(Key key);
    void insert(Key key);
    void insertBelow(Key key, std::uint32_t node, Cell cell);
    void divide(std::uint32_t node, const Cell& cell);
    void growRoot(double x, double y);
    void rebuild();
    std::uint32_t addNode();

    std::vector<Entry> m_entries;
    std::vector<Node> m_nodes;
    std::uint32_t m_root = 0;
    Cell m_rootCell;
    Key m_far = kNone;
    std::size_t m_live = 0;
    std::size_t m_nodesWhenBuilt = 0;
};

}  // namespace prancheta
