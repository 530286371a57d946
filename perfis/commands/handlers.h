// SPDX-License-Identifier: MIT
// The commands: each makes one run of itself, to draw new pieces or to edit one.
#pragma once

#include <memory>

#include "perfis/commands/profile_run.h"

namespace perfis {

using MakeRun = std::unique_ptr<ProfileRun> (*)();

/// One whole run of a command. No exception leaves it: the only one to be expected is lack of
/// memory.
void draw(MakeRun make);

std::unique_ptr<ProfileRun> bnlam();
std::unique_ptr<ProfileRun> cantoneiracaixalaminada();
std::unique_ptr<ProfileRun> pcantcruzlam();
std::unique_ptr<ProfileRun> pcantdob();
std::unique_ptr<ProfileRun> pcantlam();
std::unique_ptr<ProfileRun> pcanttdob();
std::unique_ptr<ProfileRun> pcanttelam();
std::unique_ptr<ProfileRun> pcantudob();
std::unique_ptr<ProfileRun> pcantulam();
std::unique_ptr<ProfileRun> pcantxdob();
std::unique_ptr<ProfileRun> pcartola();
std::unique_ptr<ProfileRun> pcxdoben();
std::unique_ptr<ProfileRun> pcxdobrado();
std::unique_ptr<ProfileRun> perfil2ulam();
std::unique_ptr<ProfileRun> perfilbarraredonda();
std::unique_ptr<ProfileRun> perfilbox();
std::unique_ptr<ProfileRun> perfilcantcruzlaminado();
std::unique_ptr<ProfileRun> perfilcantzlaminado();
std::unique_ptr<ProfileRun> perfilicartola();
std::unique_ptr<ProfileRun> perfilpsa();
std::unique_ptr<ProfileRun> perfiltubo();
std::unique_ptr<ProfileRun> perfilulaminado();
std::unique_ptr<ProfileRun> perfiluulaminado();
std::unique_ptr<ProfileRun> pidobrado();
std::unique_ptr<ProfileRun> pienrdobrado();
std::unique_ptr<ProfileRun> pilaminado();
std::unique_ptr<ProfileRun> pisoldado();
std::unique_ptr<ProfileRun> pudoben();
std::unique_ptr<ProfileRun> pudobrado();
std::unique_ptr<ProfileRun> pzdobrado();

}  // namespace perfis
