// SPDX-License-Identifier: MIT
// The lists row by row, against their commands and the side tables.
#include <algorithm>
#include <cmath>
#include <cwctype>
#include <set>
#include <system_error>

#include "perfis/catalogues/list_text.h"
#include "perfis/commands/catalogue_examiner.h"
#include "texts/letters.h"
#include "texts/number.h"
#include "texts/path.h"
#include "zp/objects/secao/secao.h"

namespace perfis {
namespace {

using protocol::Severity;

/// Characters of a line that make one row.
constexpr std::size_t kLongestRow = 118;
/// No size and no mass is larger, mm and kg/m.
constexpr double kMostNumber = 1e6;
/// kg/m of printed masses that are the same.
constexpr double kSamePeso = 0.006;
/// Half of the last digit that a shown list has, and a little.
constexpr double kSameShown = 0.051;
/// Of a mass that no table has, from that of the bare outline: fillets and toes are not in it.
constexpr double kPesoOff = 0.08;

struct ListRow {
    int line = 0;
    std::wstring text;
    std::wstring name;  ///< in front of the numbers, where the list has one
    Medidas medidas;
    bool repeated = false;
};

std::vector<std::wstring> linesOf(std::wstring_view text) {
    std::vector<std::wstring> lines;
    while (!text.empty()) {
        const std::size_t end = std::min(text.find(L'\n'), text.size());
        lines.emplace_back(text.substr(0, end));
        text.remove_prefix(std::min(end + 1, text.size()));
    }
    return lines;
}

/// Tabs and what no line shows as blanks; the beginning of what is long.
std::wstring onOneLine(std::wstring text) {
    constexpr std::size_t kMost = 60;
    std::ranges::replace_if(
        text, [](wchar_t c) { return c < L' '; }, L' ');
    return text.size() > kMost ? text.substr(0, kMost) + L"..." : text;
}

/// Small words, numbers and signs, however they are set apart: "CS150x25" and "CS 150 x 25,0" are
/// one name.
std::vector<std::wstring> tokensOf(std::wstring_view text) {
    const auto digit = [](wchar_t c) { return c >= L'0' && c <= L'9'; };
    const std::wstring small = texts::lower(text);
    std::vector<std::wstring> tokens;
    for (std::size_t i = 0; i < small.size();) {
        std::size_t end = i + 1;
        if (digit(small[i])) {
            while (end < small.size() &&
                   (digit(small[end]) || ((small[end] == L',' || small[end] == L'.') &&
                                          end + 1 < small.size() && digit(small[end + 1]))))
                ++end;
            const std::wstring number = small.substr(i, end - i);
            const std::optional<double> value = texts::exactReal(number);
            tokens.push_back(value ? texts::withComma(*value, 4) : number);
        } else if (small[i] > L' ') {
            while (end < small.size() && std::iswalpha(static_cast<wint_t>(small[i])) &&
                   std::iswalpha(static_cast<wint_t>(small[end])))
                ++end;
            tokens.push_back(small.substr(i, end - i));
        }
        i = end;
    }
    return tokens;
}

/// Places of the texts outside the longest run in ascending order. O(n log n), by patience
/// sorting.
std::vector<std::size_t> outOfOrder(const std::vector<int>& places) {
    std::vector<std::size_t> tails;
    std::vector<std::size_t> before(places.size());
    for (std::size_t i = 0; i < places.size(); ++i) {
        const auto tail = std::ranges::upper_bound(tails, places[i], {},
                                                   [&](std::size_t at) { return places[at]; });
        before[i] = tail == tails.begin() ? i : *(tail - 1);
        if (tail == tails.end())
            tails.push_back(i);
        else
            *tail = i;
    }
    std::vector<bool> inOrder(places.size());
    if (!tails.empty()) {
        std::size_t i = tails.back();
        for (; before[i] != i; i = before[i]) inOrder[i] = true;
        inOrder[i] = true;
    }
    std::vector<std::size_t> out;
    for (std::size_t i = 0; i < places.size(); ++i)
        if (!inOrder[i]) out.push_back(i);
    return out;
}

class ListExaminer {
public:
    ListExaminer(const SizeList& list, const std::filesystem::path& folder,
                 const SideTables& tables, CatalogueFindings& findings)
        : m_list(list), m_folder(folder), m_findings(findings) {
        for (std::size_t i = 0; i < families().size(); ++i)
            if (list.table != nullptr && families()[i].table == std::wstring_view(list.table)) {
                m_family = &families()[i];
                m_sizes = list.sizes.empty() ? m_family->sizes : list.sizes;
                m_table = &tables[i];
            }
    }
    /// That a list of this family stands here without its table.
    const Family* untabled() const {
        return m_read && m_table && !m_table->there ? m_family : nullptr;
    }

