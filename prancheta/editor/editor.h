// SPDX-License-Identifier: MIT
// The editor: one drawing, one command line, whatever front end stands before it.
#pragma once

#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "acdocman.h"
#include "aced.h"
#include "dbapserv.h"
#include "gemat3d.h"
#include "prancheta/base/file_stamp.h"
#include "prancheta/base/result.h"
#include "prancheta/database/sysvars.h"
#include "prancheta/dxf/document.h"
#include "prancheta/editor/aliases.h"
#include "prancheta/editor/command.h"
#include "prancheta/editor/current_selection.h"
#include "prancheta/editor/last_erased.h"
#include "prancheta/editor/question.h"
#include "prancheta/editor/screen.h"
#include "prancheta/editor/typing.h"
#include "prancheta/editor/user_interface.h"

namespace prancheta {

class AppearanceTable;
class CommandStack;
class DisplayList;
class ModuleTable;
class SelectionSets;
struct CommandLookup;
struct ProgramToken;
struct RunningCommand;
struct TokenStream;

/// Group under which the built-in commands are registered.
inline constexpr const wchar_t* kBuiltInGroup = L"PRANCHETA";

/// Owns the drawing and runs its commands. One per process: the C-style interface reaches it by
/// current().
class Editor {
public:
    /// The table must outlive the editor. Starts with a new, empty drawing.
    Editor(UserInterface& ui, std::span<const BuiltInCommand> builtIns);
    ~Editor();
    Editor(const Editor&) = delete;
    Editor& operator=(const Editor&) = delete;

    /// Null when there is none.
    static Editor* current();

    UserInterface& ui() const { return m_ui; }

    // --- The drawing -----------------------------------------------------------------------------
    AcDbDatabase& database() const { return *m_database; }
    /// Empty for a drawing that was never saved.
    const std::filesystem::path& fileName() const { return m_fileName; }
    /// True when the drawing differs from its file.
    bool modified() const;
    /// True when another program wrote the drawing's file since it was read or saved here.
    bool fileChanged() const;
    /// The drawing's file as it was read or saved here; empty: there is none.
    const std::optional<FileStamp>& fileStamp() const { return m_fileStamp; }
    /// These replace the drawing. They are refused while a module's command runs; on failure the
    /// present drawing stays. `findings` receives what was repaired while reading.
    Result<void> newDocument();
    Result<void> openDocument(const std::filesystem::path& path,
                              dxf::LoadReport* findings = nullptr);
    /// Empty path: where the drawing came from. A new path becomes the drawing's name. Under
    /// ISAVEBAK 1 a file that is replaced stays as NAME.bak. Whether another program changed the
    /// file is for the caller to ask.
    Result<void> saveDocument(const std::filesystem::path& path = {},
                              const dxf::SaveOptions& options = {});
    /// Opens a copy that was kept for the case of a crash: the drawing goes by `name` (empty: none)
    /// and differs from its file, which was this one when the copy's window had read or saved it.
    Result<void> recoverDocument(const std::filesystem::path& copy,
                                 const std::filesystem::path& name,
                                 const std::optional<FileStamp>& stamp);
    /// A copy elsewhere: name and modified state stay.
    Result<void> saveCopy(const std::filesystem::path& path, const dxf::SaveOptions& options = {});
    /// Called after the drawing was replaced.
    std::function<void()> onDocumentChanged;

    // --- Main loop -------------------------------------------------------------------------------
    /// Asks and executes until the input ends or a command asked to quit.
    void run();
    /// One question of the main loop: a command, or the answer that a waiting command wants. False
    /// at the end of the input.
    bool step();
    void requestQuit() { m_quit = true; }
    bool quitRequested() const { return m_quit; }
    /// True when the next answer comes from the user: no program feeds, nothing is typed ahead.
    bool interactive() const { return m_tokens == nullptr && !m_typing.pending(); }
    Typing& typing() { return m_typing; }
    const Typing& typing() const { return m_typing; }

