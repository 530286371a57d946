// SPDX-License-Identifier: MIT
// The command table.
#include "perfis/frame/command_table.h"

#include "perfis/commands/handlers.h"

namespace perfis {
namespace {

template <MakeRun Make>
void run() {
    draw(Make);
}

const CommandRow kCommands[30] = {
    {L"pudobrado", L"perfilu", run<pudobrado>},
    {L"pidobrado", L"perfil2u", run<pidobrado>},
    {L"pienrdobrado", L"perfil2uenr", run<pienrdobrado>},
    {L"pcxdobrado", L"perfilduc", run<pcxdobrado>},
    {L"pcartola", L"perfilc", run<pcartola>},
    {L"pcxdoben", L"perfilcaixa", run<pcxdoben>},
    {L"pcantdob", L"pcantoneira", run<pcantdob>},
    {L"pcanttdob", L"pcdtee", run<pcanttdob>},
    {L"pcantudob", L"pcantoneiradu", run<pcantudob>},
    {L"pzdobrado", L"perfilz", run<pzdobrado>},
    {L"pudoben", L"perfilur", run<pudoben>},
    {L"pcantxdob", L"perfildvv", run<pcantxdob>},
    {L"pcantlam", L"perfilcl", run<pcantlam>},
    {L"pilaminado", L"perfilil", run<pilaminado>},
    {L"pisoldado", L"vigai", run<pisoldado>},
    {L"pcantcruzlam", L"cantdvvl", run<pcantcruzlam>},
    {L"pcanttelam", L"cantdteel", run<pcanttelam>},
    {L"pcantulam", L"cantdul", run<pcantulam>},
    {L"bnlam", L"bnlaminado", run<bnlam>},
    {L"PERFILULAMINADO", L"PERFILULAMINADO", run<perfilulaminado>},
    {L"perfiluulaminado", L"perfiluulaminado", run<perfiluulaminado>},
    {L"cantoneiracaixalaminada", L"cantoneiracaixalaminada", run<cantoneiracaixalaminada>},
    {L"perfil2ulam", L"perfil2ulam", run<perfil2ulam>},
    {L"perfilcantzlaminado", L"perfilcantzlaminado", run<perfilcantzlaminado>},
    {L"perfilcantcruzlaminado", L"perfilcantcruzlaminado", run<perfilcantcruzlaminado>},
    {L"perfilbarraredonda", L"perfilbarraredonda", run<perfilbarraredonda>},
    {L"perfiltubo", L"perfiltubo", run<perfiltubo>},
    {L"perfilbox", L"perfilbox", run<perfilbox>},
    {L"perfilpsa", L"perfilpsa", run<perfilpsa>},
    {L"perfilicartola", L"perfilicartola", run<perfilicartola>},
};

}  // namespace

std::span<const CommandRow> commandTable() { return kCommands; }

}  // namespace perfis
