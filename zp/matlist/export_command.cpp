// SPDX-License-Identifier: MIT
// EXPORTAR: what is shown, and what is cut from sheets, in files for the shop.
#include <algorithm>
#include <array>
#include <set>

#include "dbapserv.h"
#include "protocol/answers.h"
#include "protocol/cut_files.h"
#include "rxdict.h"
#include "texts/letters.h"
#include "texts/path.h"
#include "zp/matlist/ask_which.h"
#include "zp/matlist/asking.h"
#include "zp/matlist/export_tables.h"
#include "zp/matlist/flat_parts.h"
#include "zp/matlist/formats.h"
#include "zp/matlist/plan_files.h"
#include "zp/matlist/shop_check.h"
#include "zp/objects/strip_rules.h"

namespace zp::matlist {
namespace {

enum class What { List, Summary, Plan, Flat, Findings, Layers, Force };
constexpr std::array kWords{Option{L"Lista", L"List"},        Option{L"Resumo", L"Summary"},
                            Option{L"Plano", L"Plan"},        Option{L"cHapas", L"flaT"},
                            Option{L"cOnferência", L"Check"}, Option{L"caMadas", L"layErs"},
                            Option{L"Forçar", L"Forcar"}};

struct Wish {
    What what = What::List;
    bool forced = false;
};

/// Nothing when the user gave up.
std::optional<Wish> askWish() {
    Wish wish;
    for (;;) {
        const std::span<const Option> words(kWords.data(), kWords.size() - (wish.forced ? 1 : 0));
        const std::optional<std::size_t> chosen = askOption(L"\nExportar", words, 0);
        if (!chosen) return {};
        wish.what = static_cast<What>(*chosen);
        if (wish.what != What::Force) return wish;
        wish.forced = true;
    }
}

std::set<std::wstring> marcasOf(const std::vector<Linha>& rows) {
    std::set<std::wstring> marcas;
    for (const Linha& row : rows)
        if (!erased(row)) marcas.insert(row.marca);
    return marcas;
}
std::set<std::wstring> marcasOf(const std::vector<FlatPart>& parts) {
    std::set<std::wstring> marcas;
    for (const FlatPart& part : parts) marcas.insert(part.marca);
    return marcas;
}

void tellFailure(const std::filesystem::path& file) {
    protocol::fail(L"Não foi possível gravar " + texts::shown(file) +
                   L"; verifique a pasta e a permissão.");
}

/// `write` takes the file's path.
template <class Write>
void askAndWrite(Write write) {
    const auto file = kWriteTableXlsx != nullptr
                          ? askDestination(L"\nArquivo .xlsx ou .csv: ", {L".xlsx", L".csv"})
                          : askDestination(L"\nArquivo .csv: ", {L".csv"});
    if (!file) return;
    if (write(*file))
        acutPrintf(L"\nGravado em %ls.\n", texts::shown(*file).c_str());
    else
        tellFailure(*file);
}

void exportTable(const FileTable& table) {
    askAndWrite([&](const std::filesystem::path& file) { return writeTable(file, table); });
}

void exportRows(What what, const MaterialList& list, const std::vector<Linha>& all) {
    if (what == What::Summary) return exportTable(summaryTable(all));
    if (what == What::Plan) {
        const auto plans = plansOf(all, lastCutSettings(), readLeftOvers());
        if (plans.empty()) return protocol::fail(kNothingToCut);
        return exportTable(tableOf(plans, lastCutSettings()));
    }
    askAndWrite([&](const std::filesystem::path& file) {
        const auto format = std::ranges::find_if(kFormatTable, [&](const Format& f) {
            return texts::equalIgnoringCase(texts::shown(file.extension()),
                                            L"." + std::wstring(f.shown.extension));
        });
        return format->write(file, listingOf(list));
    });
}

/// "3 marcas, 12 chapas em /obra/corte. Sem vista do comprimento, de fora: P7."
std::wstring writtenWords(const FlatParts& flat, const std::filesystem::path& destination) {
    long long pieces = 0;
    for (const FlatPart& part : flat.parts) pieces += part.count;
    const std::size_t n = flat.parts.size();
    std::wstring text = std::to_wstring(n) + (n == 1 ? L" marca, " : L" marcas, ") +
                        std::to_wstring(pieces) + (pieces == 1 ? L" chapa" : L" chapas") + L" em " +
                        texts::shown(destination) + L".";
    for (const std::wstring& marca : flat.leftOut)
        text += (&marca == flat.leftOut.data() ? L" Sem vista do comprimento, de fora: " : L", ") +
                marca;
    return flat.leftOut.empty() ? text : text + L".";
}

protocol::CutFilesOutcome writeParts(const FlatParts& flat,
                                     const std::filesystem::path& destination, std::wstring& told) {
    const bool together = texts::equalIgnoringCase(texts::shown(destination.extension()), L".dxf");
    if (const auto other = inTheWay(destination, together, flat.parts); !other.empty()) {
        told = texts::shown(other) +
               L" já existe e não é um arquivo de chapas; nada foi gravado. Escolha outro lugar.";
        return protocol::CutFilesOutcome::Refused;
    }
    std::filesystem::path failed;
    if (together) {
        if (!writeTogether(destination, flat.parts)) failed = destination;
    } else {
        failed = writeEach(destination, flat.parts);
    }
    told = failed.empty() ? writtenWords(flat, destination)
                          : L"Não foi possível gravar " + texts::shown(failed) +
                                L"; verifique a pasta e a permissão.";
    return failed.empty() ? protocol::CutFilesOutcome::Written : protocol::CutFilesOutcome::Failed;
}

constexpr const wchar_t* kNothingFlat =
    L"A lista não tem chapas nem perfis dobrados desenhados; nada foi gravado.";

bool replaces(const std::filesystem::path& folder, const std::vector<FlatPart>& parts) {
    std::error_code error;  // what cannot be asked cannot be written either, and that is told
    const auto there = std::ranges::count_if(fileNamesOf(parts), [&](const auto& name) {
        return std::filesystem::exists(folder / name, error);
    });
    return there == 0 || confirm(L"\nArquivos da pasta que seriam substituídos: " +
                                     std::to_wstring(there) + L". Substituir?",
                                 Answer::No) == Answer::Yes;
}

void exportParts(const FlatParts& flat) {
    for (const std::wstring& fault : stripFaults()) acutPrintf(L"\n%ls", fault.c_str());
    constexpr Option kFiles[] = {{L"Pasta", L"Folder"}, {L"Um", L"One"}};
    const auto chosen = askOption(L"\nUm arquivo por marca numa pasta, ou um só", kFiles, 0);
    if (!chosen) return;
    std::filesystem::path destination;
    if (*chosen == 1) {
        const auto file = askDestination(L"\nArquivo DXF: ", {L".dxf"});
        if (!file) return;
        destination = *file;
    } else {
        const auto typed = askTyped(L"Pasta: ");
        if (!typed || typed->empty()) return;
        destination = texts::pathOf(withoutQuotes(*typed)) / "";
        if (!replaces(destination, flat.parts)) return;
    }
    std::wstring told;
    if (writeParts(flat, destination, told) == protocol::CutFilesOutcome::Written)
        acutPrintf(L"\n%ls\n", told.c_str());
    else
        protocol::fail(told);
}

/// For as long as nothing keeps the list's members from the shop.
void exportList(AcDbDatabase& drawing, const Wish& wish) {
    const std::optional<MaterialList> list = chooseList(drawing);
    if (!list) return;
    const std::vector<Linha> all = rows(list->id);
    const FlatParts flat = wish.what == What::Flat ? flatPartsOf(all) : FlatParts();
    if (wish.what == What::Flat && flat.parts.empty()) {
        protocol::fail(kNothingFlat);
        return;
    }
    if (!wish.forced) {
        const std::wstring objection =
            objectionTo(drawing, wish.what == What::Flat ? marcasOf(flat.parts) : marcasOf(all));
        if (!objection.empty()) {
            protocol::fail(objection);
            return;
        }
    }
    if (wish.what == What::Flat)
        exportParts(flat);
    else
        exportRows(wish.what, *list, all);
}

class Files : public protocol::CutFiles {
public:
    protocol::CutFilesOutcome write(AcDbDatabase& drawing, const ACHAR* destination, bool forced,
                                    std::wstring& told) const override {
        std::vector<Linha> all;
        for (const MaterialList& list : materialLists(drawing))
            std::ranges::move(rows(list.id), std::back_inserter(all));
        const FlatParts flat = flatPartsOf(all);
        told.clear();
        if (flat.parts.empty()) told = kNothingFlat;
        if (told.empty() && !forced) told = objectionTo(drawing, marcasOf(flat.parts));
        if (!told.empty()) return protocol::CutFilesOutcome::Refused;
        return writeParts(flat, texts::pathOf(destination), told);
    }
};
Files g_files;  // kept by pointer in the registry

}  // namespace

void exportCommand() {
    AcDbDatabase* const drawing = acdbHostApplicationServices()->workingDatabase();
    if (drawing == nullptr) return;
    const std::optional<Wish> wish = askWish();
    if (!wish) return;
    if (wish->what == What::Findings)
        exportTable(findingsTable(*drawing));
    else if (wish->what == What::Layers)
        exportTable(layersTable(*drawing));
    else
        exportList(*drawing, *wish);
}

void installCutFiles() { acrxSysRegistry()->atPut(protocol::kCutFilesKey, &g_files); }
void uninstallCutFiles() { acrxSysRegistry()->remove(protocol::kCutFilesKey); }

}  // namespace zp::matlist
