// SPDX-License-Identifier: MIT
// Layouts by first fit, fillings of one bar, bounds by volume.
#include "zp/cutting/pattern.h"

#include <algorithm>
#include <cmath>
#include <functional>
#include <numeric>

namespace zp::cutting {
namespace {

/// Bars that are cut alike, while first fit lays them out.
struct Open {
    Use use;
    Ticks room = 0;
};

/// Shortest left-over that takes one of `width` and is not used up, else the longest stock up to
/// `longest`; one past the sources when there is none.
std::size_t sourceFor(const Task& task, const std::vector<int>& left, Ticks width, Ticks longest) {
    std::size_t best = task.sources.size();
    for (std::size_t s = 0; s < task.sources.size(); ++s) {
        const Source& source = task.sources[s];
        if (left[s] == 0 || source.room < width) continue;
        if (!source.leftOver() && source.length > longest) continue;
        const bool better = [&] {
            if (best == task.sources.size()) return true;
            const Source& other = task.sources[best];
            if (source.leftOver() != other.leftOver()) return source.leftOver();
            return (source.length < other.length) == source.leftOver();
        }();
        if (better) best = s;
    }
    return best;
}

/// The shortest stock for each bought bar.
void shrink(const Task& task, std::vector<Open>& bars) {
    for (Open& bar : bars) {
        const Source& now = task.sources[bar.use.pattern.source];
        if (now.leftOver()) continue;
        const Ticks filled = now.room - bar.room;
        for (std::size_t s = 0; s < task.sources.size(); ++s) {
            const Source& other = task.sources[s];
            if (!other.leftOver() && other.room >= filled &&
                other.length < task.sources[bar.use.pattern.source].length)
                bar.use.pattern.source = s;
        }
    }
}

/// First fit with bought bars up to `longest`; empty when an item fits none of them.
Layout laidOut(const Task& task, Ticks longest) {
    std::vector<int> left(task.sources.size());
    std::ranges::transform(task.sources, left.begin(), &Source::limit);
    std::vector<Open> bars;
    for (std::size_t i = 0; i < task.items.size(); ++i) {
        const Ticks width = task.items[i].width;
        int rest = task.items[i].demand;
        // Into the bars of one group at a time: so many get a full share.
        const auto take = [&](Open group) {
            const int share = static_cast<int>(std::min<Ticks>(rest, group.room / width));
            const int full = std::min(group.use.times, rest / share);
            rest -= full * share;
            group.use.times = full;
            group.use.pattern.counts.emplace_back(i, share);
            group.room -= share * width;
            return group;
        };
        for (std::size_t b = 0; b < bars.size() && rest > 0; ++b) {
            if (bars[b].room < width) continue;
            const Open filled = take(bars[b]);
            bars[b].use.times -= filled.use.times;
            // What is left of the group comes behind, and is met again.
            if (bars[b].use.times == 0)
                bars[b] = filled;
            else
                bars.insert(bars.begin() + static_cast<std::ptrdiff_t>(b), filled);
        }
        while (rest > 0) {
            const std::size_t s = sourceFor(task, left, width, longest);
            if (s == task.sources.size()) return {};
            const Open bar = take({{{s, {}}, left[s]}, task.sources[s].room});
            if (left[s] != kUnlimited) left[s] -= bar.use.times;
            bars.push_back(bar);
        }
    }
    shrink(task, bars);
    Layout layout;
    for (Open& bar : bars) layout.push_back(std::move(bar.use));
    return layout;
}

/// The same depth-first search at every level: as many as fit, then fewer.
class Search {
public:
    Search(const std::vector<Item>& items, const std::vector<double>& values, std::int64_t& nodes)
        : m_nodes(nodes) {
        for (std::size_t i = 0; i < items.size(); ++i)
            if (values[i] >= 0.0 && items[i].demand > 0)
                m_order.push_back({i, items[i].width, items[i].demand, values[i],
                                   values[i] / static_cast<double>(items[i].width), 0, 0.0});
        std::ranges::stable_sort(m_order, std::greater<>(), &Candidate::density);
        Ticks narrowest = std::numeric_limits<Ticks>::max();
        double dearest = 0.0;
        for (auto c = m_order.rbegin(); c != m_order.rend(); ++c) {
            c->narrowest = narrowest = std::min(narrowest, c->width);
            c->dearest = dearest = std::max(dearest, c->value);
        }
        m_taken.assign(m_order.size(), 0);
        m_best = m_taken;
    }

    Filling run(Ticks room) {
        descend(0, room, 0.0);
        return {m_value, m_cutShort ? fractional(room) : m_value, counts(m_best)};
    }

    /// Whether the nodes sufficed.
    bool collect(Ticks room, double least, std::size_t most, std::vector<Counts>& found) {
        m_least = least;
        m_most = most;
        m_found = &found;
        gather(0, room, 0.0);
        return !m_cutShort;
    }

private:
    struct Candidate {
        std::size_t item;
        Ticks width;
        int demand;
        double value;
        double density;
        Ticks narrowest;  ///< of this one and all behind it
        double dearest;   ///< value, of the same

        int most(Ticks room) const {
            return static_cast<int>(std::min<Ticks>(demand, room / width));
        }
    };

