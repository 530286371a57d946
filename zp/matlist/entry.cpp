// SPDX-License-Identifier: MIT
// Entry of ZP__MaterialList18.arx.
#include "accmd.h"
#include "rxregsvc.h"
#include "zp/matlist/ask_which.h"
#include "zp/matlist/follow.h"
#include "zp/matlist/lists.h"
#include "zp/matlist/report.h"
#include "zp/matlist/sheets.h"
#include "zp/matlist/table.h"
#include "zp/matlist/zpmarca.h"

namespace {

constexpr const ACHAR* kGrupo = L"ZPMATLIST";

void comeca(void* aplicacao) {
    acrxUnlockApplication(aplicacao);
    acrxRegisterAppMDIAware(aplicacao);
    ZpMarca::rxInit();
    acrxBuildClassHierarchy();
    zp::lista::instalaRelatorio();
    zp::lista::instalaFichas();
    zp::lista::comecaAAcompanhar();
    if (AcEdCommandStack* pilha = acedRegCmds; pilha != nullptr)
        (void)pilha->addCommand(
            kGrupo, L"LISTAMATERIAL", L"LISTAMATERIAL", ACRX_CMD_MODAL,
            zp::lista::comandoListaMaterial);  // refused only when it is there already
}

void encerra() {
    if (AcEdCommandStack* pilha = acedRegCmds; pilha != nullptr) (void)pilha->removeGroup(kGrupo);
    zp::lista::paraDeAcompanhar();
    zp::lista::retiraFichas();
    zp::lista::retiraRelatorio();
    zp::lista::esquece();
    zp::lista::esqueceLinhas();
    deleteAcRxClass(ZpMarca::desc());
}

}  // namespace

extern "C" AcRx::AppRetCode acrxEntryPoint(AcRx::AppMsgCode msg, void* pkt) {
    if (msg == AcRx::kInitAppMsg) comeca(pkt);
    if (msg == AcRx::kUnloadDwgMsg) {
        zp::lista::esquece();
        zp::lista::esqueceLinhas();
        zp::lista::esqueceUltima();
    }
    if (msg == AcRx::kUnloadAppMsg) encerra();
    return AcRx::kRetOK;
}
