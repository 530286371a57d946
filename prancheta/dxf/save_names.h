// SPDX-License-Identifier: MIT
// Names of records as a file shows them.
#pragma once

#include <set>
#include <string>
#include <unordered_map>
#include <vector>

#include "dbsymtb.h"

namespace prancheta::dxf {

/// Names of symbol table records as values of groups (UTF-8), each made once.
class SaveNames {
public:
    /// R12: up to 31 capitals of A to Z, digits, $, _ and -, each once in its table.
    enum class Rules { Any, R12 };
    explicit SaveNames(Rules rules = Rules::Any) : m_rules(rules) {}

    /// Empty for an id that is no record. The reference lives as long as the object.
    const std::string& of(AcDbObjectId id);
    /// The same, "STANDARD" or the like when the id names nothing that is left.
    const std::string& of(AcDbObjectId id, const std::string& otherwise);

    /// Names of layers that the rules changed, but for the case of letters: "Peças: PECAS".
    const std::vector<std::wstring>& changed() const { return m_changed; }

private:
    std::wstring restricted(const AcDbSymbolTableRecord& record);

    Rules m_rules;
    std::unordered_map<const AcDbStub*, std::string> m_names;
    std::set<std::pair<const AcRxClass*, std::wstring>> m_taken;
    std::vector<std::wstring> m_changed;
};

}  // namespace prancheta::dxf
