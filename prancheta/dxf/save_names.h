// SPDX-License-Identifier: MIT
// Names of records as a file shows them.
#pragma once

#include <string>
#include <unordered_map>

#include "dbid.h"

namespace prancheta::dxf {

/// Names of symbol table records as values of groups (UTF-8), each made once.
class SaveNames {
public:
    /// Empty for an id that is no record. The reference lives as long as the object.
    const std::string& of(AcDbObjectId id);
    /// The same, "STANDARD" or the like when the id names nothing that is left.
    const std::string& of(AcDbObjectId id, const std::string& otherwise);

private:
    std::unordered_map<const AcDbStub*, std::string> m_names;
};

}  // namespace prancheta::dxf
