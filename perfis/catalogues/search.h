// SPDX-License-Identifier: MIT
// Finding a size by what a draughtsman types of it.
#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "perfis/catalogues/size_text.h"

namespace perfis {

/// The rows of one catalogue or of several.
class SizeSearch {
public:
    /// The next row, in all the ways in which it may be written.
    void add(const std::vector<std::wstring>& writings);

    struct Found {
        /// The best fit first, then in the order of the catalogue. Where nothing fits the three
        /// nearest ones: the fewest numbers that differ, then the smallest sum of their relative
        /// differences.
        std::vector<std::size_t> rows;
        std::size_t best = 0;     ///< so many of them fit as well as the first; 0: nothing fits
        std::wstring difference;  ///< what the nearest row has instead, for the user
    };
    /// Rows with all words and numbers of the query, in any order. A number fits when it begins
    /// like that of the row; where no row fits so, one digit may be missing anywhere. All rows
    /// for an empty query. Linear in the rows.
    Found find(std::wstring_view query) const;

private:
    struct Row {
        std::vector<std::wstring> words;
        std::vector<std::vector<SizeNumber>> sizes;  ///< one for each writing that has numbers
    };
    using Score = std::array<int, 3>;  ///< of words, numbers, their order; the lower the better

    template <class Fit>
    Found ranked(const Fit& fit) const;
    Found nearest(const SizeText& query) const;

    std::vector<Row> m_rows;
};

}  // namespace perfis
