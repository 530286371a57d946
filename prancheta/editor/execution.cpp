// SPDX-License-Identifier: MIT
// Commands: from the typed name to the end, with their undo groups, reactors and questions.
#include <algorithm>

#include "adscodes.h"
#include "prancheta/base/nesting.h"
#include "prancheta/base/text.h"
#include "prancheta/database/database_core.h"
#include "prancheta/dcl/dialog.h"
#include "prancheta/editor/command_stack.h"
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
    const VariableInfo* const variable = variables.find(typed.name);
    if (variable != nullptr && isTypedByName(*variable))
        found.variable = typed.name;
    else
        found.command = stack.findWithoutAccents(typed);
    return found;
}

}  // namespace

bool Editor::startCommand(std::wstring_view typed) {
    if (std::any_of(m_running.begin(), m_running.end(),
                    [](const auto& c) { return c->function != nullptr; })) {
        complain(L"Há um comando em execução.");
        return false;
    }
    cancelWaiting();
    return startNamed(typed, Origin::User);
}

bool Editor::startNamed(std::wstring_view typed, Origin origin) {
    const TypedName name(typed);
    const CommandLookup found =
        lookUp(*m_commands, m_aliases, m_database->core().variables(), name);
    if (found.command == nullptr && found.variable.empty()) {
        const std::wstring text =
            L"Comando desconhecido \"" + upperCase(trim(typed)) + L"\". Pressione F1 para ajuda.";
        if (origin == Origin::Program) {
            print(text + L"\n");
        } else {
            complain(text);
        }
        return false;
    }
    return startFound(found, typed, origin);
}

bool Editor::startFound(const CommandLookup& found, std::wstring_view typed, Origin origin) {
    if (m_running.size() >= kDeepestNesting) {
        complain(L"Há comandos demais um dentro do outro.");
        return false;
    }
    if (found.command == nullptr) {
        if (origin == Origin::User) m_lastCommand = typed;
        RunningCommand& running = push(L"SETVAR", kBuiltInGroup, ACRX_CMD_TRANSPARENT, origin);
        runTask(running, askVariable(CommandContext(*this, running.run), found.variable));
        return true;
    }
    const StackCommand& command = *found.command;
    const bool view = (command.flags & ACRX_CMD_TRANSPARENT) != 0;
    if (origin == Origin::Transparent && !view) {
        complain(L"O comando " + upperCase(command.global) +
                 L" não pode ser usado dentro de outro.");
        return false;
    }
    if (origin == Origin::User) {
        if (!(command.flags & ACRX_CMD_NOHISTORY)) m_lastCommand = typed;
        const bool takesSet = (command.flags & (ACRX_CMD_USEPICKSET | ACRX_CMD_REDRAW)) != 0;
        const bool onlyLooks = view && command.builtIn != nullptr;
        if (!takesSet && !onlyLooks) m_selection.clear();
    }
    RunningCommand& running = push(command.global, command.group, command.flags, origin);
    if (command.builtIn != nullptr) {
        runTask(running, command.builtIn->run(CommandContext(*this, running.run)));
    } else {
        runFunction(running, command.function);
    }
    return true;
}

RunningCommand& Editor::push(std::wstring name, std::wstring group, int flags, Origin origin) {
    auto running = std::make_unique<RunningCommand>();
    running->name = std::move(name);
    running->shownName = upperCase(running->name);
    running->group = std::move(group);
    running->flags = flags;
    running->transparent = origin == Origin::Transparent;
    m_running.push_back(std::move(running));
    return *m_running.back();
}

void Editor::openUndo(RunningCommand& command) {
    if (command.flags & ACRX_CMD_NO_UNDO_MARKER) return;
    m_database->core().undo().begin(command.name);
    command.undoDatabase = m_database.get();
}

void Editor::closeUndo(RunningCommand& command, CommandEnd how) {
    if (command.undoDatabase == nullptr) return;
    UndoLog& undo = std::exchange(command.undoDatabase, nullptr)->core().undo();
    const bool outermost = std::none_of(m_running.begin(), m_running.end(),
                                        [](const auto& c) { return c->undoDatabase != nullptr; });
    if (how == CommandEnd::Failed && outermost) undo.rollbackOpenGroup();
    undo.end();
}

void Editor::begin(RunningCommand& command) {
    recordCommand(command.name, command.group);
    updateVariables();
    openUndo(command);
    m_programs.reactors().tell(&AcEditorReactor::commandWillStart, command.name.c_str());
}

void Editor::remove(const RunningCommand& command) {
    std::erase_if(m_running, [&](const auto& c) { return c.get() == &command; });
}

void Editor::end(RunningCommand& command, CommandEnd how) {
    switch (how) {
        case CommandEnd::Done:
            m_programs.reactors().tell(&AcEditorReactor::commandEnded, command.name.c_str());
            break;
        case CommandEnd::Cancelled:
            m_programs.reactors().tell(&AcEditorReactor::commandCancelled, command.name.c_str());
            break;
        case CommandEnd::Failed:
            m_programs.reactors().tell(&AcEditorReactor::commandFailed, command.name.c_str());
            break;
    }
    closeUndo(command, how);
    if ((command.flags & ACRX_CMD_USEPICKSET) && !(command.flags & ACRX_CMD_REDRAW))
        m_selection.clear();
    recordCommandEnd(command.name);
    remove(command);
    updateVariables();
    m_ui.refresh();
}

