// SPDX-License-Identifier: MIT
// The commands that run or wait, one inside the other, and the questions that they ask.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "aced.h"
#include "prancheta/editor/command.h"
#include "prancheta/editor/question.h"

namespace prancheta {

class Editor;
struct CommandLookup;
struct ProgramToken;
struct RunningCommand;
struct TokenStream;

class CommandRunner {
public:
    explicit CommandRunner(Editor& editor);
    ~CommandRunner();
    CommandRunner(const CommandRunner&) = delete;
    CommandRunner& operator=(const CommandRunner&) = delete;

    // --- Commands --------------------------------------------------------------------------------
    /// Starts what was typed at "Comando:" (command, alias, variable), after cancelWaiting(). A
    /// built-in command may be left waiting; serveWaiting() goes on with it. False, and the user is
    /// told, when nothing has that name or while a module's command runs.
    bool start(std::wstring_view typed);
    /// The same of an answer of the main loop: nothing typed repeats the last command; what stands
    /// behind the name answers its first questions.
    void startOrRepeat(std::wstring_view typed);
    /// One question to the user for the command that waits; false when none does.
    bool serveWaiting();
    /// Ends every waiting command as Esc does.
    void cancelWaiting();
    /// Feeds tokens as acedCommand does; an empty list is Esc. RTNORM, RTERROR, RTCAN.
    int sendTokens(std::vector<ProgramToken> tokens);

    /// True while a command runs or waits.
    bool active() const { return !m_running.empty(); }
    /// Global name of the innermost command, empty when none.
    std::wstring activeName() const;
    /// What CMDNAMES and, for commands, CMDACTIVE say.
    const std::wstring& names() const { return m_names; }
    short activeBits() const;
    /// What Enter at "Comando:" repeats, as it was typed; empty at first.
    const std::wstring& lastCommand() const { return m_lastCommand; }
    /// True while a module's command runs.
    bool runsModule() const;
    /// True while one runs whose code lies where `belongs` says.
    bool runsCodeOf(const std::function<bool(const void*)>& belongs) const;
    /// What the innermost module's command did is taken back at its end; without one, what the
    /// innermost command did, which a module serves.
    void giveUp();
    /// The drawing goes, and with it the open undo groups and where the pointer was.
    void drawingGoes();
    /// Nobody waits for an answer any more: the program ends.
    void abandon();

    // --- Questions -------------------------------------------------------------------------------
    /// Asks until the answer makes sense; blocks. Transparent commands run inside.
    InputValue ask(const InputRequest& request);
    /// One input, not interpreted. Prompts of a drag (InputKind::Drag) are recorded by the drag.
    RawInput askRaw(const InputRequest& request);
    /// Runs a task that asks by `run` to its end; blocks.
    template <class T>
    T runBlocking(CommandRun& run, Task<T> task) {
        task.start();
        while (run.waiting()) run.answer(ask(run.request()));
        return task.result();
    }
    /// Runs what was typed when it is a transparent command ('ZOOM); false when it is not.
    bool tookTransparent(const Question& question, const RawInput& input);
    /// What a program's next token says to the question; nothing when there is none or it leaves
    /// the answer to the user.
    std::optional<Reading> readToken(Question& question);
    /// Tells the user why an answer was refused; what was typed ahead is forgotten.
    void refuse(const RawInput& input, std::wstring_view why);
    /// Frame in which the next typed answer is read.
    InputFrame inputFrame(const RawInput& input) const;
    /// Writes LASTPOINT when the frame's last point differs from `before`.
    void keepLastPoint(const InputFrame& frame, const AcGePoint3d& before);
    /// True when the next answer comes from the user: no program feeds, nothing is typed ahead.
    bool interactive() const;
    /// False while a program feeds a command with CMDECHO 0: prompts and messages of commands are
    /// not shown.
    bool echo() const;

private:
    enum class Origin { User, Program, Transparent };

    bool isName(std::wstring_view typed) const;
    bool startNamed(std::wstring_view typed, Origin origin);
    bool startFound(const CommandLookup& found, std::wstring_view typed, Origin origin);
    RunningCommand& push(std::wstring name, std::wstring group, int flags, Origin origin);
    void remove(const RunningCommand& command);
    void listNames();
    void begin(RunningCommand& command);
    void runFunction(RunningCommand& command, AcRxFunctionPtr function);
    void runTask(RunningCommand& command, const std::function<CommandTask(CommandContext)>& run);
    void afterResume(RunningCommand& command);
    void takeAnswer(RunningCommand& command, InputValue value);
    void tellFailure(const RunningCommand& command);
    void tellEnd(RunningCommand& command, CommandEnd how);
    void end(RunningCommand& command, CommandEnd how);
    void openUndo(RunningCommand& command);
    void closeUndo(RunningCommand& command, CommandEnd how);
    RunningCommand* waiting() const;
    void serve(RunningCommand& command);
    std::optional<InputValue> round(Question& question);
    int startFromToken(const ProgramToken& token);
    int feed(RunningCommand& command, TokenStream& stream);
    Reading giveToken(Question& question, const ProgramToken& token);
    void echoToken(const Question& question, const ProgramToken& token);

    Editor& m_editor;
    std::vector<std::unique_ptr<RunningCommand>> m_running;
    std::wstring m_names;
    std::wstring m_lastCommand;
    TokenStream* m_tokens = nullptr;       ///< of the acedCommand call that is being served
    std::optional<AcGePoint3d> m_pointer;  ///< last position that the front end told, world
};

}  // namespace prancheta
