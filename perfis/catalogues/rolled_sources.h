// SPDX-License-Identifier: MIT
// Sources of sizes of the rolled I: three pairs of files that are only read.
#pragma once

#include <string>
#include <string_view>

#include "zp/forja/zpstringlist.h"

namespace perfis {

struct RolledSource {
    const wchar_t* radio;   ///< tile that chooses it
    const wchar_t* sizes;   ///< list file whose lines are shown
    const wchar_t* data;    ///< list file whose line at the same place carries the numbers
    const wchar_t* title;   ///< of the dialog
    const wchar_t* header;  ///< of the columns shown
    int secaoType;          ///< of the entity, ZpILaminadoUSA::ISolType
    int firstColumn;        ///< of the numbers in a data line: 1 behind a designation
};

inline constexpr int kRolledSourceCount = 3;
/// 0 AçoMinas, 1 European, 2 American.
const RolledSource& rolledSource(int source);

/// A size as its data line has it: texts of H, B, tf, tw in mm and of the linear mass in kg/m.
/// Fields that the line lacks are empty.
struct RolledSize {
    std::wstring H;
    std::wstring B;
    std::wstring tf;
    std::wstring tw;
    std::wstring mass;
};

RolledSize rolledSize(const RolledSource& source, const ZpString& dataLine);

/// Lines of such a file, up to 510 characters each; blank lines keep their place. False, and
/// `lines` is untouched, when the file cannot be opened.
bool readRolledLines(std::wstring_view path, ZpStringList& lines);

}  // namespace perfis
