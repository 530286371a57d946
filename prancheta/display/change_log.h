// SPDX-License-Identifier: MIT
// Where the drawing looked different, revision by revision.
#pragma once

#include <cstdint>
#include <deque>
#include <vector>

#include "prancheta/display/box.h"

namespace prancheta {

class ChangeLog {
public:
    /// All of the plan.
    static Box2d everywhere() { return {-1e300, -1e300, 1e300, 1e300}; }

    /// Notes a place for the revision that the next commit() makes.
    void add(const Box2d& box);
    void addEverywhere();
    /// Makes a revision of what was noted; nothing noted, nothing made.
    void commit();
    std::uint64_t revision() const { return m_revision; }
    /// Places of the revisions after `since`; everywhere when they are no longer known.
    std::vector<Box2d> since(std::uint64_t since) const;

private:
    struct Place {
        std::uint64_t revision;
        Box2d box;
    };
    std::vector<Box2d> m_noted;
    std::deque<Place> m_places;      ///< by revision
    std::uint64_t m_knownSince = 0;  ///< older revisions have been forgotten
    std::uint64_t m_revision = 0;
};

}  // namespace prancheta
