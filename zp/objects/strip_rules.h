// SPDX-License-Identifier: MIT
// How this shop develops strips: Perfis/Tabelas of the installation folder.
#pragma once

#include <filesystem>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "perfis/entities/zpobject.h"
#include "zp/objects/secao/strip.h"
#include "zp/tables/table_file.h"

namespace zp {

/// What the files of a folder of tables say.
struct StripFiles {
    struct Width {
        double mm = 0.0;
        std::wstring designacao;
        std::filesystem::path file;
        int line = 0;
    };
    secao::StripRules rules;
    std::map<std::wstring, Width> widths;  ///< those of the rules, by the same keys
    std::vector<tables::Fault> faults;     ///< rows and files that cannot be used
};
StripFiles readStripFiles(const std::filesystem::path& folder);
/// Whether readStripFiles would read a file of that name.
bool isStripFile(const std::filesystem::path& file);
/// That the width does not hold for the strip, which has refused it.
tables::Fault refusedWidth(const StripFiles::Width& width, const secao::Strip& strip);

/// From fator_k.csv (espessura_ate; k) and tiras.csv (designacao; tira), then from the user's
/// fator_k_usuario.csv and tiras_usuario.csv, whose rows count before the others. Read again when a
/// file has changed. Rows that cannot be used are left out and told in stripFaults().
const secao::StripRules& stripRules();
/// Lines for the user, as of the last reading; a width that a strip refused is told from then on.
const std::vector<std::wstring>& stripFaults();

/// The strip of one single shape of the piece; nothing where it is bent from none.
std::optional<secao::Strip> stripOf(const ZpObject& peca);

}  // namespace zp
