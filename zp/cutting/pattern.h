// SPDX-License-Identifier: MIT
// What the solver works on: items, bars that they come from, and ways to lay them out.
#pragma once

#include <cstddef>
#include <cstdint>
#include <limits>
#include <utility>
#include <vector>

namespace zp::cutting {

/// Lengths as whole numbers of 1e-6 mm, so that what fits exactly fits.
using Ticks = std::int64_t;

/// Pieces of one length.
struct Item {
    Ticks width = 0;  ///< length and one saw cut
    int demand = 0;
};

inline constexpr int kUnlimited = std::numeric_limits<int>::max();

/// Bars of one length.
struct Source {
    Ticks length = 0;
    Ticks room = 0;  ///< for widths: length without trims, and one saw cut
    int limit = kUnlimited;

    bool leftOver() const { return limit != kUnlimited; }
};

struct Task {
    std::vector<Item> items;  ///< the longest first; each fits a source without limit
    std::vector<Source> sources;
};

/// Items and how many of each, in the order of the items.
using Counts = std::vector<std::pair<std::size_t, int>>;

/// How one bar is cut.
struct Pattern {
    std::size_t source = 0;
    Counts counts;
};

struct Use {
    Pattern pattern;
    int times = 0;
};
using Layout = std::vector<Use>;

struct Score {
    Ticks bought = 0;
    std::int64_t bars = 0;

    auto operator<=>(const Score&) const = default;
};
Score scoreOf(const Task& task, const Layout& layout);

/// First fit, the longest item first. Left-overs are opened before bars are bought, the shortest
/// first; a bought bar is the longest one until all is laid, then the shortest that holds its cuts.
/// The best of taking each stock length as the longest. O(items^2) each. Not empty.
Layout firstFit(const Task& task);

/// The most valuable cuts of one bar.
struct Filling {
    double value = 0.0;
    double limit = 0.0;  ///< no filling is worth more
    Counts counts;
};
/// Bounded knapsack, by branch and bound over the items in the order of value per width, with the
/// fractional knapsack as bound. Looks at `nodes` nodes at most and takes them off; `limit` tells
/// what it is worth then.
Filling bestFilling(const std::vector<Item>& items, const std::vector<double>& values, Ticks room,
                    std::int64_t& nodes);

/// All fillings worth at least so much to which nothing can be added. False, and not all of them,
/// when there are more than `most` or the nodes run out.
bool allFillings(const std::vector<Item>& items, const std::vector<double>& values, Ticks room,
                 double least, std::size_t most, std::int64_t& nodes, std::vector<Counts>& found);

struct Improved {
    Layout layout;
    Ticks leastBought = 0;  ///< no layout buys less
};
/// A layout at least as good as `start`, with all that the task asks for; by column generation
/// where the solver's library is there and the lengths are not too many, else `start` itself.
Improved improved(const Task& task, const Layout& start);

/// Least bought length as the sum of widths tells it, rounded up to what stock lengths can give.
Ticks leastByVolume(const Task& task);
/// Rounded up to a whole number of what all stock lengths are multiples of.
Ticks roundedUp(const Task& task, double least);

}  // namespace zp::cutting
