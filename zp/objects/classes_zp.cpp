// SPDX-License-Identifier: MIT
// Run-time classes of the entity library.
#include "zp/objects/classes_zp.h"

#include "perfis/entities/zpentidades.h"

namespace zp {
namespace {

struct ClasseZp {
    void (*inicia)();
    AcRxClass* (*descricao)();
};

// clang-format off
constexpr ClasseZp kClassesZp[] = {
    {ZpUDobrado::rxInit, ZpUDobrado::desc},
    {ZpZDobrado::rxInit, ZpZDobrado::desc},
    {ZpCartola::rxInit, ZpCartola::desc},
    {ZpCantoneiraDobrada::rxInit, ZpCantoneiraDobrada::desc},
    {ZpCaixaDobrado::rxInit, ZpCaixaDobrado::desc},
    {ZpBox::rxInit, ZpBox::desc},
    {ZpTubo::rxInit, ZpTubo::desc},
    {ZpBarraRedonda::rxInit, ZpBarraRedonda::desc},
    {ZpCantTDobrada::rxInit, ZpCantTDobrada::desc},
    {ZpCantUDobrada::rxInit, ZpCantUDobrada::desc},
    {ZpXDobrado::rxInit, ZpXDobrado::desc},
    {ZpIDobrado::rxInit, ZpIDobrado::desc},
    {ZpBNLaminado::rxInit, ZpBNLaminado::desc},
    {ZpCantLaminada::rxInit, ZpCantLaminada::desc},
    {ZpCantLaminadaCaixa::rxInit, ZpCantLaminadaCaixa::desc},
    {ZpULaminado::rxInit, ZpULaminado::desc},
    {ZpCantTEELaminada::rxInit, ZpCantTEELaminada::desc},
    {ZpCantULaminada::rxInit, ZpCantULaminada::desc},
    {ZpBNDuplaLaminada::rxInit, ZpBNDuplaLaminada::desc},
    {ZpCantCruzLaminada::rxInit, ZpCantCruzLaminada::desc},
    {ZpCantZLaminada::rxInit, ZpCantZLaminada::desc},
    {ZpUULaminado::rxInit, ZpUULaminado::desc},
    {Zp2ULaminado::rxInit, Zp2ULaminado::desc},
    {ZpISoldado::rxInit, ZpISoldado::desc},
    {ZpILaminadoUSA::rxInit, ZpILaminadoUSA::desc},
    {ZpChapa::rxInit, ZpChapa::desc},
};
// clang-format on

}  // namespace

void registraClasses() {
    ZpObject::rxInit();
    for (const ClasseZp& c : kClassesZp) c.inicia();
    acrxBuildClassHierarchy();
}

void retiraClasses() {
    for (const ClasseZp& c : kClassesZp) deleteAcRxClass(c.descricao());
    deleteAcRxClass(ZpObject::desc());
}

}  // namespace zp
