// SPDX-License-Identifier: MIT
// Tables of published sizes: which columns tell a size, and the search among them.
#include "zp/tables/published.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <map>
#include <optional>
#include <system_error>
#include <utility>

#include "texts/letters.h"
#include "texts/number.h"
#include "texts/path.h"

namespace zp::tables {
namespace {

namespace fs = std::filesystem;

/// Numbers nearer than this are one, mm.
constexpr double kSame = 0.01 + 1e-9;
/// Longest name that pieces keep.
constexpr std::size_t kMostName = 60;
constexpr std::wstring_view kOwn = L"_usuario";
/// kg/m of one mm2 of steel.
constexpr double kSteel = 7850e-6;
/// An area that weighs by more above its row's mass is a misprint: it would be drawn as fillets.
constexpr double kMostAbove = 0.01;
/// By so much a nominal mass is above that of the size.
constexpr double kNominal = 0.03;

struct Kind {
    const wchar_t* file;
    std::array<const wchar_t*, 4> columns;  ///< null where the size has no more
    bool eitherWay = false;                 ///< h and b may change places
};

// In the order of Family.
constexpr std::array kKinds{
    Kind{L"w_hp", {L"h", L"b", L"tw", L"tf"}},
    Kind{L"ipe", {L"h", L"b", L"tw", L"tf"}},
    Kind{L"i", {L"h", L"b", L"tw", L"tf"}},
    Kind{L"u", {L"h", L"b", L"tw"}},
    Kind{L"l", {L"h", L"b", L"t"}, true},
    Kind{L"soldado_vs", {L"h", L"b", L"tw", L"tf"}},
    Kind{L"soldado_cvs", {L"h", L"b", L"tw", L"tf"}},
    Kind{L"soldado_cs", {L"h", L"b", L"tw", L"tf"}},
    Kind{L"tubo_retangular", {L"h", L"b", L"t"}, true},
    Kind{L"tubo_redondo", {L"d", L"t"}},
    Kind{L"barra_redonda", {L"d"}},
    Kind{L"u_dobrado", {L"h", L"b", L"t"}},
    Kind{L"u_enrijecido", {L"h", L"b", L"aba", L"t"}},
    Kind{L"z_dobrado", {L"h", L"b", L"aba", L"t"}},
    Kind{L"cartola", {L"h", L"b", L"aba", L"t"}},
    Kind{L"cantoneira_dobrada", {L"h", L"b", L"t"}, true},
};
static_assert(kKinds.size() == static_cast<std::size_t>(Family::kTotal));

const Kind& kindOf(Family family) { return kKinds[static_cast<std::size_t>(family)]; }

void order(Family family, std::array<double, 4>& v) {
    if (kindOf(family).eitherWay && v[0] < v[1]) std::swap(v[0], v[1]);
}

/// The names of a table's columns that every row needs, the designation first.
std::vector<const wchar_t*> neededColumns(Family family) {
    std::vector<const wchar_t*> names{L"designacao"};
    for (const wchar_t* const name : kindOf(family).columns)
        if (name != nullptr) names.push_back(name);
    return names;
}

/// What stands in the columns of the size; refused, and nothing, when one is missing.
std::optional<std::array<double, 4>> sizesOf(TableFile& table, const Row& row,
                                             std::span<const wchar_t* const> names) {
    std::array<double, 4> v{};
    for (std::size_t i = 0; i < names.size(); ++i) {
        const std::wstring name = names[i];
        const int place = table.column(name);
        if (table.text(row, place).empty()) {
            table.refuse(row, L"falta " + name + L"; escreva a medida em mm");
            return {};
        }
        const std::optional<double> value = table.number(row, place);
        if (!value) return {};
        if (!(*value > 0.0)) {
            table.refuse(row, name + L" deve ser maior que zero; escreva a medida em mm");
            return {};
        }
        v[i] = *value;
    }
    return v;
}

enum class Least { Zero, AboveZero };

/// Nothing for a number that a row may not have; -1 where it prints none.
std::optional<double> printed(TableFile& table, const Row& row, const wchar_t* column, Least least,
                              double most) {
    const int place = table.column(column);
    if (table.text(row, place).empty()) return -1.0;
    const std::optional<double> value = table.number(row, place);
    if (!value) return {};
    if (*value < 0.0 || (least == Least::AboveZero && *value == 0.0)) {
        table.refuse(row, std::wstring(column) + L" deve ser maior que zero, ou vazio");
        return {};
    }
    if (*value <= most) return value;
    table.refuse(row, std::wstring(column) + L" passa de " + texts::withComma(most) +
                          L", mais do que cabe nesta medida; corrija ou deixe vazio");
    return {};
}

std::optional<Published> publishedIn(TableFile& table, const Row& row,
                                     const std::array<double, 4>& v, bool hasWidth) {
    Published p;
    p.name = table.text(row, table.column(L"designacao"));
    if (p.name.empty() || p.name.size() > kMostName) {
        table.refuse(row,
                     L"designacao deve ter de 1 a " + std::to_wstring(kMostName) + L" caracteres");
        return {};
    }
    // No shape fills the square of its largest number; a larger fillet would leave no flat.
    const double square = 0.01 * std::pow(*std::ranges::max_element(v), 2);
    const double fillet = 0.5 * (hasWidth ? std::min(v[0], v[1]) : v[0]);
    const double solid = 100.0 * kSteel * square * (1.0 + kNominal);
    const auto kg = printed(table, row, L"kg_m", Least::AboveZero, solid);
    const auto area = printed(table, row, L"A", Least::AboveZero, square);
    const auto root = printed(table, row, L"r", Least::Zero, fillet);
    const auto toe = printed(table, row, L"r_ponta", Least::Zero, fillet);
    if (!kg || !area || !root || !toe) return {};
    p.kgMetro = *kg;
    const bool misprint = *kg > 0.0 && *area * 100.0 * kSteel > (1.0 + kMostAbove) * *kg;
    p.area = *area < 0.0 || misprint ? -1.0 : *area * 100.0;
    p.root = *root;
    p.toe = *toe;
    return p;
}

std::optional<Family> familyOf(const TableName& table) {
    std::optional<Family> best;
    std::size_t longest = 0;
    for (std::size_t i = 0; i < kKinds.size(); ++i) {
        const std::wstring_view file = kKinds[i].file;
        if (!table.isOf(file) || file.size() < longest) continue;
        best = static_cast<Family>(i);
        longest = file.size();
    }
    return best;
}

}  // namespace

bool TableName::isOf(std::wstring_view table) const {
    return stem == table || (own && stem.starts_with(std::wstring(table) + L'_'));
}

std::vector<TableName> tablesIn(const fs::path& folder) {
    std::vector<TableName> found;
    std::error_code error;
    for (fs::directory_iterator it(folder, error), end; !error && it != end; it.increment(error)) {
        const fs::path& path = it->path();
        if (texts::lower(texts::shown(path.extension())) != L".csv") continue;
        std::wstring stem = texts::lower(texts::shown(path.stem()));
        const bool own = stem.ends_with(kOwn);
        if (own) stem.resize(stem.size() - kOwn.size());
        found.push_back({path, std::move(stem), own});
    }
    std::ranges::sort(found, [](const TableName& a, const TableName& b) {
        return a.own != b.own ? a.own : a.stem < b.stem;
    });
    return found;
}

std::optional<SizedRow> sizedRow(TableFile& table, const Row& row,
                                 std::span<const wchar_t* const> columns) {
    const auto v = sizesOf(table, row, columns);
    if (!v) return {};
    const bool hasWidth = columns.size() > 1 && columns[1] == std::wstring_view(L"b");
    std::optional<Published> published = publishedIn(table, row, *v, hasWidth);
    if (!published) return {};
    return SizedRow{*v, std::move(*published)};
}

PublishedTables::PublishedTables(const fs::path& folder) {
    const std::vector<TableName> tables = tablesIn(folder);
    for (const TableName& table : tables) {
        if (const std::optional<Family> family = familyOf(table)) {
            read(table.path, *family);
            continue;
        }
        const bool known = std::ranges::any_of(tables, [&](const TableName& other) {
            return !other.own && table.stem.starts_with(other.stem);
        });
        if (table.own && !known)
            m_faults.push_back({table.path, 0,
                                L"não é o nome de uma tabela; use o de uma delas e \"_usuario\", "
                                L"como w_hp_usuario.csv"});
    }
    // Of one size the row that was read first stays first.
    for (auto& entries : m_entries)
        std::ranges::stable_sort(entries, {}, [](const Entry& e) { return e.v[0]; });
}

void PublishedTables::read(const fs::path& file, Family family) {
    TableFile table = TableFile::read(file);
    const std::vector<const wchar_t*> needed = neededColumns(family);
    std::map<std::array<double, 4>, int> lines;
    if (table.columns(needed))
        for (const Row& row : table.rows()) {
            std::optional<SizedRow> sized = sizedRow(table, row, std::span(needed).subspan(1));
            if (!sized) continue;
            order(family, sized->v);
            const auto [first, fresh] = lines.emplace(sized->v, row.line);
            if (fresh) {
                m_entries[static_cast<std::size_t>(family)].push_back({sized->v, m_rows.size()});
                m_rows.push_back(std::move(sized->published));
            } else {
                table.refuse(row, L"a medida já está na linha " + std::to_wstring(first->second) +
                                      L", que vale; tire uma delas");
            }
        }
    m_faults.insert(m_faults.end(), table.faults().begin(), table.faults().end());
}

const Published* PublishedTables::find(Size size) const {
    if (size.family >= Family::kTotal) return nullptr;
    order(size.family, size.v);
    const std::vector<Entry>& entries = m_entries[static_cast<std::size_t>(size.family)];
    const Published* best = nullptr;
    double nearest = kSame;
    auto entry = std::ranges::lower_bound(entries, size.v[0] - kSame, {},
                                          [](const Entry& e) { return e.v[0]; });
    for (; entry != entries.end() && entry->v[0] <= size.v[0] + kSame; ++entry) {
        double away = 0.0;
        for (std::size_t i = size.v.size(); i-- > 0 && away < nearest;)
            away = std::max(away, std::abs(entry->v[i] - size.v[i]));
        if (!(away < nearest)) continue;
        nearest = away;
        best = &m_rows[entry->row];
    }
    return best;
}

fs::path tablesFolder(const fs::path& installation) {
    return texts::entryOf(texts::entryOf(installation, "Perfis"), "Tabelas");
}

std::shared_ptr<const PublishedTables> publishedOf(const fs::path& installation) {
    using Clock = std::chrono::steady_clock;
    /// Name and time of every file there.
    using Stamp = std::map<fs::path, fs::file_time_type>;
    struct Kept {
        fs::path installation;
        Clock::time_point looked;
        Stamp stamp;
        std::shared_ptr<const PublishedTables> tables;
    };
    static Kept kept;
    const bool same = kept.tables && kept.installation.native() == installation.native();
    const Clock::time_point now = Clock::now();
    if (same && now - kept.looked < std::chrono::seconds(1)) return kept.tables;
    const fs::path folder = tablesFolder(installation);
    Stamp stamp;
    std::error_code error;
    for (fs::directory_iterator it(folder, error), end; !error && it != end; it.increment(error)) {
        std::error_code unread;
        stamp[it->path()] = it->last_write_time(unread);
    }
    if (!same || stamp != kept.stamp) kept.tables = std::make_shared<const PublishedTables>(folder);
    kept.installation = installation;
    kept.looked = now;
    kept.stamp = std::move(stamp);
    return kept.tables;
}

}  // namespace zp::tables
