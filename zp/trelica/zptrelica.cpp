// SPDX-License-Identifier: MIT
// Reads bar data from a piece's extended data, and the entry of trelica18.arx.
#include "zp/trelica/zptrelica.h"

#include <algorithm>
#include <cwchar>
#include <iterator>

#include "acutads.h"
#include "dbmain.h"
#include "rxregsvc.h"
#include "zp/buffer_chain.h"

namespace {

void copy(const ACHAR* from, wchar_t (&target)[128]) {
    const std::size_t n = std::min(std::wcslen(from), std::size(target) - 1);
    *std::copy_n(from, n, target) = L'\0';
}

/// Fields in the order in which they are written: role, profile, dimensions, length, mass.
bool decode(const resbuf* list, tagZP_GBARRA& barra) {
    constexpr short kOrder[] = {AcDb::kDxfRegAppName,    AcDb::kDxfXdInteger16,
                                AcDb::kDxfXdAsciiString, AcDb::kDxfXdAsciiString,
                                AcDb::kDxfXdReal,        AcDb::kDxfXdReal};
    const resbuf* field[std::size(kOrder)] = {};
    for (std::size_t i = 0; i < std::size(kOrder); ++i, list = list->rbnext) {
        if (list == nullptr || list->restype != kOrder[i]) return false;
        field[i] = list;
    }
    barra.type = field[1]->resval.rint;
    copy(field[2]->resval.rstring, barra.perfil);
    copy(field[3]->resval.rstring, barra.dimensoes);
    barra.comprimento = field[4]->resval.rreal;
    barra.peso = field[5]->resval.rreal;
    return true;
}

}  // namespace

int GetXDataEntStObject(AcDbObjectId id, tagZP_GBARRA* barra) {
    if (barra == nullptr) return RTERROR;
    // Objects still open for write are not readable by others, so their data count as absent.
    const AcDbObjectPointer<AcDbEntity> entity(id, AcDb::kForRead);
    if (entity.object() == nullptr) return RTERROR;
    const zp::BufferChain list(entity->xData(kZpGBarraApp));
    return list && decode(list.get(), *barra) ? RTNORM : RTERROR;
}

extern "C" AcRx::AppRetCode acrxEntryPoint(AcRx::AppMsgCode msg, void* pkt) {
    if (msg == AcRx::kInitAppMsg) {
        acrxUnlockApplication(pkt);
        acrxRegisterAppMDIAware(pkt);
    }
    return AcRx::kRetOK;
}
