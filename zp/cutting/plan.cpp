// SPDX-License-Identifier: MIT
// From pieces to the solver's task and back to bars with marks.
#include "zp/cutting/plan.h"

#include <algorithm>
#include <cmath>
#include <deque>
#include <functional>
#include <map>
#include <set>

#include "zp/cutting/pattern.h"

namespace zp::cutting {
namespace {

constexpr double kTicksPerMm = 1e6;
/// Lengths beyond are none: ten thousand kilometres.
constexpr double kLongest = 1e10;

Ticks ticks(double mm) {
    return std::isfinite(mm) ? std::llround(std::clamp(mm, 0.0, kLongest) * kTicksPerMm) : 0;
}

struct Waiting {
    std::wstring marca;
    double length = 0.0;
    int quantity = 0;
};

/// Pieces by length, the longest first; those of one length in their order.
using ByLength = std::map<Ticks, std::deque<Waiting>, std::greater<>>;

/// A bar on its way into the plan.
struct Filled {
    Ticks length = 0;
    bool leftOver = false;
    std::vector<Ticks> cuts;  ///< the longest first
};

class Planner {
public:
    explicit Planner(const Problem& problem)
        : m_cut(ticks(problem.sawCut)), m_trims(2 * ticks(problem.trim)) {
        for (const double length : problem.stock)
            if (ticks(length) > m_trims) m_stock.insert(ticks(length));
        for (const LeftOver& l : problem.leftOvers)
            if (l.quantity > 0 && ticks(l.length) > m_trims)
                m_leftOvers[ticks(l.length)] += l.quantity;
        for (const Piece& p : problem.pieces)
            if (p.quantity > 0 && ticks(p.length) > 0)
                m_pieces[ticks(p.length)].push_back({p.marca, p.length, p.quantity});
    }

    Plan plan() {
        takeLong();
        if (!m_pieces.empty()) layOut();
        useLeftOvers();
        shrink();
        join();
        return finished();
    }

private:
    Ticks longestStock() const { return m_stock.empty() ? 0 : *m_stock.rbegin(); }

    /// Pieces that no bought bar holds go into the shortest left-over that does, the longest first;
    /// those that find none leave the plan.
    void takeLong() {
        while (!m_pieces.empty() && m_pieces.begin()->first > longestStock() - m_trims) {
            const auto [length, waiting] = *m_pieces.begin();
            m_pieces.erase(m_pieces.begin());
            for (Waiting w : waiting) {
                for (; w.quantity > 0; --w.quantity) {
                    const auto leftOver = m_leftOvers.lower_bound(length + m_trims);
                    if (leftOver == m_leftOvers.end()) break;
                    m_bars.push_back({leftOver->first, true, {length}});
                    if (--leftOver->second == 0) m_leftOvers.erase(leftOver);
                    m_laid[length].push_back({w.marca, w.length, 1});
                }
                if (w.quantity > 0) m_plan.tooLong.push_back({w.marca, w.length, w.quantity});
            }
        }
        m_guessed = !m_bars.empty();
    }

    void layOut() {
        Task task;
        for (const Ticks length : m_stock)
            task.sources.push_back({length, length - m_trims + m_cut, kUnlimited});
        for (const auto& [length, quantity] : m_leftOvers)
            task.sources.push_back({length, length - m_trims + m_cut, quantity});
        std::vector<Ticks> lengths;
        for (const auto& [length, waiting] : m_pieces) {
            int demand = 0;
            for (const Waiting& w : waiting) demand += w.quantity;
            task.items.push_back({length + m_cut, demand});
            lengths.push_back(length);
        }
        const Improved answer = improved(task, firstFit(task));
        m_least = answer.leastBought;
        for (const Use& use : answer.layout) {
            const Source& source = task.sources[use.pattern.source];
            Filled bar{source.length, source.leftOver(), {}};
            for (const auto& [item, n] : use.pattern.counts)
                bar.cuts.insert(bar.cuts.end(), static_cast<std::size_t>(n), lengths[item]);
            if (source.leftOver()) m_leftOvers[source.length] -= use.times;
            m_bars.insert(m_bars.end(), static_cast<std::size_t>(use.times), bar);
        }
        m_laid.merge(m_pieces);
    }