/// A module's command runs to its end in one go. What it left waiting at the command line becomes
/// the user's: a command and an undo step of its own. Dialogs that it left open would keep the user
/// out for ever.
void Editor::runFunction(RunningCommand& command, AcRxFunctionPtr function) {
    command.function = function;
    begin(command);
    CommandEnd how = CommandEnd::Done;
    try {
        function();
    } catch (...) {
        complain(L"O comando " + command.shownName + L" falhou e foi interrompido.");
        how = CommandEnd::Failed;
    }
    dcl::discardDialogs();
    (void)m_programs.takeInitGet();
    const auto self = std::find_if(m_running.begin(), m_running.end(),
                                   [&](const auto& c) { return c.get() == &command; });
    std::vector<RunningCommand*> left;
    for (auto it = self + 1; it != m_running.end(); ++it) left.push_back(it->get());
    for (auto it = left.rbegin(); it != left.rend(); ++it) closeUndo(**it, CommandEnd::Done);
    end(command, how);
    for (RunningCommand* waitingOne : left) openUndo(*waitingOne);
}

void Editor::runTask(RunningCommand& command, CommandTask task) {
    begin(command);
    command.task.emplace(std::move(task));
    command.task->start();
    afterResume(command);
}

void Editor::afterResume(RunningCommand& command) {
    if (command.run.waiting()) {
        command.question.emplace(command.run.request());
        return;
    }
    CommandEnd how = CommandEnd::Failed;
    try {
        how = command.task->result();
    } catch (...) {
        complain(L"O comando " + command.shownName + L" falhou e foi interrompido.");
    }
    end(command, how);
}

void Editor::takeAnswer(RunningCommand& command, InputValue value) {
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

RunningCommand* Editor::waiting() const {
    if (m_running.empty()) return nullptr;
    RunningCommand* top = m_running.back().get();
    return top->task && top->run.waiting() ? top : nullptr;
}

void Editor::cancelWaiting() {
    while (RunningCommand* command = waiting()) {
        InputValue value;
        value.status = RTCAN;
        takeAnswer(*command, std::move(value));
    }
}

void Editor::serve(RunningCommand& command) {
    if (std::optional<InputValue> value = round(*command.question))
        takeAnswer(command, std::move(*value));
}

/// One input of the user; the answer when the question has one.
std::optional<InputValue> Editor::round(Question& question) {
    const RawInput input = askRaw(question.current());
    if (tookTransparent(question, input)) return {};
    InputFrame frame = inputFrame(input);
    const AcGePoint3d before = frame.lastPoint;
    Reading reading = question.give(input, frame);
    keepLastPoint(frame, before);
    if (reading.kind == Reading::Kind::Refused) {
        refuse(input, reading.message);
        return {};
    }
    if (reading.kind == Reading::Kind::Again) {
        if (reading.value.status == RTNORM) recordAnswer(InputKind::Point, reading.value);
        return {};
    }
    recordAnswer(question.request().kind, reading.value);
    if (reading.value.status == RTCAN) print(L"*Cancelar*\n");
    return std::move(reading.value);
}

bool Editor::tookTransparent(const Question& question, const RawInput& input) {
    const std::wstring_view typed = trim(input.text);
    const bool words =
        question.request().kind != InputKind::Text && input.kind == RawInput::Kind::Text;
    if (!words || !typed.starts_with(L'\'')) return false;
    const std::wstring outer = m_running.empty() ? std::wstring() : m_running.back()->shownName;
    const std::size_t level = m_running.size();
    // What a program still has to say is not meant for this command.
    TokenStream* const tokens = std::exchange(m_tokens, nullptr);
    const bool started = startNamed(typed, Origin::Transparent);
    while (m_running.size() > level && waiting() != nullptr) serve(*waiting());
    m_tokens = tokens;
    if (started && !outer.empty()) print(L"Continuando o comando " + outer + L".\n");
    return true;
}

std::wstring Editor::activeCommand() const {
    return m_running.empty() ? std::wstring() : m_running.back()->name;
}

bool Editor::runsCodeOf(const std::function<bool(const void*)>& belongs) const {
    return std::any_of(m_running.begin(), m_running.end(), [&](const auto& c) {
        return c->function != nullptr && belongs(reinterpret_cast<const void*>(c->function));
    });
}

std::optional<Reading> Editor::readToken(Question& question) {
    if (m_tokens == nullptr || m_tokens->empty()) return {};
    const ProgramToken& token = m_tokens->take();
    if (token.pause()) return {};
    echoToken(question, token);
    return giveToken(question, token);
}

InputValue Editor::ask(const InputRequest& request) {
    Question question(request);
    while (std::optional<Reading> reading = readToken(question)) {
        if (reading->kind == Reading::Kind::Answered) return std::move(reading->value);
        if (reading->kind == Reading::Kind::Again) continue;
        InputValue value;
        value.status = RTERROR;
        return value;
    }
    for (;;) {
        if (std::optional<InputValue> value = round(question)) return std::move(*value);
    }
}

}  // namespace prancheta
