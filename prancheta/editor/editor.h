// SPDX-License-Identifier: MIT
// The editor: one drawing, one command line, whatever front end stands before it.
#pragma once

#include <filesystem>
#include <functional>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "dbapserv.h"
#include "gemat3d.h"
#include "prancheta/base/result.h"
#include "prancheta/database/sysvars.h"
#include "prancheta/editor/aliases.h"
#include "prancheta/editor/clipboard.h"
#include "prancheta/editor/command_runner.h"
#include "prancheta/editor/current_selection.h"
#include "prancheta/editor/drawing_file.h"
#include "prancheta/editor/last_erased.h"
#include "prancheta/editor/program_interface.h"
#include "prancheta/editor/screen.h"
#include "prancheta/editor/spaces.h"
#include "prancheta/editor/typing.h"

namespace prancheta {

class AppearanceTable;
class CommandStack;
class DetailFollower;
class DimensionTies;
class DisplayList;
class HatchFollower;
class ModuleTable;

/// Group under which the built-in commands are registered.
inline constexpr const wchar_t* kBuiltInGroup = L"PRANCHETA";

/// Owns the drawing and what works on it, each part behind its own accessor. One per process: the
/// C-style interface reaches it by current().
class Editor {
public:
    /// The table must outlive the editor. Starts with a new, empty drawing.
    Editor(UserInterface& ui, std::span<const BuiltInCommand> builtIns);
    ~Editor();
    Editor(const Editor&) = delete;
    Editor& operator=(const Editor&) = delete;

    /// Null when there is none.
    static Editor* current();

    // --- Parts -----------------------------------------------------------------------------------
    UserInterface& ui() const { return m_ui; }
    Screen& screen() { return m_screen; }
    const Screen& screen() const { return m_screen; }
    Spaces& spaces() { return m_spaces; }
    const Spaces& spaces() const { return m_spaces; }
    CurrentSelection& selection() { return m_selection; }
    const CurrentSelection& selection() const { return m_selection; }
    LastErased& lastErased() { return m_lastErased; }
    Clipboard& clipboard() { return m_clipboard; }
    DrawingFile& file() { return m_file; }
    const DrawingFile& file() const { return m_file; }
    Typing& typing() { return m_typing; }
    CommandRunner& runner() { return m_runner; }
    const CommandRunner& runner() const { return m_runner; }
    CommandStack& commands() const { return *m_commands; }
    Aliases& aliases() { return m_aliases; }
    ProgramInterface& programs() { return m_programs; }
    ModuleTable& modules() const { return *m_modules; }
    /// What the current space shows, and how; made anew with every drawing.
    DisplayList& display() const { return displayOf(m_database->currentSpaceId()); }
    /// The same of any space; made when it is first asked for.
    DisplayList& displayOf(AcDbObjectId space) const;
    /// What a viewport shows of the model, with annotations in the size that it gives them. Good
    /// until another viewport's is asked for.
    DisplayList& displayThrough(const AcDbViewport& viewport) const;
    /// What is seen where is drawn: display(), or what the viewport shows that is drawn through. As
    /// good as displayThrough().
    DisplayList& shownDisplay() const;
    AppearanceTable& appearances() const { return *m_appearances; }
    DimensionTies& dimensionTies() const { return *m_dimensionTies; }
    /// What the built-in commands remember between runs; made by them, gone with the editor.
    std::shared_ptr<void>& commandMemory() { return m_commandMemory; }

    // --- The drawing -----------------------------------------------------------------------------
    AcDbDatabase& database() const { return *m_database; }
    /// Puts another drawing in place of this one, read from the file of this name (empty: from
    /// none). Refused while a module's command runs.
    Result<void> replaceDrawing(std::unique_ptr<AcDbDatabase> database,
                                std::filesystem::path fileName);
    /// Hatches and details follow what a step of undo changed, inside it; not after a step that was
    /// no such one.
    enum class Step { Undoable, Other };
    void followChanges(Step step);
    /// Called after the drawing was replaced.
    std::function<void()> onDrawingReplaced;

    /// World coordinates; kept in LASTPOINT in user coordinates.
    AcGePoint3d lastPoint() const;
    void setLastPoint(const AcGePoint3d& world);
    /// From user to world coordinates; a plane frame, on paper the identity.
    const AcGeMatrix3d& ucs() const { return m_ucs; }
    /// Of the model, kept in the drawing; the last point stays where it is.
    void setUcs(const AcGeMatrix3d& ucs);
    /// The current space or its variables are others.
    void followUcs();
    /// What UCS set aside in this session, the latest last.
    std::vector<AcGeMatrix3d>& formerUcs() { return m_formerUcs; }
    /// System variables with the editor's own (CMDACTIVE, VIEWSIZE, ...) brought up to date.
    SystemVariables& variables() const;
    /// One of them, null for an unknown name. EXTMIN and EXTMAX are measured here and nowhere else:
    /// O(entities).
    const VariableInfo* variable(std::wstring_view name) const;

    // --- Main loop -------------------------------------------------------------------------------
    /// Asks and executes until the input ends or a command asked to quit.
    void run();
    /// One question of the main loop: a command, or the answer that a waiting command wants. False
    /// at the end of the input.
    bool step();
    void requestQuit() { m_quit = true; }
    bool quitRequested() const { return m_quit; }

    // --- Output ----------------------------------------------------------------------------------
    void print(std::wstring_view text);
    void alert(std::wstring_view text);
    /// Tells the user why an input came to nothing, and forgets what was typed ahead.
    void complain(std::wstring_view text, Complaint kind = Complaint::Failed);

private:
    bool stepOn();
    void takeAtCommand(const RawInput& input);
    void tellClosing();
    void adoptDatabase(std::unique_ptr<AcDbDatabase> database, std::filesystem::path fileName);
    void tellOpened();
    void measureExtents() const;

    UserInterface& m_ui;
    std::unique_ptr<AcDbDatabase> m_database;
    mutable std::unordered_map<AcDbStub*, std::unique_ptr<DisplayList>> m_displays;  ///< by space
    struct ResizedDisplay {
        double factor;  ///< of annotations
        std::unique_ptr<DisplayList> list;
    };
    mutable std::vector<ResizedDisplay> m_resized;  ///< of the model, last asked for last
    std::unique_ptr<HatchFollower> m_hatches;
    std::unique_ptr<DetailFollower> m_details;
    std::unique_ptr<AppearanceTable> m_appearances;
    std::unique_ptr<DimensionTies> m_dimensionTies;
    std::unique_ptr<CommandStack> m_commands;
    std::unique_ptr<ModuleTable> m_modules;
    Aliases m_aliases;
    Screen m_screen;
    Spaces m_spaces;
    Typing m_typing;
    CurrentSelection m_selection;
    LastErased m_lastErased;
    Clipboard m_clipboard;
    DrawingFile m_file;
    ProgramInterface m_programs;
    CommandRunner m_runner;
    std::shared_ptr<void> m_commandMemory;
    AcGeMatrix3d m_ucs;
    std::vector<AcGeMatrix3d> m_formerUcs;
    bool m_quit = false;
};

}  // namespace prancheta
