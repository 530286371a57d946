// SPDX-License-Identifier: MIT
// Pieces: moving, mirroring, scaling, cutting.
#include <algorithm>
#include <cmath>

#include "perfis/entities/zpobject.h"
#include "zp/objects/peca.h"
#include "zp/objects/watch.h"

using zp::Peca;

namespace {

constexpr double kFolga = 1e-9;

/// A similarity that keeps the plane parallel to XY; scale 0 stands for anything else.
struct Semelhanca {
    double escala = 0.0;
    bool espelha = false;
};

Semelhanca semelhanca(const AcGeMatrix3d& m) {
    const auto& e = m.entry;
    const double k = std::hypot(e[0][0], e[1][0]);
    const double folga = kFolga * k;
    if (!(k > 0.0) || !std::isfinite(k)) return {};
    for (const double fora :
         {e[0][2], e[1][2], e[2][0], e[2][1], e[0][0] * e[0][1] / k + e[1][0] * e[1][1] / k})
        if (!(std::abs(fora) <= folga)) return {};
    if (!(std::abs(std::hypot(e[0][1], e[1][1]) - k) <= folga) ||
        !(std::abs(std::abs(e[2][2]) - k) <= folga))
        return {};
    for (int i = 0; i < 3; ++i)
        if (!std::isfinite(e[i][3])) return {};
    return {std::abs(k - 1.0) <= kFolga ? 1.0 : k, e[0][0] * e[1][1] - e[0][1] * e[1][0] < 0.0};
}

void escala(Peca& p, double k) {
    const zp::secao::Papeis* papeis = p.ordem();
    for (std::size_t i = 0; papeis != nullptr && i < p.quantos; ++i)
        p.atuais[i] *= std::pow(k, zp::secao::potencia((*papeis)[i]));
    p.comprimento *= k;
    p.secaoGuardada.reset();
    if (!p.ligacoes) return;
    for (zp::Ligacao& l : *p.ligacoes) l.pontos.escala(k);
}

/// Stretch of the axis of `p` inside a convex quadrangle given by opposite pairs of corners; empty
/// when from > to.
struct Trecho {
    double de = -1e300;
    double ate = 1e300;
};

Trecho trechoDentro(const Peca& p, const AcGePoint3d (&f)[4]) {
    // Corners in the order around the picture.
    const AcGePoint3d volta[4] = {f[1], f[3], f[2], f[0]};
    const AcGeVector3d x = zp::direcao(p.angulo);
    double area = 0.0;
    for (int i = 0; i < 4; ++i)
        area += (volta[i] - volta[0]).crossProduct(volta[(i + 1) % 4] - volta[0]).z;
    const double sinal = area < 0.0 ? -1.0 : 1.0;
    Trecho t;
    for (int i = 0; i < 4; ++i) {
        const AcGeVector3d lado = volta[(i + 1) % 4] - volta[i];
        const double dentro = sinal * lado.crossProduct(p.inicio - volta[i]).z;
        const double avanco = sinal * lado.crossProduct(x).z;
        if (std::abs(avanco) <= 1e-12 * lado.length()) {
            if (dentro < 0.0) return {1.0, 0.0};
            continue;
        }
        const double s = -dentro / avanco;
        if (avanco > 0.0)
            t.de = std::max(t.de, s);
        else
            t.ate = std::min(t.ate, s);
    }
    return t;
}

enum class Face { Proxima, Distante };

Acad::ErrorStatus corta(ZpObject& peca, const AcDbObjectId& outra, Face face,
                        bool soLongitudinais) {
    Peca& p = zp::Acesso::de(peca);
    if (p.emSecao() || p.chapa()) return Acad::eNotApplicable;
    AcGePoint3d f[4];
    {
        ZpObject* quem = nullptr;
        const Acad::ErrorStatus es = acdbOpenObject(quem, outra, AcDb::kForRead);
        if (es != Acad::eOk) return es;
        const bool serve = !soLongitudinais || quem->vista() != ZpObject::kVistaSecao;
        quem->GetLimitPointsOfFaces(f[0], f[1], f[2], f[3]);
        (void)quem->close();
        if (!serve) return Acad::eNotApplicable;
    }
    const Trecho t = trechoDentro(p, f);
    const double L = p.comprimento;
    if (!(t.de < t.ate) || t.ate <= 0.0 || t.de >= L) return Acad::eInvalidInput;
    const bool cortaFim = t.de >= L - t.ate;
    const double de = cortaFim ? 0.0 : (face == Face::Proxima ? t.ate : t.de);
    const double ate = cortaFim ? (face == Face::Proxima ? t.de : t.ate) : L;
    if (!(ate - de > 1e-9 * L)) return Acad::eInvalidInput;
    peca.assertWriteEnabled();
    p.inicio += zp::direcao(p.angulo) * de;
    p.comprimento = ate - de;
    p.barraVelha = true;
    peca.recordGraphicsModified();
    return Acad::eOk;
}

}  // namespace

Acad::ErrorStatus ZpObject::subTransformBy(const AcGeMatrix3d& m) {
    const Semelhanca s = semelhanca(m);
    if (s.escala == 0.0) return Acad::eCannotScaleNonUniformly;
    // A file in which another program moved the piece is not announced yet.
    zp::vigia::observaLeitura(database());
    assertWriteEnabled();
    Peca& p = *m_peca;
    p.inicio.transformBy(m);
    p.angulo = zp::anguloDe(zp::direcao(p.angulo).transformBy(m));
    if (s.espelha) p.espelhada = !p.espelhada;
    if (s.escala != 1.0) {
        escala(p, s.escala);
        p.barraVelha = true;
    }
    xDataTransformBy(m);
    recordGraphicsModified();
    return Acad::eOk;
}

Acad::ErrorStatus ZpObject::Corte(const AcDbObjectId& outra) {
    return corta(*this, outra, Face::Proxima, false);
}

Acad::ErrorStatus ZpObject::CorteVista(const AcDbObjectId& outra) {
    return corta(*this, outra, Face::Proxima, true);
}

Acad::ErrorStatus ZpObject::CorteArestaVista(const AcDbObjectId& outra) {
    return corta(*this, outra, Face::Distante, false);
}
