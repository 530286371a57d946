// SPDX-License-Identifier: MIT
// Handlers of the commands, as the command table registers them. Each runs its command whole; no
// exception leaves it.
#pragma once

namespace perfis {

void bnlam();
void cantoneiracaixalaminada();
void pcantdob();
void pcantlam();
void pcartola();
void pcxdoben();
void perfilbarraredonda();
void perfilbox();
void perfilpsa();
void perfiltubo();
void perfilulaminado();
void pilaminado();
void pisoldado();
void pudobrado();
void pudoben();
void pzdobrado();

}  // namespace perfis
