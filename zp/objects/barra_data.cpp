// SPDX-License-Identifier: MIT
// Bar data of a piece as extended data.
#include "zp/objects/barra_data.h"

#include <cwchar>
#include <memory>

#include "acutads.h"
#include "dbsymtb.h"
#include "zp/buffer_chain.h"
#include "zp/gbarra/zpgbarra.h"
#include "zp/objects/peca.h"

namespace zp {
namespace {

bool iguais(const resbuf* a, const resbuf* b) {
    for (; a != nullptr && b != nullptr; a = a->rbnext, b = b->rbnext) {
        if (a->restype != b->restype) return false;
        switch (a->restype) {
            case AcDb::kDxfXdReal:
                if (a->resval.rreal != b->resval.rreal) return false;
                break;
            case AcDb::kDxfXdInteger16:
                if (a->resval.rint != b->resval.rint) return false;
                break;
            default:
                if (std::wcscmp(a->resval.rstring, b->resval.rstring) != 0) return false;
        }
    }
    return a == b;
}

}  // namespace

bool registraAplicacao(AcDbDatabase& desenho, const ACHAR* nome) {
    {
        const AcDbObjectPointer<AcDbRegAppTable> tabela(desenho.regAppTableId(), AcDb::kForRead);
        if (tabela.object() == nullptr) return false;
        if (tabela->has(nome)) return true;
    }
    const AcDbObjectPointer<AcDbRegAppTable> tabela(desenho.regAppTableId(), AcDb::kForWrite);
    if (tabela.object() == nullptr) return false;
    auto registro = std::make_unique<AcDbRegAppTableRecord>();
    if (registro->setName(nome) != Acad::eOk || tabela->add(registro.get()) != Acad::eOk)
        return false;
    (void)registro.release()->close();
    return true;
}

void gravaBarra(ZpObject& peca) {
    const Peca& p = Acesso::de(peca);
    if (p.chapa() || peca.database() == nullptr ||
        !registraAplicacao(*peca.database(), kZpGBarraApp))
        return;
    ACHAR perfil[kZpTextoMax];
    ACHAR dimensoes[kZpTextoMax];
    (void)peca.getPerfil(perfil);  // the buffers are there
    (void)peca.getDimensoes(dimensoes);
    const Corrente nova(acutBuildList(AcDb::kDxfRegAppName, kZpGBarraApp, AcDb::kDxfXdInteger16,
                                      static_cast<int>(p.tipoBarra), AcDb::kDxfXdAsciiString,
                                      perfil, AcDb::kDxfXdAsciiString, dimensoes, AcDb::kDxfXdReal,
                                      p.comprimento, AcDb::kDxfXdReal, peca.getPeso(), RTNONE));
    const Corrente velha(peca.xData(kZpGBarraApp));
    if (!nova || iguais(velha.get(), nova.get())) return;
    (void)peca.setXData(nova.get());  // a registered name and a short list: nothing is left to fail
}

}  // namespace zp
