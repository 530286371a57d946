// SPDX-License-Identifier: MIT
// Uses of names that were not defined yet, told apart at the end of a load.
#pragma once

#include <string>
#include <unordered_map>
#include <vector>

#include "prancheta/dcl/definition.h"

namespace prancheta::dcl {

/// Who uses whom, by name. Linear in the number of uses; the search for circles has a fixed budget
/// of steps, after which a circle is reported as a use before the definition, which it is too.
class UnresolvedUses {
public:
    void addResolved(const std::string& user, const std::string& name);
    void addMissing(const std::string& user, const std::string& name, const Place& at);

    /// Adds one error for each missing name.
    void report(Library& library) const;

private:
    struct Missing {
        std::string user;
        std::string name;
        Place at;
    };
    /// "a → b → a", or empty when `missing` closes no circle.
    std::string circle(const Missing& missing, long& budget) const;

    std::unordered_map<std::string, std::vector<std::string>> m_uses;
    std::vector<Missing> m_missing;
};

}  // namespace prancheta::dcl
