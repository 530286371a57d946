// SPDX-License-Identifier: MIT
// Pairing numbers. A query and a row have a handful of numbers each, so pairing them by trying all
// costs next to nothing.
#include "perfis/catalogues/number_fit.h"

#include <algorithm>
#include <cmath>
#include <limits>
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

/// Pairs of numbers, as many as can be: those of the lowest key first, each number once. `keyOf`
/// says nothing of a pair that cannot be.
template <class KeyOf>
auto bestPairs(const SizeNumbers& typed, const SizeNumbers& has, const KeyOf& keyOf) {
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

/// A number as its own unit has it.
std::wstring inWords(const SizeNumber& n) {
    return n.unit == Unit::kInches ? n.typed + L'"' : texts::withComma(readingsOf(n).mm);
}

/// A mass is no dimension: it stands for a number that was typed as the mass is, "W 200x46", or
/// that it is.
bool isOtherMass(std::size_t typed, std::size_t typedCount, std::size_t has, const SizeNumbers& all,
                 double mass) {
    if (mass <= 0.0 || std::abs(all[has].value - mass) > kSameMm) return false;
    if (has == 1) return typed != 1 || typedCount != 2;
    return has > 1 && has + 1 == all.size();
}

}  // namespace

double inMm(const SizeNumber& n) { return n.unit == Unit::kMm ? n.value : n.value * kInch; }

bool isSame(const SizeNumber& a, const SizeNumber& b) { return relativeDifference(a, b) == 0.0; }

bool saysTheSame(const SizeNumbers& typed, const SizeNumbers& has) {
    /// The 38 of a W 310 x 38,7 is meant; the 3 of a 3,75 is another thickness.
    constexpr double kDecimals = 0.02;
    return typed.size() <= has.size() &&
           std::equal(typed.begin(), typed.end(), has.begin(),
                      [](const SizeNumber& a, const SizeNumber& b) {
                          return numberFit(a, b, false) == 0 ||
                                 relativeDifference(a, b) <= kDecimals;
                      });
}

std::optional<std::array<int, 2>> numbersFit(const SizeNumbers& typed, const SizeNumbers& has,
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

SizeDistance distanceOf(const SizeNumbers& typed, const SizeNumbers& has, double mass) {
    constexpr double kNothingAlike = 1.0;
    SizeDistance distance;
    distance.pairs.resize(typed.size());
    const auto pairs = bestPairs(typed, has, [&](std::size_t i, std::size_t j) {
        const double away = relativeDifference(typed[i], has[j]);
        const bool never =
            away >= kNothingAlike || (away > 0.0 && isOtherMass(i, typed.size(), j, has, mass));
        return never ? std::optional<double>() : away;
    });
    for (const auto& pair : pairs) {
        distance.pairs[pair.typed] = pair.has;
        distance.numbers += pair.key > 0.0 ? 1 : 0;
        distance.sum += pair.key;
    }
    const auto missing = static_cast<int>(typed.size() - pairs.size());
    distance.numbers += 2 * missing;
    distance.sum += missing;
    return distance;
}

std::wstring joined(const std::vector<std::wstring>& parts) {
    std::wstring text;
    for (const std::wstring& part : parts) text += (text.empty() ? L"" : L", ") + part;
    return text;
}

std::wstring differenceInWords(const SizeDistance& distance, const SizeNumbers& typed,
                               const SizeNumbers& has) {
    std::vector<std::wstring> other;
    std::vector<std::wstring> lacking;
    for (std::size_t i = 0; i < typed.size(); ++i) {
        const std::wstring number = typed[i].typed + (typed[i].unit == Unit::kInches ? L"\"" : L"");
        if (!distance.pairs[i])
            lacking.push_back(number);
        else if (relativeDifference(typed[i], has[*distance.pairs[i]]) > 0.0)
            other.push_back(inWords(has[*distance.pairs[i]]) + L" em vez de " + number);
    }
    std::wstring text = L"A bitola não existe";
    if (!other.empty()) text += L"; a mais próxima tem " + joined(other);
    if (!lacking.empty())
        text += (other.empty() ? L"; a mais próxima não tem " : L" e não tem ") + joined(lacking);
    return text + L'.';
}

}  // namespace perfis
