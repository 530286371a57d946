// SPDX-License-Identifier: MIT
// Which of many boxes meet an area: a binary tree over boxes in a row.
//
// Why this one: the segments of a curve lie beside their neighbours, so boxes over runs of them are
// small as they are; nothing is sorted, nothing is linked. Building costs O(n), a query O(log n)
// and what it finds for a curve that does not fill the plane.
#pragma once

#include <algorithm>
#include <vector>

#include "prancheta/curves/curve.h"

namespace prancheta {

class BoxTree {
public:
    explicit BoxTree(std::vector<Box2d> boxes) : m_size(boxes.size()) {
        m_boxes.resize(m_size);
        m_boxes.insert(m_boxes.end(), boxes.begin(), boxes.end());
        for (std::size_t i = m_size; i-- > 1;) {
            m_boxes[i] = m_boxes[2 * i];
            m_boxes[i].add(m_boxes[2 * i + 1]);
        }
    }
    /// Calls `found(index)` for every box that meets `area`.
    template <class Found>
    void visit(const Box2d& area, Found&& found) const {
        if (m_size > 0) visitNode(1, area, found);
    }
    /// Calls `found(index)` for boxes nearer to a point than `reach` until it answers true.
    template <class Found>
    bool visitNear(const Vec2& p, double reach, Found&& found) const {
        return m_size > 0 && visitNodeNear(1, p, reach, found);
    }

private:
    // The children of node i are 2 i and 2 i + 1; the boxes themselves stand from m_size on.
    template <class Found>
    void visitNode(std::size_t node, const Box2d& area, Found& found) const {
        if (!m_boxes[node].meets(area)) return;
        if (node >= m_size) return found(node - m_size);
        visitNode(2 * node, area, found);
        visitNode(2 * node + 1, area, found);
    }
    template <class Found>
    bool visitNodeNear(std::size_t node, const Vec2& p, double reach, Found& found) const {
        const Box2d& box = m_boxes[node];
        const Vec2 off = {std::max({box.left - p.x, p.x - box.right, 0.0}),
                          std::max({box.bottom - p.y, p.y - box.top, 0.0})};
        if (off.length() >= reach) return false;
        if (node >= m_size) return found(node - m_size);
        return visitNodeNear(2 * node, p, reach, found) ||
               visitNodeNear(2 * node + 1, p, reach, found);
    }

    std::size_t m_size;
    std::vector<Box2d> m_boxes;
};

/// Of a curve's segments, in their order.
inline std::vector<Box2d> boxesOf(const Curve& curve) {
    std::vector<Box2d> boxes;
    for (const Segment& s : curve.segments()) boxes.push_back(s.box());
    return boxes;
}

}  // namespace prancheta
