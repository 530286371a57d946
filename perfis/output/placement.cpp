// SPDX-License-Identifier: MIT
// Placement: rotate command, face points, two-point prompt.
#include "perfis/output/placement.h"

#include <cmath>
#include <span>

#include "acedads.h"
#include "acutmem.h"
#include "dbsymtb.h"
#include "geassign.h"
#include "perfis/entities/zpfuncoes.h"
#include "perfis/output/shared_cota.h"
#include "perfis/output/temp_var_override.h"
#include "perfis/output/user_point.h"

namespace perfis {
namespace {

/// False when the entity or its layer cannot be opened, too.
bool onWorkableLayer(AcDbObjectId id) {
    AcDbEntity* entity = nullptr;
    if (acdbOpenAcDbEntity(entity, id, AcDb::kForRead) != Acad::eOk) return false;
    const AcDbObjectId layerId = entity->layerId();
    (void)entity->close();
    const AcDbObjectPointer<AcDbLayerTableRecord> layer(layerId, AcDb::kForRead);
    if (layer.openStatus() != Acad::eOk) return false;
    return !layer->isFrozen() && !layer->isLocked() && !layer->isOff();
}

/// What was drawn along the world's X axis lies along the user's, from which the angle counts that
/// is asked for next. Those that cannot be opened stay, as they do in the rotate command.
void turnToUser(const AcGePoint3d& base, std::span<const AcDbObjectId> entities) {
    const AcGeVector3d x = userToWorld(AcGePoint3d::kOrigin + AcGeVector3d::kXAxis) -
                           userToWorld(AcGePoint3d::kOrigin);
    if (x == AcGeVector3d::kXAxis) return;
    const AcGeMatrix3d turn =
        AcGeMatrix3d::rotation(std::atan2(x.y, x.x), AcGeVector3d::kZAxis, base);
    for (const AcDbObjectId& id : entities) {
        const AcDbObjectPointer<AcDbEntity> entity(id, AcDb::kForWrite);
        if (entity.openStatus() == Acad::eOk) (void)entity->transformBy(turn);
    }
}

/// One acedCommand call for one entity; an identifier that names none is left out.
void sendEntity(AcDbObjectId id) {
    ads_name name = {};
    if (id.isNull() || acdbGetAdsName(name, id) != Acad::eOk) return;
    (void)acedCommand(RTENAME, name, RTNONE);
}

/// Ends the selection; the rotate command goes on with its angle.
void sendBasePoint(const AcGePoint3d& base) {
    ads_point point;
    ads_point_set(asDblArray(base), point);
    (void)acedCommand(RTSTR, L"", RT3DPOINT, point, RTNONE);
}

}  // namespace

int rotateIntoPlace(const AcGePoint3d& base, AcDbObjectId peca, const Companions& companions) {
    if (!onWorkableLayer(peca)) return 0;
    const TempVarOverride snaps(L"OSMODE", shortValue(0));
    const TempVarOverride echo(L"CMDECHO", shortValue(0));
    ads_name name = {};
    if (acdbGetAdsName(name, peca) != Acad::eOk) return 0;
    const AcGePoint3d userBase = worldToUser(base);
    turnToUser(base, std::span(&peca, 1));
    turnToUser(base, companions.others);
    turnToUser(base, companions.cotas);
    turnToUser(base, companions.marcas);
    (void)acedCommand(RTSTR, L"_.rotate", RTENAME, name, RTNONE);
    for (const AcDbObjectId& id : companions.others) sendEntity(id);
    for (const AcDbObjectId& id : companions.cotas) sendEntity(id);
    for (const AcDbObjectId& id : companions.marcas) sendEntity(id);
    sendBasePoint(userBase);
    return RTNORM;
}

int rotateSet(const AcGePoint3d& base, const std::vector<AcDbObjectId>& entities) {
    if (sharedCotaFlag() != 0) return RTNORM;
    if (entities.empty() || !onWorkableLayer(entities.front())) return RTNORM;
    const TempVarOverride snaps(L"OSMODE", shortValue(0));
    const TempVarOverride echo(L"CMDECHO", shortValue(0));
    const AcGePoint3d userBase = worldToUser(base);
    turnToUser(base, entities);
    (void)acedCommand(RTSTR, L"_.rotate", RTNONE);
    for (const AcDbObjectId& id : entities) sendEntity(id);
    sendBasePoint(userBase);
    return RTNORM;
}

AcGePoint3d moveToFacePoint(ZpObject& peca, int alignment) {
    AcGePoint3d faces[4];
    peca.GetLimitPointsOfFaces(faces[0], faces[1], faces[2], faces[3]);
    AcGePoint3d start;
    (void)peca.StartPoint(start);
    const AcGeVector3d half = AcGeVector3d::kXAxis * (peca.getComprimentoReal() / 2.0);
    AcGePoint3d target = start;
    switch (alignment) {
        case 1:
            target = faces[1];
            break;
        case 2:
            target = faces[1] - half;
            break;
        case 4:
            target = faces[0];
            break;
        case 5:
            target = faces[0] - half;
            break;
        default:
            break;
    }
    (void)peca.transformBy(AcGeMatrix3d::translation(target - start));
    return target;
}

int askStartAndEnd(AcGePoint3d& start, AcGePoint3d& end) {
    if (getWCSpoint(start, kStartPrompt) != RTNORM) return RTCAN;
    const int answer =
        getWCSpointWithParam(end, L"\nIndique o ponto final do perfil: ", asDblArray(start));
    return answer == RTNORM ? RTNORM : RTCAN;
}

}  // namespace perfis
