// SPDX-License-Identifier: MIT
// Drawings: new, open, save; the document as modules see it.
#include "prancheta/editor/documents.h"

#include <algorithm>
#include <limits>

#include "dbdim.h"
#include "prancheta/base/text.h"
#include "prancheta/database/database_core.h"
#include "prancheta/display/appearance.h"
#include "prancheta/display/display_list.h"
#include "prancheta/editor/editor.h"
#include "prancheta/editor/events.h"
#include "prancheta/editor/modules.h"
#include "prancheta/editor/running.h"
#include "prancheta/editor/saved_view.h"
#include "prancheta/editor/selection_sets.h"

namespace prancheta {
namespace {

template <class T>
void addOnce(std::vector<T*>& list, T* item) {
    if (item != nullptr && std::find(list.begin(), list.end(), item) == list.end())
        list.push_back(item);
}

class EditorFace : public AcEditor {
public:
    explicit EditorFace(Editor& editor) : m_editor(editor) {}
    void addReactor(AcEditorReactor* reactor) override { addOnce(m_editor.reactors(), reactor); }
    void removeReactor(AcEditorReactor* reactor) override {
        std::erase(m_editor.reactors(), reactor);
    }

private:
    Editor& m_editor;
};

class DocumentFace : public AcApDocument {
public:
    explicit DocumentFace(Editor& editor) : m_editor(editor) {}
    const ACHAR* fileName() const override {
        m_name = toWide(m_editor.fileName().string());
        return m_name.c_str();
    }
    AcDbDatabase* database() const override { return &m_editor.database(); }

private:
    Editor& m_editor;
    mutable std::wstring m_name;
};

class ManagerFace : public AcApDocManager {
public:
    explicit ManagerFace(Editor& editor) : m_editor(editor) {}
    AcApDocument* curDocument() const override { return &m_editor.document(); }
    AcApDocument* mdiActiveDocument() const override { return &m_editor.document(); }
    void addReactor(AcApDocManagerReactor* reactor) override {
        addOnce(m_editor.documentReactors(), reactor);
    }
    void removeReactor(AcApDocManagerReactor* reactor) override {
        std::erase(m_editor.documentReactors(), reactor);
    }

private:
    Editor& m_editor;
};

void nameDrawing(SystemVariables& variables, const std::filesystem::path& file) {
    const std::filesystem::path shown = file.empty() ? "Desenho1.dxf" : file;
    const std::wstring folder = toWide(shown.parent_path().string());
    variables.force(L"DWGNAME", toWide(shown.filename().string()));
    constexpr auto kSeparator = static_cast<wchar_t>(std::filesystem::path::preferred_separator);
    variables.force(L"DWGPREFIX", folder.empty() ? folder : folder + kSeparator);
}

/// Settings of the session outlive the drawing; the last point does not.
void keepSession(const SystemVariables& from, SystemVariables& to) {
    for (const VariableInfo& info : from.all()) {
        if (info.home != VariableHome::Session || info.access == VariableAccess::ReadOnly) continue;
        if (info.name == L"LASTPOINT" || info.name == L"SNAPANG") continue;
        to.force(info.name, info.value);
    }
}

}  // namespace

std::unique_ptr<AcEditor> makeAcEditor(Editor& editor) {
    return std::make_unique<EditorFace>(editor);
}
std::unique_ptr<AcApDocument> makeDocument(Editor& editor) {
    return std::make_unique<DocumentFace>(editor);
}
std::unique_ptr<AcApDocManager> makeDocumentManager(Editor& editor) {
    return std::make_unique<ManagerFace>(editor);
}

void printFindings(Editor& editor, const dxf::LoadReport& report) {
    for (const dxf::Finding& finding : report.findings) {
        const std::wstring where =
            finding.line > 0 ? L"Linha " + std::to_wstring(finding.line) + L": " : std::wstring();
        editor.print(where + toWide(finding.text) + L"\n");
    }
}

bool Editor::fileChanged() const {
    if (m_fileName.empty()) return false;
    const std::optional<FileStamp> now = fileStampOf(m_fileName);
    return now && now != m_fileStamp;
}

bool Editor::modified() const { return m_database->core().undo().revision() != m_savedRevision; }

/// Nothing may refer to the drawing's objects afterwards.
void Editor::tellClosing() {
    for (AcApDocManagerReactor* reactor : std::vector(m_documentReactors))
        reactor->documentToBeDestroyed(m_document.get());
    m_modules->broadcast(AcRx::kUnloadDwgMsg);
    for (const auto& command : m_running) command->undoDatabase = nullptr;
    m_selection.clear();
    m_selection.setPrevious({});
    m_lastErased = {};
    m_selectionSets->clear();
    m_screen.start();
    m_ucs = AcGeMatrix3d();
    m_pointer.reset();
}

/// Makes a database the working one; the former one goes, with the new one in its place already.
void Editor::adoptDatabase(std::unique_ptr<AcDbDatabase> database, std::filesystem::path fileName) {
    const std::unique_ptr<AcDbDatabase> former = std::exchange(m_database, std::move(database));
    m_fileName = std::move(fileName);
    m_fileStamp = m_fileName.empty() ? std::nullopt : fileStampOf(m_fileName);
    m_savedVersion = dxf::Version::Keep;
    acdbHostApplicationServices()->setWorkingDatabase(m_database.get());
    m_display = std::make_unique<DisplayList>(*m_database);
    m_appearances = std::make_unique<AppearanceTable>(*m_database);
    DatabaseCore& core = m_database->core();
    if (former) keepSession(former->core().variables(), core.variables());
    core.onEntityAppended = [&core](const AcDbEntity& entity) {
        // The layer of definition points comes with the first dimension.
        if (entity.isKindOf(AcDbDimension::desc())) (void)core.ensureLayer(L"Defpoints");
        recordAppended(entity);
    };
    core.onEntityErased = recordErased;
    core.variables().setHooks(
        [this](const VariableInfo& info, const VariableValue&) -> Result<void> {
            if (info.name != L"TRUSTEDPATHS" || !m_typing.inScript()) return {};
            return Error{"Um script não pode mudar a variável TRUSTEDPATHS."};
        },
        {});
    m_savedRevision = core.undo().revision();
    m_typing.drawingReplaced();
    nameDrawing(core.variables(), m_fileName);
}

void Editor::tellOpened() {
    // What modules put right in a drawing that was read is no step of the user's.
    UndoLog& undo = m_database->core().undo();
    undo.setRecording(false);
    m_modules->broadcast(AcRx::kLoadDwgMsg);
    undo.setRecording(true);
    for (AcApDocManagerReactor* reactor : std::vector(m_documentReactors))
        reactor->documentCreated(m_document.get());
}

Result<void> Editor::replaceDatabase(std::unique_ptr<AcDbDatabase> database,
                                     std::filesystem::path fileName) {
    const bool busy = std::any_of(m_running.begin(), m_running.end(),
                                  [](const auto& c) { return c->function != nullptr; });
    if (busy)
        return Error{
            "Há um comando de um módulo em execução; termine-o antes de trocar de desenho."};
    tellClosing();
    adoptDatabase(std::move(database), std::move(fileName));
    tellOpened();
    m_screen.start(openingView(*this));
    if (onDocumentChanged) onDocumentChanged();
    m_ui.refresh();
    return {};
}

Result<void> Editor::newDocument() { return replaceDatabase(std::make_unique<AcDbDatabase>(), {}); }

Result<void> Editor::openDocument(const std::filesystem::path& path, dxf::LoadReport* findings) {
    const std::optional<FileStamp> stamp = fileStampOf(path);
    Result<std::unique_ptr<AcDbDatabase>> loaded = dxf::load(path, findings);
    acdbHostApplicationServices()->setWorkingDatabase(m_database.get());
    if (!loaded) return loaded.error();
    // What came through a pipe has no file to be saved to.
    std::error_code ignored;
    const bool file = std::filesystem::is_regular_file(path, ignored);
    Result<void> replaced = replaceDatabase(
        std::move(*loaded), file ? std::filesystem::absolute(path) : std::filesystem::path());
    if (replaced) m_fileStamp = stamp;  // it may have been written again since
    return replaced;
}

Result<void> Editor::recoverDocument(const std::filesystem::path& copy,
                                     const std::filesystem::path& name,
                                     const std::optional<FileStamp>& stamp) {
    Result<std::unique_ptr<AcDbDatabase>> loaded = dxf::load(copy);
    acdbHostApplicationServices()->setWorkingDatabase(m_database.get());
    if (!loaded) return loaded.error();
    Result<void> replaced = replaceDatabase(std::move(*loaded), name);
    if (!replaced) return replaced;
    m_savedRevision = std::numeric_limits<std::uint64_t>::max();
    m_fileStamp = stamp;
    return replaced;
}

Result<void> Editor::writeDocument(const std::filesystem::path& path,
                                   const dxf::SaveOptions& options) {
    if (path.empty()) return Error{"O desenho ainda não tem nome; informe onde salvar."};
    m_modules->broadcast(AcRx::kSaveMsg);
    dxf::SaveOptions withView = options;
    const View& shown = m_screen.view();
    if (m_screen.chosen() && !withView.view)
        withView.view = {shown.centre.x, shown.centre.y, shown.height,
                         m_screen.width() / m_screen.height()};
    return dxf::save(*m_database, path, withView);
}

Result<void> Editor::saveDocument(const std::filesystem::path& path,
                                  const dxf::SaveOptions& options) {
    const std::filesystem::path target =
        path.empty() ? m_fileName : std::filesystem::absolute(path);
    // The system would end the name there, and another file or the folder itself would be meant.
    if (target.native().find(std::filesystem::path::value_type()) != target.native().npos)
        return Error{"O nome do arquivo contém um caractere nulo; informe outro nome."};
    dxf::SaveOptions withFormer = options;
    if (withFormer.version == dxf::Version::Keep) withFormer.version = m_savedVersion;
    if (m_database->core().variables().number(L"ISAVEBAK") != 0)
        withFormer.former = std::filesystem::path(target).replace_extension(".bak");
    Result<void> written = writeDocument(target, withFormer);
    if (!written) return written;
    m_fileName = target;
    m_fileStamp = fileStampOf(target);
    m_savedVersion = withFormer.version;
    m_savedRevision = m_database->core().undo().revision();
    nameDrawing(m_database->core().variables(), target);
    return {};
}

Result<void> Editor::saveCopy(const std::filesystem::path& path, const dxf::SaveOptions& options) {
    return writeDocument(path, options);
}

}  // namespace prancheta

AcEditor* acedEditorFunction() {
    prancheta::Editor* editor = prancheta::Editor::current();
    return editor != nullptr ? &editor->acEditor() : nullptr;
}

AcApDocManager* acDocManagerPtr() {
    prancheta::Editor* editor = prancheta::Editor::current();
    return editor != nullptr ? &editor->documentManager() : nullptr;
}
