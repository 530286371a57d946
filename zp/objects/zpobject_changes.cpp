// SPDX-License-Identifier: MIT
// Pieces: moving, mirroring, scaling, cutting.
#include <algorithm>
#include <cmath>

#include "perfis/entities/zpobject.h"
#include "zp/objects/cortes.h"
#include "zp/objects/edit.h"
#include "zp/objects/peca.h"
#include "zp/objects/published.h"
#include "zp/objects/watch.h"

using zp::Peca;

namespace {

constexpr double kTolerance = 1e-9;

/// A similarity that keeps the plane parallel to XY; scale 0 stands for anything else.
struct Similarity {
    double scale = 0.0;
    bool mirrors = false;
};

Similarity similarity(const AcGeMatrix3d& m) {
    const auto& e = m.entry;
    const double k = std::hypot(e[0][0], e[1][0]);
    const double tolerance = kTolerance * k;
    if (!(k > 0.0) || !std::isfinite(k)) return {};
    for (const double outside :
         {e[0][2], e[1][2], e[2][0], e[2][1], e[0][0] * e[0][1] / k + e[1][0] * e[1][1] / k})
        if (!(std::abs(outside) <= tolerance)) return {};
    if (!(std::abs(std::hypot(e[0][1], e[1][1]) - k) <= tolerance) ||
        !(std::abs(std::abs(e[2][2]) - k) <= tolerance))
        return {};
    for (int i = 0; i < 3; ++i)
        if (!std::isfinite(e[i][3])) return {};
    return {std::abs(k - 1.0) <= kTolerance ? 1.0 : k, e[0][0] * e[1][1] - e[0][1] * e[1][0] < 0.0};
}

/// Stretch of the axis of `p` inside a convex quadrangle given by opposite pairs of corners; empty
/// when from > to.
struct Stretch {
    double from = -1e300;
    double to = 1e300;
};

Stretch stretchInside(const Peca& p, const AcGePoint3d (&f)[4]) {
    // Corners in the order around the picture.
    const AcGePoint3d around[4] = {f[1], f[3], f[2], f[0]};
    const AcGeVector3d x = zp::direction(p.angle);
    double area = 0.0;
    for (int i = 0; i < 4; ++i)
        area += (around[i] - around[0]).crossProduct(around[(i + 1) % 4] - around[0]).z;
    const double sign = area < 0.0 ? -1.0 : 1.0;
    Stretch t;
    for (int i = 0; i < 4; ++i) {
        const AcGeVector3d side = around[(i + 1) % 4] - around[i];
        const double inside = sign * side.crossProduct(p.start - around[i]).z;
        const double advance = sign * side.crossProduct(x).z;
        if (std::abs(advance) <= 1e-12 * side.length()) {
            if (inside < 0.0) return {1.0, 0.0};
            continue;
        }
        const double s = -inside / advance;
        if (advance > 0.0)
            t.from = std::max(t.from, s);
        else
            t.to = std::min(t.to, s);
    }
    return t;
}

/// The user is told, and further views follow. A plate has the size that its bar's lacing says.
void noteScaling(const ZpObject& peca) {
    zp::watch::changes(peca.objectId(), zp::edit::formerOf(peca));
    if (zp::edit::ownerOf(peca).isNull())
        zp::watch::scales(peca.objectId(), zp::Access::of(peca).designacao());
}

enum class Face { Near, Far };

Acad::ErrorStatus cut(ZpObject& peca, const AcDbObjectId& other, Face face, bool longitudinalOnly) {
    Peca& p = zp::Access::of(peca);
    if (p.inSecao() || p.chapa()) return Acad::eNotApplicable;
    AcGePoint3d f[4];
    {
        ZpObject* cutter = nullptr;
        const Acad::ErrorStatus es = acdbOpenObject(cutter, other, AcDb::kForRead);
        if (es != Acad::eOk) return es;
        const bool suits = !longitudinalOnly || cutter->vista() != ZpObject::kVistaSecao;
        cutter->GetLimitPointsOfFaces(f[0], f[1], f[2], f[3]);
        (void)cutter->close();
        if (!suits) return Acad::eNotApplicable;
    }
    const Stretch t = stretchInside(p, f);
    const double L = p.comprimento;
    if (!(t.from < t.to) || t.to <= 0.0 || t.from >= L) return Acad::eInvalidInput;
    const bool cutsEnd = t.from >= L - t.to;
    const double from = cutsEnd ? 0.0 : (face == Face::Near ? t.to : t.from);
    const double to = cutsEnd ? (face == Face::Near ? t.from : t.to) : L;
    if (!(to - from > 1e-9 * L)) return Acad::eInvalidInput;
    p.comprimento = to - from;
    const bool possible = zp::cortes::fault(p).empty();
    p.comprimento = L;
    if (!possible) return Acad::eInvalidInput;
    peca.assertWriteEnabled();
    zp::watch::changes(peca.objectId(), zp::edit::formerOf(peca));
    p.start += zp::direction(p.angle) * from;
    p.comprimento = to - from;
    p.barraStale = true;
    peca.recordGraphicsModified();
    return Acad::eOk;
}

}  // namespace

Acad::ErrorStatus ZpObject::subTransformBy(const AcGeMatrix3d& m) {
    const Similarity s = similarity(m);
    if (s.scale == 0.0) return Acad::eCannotScaleNonUniformly;
    // A file in which another program moved the piece is not announced yet.
    zp::watch::observeReading(database());
    assertWriteEnabled();
    if (s.scale != 1.0) noteScaling(*this);
    Peca& p = *m_peca;
    p.start.transformBy(m);
    p.angle = zp::angleOf(zp::direction(p.angle).transformBy(m));
    if (s.mirrors) p.mirrored = !p.mirrored;
    if (s.scale != 1.0) {
        p.scale(s.scale);
        zp::published::take(p);
        // The mass of a catalogue is that of its size.
        const double* const mass = p.value(zp::secao::Role::M);
        if (mass != nullptr && *mass > 0.0 && !(p.commercial && p.commercial->kgMetro > 0.0))
            zp::published::disownMass(*this);
    }
    xDataTransformBy(m);
    recordGraphicsModified();
    return Acad::eOk;
}

Acad::ErrorStatus ZpObject::Corte(const AcDbObjectId& other) {
    return cut(*this, other, Face::Near, false);
}

Acad::ErrorStatus ZpObject::CorteVista(const AcDbObjectId& other) {
    return cut(*this, other, Face::Near, true);
}

Acad::ErrorStatus ZpObject::CorteArestaVista(const AcDbObjectId& other) {
    return cut(*this, other, Face::Far, false);
}
