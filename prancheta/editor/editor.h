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

#include "dbapserv.h"
#include "gemat3d.h"
#include "prancheta/database/sysvars.h"
#include "prancheta/editor/aliases.h"
#include "prancheta/editor/command.h"
#include "prancheta/editor/current_selection.h"
#include "prancheta/editor/drawing_file.h"
#include "prancheta/editor/last_erased.h"
#include "prancheta/editor/program_interface.h"
#include "prancheta/editor/question.h"
#include "prancheta/editor/screen.h"
#include "prancheta/editor/typing.h"
#include "prancheta/editor/user_interface.h"

namespace prancheta {

class AppearanceTable;
class CommandStack;
class DisplayList;
class ModuleTable;
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
    DrawingFile& file() { return m_file; }
    const DrawingFile& file() const { return m_file; }
    /// Puts another drawing in place of this one, read from the file of this name (empty: from
    /// none). Refused while a module's command runs.
    Result<void> replaceDrawing(std::unique_ptr<AcDbDatabase> database,
                                std::filesystem::path fileName);
    /// Called after the drawing was replaced.
    std::function<void()> onDrawingReplaced;

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
    /// What the built-in commands remember between runs; made by them, gone with the editor.
    std::shared_ptr<void>& commandMemory() { return m_commandMemory; }

    // --- Programs --------------------------------------------------------------------
    ProgramInterface& programs() { return m_programs; }
    ModuleTable& modules() const { return *m_modules; }

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
    void tellClosing();
    void adoptDatabase(std::unique_ptr<AcDbDatabase> database, std::filesystem::path fileName);
    void tellOpened();
    void updateVariables() const;
    void measureExtents() const;

    UserInterface& m_ui;
    std::unique_ptr<AcDbDatabase> m_database;
    std::unique_ptr<DisplayList> m_display;
    std::unique_ptr<AppearanceTable> m_appearances;
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
    DrawingFile m_file;
    ProgramInterface m_programs;
    mutable std::wstring m_commandNames;  ///< CMDNAMES is built here: it is looked at often
    std::unique_ptr<ModuleTable> m_modules;
    std::shared_ptr<void> m_commandMemory;
};

}  // namespace prancheta
