// SPDX-License-Identifier: MIT
// The solver's library. Cutting stock by column generation (Gilmore and Gomory, Operations Research
// 9, 1961, and 11, 1963): a linear master problem over patterns, new patterns by a knapsack with
// the master's prices, then whole numbers by rounding and by branch and bound over the patterns
// found. Chosen since the linear bound is nearly always within one bar of the best plan.
#include <CbcHeuristic.hpp>
#include <CbcHeuristicDiveCoefficient.hpp>
#include <CbcModel.hpp>
#include <ClpSimplex.hpp>
#include <OsiClpSolverInterface.hpp>
#include <algorithm>
#include <cmath>
#include <numeric>

#include "zp/cutting/pattern.h"

namespace zp::cutting {
namespace {

/// Pieces wanted of each item.
std::vector<int> demands(const Task& task) {
    std::vector<int> all(task.items.size());
    std::ranges::transform(task.items, all.begin(), &Item::demand);
    return all;
}

/// Bars that there are of each source.
std::vector<int> limits(const Task& task) {
    std::vector<int> all(task.sources.size());
    std::ranges::transform(task.sources, all.begin(), &Source::limit);
    return all;
}

// Work is counted in nodes, not in seconds: equal tasks have equal answers.
constexpr std::int64_t kNodesOfAFilling = 500'000;
constexpr std::int64_t kNodesOfAll = 100'000'000;
constexpr double kWorkOfBranching = 1e7;  ///< nodes times items times patterns
/// Patterns up to which all that can matter are taken in.
constexpr std::size_t kMostPatterns = 3000;
/// By which a pattern must pay to be taken in, over the cost of the longest bar.
constexpr double kPays = 1e-6;

class Master {
public:
    Master(const Task& task, const Layout& start) : m_task(task) {
        Ticks unit = 0;
        Ticks shortest = kNone;
        std::size_t lengths = 0;
        for (const Source& s : task.sources) {
            if (s.leftOver()) continue;
            unit = std::gcd(unit, s.length);
            shortest = std::min(shortest, s.length);
            m_longest = std::max(m_longest, s.length);
            ++lengths;
        }
        const Score score = scoreOf(task, start);
        m_best = start;
        m_bestScore = score;
        // All bars together cost less than a twentieth of the least difference in length.
        const double most = static_cast<double>(score.bought) / static_cast<double>(shortest) + 1.0;
        if (lengths > 1)
            m_perBar = 0.05 * static_cast<double>(unit) / static_cast<double>(m_longest) / most;
        m_barsWeigh = m_perBar * most;
        prepare(start);
    }

    /// Generates patterns until none pays for the demands set. Tightens the bound when these are
    /// all of the task's.
    void generate(bool whole) {
        while (m_nodes > 0) {
            m_lp.primal();
            m_nodes -= static_cast<std::int64_t>(m_task.items.size() * m_patterns.size() / 20);
            if (!addPaying(whole)) return;
        }
        m_lp.primal();
    }
    /// Takes the whole part of the linear answer, generates again for what is left, and so on.
    void roundDown() {
        Layout layout;
        std::vector<int> rest = demands(m_task);
        std::vector<int> left = limits(m_task);
        while (std::ranges::any_of(rest, [](int n) { return n > 0; })) {
            const std::size_t before = layout.size();
            const std::vector<double> x(m_lp.primalColumnSolution(),
                                        m_lp.primalColumnSolution() + m_patterns.size());
            for (std::size_t p = 0; p < x.size(); ++p)
                use(p, static_cast<int>(x[p] + 1e-6), rest, left, layout);
            if (layout.size() == before) {
                std::vector<std::size_t> order(x.size());
                std::iota(order.begin(), order.end(), std::size_t{0});
                std::ranges::stable_sort(order,
                                         [&](std::size_t a, std::size_t b) { return x[a] > x[b]; });
                for (const std::size_t p : order)
                    if (use(p, 1, rest, left, layout)) break;
            }
            demand(rest, left);
            generate(false);
        }
        take(std::move(layout));
    }
    /// Branch and bound over the patterns; over all that a better plan can have, when these are not
    /// too many.
    void branch() {
        const bool all = addAll();
        OsiClpSolverInterface solver;
        solver.messageHandler()->setLogLevel(0);
        std::vector<int> rest = demands(m_task);
        std::vector<int> left = limits(m_task);
        demand(rest, left);
        solver.loadProblem(*m_lp.matrix(), m_lp.getColLower(), m_lp.getColUpper(),
                           m_lp.getObjCoefficients(), m_lp.getRowLower(), m_lp.getRowUpper());
        for (int p = 0; p < solver.getNumCols(); ++p) solver.setInteger(p);
        CbcModel model(solver);
        model.setLogLevel(0);
        model.messageHandler()->setLogLevel(0);
        CbcRounding rounding(model);
        model.addHeuristic(&rounding);
        CbcHeuristicDiveCoefficient dive(model);
        model.addHeuristic(&dive);
        model.setCutoff(costOf(m_bestScore) - 0.99 * leastStep());
        model.setDblParam(CbcModel::CbcCutoffIncrement, std::min(1e-5, 0.001 * leastStep()));
        model.setMaximumNodes(static_cast<int>(
            std::clamp(kWorkOfBranching / static_cast<double>(m_task.items.size()) /
                           static_cast<double>(m_patterns.size()),
                       5.0, 5000.0)));
        model.branchAndBound();
        // Nothing more to look at: what was found, or was there before, is the best.
        m_proved = all && (model.isProvenOptimal() || model.isProvenInfeasible());
        const double* const x = model.bestSolution();
        if (x == nullptr) return;
        Layout layout;
        for (std::size_t p = 0; p < m_patterns.size(); ++p)
            use(p, static_cast<int>(std::lround(x[p])), rest, left, layout);
        if (std::ranges::all_of(rest, [](int n) { return n == 0; })) take(std::move(layout));
    }

