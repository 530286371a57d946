// SPDX-License-Identifier: MIT
// How this shop develops strips: Perfis/Tabelas of the installation folder.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "perfis/entities/zpobject.h"
#include "zp/objects/secao/strip.h"

namespace zp {

/// From fator_k.csv (espessura_ate; k) and tiras.csv (designacao; tira), then from the user's
/// fator_k_usuario.csv and tiras_usuario.csv, whose rows count before the others. Read again when a
/// file has changed. Rows that cannot be used are left out and told in stripFaults().
const secao::StripRules& stripRules();
/// Lines for the user, as of the last reading.
const std::vector<std::wstring>& stripFaults();

/// The strip of one single shape of the piece; nothing where it is bent from none.
std::optional<secao::Strip> stripOf(const ZpObject& peca);

}  // namespace zp
