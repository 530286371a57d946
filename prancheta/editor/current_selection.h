// SPDX-License-Identifier: MIT
// What is selected while no command runs, and the last selection that a command made.
#pragma once

#include <vector>

#include "prancheta/editor/grips.h"

namespace prancheta {

class Editor;

class CurrentSelection {
public:
    using Ids = std::vector<AcDbObjectId>;
    explicit CurrentSelection(const Editor& editor) : m_editor(editor) {}

    /// Selected before a command, shown with grips.
    const Ids& ids() const { return m_ids; }
    bool empty() const { return m_ids.empty(); }
    /// Selects these instead. Grips of others are hot no longer.
    void select(Ids ids);
    /// Nothing is selected any more, and no grip is hot.
    void clear();
    /// Gives the selection to a command and clears it; empty under PICKFIRST 0.
    Ids take();
    /// A pick at "Comando:": adds to the selection, with Shift takes out of it, or as PICKFIRST and
    /// PICKADD say otherwise. O(both).
    enum class Shift { Up, Down };
    void pick(const Ids& ids, Shift shift);

    /// Grips of the selected that were clicked, in that order: what the command GRIPS works on; it
    /// cools them.
    const std::vector<Grip>& hotGrips() const { return m_hotGrips; }
    bool isHot(const Grip& grip) const;
    /// Makes it the last one of them.
    void heat(const Grip& grip);
    void cool(const Grip& grip);
    void coolAll() { m_hotGrips.clear(); }

    /// Last selection that a command made ("_P").
    const Ids& previous() const { return m_previous; }
    void setPrevious(Ids ids) { m_previous = std::move(ids); }

private:
    void coolOthers();

    const Editor& m_editor;
    Ids m_ids;
    Ids m_previous;
    std::vector<Grip> m_hotGrips;
};

}  // namespace prancheta
