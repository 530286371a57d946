// SPDX-License-Identifier: MIT
// The lists row by row, against their commands and the side tables.
#include <algorithm>
#include <cmath>
#include <cwctype>

#include "perfis/catalogues/list_text.h"
#include "perfis/commands/catalogue_examiner.h"
#include "texts/letters.h"
#include "texts/number.h"
#include "texts/path.h"
#include "zp/objects/secao/secao.h"

namespace perfis {
namespace {

/// Characters of a line that make one row.
constexpr std::size_t kLongestRow = 118;
/// kg/m of printed masses that are the same.
constexpr double kSamePeso = 0.006;
/// Of a mass that no table has, from that of the bare outline: fillets and toes are not in it.
constexpr double kPesoOff = 0.08;

struct ListRow {
    int line = 0;
    std::wstring text;
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

    void examine() {
        const std::optional<std::vector<std::wstring>> lines = linesIn(m_list.file);
        if (!lines) {
            if (m_list.shown != nullptr && linesIn(m_list.shown))
                add(0, {}, std::wstring(L"Falta a lista com as medidas de ") + m_list.shown + L".",
                    L"Copie-a de uma instalação inteira.");
            return;
        }
        for (std::size_t i = 0; i < lines->size(); ++i)
            readRow(static_cast<int>(i) + 1, (*lines)[i]);
        for (const ListRow& row : m_rows) {
            examinePeso(row);
            examineOutline(row);
        }
        findDoubles();
        if (m_table != nullptr && !m_table->empty()) compareWithTable();
        if (m_list.shown != nullptr) examinePair();
    }

private:
    const PerfilDescription& description() const { return m_list.command.description; }

    void add(int line, const std::wstring& row, std::wstring text, std::wstring remedy,
             const wchar_t* file = nullptr) {
        m_findings.push_back({protocol::Severity::Fault, file != nullptr ? file : m_list.file, line,
                              onOneLine(row), std::move(text), std::move(remedy)});
    }

    std::optional<std::vector<std::wstring>> linesIn(const wchar_t* file) {
        const std::filesystem::path path = texts::entryOf(m_folder, texts::pathOf(file));
        const std::shared_ptr<const ListText> list = readListText(path.wstring());
        if (!list) return {};
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
            fields.size() -
            std::min<std::size_t>(fields.size(), static_cast<std::size_t>(m_list.firstColumn));
        ListRow row{line, text, {}, false};
        for (std::size_t i = 0; i < std::min(count, columns.size()); ++i) {
            const std::wstring& field = fields[i + static_cast<std::size_t>(m_list.firstColumn)];
            const std::optional<double> number = texts::exactReal(field);
            if (!number) {
                add(line, text,
                    L"A coluna " + std::to_wstring(i + 1 + m_list.firstColumn) +
                        L" não é um número: \"" + onOneLine(field) + L"\".",
                    L"Escreva a medida em mm, com as colunas separadas por tabulações.");
                return;
            }
            row.medidas.*columns[i] = *number;
        }
        const bool lacks =
            count < columns.size() && (m_list.peso || description().wrong(row.medidas) != nullptr);
        if (lacks || count > columns.size() + (mayHaveMore() ? 1 : 0)) {
            add(line, text,
                L"A linha tem " + std::to_wstring(fields.size()) + L" colunas, e a lista pede " +
                    std::to_wstring(columns.size() + m_list.firstColumn) + L".",
                L"Separe as colunas por uma tabulação só e complete ou apague o que não cabe.");
            return;
        }
        m_rows.push_back(row);
    }
    /// The rows that these commands build may carry a lip that nobody reads.
    bool mayHaveMore() const { return description().edits == CatalogueEdits::kWrittenBack; }

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
        const auto found = m_table->find(sizeKeyOf(*m_family, m_sizes, row.medidas));
        return found == m_table->end() ? nullptr : &found->second;
    }

    void examinePeso(const ListRow& row) {
        if (!m_list.peso) return;
        const double peso = row.medidas.m;
        const TabledSize* const size = tabled(row);
        const double other = size != nullptr && size->peso ? *size->peso : pesoOfOutline(row);
        const bool printed = size != nullptr && size->peso;
        if (std::abs(peso - other) <= (printed ? kSamePeso : kPesoOff * other) || other <= 0.0)
            return;
        add(row.line, row.text,
            L"A massa é de " + texts::withComma(peso) + L" kg/m; " +
                (printed ? L"a tabela imprime " : L"o contorno dá ") + texts::withComma(other) +
                L" (" + texts::withComma(100.0 * (peso / other - 1.0), 1) + L" %).",
            L"Corrija a massa ou as medidas.");
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

    /// Each line shown ends with the mass of the line at the same place.
    void examinePair() {
        const std::optional<std::vector<std::wstring>> lines = linesIn(m_list.shown);
        std::vector<std::pair<int, std::wstring>> shown;
        for (std::size_t i = 0; lines && i < lines->size(); ++i)
            if (!(*lines)[i].empty()) shown.emplace_back(static_cast<int>(i) + 1, (*lines)[i]);
        if (shown.size() != m_rows.size())
            add(0, {},
                L"A lista mostrada tem " + std::to_wstring(shown.size()) + L" bitolas, e " +
                    m_list.file + L" tem " + std::to_wstring(m_rows.size()) + L" que servem.",
                L"A linha N de uma é a linha N da outra: complete a que falta.", m_list.shown);
        for (std::size_t i = 0; i < std::min(shown.size(), m_rows.size()); ++i) {
            const auto& [line, text] = shown[i];
            const std::size_t last = text.find_last_of(L" \t");
            const std::optional<double> peso =
                texts::exactReal(last == std::wstring::npos ? text : text.substr(last + 1));
            if (peso && std::abs(*peso - m_rows[i].medidas.m) < 0.051) continue;
            add(line, text,
                L"A linha não mostra a massa da bitola de " + std::wstring(m_list.file) +
                    L" no mesmo lugar, " + texts::withComma(m_rows[i].medidas.m) + L" kg/m.",
                L"Ponha as duas listas na mesma ordem.", m_list.shown);
            return;  // a line too many shifts all that follow
        }
    }

    const SizeList& m_list;
    const std::filesystem::path& m_folder;
    CatalogueFindings& m_findings;
    const Family* m_family = nullptr;
    std::span<const SizeColumn> m_sizes;
    const std::map<SizeKey, TabledSize>* m_table = nullptr;
    std::vector<ListRow> m_rows;
};

}  // namespace

SizeKey sizeKeyOf(const Family& family, std::span<const SizeColumn> sizes, const Medidas& medidas) {
    SizeKey key;
    for (const SizeColumn& size : sizes)
        key.push_back(std::lround(std::clamp(100.0 * medidas.*size.medida, -1e9, 1e9)));
    if (family.eitherWay && key[0] < key[1]) std::swap(key[0], key[1]);
    return key;
}

void examineLists(const std::filesystem::path& folder, const SideTables& tables,
                  CatalogueFindings& findings) {
    for (const SizeList& list : sizeLists()) {
        const std::size_t first = findings.size();
        ListExaminer(list, folder, tables, findings).examine();
        std::ranges::stable_sort(
            findings.begin() + static_cast<std::ptrdiff_t>(first), findings.end(), {},
            [](const CatalogueFinding& finding) { return std::pair(finding.file, finding.line); });
    }
}

}  // namespace perfis
