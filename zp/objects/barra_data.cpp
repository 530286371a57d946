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

bool same(const resbuf* a, const resbuf* b) {
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

bool registerApplication(AcDbDatabase& drawing, const ACHAR* name) {
    {
        const AcDbObjectPointer<AcDbRegAppTable> table(drawing.regAppTableId(), AcDb::kForRead);
        if (table.object() == nullptr) return false;
        if (table->has(name)) return true;
    }
    const AcDbObjectPointer<AcDbRegAppTable> table(drawing.regAppTableId(), AcDb::kForWrite);
    if (table.object() == nullptr) return false;
    auto record = std::make_unique<AcDbRegAppTableRecord>();
    if (record->setName(name) != Acad::eOk || table->add(record.get()) != Acad::eOk) return false;
    (void)record.release()->close();
    return true;
}

void writeBarra(ZpObject& peca) {
    const Peca& p = Access::of(peca);
    if (p.chapa() || peca.database() == nullptr ||
        !registerApplication(*peca.database(), kZpGBarraApp))
        return;
    ACHAR perfil[kZpTextMax];
    ACHAR dimensoes[kZpTextMax];
    (void)peca.getPerfil(perfil);  // the buffers are there
    (void)peca.getDimensoes(dimensoes);
    const BufferChain fresh(acutBuildList(
        AcDb::kDxfRegAppName, kZpGBarraApp, AcDb::kDxfXdInteger16, static_cast<int>(p.tipoBarra),
        AcDb::kDxfXdAsciiString, perfil, AcDb::kDxfXdAsciiString, dimensoes, AcDb::kDxfXdReal,
        peca.getComprimentoReal(), AcDb::kDxfXdReal, peca.getPeso(), RTNONE));
    const BufferChain old(peca.xData(kZpGBarraApp));
    if (!fresh || same(old.get(), fresh.get())) return;
    (void)peca.setXData(
        fresh.get());  // a registered name and a short list: nothing is left to fail
}

}  // namespace zp
