// SPDX-License-Identifier: MIT
// Rows of the section's sheet.
#include "zp/objects/secao_rows.h"

#include "zp/objects/peca.h"
#include "zp/objects/published.h"
#include "zp/objects/strip_rules.h"

namespace zp {

std::vector<SecaoRow> secaoRows(const ZpObject& peca, std::wstring (*number)(double, int)) {
    const Peca& p = Access::of(peca);
    if (p.chapa()) return {};
    const secao::Sheet& sheet = p.secao().sheet();
    std::vector<SecaoRow> rows{
        {L"kg_m", L"Peso por metro", number(peca.getLinearWeight(), 3) + L" kg/m"},
        {L"fonte_massa", L"Origem do peso", published::massWords(p)}};
    for (const secao::SheetRow& row : secao::sheetRows()) {
        const std::optional<double> v = row.of(sheet);
        rows.push_back({row.key, row.label,
                        v ? number(*v * row.factor, row.decimals) + L' ' + row.unit
                          : std::wstring(secao::kUndefined),
                        row.fromOrigin});
    }
    if (std::wstring text = secao::slendernessText(sheet); !text.empty())
        rows.push_back({L"esbeltez", secao::kSlenderness, std::move(text)});
    if (const std::optional<secao::Strip> strip = stripOf(peca))
        rows.push_back(
            {L"tira", L"Largura da tira",
             number(strip->width, 2) + (strip->own ? L" mm (tabela da fábrica)" : L" mm")});
    return rows;
}

}  // namespace zp