    /// Nothing is left to be gained.
    bool finished() const {
        const auto bars = static_cast<std::int64_t>(
            std::ceil(static_cast<double>(least()) / static_cast<double>(m_longest) - 1e-9));
        return m_bestScore <= Score{least(), bars};
    }
    Ticks least() const {
        if (m_proved) return m_bestScore.bought;
        const double length = (m_bound - m_barsWeigh) * static_cast<double>(m_longest);
        return std::max(leastByVolume(m_task), roundedUp(m_task, length));
    }
    const Layout& best() const { return m_best; }

private:
    static constexpr Ticks kNone = std::numeric_limits<Ticks>::max();

    double costOf(const Source& source) const {
        if (source.leftOver()) return 0.0;
        return static_cast<double>(source.length) / static_cast<double>(m_longest) + m_perBar;
    }
    double costOf(const Score& score) const {
        return static_cast<double>(score.bought) / static_cast<double>(m_longest) +
               m_perBar * static_cast<double>(score.bars);
    }
    /// By which two costs differ at least.
    double leastStep() const { return m_perBar > 0.0 ? m_perBar : 1.0; }

    /// Rows: demands of items, then limits of left-overs. Columns: those of `start`, and bars with
    /// pieces of one length, so that any demand can be met.
    void prepare(const Layout& start) {
        m_lp.setLogLevel(0);
        m_lp.setDualTolerance(1e-9);
        const int items = static_cast<int>(m_task.items.size());
        m_lp.resize(items + static_cast<int>(m_task.sources.size()), 0);
        std::vector<int> rest = demands(m_task);
        std::vector<int> left = limits(m_task);
        demand(rest, left);
        for (const Use& u : start) add(u.pattern);
        for (std::size_t s = 0; s < m_task.sources.size(); ++s)
            for (std::size_t i = 0; i < m_task.items.size(); ++i) {
                const Item& item = m_task.items[i];
                const Ticks most = m_task.sources[s].room / item.width;
                if (!m_task.sources[s].leftOver() && most > 0)
                    add({s, {{i, static_cast<int>(std::min<Ticks>(most, item.demand))}}});
            }
    }
    void demand(const std::vector<int>& rest, const std::vector<int>& left) {
        for (std::size_t i = 0; i < rest.size(); ++i)
            m_lp.setRowBounds(static_cast<int>(i), rest[i], COIN_DBL_MAX);
        for (std::size_t s = 0; s < left.size(); ++s)
            m_lp.setRowBounds(static_cast<int>(rest.size() + s), -COIN_DBL_MAX,
                              left[s] == kUnlimited ? COIN_DBL_MAX : left[s]);
        m_demand = rest;
    }
    void add(const Pattern& pattern) {
        std::vector<int> rows;
        std::vector<double> counts;
        for (const auto& [item, n] : pattern.counts) {
            rows.push_back(static_cast<int>(item));
            counts.push_back(n);
        }
        rows.push_back(static_cast<int>(m_task.items.size() + pattern.source));
        counts.push_back(1.0);
        m_lp.addColumn(static_cast<int>(rows.size()), rows.data(), counts.data(), 0.0, COIN_DBL_MAX,
                       costOf(m_task.sources[pattern.source]));
        m_patterns.push_back(pattern);
    }

