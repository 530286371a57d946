// SPDX-License-Identifier: MIT
// The commands, and their runs.
#pragma once

#include <memory>

#include "perfis/commands/profile_run.h"

namespace perfis {

/// A command: what it draws, and how a run of it is made where that is more than a plain one.
struct ProfileCommand {
    const ProfileDescription& description;
    std::unique_ptr<ProfileRun> (*make)() = nullptr;
};

template <class Run>
std::unique_ptr<ProfileRun> newRunOf() {
    return std::make_unique<Run>();
}

/// One run of the command, to draw new pieces or to edit one.
std::unique_ptr<ProfileRun> newRun(const ProfileCommand& command);

/// One whole run of a command. No exception leaves it: the only one to be expected is lack of
/// memory.
void draw(const ProfileCommand& command);

extern const ProfileCommand bnlam, cantoneiracaixalaminada, pcantcruzlam, pcantdob, pcantlam,
    pcanttdob, pcanttelam, pcantudob, pcantulam, pcantxdob, pcartola, pcxdoben, pcxdobrado,
    perfil2ulam, perfilbarraredonda, perfilbox, perfilcantcruzlaminado, perfilcantzlaminado,
    perfilicartola, perfilpsa, perfiltubo, perfilulaminado, perfiluulaminado, pidobrado,
    pienrdobrado, pilaminado, pisoldado, pudoben, pudobrado, pzdobrado;

}  // namespace perfis