    // --- Commands --------------------------------------------------------------------------------
    CommandStack& commands() const { return *m_commands; }
    Aliases& aliases() { return m_aliases; }
    /// Starts what was typed at "Comando:" (command, alias, variable). A built-in command may be
    /// left waiting; step() goes on with it. An unknown name is reported by UserInterface::complain
    /// and returns false.
    bool startCommand(std::wstring_view typed);
    /// True while a command runs or waits.
    bool commandActive() const { return !m_running.empty(); }
    /// What Enter at "Comando:" repeats, as it was typed; empty at first.
    const std::wstring& lastCommand() const { return m_lastCommand; }
    /// Global name of the innermost command, empty when none.
    std::wstring activeCommand() const;
    /// True when code between these addresses belongs to a running command.
    bool runsCodeOf(const std::function<bool(const void*)>& belongs) const;
    /// Ends every waiting command as Esc does.
    void cancelWaiting();
    /// Feeds tokens as acedCommand does; an empty list is Esc. RTNORM, RTERROR, RTCAN.
    int sendTokens(std::vector<ProgramToken> tokens);

    // --- Input and output ------------------------------------------------------------------------
    void print(std::wstring_view text);
    void alert(std::wstring_view text);
    /// Tells the user why an input came to nothing, and forgets what was typed ahead.
    void complain(std::wstring_view text, Complaint kind = Complaint::Failed);
    /// The same of an answer that a question refused.
    void refuse(const RawInput& input, std::wstring_view why);
    /// Asks until the answer makes sense; blocks. Transparent commands run inside.
    InputValue ask(const InputRequest& request);
    /// One input, not interpreted. Prompts of a drag (InputKind::Drag) are recorded by the drag.
    RawInput askRaw(const InputRequest& request);
    /// Runs what was typed when it is a transparent command ('ZOOM); false when it is not.
    bool tookTransparent(const Question& question, const RawInput& input);
    /// What a program's next token says to the question; nothing when there is none or it leaves
    /// the answer to the user.
    std::optional<Reading> readToken(Question& question);
    /// Runs a task that asks by `run` to its end; blocks.
    template <class T>
    T runBlocking(CommandRun& run, Task<T> task) {
        task.start();
        while (run.waiting()) run.answer(ask(run.request()));
        return task.result();
    }
    /// Frame in which the next typed answer is read.
    InputFrame inputFrame(const RawInput& input) const;
    /// Writes LASTPOINT when the frame's last point differs from `before`.
    void keepLastPoint(const InputFrame& frame, const AcGePoint3d& before);

    /// World coordinates; kept in LASTPOINT in user coordinates.
    AcGePoint3d lastPoint() const;
    void setLastPoint(const AcGePoint3d& world);
    /// From user to world coordinates.
    const AcGeMatrix3d& ucs() const { return m_ucs; }
    void setUcs(const AcGeMatrix3d& ucs) { m_ucs = ucs; }
    /// System variables with the editor's own (CMDACTIVE, VIEWSIZE, ...) brought up to date.
    SystemVariables& variables() const;
    /// One of them, null for an unknown name. EXTMIN and EXTMAX are measured here and nowhere else:
    /// O(entities).
    const VariableInfo* variable(std::wstring_view name) const;

    /// What the drawing shows, and how; made anew with every drawing.
    DisplayList& display() const { return *m_display; }
    AppearanceTable& appearances() const { return *m_appearances; }

    // --- View and selections ---------------------------------------------------------------------
    Screen& screen() { return m_screen; }
    const Screen& screen() const { return m_screen; }
    CurrentSelection& selection() { return m_selection; }
    const CurrentSelection& selection() const { return m_selection; }
    LastErased& lastErased() { return m_lastErased; }
    /// Sets that programs hold by name.
    SelectionSets& selectionSets() const { return *m_selectionSets; }
    /// What the built-in commands remember between runs; made by them, gone with the editor.
    std::shared_ptr<void>& commandMemory() { return m_commandMemory; }

    // --- Reactors and modules --------------------------------------------------------------------
    std::vector<AcEditorReactor*>& reactors() { return m_reactors; }
    std::vector<AcApDocManagerReactor*>& documentReactors() { return m_documentReactors; }
    AcEditor& acEditor() const { return *m_acEditor; }
    AcApDocManager& documentManager() const { return *m_documentManager; }
    AcApDocument& document() const { return *m_document; }
    ModuleTable& modules() const { return *m_modules; }

