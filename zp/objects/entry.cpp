// SPDX-License-Identifier: MIT
// Entry of ZpObjects18.arx.
#include "dbapserv.h"
#include "rxregsvc.h"
#include "zp/objects/report.h"
#include "zp/objects/sheets.h"
#include "zp/objects/watch.h"
#include "zp/objects/zp_classes.h"

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
