// SPDX-License-Identifier: MIT
// From the bytes of a table to its rows.
#include "perfis/pecas/table.h"

#include <algorithm>
#include <array>

#include "texts/encoding.h"
#include "texts/letters.h"
#include "texts/number.h"

namespace perfis {
namespace {

constexpr const wchar_t* kUsualColumns[] = {L"peca",  L"L", L"n", L"marca",
                                            L"vista", L"x", L"y", L"angulo"};
/// Beside the keys of a line.
constexpr std::wstring_view kOwnColumns[] = {L"peca",   L"texto", L"x",    L"y",
                                             L"angulo", L"cotas", L"lista"};
/// Cells that are numbers whatever the file writes them with.
constexpr std::wstring_view kNumberColumns[] = {L"l",         L"n",
                                                L"vista",     L"x",
                                                L"y",         L"angulo",
                                                L"giro",      L"corte_inicio",
                                                L"corte_fim", L"fundo_inicio",
                                                L"fundo_fim", L"a",
                                                L"av"};

template <class List>
bool holds(const List& list, std::wstring_view text) {
    return std::ranges::find(list, text) != std::ranges::end(list);
}

bool isColumn(const std::wstring& name) { return holds(kOwnColumns, name) || isKey(name); }

std::wstring decoded(std::string_view bytes) {
    if (bytes.starts_with("\xFF\xFE")) return texts::decodeUtf16(bytes.substr(2), false);
    if (bytes.starts_with("\xFE\xFF")) return texts::decodeUtf16(bytes.substr(2), true);
    return texts::decodeText(bytes);
}

struct Record {
    int line = 0;
    std::vector<std::wstring> cells;
    bool empty() const {
        return std::ranges::all_of(cells, [](const std::wstring& cell) { return cell.empty(); });
    }
};

std::wstring_view firstLine(std::wstring_view text) {
    return text.substr(0, text.find_first_of(L"\r\n"));
}

/// None for a file with one text a line.
std::optional<wchar_t> separatorOf(std::wstring_view line) {
    for (const wchar_t sign : {L';', L'\t'})
        if (line.find(sign) != line.npos) return sign;
    const std::wstring name = plainWord(texts::trimmed(line.substr(0, line.find(L','))));
    if (line.find(L',') != line.npos && isColumn(name)) return L',';
    return {};
}

/// Cells between separators; one that begins with a quotation mark ends with it, two inside it are
/// one. Without separator each line is a cell.
class Records {
public:
    Records(std::wstring_view text, std::optional<wchar_t> separator)
        : m_text(text), m_separator(separator) {}

    std::vector<Record> read() {
        std::vector<Record> all;
        while (m_at < m_text.size()) {
            Record record{m_line, {}};
            do {
                record.cells.push_back(texts::trimmed(cell()));
            } while (takeSeparator());
            takeLineEnd();
            if (!record.empty()) all.push_back(std::move(record));
        }
        return all;
    }

private:
    bool atEnd() const {
        return m_at >= m_text.size() || m_text[m_at] == L'\n' || m_text[m_at] == L'\r';
    }
    bool atSeparator() const { return m_separator && m_text[m_at] == *m_separator; }
    std::wstring cell() {
        if (!atEnd() && m_text[m_at] == L'"') return quotedCell();
        std::wstring text;
        while (!atEnd() && !atSeparator()) text += m_text[m_at++];
        return text;
    }
    std::wstring quotedCell() {
        std::wstring text;
        for (++m_at; m_at < m_text.size(); ++m_at) {
            if (m_text[m_at] == L'\n') ++m_line;
            if (m_text[m_at] == L'"') {
                if (m_at + 1 >= m_text.size() || m_text[m_at + 1] != L'"') break;
                ++m_at;
            }
            text += m_text[m_at];
        }
        ++m_at;
        while (!atEnd() && !atSeparator()) text += m_text[m_at++];
        return text;
    }
    bool takeSeparator() {
        if (atEnd() || !atSeparator()) return false;
        ++m_at;
        return true;
    }
    void takeLineEnd() {
        if (m_at < m_text.size() && m_text[m_at] == L'\r') ++m_at;
        if (m_at < m_text.size() && m_text[m_at] == L'\n') ++m_at;
        ++m_line;
    }

    std::wstring_view m_text;
    std::optional<wchar_t> m_separator;
    std::size_t m_at = 0;
    int m_line = 1;
};

/// How the numbers of a file are written.
struct NumberStyle {
    bool decimalComma = false;
    bool commaGroups = false;  ///< "1,234.5"

    void learn(std::wstring_view cell) {
        const std::size_t comma = cell.find(L',');
        if (comma == cell.npos) return;
        const std::size_t point = cell.find(L'.', comma);
        (point != cell.npos ? commaGroups : decimalComma) = true;
    }
    std::optional<double> read(std::wstring cell) const {
        if (decimalComma && isGrouped(cell, L'.')) std::erase(cell, L'.');
        if (commaGroups && !decimalComma && isGrouped(cell, L',')) std::erase(cell, L',');
        return texts::exactReal(cell);
    }

private:
    /// "12.345.678" and what may follow as decimals.
    static bool isGrouped(std::wstring_view cell, wchar_t sign) {
        const std::size_t decimals = cell.find(sign == L'.' ? L',' : L'.');
        const std::wstring_view whole = cell.substr(0, decimals);
        const std::vector<std::wstring> groups = texts::trimmedParts(whole, sign);
        return groups.size() > 1 && !groups[0].empty() &&
               std::ranges::all_of(groups.begin() + 1, groups.end(), [](const std::wstring& group) {
                   return group.size() == 3 && group.find_first_not_of(L"0123456789") == group.npos;
               });
    }
};

class TableReader {
public:
    explicit TableReader(std::vector<Record> records) : m_records(std::move(records)) {}

