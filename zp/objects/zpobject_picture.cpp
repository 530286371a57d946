// SPDX-License-Identifier: MIT
// Pieces: picture, extents, explode, object snaps, grips.
#include <cmath>
#include <numbers>

#include "dbents.h"
#include "dbpl.h"
#include "perfis/entities/zpobject.h"
#include "zp/objects/peca.h"
#include "zp/objects/picture.h"

using zp::TipoDeLinha;
using zp::Traco;

namespace {

/// Centre, radius and sweep of the arc from a to b with a bulge.
struct ArcoDeBulge {
    AcGePoint3d centro;
    double raio;
    double inicio;
    double varre;
};

ArcoDeBulge arcoDe(const AcGePoint3d& a, const AcGePoint3d& b, double bulge) {
    const AcGeVector3d corda = b - a;
    const double k = (1.0 - bulge * bulge) / (4.0 * bulge);
    const AcGePoint3d centro(0.5 * (a.x + b.x) - k * corda.y, 0.5 * (a.y + b.y) + k * corda.x, a.z);
    return {centro, centro.distanceTo(a), std::atan2(a.y - centro.y, a.x - centro.x),
            4.0 * std::atan(bulge)};
}

AcGePoint3d pontoDoArco(const ArcoDeBulge& arco, double angulo) {
    return {arco.centro.x + arco.raio * std::cos(angulo),
            arco.centro.y + arco.raio * std::sin(angulo), arco.centro.z};
}

/// Points of the circle's quadrants that lie on the arc.
void quadrantes(const ArcoDeBulge& arco, AcGePoint3dArray& pontos) {
    constexpr double kQuarto = 0.5 * std::numbers::pi;
    const double menor = std::min(arco.inicio, arco.inicio + arco.varre);
    const double maior = std::max(arco.inicio, arco.inicio + arco.varre);
    for (double q = std::ceil(menor / kQuarto - 1e-9); q * kQuarto <= maior + 1e-9; q += 1.0)
        pontos.append(pontoDoArco(arco, q * kQuarto));
}

/// Calls f(a, b, bulge) for each part of a stroke that is no circle.
template <class F>
void cadaParte(const Traco& t, F f) {
    const std::size_t n = t.pontos.size();
    for (std::size_t i = 0; i + (t.fechado() ? 0 : 1) < n; ++i)
        f(t.pontos[i], t.pontos[(i + 1) % n], t.fechado() ? t.bulges[i] : 0.0);
}

void pontosDeCirculo(const Traco& t, AcDb::OsnapMode modo, AcGePoint3dArray& pontos) {
    if (modo == AcDb::kOsModeCen) pontos.append(t.pontos[0]);
    if (modo == AcDb::kOsModeQuad)
        quadrantes({t.pontos[0], t.raio, 0.0, 1.5 * std::numbers::pi}, pontos);
}

std::unique_ptr<AcDbEntity> entidadeDe(const Traco& t) {
    if (t.circulo()) return std::make_unique<AcDbCircle>(t.pontos[0], AcGeVector3d::kZAxis, t.raio);
    if (!t.fechado()) return std::make_unique<AcDbLine>(t.pontos[0], t.pontos[1]);
    auto linha = std::make_unique<AcDbPolyline>();
    for (unsigned i = 0; i < t.pontos.size(); ++i)
        (void)linha->addVertexAt(i, {t.pontos[i].x, t.pontos[i].y},
                                 t.bulges[i]);  // at the end: always valid
    (void)linha->setElevation(t.pontos.front().z);
    (void)linha->setClosed(true);
    return linha;
}

}  // namespace

Adesk::Boolean ZpObject::subWorldDraw(AcGiWorldDraw* draw) {
    assertReadEnabled();
    AcDbDatabase* desenho =
        database() != nullptr ? database() : acdbHostApplicationServices()->workingDatabase();
    TipoDeLinha atual = TipoDeLinha::Propria;
    for (const Traco& t : zp::figuraDe(*m_peca)) {
        if (t.linha != atual) {
            atual = t.linha;
            const AcDbObjectId tipo = zp::idDaLinha(desenho, atual);
            if (!tipo.isNull()) draw->subEntityTraits().setLineType(tipo);
            if (atual == TipoDeLinha::Eixo) draw->subEntityTraits().setColor(zp::kCorDoEixo);
        }
        AcGiWorldGeometry& g = draw->geometry();
        const auto n = static_cast<Adesk::UInt32>(t.pontos.size());
        Adesk::Boolean para = Adesk::kFalse;
        if (t.circulo())
            para = g.circle(t.pontos[0], t.raio, AcGeVector3d::kZAxis);
        else if (t.fechado())
            para = g.pline(n, t.pontos.data(), t.bulges.data(), true);
        else
            para = g.polyline(n, t.pontos.data());
        if (para) break;
    }
    return Adesk::kTrue;
}