    void examine() {
        const std::optional<std::vector<std::wstring>> lines = linesIn(m_list.file);
        if (!lines) {
            if (isThere(m_list.file)) return;
            const bool paired = m_list.shown != nullptr && isThere(m_list.shown);
            add(0, {},
                paired ? std::wstring(L"Falta a lista com as medidas de ") + m_list.shown + L"."
                       : L"A lista não está na pasta.",
                L"Copie-a de uma instalação inteira.", nullptr,
                paired ? Severity::Fault : Severity::Hint);
            return;
        }
        m_read = true;
        for (std::size_t i = 0; i < lines->size(); ++i)
            readRow(static_cast<int>(i) + 1, (*lines)[i]);
        for (const ListRow& row : m_rows) {
            examineName(row);
            examinePeso(row);
            examineOutline(row);
        }
        findDoubles();
        if (m_table != nullptr && !m_table->sizes.empty()) compareWithTable();
        if (m_list.shown != nullptr) examinePair();
    }

private:
    const PerfilDescription& description() const { return m_list.command.description; }

    void add(int line, const std::wstring& row, std::wstring text, std::wstring remedy,
             const wchar_t* file = nullptr, Severity severity = Severity::Fault) {
        m_findings.push_back({severity, file != nullptr ? file : m_list.file, line, onOneLine(row),
                              std::move(text), std::move(remedy)});
    }

    std::filesystem::path pathOf(const wchar_t* file) const {
        return texts::entryOf(m_folder, texts::pathOf(file));
    }
    bool isThere(const wchar_t* file) const {
        std::error_code error;
        return std::filesystem::exists(std::filesystem::symlink_status(pathOf(file), error));
    }

    std::optional<std::vector<std::wstring>> linesIn(const wchar_t* file) {
        const std::shared_ptr<const ListText> list = readListText(pathOf(file).wstring());
        if (!list) {
            if (isThere(file))
                add(0, {}, L"Não é um arquivo que se possa ler.",
                    L"Confira o nome e as permissões.", file);
            return {};
        }
        if (list->format.damaged)
            add(0, {}, L"O arquivo tem caracteres nulos, fins de linha soltos ou foi cortado.",
                L"Grave-o de novo como texto em UTF-8.", file);
        return linesOf(list->text);
    }

