// SPDX-License-Identifier: MIT
// A material list as it is printed.
#include "zp/matlist/listing.h"

#include <algorithm>
#include <numeric>

#include "protocol/order.h"
#include "texts/letters.h"
#include "texts/number.h"

namespace zp::matlist {
namespace {

double roundedTo(double value, int decimals) {
    return texts::toReal(texts::rounded(value, decimals), texts::DecimalSign::kPoint);
}

/// A column's numbers, rounded to its decimals.
void roundNumbers(Linha& row) {
    for (const Column& c : kColumnTable)
        if (const auto* field = std::get_if<double Linha::*>(&c.field))
            row.*(*field) = roundedTo(row.*(*field), c.shown.decimals);
}

int decimalsOf(const Column& column, const std::vector<Linha>& rows) {
    if (column.decimals == Decimals::Fixed) return column.shown.decimals;
    int needed = 0;
    for (const Linha& row : rows)
        while (needed < column.shown.decimals &&
               roundedTo(std::get<double>(cellOf(row, column)), needed) !=
                   std::get<double>(cellOf(row, column)))
            ++needed;
    return needed;
}

/// The word of the totals stands in the first column.
bool canLead(const Column& column) { return !column.shown.summed; }

const Column* columnOf(std::wstring_view key) {
    const auto found = std::ranges::find_if(
        kColumnTable, [&](const Column& c) { return texts::equalIgnoringCase(key, c.shown.key); });
    return found != kColumnTable.end() ? &*found : nullptr;
}

std::wstring allKeys() {
    Columns all;
    for (const Column& c : kColumnTable) all.push_back(&c);
    return keysOf(all);
}

}  // namespace

std::wstring wordsOf(double value, int decimals) {
    std::wstring text = texts::rounded(value, decimals);
    std::ranges::replace(text, L'.', L',');
    return text;
}

Columns usualColumns() {
    Columns usual;
    for (const Column& c : kColumnTable)
        if (c.shown.usual) usual.push_back(&c);
    return usual;
}

Columns columnsOf(const Header& header) {
    Columns known;
    for (const std::wstring& key : texts::trimmedParts(header.columns, L','))
        if (const Column* const column = columnOf(key)) known.push_back(column);
    return known.empty() || !canLead(*known.front()) ? usualColumns() : known;
}

Choice chooseColumns(std::wstring_view keys) {
    Choice choice;
    std::wstring unknown;
    for (const std::wstring& key : texts::trimmedParts(keys, L',')) {
        const Column* const column = columnOf(key);
        if (column == nullptr)
            unknown += (unknown.empty() ? L"" : L", ") + (key.empty() ? L"(vazia)" : key);
        else if (std::ranges::find(choice.columns, column) != choice.columns.end())
            return {{}, L"A coluna " + key + L" está repetida; informe cada coluna uma vez."};
        else
            choice.columns.push_back(column);
    }
    if (!unknown.empty())
        return {{}, L"Colunas desconhecidas: " + unknown + L". As chaves são " + allKeys() + L"."};
    if (const Column& first = *choice.columns.front(); !canLead(first))
        return {{},
                L"A primeira coluna recebe a palavra TOTAL e não pode ser " +
                    std::wstring(first.shown.key) + L"; comece por outra."};
    return choice;
}

std::wstring keysOf(const Columns& columns) {
    std::wstring keys;
    for (const Column* column : columns)
        keys += (keys.empty() ? L"" : L", ") + std::wstring(column->shown.key);
    return keys;
}

bool marcaBefore(std::wstring_view a, std::wstring_view b) {
    return protocol::naturalCompare(texts::lower(a), texts::lower(b)) < 0;
}

Linha counted(Linha row) {
    if (!erased(row)) return row;
    row.quantidade = 0;
    row.pesoTotal = 0.0;
    row.areaPintura = 0.0;
    return row;
}

std::vector<Linha> printedRows(std::vector<Linha> rows) {
    for (Linha& row : rows) {
        row = counted(row);
        roundNumbers(row);
        row.pesoTotal = row.pesoUnitario * row.quantidade;
        roundNumbers(row);  // the product as it reads: 3 times 0.1 is 0.3
    }
    std::ranges::stable_sort(rows, marcaBefore, &Linha::marca);
    return rows;
}

Listing listingOf(const MaterialList& list) {
    Listing listing = listingOf(columnsOf(list.header), rows(list.id));
    if (materialLists(*list.id.database()).size() > 1)
        listing.title += L' ' + std::to_wstring(list.number);
    return listing;
}

Listing listingOf(Columns columns, std::vector<Linha> rows) {
    Listing listing{L"LISTA DE MATERIAL", std::move(columns), printedRows(std::move(rows)), {}};
    for (const Column* column : listing.columns)
        listing.decimals.push_back(decimalsOf(*column, listing.rows));
    return listing;
}

double totalOf(const Listing& listing, std::size_t column) {
    const Column& c = *listing.columns[column];
    const double sum = std::accumulate(
        listing.rows.begin(), listing.rows.end(), 0.0,
        [&](double s, const Linha& l) { return s + std::get<double>(cellOf(l, c)); });
    return roundedTo(sum, c.shown.decimals);
}

std::vector<std::vector<std::wstring>> linesOf(const Listing& listing) {
    std::vector<std::vector<std::wstring>> lines(listing.rows.size() + 2);
    for (std::size_t i = 0; i < listing.columns.size(); ++i) {
        const Column& c = *listing.columns[i];
        lines.front().push_back(headingOf(c));
        for (std::size_t n = 0; n < listing.rows.size(); ++n) {
            const Cell cell = cellOf(listing.rows[n], c);
            const auto* text = std::get_if<std::wstring>(&cell);
            lines[n + 1].push_back(
                text != nullptr ? *text : wordsOf(std::get<double>(cell), listing.decimals[i]));
        }
        lines.back().push_back(i == 0           ? kTotal
                               : c.shown.summed ? wordsOf(totalOf(listing, i), listing.decimals[i])
                                                : std::wstring());
    }
    return lines;
}

}  // namespace zp::matlist