    Counts counts(const std::vector<int>& taken) const {
        Counts counts;
        for (std::size_t k = 0; k < m_order.size(); ++k)
            if (taken[k] > 0) counts.emplace_back(m_order[k].item, taken[k]);
        std::ranges::sort(counts);
        return counts;
    }
    double fractional(Ticks room) const {
        double value = 0.0;
        for (const Candidate& c : m_order) {
            const int n = c.most(room);
            value += n * c.value;
            room -= n * c.width;
            if (n < c.demand) return value + static_cast<double>(room) * c.density;
        }
        return value;
    }
    /// No filling of this room by the candidates from k on is worth more.
    double atMost(std::size_t k, Ticks room) const {
        const Candidate& c = m_order[k];
        const Ticks most = room / c.narrowest;  // whole ones
        return std::min(static_cast<double>(room) * c.density,
                        static_cast<double>(most) * c.dearest);
    }
    void descend(std::size_t first, Ticks room, double value) {
        if (value > m_value) {
            m_value = value;
            m_best = m_taken;
        }
        for (std::size_t k = first; k < m_order.size() && m_order[k].narrowest <= room; ++k) {
            if (--m_nodes < 0) {
                m_cutShort = true;
                return;
            }
            const Candidate& c = m_order[k];
            // The fewer are taken the less the rest can bring.
            if (value + atMost(k, room) <= m_value * (1.0 + kSame)) return;
            for (m_taken[k] = c.most(room); m_taken[k] > 0; --m_taken[k]) {
                descend(k + 1, room - m_taken[k] * c.width, value + m_taken[k] * c.value);
                if (m_cutShort) return;
            }
        }
    }
    void gather(std::size_t k, Ticks room, double value) {
        if (m_cutShort) return;
        if (--m_nodes < 0 || m_found->size() > m_most) {
            m_cutShort = true;
            return;
        }
        if (k == m_order.size()) {
            for (std::size_t i = 0; i < k; ++i)  // one with more cuts is found as well
                if (m_taken[i] < m_order[i].demand && m_order[i].width <= room) return;
            m_found->push_back(counts(m_taken));
            return;
        }
        const Candidate& c = m_order[k];
        for (int n = c.most(room); n >= 0; --n) {
            const Ticks rest = room - n * c.width;
            const double with = value + n * c.value;
            if (with + (k + 1 < m_order.size() ? atMost(k + 1, rest) : 0.0) < m_least) continue;
            m_taken[k] = n;
            gather(k + 1, rest, with);
        }
        m_taken[k] = 0;
    }

    /// Values that differ by less, over their size, are one.
    static constexpr double kSame = 1e-12;
    std::int64_t& m_nodes;
    std::vector<Candidate> m_order;  ///< by value per width
    std::vector<int> m_taken;
    std::vector<int> m_best;
    double m_value = 0.0;
    bool m_cutShort = false;
    double m_least = 0.0;
    std::size_t m_most = 0;
    std::vector<Counts>* m_found = nullptr;
};

}  // namespace

Score scoreOf(const Task& task, const Layout& layout) {
    Score score;
    for (const Use& use : layout) {
        const Source& source = task.sources[use.pattern.source];
        if (source.leftOver()) continue;
        score.bought += source.length * use.times;
        score.bars += use.times;
    }
    return score;
}

Layout firstFit(const Task& task) {
    Layout best;
    for (const Source& longest : task.sources) {
        if (longest.leftOver()) continue;
        Layout layout = laidOut(task, longest.length);
        if (layout.empty()) continue;
        if (best.empty() || scoreOf(task, layout) < scoreOf(task, best)) best = std::move(layout);
    }
    return best;
}

Filling bestFilling(const std::vector<Item>& items, const std::vector<double>& values, Ticks room,
                    std::int64_t& nodes) {
    return Search(items, values, nodes).run(room);
}

bool allFillings(const std::vector<Item>& items, const std::vector<double>& values, Ticks room,
                 double least, std::size_t most, std::int64_t& nodes, std::vector<Counts>& found) {
    return Search(items, values, nodes).collect(room, least, most, found);
}

Ticks roundedUp(const Task& task, double least) {
    Ticks unit = 0;
    for (const Source& source : task.sources)
        if (!source.leftOver()) unit = std::gcd(unit, source.length);
    // A millionth of a bar is what floating point may have added.
    const double whole = std::ceil(least / static_cast<double>(unit) - 1e-6);
    return std::max<Ticks>(0, static_cast<Ticks>(whole)) * unit;
}

Ticks leastByVolume(const Task& task) {
    double widths = 0.0;
    for (const Item& item : task.items) widths += static_cast<double>(item.width) * item.demand;
    double best = 0.0;  // length per room
    for (const Source& source : task.sources) {
        const double ratio = static_cast<double>(source.length) / static_cast<double>(source.room);
        if (source.leftOver())
            widths -= static_cast<double>(source.room) * source.limit;
        else if (source.room > 0 && (best == 0.0 || ratio < best))
            best = ratio;
    }
    return widths > 0.0 && best > 0.0 ? roundedUp(task, widths * best) : 0;
}

}  // namespace zp::cutting
