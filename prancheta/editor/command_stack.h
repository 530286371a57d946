// SPDX-License-Identifier: MIT
// Registered commands: the groups of the modules in the order in which they came, then the built-in
// ones.
#pragma once

#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "accmd.h"
#include "prancheta/editor/command.h"

namespace prancheta {

/// A registered command; built-in ones have `builtIn` and no function.
class StackCommand : public AcEdCommand {
public:
    const ACHAR* globalName() const override { return global.c_str(); }
    const ACHAR* localName() const override { return local.c_str(); }
    const ACHAR* groupName() const override { return group.c_str(); }
    Adesk::Int32 commandFlags() const override { return flags; }
    AcRxFunctionPtr functionAddr() const override { return function; }

    std::wstring global;
    std::wstring local;
    std::wstring group;
    Adesk::Int32 flags = 0;
    AcRxFunctionPtr function = nullptr;
    const BuiltInCommand* builtIn = nullptr;
};

/// A command name as typed, without its marks: `'` transparent, `_` global, `.` built-in.
struct TypedName {
    explicit TypedName(std::wstring_view typed);
    std::wstring name;
    bool transparent = false;
    bool global = false;
    bool builtIn = false;
};

class CommandStack : public AcEdCommandStack {
public:
    explicit CommandStack(std::span<const BuiltInCommand> builtIns);

    Acad::ErrorStatus addCommand(const ACHAR* group, const ACHAR* globalName,
                                 const ACHAR* localName, Adesk::Int32 flags,
                                 AcRxFunctionPtr function, AcEdUIContext* ui, int fcode,
                                 HINSTANCE resources, AcEdCommand** command) override;
    Acad::ErrorStatus removeCmd(const ACHAR* group, const ACHAR* globalName) override;
    Acad::ErrorStatus removeGroup(const ACHAR* group) override;
    AcEdCommand* lookupGlobalCmd(const ACHAR* name) const override;
    AcEdCommand* lookupLocalCmd(const ACHAR* name) const override;
    AcEdCommandIterator* iterator() const override;

    /// By local name, then by global name; a `_` asks for the global name only, a `.` for the
    /// built-in command where there is one of that name.
    StackCommand* find(const TypedName& typed) const;
    /// By a local name typed without its accents; to be tried last.
    StackCommand* findWithoutAccents(const TypedName& typed) const;
    /// Takes out what was registered with functions for which `belongs` holds.
    template <class Belongs>
    void removeFunctions(Belongs belongs) {
        for (Group& g : m_groups) {
            std::erase_if(g.commands, [&](const auto& c) {
                return c->function != nullptr && belongs(c->function);
            });
        }
        dropEmptyGroups();
    }

private:
    struct Group {
        std::wstring name;
        std::vector<std::unique_ptr<StackCommand>> commands;
    };
    Group* group(std::wstring_view name);
    void dropEmptyGroups();
    StackCommand* find(const TypedName& typed, bool builtInOnly) const;
    template <class Fits>
    StackCommand* firstThat(Fits fits) const;

    std::vector<Group> m_groups;  // the built-in one last
};

/// Run-time classes of the command stack, the editor's reactors, documents and jigs; further calls
/// do nothing.
void registerEditorClasses();

}  // namespace prancheta
