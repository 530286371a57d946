// SPDX-License-Identifier: MIT
// A command that runs or waits, and what a program feeds to one.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "prancheta/editor/command.h"
#include "prancheta/editor/program_input.h"
#include "prancheta/editor/question.h"

namespace prancheta {

struct RunningCommand {
    std::wstring name;
    std::wstring shownName;  ///< in capitals
    std::wstring group;
    int flags = 0;
    bool transparent = false;
    bool givenUp = false;
    AcRxFunctionPtr function = nullptr;  ///< of a module; null for a built-in command
    CommandRun run;
    std::optional<CommandTask> task;
    std::optional<Question> question;
    AcDbDatabase* undoDatabase = nullptr;  ///< where this command's undo group is open
};

/// Tokens of one acedCommand call, in their order.
struct TokenStream {
    std::vector<ProgramToken> tokens;
    std::size_t next = 0;
    bool empty() const { return next >= tokens.size(); }
    const ProgramToken& take() { return tokens[next++]; }
};

}  // namespace prancheta
