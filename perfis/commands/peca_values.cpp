// SPDX-License-Identifier: MIT
// Reads pieces back.
#include "perfis/commands/peca_values.h"

#include "perfis/entities/zpchapa.h"
#include "perfis/entities/zpvigas.h"
#include "zp/matlist/follow.h"
#include "zp/objects/edit.h"
#include "zp/objects/member.h"

namespace perfis {
namespace {

using zp::secao::Role;

zp::secao::Bounds pictureIn(const AcGeMatrix3d& frame, const ZpObject& peca) {
    zp::secao::Bounds bounds;
    for (AcGePoint3d corner : zp::edit::facesOf(peca).f) {
        corner.transformBy(frame);
        bounds.include(corner.x, corner.y);
    }
    return bounds;
}

std::vector<ChapaValues> chapasOf(const ZpObject& peca) {
    AcGeMatrix3d toPeca;
    peca.getEcs(toPeca);
    toPeca.invert();
    std::vector<ChapaValues> chapas;
    for (const AcDbObjectId& id : zp::edit::chapasOf(peca)) {
        const AcDbObjectPointer<ZpChapa> chapa(id, AcDb::kForRead);
        if (chapa.openStatus() != Acad::eOk) continue;
        AcGePoint3d start;
        (void)chapa->StartPoint(start);
        start.transformBy(toPeca);
        chapas.push_back({id, start.x, start.y, chapa->vista(), chapa->getLargura(),
                          chapa->getEspessura(), chapa->getComprimentoReal(),
                          pictureIn(toPeca, *chapa.object())});
    }
    return chapas;
}

}  // namespace

void takeChanges(const ZpObject& changed, PecaValues& peca) {
    peca.values = zp::edit::valuesOf(changed);
    const zp::Peca& p = zp::Access::of(changed);
    peca.comprimento = p.comprimento;
    peca.cortes = p.cortes;
    // What a command makes knows nothing of the job.
    if (!p.member || p.member->lacing == peca.lacing) return;
    peca.lacing = p.member->lacing;
    peca.comprimentoTravejado = p.comprimento;
}

PecaValues valuesOf(const ZpObject& peca) {
    PecaValues p;
    p.id = peca.objectId();
    p.kind = zp::edit::kindOf(peca);
    takeChanges(peca, p);
    p.comprimentoTravejado = p.comprimento;
    p.vista = peca.vista();
    p.giro = p.values[Role::Giro];
    p.twoPoints = zp::edit::fromTwoPoints(peca);
    ZpObject::TipoBarra type = ZpObject::kBarra;
    (void)peca.tipoBarra(type);
    p.tipoBarra = type;
    if (const auto* welded = ZpISoldado::cast(&peca)) {
        ZpISoldado::SubType series = ZpISoldado::kFavoritos;
        (void)welded->subType(series);
        p.series = series;
    }
    p.hasCotas = !zp::edit::cotasOf(peca).empty();
    p.listed = zp::matlist::isListed(p.id);
    p.count = zp::matlist::countOf(p.id);
    (void)peca.StartPoint(p.start);
    p.commercial = zp::Access::of(peca).commercial;
    p.chapas = chapasOf(peca);
    return p;
}

}  // namespace perfis
