// SPDX-License-Identifier: MIT
// The command table.
#include "perfis/frame/command_table.h"

#include "perfis/commands/handlers.h"

namespace perfis {
namespace {

const CommandRow kCommands[30] = {
    {L"pudobrado", L"perfilu", pudobrado},
    {L"pidobrado", L"perfil2u", pidobrado},
    {L"pienrdobrado", L"perfil2uenr", pienrdobrado},
    {L"pcxdobrado", L"perfilduc", pcxdobrado},
    {L"pcartola", L"perfilc", pcartola},
    {L"pcxdoben", L"perfilcaixa", pcxdoben},
    {L"pcantdob", L"pcantoneira", pcantdob},
    {L"pcanttdob", L"pcdtee", pcanttdob},
    {L"pcantudob", L"pcantoneiradu", pcantudob},
    {L"pzdobrado", L"perfilz", pzdobrado},
    {L"pudoben", L"perfilur", pudoben},
    {L"pcantxdob", L"perfildvv", pcantxdob},
    {L"pcantlam", L"perfilcl", pcantlam},
    {L"pilaminado", L"perfilil", pilaminado},
    {L"pisoldado", L"vigai", pisoldado},
    {L"pcantcruzlam", L"cantdvvl", pcantcruzlam},
    {L"pcanttelam", L"cantdteel", pcanttelam},
    {L"pcantulam", L"cantdul", pcantulam},
    {L"bnlam", L"bnlaminado", bnlam},
    {L"PERFILULAMINADO", L"PERFILULAMINADO", perfilulaminado},
    {L"perfiluulaminado", L"perfiluulaminado", perfiluulaminado},
    {L"cantoneiracaixalaminada", L"cantoneiracaixalaminada", cantoneiracaixalaminada},
    {L"perfil2ulam", L"perfil2ulam", perfil2ulam},
    {L"perfilcantzlaminado", L"perfilcantzlaminado", perfilcantzlaminado},
    {L"perfilcantcruzlaminado", L"perfilcantcruzlaminado", perfilcantcruzlaminado},
    {L"perfilbarraredonda", L"perfilbarraredonda", perfilbarraredonda},
    {L"perfiltubo", L"perfiltubo", perfiltubo},
    {L"perfilbox", L"perfilbox", perfilbox},
    {L"perfilpsa", L"perfilpsa", perfilpsa},
    {L"perfilicartola", L"perfilicartola", perfilicartola},
};

}  // namespace

std::span<const CommandRow> commandTable() { return kCommands; }

}  // namespace perfis
