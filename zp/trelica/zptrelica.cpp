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

void copia(const ACHAR* de, wchar_t (&para)[128]) {
    const std::size_t n = std::min(std::wcslen(de), std::size(para) - 1);
    *std::copy_n(de, n, para) = L'\0';
}

/// Fields in the order in which they are written: role, profile, dimensions, length, mass.
bool decifra(const resbuf* lista, tagZP_GBARRA& barra) {
    constexpr short kOrdem[] = {AcDb::kDxfRegAppName,    AcDb::kDxfXdInteger16,
                                AcDb::kDxfXdAsciiString, AcDb::kDxfXdAsciiString,
                                AcDb::kDxfXdReal,        AcDb::kDxfXdReal};
    const resbuf* campo[std::size(kOrdem)] = {};
    for (std::size_t i = 0; i < std::size(kOrdem); ++i, lista = lista->rbnext) {
        if (lista == nullptr || lista->restype != kOrdem[i]) return false;
        campo[i] = lista;
    }
    barra.tipo = campo[1]->resval.rint;
    copia(campo[2]->resval.rstring, barra.perfil);
    copia(campo[3]->resval.rstring, barra.dimensoes);
    barra.comprimento = campo[4]->resval.rreal;
    barra.peso = campo[5]->resval.rreal;
    return true;
}

}  // namespace

int GetXDataEntStObject(AcDbObjectId id, tagZP_GBARRA* barra) {
    if (barra == nullptr) return RTERROR;
    // Objects still open for write are not readable by others, so their data count as absent.
    const AcDbObjectPointer<AcDbEntity> entidade(id, AcDb::kForRead);
    if (entidade.object() == nullptr) return RTERROR;
    const zp::Corrente lista(entidade->xData(kZpGBarraApp));
    return lista && decifra(lista.get(), *barra) ? RTNORM : RTERROR;
}

extern "C" AcRx::AppRetCode acrxEntryPoint(AcRx::AppMsgCode msg, void* pkt) {
    if (msg == AcRx::kInitAppMsg) {
        acrxUnlockApplication(pkt);
        acrxRegisterAppMDIAware(pkt);
    }
    return AcRx::kRetOK;
}
