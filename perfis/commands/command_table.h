// SPDX-License-Identifier: MIT
// The commands of the module, in the order of their registration.
#pragma once

#include <span>

#include "accmd.h"
#include "perfis/commands/handlers.h"

namespace perfis {

/// Group of all commands.
inline constexpr const ACHAR* kCommandGroup = L"ZPPERFIS";

struct CommandRow {
    const ACHAR* globalName;
    const ACHAR* localName;
    AcRxFunctionPtr handler;  ///< no exception leaves it
    const PerfilCommand& command;
};

std::span<const CommandRow> commandTable();

}  // namespace perfis
