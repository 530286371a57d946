// SPDX-License-Identifier: MIT
// Entry of ZpObjects18.arx.
#include "dbapserv.h"
#include "rxregsvc.h"
#include "zp/objects/classes_zp.h"
#include "zp/objects/fichas.h"
#include "zp/objects/relatorio.h"
#include "zp/objects/vigia.h"

extern "C" AcRx::AppRetCode acrxEntryPoint(AcRx::AppMsgCode msg, void* pkt) {
    AcDbDatabase* desenho = acdbHostApplicationServices()->workingDatabase();
    switch (msg) {
        case AcRx::kInitAppMsg:
            acrxUnlockApplication(pkt);
            acrxRegisterAppMDIAware(pkt);
            zp::registraClasses();
            zp::relatorio::instala();
            zp::fichas::instala();
            zp::vigia::comeca();
            break;
        case AcRx::kLoadDwgMsg:
            zp::vigia::observa(desenho);
            zp::vigia::confere(desenho);
            break;
        case AcRx::kUnloadDwgMsg:
            zp::vigia::abandona(desenho);
            break;
        case AcRx::kUnloadAppMsg:
            zp::vigia::encerra();
            zp::fichas::retira();
            zp::relatorio::retira();
            zp::retiraClasses();
            break;
        default:
            break;
    }
    return AcRx::kRetOK;
}
