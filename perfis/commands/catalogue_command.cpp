// SPDX-License-Identifier: MIT
// Finds the folders, and hands over what the examiners find there.
#include "perfis/commands/catalogue_command.h"

#include <exception>
#include <system_error>

#include "acutads.h"
#include "perfis/commands/catalogue_examiner.h"
#include "perfis/dialogs/installation.h"
#include "protocol/catalogues.h"
#include "rxdict.h"
#include "texts/path.h"

namespace perfis {
namespace {

namespace fs = std::filesystem;
using protocol::Severity;

bool isFolder(const fs::path& path) {
    std::error_code error;
    return fs::is_directory(path, error);
}

bool holdsLists(const fs::path& folder) {
    std::error_code error;
    for (fs::directory_iterator entry(folder, error); !error && entry != fs::directory_iterator();
         entry.increment(error))
        if (entry->path().extension() == ".lst") return true;
    return false;
}

class Check : public protocol::CatalogueCheck {
public:
    const ACHAR* check(const ACHAR* folder, protocol::CatalogueVisitor& visitor) const override {
        try {
            const fs::path path = texts::pathOf(folder);
            if (!isFolder(path)) return L"a pasta não existe, ou não é uma pasta";
            const std::optional<CatalogueFolders> folders = cataloguesIn(path);
            if (!folders)
                return L"a pasta não é a de instalação (com Perfis/Listas) nem a das listas (com "
                       L"arquivos .lst)";
            for (const CatalogueFinding& f : examineCatalogues(*folders))
                visitor.finding({f.severity, f.file.c_str(), f.line, f.row.c_str(), f.text.c_str(),
                                 f.remedy.c_str()});
            return nullptr;
        } catch (const std::exception&) {
            return L"falta memória";
        }
    }
};

class Printer : public protocol::CatalogueVisitor {
public:
    void finding(const protocol::CatalogueFinding& finding) override {
        m_tally.count(finding.severity);
        acutPrintf(L"\n%ls", protocol::lineOf(finding).c_str());
    }
    void end() const { acutPrintf(L"\n%ls\n", m_tally.summary().c_str()); }

private:
    protocol::Tally m_tally;
};

Check g_check;  // kept by pointer in the registry

}  // namespace

std::optional<CatalogueFolders> cataloguesIn(const fs::path& folder) {
    for (const fs::path& perfis : {texts::entryOf(folder, "Perfis"), folder})
        if (const fs::path lists = texts::entryOf(perfis, "Listas"); isFolder(lists))
            return CatalogueFolders{lists, texts::entryOf(perfis, "Tabelas")};
    if (!holdsLists(folder)) return {};
    std::error_code error;
    const fs::path above = fs::weakly_canonical(folder, error).parent_path();
    fs::path tables = texts::entryOf(above, "Tabelas");
    if (const auto installed = installationFolder(); !isFolder(tables) && installed)
        tables = texts::pathOf(*installed) / "Perfis" / "Tabelas";
    return CatalogueFolders{folder, tables};
}

CatalogueFindings examineCatalogues(const CatalogueFolders& folders) {
    CatalogueFindings findings;
    SideTables tables = examineTables(folders.tables, findings);
    if (!isFolder(folders.tables)) {
        findings.push_back({Severity::Fault,
                            texts::shown(folders.tables.filename()),
                            0,
                            {},
                            L"Falta a pasta das tabelas; as listas não foram comparadas com elas.",
                            L"Copie-a de uma instalação inteira."});
        for (SideTable& table : tables) table.there = true;  // said once
    }
    examineStrips(folders.tables, tables, findings);
    examineLists(folders.lists, tables, findings);
    return findings;
}

void catalogueCommand() {
    const std::optional<std::wstring> folder = requiredInstallationFolder();
    if (!folder) return;
    Printer printer;
    if (const ACHAR* const why = g_check.check(folder->c_str(), printer))
        acutPrintf(L"\n%ls: %ls.\n", folder->c_str(), why);
    else
        printer.end();
}

void installCatalogueExaminer() {
    acrxSysRegistry()->atPut(protocol::kCatalogueCheckKey, &g_check);
}

void removeCatalogueExaminer() { acrxSysRegistry()->remove(protocol::kCatalogueCheckKey); }

}  // namespace perfis