    /// What fits into a left-over that is still whole, or in its rest, does not stay in a bought
    /// bar: the longest first, of the emptiest bar that has it.
    void useLeftOvers() {
        std::size_t cuts = 0;
        for (const Filled& bar : m_bars) cuts += bar.cuts.size();
        for (const auto& [length, quantity] : m_leftOvers)
            m_bars.insert(m_bars.end(), std::min(cuts, static_cast<std::size_t>(quantity)),
                          {length, true, {}});
        std::vector<Filled*> bought;
        for (Filled& bar : m_bars)
            if (!bar.leftOver) bought.push_back(&bar);
        std::ranges::stable_sort(bought, std::less<>(), [&](Filled* bar) { return need(*bar); });
        std::map<Ticks, std::deque<Filled*>, std::greater<>> givers;
        for (Filled* const bar : bought)
            for (const Ticks cut : bar->cuts) givers[cut].push_back(bar);
        for (Filled& bar : m_bars)
            while (bar.leftOver) {
                const auto giver = givers.lower_bound(bar.length - need(bar) - m_cut);
                if (giver == givers.end()) break;
                std::vector<Ticks>& from = giver->second.front()->cuts;
                from.erase(std::ranges::find(from, giver->first));
                bar.cuts.push_back(giver->first);
                giver->second.pop_front();
                if (giver->second.empty()) givers.erase(giver);
            }
        std::erase_if(m_bars, [](const Filled& bar) { return bar.cuts.empty(); });
    }
    /// Shortest bar that gives these cuts.
    Ticks need(const Filled& bar) const {
        Ticks need = m_trims - m_cut;
        for (const Ticks cut : bar.cuts) need += cut + m_cut;
        return need;
    }
    /// The shortest stock for each bought bar.
    void shrink() {
        for (Filled& bar : m_bars)
            if (!bar.leftOver) bar.length = *m_stock.lower_bound(need(bar));
    }
    /// One bar for two where it costs no more: the emptiest with the fullest that it bears.
    void join() {
        for (const Ticks whole : m_stock)
            for (const Ticks first : m_stock)
                for (const Ticks second : m_stock)
                    if (first <= second && second < whole && first + second >= whole)
                        joinInto(whole, first, second);
        std::erase_if(m_bars, [](const Filled& bar) { return bar.cuts.empty(); });
    }
    void joinInto(Ticks whole, Ticks first, Ticks second) {
        const auto bought = [&](Ticks length) {
            std::vector<Filled*> bars;
            for (Filled& bar : m_bars)
                if (!bar.leftOver && bar.length == length && !bar.cuts.empty())
                    bars.push_back(&bar);
            std::ranges::stable_sort(bars, std::less<>(), [&](Filled* bar) { return need(*bar); });
            return bars;
        };
        const std::vector<Filled*> emptiest = bought(first);
        std::vector<Filled*> fullest = bought(second);
        for (Filled* const bar : emptiest) {
            if (bar->cuts.empty() || bar->length != first) continue;
            while (!fullest.empty() &&
                   (fullest.back() == bar || fullest.back()->cuts.empty() ||
                    fullest.back()->length != second ||
                    need(*bar) + need(*fullest.back()) - m_trims + m_cut > whole))
                fullest.pop_back();
            if (fullest.empty()) return;
            Filled& other = *fullest.back();
            other.cuts.insert(other.cuts.end(), bar->cuts.begin(), bar->cuts.end());
            other.length = whole;
            bar->cuts.clear();
        }
    }

    Plan finished() {
        for (Filled& bar : m_bars) std::ranges::sort(bar.cuts, std::greater<>());
        std::ranges::stable_sort(m_bars, [](const Filled& a, const Filled& b) {
            if (a.leftOver != b.leftOver) return a.leftOver;
            return a.length != b.length ? a.length > b.length : a.cuts > b.cuts;
        });
        Ticks bought = 0;
        for (const Filled& bar : m_bars) {
            if (!bar.leftOver) bought += bar.length;
            enter(bar);
        }
        m_plan.bought = static_cast<double>(bought) / kTicksPerMm;
        m_plan.leastBought = static_cast<double>(m_guessed ? 0 : m_least) / kTicksPerMm;
        m_plan.leastBars =
            longestStock() > 0
                ? static_cast<int>(std::ceil(m_plan.leastBought * kTicksPerMm /
                                                 static_cast<double>(longestStock()) -
                                             1e-9))
                : 0;
        m_plan.proved = bought == 0 || (!m_guessed && bought <= m_least);
        return std::move(m_plan);
    }
    /// Gives the cuts their marks; bars that are alike stand together.
    void enter(const Filled& filled) {
        Bar bar{static_cast<double>(filled.length) / kTicksPerMm, filled.leftOver, {}, 1};
        for (const Ticks cut : filled.cuts) {
            std::deque<Waiting>& waiting = m_laid[cut];
            bar.cuts.push_back({waiting.front().marca, waiting.front().length});
            m_plan.used += waiting.front().length;
            if (--waiting.front().quantity == 0) waiting.pop_front();
        }
        m_plan.laid += bar.length;
        if (!m_plan.bars.empty()) {
            Bar& last = m_plan.bars.back();
            if (last.length == bar.length && last.leftOver == bar.leftOver &&
                last.cuts == bar.cuts) {
                ++last.count;
                return;
            }
        }
        m_plan.bars.push_back(std::move(bar));
    }

    Ticks m_cut;
    Ticks m_trims;  ///< of both ends
    std::set<Ticks> m_stock;
    std::map<Ticks, int> m_leftOvers;
    ByLength m_pieces;  ///< still to be laid out
    ByLength m_laid;
    std::vector<Filled> m_bars;
    Ticks m_least = 0;
    bool m_guessed = false;  ///< some left-overs were taken before the solver saw them
    Plan m_plan;
};

}  // namespace

int Plan::boughtBars() const {
    int n = 0;
    for (const Bar& bar : bars)
        if (!bar.leftOver) n += bar.count;
    return n;
}

Plan solve(const Problem& problem) { return Planner(problem).plan(); }

}  // namespace zp::cutting
