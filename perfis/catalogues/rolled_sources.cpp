// SPDX-License-Identifier: MIT
// The pairs of files of the rolled I.
#include "perfis/catalogues/rolled_sources.h"

#include <array>

#include "perfis/catalogues/list_text.h"

namespace perfis {
namespace {

constexpr std::array<RolledSource, kRolledSourceCount> kSources = {{
    {L"rd_acominas", L"BitolasAcoMinas.lst", L"DadosAcoMinas.lst", L"I Laminado - Açominas",
     L"Bitolas", 1, 0},
    {L"rd_europe", L"vi_lam.lst", L"ipe.lst", L"I Laminado - Europeus", L"Tipo\tH\tKg/m", 0, 1},
    {L"rd_usa", L"vi_usa.lst", L"vi_usa_dados.lst", L"I Laminado - Americanos", L"H\tKg/m", 2, 0},
}};

}  // namespace

const RolledSource& rolledSource(int source) {
    return kSources.at(static_cast<std::size_t>(source));
}

RolledSize rolledSize(const RolledSource& source, const ZpString& dataLine) {
    const ZpStringList fields = dataLine.Separate(L"\t");
    const auto field = [&](int column) { return fields.at(source.firstColumn + column).str(); };
    return {field(0), field(1), field(2), field(3), field(4)};
}

bool readRolledLines(std::wstring_view path, ZpStringList& lines) {
    constexpr std::size_t kReadBuffer = 511;
    const std::shared_ptr<const ListText> list = readListText(path);
    if (!list) return false;
    lines.clear();
    LineReader reader(list->text);
    std::wstring line;
    while (reader.read(line, kReadBuffer)) {
        cutAtSeparator(line, L"\n\r");
        // A text ends at its first null character.
        if (line.front() == L'\0') break;
        lines.append(line == L"\n" ? ZpString() : ZpString(line.c_str()));
    }
    return true;
}

}  // namespace perfis
