// SPDX-License-Identifier: MIT
// What a module finds wrong with the catalogues of sizes that it draws from.
//
// Header only, on the run-time class system alone, as report.h.
#pragma once

#include <string>

#include "protocol/check.h"

namespace protocol {

/// Texts in Portuguese, whole sentences; all of it is good during the visit only.
struct CatalogueFinding {
    Severity severity;
    const ACHAR* file;    ///< without its folder
    int line;             ///< counts from 1; 0: the file as a whole
    const ACHAR* row;     ///< what stands there, on one line; may be empty
    const ACHAR* text;    ///< what is wrong, and by how much
    const ACHAR* remedy;  ///< what to do
};

class CatalogueVisitor {
public:
    virtual ~CatalogueVisitor() = default;
    virtual void finding(const CatalogueFinding& finding) = 0;
};

/// Object of the system registry under kCatalogueCheckKey.
class CatalogueCheck : public AcRxObject {
public:
    /// Every row of every list and side table, in the order of the files; changes nothing.
    /// `folder` is an installation folder or its folder of lists. Null; or, and nothing is visited,
    /// why there is nothing to examine.
    virtual const ACHAR* check(const ACHAR* folder, CatalogueVisitor& visitor) const = 0;
};
inline constexpr const ACHAR* kCatalogueCheckKey = L"ZP_CATALOGUE_CHECK";

/// "aviso: pu.lst, linha 3 (50 25 2.00): O quê. O que fazer.", as command and program print it.
inline std::wstring lineOf(const CatalogueFinding& finding) {
    std::wstring line = finding.severity == Severity::Hint ? L"aviso: " : L"";
    line += finding.file;
    if (finding.line > 0) line += L", linha " + std::to_wstring(finding.line);
    if (*finding.row != L'\0') line += std::wstring(L" (") + finding.row + L")";
    return line + L": " + finding.text + L" " + finding.remedy;
}

}  // namespace protocol
