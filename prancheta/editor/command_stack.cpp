// SPDX-License-Identifier: MIT
// Registered commands.
#include "prancheta/editor/command_stack.h"

#include <algorithm>

#include "acdocman.h"
#include "aced.h"
#include "dbjig.h"
#include "prancheta/base/text.h"
#include "prancheta/editor/editor.h"

ACRX_NO_CONS_DEFINE_MEMBERS(AcEdCommand, AcRxObject)
ACRX_NO_CONS_DEFINE_MEMBERS(AcEdCommandIterator, AcRxObject)
ACRX_NO_CONS_DEFINE_MEMBERS(AcEdCommandStack, AcRxObject)
ACRX_NO_CONS_DEFINE_MEMBERS(AcEditorReactor, AcRxObject)
ACRX_NO_CONS_DEFINE_MEMBERS(AcEditor, AcRxObject)
ACRX_NO_CONS_DEFINE_MEMBERS(AcApDocument, AcRxObject)
ACRX_NO_CONS_DEFINE_MEMBERS(AcApDocManagerReactor, AcRxObject)
ACRX_NO_CONS_DEFINE_MEMBERS(AcApDocManager, AcRxObject)
ACRX_NO_CONS_DEFINE_MEMBERS(AcEdJig, AcRxObject)

namespace prancheta {

void registerEditorClasses() {
    if (AcEdCommandStack::desc() != nullptr) return;
    AcEdCommand::rxInit();
    AcEdCommandIterator::rxInit();
    AcEdCommandStack::rxInit();
    AcEditorReactor::rxInit();
    AcEditor::rxInit();
    AcApDocument::rxInit();
    AcApDocManagerReactor::rxInit();
    AcApDocManager::rxInit();
    AcEdJig::rxInit();
    acrxBuildClassHierarchy();
}

TypedName::TypedName(std::wstring_view typed) {
    typed = trim(typed);
    std::wstring dash;
    while (!typed.empty()) {
        const wchar_t mark = typed.front();
        if (mark == L'\'') {
            transparent = true;
        } else if (mark == L'_') {
            global = true;
        } else if (mark == L'.') {
            builtIn = true;
        } else if (mark == L'-' && dash.empty()) {
            dash = L"-";
        } else {
            break;
        }
        typed.remove_prefix(1);
    }
    name = dash + std::wstring(typed);
}

namespace {

class StackIterator : public AcEdCommandIterator {
public:
    explicit StackIterator(std::vector<const StackCommand*> commands)
        : m_commands(std::move(commands)) {}
    bool done() const override { return m_at >= m_commands.size(); }
    bool next() override {
        if (!done()) ++m_at;
        return !done();
    }
    const AcEdCommand* command() const override { return done() ? nullptr : m_commands[m_at]; }
    const ACHAR* commandGroup() const override {
        return done() ? nullptr : m_commands[m_at]->groupName();
    }

private:
    std::vector<const StackCommand*> m_commands;
    std::size_t m_at = 0;
};

}  // namespace

CommandStack::CommandStack(std::span<const BuiltInCommand> builtIns) {
    Group group;
    group.name = kBuiltInGroup;
    for (const BuiltInCommand& row : builtIns) {
        auto command = std::make_unique<StackCommand>();
        command->global = row.global;
        command->local = row.local;
        command->group = kBuiltInGroup;
        command->flags = row.flags;
        command->builtIn = &row;
        group.commands.push_back(std::move(command));
    }
    m_groups.push_back(std::move(group));
}

CommandStack::Group* CommandStack::group(std::wstring_view name) {
    const auto at = std::find_if(m_groups.begin(), m_groups.end(),
                                 [&](const Group& g) { return equalNoCase(g.name, name); });
    return at == m_groups.end() ? nullptr : &*at;
}

Acad::ErrorStatus CommandStack::addCommand(const ACHAR* groupName, const ACHAR* globalName,
                                           const ACHAR* localName, Adesk::Int32 flags,
                                           AcRxFunctionPtr function, AcEdUIContext*, int, HINSTANCE,
                                           AcEdCommand** command) {
    if (command != nullptr) *command = nullptr;
    const auto empty = [](const ACHAR* text) { return text == nullptr || *text == 0; };
    if (empty(groupName) || empty(globalName) || empty(localName) || function == nullptr)
        return Acad::eInvalidInput;
    Group* target = group(groupName);
    if (target != nullptr) {
        for (const auto& c : target->commands)
            if (equalNoCase(c->global, globalName) || equalNoCase(c->local, localName))
                return Acad::eDuplicateKey;
    } else {
        Group created;
        created.name = groupName;
        target = &*m_groups.insert(m_groups.end() - 1, std::move(created));
    }
    auto added = std::make_unique<StackCommand>();
    added->global = globalName;
    added->local = localName;
    added->group = target->name;
    added->flags = flags;
    added->function = function;
    if (command != nullptr) *command = added.get();
    target->commands.push_back(std::move(added));
    return Acad::eOk;
}

/// An empty group does not stand in the way of the order of a later one of its name.
void CommandStack::dropEmptyGroups() {
    std::erase_if(m_groups,
                  [](const Group& g) { return g.commands.empty() && g.name != kBuiltInGroup; });
}

Acad::ErrorStatus CommandStack::removeCmd(const ACHAR* groupName, const ACHAR* globalName) {
    if (groupName == nullptr || globalName == nullptr) return Acad::eInvalidInput;
    Group* target = group(groupName);
    if (target == nullptr) return Acad::eKeyNotFound;
    const std::size_t removed = std::erase_if(target->commands, [&](const auto& c) {
        return c->function && equalNoCase(c->global, globalName);
    });
    dropEmptyGroups();
    return removed > 0 ? Acad::eOk : Acad::eKeyNotFound;
}

Acad::ErrorStatus CommandStack::removeGroup(const ACHAR* groupName) {
    if (groupName == nullptr) return Acad::eInvalidInput;
    Group* target = group(groupName);
    if (target == nullptr || target->name == kBuiltInGroup) return Acad::eKeyNotFound;
    target->commands.clear();
    dropEmptyGroups();
    return Acad::eOk;
}

template <class Fits>
StackCommand* CommandStack::firstThat(Fits fits) const {
    for (const Group& g : m_groups)
        for (const auto& c : g.commands)
            if (fits(*c)) return c.get();
    return nullptr;
}

AcEdCommand* CommandStack::lookupGlobalCmd(const ACHAR* name) const {
    if (name == nullptr) return nullptr;
    return firstThat([&](const StackCommand& c) { return equalNoCase(c.global, name); });
}

AcEdCommand* CommandStack::lookupLocalCmd(const ACHAR* name) const {
    if (name == nullptr) return nullptr;
    return firstThat([&](const StackCommand& c) { return equalNoCase(c.local, name); });
}

AcEdCommandIterator* CommandStack::iterator() const {
    std::vector<const StackCommand*> all;
    for (const Group& g : m_groups)
        for (const auto& c : g.commands) all.push_back(c.get());
    return new StackIterator(std::move(all));
}

StackCommand* CommandStack::find(const TypedName& typed) const {
    // A dot prefers the host's own definition; a name that has none is a module's.
    if (typed.builtIn)
        if (StackCommand* const own = find(typed, true)) return own;
    return find(typed, false);
}

StackCommand* CommandStack::findWithoutAccents(const TypedName& typed) const {
    if (typed.global) return nullptr;
    const std::wstring name = withoutAccents(typed.name);
    const auto fits = [&](const StackCommand& c) {
        return equalNoCase(withoutAccents(c.local), name);
    };
    if (typed.builtIn)
        if (StackCommand* const own =
                firstThat([&](const StackCommand& c) { return c.builtIn != nullptr && fits(c); }))
            return own;
    return firstThat(fits);
}

StackCommand* CommandStack::find(const TypedName& typed, bool builtInOnly) const {
    const auto allowed = [&](const StackCommand& c) {
        return !builtInOnly || c.builtIn != nullptr;
    };
    if (!typed.global) {
        StackCommand* local = firstThat(
            [&](const StackCommand& c) { return allowed(c) && equalNoCase(c.local, typed.name); });
        if (local != nullptr) return local;
    }
    return firstThat(
        [&](const StackCommand& c) { return allowed(c) && equalNoCase(c.global, typed.name); });
}

}  // namespace prancheta
