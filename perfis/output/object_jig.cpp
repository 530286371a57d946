// SPDX-License-Identifier: MIT
// Dragging a piece by its end.
#include "perfis/output/object_jig.h"

#include "acedads.h"
#include "geassign.h"
#include "perfis/output/user_point.h"

namespace perfis {
namespace {

/// Last point sampled by any jig of the module: a pointer at rest redraws nothing.
AcGePoint3d& lastSampled() {
    static AcGePoint3d point;
    return point;
}

}  // namespace

ZpObjectJig::ZpObjectJig(std::unique_ptr<ZpObject> peca) : m_peca(peca.release()) {}

ZpObjectJig::~ZpObjectJig() { delete m_peca; }

AcEdJig::DragStatus ZpObjectJig::run() {
    AcGePoint3d start;
    (void)m_peca->StartPoint(start);
    resbuf lastPoint{};
    lastPoint.restype = RT3DPOINT;
    ads_point_set(asDblArray(worldToUser(start)), lastPoint.resval.rpoint);
    (void)acedSetVar(L"LASTPOINT", &lastPoint);
    setDispPrompt(L"\nIndique o ponto final: ");
    const DragStatus status = drag();
    if (status == kNormal) {
        // A drag that ends where the previous one did is sampled as unchanged: the host updates
        // nothing.
        if (!m_updated || m_shown != m_current) (void)update();
        (void)append();
    } else {
        delete m_peca;
    }
    m_peca = nullptr;
    return status;
}

AcEdJig::DragStatus ZpObjectJig::sampler() {
    setUserInputControls(
        static_cast<UserInputControls>(kNoZeroResponseAccepted | kNoNegativeResponseAccepted));
    AcGePoint3d start;
    (void)m_peca->StartPoint(start);
    const DragStatus status = acquirePoint(m_current, start);
    if (m_current != lastSampled()) {
        lastSampled() = m_current;
        return status;
    }
    return status == kNormal ? kNoChange : status;
}

Adesk::Boolean ZpObjectJig::update() {
    AcGePoint3d start;
    (void)m_peca->StartPoint(start);
    const double comprimento = start.distanceTo(m_current);
    if (comprimento > 0.0) (void)m_peca->AlteraComprimento(comprimento);
    double vistaAngle = 0.0;
    (void)m_peca->AngleVista(vistaAngle);
    const double angle = acutAngle(asDblArray(start), asDblArray(m_current));
    (void)m_peca->transformBy(
        AcGeMatrix3d::rotation(angle - vistaAngle, AcGeVector3d::kZAxis, start));
    m_shown = m_current;
    m_updated = true;
    return Adesk::kTrue;
}

AcDbEntity* ZpObjectJig::entity() const { return m_peca; }

}  // namespace perfis