    /// Numbers of the columns that the command reads, in the order of its tiles.
    void readRow(int line, const std::wstring& text) {
        if (text.empty()) {
            if (m_list.blankRows)
                add(line, {}, L"A linha está em branco e conta como bitola.", L"Apague-a.");
            return;
        }
        if (text.size() > kLongestRow && !m_list.blankRows) {
            add(line, text,
                L"A linha tem " + std::to_wstring(text.size()) +
                    L" caracteres e vira mais de uma bitola.",
                L"Deixe-a com até 118.");
            return;
        }
        std::vector<Medida> columns;
        for (const MedidaTile& tile : description().tiles)
            if (tile.rowUse == RowUse::kFills) columns.push_back(tile.value);
        if (m_list.peso) columns.push_back(&Medidas::m);
        const std::vector<std::wstring> fields = splitRow(text);
        const std::size_t count =
            fields.size() - std::min<std::size_t>(fields.size(), m_list.firstColumn);
        ListRow row{line, text, m_list.firstColumn > 0 ? fields[0] : std::wstring(), {}, false};
        for (std::size_t i = 0; i < std::min(count, columns.size()); ++i) {
            const std::wstring& field = fields[i + m_list.firstColumn];
            const std::optional<double> number = texts::exactReal(field);
            if (!number || std::abs(*number) > kMostNumber) {
                add(line, text,
                    L"A coluna " + std::to_wstring(i + 1 + m_list.firstColumn) +
                        (number ? L" é grande demais: \"" : L" não é um número: \"") +
                        onOneLine(field) + L"\".",
                    L"Escreva a medida em mm, com as colunas separadas por tabulações.");
                return;
            }
            row.medidas.*columns[i] = *number;
        }
        const bool lacks =
            count < columns.size() && (m_list.peso || description().wrong(row.medidas) != nullptr);
        if (lacks || count > columns.size() + (m_list.oneMore ? 1 : 0)) {
            add(line, text,
                L"A linha tem " + std::to_wstring(fields.size()) +
                    (fields.size() == 1 ? L" coluna" : L" colunas") + L", e a lista pede " +
                    std::to_wstring(columns.size() + m_list.firstColumn) + L".",
                L"Separe as colunas por uma tabulação só e complete ou apague o que não cabe.");
            return;
        }
        m_rows.push_back(row);
    }

    void examineOutline(const ListRow& row) {
        const PecaRequest request{
            .medidas = row.medidas, .comprimento = 1.0, .source = m_list.source};
        if (description().wrong(row.medidas) == nullptr &&
            !zp::secao::Secao(description().pecas.kind, valuesFor(description(), request))
                 .invalid())
            return;
        add(row.line, row.text, L"Com estas medidas não há seção que se possa desenhar.",
            L"Corrija a medida que não cabe nas outras.");
    }

    const TabledSize* tabled(const ListRow& row) const {
        if (m_table == nullptr) return nullptr;
        const auto found = m_table->sizes.find(sizeKeyOf(*m_family, m_sizes, row.medidas));
        return found == m_table->sizes.end() ? nullptr : &found->second;
    }

    /// What stands in front of the numbers.
    void examineName(const ListRow& row) {
        const TabledSize* const size = tabled(row);
        if (row.name.empty() || size == nullptr) return;
        const auto named = [&](const std::optional<TabledRow>& other) {
            return other && tokensOf(other->designacao) == tokensOf(row.name);
        };
        if (named(size->delivered) || named(size->own)) return;
        const TabledRow& first = size->delivered ? *size->delivered : *size->own;
        add(row.line, row.text, L"O nome da linha não é o da tabela, " + first.designacao + L".",
            L"Corrija o nome ou as medidas.", nullptr,
            size->own ? Severity::Hint : Severity::Fault);
    }

