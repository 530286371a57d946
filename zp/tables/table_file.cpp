// SPDX-License-Identifier: MIT
// Lines to rows; every fault with its line, none of them costs another row.
#include "zp/tables/table_file.h"

#include <algorithm>
#include <set>
#include <system_error>
#include <utility>

#include "files/replacement.h"
#include "texts/encoding.h"
#include "texts/letters.h"
#include "texts/number.h"
#include "texts/path.h"

namespace zp::tables {
namespace {

constexpr wchar_t kSeparator = L';';
constexpr wchar_t kQuote = L'"';

/// Takes a quoted field and the separator behind it off `rest`; nothing when the quotes do not
/// close, or something else than a separator follows.
std::optional<std::wstring> quotedField(std::wstring_view& rest) {
    std::wstring field;
    for (std::size_t i = 1; i < rest.size(); ++i) {
        if (rest[i] != kQuote) {
            field += rest[i];
            continue;
        }
        if (i + 1 < rest.size() && rest[i + 1] == kQuote) {
            field += kQuote;
            ++i;
            continue;
        }
        const std::size_t next = rest.find_first_not_of(L" \t", i + 1);
        if (next != std::wstring_view::npos && rest[next] != kSeparator) return {};
        rest.remove_prefix(std::min(next, rest.size()));
        return field;
    }
    return {};
}

std::wstring plainField(std::wstring_view& rest) {
    const std::size_t end = std::min(rest.find(kSeparator), rest.size());
    std::wstring field(rest.substr(0, end));
    rest.remove_prefix(end);
    return field;
}

/// Nothing when a quoted field is not written as one.
std::optional<std::vector<std::wstring>> fieldsOf(std::wstring_view rest) {
    std::vector<std::wstring> fields;
    while (true) {
        rest.remove_prefix(std::min(rest.find_first_not_of(L" \t"), rest.size()));
        std::optional<std::wstring> field =
            rest.starts_with(kQuote) ? quotedField(rest) : plainField(rest);
        if (!field) return {};
        fields.push_back(texts::trimmed(*field));
        if (rest.empty()) return fields;
        rest.remove_prefix(1);
    }
}

/// Tabs as well: what stands around a field is gone here.
bool hasControls(const std::wstring& field) {
    return std::ranges::any_of(field,
                               [](wchar_t c) { return c < L' ' || (c >= 0x7F && c < 0xA0); });
}

/// Also without its mark: the first character of a table is ASCII.
bool isUtf16(std::string_view bytes) {
    return bytes.starts_with("\xFF\xFE") || bytes.starts_with("\xFE\xFF") ||
           bytes.substr(0, 2).find('\0') != std::string_view::npos;
}

}  // namespace

TableFile TableFile::read(const std::filesystem::path& path) {
    TableFile table;
    table.m_path = path;
    const std::optional<std::string> bytes = files::readRegular(path);
    if (!bytes) {
        std::error_code error;
        if (std::filesystem::exists(std::filesystem::symlink_status(path, error)))
            table.m_faults.push_back(
                {path, 0, L"não é um arquivo que se possa ler; confira o nome e as permissões"});
        return table;
    }
    table.m_opened = true;
    if (isUtf16(*bytes)) {
        table.m_faults.push_back({path, 0, L"está em UTF-16; grave-a como texto em UTF-8"});
        return table;
    }
    const std::wstring text = texts::decodeText(*bytes);
    int line = 0;
    for (std::size_t start = 0; start < text.size(); ++line) {
        // Without its first line nobody can tell what the others mean.
        if (table.m_header.empty() && !table.m_faults.empty()) break;
        const std::size_t end = std::min(text.find(L'\n', start), text.size());
        table.addLine(line + 1, texts::trimmed(std::wstring_view(text).substr(start, end - start)));
        start = end + 1;
    }
    if (table.m_header.empty() && table.m_faults.empty())
        table.m_faults.push_back({path, 0, L"sem a linha que dá nome às colunas; escreva-a"});
    return table;
}

void TableFile::addLine(int line, std::wstring_view text) {
    if (text.empty() || text.front() == L'#') return;
    std::optional<std::vector<std::wstring>> fields = fieldsOf(text);
    Row row{line, fields ? std::move(*fields) : std::vector<std::wstring>()};
    if (!fields) {
        refuse(row, L"aspas não fecham no campo; dobre as de dentro e feche-o com aspas e \";\"");
    } else if (std::ranges::any_of(row.fields, hasControls)) {
        refuse(row, row.fields.size() == 1 && m_header.empty()
                        ? L"as colunas não estão separadas por ponto e vírgula; troque o separador"
                        : L"tem caracteres de controle; apague-os");
    } else if (m_header.empty()) {
        readHeader(std::move(row));
    } else if (row.fields.size() > m_header.size()) {
        refuse(row, L"mais campos do que colunas (" + std::to_wstring(row.fields.size()) + L" em " +
                        std::to_wstring(m_header.size()) + L"); tire o que sobra");
    } else {
        m_rows.push_back(std::move(row));
    }
}

void TableFile::readHeader(Row row) {
    if (row.fields.size() == 1 && row.fields[0].find(L',') != std::wstring::npos) {
        refuse(row, L"as colunas não estão separadas por ponto e vírgula; troque o separador");
        return;
    }
    std::set<std::wstring> names;
    for (const std::wstring& name : row.fields)
        if (!name.empty() && !names.insert(texts::lower(name)).second)
            refuse(row, L"a coluna " + name + L" está duas vezes e vale a primeira; tire a outra");
    m_header = std::move(row.fields);
}

int TableFile::column(std::wstring_view name) const {
    const auto found = std::ranges::find_if(
        m_header, [&](const std::wstring& h) { return texts::equalIgnoringCase(h, name); });
    return found == m_header.end() ? -1 : static_cast<int>(found - m_header.begin());
}

std::optional<std::vector<int>> TableFile::columns(std::span<const wchar_t* const> names) {
    if (m_header.empty()) return {};
    std::vector<int> places;
    for (const wchar_t* const name : names) {
        places.push_back(column(name));
        if (places.back() >= 0) continue;
        m_faults.push_back(
            {m_path, 0,
             std::wstring(L"falta a coluna ") + name + L" e nada foi lido; acrescente-a"});
        return {};
    }
    return places;
}

std::wstring TableFile::text(const Row& row, int column) const {
    const auto place = static_cast<std::size_t>(column);
    return column >= 0 && place < row.fields.size() ? row.fields[place] : std::wstring();
}

std::optional<double> TableFile::number(const Row& row, int column) {
    const std::wstring field = text(row, column);
    if (field.empty()) return {};
    const std::optional<double> value = texts::exactReal(field);
    if (!value)
        refuse(row, m_header[static_cast<std::size_t>(column)] + L" \"" + field +
                        L"\" não é número; corrija ou deixe vazio");
    return value;
}

void TableFile::refuse(const Row& row, std::wstring reason) {
    m_faults.push_back({m_path, row.line, std::move(reason)});
}

std::wstring told(const Fault& fault) {
    const std::wstring line =
        fault.line > 0 ? L", linha " + std::to_wstring(fault.line) : std::wstring();
    return texts::shown(fault.file.filename()) + line + L": " + fault.reason;
}

}  // namespace zp::tables
