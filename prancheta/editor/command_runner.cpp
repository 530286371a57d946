// SPDX-License-Identifier: MIT
// Commands: from the typed name to the end, with their undo groups and reactors.
#include "prancheta/editor/command_runner.h"

#include <algorithm>
#include <new>

#include "adscodes.h"
#include "prancheta/base/nesting.h"
#include "prancheta/base/text.h"
#include "prancheta/database/database_core.h"
#include "prancheta/dcl/dialog.h"
#include "prancheta/editor/command_stack.h"
#include "prancheta/editor/dimension_ties.h"
#include "prancheta/editor/editor.h"
#include "prancheta/editor/events.h"
#include "prancheta/editor/running.h"
#include "prancheta/editor/typed_input.h"
#include "prancheta/editor/variables.h"

namespace prancheta {

/// What a typed word means.
struct CommandLookup {
    StackCommand* command = nullptr;
    std::wstring variable;
};

namespace {

CommandLookup lookUp(const CommandStack& stack, const Aliases& aliases,
                     const SystemVariables& variables, const TypedName& typed) {
    CommandLookup found;
    if (typed.name.empty()) return found;
    found.command = stack.find(typed);
    if (found.command != nullptr) return found;
    const std::wstring target = typed.builtIn ? std::wstring() : aliases.find(typed.name);
    if (!target.empty()) {
        found.command = stack.find(TypedName(target));
        if (found.command != nullptr) return found;
    }
    if (variables.find(typed.name) != nullptr)
        found.variable = typed.name;
    else
        found.command = stack.findWithoutAccents(typed);
    if (found.command != nullptr || !typed.name.starts_with(L'-')) return found;
    // The form without a dialog of a built-in command that has only one form.
    TypedName plain = typed;
    plain.name.erase(0, 1);
    const CommandLookup only = lookUp(stack, aliases, variables, plain);
    if (only.command != nullptr && only.command->builtIn != nullptr) found = only;
    return found;
}

}  // namespace

CommandRunner::CommandRunner(Editor& editor) : m_editor(editor) {}
CommandRunner::~CommandRunner() = default;

bool CommandRunner::start(std::wstring_view typed) {
    if (runsModule()) {
        m_editor.complain(L"Há um comando em execução.");
        return false;
    }
    cancelWaiting();
    return startNamed(typed, Origin::User);
}

void CommandRunner::startOrRepeat(std::wstring_view typed) {
    std::wstring line(trim(typed).empty() ? m_lastCommand : std::wstring(trim(typed)));
    if (line.empty()) return;
    // A keyboard's blank ends the name: what a whole line has behind it are the first answers.
    const std::size_t blank = line.find(L' ');
    if (blank != line.npos && isName(line.substr(0, blank))) {
        m_editor.typing().add(line.substr(blank + 1) + L"\n");
        line.resize(blank);
    }
    (void)startNamed(line, Origin::User);
}

bool CommandRunner::isName(std::wstring_view typed) const {
    const CommandLookup found = lookUp(m_editor.commands(), m_editor.aliases(),
                                       m_editor.database().core().variables(), TypedName(typed));
    return found.command != nullptr || !found.variable.empty();
}

bool CommandRunner::startNamed(std::wstring_view typed, Origin origin) {
    const TypedName name(typed);
    const CommandLookup found = lookUp(m_editor.commands(), m_editor.aliases(),
                                       m_editor.database().core().variables(), name);
    if (found.command == nullptr && found.variable.empty()) {
        const std::wstring text =
            L"Comando desconhecido \"" + upperCase(trim(typed)) + L"\". Pressione F1 para ajuda.";
        if (origin == Origin::Program) {
            m_editor.print(text + L"\n");
        } else {
            m_editor.complain(text);
        }
        return false;
    }
    return startFound(found, typed, origin);
}

bool CommandRunner::startFound(const CommandLookup& found, std::wstring_view typed, Origin origin) {
    if (m_running.size() >= kDeepestNesting) {
        m_editor.complain(L"Há comandos demais um dentro do outro.");
        return false;
    }
    if (found.command == nullptr) {
        if (origin == Origin::User) m_lastCommand = typed;
        RunningCommand& running = push(L"SETVAR", kBuiltInGroup, ACRX_CMD_TRANSPARENT, origin);
        runTask(running, [&](const CommandContext& context) {
            return askVariable(context, found.variable);
        });
        return true;
    }
    const StackCommand& command = *found.command;
    const bool view = (command.flags & ACRX_CMD_TRANSPARENT) != 0;
    if (origin == Origin::Transparent && !view) {
        m_editor.complain(L"O comando " + upperCase(command.global) +
                          L" não pode ser usado dentro de outro.");
        return false;
    }
    if (origin == Origin::User) {
        if (!(command.flags & ACRX_CMD_NOHISTORY)) m_lastCommand = typed;
        const bool takesSet = (command.flags & (ACRX_CMD_USEPICKSET | ACRX_CMD_REDRAW)) != 0;
        const bool onlyLooks = view && command.builtIn != nullptr;
        if (!takesSet && !onlyLooks) m_editor.selection().clear();
    }
    RunningCommand& running = push(command.global, command.group, command.flags, origin);
    if (command.builtIn != nullptr) {
        runTask(running, command.builtIn->run);
    } else {
        runFunction(running, command.function);
    }
    return true;
}

RunningCommand& CommandRunner::push(std::wstring name, std::wstring group, int flags,
                                    Origin origin) {
    auto running = std::make_unique<RunningCommand>();
    running->name = std::move(name);
    running->shownName = upperCase(running->name);
    running->group = std::move(group);
    running->flags = flags;
    running->transparent = origin == Origin::Transparent;
    m_running.push_back(std::move(running));
    listNames();
    return *m_running.back();
}

void CommandRunner::openUndo(RunningCommand& command) {
    if (command.flags & ACRX_CMD_NO_UNDO_MARKER) return;
    m_editor.database().core().undo().begin(command.name);
    command.undoDatabase = &m_editor.database();
}

void CommandRunner::closeUndo(RunningCommand& command, CommandEnd how) {
    if (command.undoDatabase == nullptr) return;
    UndoLog& undo = std::exchange(command.undoDatabase, nullptr)->core().undo();
    const bool outermost = std::none_of(m_running.begin(), m_running.end(),
                                        [](const auto& c) { return c->undoDatabase != nullptr; });
    if (how == CommandEnd::Failed && outermost) undo.rollbackOpenGroup();
    undo.end();
}

void CommandRunner::begin(RunningCommand& command) {
    recordCommand(command.name, command.group);
    (void)m_editor.variables();
    openUndo(command);
    m_editor.programs().reactors().tell(&AcEditorReactor::commandWillStart, command.name.c_str());
}

void CommandRunner::remove(const RunningCommand& command) {
    std::erase_if(m_running, [&](const auto& c) { return c.get() == &command; });
    listNames();
}

void CommandRunner::listNames() {
    m_names.clear();
    for (const auto& command : m_running)
        m_names += (m_names.empty() ? L"" : L"\'") + command->shownName;
}

short CommandRunner::activeBits() const {
    short bits = 0;
    for (const auto& command : m_running)
        bits = static_cast<short>(bits | (command->transparent ? 3 : 1));
    return bits;
}

void CommandRunner::drawingGoes() {
    for (const auto& command : m_running) command->undoDatabase = nullptr;
    m_pointer.reset();
}

void CommandRunner::giveUp() {
    const auto own = std::find_if(m_running.rbegin(), m_running.rend(),
                                  [](const auto& c) { return c->function != nullptr; });
    if (!m_running.empty()) (own != m_running.rend() ? *own : m_running.back())->givenUp = true;
}

void CommandRunner::abandon() {
    m_running.clear();
    listNames();
}

/// Of the exception that is being handled.
void CommandRunner::tellFailure(const RunningCommand& command) {
    try {
        throw;
    } catch (const std::bad_alloc&) {
        const bool undone = command.undoDatabase != nullptr;
        m_editor.complain(L"Memória insuficiente: o comando " + command.shownName +
                          (undone ? L" foi interrompido e desfeito." : L" foi interrompido."));
    } catch (...) {
        m_editor.complain(L"O comando " + command.shownName + L" falhou e foi interrompido.");
    }
}

/// What others do at a command's end belongs to its step.
void CommandRunner::tellEnd(RunningCommand& command, CommandEnd how) {
    constexpr void (AcEditorReactor::*kMessages[])(const ACHAR*) = {
        &AcEditorReactor::commandEnded, &AcEditorReactor::commandCancelled,
        &AcEditorReactor::commandFailed};
    m_editor.programs().reactors().tell(kMessages[static_cast<int>(how)], command.name.c_str());
    m_editor.dimensionTies().settle();
    const bool counts = command.undoDatabase != nullptr && how != CommandEnd::Failed;
    // Inside another command a step goes on.
    if (counts || !command.transparent)
        m_editor.followChanges(counts ? Editor::Step::Undoable : Editor::Step::Other);
}

void CommandRunner::end(RunningCommand& command, CommandEnd how) {
    try {
        tellEnd(command, how);
        if (m_editor.database().core().takeUntold()) throw std::bad_alloc();
    } catch (...) {
        tellFailure(command);
        how = CommandEnd::Failed;
    }
    closeUndo(command, how);
    if ((command.flags & ACRX_CMD_USEPICKSET) && !(command.flags & ACRX_CMD_REDRAW))
        m_editor.selection().clear();
    recordCommandEnd(command.name);
    remove(command);
    (void)m_editor.variables();
    m_editor.ui().refresh();
}

/// A module's command runs to its end in one go. What it left waiting at the command line becomes
/// the user's: a command and an undo step of its own. Dialogs that it left open would keep the user
/// out for ever.
void CommandRunner::runFunction(RunningCommand& command, AcRxFunctionPtr function) {
    command.function = function;
    CommandEnd how = CommandEnd::Done;
    try {
        begin(command);
        function();
        if (command.givenUp) how = CommandEnd::Failed;
    } catch (...) {
        tellFailure(command);
        how = CommandEnd::Failed;
    }
    dcl::discardDialogs();
    (void)m_editor.programs().takeInitGet();
    const auto self = std::find_if(m_running.begin(), m_running.end(),
                                   [&](const auto& c) { return c.get() == &command; });
    std::vector<RunningCommand*> left;
    for (auto it = self + 1; it != m_running.end(); ++it) left.push_back(it->get());
    for (auto it = left.rbegin(); it != left.rend(); ++it) closeUndo(**it, CommandEnd::Done);
    end(command, how);
    for (RunningCommand* waitingOne : left) openUndo(*waitingOne);
}

void CommandRunner::runTask(RunningCommand& command,
                            const std::function<CommandTask(CommandContext)>& run) {
    try {
        begin(command);
        command.task.emplace(run(CommandContext(m_editor, command.run)));
        command.task->start();
    } catch (...) {
        tellFailure(command);
        return end(command, CommandEnd::Failed);
    }
    afterResume(command);
}

void CommandRunner::afterResume(RunningCommand& command) {
    CommandEnd how = CommandEnd::Failed;
    try {
        if (command.run.waiting()) {
            command.question.emplace(command.run.request());
            return;
        }
        how = command.task->result();
        if (command.givenUp) how = CommandEnd::Failed;
    } catch (...) {
        tellFailure(command);
        command.task.reset();
    }
    end(command, how);
}

void CommandRunner::takeAnswer(RunningCommand& command, InputValue value) {
    const bool cancelled = value.status == RTCAN;
    command.question.reset();
    command.run.answer(std::move(value));
    if (cancelled && command.run.waiting()) {
        command.task.reset();
        end(command, CommandEnd::Cancelled);
        return;
    }
    afterResume(command);
}

RunningCommand* CommandRunner::waiting() const {
    if (m_running.empty()) return nullptr;
    RunningCommand* top = m_running.back().get();
    return top->task && top->run.waiting() ? top : nullptr;
}

void CommandRunner::cancelWaiting() {
    while (RunningCommand* command = waiting()) {
        InputValue value;
        value.status = RTCAN;
        takeAnswer(*command, std::move(value));
    }
}

bool CommandRunner::serveWaiting() {
    RunningCommand* const command = waiting();
    if (command != nullptr) serve(*command);
    return command != nullptr;
}

void CommandRunner::serve(RunningCommand& command) {
    if (std::optional<InputValue> value = round(*command.question))
        takeAnswer(command, std::move(*value));
}

std::wstring CommandRunner::activeName() const {
    return m_running.empty() ? std::wstring() : m_running.back()->name;
}

bool CommandRunner::runsModule() const {
    return runsCodeOf([](const void*) { return true; });
}

bool CommandRunner::runsCodeOf(const std::function<bool(const void*)>& belongs) const {
    return std::any_of(m_running.begin(), m_running.end(), [&](const auto& c) {
        return c->function != nullptr && belongs(reinterpret_cast<const void*>(c->function));
    });
}

}  // namespace prancheta
