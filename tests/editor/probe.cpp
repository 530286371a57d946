// SPDX-License-Identifier: MIT
// A module with commands, linked to another one.
#include <cstdlib>

#include "accmd.h"
#include "acedads.h"
#include "dbsymtb.h"
#include "rxregsvc.h"

AcDbEntity* makeProbeLine();

namespace {

void* g_application = nullptr;

void draw() {
    AcDbObjectPointer<AcDbBlockTableRecord> space(
        acdbHostApplicationServices()->workingDatabase()->currentSpaceId(), AcDb::kForWrite);
    AcDbEntity* entity = makeProbeLine();
    entity->setDatabaseDefaults();
    if (space->appendAcDbEntity(entity) == Acad::eOk) entity->close();
}

/// Tries to unload itself while it runs.
void unloadSelf() { acutPrintf(acrxUnloadModule(L"sonda.arx") ? L"foi" : L"ficou"); }

void lock() { acrxLockApplication(g_application); }
void unlock() { acrxUnlockApplication(g_application); }

}  // namespace

extern "C" int acrxGetApiVersion(void) { return 18; }

extern "C" AcRx::AppRetCode acrxEntryPoint(AcRx::AppMsgCode message, void* packet) {
    acutPrintf(L"[sonda %d]", static_cast<int>(message));
    const char* const refused = std::getenv("SONDA_RECUSA");  // number of a message
    if (refused != nullptr && std::atoi(refused) == message) return AcRx::kRetError;
    if (message == AcRx::kInitAppMsg) {
        g_application = packet;
        // Commands cannot be sent from here.
        if (acedCommand(RTSTR, L"_.line", RTNONE) != RTERROR) return AcRx::kRetError;
        acrxUnlockApplication(packet);
        acedRegCmds->addCommand(L"SONDA", L"sdraw", L"sdesenha", ACRX_CMD_TRANSPARENT, draw);
        acedRegCmds->addCommand(L"SONDA", L"sself", L"sself", ACRX_CMD_TRANSPARENT, unloadSelf);
        acedRegCmds->addCommand(L"SONDA", L"slock", L"slock", ACRX_CMD_TRANSPARENT, lock);
        acedRegCmds->addCommand(L"SONDA", L"sunlock", L"sunlock", ACRX_CMD_TRANSPARENT, unlock);
    }
    return AcRx::kRetOK;  // leaves its group to the host
}
