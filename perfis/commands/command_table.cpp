// SPDX-License-Identifier: MIT
// The command table.
#include "perfis/commands/command_table.h"

namespace perfis {
namespace {

template <const ProfileCommand& kCommand>
CommandRow row(const ACHAR* globalName, const ACHAR* localName) {
    return {globalName, localName, [] { draw(kCommand); }, kCommand};
}

const CommandRow kCommands[30] = {
    row<pudobrado>(L"pudobrado", L"perfilu"),
    row<pidobrado>(L"pidobrado", L"perfil2u"),
    row<pienrdobrado>(L"pienrdobrado", L"perfil2uenr"),
    row<pcxdobrado>(L"pcxdobrado", L"perfilduc"),
    row<pcartola>(L"pcartola", L"perfilc"),
    row<pcxdoben>(L"pcxdoben", L"perfilcaixa"),
    row<pcantdob>(L"pcantdob", L"pcantoneira"),
    row<pcanttdob>(L"pcanttdob", L"pcdtee"),
    row<pcantudob>(L"pcantudob", L"pcantoneiradu"),
    row<pzdobrado>(L"pzdobrado", L"perfilz"),
    row<pudoben>(L"pudoben", L"perfilur"),
    row<pcantxdob>(L"pcantxdob", L"perfildvv"),
    row<pcantlam>(L"pcantlam", L"perfilcl"),
    row<pilaminado>(L"pilaminado", L"perfilil"),
    row<pisoldado>(L"pisoldado", L"vigai"),
    row<pcantcruzlam>(L"pcantcruzlam", L"cantdvvl"),
    row<pcanttelam>(L"pcanttelam", L"cantdteel"),
    row<pcantulam>(L"pcantulam", L"cantdul"),
    row<bnlam>(L"bnlam", L"bnlaminado"),
    row<perfilulaminado>(L"PERFILULAMINADO", L"PERFILULAMINADO"),
    row<perfiluulaminado>(L"perfiluulaminado", L"perfiluulaminado"),
    row<cantoneiracaixalaminada>(L"cantoneiracaixalaminada", L"cantoneiracaixalaminada"),
    row<perfil2ulam>(L"perfil2ulam", L"perfil2ulam"),
    row<perfilcantzlaminado>(L"perfilcantzlaminado", L"perfilcantzlaminado"),
    row<perfilcantcruzlaminado>(L"perfilcantcruzlaminado", L"perfilcantcruzlaminado"),
    row<perfilbarraredonda>(L"perfilbarraredonda", L"perfilbarraredonda"),
    row<perfiltubo>(L"perfiltubo", L"perfiltubo"),
    row<perfilbox>(L"perfilbox", L"perfilbox"),
    row<perfilpsa>(L"perfilpsa", L"perfilpsa"),
    row<perfilicartola>(L"perfilicartola", L"perfilicartola"),
};

}  // namespace

std::span<const CommandRow> commandTable() { return kCommands; }

}  // namespace perfis
