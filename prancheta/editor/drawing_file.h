// SPDX-License-Identifier: MIT
// The drawing's file: its name, whether the two differ; new, open, save.
#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>

#include "prancheta/base/file_stamp.h"
#include "prancheta/base/result.h"
#include "prancheta/dxf/document.h"

namespace prancheta {

class Editor;

class DrawingFile {
public:
    explicit DrawingFile(Editor& editor) : m_editor(editor) {}

    /// Empty for a drawing that was never saved.
    const std::filesystem::path& name() const { return m_name; }
    /// The file as it was read or saved here; empty: there is none.
    const std::optional<FileStamp>& stamp() const { return m_stamp; }
    /// True when the drawing differs from its file.
    bool modified() const;
    /// True when another program wrote the file since it was read or saved here.
    bool changedOutside() const;

    /// These replace the drawing. They are refused while a module's command runs; on failure the
    /// present drawing stays. `findings` receives what was repaired while reading.
    Result<void> makeNew();
    Result<void> open(const std::filesystem::path& path, dxf::LoadReport* findings = nullptr);
    /// Opens a damaged file as far as it goes; the drawing differs from it then. `losses` receives
    /// what was left out.
    Result<void> openDamaged(const std::filesystem::path& path, dxf::LoadReport& losses);
    /// Opens a copy that was kept for the case of a crash: the drawing goes by `name` (empty: none)
    /// and differs from its file, which was this one when the copy's window had read or saved it.
    Result<void> recover(const std::filesystem::path& copy, const std::filesystem::path& name,
                         const std::optional<FileStamp>& stamp);
    /// Empty path: where the drawing came from. A new path becomes the drawing's name. Under
    /// ISAVEBAK 1 a file that is replaced stays as NAME.bak. Whether another program changed the
    /// file is for the caller to ask.
    Result<void> save(const std::filesystem::path& path = {}, const dxf::SaveOptions& options = {});
    /// A copy elsewhere: name and modified state stay. `lost` as dxf::save() has it; save() prints
    /// it.
    Result<void> saveCopy(const std::filesystem::path& path, const dxf::SaveOptions& options = {},
                          std::string* lost = nullptr);
    /// The same without what is on the sheets, of which an empty one is left.
    Result<void> saveModel(const std::filesystem::path& path, std::string* lost = nullptr);

    /// Another drawing is in place, which was read from the file of this name (empty: from none).
    void begin(std::filesystem::path name);

private:
    Editor& m_editor;
    std::filesystem::path m_name;
    std::optional<FileStamp> m_stamp;
    dxf::Version m_version = dxf::Version::Keep;  ///< that the user chose
    std::uint64_t m_revision = 0;                 ///< of the undo log, when it was read or saved
};

/// Reads a file into a drawing that is not the editor's, and stays beside it.
Result<std::unique_ptr<AcDbDatabase>> readDrawing(Editor& editor, const std::filesystem::path& path,
                                                  dxf::LoadReport* findings);

/// "3 objetos não são mostrados: MESH 2, OLE2FRAME 1.", of all spaces; empty for none. O(n).
std::wstring notShown(const AcDbDatabase& database);
/// Writes to the command line what was repaired while a drawing was read, and what is not shown.
void printFindings(Editor& editor, const dxf::LoadReport& report);

}  // namespace prancheta