Acad::ErrorStatus ZpObject::subGetGeomExtents(AcDbExtents& extents) const {
    assertReadEnabled();
    for (const Traco& t : zp::figuraDe(*m_peca)) {
        if (t.circulo()) {
            extents.addPoint(t.pontos[0] - AcGeVector3d(t.raio, t.raio, 0.0));
            extents.addPoint(t.pontos[0] + AcGeVector3d(t.raio, t.raio, 0.0));
            continue;
        }
        cadaParte(t, [&](const AcGePoint3d& a, const AcGePoint3d& b, double bulge) {
            extents.addPoint(a);
            extents.addPoint(b);
            if (bulge == 0.0) return;
            AcGePoint3dArray altos;
            quadrantes(arcoDe(a, b, bulge), altos);
            for (const AcGePoint3d& p : altos) extents.addPoint(p);
        });
    }
    return extents.isEmpty() ? Acad::eDegenerateGeometry : Acad::eOk;
}

Acad::ErrorStatus ZpObject::subExplode(AcDbVoidPtrArray& set) const {
    assertReadEnabled();
    for (const Traco& t : zp::figuraDe(*m_peca)) {
        std::unique_ptr<AcDbEntity> parte = entidadeDe(t);
        (void)parte->setPropertiesFrom(this);  // a new object takes any properties
        if (const AcDbObjectId tipo = zp::idDaLinha(database(), t.linha); !tipo.isNull())
            (void)parte->setLinetype(tipo);
        if (t.linha == TipoDeLinha::Eixo) (void)parte->setColorIndex(zp::kCorDoEixo);
        set.append(parte.release());
    }
    return Acad::eOk;
}

Acad::ErrorStatus ZpObject::subGetOsnapPoints(AcDb::OsnapMode mode, Adesk::GsMarker,
                                              const AcGePoint3d&, const AcGePoint3d&,
                                              const AcGeMatrix3d&, AcGePoint3dArray& points,
                                              AcDbIntArray&) const {
    assertReadEnabled();
    if (mode == AcDb::kOsModeIns) {
        points.append(m_peca->inicio);
        return Acad::eOk;
    }
    for (const Traco& t : zp::figuraDe(*m_peca)) {
        if (t.circulo()) {
            pontosDeCirculo(t, mode, points);
            continue;
        }
        cadaParte(t, [&](const AcGePoint3d& a, const AcGePoint3d& b, double bulge) {
            if (mode == AcDb::kOsModeEnd) {
                points.append(a);
                if (!t.fechado()) points.append(b);
            }
            if (bulge == 0.0) {
                if (mode == AcDb::kOsModeMid) points.append(a + (b - a) * 0.5);
                return;
            }
            const ArcoDeBulge arco = arcoDe(a, b, bulge);
            if (mode == AcDb::kOsModeMid)
                points.append(pontoDoArco(arco, arco.inicio + 0.5 * arco.varre));
            if (mode == AcDb::kOsModeCen) points.append(arco.centro);
            if (mode == AcDb::kOsModeQuad) quadrantes(arco, points);
        });
    }
    return Acad::eOk;
}

// Longitudinal views: 0 start, 1 end, 2 middle. Section views and plates: 0 the start point, then
// the four corners.
Acad::ErrorStatus ZpObject::subGetGripPoints(AcGePoint3dArray& points, AcDbIntArray&,
                                             AcDbIntArray&) const {
    assertReadEnabled();
    points.append(m_peca->inicio);
    if (!m_peca->emSecao() && !m_peca->chapa()) {
        const AcGePoint3d fim = m_peca->fim();
        points.append(fim);
        points.append(m_peca->inicio + (fim - m_peca->inicio) * 0.5);
        return Acad::eOk;
    }
    AcGePoint3d f[4];
    GetLimitPointsOfFaces(f[0], f[1], f[2], f[3]);
    for (const AcGePoint3d& p : f) points.append(p);
    return Acad::eOk;
}

Acad::ErrorStatus ZpObject::subMoveGripPointsAt(const AcDbIntArray& indices,
                                                const AcGeVector3d& offset) {
    if (indices.isEmpty()) return Acad::eOk;
    const bool estica = !m_peca->emSecao() && !m_peca->chapa();
    const bool inicio = indices.contains(0);
    const bool fim = indices.contains(1);
    if (!estica || indices.contains(2) || inicio == fim)
        return transformBy(AcGeMatrix3d::translation(offset));
    const AcGePoint3d s = inicio ? m_peca->inicio + offset : m_peca->inicio;
    const AcGePoint3d e = fim ? m_peca->fim() + offset : m_peca->fim();
    const AcGeVector3d eixo(e.x - s.x, e.y - s.y, 0.0);
    if (!(eixo.length() > 1e-9)) return Acad::eInvalidInput;
    assertWriteEnabled();
    m_peca->inicio = s;
    m_peca->comprimento = eixo.length();
    m_peca->angulo = zp::anguloDe(eixo);
    m_peca->barraVelha = true;
    recordGraphicsModified();
    return Acad::eOk;
}