    PecaTable read() {
        const std::size_t first = readHeader();
        if (!m_out.faults.empty()) return std::move(m_out);
        for (std::size_t i = first; i < m_records.size(); ++i)
            for (std::size_t c = 0; c < std::min(m_records[i].cells.size(), columns()); ++c)
                if (holds(kNumberColumns, keyAt(c))) m_style.learn(m_records[i].cells[c]);
        for (std::size_t i = first; i < m_records.size(); ++i) readRow(m_records[i]);
        return std::move(m_out);
    }

private:
    std::size_t columns() const { return m_out.columns.size(); }
    const std::wstring& keyAt(std::size_t c) const { return m_out.columns[c].first; }
    void fault(int line, const std::wstring& column, const std::wstring& text) {
        m_out.faults.push_back({line, column, text});
    }

    /// The first record of the pieces.
    std::size_t readHeader() {
        if (m_records.empty()) return 0;
        const Record& header = m_records.front();
        const bool named = std::ranges::any_of(
            header.cells, [](const std::wstring& cell) { return isColumn(plainWord(cell)); });
        if (!named) {
            if (header.cells.size() == 1) {
                m_out.columns.emplace_back(L"texto", L"texto");
            } else {
                for (const wchar_t* const name : kUsualColumns)
                    m_out.columns.emplace_back(plainWord(name), name);
            }
            return 0;
        }
        for (const std::wstring& cell : header.cells) {
            const std::wstring key = plainWord(cell);
            if (!cell.empty() && !isColumn(key)) {
                std::vector<std::wstring> known(std::begin(kOwnColumns), std::end(kOwnColumns));
                fault(header.line, cell, unknownWord(cell, known));
            }
            const bool again =
                !cell.empty() && std::ranges::any_of(m_out.columns, [&](const auto& column) {
                    return column.first == key;
                });
            if (again) fault(header.line, cell, L"A coluna aparece duas vezes.");
            m_out.columns.emplace_back(key, cell);
        }
        const bool pieces = std::ranges::any_of(m_out.columns, [](const auto& column) {
            return column.first == L"peca" || column.first == L"texto";
        });
        if (!pieces) fault(header.line, {}, L"Falta a coluna peca, ou uma coluna texto.");
        return 1;
    }

    void readRow(const Record& record) {
        TableRow row;
        row.line = record.line;
        const std::size_t before = m_out.faults.size();
        for (std::size_t c = 0; c < record.cells.size(); ++c) {
            if (record.cells[c].empty()) continue;
            if (c >= columns() || keyAt(c).empty()) {
                fault(record.line, {},
                      L"A célula \"" + record.cells[c] + L"\" está além das colunas do cabeçalho.");
                continue;
            }
            const std::wstring text = readCell(keyAt(c), record.cells[c], row);
            if (!text.empty()) fault(record.line, m_out.columns[c].second, text);
        }
        if (row.x.has_value() != row.y.has_value())
            fault(record.line, row.x ? L"y" : L"x", L"Falta uma das coordenadas.");
        if (m_out.faults.size() == before) m_out.rows.push_back(std::move(row));
    }

    std::wstring readCell(const std::wstring& key, const std::wstring& cell, TableRow& row) const {
        if (key == L"peca" || key == L"texto") return readLine(cell, row.piece);
        if (key == L"cotas" || key == L"lista") {
            const std::wstring answer = plainWord(cell);
            const bool said = answer != L"0" && answer != L"nao" && answer != L"n";
            (key == L"cotas" ? row.piece.cotas : row.piece.lista) |= said;
            return {};
        }
        if (!holds(kNumberColumns, key)) return addValue(row.piece, key, cell);
        const std::optional<double> number = m_style.read(cell);
        if (!number) return L"\"" + cell + L"\" não é um número.";
        if (key == L"x")
            row.x = number;
        else if (key == L"y")
            row.y = number;
        else if (key == L"angulo")
            row.degrees = *number;
        else
            return addValue(row.piece, key, texts::withComma(*number, kDecimals));
        return {};
    }

    static constexpr int kDecimals = 9;

    std::vector<Record> m_records;
    NumberStyle m_style;
    PecaTable m_out;
};

}  // namespace

std::wstring PecaTable::columnOf(const std::wstring& fault) const {
    for (const auto& [key, name] : columns) {
        const std::wstring word = key == L"l" ? L"L=" : key + L"=";
        const std::size_t at = fault.find(word);
        if (at != fault.npos && (at == 0 || fault[at - 1] == L' ')) return name;
    }
    for (const auto& [key, name] : columns)
        if (key == L"peca" || key == L"texto") return name;
    return {};
}

PecaTable readTable(std::string_view bytes) {
    const std::wstring text = decoded(bytes);
    std::wstring_view rest = text;
    std::optional<wchar_t> separator;
    // Some spreadsheets say it in a line of its own, which then holds nothing else.
    const std::wstring_view first = firstLine(rest);
    const bool said = first.size() == 5 && first.starts_with(L"sep=");
    if (said) separator = first[4];
    std::size_t skipped = 0;
    while (skipped < rest.size() && (rest[skipped] == L'\r' || rest[skipped] == L'\n')) ++skipped;
    if (!separator) separator = separatorOf(firstLine(rest.substr(skipped)));
    std::vector<Record> records = Records(rest, separator).read();
    if (said && !records.empty()) records.erase(records.begin());
    return TableReader(std::move(records)).read();
}

}  // namespace perfis
