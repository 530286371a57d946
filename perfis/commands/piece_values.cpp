// SPDX-License-Identifier: MIT
// Reads pieces back.
#include "perfis/commands/piece_values.h"

#include "perfis/entities/zpchapa.h"
#include "perfis/entities/zpvigas.h"
#include "zp/matlist/acompanha.h"
#include "zp/objects/edicao.h"

namespace perfis {
namespace {

using zp::secao::Classe;
using zp::secao::Dados;
using zp::secao::Papel;

/// The tiles of the command from the values of the class; the inverse of the generators.
Medidas medidasOf(Classe classe, const Dados& v) {
    using enum Papel;
    Medidas m;
    m.h = v[H];
    m.b = v[B1];
    m.t = v[T];
    m.a = v[Vao];
    m.av = v[VaoV];
    m.d = v[D];
    m.di = (v[D] - v[Dint]) / 2.0;
    const bool single = zp::secao::descricao(classe).composicao == zp::secao::Composicao::Uma;
    m.m = single ? v[M] : v[M] / 2.0;
    switch (classe) {
        case Classe::UDobrado:
        case Classe::ZDobrado:
        case Classe::Cartola:
            m.a = v[Aba];
            break;
        case Classe::CaixaDobrado:
            if (v[Aba] != 0.0 && v[Vao] == 0.0) m.a = v[Aba];
            break;
        case Classe::IDobrado:
            m.e = v[Aba];
            break;
        case Classe::BNLaminado:
        case Classe::BNDuplaLaminada:
            m.b = v[H];  // equal legs, of which the class keeps one
            break;
        case Classe::ILaminadoUSA:
            m.t = v[Tf1];
            m.a = v[Tw];
            break;
        case Classe::ISoldado:
            m.b = m.bc = v[Bc];
            m.bb = v[Bb];
            m.t = m.tc = v[Tc];
            m.tb = v[Tb];
            m.a = v[Tw];
            break;
        default:
            break;
    }
    return m;
}

std::vector<PlateValues> platesOf(const ZpObject& piece) {
    AcGeMatrix3d toPiece;
    piece.getEcs(toPiece);
    toPiece.invert();
    std::vector<PlateValues> plates;
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

void takeChanges(const ZpObject& changed, PieceValues& piece) {
    piece.values = zp::edicao::valoresDe(changed);
    piece.medidas = medidasOf(piece.classe, piece.values);
    piece.length = changed.getComprimentoReal();
}

PieceValues valuesOf(const ZpObject& piece) {
    PieceValues p;
    p.id = piece.objectId();
    p.classe = zp::edicao::classeDe(piece);
    takeChanges(piece, p);
    p.lacedLength = p.length;
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
    p.plates = platesOf(piece);
    return p;
}

}  // namespace perfis
