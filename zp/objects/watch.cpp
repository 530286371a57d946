// SPDX-License-Identifier: MIT
// The editor's commands, and the drawings that are watched.
#include "zp/objects/watch.h"

#include <algorithm>
#include <cwchar>
#include <cwctype>
#include <memory>
#include <vector>

#include "aced.h"
#include "zp/objects/drawing_watch.h"

namespace zp::watch {
namespace {

bool explode(const ACHAR* command) {
    constexpr const wchar_t kName[] = L"EXPLODE";
    const wchar_t* n = kName;
    for (; command != nullptr && *command != L'\0' && *n != L'\0'; ++command, ++n)
        if (static_cast<wchar_t>(std::towupper(static_cast<std::wint_t>(*command))) != *n)
            return false;
    return command != nullptr && *command == L'\0' && *n == L'\0';
}

class CommandWatch : public AcEditorReactor {
public:
    CommandWatch() {
        if (AcEditor* editor = acedEditor; editor != nullptr) editor->addReactor(this);
    }
    ~CommandWatch() override {
        if (AcEditor* editor = acedEditor; editor != nullptr) editor->removeReactor(this);
    }
    void commandWillStart(const ACHAR*) override { ++m_commands; }
    void commandEnded(const ACHAR* name) override { end(name); }
    void commandCancelled(const ACHAR* name) override { end(name); }
    void commandFailed(const ACHAR* name) override { end(name); }
    bool inCommand() const { return m_commands > 0; }

private:
    void end(const ACHAR* name);
    int m_commands = 0;
};

// The host calls reactors by pointer, without a context of the module's own.
struct State {
    std::unique_ptr<CommandWatch> commands;
    std::vector<std::unique_ptr<DrawingWatch>> drawings;
};
State g_state;

void CommandWatch::end(const ACHAR* name) {
    // Until the command's own work is settled; also when memory runs out there.
    struct Ending {
        int& commands;
        ~Ending() { commands = std::max(0, commands - 1); }
    } const ending{m_commands};
    for (const auto& d : g_state.drawings)
        if (d->drawing() != nullptr) d->settle(explode(name));
}

bool inCommand() { return g_state.commands && g_state.commands->inCommand(); }

}  // namespace

void start() {
    if (!g_state.commands) g_state.commands = std::make_unique<CommandWatch>();
}

void stop() {
    g_state.drawings.clear();
    g_state.commands.reset();
}

namespace {

/// Null for a drawing that is not watched.
DrawingWatch* watchOf(AcDbObjectId id) {
    for (const auto& d : g_state.drawings)
        if (d->drawing() != nullptr && d->drawing() == id.database()) return d.get();
    return nullptr;
}

}  // namespace

void stays(AcDbObjectId linked) {
    if (DrawingWatch* const d = watchOf(linked)) d->stays(linked);
}

void movesEnd(AcDbObjectId peca, const edit::Former& before) {
    if (DrawingWatch* const d = watchOf(peca)) d->note(peca, before, ends::Moved::What::Ends);
}

void changes(AcDbObjectId peca, const edit::Former& before) {
    if (DrawingWatch* const d = watchOf(peca)) d->note(peca, before, ends::Moved::What::Whole);
}

void scales(AcDbObjectId peca, const std::wstring& before) {
    if (DrawingWatch* const d = watchOf(peca)) d->scales(peca, before);
}

void refused(AcDbObjectId peca, const std::wstring& reason) {
    if (DrawingWatch* const d = watchOf(peca)) d->refused(peca, reason);
}

void observe(AcDbDatabase* drawing) {
    if (drawing == nullptr) return;
    std::erase_if(g_state.drawings, [](const auto& d) { return d->drawing() == nullptr; });
    for (const auto& d : g_state.drawings)
        if (d->drawing() == drawing) return;
    g_state.drawings.push_back(std::make_unique<DrawingWatch>(drawing, inCommand));
}

void observeReading(AcDbDatabase* drawing) {
    const auto watchesIt = [&](const auto& d) { return d->drawing() == drawing; };
    if (drawing == nullptr || std::ranges::any_of(g_state.drawings, watchesIt)) return;
    observe(drawing);
    g_state.drawings.back()->startReading();
}

void check(AcDbDatabase* drawing) {
    for (const auto& d : g_state.drawings) {
        if (drawing == nullptr || d->drawing() != drawing) continue;
        d->checkAll();
        d->apply(false);
    }
}

void leave(AcDbDatabase* drawing) {
    std::erase_if(g_state.drawings, [&](const auto& d) {
        return d->drawing() == drawing || d->drawing() == nullptr;
    });
}

}  // namespace zp::watch
