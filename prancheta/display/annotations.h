// SPDX-License-Identifier: MIT
// What is read in a drawing, not built.
#pragma once

#include "dbmain.h"
#include "prancheta/graphics/picture.h"

class AcDbLeader;

namespace prancheta {

/// Dimensions, leaders, texts, weld symbols, and marks of modules: their size follows the drawing's
/// scale.
bool isAnnotation(const AcDbEntity& entity);

/// A mark of a module among them.
bool isMark(const AcDbEntity& entity);
/// The leader whose note the entity is; null for none.
const AcDbLeader* noteLeader(const AcDbEntity& entity);

/// The point by which it stands when its size changes: a text's insertion, the end of the leader of
/// which it is the note, the tip of a mark. `picture` is what the entity draws.
AcGePoint3d annotationAnchor(const AcDbEntity& entity, const Picture& picture);

/// Into an empty picture what an annotation draws, its letters, arrows and gaps `factor` times as
/// large: the points between which dimensions, leaders and symbols stand stay, all else grows about
/// its anchor.
void recordAnnotation(AcDbEntity& entity, Picture& picture, double factor);

}  // namespace prancheta
