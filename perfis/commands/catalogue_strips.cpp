// SPDX-License-Identifier: MIT
// The shop's own strips, each against the mid-line of the size that its name means.
#include "perfis/commands/catalogue_examiner.h"
#include "texts/path.h"
#include "zp/objects/secao/secao.h"
#include "zp/objects/secao/single.h"
#include "zp/objects/strip_rules.h"

namespace perfis {
namespace {

using protocol::Severity;

zp::secao::Secao drawn(const Family& family, const SizeKey& key) {
    Medidas medidas;
    for (std::size_t i = 0; i < family.sizes.size(); ++i)
        medidas.*family.sizes[i].medida = 0.01 * static_cast<double>(key[i]);
    const PecaRequest request{.medidas = medidas, .comprimento = 1.0, .source = family.source};
    const PerfilDescription& description = family.command->description;
    return {description.pecas.kind, valuesFor(description, request)};
}

/// Holds the widths against the rows of their names; what is left has none.
class WidthExaminer {
public:
    WidthExaminer(const zp::StripFiles& files, CatalogueFindings& findings)
        : m_files(files), m_unknown(files.widths), m_findings(findings) {}

    void examine(const Family& family, const SizeKey& size, const TabledRow& row) {
        const auto width = m_unknown.find(zp::secao::designationKey(row.designacao));
        if (width == m_unknown.end()) return;
        const zp::secao::Secao secao = drawn(family, size);
        if (secao.invalid()) return;
        const auto strip = zp::secao::stripOf(secao.sheet(), row.designacao, m_files.rules);
        if (!strip) return;
        if (strip->refused)
            m_findings.push_back(findingOf(zp::refusedWidth(width->second, *strip)));
        m_unknown.erase(width);
    }
    void tellUnknown() {
        for (const auto& [key, width] : m_unknown)
            m_findings.push_back({Severity::Hint, texts::shown(width.file.filename()), width.line,
                                  width.designacao,
                                  L"A designação não é de um perfil dobrado das tabelas, e a "
                                  L"largura não foi conferida.",
                                  L"Confira-a; escreva como U 200x75x3."});
    }

private:
    const zp::StripFiles& m_files;
    std::map<std::wstring, zp::StripFiles::Width> m_unknown;
    CatalogueFindings& m_findings;
};

}  // namespace

void examineStrips(const std::filesystem::path& folder, const SideTables& tables,
                   CatalogueFindings& findings) {
    const zp::StripFiles files = zp::readStripFiles(folder);
    for (const zp::tables::Fault& fault : files.faults) findings.push_back(findingOf(fault));
    if (files.widths.empty()) return;
    WidthExaminer examiner(files, findings);
    for (std::size_t i = 0; i < tables.size(); ++i) {
        const Family& family = families()[i];
        if (family.command == nullptr) continue;
        for (const auto& [key, size] : tables[i].sizes)
            for (const auto* const row : {&size.own, &size.delivered})
                if (*row) examiner.examine(family, key, **row);
    }
    examiner.tellUnknown();
}

}  // namespace perfis
