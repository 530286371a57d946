// SPDX-License-Identifier: MIT
// Texts of bar data, and the entry of ZpGBarraApp18.arx.
#include "zp/gbarra/zpgbarra.h"

#include "rxregsvc.h"

void GetDimAndPerfText(tagZP_GBARRA barra, ZpString& dimensoes, ZpString& perfil) {
    dimensoes = ZpString(barra.dimensoes);
    perfil = ZpString(barra.perfil);
}

extern "C" AcRx::AppRetCode acrxEntryPoint(AcRx::AppMsgCode msg, void* pkt) {
    if (msg == AcRx::kInitAppMsg) {
        acrxUnlockApplication(pkt);
        acrxRegisterAppMDIAware(pkt);
    }
    return AcRx::kRetOK;
}
