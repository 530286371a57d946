// SPDX-License-Identifier: MIT
// Entry of ZpObjects18.arx.
#include "dbapserv.h"
#include "rxregsvc.h"
#include "zp/objects/copies.h"
#include "zp/objects/lengths.h"
#include "zp/objects/report.h"
#include "zp/objects/sheets.h"
#include "zp/objects/watch.h"
#include "zp/objects/zp_classes.h"

extern "C" AcRx::AppRetCode acrxEntryPoint(AcRx::AppMsgCode msg, void* pkt) {
    AcDbDatabase* drawing = acdbHostApplicationServices()->workingDatabase();
    switch (msg) {
        case AcRx::kInitAppMsg:
            acrxUnlockApplication(pkt);
            acrxRegisterAppMDIAware(pkt);
            zp::registerClasses();
            zp::report::install();
            zp::sheets::install();
            zp::lengths::install();
            zp::copies::install();
            zp::watch::start();
            break;
        case AcRx::kLoadDwgMsg:
            zp::watch::observe(drawing);
            zp::watch::check(drawing);
            break;
        case AcRx::kUnloadDwgMsg:
            zp::watch::leave(drawing);
            break;
        case AcRx::kUnloadAppMsg:
            zp::watch::stop();
            zp::copies::uninstall();
            zp::lengths::uninstall();
            zp::sheets::uninstall();
            zp::report::uninstall();
            zp::unregisterClasses();
            break;
        default:
            break;
    }
    return AcRx::kRetOK;
}
