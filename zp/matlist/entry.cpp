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

constexpr const ACHAR* kGroup = L"ZPMATLIST";

void comeca(void* application) {
    acrxUnlockApplication(application);
    acrxRegisterAppMDIAware(application);
    ZpMarca::rxInit();
    acrxBuildClassHierarchy();
    zp::lista::installReport();
    zp::lista::installSheets();
    zp::lista::startFollowing();
    if (AcEdCommandStack* stack = acedRegCmds; stack != nullptr)
        (void)stack->addCommand(
            kGroup, L"LISTAMATERIAL", L"LISTAMATERIAL", ACRX_CMD_MODAL,
            zp::lista::materialListCommand);  // refused only when it is there already
}

void encerra() {
    if (AcEdCommandStack* stack = acedRegCmds; stack != nullptr) (void)stack->removeGroup(kGroup);
    zp::lista::stopFollowing();
    zp::lista::uninstallSheets();
    zp::lista::uninstallReport();
    zp::lista::esquece();
    zp::lista::forgetRows();
    deleteAcRxClass(ZpMarca::desc());
}

}  // namespace

extern "C" AcRx::AppRetCode acrxEntryPoint(AcRx::AppMsgCode msg, void* pkt) {
    if (msg == AcRx::kInitAppMsg) comeca(pkt);
    if (msg == AcRx::kUnloadDwgMsg) {
        zp::lista::esquece();
        zp::lista::forgetRows();
        zp::lista::forgetLast();
    }
    if (msg == AcRx::kUnloadAppMsg) encerra();
    return AcRx::kRetOK;
}
