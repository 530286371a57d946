// SPDX-License-Identifier: MIT
// What the editor keeps for programs: how they see it, their reactors, their sets, and what they
// said about the next question.
#pragma once

#include <memory>
#include <string>
#include <utility>

#include "acdocman.h"
#include "aced.h"
#include "prancheta/editor/reactor_list.h"
#include "prancheta/editor/selection_sets.h"
#include "prancheta/editor/user_interface.h"

namespace prancheta {

class Editor;

class ProgramInterface {
public:
    explicit ProgramInterface(Editor& editor);

    AcEditor& acEditor() const { return *m_acEditor; }
    AcApDocManager& documentManager() const { return *m_documentManager; }
    /// The one that there is, whatever drawing it holds.
    AcApDocument& document() const { return *m_document; }

    ReactorList<AcEditorReactor>& reactors() { return m_reactors; }
    ReactorList<AcApDocManagerReactor>& documentReactors() { return m_documentReactors; }

    /// Sets that programs hold by name.
    SelectionSets& selectionSets() { return m_selectionSets; }

    /// Keywords and bits of acedInitGet for the next input call.
    struct InitGet {
        int bits = 0;
        Keywords keywords;
    };
    InitGet takeInitGet() { return std::exchange(m_initGet, {}); }
    void setInitGet(InitGet value) { m_initGet = std::move(value); }
    /// The text of the last RTKWORD.
    const std::wstring& lastKeyword() const { return m_lastKeyword; }
    void setLastKeyword(std::wstring text) { m_lastKeyword = std::move(text); }

private:
    std::unique_ptr<AcEditor> m_acEditor;
    std::unique_ptr<AcApDocManager> m_documentManager;
    std::unique_ptr<AcApDocument> m_document;
    ReactorList<AcEditorReactor> m_reactors;
    ReactorList<AcApDocManagerReactor> m_documentReactors;
    SelectionSets m_selectionSets;
    InitGet m_initGet;
    std::wstring m_lastKeyword;
};

}  // namespace prancheta
