// SPDX-License-Identifier: MIT
// Whether a panel has anything new to show.
#pragma once

#include <cstdint>
#include <vector>

#include "prancheta/database/database_core.h"
#include "prancheta/editor/editor.h"

namespace prancheta::desktop {

/// Remembers which state of the drawing, and of the selection when asked to, was shown last.
class Watch {
public:
    enum class Selection { Ignored, Counts };
    explicit Watch(Selection selection) : m_selection(selection) {}

    /// The next look finds news.
    void forget() { m_known = false; }
    /// True when something changed since the last call that returned true. O(selected).
    bool news(Editor& editor) {
        const std::uint64_t revision = editor.database().core().undo().revision();
        const bool same =
            m_known && m_database == &editor.database() && m_revision == revision &&
            (m_selection == Selection::Ignored || m_selected == editor.selection().ids());
        if (same) return false;
        m_known = true;
        m_database = &editor.database();
        m_revision = revision;
        if (m_selection == Selection::Counts) m_selected = editor.selection().ids();
        return true;
    }

private:
    Selection m_selection;
    bool m_known = false;
    const AcDbDatabase* m_database = nullptr;
    std::uint64_t m_revision = 0;
    std::vector<AcDbObjectId> m_selected;
};

}  // namespace prancheta::desktop
