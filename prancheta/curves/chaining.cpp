// SPDX-License-Identifier: MIT
// Stretches of a curve joined where they meet: beginnings in a grid whose cells are as wide as what
// counts as one place.
#include "prancheta/curves/chaining.h"

#include <algorithm>
#include <map>
#include <utility>

namespace prancheta {

namespace {

class Beginnings {
public:
    explicit Beginnings(const Curve& curve) : m_curve(curve), m_near(64.0 * curve.tolerance()) {}

    /// False, and nothing added, for one that runs where another does already.
    bool add(const Stretch& stretch, std::size_t index) {
        const Vec2 begin = m_curve.at(stretch.from);
        bool twin = false;
        visit(begin, [&](auto it) { twin = twin || runsBeside(it->second.first, stretch); });
        if (!twin) m_cells.emplace(cellOf(begin), std::pair(stretch, index));
        return !twin;
    }
    /// Takes one that begins at `p`, `wished` if it is among them; nothing when there is none.
    std::optional<std::size_t> take(const Vec2& p, std::size_t wished) {
        auto best = m_cells.end();
        visit(p, [&](auto it) {
            if (best == m_cells.end() || it->second.second == wished) best = it;
        });
        if (best == m_cells.end()) return {};
        const std::size_t found = best->second.second;
        m_cells.erase(best);
        return found;
    }

private:
    using Cell = std::pair<double, double>;
    Cell cellOf(const Vec2& p) const {
        return {std::floor(p.x / m_near), std::floor(p.y / m_near)};
    }
    bool same(const Vec2& p, const Vec2& q) const { return distance(p, q) <= m_near; }
    Vec2 middleOf(const Stretch& s) const {
        const double middle = (m_curve.lengthAt(s.from) + m_curve.lengthAt(s.to)) / 2.0;
        return m_curve.at(m_curve.parameterAt(std::fmod(middle, m_curve.length())));
    }
    bool runsBeside(const Stretch& a, const Stretch& b) const {
        return same(m_curve.at(a.to), m_curve.at(b.to)) && same(middleOf(a), middleOf(b));
    }
    template <class Visit>
    void visit(const Vec2& p, Visit&& found) {
        const Cell cell = cellOf(p);
        for (const double dx : {-1.0, 0.0, 1.0})
            for (const double dy : {-1.0, 0.0, 1.0}) {
                auto [it, end] = m_cells.equal_range({cell.first + dx, cell.second + dy});
                for (; it != end; ++it)
                    if (same(m_curve.at(it->second.first.from), p)) found(it);
            }
    }

    const Curve& m_curve;
    double m_near;
    std::multimap<Cell, std::pair<Stretch, std::size_t>> m_cells;
};

constexpr std::size_t kNone = static_cast<std::size_t>(-1);

}  // namespace

std::vector<Curve> chained(const Curve& curve, const std::vector<Stretch>& stretches) {
    Beginnings beginnings(curve);
    std::vector<Stretch> all;
    for (const Stretch& stretch : stretches)
        if (beginnings.add(stretch, all.size())) all.push_back(stretch);
    std::vector<std::size_t> next(all.size(), kNone);
    std::vector<bool> isNext(all.size(), false);
    for (std::size_t i = 0; i < all.size(); ++i)
        if (const auto found = beginnings.take(curve.at(all[i].to), (i + 1) % all.size())) {
            next[i] = *found;
            isNext[*found] = true;
        }
    std::vector<Curve> result;
    std::vector<bool> used(all.size(), false);
    const auto chainFrom = [&](std::size_t head) {
        std::vector<Segment> chain;
        std::size_t i = head;
        do {
            // What goes on along the curve keeps no trace of the cut between.
            Stretch run = all[i];
            for (;;) {
                used[i] = true;
                const std::size_t after = next[i];
                if (after == kNone || after == head || all[after].from != run.to) break;
                run.to = all[after].to;
                i = after;
            }
            const bool whole = run.to - run.from >= curve.count();
            const Curve part = whole && run.from == 0.0 ? curve : curve.part(run.from, run.to);
            chain.insert(chain.end(), part.segments().begin(), part.segments().end());
            i = next[i];
        } while (i != kNone && i != head && !used[i]);
        result.emplace_back(std::move(chain), i == head);
    };
    for (std::size_t i = 0; i < all.size(); ++i)
        if (!isNext[i]) chainFrom(i);
    for (std::size_t i = 0; i < all.size(); ++i)
        if (!used[i]) chainFrom(i);
    return result;
}

}  // namespace prancheta
