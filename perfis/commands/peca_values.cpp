// SPDX-License-Identifier: MIT
// Reads pieces back.
#include "perfis/commands/peca_values.h"

#include "perfis/entities/zpchapa.h"
#include "perfis/entities/zpvigas.h"
#include "zp/matlist/follow.h"
#include "zp/objects/edit.h"

namespace perfis {
namespace {

using zp::secao::Papel;

std::vector<ChapaValues> chapasOf(const ZpObject& piece) {
    AcGeMatrix3d toPiece;
    piece.getEcs(toPiece);
    toPiece.invert();
    std::vector<ChapaValues> plates;
    for (const AcDbObjectId& id : zp::edicao::chapasDe(piece)) {
        const AcDbObjectPointer<ZpChapa> plate(id, AcDb::kForRead);
        if (plate.openStatus() != Acad::eOk) continue;
        AcGePoint3d start;
        (void)plate->StartPoint(start);
        start.transformBy(toPiece);
        plates.push_back({id, start.x, start.y, plate->vista(), plate->getLargura(),
                          plate->getEspessura(), plate->getComprimentoReal()});
    }
    return plates;
}

}  // namespace

void takeChanges(const ZpObject& changed, PecaValues& piece) {
    piece.values = zp::edicao::valoresDe(changed);
    piece.length = changed.getComprimentoReal();
}

PecaValues valuesOf(const ZpObject& piece) {
    PecaValues p;
    p.id = piece.objectId();
    p.classe = zp::edicao::classeDe(piece);
    takeChanges(piece, p);
    p.comprimentoTravejado = p.length;
    p.view = piece.vista();
    p.turn = p.values[Papel::Giro];
    p.twoPoints = zp::edicao::deDoisPontos(piece);
    ZpObject::TipoBarra type = ZpObject::kBarra;
    (void)piece.tipoBarra(type);
    p.barType = type;
    if (const auto* welded = ZpISoldado::cast(&piece)) {
        ZpISoldado::SubType series = ZpISoldado::kFavoritos;
        (void)welded->subType(series);
        p.series = series;
    }
    p.dimensioned = !zp::edicao::cotasDe(piece).empty();
    p.listed = zp::lista::quantidadeListada(p.id);
    p.plates = chapasOf(piece);
    return p;
}

}  // namespace perfis
