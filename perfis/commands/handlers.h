// SPDX-License-Identifier: MIT
// Handlers of the commands, as the command table registers them. Each runs its command whole; no
// exception leaves it.
#pragma once

namespace perfis {

void bnlam();
void cantoneiracaixalaminada();
void pcantcruzlam();
void pcantdob();
void pcantlam();
void pcanttdob();
void pcanttelam();
void pcantudob();
void pcantulam();
void pcantxdob();
void pcartola();
void pcxdoben();
void pcxdobrado();
void perfil2ulam();
void perfilbarraredonda();
void perfilbox();
void perfilcantcruzlaminado();
void perfilcantzlaminado();
void perfilicartola();
void perfilpsa();
void perfiltubo();
void perfilulaminado();
void perfiluulaminado();
void pidobrado();
void pienrdobrado();
void pilaminado();
void pisoldado();
void pudoben();
void pudobrado();
void pzdobrado();

}  // namespace perfis
