// SPDX-License-Identifier: MIT
// Tab stops of list boxes and popups.
#include "prancheta/dcl/row_cells.h"

#include <algorithm>
#include <cmath>

#include "prancheta/base/text.h"
#include "prancheta/dcl/tile_value.h"

namespace prancheta::dcl {
namespace {

constexpr double kUsualStep = 8.0;

/// Stops in characters, as far as the text makes sense.
std::vector<double> stopsOf(std::string_view text) {
    std::vector<double> stops;
    for (text = trim(text); !text.empty(); text = trim(text)) {
        const std::size_t end = std::min(text.find_first_of(" \t\n"), text.size());
        double stop = 0;
        if (!parseNumber(text.substr(0, end), stop)) break;
        if (std::isfinite(stop) && stop > (stops.empty() ? 0 : stops.back())) stops.push_back(stop);
        text.remove_prefix(end);
    }
    return stops;
}

/// The first stop beyond `at`, both in characters.
double stopBeyond(const std::vector<double>& stops, double at) {
    const auto it = std::upper_bound(stops.begin(), stops.end(), at);
    return it != stops.end() ? *it : (std::floor(at / kUsualStep) + 1) * kUsualStep;
}

/// Cells cut again where blanks stand together: lists are aligned by the one or the other.
std::vector<Cell> wordsOf(const std::vector<Cell>& cells, const Metrics& metrics) {
    const auto width = [&](std::size_t characters, const std::wstring& text) {
        return metrics.textWidth ? metrics.textWidth(text.substr(0, characters))
                                 : static_cast<double>(characters) * metrics.characterWidth;
    };
    std::vector<Cell> words;
    for (const Cell& cell : cells) {
        for (std::size_t start = cell.text.find_first_not_of(L' '); start < cell.text.size();) {
            const std::size_t end = std::min(cell.text.find(L"  ", start), cell.text.size());
            words.push_back(
                {cell.text.substr(start, end - start), cell.x + width(start, cell.text), 0});
            start = cell.text.find_first_not_of(L' ', end);
        }
    }
    return words;
}

}  // namespace

std::vector<Cell> headingOver(const Tile& list, std::wstring_view row, std::wstring_view heading,
                              const Metrics& metrics) {
    std::vector<Cell> words = wordsOf(cellsOf(list, heading, metrics), metrics);
    const std::vector<Cell> columns = wordsOf(cellsOf(list, row, metrics), metrics);
    if (columns.size() < words.size()) return cellsOf(list, heading, metrics);
    for (std::size_t i = 0; i < words.size(); ++i) words[i].x = columns[i].x;
    return words;
}

std::vector<Cell> cellsOf(const Tile& list, std::wstring_view row, const Metrics& metrics) {
    const std::vector<double> stops = stopsOf(list.attribute("tabs"));
    const bool cut = flagAttribute(list, "tab_truncate");
    const double unit = metrics.characterWidth;
    std::vector<Cell> cells;
    double x = 0;
    for (std::size_t start = 0; start <= row.size();) {
        const std::size_t end = std::min(row.find(L'\t', start), row.size());
        Cell cell{std::wstring(row.substr(start, end - start)), x * unit, 0};
        const double width = metrics.textWidth ? metrics.textWidth(cell.text) / unit
                                               : static_cast<double>(cell.text.size());
        // A tab always moves on: two numbers side by side would read as one.
        const double next = stopBeyond(stops, cut ? x : x + width);
        if (cut && end < row.size()) cell.room = (next - x) * unit;
        cells.push_back(std::move(cell));
        x = next;
        start = end + 1;
    }
    return cells;
}

}  // namespace prancheta::dcl
