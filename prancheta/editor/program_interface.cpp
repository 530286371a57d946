// SPDX-License-Identifier: MIT
// The editor as programs see it.
#include "prancheta/editor/program_interface.h"

#include "prancheta/base/text.h"
#include "prancheta/editor/editor.h"

namespace prancheta {
namespace {

class EditorFace : public AcEditor {
public:
    explicit EditorFace(ProgramInterface& programs) : m_programs(programs) {}
    void addReactor(AcEditorReactor* reactor) override { m_programs.reactors().add(reactor); }
    void removeReactor(AcEditorReactor* reactor) override { m_programs.reactors().remove(reactor); }

private:
    ProgramInterface& m_programs;
};

class DocumentFace : public AcApDocument {
public:
    explicit DocumentFace(Editor& editor) : m_editor(editor) {}
    const ACHAR* fileName() const override {
        m_name = toWide(m_editor.file().name().string());
        return m_name.c_str();
    }
    AcDbDatabase* database() const override { return &m_editor.database(); }

private:
    Editor& m_editor;
    mutable std::wstring m_name;
};

class ManagerFace : public AcApDocManager {
public:
    explicit ManagerFace(ProgramInterface& programs) : m_programs(programs) {}
    AcApDocument* curDocument() const override { return &m_programs.document(); }
    AcApDocument* mdiActiveDocument() const override { return &m_programs.document(); }
    void addReactor(AcApDocManagerReactor* reactor) override {
        m_programs.documentReactors().add(reactor);
    }
    void removeReactor(AcApDocManagerReactor* reactor) override {
        m_programs.documentReactors().remove(reactor);
    }

private:
    ProgramInterface& m_programs;
};

}  // namespace

ProgramInterface::ProgramInterface(Editor& editor)
    : m_acEditor(std::make_unique<EditorFace>(*this)),
      m_documentManager(std::make_unique<ManagerFace>(*this)),
      m_document(std::make_unique<DocumentFace>(editor)) {}

}  // namespace prancheta

AcEditor* acedEditorFunction() {
    prancheta::Editor* editor = prancheta::Editor::current();
    return editor != nullptr ? &editor->programs().acEditor() : nullptr;
}

AcApDocManager* acDocManagerPtr() {
    prancheta::Editor* editor = prancheta::Editor::current();
    return editor != nullptr ? &editor->programs().documentManager() : nullptr;
}
