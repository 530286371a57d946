// SPDX-License-Identifier: MIT
// The command table.
#include "perfis/commands/command_table.h"

namespace perfis {
namespace {

template <const PerfilCommand& kCommand>
CommandRow row(const ACHAR* globalName, const ACHAR* localName) {
    return {globalName, localName, [] { draw(kCommand); }, kCommand};
}

#define PERFIS_ROW(NAME, GLOBAL, LOCAL) row<NAME>(GLOBAL, LOCAL),
const CommandRow kCommands[] = {PERFIS_COMMANDS(PERFIS_ROW)};
#undef PERFIS_ROW

}  // namespace

std::span<const CommandRow> commandTable() { return kCommands; }

}  // namespace perfis
