// SPDX-License-Identifier: MIT
// A module that brings an entity class.
#include <cstdlib>

#include "aced.h"
#include "acutads.h"
#include "dbents.h"
#include "rxregsvc.h"

/// A line by another name.
class ProbeLine : public AcDbLine {
public:
    ACRX_DECLARE_MEMBERS(ProbeLine);
};
ACRX_DXF_DEFINE_MEMBERS(ProbeLine, AcDbLine, 0, 0, 0, PROBELINE, "SONDA")

/// What the other probe is linked to this one for.
AcDbEntity* makeProbeLine() { return new ProbeLine; }

extern "C" AcRx::AppRetCode acrxEntryPoint(AcRx::AppMsgCode message, void* packet) {
    acutPrintf(L"[base %d]", static_cast<int>(message));
    const char* const refused = std::getenv("SONDA_BASE_RECUSA");  // number of a message
    if (refused != nullptr && std::atoi(refused) == message) return AcRx::kRetError;
    if (message == AcRx::kInitAppMsg) {
        acrxUnlockApplication(packet);
        ProbeLine::rxInit();
        acrxBuildClassHierarchy();
    }
    if (message == AcRx::kUnloadAppMsg) deleteAcRxClass(ProbeLine::desc());
    return AcRx::kRetOK;
}
