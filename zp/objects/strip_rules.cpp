// SPDX-License-Identifier: MIT
// The shop's files of strips, kept until they change.
#include "zp/objects/strip_rules.h"

#include <array>
#include <filesystem>

#include "texts/path.h"
#include "zp/objects/layers.h"
#include "zp/objects/peca.h"
#include "zp/objects/secao/single.h"
#include "zp/tables/table_file.h"

namespace zp {
namespace {

namespace fs = std::filesystem;

/// Widest strip that is believed, mm.
constexpr double kWidest = 1e5;

struct Kept {
    secao::StripRules rules;
    std::vector<std::wstring> faults;
};

void readFactorK(tables::TableFile& table, Kept& kept) {
    const int upTo = table.column(L"espessura_ate");
    const int k = table.column(L"k");
    for (const tables::Row& row : table.rows()) {
        const std::size_t told = table.faults().size();
        const double t = table.number(row, upTo).value_or(0.0);
        const double factor = table.number(row, k).value_or(-1.0);
        if (t > 0.0 && factor >= 0.0 && factor <= 1.0)
            kept.rules.factorK[t] = factor;
        else if (table.faults().size() == told)
            table.refuse(row, L"escreva espessura_ate em mm e k de 0 a 1");
    }
}

void readWidths(tables::TableFile& table, Kept& kept) {
    const int designation = table.column(L"designacao");
    const int width = table.column(L"tira");
    for (const tables::Row& row : table.rows()) {
        const std::size_t told = table.faults().size();
        const std::wstring key = secao::designationKey(table.text(row, designation));
        const double mm = table.number(row, width).value_or(0.0);
        if (!key.empty() && mm > 0.0 && mm <= kWidest)
            kept.rules.widths[key] = mm;
        else if (table.faults().size() == told)
            table.refuse(row, L"escreva designacao e tira, a largura em mm");
    }
}

struct Source {
    const char* file;
    void (*read)(tables::TableFile& table, Kept& kept);
};
/// A later one's rows count before an earlier one's.
constexpr std::array<Source, 4> kSources{{{"fator_k.csv", readFactorK},
                                          {"fator_k_usuario.csv", readFactorK},
                                          {"tiras.csv", readWidths},
                                          {"tiras_usuario.csv", readWidths}}};

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

const Kept& kept() {
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
    for (std::size_t i = 0; i < files.size(); ++i) {
        tables::TableFile table = tables::TableFile::read(files[i]);
        kSources[i].read(table, read);
        for (const tables::Fault& fault : table.faults())
            read.faults.push_back(tables::told(fault));
    }
    return read;
}

}  // namespace

const secao::StripRules& stripRules() { return kept().rules; }

const std::vector<std::wstring>& stripFaults() { return kept().faults; }

std::optional<secao::Strip> stripOf(const ZpObject& peca) {
    const Peca& p = Access::of(peca);
    if (p.chapa()) return {};
    const secao::Single single = secao::singleOf(p.perfil(), p.dimensoes());
    return secao::stripOf(p.secao().sheet(), single.perfil + L' ' + single.dimensoes, stripRules());
}

}  // namespace zp
