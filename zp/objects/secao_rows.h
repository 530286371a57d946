// SPDX-License-Identifier: MIT
// The sheet of a piece's section in words, for LIST, the property sheet and tables.
#pragma once

#include <string>
#include <vector>

#include "perfis/entities/zpobject.h"

namespace zp {

struct SecaoRow {
    const wchar_t* key;
    const wchar_t* label;
    std::wstring value;       ///< with its unit; says so where it is not defined
    bool fromOrigin = false;  ///< depends on where the section lies about the insertion point
};
/// Mass, every row of the sheet, slenderness, strip. `number` writes a value with at most so many
/// decimals. None for a plate.
std::vector<SecaoRow> secaoRows(const ZpObject& peca,
                                std::wstring (*number)(double value, int decimals));

/// What is said of a section that could not be drawn.
inline constexpr const wchar_t* kInvalidSecao = L"seção inválida: desenhada pela caixa";

}  // namespace zp
