// SPDX-License-Identifier: MIT
// What is read in a drawing, not built.
#include "prancheta/display/annotations.h"

#include <algorithm>

#include "dbdim.h"
#include "dblead.h"
#include "dbmtext.h"
#include "prancheta/database/entity_picture.h"
#include "prancheta/database/object_access.h"
#include "prancheta/database/object_extra.h"
#include "prancheta/entities/annotation_size.h"
#include "prancheta/entities/text_layout.h"
#include "prancheta/entities/weld_symbol.h"
#include "protocol/attach.h"
#include "protocol/length.h"
#include "protocol/scale.h"

namespace prancheta {
namespace {

/// Has points of its own, between which it is drawn in any size.
bool standsByPoints(const AcDbEntity& entity) {
    return entity.isKindOf(AcDbDimension::desc()) || entity.isKindOf(AcDbLeader::desc()) ||
           entity.isKindOf(WeldSymbol::desc());
}

}  // namespace

// A piece follows the scale with what belongs to it, and has an axis, which a mark has not.
bool isMark(const AcDbEntity& entity) {
    return protocol::extensionOf<protocol::ScaleFollower>(entity, protocol::kScaleFollowerClass) !=
               nullptr &&
           protocol::extensionOf<protocol::EntityLength>(entity, protocol::kEntityLengthClass) ==
               nullptr;
}

bool isAnnotation(const AcDbEntity& entity) {
    return standsByPoints(entity) || entity.isKindOf(AcDbText::desc()) ||
           entity.isKindOf(AcDbMText::desc()) || isMark(entity);
}

const AcDbLeader* noteLeader(const AcDbEntity& entity) {
    const ObjectExtra* const extra = ObjectAccess::extra(entity);
    if (extra == nullptr || !entity.isKindOf(AcDbMText::desc())) return nullptr;
    for (const AcDbObjectId& id : extra->reactors) {
        const AcDbStub* const stub = id;
        if (stub == nullptr || stub->erased) continue;
        const AcDbLeader* const leader = AcDbLeader::cast(stub->object);
        if (leader != nullptr && leader->annotationObjId() == entity.objectId()) return leader;
    }
    return nullptr;
}

AcGePoint3d annotationAnchor(const AcDbEntity& entity, const Picture& picture) {
    if (const auto* const text = AcDbText::cast(&entity);
        text != nullptr && !standsBetweenPoints(*text) &&
        (text->horizontalMode() != 0 || text->verticalMode() != 0))
        return text->alignmentPoint();
    if (const AcDbLeader* const leader = noteLeader(entity)) return leader->lastVertex();
    AcGePoint3dArray grips;
    AcDbIntArray modes;
    AcDbIntArray ids;
    if (entity.getGripPoints(grips, modes, ids) == Acad::eOk && !grips.isEmpty()) return grips[0];
    return picture.extents().minPoint();
}

void recordAnnotation(AcDbEntity& entity, Picture& picture, double factor) {
    if (standsByPoints(entity)) {
        const AnnotationSize size(factor);
        return recordPicture(entity, picture);
    }
    recordPicture(entity, picture);
    picture.transform(AcGeMatrix3d::scaling(factor, annotationAnchor(entity, picture)));
}

}  // namespace prancheta
