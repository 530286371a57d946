// SPDX-License-Identifier: MIT
// Aligned dimensions off the limit points of a piece.
#include "perfis/output/cotas.h"

#include <algorithm>
#include <iterator>
#include <memory>

#include "adscodes.h"
#include "dbdim.h"
#include "perfis/entities/zpfuncoes.h"

namespace perfis {

PecaCotas::PecaCotas(const AcGePoint3d& origin, const AcGePoint3d (&faces)[4], double scale)
    : m_origin(origin), m_scale(scale) {
    std::copy(std::begin(faces), std::end(faces), std::begin(m_faces));
}

void PecaCotas::add(const AcGePoint3d& from, const AcGePoint3d& to, const AcGePoint3d& line) {
    m_lines.push_back({from, to, line});
}

std::vector<AcDbObjectId> PecaCotas::make() const {
    std::vector<AcDbObjectId> ids;
    for (const CotaLine& line : m_lines) {
        if (line.isEmpty()) continue;
        auto cota = std::make_unique<AcDbAlignedDimension>(line.from, line.to, line.line);
        cota->setDatabaseDefaults();
        (void)cota->setLayer(ZpLayerToUsr(L"COTA"));  // otherwise the current one
        // Text and arrows grow with the distances, whatever the style itself says.
        if (cota->dimscale() != m_scale) (void)cota->setDimscale(m_scale);
        AcDbObjectId id;
        if (append(cota.get(), id) != RTNORM) continue;
        (void)cota.release()->close();
        ids.push_back(id);
    }
    return ids;
}

void PecaCotas::largura() { add(face(1), face(3), face(1) + off(0.0, -kNearLine)); }

void PecaCotas::altura() { add(face(0), face(1), face(0) + off(-kNearLine, 0.0)); }

void PecaCotas::espessura(double espessura) {
    add(face(2), face(2) - by(0.0, espessura), face(2) + off(kNearLine, 0.0));
}

AcGePoint3d PecaCotas::at(double x, double y) const { return m_origin + by(x, y); }

}  // namespace perfis
