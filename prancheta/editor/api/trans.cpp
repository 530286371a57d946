// SPDX-License-Identifier: MIT
// Coordinate systems and snap points of the C-style interface.
#include "acedads.h"
#include "dbmain.h"
#include "geassign.h"
#include "prancheta/editor/editor.h"
#include "prancheta/editor/picking.h"
#include "prancheta/geometry/angles.h"

namespace {

using prancheta::Editor;

/// From the named system to the world. The view is a plan view, so display coordinates are the
/// world's.
bool systemOf(const Editor& editor, const resbuf& system, AcGeMatrix3d& toWorld) {
    toWorld = AcGeMatrix3d();
    if (system.restype == RTSHORT) {
        if (system.resval.rint == 1) toWorld = editor.ucs();
        return system.resval.rint >= 0 && system.resval.rint <= 3;
    }
    if (system.restype == RT3DPOINT) {
        const AcGeVector3d normal(system.resval.rpoint[X], system.resval.rpoint[Y],
                                  system.resval.rpoint[Z]);
        if (normal.isZeroLength()) return false;
        toWorld = prancheta::planeToWorld(normal.normal());
        return true;
    }
    if (system.restype != RTENAME) return false;
    AcDbObjectId id;
    if (acdbGetObjectId(id, system.resval.rlname) != Acad::eOk) return false;
    const AcDbObjectPointer<AcDbEntity> entity(id, AcDb::kForRead);
    if (entity.openStatus() != Acad::eOk) return false;
    AcGeMatrix3d frame;
    entity->getEcs(frame);
    const AcGeVector3d normal(frame.entry[0][2], frame.entry[1][2], frame.entry[2][2]);
    toWorld = prancheta::planeToWorld(normal.normal());
    return true;
}

/// The paper's display coordinates stand beside those of the view only.
bool belongTogether(const resbuf& a, const resbuf& b) {
    const auto isPaper = [](const resbuf& s) { return s.restype == RTSHORT && s.resval.rint == 3; };
    const auto isView = [](const resbuf& s) { return s.restype == RTSHORT && s.resval.rint == 2; };
    return (!isPaper(a) || isView(b)) && (!isPaper(b) || isView(a));
}

}  // namespace

int acedTrans(const ads_point point, const resbuf* from, const resbuf* to, int displacement,
              ads_point result) {
    const Editor* editor = Editor::current();
    if (editor == nullptr || point == nullptr || from == nullptr || to == nullptr ||
        result == nullptr || !belongTogether(*from, *to))
        return RTERROR;
    AcGeMatrix3d fromWorld;
    AcGeMatrix3d toWorld;
    if (!systemOf(*editor, *from, fromWorld) || !systemOf(*editor, *to, toWorld)) return RTERROR;
    if (from->restype == to->restype && fromWorld == toWorld) {
        const AcGePoint3d same = asPnt3d(point);
        asPnt3d(result) = same;
        return RTNORM;
    }
    const AcGeMatrix3d m = toWorld.inverse() * fromWorld;
    const AcGePoint3d given = asPnt3d(point);
    if (displacement != 0) {
        asVec3d(result) = m * given.asVector();
    } else {
        asPnt3d(result) = m * given;
    }
    return RTNORM;
}

int acedOsnap(const ads_point point, const ACHAR* modes, ads_point result) {
    const Editor* editor = Editor::current();
    if (editor == nullptr || point == nullptr || modes == nullptr || result == nullptr)
        return RTERROR;
    const std::optional<int> bits = prancheta::snapModes(modes);
    if (!bits) return RTERROR;
    const AcGePoint3d world = editor->ucs() * asPnt3d(point);
    const std::optional<AcGePoint3d> found =
        prancheta::snapPoint(*editor, world, *bits, prancheta::SnapReach::Object);
    if (!found) return RTREJ;
    asPnt3d(result) = editor->ucs().inverse() * *found;
    return RTNORM;
}
