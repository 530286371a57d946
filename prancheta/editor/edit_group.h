// SPDX-License-Identifier: MIT
// One edit by a front end without a command: one step of undo, told to reactors as a command is.
#pragma once

#include <string>
#include <utility>

#include "aced.h"
#include "prancheta/database/database_core.h"
#include "prancheta/editor/dimension_ties.h"
#include "prancheta/editor/editor.h"

namespace prancheta {

/// From its construction to its end everything that changes in the drawing is one step of undo
/// under `name`. Reactors see a command of that name, so what modules tie together follows at the
/// end, inside the step. Make one only when possible() says so; the drawing may not be replaced
/// meanwhile.
class EditGroup {
public:
    /// False while a command runs or waits: the change would become part of its undo step.
    static bool possible(const Editor& editor) { return !editor.runner().active(); }

    EditGroup(Editor& editor, std::wstring name)
        : m_editor(editor), m_undo(editor.database().core().undo()), m_name(std::move(name)) {
        m_undo.begin(m_name);
        tell(&AcEditorReactor::commandWillStart);
    }
    ~EditGroup() {
        tell(m_failed ? &AcEditorReactor::commandFailed : &AcEditorReactor::commandEnded);
        m_editor.dimensionTies().settle();
        m_editor.followChanges(m_failed ? Editor::Step::Other : Editor::Step::Undoable);
        if (m_failed) m_undo.rollbackOpenGroup();
        m_undo.end();
    }
    EditGroup(const EditGroup&) = delete;
    EditGroup& operator=(const EditGroup&) = delete;

    /// The drawing will be again as it was before the group; no step of undo stays.
    void fail() { m_failed = true; }

private:
    void tell(void (AcEditorReactor::*message)(const ACHAR*)) const {
        m_editor.programs().reactors().tell(message, m_name.c_str());
    }

    Editor& m_editor;
    UndoLog& m_undo;
    std::wstring m_name;
    bool m_failed = false;
};

}  // namespace prancheta