    /// The best pattern of every source by the master's prices, if it pays. Farley's bound
    /// (Operations Research 38, 1990): prices that are scaled until no pattern pays are a bound,
    /// whatever the master's own answer.
    bool addPaying(bool whole) {
        const double* const price = m_lp.getRowPrice();
        const std::size_t n = m_task.items.size();
        std::vector<double> values(price, price + n);
        for (double& v : values) v = std::max(0.0, v);
        std::vector<Item> items = m_task.items;
        for (std::size_t i = 0; i < n; ++i) items[i].demand = m_demand[i];
        double scale = 1.0;
        double value = std::inner_product(values.begin(), values.end(), m_demand.begin(), 0.0);
        bool paying = false;
        std::vector<double> worth;
        for (std::size_t s = 0; s < m_task.sources.size(); ++s) {
            const Source& source = m_task.sources[s];
            std::int64_t nodes = std::min(m_nodes, kNodesOfAFilling);
            m_nodes -= nodes;
            const Filling filling = bestFilling(items, values, source.room, nodes);
            m_nodes += std::max<std::int64_t>(0, nodes);
            const double cost = costOf(source);
            if (filling.value > cost - price[n + s] + kPays) {
                add({s, filling.counts});
                paying = true;
            }
            worth.push_back(source.leftOver() ? filling.limit : cost);
            if (source.leftOver())
                value -= filling.limit * source.limit;
            else if (filling.limit > cost)
                scale = std::min(scale, cost / filling.limit);
        }
        if (whole && scale * value > m_bound) {
            m_bound = scale * value;
            for (double& v : values) v *= scale;
            m_prices = values;
            for (std::size_t s = 0; s < worth.size(); ++s)
                if (m_task.sources[s].leftOver()) worth[s] *= scale;
            m_worth = worth;
        }
        return paying;
    }
    /// The patterns that a better plan can have: what one costs beyond its prices comes on top of
    /// the bound. False when they are too many.
    bool addAll() {
        if (m_prices.empty()) return false;
        const double gap = costOf(m_bestScore) - 0.99 * leastStep() - m_bound + kPays;
        std::vector<Pattern> found;
        for (std::size_t s = 0; s < m_task.sources.size(); ++s) {
            std::vector<Counts> fillings;
            std::int64_t nodes = 10 * kNodesOfAFilling;
            if (!allFillings(m_task.items, m_prices, m_task.sources[s].room, m_worth[s] - gap,
                             kMostPatterns - found.size(), nodes, fillings))
                return false;
            for (Counts& counts : fillings) found.push_back({s, std::move(counts)});
            if (found.size() > kMostPatterns) return false;
        }
        for (const Pattern& pattern : found) add(pattern);
        return true;
    }

    /// Lays a pattern out up to so many times, as far as something is wanted of it; what is too
    /// much in it gives room to others. False when it was of no use.
    bool use(std::size_t p, int times, std::vector<int>& rest, std::vector<int>& left,
             Layout& layout) const {
        const Pattern& pattern = m_patterns[p];
        int& limit = left[pattern.source];
        bool used = false;
        for (times = std::min(times, limit); times > 0;) {
            Use u{{pattern.source, wanted(pattern, rest)}, times};
            if (u.pattern.counts.empty()) break;
            for (const auto& [item, n] : u.pattern.counts)
                u.times = std::min(u.times, rest[item] / n);
            for (const auto& [item, n] : u.pattern.counts) rest[item] -= n * u.times;
            if (limit != kUnlimited) limit -= u.times;
            times -= u.times;
            layout.push_back(std::move(u));
            used = true;
        }
        return used;
    }
    Counts wanted(const Pattern& pattern, const std::vector<int>& rest) const {
        std::vector<int> taken(rest.size(), 0);
        Ticks room = m_task.sources[pattern.source].room;
        const auto put = [&](std::size_t item, Ticks most) {
            const auto n = static_cast<int>(std::min<Ticks>(most, rest[item] - taken[item]));
            taken[item] += n;
            room -= n * m_task.items[item].width;
        };
        bool trimmed = false;
        for (const auto& [item, n] : pattern.counts) {
            put(item, n);
            trimmed = trimmed || taken[item] < n;
        }
        if (trimmed && std::ranges::any_of(taken, [](int n) { return n > 0; }))
            for (std::size_t i = 0; i < rest.size(); ++i) put(i, room / m_task.items[i].width);
        Counts counts;
        for (std::size_t i = 0; i < rest.size(); ++i)
            if (taken[i] > 0) counts.emplace_back(i, taken[i]);
        return counts;
    }
    void take(Layout layout) {
        const Score score = scoreOf(m_task, layout);
        if (score >= m_bestScore) return;
        m_best = std::move(layout);
        m_bestScore = score;
    }

    const Task& m_task;
    ClpSimplex m_lp;
    std::vector<Pattern> m_patterns;  ///< one a column
    std::vector<int> m_demand;        ///< of the rows
    Ticks m_longest = 0;
    double m_perBar = 0.0;     ///< cost of a bar besides its length
    double m_barsWeigh = 0.0;  ///< of all bars of a plan that is as good as the first
    double m_bound = 0.0;      ///< of the cost
    /// Prices of the items that the bound is made of, and what they make a bar of each source worth
    /// at most.
    std::vector<double> m_prices;
    std::vector<double> m_worth;
    bool m_proved = false;  ///< nothing is better, whatever the bound
    std::int64_t m_nodes = kNodesOfAll;
    Layout m_best;
    Score m_bestScore;
};

}  // namespace

}  // namespace zp::cutting

extern "C" void zpCuttingImproved(const zp::cutting::Task& task, const zp::cutting::Layout& start,
                                  zp::cutting::Improved& answer) {
    try {
        zp::cutting::Master master(task, start);
        if (!master.finished()) {
            master.generate(true);
            if (!master.finished()) master.roundDown();
            if (!master.finished()) master.branch();
        }
        answer = {master.best(), master.least()};
    } catch (...) {
        return;  // out of memory, or numbers that the libraries refuse: what was there stays
    }
}
