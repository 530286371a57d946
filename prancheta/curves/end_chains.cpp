// SPDX-License-Identifier: MIT
// Curves put one behind the other: loose ends in a grid whose cells are as wide as what counts as
// touching.
#include "prancheta/curves/end_chains.h"

#include <algorithm>
#include <deque>
#include <map>
#include <optional>

namespace prancheta {

namespace {

struct LooseEnd {
    std::size_t curve;
    bool atEnd;
    Vec2 at;
};

class LooseEnds {
public:
    explicit LooseEnds(double near) : m_near(near) {}
    void add(const LooseEnd& end) { m_cells.emplace(cellOf(end.at), end); }
    void remove(std::size_t curve, const Vec2& at) {
        auto [it, last] = m_cells.equal_range(cellOf(at));
        while (it != last) it = it->second.curve == curve ? m_cells.erase(it) : std::next(it);
    }
    /// Of those that touch, that of the first curve in the list.
    std::optional<LooseEnd> touching(const Vec2& p) const {
        std::optional<LooseEnd> best;
        const Cell cell = cellOf(p);
        for (const double dx : {-1.0, 0.0, 1.0})
            for (const double dy : {-1.0, 0.0, 1.0}) {
                auto [it, last] = m_cells.equal_range({cell.first + dx, cell.second + dy});
                for (; it != last; ++it)
                    if (distance(it->second.at, p) <= m_near &&
                        (!best || it->second.curve < best->curve))
                        best = it->second;
            }
        return best;
    }

private:
    using Cell = std::pair<double, double>;
    Cell cellOf(const Vec2& p) const {
        return {std::floor(p.x / m_near), std::floor(p.y / m_near)};
    }

    double m_near;
    std::multimap<Cell, LooseEnd> m_cells;
};

}  // namespace

Curve EndChain::curve(std::span<const Curve> of) const {
    std::vector<Segment> chain;
    for (const Link& link : links) {
        const Curve part = link.reversed ? of[link.curve].reversed() : of[link.curve];
        chain.insert(chain.end(), part.segments().begin(), part.segments().end());
    }
    return Curve(std::move(chain), closed);
}

std::vector<EndChain> endChains(std::span<const Curve> curves, double near) {
    LooseEnds ends(near);
    for (std::size_t i = 0; i < curves.size(); ++i) {
        if (curves[i].closed()) continue;
        ends.add({i, false, curves[i].start()});
        ends.add({i, true, curves[i].end()});
    }
    std::vector<bool> used(curves.size(), false);
    const auto take = [&](std::size_t i) {
        used[i] = true;
        if (curves[i].closed()) return;
        ends.remove(i, curves[i].start());
        ends.remove(i, curves[i].end());
    };
    std::vector<EndChain> chains;
    for (std::size_t i = 0; i < curves.size(); ++i) {
        if (used[i]) continue;
        take(i);
        std::deque<EndChain::Link> links{{i, false}};
        EndChain chain;
        chain.closed = curves[i].closed();
        Vec2 first = curves[i].start();
        Vec2 last = curves[i].end();
        while (!curves[i].closed()) {
            if (const auto next = ends.touching(last)) {
                take(next->curve);
                links.push_back({next->curve, next->atEnd});
                last = next->atEnd ? curves[next->curve].start() : curves[next->curve].end();
            } else if (const auto before = ends.touching(first)) {
                take(before->curve);
                links.push_front({before->curve, !before->atEnd});
                first = before->atEnd ? curves[before->curve].start() : curves[before->curve].end();
            } else {
                chain.closed = links.size() > 1 && distance(first, last) <= near;
                break;
            }
        }
        chain.links.assign(links.begin(), links.end());
        chains.push_back(std::move(chain));
    }
    return chains;
}

}  // namespace prancheta