    static std::optional<double> pesoOf(const std::optional<TabledRow>& row) {
        return row ? row->peso : std::nullopt;
    }
    /// Against the row that is delivered. A user's own one goes before it in drawings: what differs
    /// from that alone is a hint.
    void examinePeso(const ListRow& row) {
        if (!m_list.peso) return;
        const double peso = row.medidas.m;
        const TabledSize* const size = tabled(row);
        const auto delivered = size != nullptr ? pesoOf(size->delivered) : std::nullopt;
        const auto own = size != nullptr ? pesoOf(size->own) : std::nullopt;
        const auto same = [&](double other) { return std::abs(peso - other) <= kSamePeso; };
        if (own && same(*own)) return;
        if (delivered && !same(*delivered))
            tellPeso(row, L"a tabela imprime ", *delivered, Severity::Fault);
        else if (own)
            tellPeso(row, L"a tabela da casa diz ", *own, Severity::Hint);
        else if (const double outline = delivered ? 0.0 : pesoOfOutline(row);
                 std::abs(peso - outline) > kPesoOff * outline && outline > 0.0)
            tellPeso(row, L"o contorno dá ", outline, Severity::Fault);
    }
    void tellPeso(const ListRow& row, const wchar_t* from, double other, Severity severity) {
        const double peso = row.medidas.m;
        add(row.line, row.text,
            L"A massa é de " + texts::withComma(peso) + L" kg/m; " + from +
                texts::withComma(other) + L" (" +
                texts::withComma(100.0 * (peso / other - 1.0), 1) + L" %).",
            severity == Severity::Fault ? L"Corrija a massa ou as medidas."
                                        : L"Nos desenhos vale a da casa.",
            nullptr, severity);
    }
    /// Of the outline as it is when nobody hands a mass over. That of a rolled U, whose flanges
    /// follow from the mass, fits when it could be drawn with that mass.
    double pesoOfOutline(const ListRow& row) const {
        PecaRequest request{.medidas = row.medidas, .comprimento = 1.0, .source = m_list.source};
        if (description().pecas.kind != zp::secao::Kind::ULaminado) request.medidas.m = 0.0;
        const zp::secao::Secao secao(description().pecas.kind, valuesFor(description(), request));
        return secao.invalid() ? 0.0 : 7850e-6 * secao.properties().area;
    }

    void findDoubles() {
        std::map<std::vector<double>, int> seen;
        for (ListRow& row : m_rows) {
            std::vector<double> numbers;
            for (const MedidaTile& tile : description().tiles)
                numbers.push_back(std::round(100.0 * row.medidas.*tile.value));
            const auto [first, fresh] = seen.try_emplace(numbers, row.line);
            row.repeated = !fresh;
            if (row.repeated)
                add(row.line, row.text,
                    L"A bitola já está na linha " + std::to_wstring(first->second) + L".",
                    L"Apague uma das duas.");
        }
    }

    void compareWithTable() {
        std::vector<int> places;
        std::vector<const ListRow*> known;
        for (const ListRow& row : m_rows) {
            if (row.repeated) continue;
            if (const TabledSize* const size = tabled(row)) {
                places.push_back(size->place);
                known.push_back(&row);
                continue;
            }
            add(row.line, row.text,
                std::wstring(L"A bitola não está na norma nem em tabela de fabricante (") +
                    m_list.table + L".csv).",
                std::wstring(L"Confira as medidas; se é da casa, ponha-a em ") + m_list.table +
                    L"_usuario.csv.");
        }
        for (const std::size_t i : outOfOrder(places))
            add(known[i]->line, known[i]->text,
                L"A bitola está fora da ordem da tabela, que a traz " +
                    std::wstring(i > 0 && places[i] < places[i - 1] ? L"antes" : L"depois") + L".",
                L"Mude a linha de lugar.");
    }

    /// Height and mass, where the line shows them, stand behind its name; a name that no table
    /// has ends with the mass. `name` null: whatever name.
    bool shows(const std::wstring& text, const ListRow& row, const std::wstring* name) const {
        std::vector<std::wstring> tokens = tokensOf(text);
        std::vector<double> numbers;
        if (m_list.shows != Shown::kName || name == nullptr) numbers.push_back(row.medidas.m);
        if (m_list.shows != Shown::kName) numbers.push_back(row.medidas.h);
        for (const double number : numbers) {
            const auto shown = tokens.empty() ? std::nullopt : texts::exactReal(tokens.back());
            if (!shown || !(std::abs(*shown - number) < kSameShown)) return false;
            tokens.pop_back();
        }
        if (m_list.shows == Shown::kColumns) return tokens.empty();
        return name == nullptr || tokens == tokensOf(*name);
    }

