// SPDX-License-Identifier: MIT
// The list of the commands, and their runs.
#pragma once

#include <memory>

#include "perfis/commands/perfil_run.h"

namespace perfis {

// A command's source says the values of its section by their roles alone.
using zp::secao::Kind;
using enum zp::secao::Role;

/// A command: what it draws, and how a run of it is made where that is more than a plain one.
struct PerfilCommand {
    const PerfilDescription& description;
    std::unique_ptr<PerfilRun> (*make)() = nullptr;
};

template <class Run>
std::unique_ptr<PerfilRun> newRunOf() {
    return std::make_unique<Run>();
}

/// One run of the command, to draw new pieces or to edit one.
std::unique_ptr<PerfilRun> newRun(const PerfilCommand& command);

/// One whole run of a command. No exception leaves it: the only one to be expected is lack of
/// memory.
void draw(const PerfilCommand& command);

/// The commands in the order of their registration: name in the code, global and local name.
// clang-format off
#define PERFIS_COMMANDS(X) \
    X(pudobrado, L"pudobrado", L"perfilu")                                             \
    X(pidobrado, L"pidobrado", L"perfil2u")                                            \
    X(pienrdobrado, L"pienrdobrado", L"perfil2uenr")                                   \
    X(pcxdobrado, L"pcxdobrado", L"perfilduc")                                         \
    X(pcartola, L"pcartola", L"perfilc")                                               \
    X(pcxdoben, L"pcxdoben", L"perfilcaixa")                                           \
    X(pcantdob, L"pcantdob", L"pcantoneira")                                           \
    X(pcanttdob, L"pcanttdob", L"pcdtee")                                              \
    X(pcantudob, L"pcantudob", L"pcantoneiradu")                                       \
    X(pzdobrado, L"pzdobrado", L"perfilz")                                             \
    X(pudoben, L"pudoben", L"perfilur")                                                \
    X(pcantxdob, L"pcantxdob", L"perfildvv")                                           \
    X(pcantlam, L"pcantlam", L"perfilcl")                                              \
    X(pilaminado, L"pilaminado", L"perfilil")                                          \
    X(pisoldado, L"pisoldado", L"vigai")                                               \
    X(pcantcruzlam, L"pcantcruzlam", L"cantdvvl")                                      \
    X(pcanttelam, L"pcanttelam", L"cantdteel")                                         \
    X(pcantulam, L"pcantulam", L"cantdul")                                             \
    X(bnlam, L"bnlam", L"bnlaminado")                                                  \
    X(perfilulaminado, L"PERFILULAMINADO", L"PERFILULAMINADO")                         \
    X(perfiluulaminado, L"perfiluulaminado", L"perfiluulaminado")                      \
    X(cantoneiracaixalaminada, L"cantoneiracaixalaminada", L"cantoneiracaixalaminada") \
    X(perfil2ulam, L"perfil2ulam", L"perfil2ulam")                                     \
    X(perfilcantzlaminado, L"perfilcantzlaminado", L"perfilcantzlaminado")             \
    X(perfilcantcruzlaminado, L"perfilcantcruzlaminado", L"perfilcantcruzlaminado")    \
    X(perfilbarraredonda, L"perfilbarraredonda", L"perfilbarraredonda")                \
    X(perfiltubo, L"perfiltubo", L"perfiltubo")                                        \
    X(perfilbox, L"perfilbox", L"perfilbox")                                           \
    X(perfilpsa, L"perfilpsa", L"perfilpsa")                                           \
    X(perfilicartola, L"perfilicartola", L"perfilicartola")
// clang-format on

#define PERFIS_DECLARE(NAME, GLOBAL, LOCAL) extern const PerfilCommand NAME;
PERFIS_COMMANDS(PERFIS_DECLARE)
#undef PERFIS_DECLARE

}  // namespace perfis
