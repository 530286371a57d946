// SPDX-License-Identifier: MIT
// Search by words and numbers. A query and a row have a handful of numbers each, so pairing them by
// trying all costs next to nothing.
#include "perfis/catalogues/search.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <optional>
#include <tuple>

#include "texts/number.h"

namespace perfis {
namespace {

using Unit = SizeNumber::Unit;

constexpr double kInch = 25.4;
/// Sizes nearer than this are one, mm: lists have two decimals; those of inches are rounded to one.
constexpr double kSameMm = 0.006;
constexpr double kSameInches = 0.06;

constexpr int kNoFit = -1;

/// mm; the second reading of a number that may be inches.
struct Readings {
    double mm;
    double other;
};
Readings readingsOf(const SizeNumber& n) {
    if (n.unit == Unit::kInches) return {n.value * kInch, n.value * kInch};
    return {n.value, n.unit == Unit::kEither ? n.value * kInch : n.value};
}

/// By how much they differ in the reading that makes it least, over the larger; 0: the same.
double relativeDifference(const SizeNumber& typed, const SizeNumber& has) {
    const bool rounded = typed.unit != Unit::kMm || has.unit != Unit::kMm;
    const Readings a = readingsOf(typed);
    const Readings b = readingsOf(has);
    double least = std::numeric_limits<double>::max();
    for (const double x : {a.mm, a.other}) {
        for (const double y : {b.mm, b.other}) {
            const double difference = std::abs(x - y);
            if (difference <= (rounded ? kSameInches : kSameMm)) return 0.0;
            least = std::min(least, difference / std::max(std::abs(x), std::abs(y)));
        }
    }
    return least;
}

bool lacksOneDigit(std::wstring_view typed, std::wstring_view has) {
    if (typed.size() + 1 != has.size()) return false;
    const auto differs = std::ranges::mismatch(typed, has);
    return std::equal(differs.in1, typed.end(), differs.in2 + 1);
}

/// The better the smaller: the same number, the beginning of one, one with a digit more.
int numberFit(const SizeNumber& typed, const SizeNumber& has, bool repair) {
    if (relativeDifference(typed, has) == 0.0) return 0;
    // The sign of inches may be left out: "I 3" is the I 3", not the one of 304.8 mm.
    if (typed.unit == Unit::kMm && typed.value == has.value) return 0;
    if (typed.unit == Unit::kInches || typed.digits.empty() || has.digits.empty()) return kNoFit;
    if (has.digits.starts_with(typed.digits)) return 1;
    return repair && lacksOneDigit(typed.digits, has.digits) ? 2 : kNoFit;
}

/// Whole words before beginnings; "u" also finds the "2u" of a pair.
int wordFit(std::wstring_view typed, std::wstring_view has) {
    if (typed == has) return 0;
    if (has.starts_with(typed)) return 1;
    return has.starts_with(L'2') && has.substr(1).starts_with(typed) ? 2 : kNoFit;
}

int wordsFit(const std::vector<std::wstring>& typed, const std::vector<std::wstring>& has) {
    int sum = 0;
    for (const std::wstring& word : typed) {
        int best = kNoFit;
        for (const std::wstring& other : has) {
            const int fit = wordFit(word, other);
            if (fit != kNoFit && (best == kNoFit || fit < best)) best = fit;
        }
        if (best == kNoFit) return kNoFit;
        sum += best;
    }
    return sum;
}

using Numbers = std::vector<SizeNumber>;

/// Pairs of numbers, as many as can be: those of the lowest key first, each number once. `keyOf`
/// says nothing of a pair that cannot be.
template <class KeyOf>
auto bestPairs(const Numbers& typed, const Numbers& has, const KeyOf& keyOf) {
    struct Pair {
        typename decltype(keyOf(0, 0))::value_type key;
        std::size_t typed;
        std::size_t has;
    };
    std::vector<Pair> all;
    for (std::size_t i = 0; i < typed.size(); ++i)
        for (std::size_t j = 0; j < has.size(); ++j)
            if (const auto key = keyOf(i, j)) all.push_back({*key, i, j});
    std::ranges::stable_sort(all, {}, &Pair::key);
    std::vector<bool> typedTaken(typed.size());
    std::vector<bool> hasTaken(has.size());
    std::erase_if(all, [&](const Pair& pair) {
        if (typedTaken[pair.typed] || hasTaken[pair.has]) return true;
        typedTaken[pair.typed] = hasTaken[pair.has] = true;
        return false;
    });
    return all;
}

/// {sum of fits, sum of places apart}; nothing when a typed number fits none.
std::optional<std::array<int, 2>> numbersFit(const Numbers& typed, const Numbers& has,
                                             bool repair) {
    if (typed.size() > has.size()) return {};
    // What says more chooses first: of "1" and "15" only the latter needs the 15.
    using Key = std::tuple<int, std::ptrdiff_t, int>;
    const auto pairs = bestPairs(typed, has, [&](std::size_t i, std::size_t j) {
        const int fit = numberFit(typed[i], has[j], repair);
        const int apart = static_cast<int>(i > j ? i - j : j - i);
        return fit == kNoFit ? std::optional<Key>() : Key(fit, -std::ssize(typed[i].digits), apart);
    });
    if (pairs.size() < typed.size()) return {};
    std::array<int, 2> sums{};
    for (const auto& pair : pairs) {
        sums[0] += std::get<0>(pair.key);
        sums[1] += std::get<2>(pair.key);
    }
    return sums;
}

/// What a row has instead of what was typed.
struct Distance {
    int numbers = 0;  ///< that differ
    double sum = 0.0;
    std::wstring words;
    auto key() const { return std::pair(numbers, sum); }

