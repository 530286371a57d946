// SPDX-License-Identifier: MIT
// The drawing's file.
#include "prancheta/editor/drawing_file.h"

#include <limits>
#include <map>

#include "prancheta/base/memory.h"
#include "prancheta/base/text.h"
#include "prancheta/base/utf8_path.h"
#include "prancheta/database/database_core.h"
#include "prancheta/database/layouts.h"
#include "prancheta/database/object_access.h"
#include "prancheta/editor/editor.h"
#include "prancheta/editor/lost_pieces.h"
#include "prancheta/editor/modules.h"
#include "prancheta/entities/foreign_entity.h"
#include "prancheta/entities/foreign_shapes.h"
#include "prancheta/entities/viewports.h"

namespace prancheta {
namespace {

void nameDrawing(SystemVariables& variables, const std::filesystem::path& file) {
    const std::filesystem::path shown = file.empty() ? "Desenho1.dxf" : file;
    const std::wstring folder = toWide(shown.parent_path().string());
    variables.force(L"DWGNAME", toWide(shown.filename().string()));
    constexpr auto kSeparator = static_cast<wchar_t>(std::filesystem::path::preferred_separator);
    variables.force(L"DWGPREFIX", folder.empty() ? folder : folder + kSeparator);
}

}  // namespace

// Reading makes a working database of its own, which may come to nothing.
Result<std::unique_ptr<AcDbDatabase>> readDrawing(Editor& editor, const std::filesystem::path& path,
                                                  dxf::LoadReport* findings) {
    Result<std::unique_ptr<AcDbDatabase>> loaded =
        withinMemory([&] { return dxf::load(path, findings); });
    acdbHostApplicationServices()->setWorkingDatabase(&editor.database());
    return loaded;
}

std::wstring notShown(const AcDbDatabase& database) {
    std::map<std::string, std::size_t> types;
    std::size_t count = 0;
    const AcDbStub* const table = database.blockTableId();
    for (const AcDbObjectId block :
         ObjectAccess::records(static_cast<const AcDbSymbolTable&>(*table->object))) {
        const AcDbStub* const stub = block;
        const auto& space = static_cast<const AcDbBlockTableRecord&>(*stub->object);
        if (block.isErased() || !space.isLayout()) continue;
        for (const AcDbObjectId id : ObjectAccess::entities(space)) {
            const AcDbObjectPointer<ForeignEntity> entity(id, AcDb::kForRead);
            if (entity.openStatus() != Acad::eOk || isShownForeign(entity->typeName())) continue;
            // A frame through which another space is seen.
            if (entity->typeName() == "VIEWPORT") continue;
            ++types[entity->typeName()];
            ++count;
        }
    }
    if (count == 0) return {};
    std::wstring line = std::to_wstring(count) + (count == 1 ? L" objeto não é mostrado: "
                                                             : L" objetos não são mostrados: ");
    const wchar_t* before = L"";
    for (const auto& [type, times] : types) {
        line += before + toWide(type) + L" " + std::to_wstring(times);
        before = L", ";
    }
    return line + L".";
}

void printFindings(Editor& editor, const dxf::LoadReport& report) {
    for (const dxf::Finding& finding : report.findings) {
        const std::wstring where =
            finding.line > 0 ? L"Linha " + std::to_wstring(finding.line) + L": " : std::wstring();
        editor.print(where + toWide(finding.text) + L"\n");
    }
    for (const std::wstring& line :
         {lostPiecesLine(editor.database()), notShown(editor.database())})
        if (!line.empty()) editor.print(line + L"\n");
}

bool DrawingFile::changedOutside() const {
    if (m_name.empty()) return false;
    const std::optional<FileStamp> now = fileStampOf(m_name);
    return now && now != m_stamp;
}

bool DrawingFile::modified() const {
    return m_editor.database().core().undo().revision() != m_revision;
}

void DrawingFile::begin(std::filesystem::path name) {
    m_name = std::move(name);
    m_stamp = m_name.empty() ? std::nullopt : fileStampOf(m_name);
    m_version = dxf::Version::Keep;
    m_revision = m_editor.database().core().undo().revision();
    nameDrawing(m_editor.database().core().variables(), m_name);
}

Result<void> DrawingFile::makeNew() {
    const std::wstring model = m_editor.variables().text(L"MODELO");
    if (model.empty()) return m_editor.replaceDrawing(std::make_unique<AcDbDatabase>(), {});
    Result<std::unique_ptr<AcDbDatabase>> loaded =
        readDrawing(m_editor, pathFromUtf8(toUtf8(model)), nullptr);
    if (!loaded)
        return Error{"o modelo de novos desenhos (variável MODELO): " + loaded.error().message()};
    return m_editor.replaceDrawing(std::move(*loaded), {});
}

Result<void> DrawingFile::open(const std::filesystem::path& path, dxf::LoadReport* findings) {
    const std::optional<FileStamp> stamp = fileStampOf(path);
    Result<std::unique_ptr<AcDbDatabase>> loaded = readDrawing(m_editor, path, findings);
    if (!loaded) return loaded.error();
    // What came through a pipe has no file to be saved to.
    std::error_code ignored;
    const bool file = std::filesystem::is_regular_file(path, ignored);
    Result<void> replaced = m_editor.replaceDrawing(
        std::move(*loaded), file ? std::filesystem::absolute(path) : std::filesystem::path());
    if (replaced) m_stamp = stamp;  // it may have been written again since
    return replaced;
}

Result<void> DrawingFile::openDamaged(const std::filesystem::path& path, dxf::LoadReport& losses) {
    const std::optional<FileStamp> stamp = fileStampOf(path);
    Result<std::unique_ptr<AcDbDatabase>> loaded =
        withinMemory([&] { return dxf::recover(path, losses); });
    acdbHostApplicationServices()->setWorkingDatabase(&m_editor.database());
    if (!loaded) return loaded.error();
    Result<void> replaced =
        m_editor.replaceDrawing(std::move(*loaded), std::filesystem::absolute(path));
    if (!replaced) return replaced;
    m_stamp = stamp;
    if (!losses.findings.empty()) m_revision = std::numeric_limits<std::uint64_t>::max();
    return replaced;
}

Result<void> DrawingFile::recover(const std::filesystem::path& copy,
                                  const std::filesystem::path& name,
                                  const std::optional<FileStamp>& stamp) {
    Result<std::unique_ptr<AcDbDatabase>> loaded = readDrawing(m_editor, copy, nullptr);
    if (!loaded) return loaded.error();
    Result<void> replaced = m_editor.replaceDrawing(std::move(*loaded), name);
    if (!replaced) return replaced;
    m_revision = std::numeric_limits<std::uint64_t>::max();
    m_stamp = stamp;
    return replaced;
}

Result<void> DrawingFile::saveCopy(const std::filesystem::path& path,
                                   const dxf::SaveOptions& options, std::string* lost) {
    if (path.empty()) return Error{"O desenho ainda não tem nome; informe onde salvar."};
    m_editor.modules().broadcast(AcRx::kSaveMsg);
    dxf::SaveOptions withView = options;
    const Screen& screen = m_editor.screen();
    const View view = m_editor.spaces().modelView();
    if (screen.chosen() && !withView.view)
        withView.view = {view.centre.x, view.centre.y, view.height,
                         screen.width() / screen.height()};
    return withinMemory([&] { return dxf::save(m_editor.database(), path, withView, lost); });
}

// In a second drawing: this one stays as it is, with all that refers to the sheets.
Result<void> DrawingFile::saveModel(const std::filesystem::path& path, std::string* lost) {
    std::filesystem::path whole = path;
    whole += ".inteiro";
    const Result<void> copied = saveCopy(whole);
    if (!copied) return copied;
    const Result<std::unique_ptr<AcDbDatabase>> read = readDrawing(m_editor, whole, nullptr);
    std::error_code ignored;
    std::filesystem::remove(whole, ignored);
    if (!read) return read.error();
    AcDbDatabase& drawing = **read;
    for (const Tab& tab : tabsOf(drawing)) {
        if (tab.block == drawing.core().modelSpaceId()) continue;
        const AcDbStub* const stub = tab.block;
        const auto& sheet = static_cast<const AcDbBlockTableRecord&>(*stub->object);
        for (const AcDbObjectId id : std::vector(ObjectAccess::entities(sheet))) {
            if (id.isErased() || isSheetsOwn(id)) continue;
            const AcDbObjectPointer<AcDbEntity> entity(id, AcDb::kForWrite);
            if (entity.openStatus() == Acad::eOk) (void)entity->erase();  // it is there
        }
        (void)eraseTab(drawing, tab);  // the last one stays
    }
    return withinMemory([&] { return dxf::save(drawing, path, {}, lost); });
}

Result<void> DrawingFile::save(const std::filesystem::path& path, const dxf::SaveOptions& options) {
    const std::filesystem::path target = path.empty() ? m_name : std::filesystem::absolute(path);
    // The system would end the name there, and another file or the folder itself would be meant.
    if (target.native().find(std::filesystem::path::value_type()) != target.native().npos)
        return Error{"O nome do arquivo contém um caractere nulo; informe outro nome."};
    dxf::SaveOptions withFormer = options;
    if (withFormer.version == dxf::Version::Keep) withFormer.version = m_version;
    DatabaseCore& core = m_editor.database().core();
    if (core.variables().number(L"ISAVEBAK") != 0)
        withFormer.former = std::filesystem::path(target).replace_extension(".bak");
    std::string lost;
    Result<void> written = saveCopy(target, withFormer, &lost);
    if (!written) return written;
    if (!lost.empty()) m_editor.print(L"\nAviso: " + toWide(lost) + L".\n");
    m_name = target;
    m_stamp = fileStampOf(target);
    m_version = withFormer.version;
    m_revision = core.undo().revision();
    nameDrawing(core.variables(), target);
    return {};
}

}  // namespace prancheta