    /// What a shown line should say: the delivered row's name, else the user's.
    std::wstring wanted(const ListRow& row, const std::vector<const TabledRow*>& rows) const {
        std::wstring text;
        if (m_list.shows != Shown::kColumns && !rows.empty()) text = rows[0]->designacao + L", ";
        if (m_list.shows != Shown::kName) text += L"h " + texts::withComma(row.medidas.h) + L", ";
        return text + texts::withComma(row.medidas.m) + L" kg/m";
    }

    /// Each line shown says the name, height and mass of the line at the same place. A name that
    /// only differs from the user's own row is a hint; true when the line fits.
    bool examineShown(int line, const std::wstring& text, const ListRow& row) {
        std::vector<const TabledRow*> rows;
        const TabledSize* const size = tabled(row);
        if (size != nullptr && size->delivered) rows.push_back(&*size->delivered);
        if (size != nullptr && size->own) rows.push_back(&*size->own);
        const bool hint = size != nullptr && size->own.has_value();
        const bool numbersFit = shows(text, row, nullptr);
        if (rows.empty() ? numbersFit : std::ranges::any_of(rows, [&](const TabledRow* tabledRow) {
                return shows(text, row, &tabledRow->designacao);
            }))
            return true;
        add(line, text,
            L"A linha não mostra a bitola de " + std::wstring(m_list.file) + L" no mesmo lugar: " +
                wanted(row, rows) + L".",
            L"Corrija a linha, ou ponha as duas listas na mesma ordem.", m_list.shown,
            hint && numbersFit ? Severity::Hint : Severity::Fault);
        return false;
    }

    void examinePair() {
        const std::optional<std::vector<std::wstring>> lines = linesIn(m_list.shown);
        if (!lines && isThere(m_list.shown)) return;
        std::vector<std::pair<int, std::wstring>> shown;
        for (std::size_t i = 0; lines && i < lines->size(); ++i)
            if (!(*lines)[i].empty()) shown.emplace_back(static_cast<int>(i) + 1, (*lines)[i]);
        const bool paired = shown.size() == m_rows.size();
        if (!paired)
            add(0, {},
                L"A lista mostrada tem " + std::to_wstring(shown.size()) + L" bitolas, e " +
                    m_list.file + L" tem " + std::to_wstring(m_rows.size()) + L" que servem.",
                L"A linha N de uma é a linha N da outra: complete a que falta.", m_list.shown);
        for (std::size_t i = 0; i < std::min(shown.size(), m_rows.size()); ++i)
            if (!examineShown(shown[i].first, shown[i].second, m_rows[i]) && !paired)
                return;  // a line too many shifts all that follow
    }

    const SizeList& m_list;
    const std::filesystem::path& m_folder;
    CatalogueFindings& m_findings;
    const Family* m_family = nullptr;
    std::span<const SizeColumn> m_sizes;
    const SideTable* m_table = nullptr;
    bool m_read = false;
    std::vector<ListRow> m_rows;
};

}  // namespace

void examineLists(const std::filesystem::path& folder, const SideTables& tables,
                  CatalogueFindings& findings) {
    std::set<const Family*> untabled;
    for (const SizeList& list : sizeLists()) {
        const std::size_t first = findings.size();
        ListExaminer examiner(list, folder, tables, findings);
        examiner.examine();
        const Family* const family = examiner.untabled();
        if (family != nullptr && untabled.insert(family).second)
            findings.push_back({Severity::Fault,
                                std::wstring(family->table) + L".csv",
                                0,
                                {},
                                std::wstring(L"Falta a tabela das bitolas de ") + list.file + L".",
                                L"Copie-a de uma instalação inteira."});
        std::ranges::stable_sort(
            findings.begin() + static_cast<std::ptrdiff_t>(first), findings.end(), {},
            [](const CatalogueFinding& finding) { return std::pair(finding.file, finding.line); });
    }
}

}  // namespace perfis