    void add(double away, const std::wstring& has, const SizeNumber& typed) {
        ++numbers;
        sum += away;
        words += (words.empty() ? L"" : L", ") + has + L" em vez de " + typed.typed;
    }
};

Distance distanceOf(const Numbers& typed, const Numbers& has) {
    Distance distance;
    std::vector<bool> paired(typed.size());
    const auto pairs = bestPairs(typed, has, [&](std::size_t i, std::size_t j) {
        return std::optional(relativeDifference(typed[i], has[j]));
    });
    for (const auto& pair : pairs) {
        paired[pair.typed] = true;
        if (pair.key > 0.0)
            distance.add(pair.key, texts::withComma(readingsOf(has[pair.has]).mm),
                         typed[pair.typed]);
    }
    for (std::size_t i = 0; i < typed.size(); ++i)
        if (!paired[i]) distance.add(1.0, L"nada", typed[i]);
    return distance;
}

std::wstring differenceInWords(const Distance& distance, const std::vector<std::wstring>& typed,
                               const std::vector<std::wstring>& has) {
    std::wstring text;
    if (distance.numbers > 0) text = L"Não há; o mais próximo tem " + distance.words;
    std::wstring strange;
    for (const std::wstring& word : typed)
        if (wordsFit({word}, has) == kNoFit)
            strange += (strange.empty() ? L"\"" : L", \"") + word + L"\"";
    if (!strange.empty()) text += (text.empty() ? L"Não há " : L"; não há ") + strange;
    return text + L'.';
}

}  // namespace

void SizeSearch::add(const std::vector<std::wstring>& writings) {
    Row row;
    for (const std::wstring& writing : writings) {
        SizeText size = readSize(writing);
        row.words.insert(row.words.end(), size.words.begin(), size.words.end());
        if (!size.numbers.empty()) row.sizes.push_back(std::move(size.numbers));
    }
    m_rows.push_back(std::move(row));
}

/// `fit` gives the score of a row, nothing for one that does not fit.
template <class Fit>
SizeSearch::Found SizeSearch::ranked(const Fit& fit) const {
    std::vector<std::pair<Score, std::size_t>> fits;
    for (std::size_t i = 0; i < m_rows.size(); ++i)
        if (const std::optional<Score> score = fit(m_rows[i])) fits.emplace_back(*score, i);
    std::ranges::stable_sort(fits, {}, &std::pair<Score, std::size_t>::first);
    Found found;
    for (const auto& [score, row] : fits) {
        found.rows.push_back(row);
        if (score == fits.front().first) ++found.best;
    }
    return found;
}

SizeSearch::Found SizeSearch::find(std::wstring_view query) const {
    const SizeText typed = readSize(query);
    for (const bool repair : {false, true}) {
        Found found = ranked([&](const Row& row) -> std::optional<Score> {
            const int words = wordsFit(typed.words, row.words);
            if (words == kNoFit) return {};
            if (typed.numbers.empty()) return Score{words, 0, 0};
            std::optional<Score> best;
            for (const Numbers& size : row.sizes) {
                const auto sums = numbersFit(typed.numbers, size, repair);
                if (!sums) continue;
                const Score score{words, (*sums)[0], (*sums)[1]};
                if (!best || score < *best) best = score;
            }
            return best;
        });
        if (found.best > 0) return found;
    }
    return nearest(typed);
}

SizeSearch::Found SizeSearch::nearest(const SizeText& query) const {
    constexpr std::size_t kNearest = 3;
    struct Near {
        int words;
        Distance distance;
        std::size_t row;
    };
    std::vector<Near> all;
    for (std::size_t i = 0; i < m_rows.size(); ++i) {
        const int words = wordsFit(query.words, m_rows[i].words);
        Near near{words == kNoFit ? std::numeric_limits<int>::max() : words,
                  distanceOf(query.numbers, {}), i};
        for (const Numbers& size : m_rows[i].sizes) {
            Distance distance = distanceOf(query.numbers, size);
            if (distance.key() < near.distance.key()) near.distance = std::move(distance);
        }
        all.push_back(std::move(near));
    }
    Found found;
    if (all.empty()) {
        found.difference = L"O catálogo está vazio.";
        return found;
    }
    const std::size_t count = std::min(kNearest, all.size());
    std::ranges::partial_sort(
        all, all.begin() + static_cast<std::ptrdiff_t>(count), {},
        [](const Near& n) { return std::tuple(n.words, n.distance.key(), n.row); });
    for (std::size_t i = 0; i < count; ++i) found.rows.push_back(all[i].row);
    found.difference =
        differenceInWords(all.front().distance, query.words, m_rows[all.front().row].words);
    return found;
}

}  // namespace perfis