    /// Keywords and bits of acedInitGet for the next input call, and the text of the last RTKWORD.
    struct InitGet {
        int bits = 0;
        Keywords keywords;
    };
    InitGet takeInitGet() { return std::exchange(m_initGet, {}); }
    void setInitGet(InitGet value) { m_initGet = std::move(value); }
    std::wstring& lastKeyword() { return m_lastKeyword; }

    /// False while a program feeds a command with CMDECHO 0: prompts and messages of commands are
    /// not shown.
    bool echo() const;

private:
    enum class Origin { User, Program, Transparent };

    bool startNamed(std::wstring_view typed, Origin origin);
    bool startFound(const CommandLookup& found, std::wstring_view typed, Origin origin);
    RunningCommand& push(std::wstring name, std::wstring group, int flags, Origin origin);
    void begin(RunningCommand& command);
    void runFunction(RunningCommand& command, AcRxFunctionPtr function);
    void runTask(RunningCommand& command, CommandTask task);
    void afterResume(RunningCommand& command);
    void takeAnswer(RunningCommand& command, InputValue value);
    void end(RunningCommand& command, CommandEnd how);
    void openUndo(RunningCommand& command);
    void closeUndo(RunningCommand& command, CommandEnd how);
    void remove(const RunningCommand& command);
    RunningCommand* waiting() const;
    void serve(RunningCommand& command);
    std::optional<InputValue> round(Question& question);
    int startFromToken(const ProgramToken& token);
    int feed(RunningCommand& command, TokenStream& stream);
    Reading giveToken(Question& question, const ProgramToken& token);
    void echoToken(const Question& question, const ProgramToken& token);
    void notify(void (AcEditorReactor::*message)(const ACHAR*), const std::wstring& name) const;
    void tellClosing();
    void adoptDatabase(std::unique_ptr<AcDbDatabase> database, std::filesystem::path fileName);
    void tellOpened();
    Result<void> replaceDatabase(std::unique_ptr<AcDbDatabase> database,
                                 std::filesystem::path fileName);
    Result<void> writeDocument(const std::filesystem::path& path, const dxf::SaveOptions& options);
    void updateVariables() const;
    void measureExtents() const;

    UserInterface& m_ui;
    std::unique_ptr<AcDbDatabase> m_database;
    std::unique_ptr<DisplayList> m_display;
    std::unique_ptr<AppearanceTable> m_appearances;
    std::filesystem::path m_fileName;
    std::optional<FileStamp> m_fileStamp;              ///< of the file as it was read or saved here
    dxf::Version m_savedVersion = dxf::Version::Keep;  ///< that the user chose for it
    std::uint64_t m_savedRevision = 0;
    std::unique_ptr<CommandStack> m_commands;
    Aliases m_aliases;
    std::vector<std::unique_ptr<RunningCommand>> m_running;
    TokenStream* m_tokens = nullptr;  ///< of the acedCommand call that is being served
    std::wstring m_lastCommand;
    bool m_quit = false;
    AcGeMatrix3d m_ucs;
    std::optional<AcGePoint3d> m_pointer;  ///< last position that the front end told, world
    Screen m_screen;
    Typing m_typing;
    CurrentSelection m_selection;
    LastErased m_lastErased;
    mutable std::wstring m_commandNames;  ///< CMDNAMES is built here: it is looked at often
    std::vector<AcEditorReactor*> m_reactors;
    std::vector<AcApDocManagerReactor*> m_documentReactors;
    std::unique_ptr<AcEditor> m_acEditor;
    std::unique_ptr<AcApDocManager> m_documentManager;
    std::unique_ptr<AcApDocument> m_document;
    std::unique_ptr<ModuleTable> m_modules;
    std::unique_ptr<SelectionSets> m_selectionSets;
    std::shared_ptr<void> m_commandMemory;
    InitGet m_initGet;
    std::wstring m_lastKeyword;
};

}  // namespace prancheta
