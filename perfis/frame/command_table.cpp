// SPDX-License-Identifier: MIT
// The command table. A command that this release does not draw yet answers with one line.
#include "perfis/frame/command_table.h"

#include "acutads.h"
#include "perfis/commands/handlers.h"

namespace perfis {
namespace {

extern const CommandRow kCommands[30];

/// Handler of a row whose command is missing: says its name and what to do.
template <int Row>
void missing() {
    (void)acutPrintf(
        L"\nO comando %ls não faz parte desta versão de ZpPerfis. Nada foi desenhado: instale uma "
        L"versão mais nova ou desenhe a peça com outro comando de perfil.\n",
        kCommands[Row - 1].localName);
}

const CommandRow kCommands[30] = {
    {L"pudobrado", L"perfilu", pudobrado},
    {L"pidobrado", L"perfil2u", missing<2>},
    {L"pienrdobrado", L"perfil2uenr", missing<3>},
    {L"pcxdobrado", L"perfilduc", missing<4>},
    {L"pcartola", L"perfilc", pcartola},
    {L"pcxdoben", L"perfilcaixa", pcxdoben},
    {L"pcantdob", L"pcantoneira", pcantdob},
    {L"pcanttdob", L"pcdtee", missing<8>},
    {L"pcantudob", L"pcantoneiradu", missing<9>},
    {L"pzdobrado", L"perfilz", pzdobrado},
    {L"pudoben", L"perfilur", pudoben},
    {L"pcantxdob", L"perfildvv", missing<12>},
    {L"pcantlam", L"perfilcl", pcantlam},
    {L"pilaminado", L"perfilil", pilaminado},
    {L"pisoldado", L"vigai", pisoldado},
    {L"pcantcruzlam", L"cantdvvl", missing<16>},
    {L"pcanttelam", L"cantdteel", missing<17>},
    {L"pcantulam", L"cantdul", missing<18>},
    {L"bnlam", L"bnlaminado", bnlam},
    {L"PERFILULAMINADO", L"PERFILULAMINADO", perfilulaminado},
    {L"perfiluulaminado", L"perfiluulaminado", missing<21>},
    {L"cantoneiracaixalaminada", L"cantoneiracaixalaminada", cantoneiracaixalaminada},
    {L"perfil2ulam", L"perfil2ulam", missing<23>},
    {L"perfilcantzlaminado", L"perfilcantzlaminado", missing<24>},
    {L"perfilcantcruzlaminado", L"perfilcantcruzlaminado", missing<25>},
    {L"perfilbarraredonda", L"perfilbarraredonda", perfilbarraredonda},
    {L"perfiltubo", L"perfiltubo", perfiltubo},
    {L"perfilbox", L"perfilbox", perfilbox},
    {L"perfilpsa", L"perfilpsa", perfilpsa},
    {L"perfilicartola", L"perfilicartola", missing<30>},
};

}  // namespace

std::span<const CommandRow> commandTable() { return kCommands; }

}  // namespace perfis
