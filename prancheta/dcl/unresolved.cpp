// SPDX-License-Identifier: MIT
// Breadth-first search from each missing name back to its user.
#include "prancheta/dcl/unresolved.h"

#include <algorithm>

namespace prancheta::dcl {
namespace {

constexpr long kSearchBudget = 200000;

}  // namespace

void UnresolvedUses::addResolved(const std::string& user, const std::string& name) {
    m_uses[user].push_back(name);
}

void UnresolvedUses::addMissing(const std::string& user, const std::string& name, const Place& at) {
    m_uses[user].push_back(name);
    m_missing.push_back({user, name, at});
}

std::string UnresolvedUses::circle(const Missing& missing, long& budget) const {
    std::unordered_map<std::string, std::string> reachedFrom;
    std::vector<std::string> queue{missing.name};
    for (std::size_t next = 0; next < queue.size() && queue[next] != missing.user; ++next) {
        const std::string from = queue[next];
        const auto it = m_uses.find(from);
        if (it == m_uses.end()) continue;
        for (const std::string& to : it->second) {
            if (--budget < 0) return {};
            if (to != missing.name && reachedFrom.try_emplace(to, from).second) queue.push_back(to);
        }
    }
    std::string path = missing.user;
    std::string at = missing.user;
    while (at != missing.name) {
        const auto it = reachedFrom.find(at);
        if (it == reachedFrom.end()) return {};
        at = it->second;
        path.insert(0, at + " → ");
    }
    return missing.user + " → " + path;
}

void UnresolvedUses::report(Library& library) const {
    long budget = kSearchBudget;
    for (const Missing& missing : m_missing) {
        const auto it = library.definitions.find(missing.name);
        std::string text;
        if (it == library.definitions.end()) {
            text = "não conheço o componente \"" + missing.name + "\"";
        } else if (const std::string chain = circle(missing, budget); !chain.empty()) {
            text = "as definições formam um círculo: " + chain;
        } else {
            text = "\"" + missing.name + "\" é usado antes de ser definido (linha " +
                   std::to_string(it->second->at.line) + ")";
        }
        library.findings.push_back({Severity::Error, missing.at.error(std::move(text))});
    }
}

}  // namespace prancheta::dcl
