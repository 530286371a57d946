// SPDX-License-Identifier: MIT
// The shop's files of strips, kept until they change.
#include "zp/objects/strip_rules.h"

#include <algorithm>
#include <array>
#include <set>

#include "texts/letters.h"
#include "texts/number.h"
#include "texts/path.h"
#include "zp/objects/layers.h"
#include "zp/objects/peca.h"
#include "zp/objects/secao/single.h"

namespace zp {
namespace {

namespace fs = std::filesystem;

/// Widest strip that is believed, mm.
constexpr double kWidest = 1e5;

struct Kept {
    StripFiles files;
    std::vector<std::wstring> faults;
    std::set<std::wstring> refused;  ///< widths that are told
};

/// Whether the row is the first of its file with that key; the others are told.
template <class Key>
bool firstOf(std::map<Key, int>& lines, const Key& key, tables::TableFile& table,
             const tables::Row& row, const wchar_t* what) {
    const auto [first, fresh] = lines.try_emplace(key, row.line);
    if (!fresh)
        table.refuse(row, std::wstring(what) + L" já está na linha " +
                              std::to_wstring(first->second) + L", que vale; tire uma delas");
    return fresh;
}

void readFactorK(tables::TableFile& table, StripFiles& files) {
    constexpr double kLeast = 0.2;
    constexpr double kMost = 0.6;
    const auto columns = table.columns(std::array{L"espessura_ate", L"k"});
    if (!columns) return;
    std::map<double, int> lines;
    for (const tables::Row& row : table.rows()) {
        const std::size_t told = table.faults().size();
        const double t = table.number(row, columns->at(0)).value_or(0.0);
        const double factor = table.number(row, columns->at(1)).value_or(-1.0);
        if (table.faults().size() != told) continue;
        if (!(t > 0.0 && factor >= kLeast && factor <= kMost))
            table.refuse(row, L"a linha não vale; escreva espessura_ate em mm e k de 0,2 a 0,6");
        else if (firstOf(lines, t, table, row, L"a espessura"))
            files.rules.factorK.try_emplace(t, factor);
    }
}

void readWidths(tables::TableFile& table, StripFiles& files) {
    const auto columns = table.columns(std::array{L"designacao", L"tira"});
    if (!columns) return;
    std::map<std::wstring, int> lines;
    for (const tables::Row& row : table.rows()) {
        const std::size_t told = table.faults().size();
        const std::wstring name = table.text(row, columns->at(0));
        const std::wstring key = secao::designationKey(name);
        const double mm = table.number(row, columns->at(1)).value_or(0.0);
        if (table.faults().size() != told) continue;
        if (!(!key.empty() && mm > 0.0 && mm <= kWidest))
            table.refuse(row, L"a linha não vale; escreva designacao e tira, a largura em mm");
        else if (firstOf(lines, key, table, row, L"a medida") &&
                 files.rules.widths.try_emplace(key, mm).second)
            files.widths[key] = {mm, name, table.path(), row.line};
    }
}

struct Source {
    const char* file;
    void (*read)(tables::TableFile& table, StripFiles& files);
};
/// An earlier one's rows count before a later one's.
constexpr std::array<Source, 4> kSources{{{"fator_k_usuario.csv", readFactorK},
                                          {"fator_k.csv", readFactorK},
                                          {"tiras_usuario.csv", readWidths},
                                          {"tiras.csv", readWidths}}};

/// When the folder last gained or lost a file and when each file last changed.
using Dates = std::array<fs::file_time_type, kSources.size() + 1>;

Dates datesOf(const fs::path& folder, const std::array<fs::path, kSources.size()>& files) {
    std::error_code none;  // what is not there has a date of its own
    Dates dates;
    dates[0] = fs::last_write_time(folder, none);
    for (std::size_t i = 0; i < files.size(); ++i)
        dates[i + 1] = fs::last_write_time(files[i], none);
    return dates;
}

Kept& kept() {
    static fs::path installation;
    static fs::path folder;
    static std::array<fs::path, kSources.size()> files;
    static Dates dates;
    static Kept read;
    fs::path current = installationFolder();
    const bool same = !installation.empty() && current.native() == installation.native();
    if (same && datesOf(folder, files) == dates) return read;
    installation = std::move(current);
    folder = texts::entryOf(texts::entryOf(installation, "Perfis"), "Tabelas");
    for (std::size_t i = 0; i < files.size(); ++i)
        files[i] = texts::entryOf(folder, kSources[i].file);
    dates = datesOf(folder, files);
    read = {};
    read.files = readStripFiles(folder);
    for (const tables::Fault& fault : read.files.faults) read.faults.push_back(tables::told(fault));
    return read;
}

}  // namespace

StripFiles readStripFiles(const fs::path& folder) {
    StripFiles files;
    for (const Source& source : kSources) {
        tables::TableFile table = tables::TableFile::read(texts::entryOf(folder, source.file));
        source.read(table, files);
        files.faults.insert(files.faults.end(), table.faults().begin(), table.faults().end());
    }
    return files;
}

bool isStripFile(const fs::path& file) {
    const std::wstring name = texts::shown(file.filename());
    return std::ranges::any_of(kSources, [&](const Source& source) {
        return texts::equalIgnoringCase(name, texts::shown(source.file));
    });
}

tables::Fault refusedWidth(const StripFiles::Width& width, const secao::Strip& strip) {
    return {width.file, width.line,
            L"a tira de " + texts::withComma(width.mm, 1) + L" mm para " + width.designacao +
                L" fica a mais de 15 % da linha média, " + texts::withComma(strip.midLine, 1) +
                L" mm, e não vale; corrija a largura ou a designação"};
}

const secao::StripRules& stripRules() { return kept().files.rules; }

const std::vector<std::wstring>& stripFaults() { return kept().faults; }

std::optional<secao::Strip> stripOf(const ZpObject& peca) {
    const Peca& p = Access::of(peca);
    if (p.chapa()) return {};
    const secao::Single single = secao::singleOf(p.perfil(), p.dimensoes());
    Kept& shop = kept();
    std::wstring name = single.perfil + L' ' + single.dimensoes;
    // The shop may call a size as its own table does.
    if (p.commercial && shop.files.rules.widths.contains(secao::designationKey(p.commercial->name)))
        name = p.commercial->name;
    auto strip = secao::stripOf(p.secao().sheet(), name, shop.files.rules);
    if (!strip || !strip->refused) return strip;
    const std::wstring key = secao::designationKey(name);
    if (shop.refused.insert(key).second)
        shop.faults.push_back(tables::told(refusedWidth(shop.files.widths.at(key), *strip)));
    return strip;
}

}  // namespace zp
