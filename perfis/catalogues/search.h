// SPDX-License-Identifier: MIT
// Finding a size by what a draughtsman types of it.
#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "perfis/catalogues/size_text.h"
#include "perfis/catalogues/trade_words.h"

namespace perfis {

/// True when a query has no number and no word that tells profiles apart.
bool asksNothing(std::wstring_view query);

/// The rows of one catalogue or of several.
class SizeSearch {
public:
    /// The next row, in all the ways in which it may be written, "caixa 200x150x3" for the outside
    /// of a box; its linear mass, 0 for none.
    void add(const std::vector<std::wstring>& writings, double mass = 0.0);

    struct Found {
        /// The best fit first, then in the order of the catalogue. Where nothing fits at most three
        /// that come near: those with all words that differ in the fewest numbers (one that a row
        /// lacks counts twice), then by the smallest sum of relative differences.
        std::vector<std::size_t> rows;
        std::size_t best = 0;     ///< so many of them fit as well as the first; 0: nothing fits
        std::wstring difference;  ///< why nothing fits, for the user
        /// What was typed is what the first row says, number for number and in its order, but for
        /// the last decimals: nobody would mean another one.
        bool meant = false;
    };
    /// Rows with all words and numbers of the query, in any order. A number fits when it begins
    /// like that of the row; where no row fits so, one digit may be missing anywhere. A word may
    /// be one of the trade's. The form of a built-up is a word only beside the name of a pair, or
    /// where there is nothing else to find. All rows for a query that asks nothing. Linear in the
    /// rows.
    Found find(std::wstring_view query) const;

private:
    struct Row {
        std::vector<std::wstring> words;
        std::vector<std::wstring> forms;                 ///< what stands behind the name of a pair
        std::vector<std::vector<SizeNumber>> sizes;      ///< one for each writing that has numbers
        std::optional<std::vector<SizeNumber>> outside;  ///< of a box, told by "caixa" before it
        double mass = 0.0;
    };
    /// A word of the query, with what the trade means by it.
    struct Sought {
        std::wstring word;
        std::vector<NamedProfile> profiles;
        bool whole = false;  ///< not the beginning of another word
    };
    struct Query {
        std::vector<Sought> words;
        std::vector<SizeNumber> numbers;
        bool forms = false;    ///< forms of built-ups count
        bool outside = false;  ///< numbers may be those of a box's outside
    };
    enum class Forms { kBesidePairs, kAlways };
    using Score = std::array<int, 3>;  ///< of words, numbers, their order; the lower the better

    Query queryFrom(const SizeText& typed, Forms forms) const;
    static int wordFit(const Sought& sought, bool forms, const Row& row);
    static int wordsFit(const Query& query, const Row& row);
    static std::vector<const std::vector<SizeNumber>*> sizesFor(const Query& query, const Row& row);
    static std::optional<Score> score(const Query& query, const Row& row, bool repair);
    bool isKnown(const std::wstring& word, Forms forms) const;

    Found find(SizeText typed, Forms forms) const;
    Found fitting(const Query& query) const;
    Found nearest(const Query& query) const;
    Found without(std::wstring words, SizeText rest, Forms forms) const;

    std::vector<Row> m_rows;
    std::set<std::wstring> m_words;
    std::set<std::wstring> m_forms;
    bool m_onlyPairs = true;
};

}  // namespace perfis
