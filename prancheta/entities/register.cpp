// SPDX-License-Identifier: MIT
// Makes the entity classes known at run time.
#include "prancheta/entities/register.h"

#include "dbdim.h"
#include "dbhatch.h"
#include "dblead.h"
#include "dbmtext.h"
#include "dbpl.h"
#include "dbspline.h"
#include "dbviewport.h"
#include "prancheta/database/entity_picture.h"
#include "prancheta/database/register.h"
#include "prancheta/entities/foreign_entity.h"
#include "prancheta/entities/picture_entities.h"
#include "prancheta/entities/weld_symbol.h"

namespace prancheta {

void registerEntityClasses() {
    if (AcDbLine::desc() != nullptr) return;
    registerDatabaseClasses();
    AcDbLine::rxInit();
    AcDbPoint::rxInit();
    AcDbCircle::rxInit();
    AcDbArc::rxInit();
    AcDbEllipse::rxInit();
    AcDbSpline::rxInit();
    EndlessLine::rxInit();
    AcDbXline::rxInit();
    AcDbRay::rxInit();
    AcDbText::rxInit();
    AcDbMText::rxInit();
    AcDbLeader::rxInit();
    AcDbSolid::rxInit();
    AcDbAttributeText::rxInit();
    AcDbAttributeDefinition::rxInit();
    AcDbAttribute::rxInit();
    AcDbBlockReference::rxInit();
    AcDbMInsertBlock::rxInit();
    AcDbPolyline::rxInit();
    AcDbViewport::rxInit();
    AcDbHatch::rxInit();
    AcDbDimension::rxInit();
    AcDbAlignedDimension::rxInit();
    AcDbRotatedDimension::rxInit();
    AcDbRadialDimension::rxInit();
    AcDbDiametricDimension::rxInit();
    AcDb2LineAngularDimension::rxInit();
    AcDb3PointAngularDimension::rxInit();
    WeldSymbol::rxInit();
    ForeignEntity::rxInit();
    acrxBuildClassHierarchy();
    pictureExploder = appendEntities;
}

}  // namespace prancheta
