// SPDX-License-Identifier: MIT
// An entity of an opened file whose type has no class here.
#pragma once

#include <string>

#include "gemat3d.h"
#include "prancheta/database/database_core.h"

namespace prancheta {

/// Keeps the groups of its type as they stood, draws what it can of them (MTEXT, ELLIPSE, SPLINE,
/// HATCH, 3DFACE, LEADER, POLYLINE, ATTRIB, TRACE, dimensions by their block) and moves, turns,
/// scales and mirrors the types whose groups it knows. Layer, colour and the other common
/// properties are those of AcDbEntity.
class ForeignEntity : public AcDbEntity {
public:
    ACRX_DECLARE_MEMBERS(ForeignEntity);
    ForeignEntity() = default;

    /// Name of the type in the file, upper case ("MTEXT").
    const std::string& typeName() const { return m_typeName; }
    /// Groups of the type: subclass markers and data without the head that all entities share. An
    /// old POLYLINE has its VERTEX and SEQEND records here too, each from its group 0, as they
    /// stood.
    const RawTags& tags() const { return m_tags; }
    Acad::ErrorStatus setContent(std::string typeName, RawTags tags);
    /// Of a dimension: its block shows it where it stood before it was moved by this. The block
    /// itself never changes, so that copies can share it.
    const AcGeMatrix3d& sinceDrawn() const { return m_sinceDrawn; }

    Acad::ErrorStatus dwgOutFields(AcDbDwgFiler* filer) const override;
    Acad::ErrorStatus dwgInFields(AcDbDwgFiler* filer) override;

protected:
    Adesk::Boolean subWorldDraw(AcGiWorldDraw* draw) override;
    /// eNotApplicable, and no change, for types whose groups are not known and for unequal scales.
    Acad::ErrorStatus subTransformBy(const AcGeMatrix3d& m) override;
    void subList() const override;
    /// The one point by which texts, references and ellipses stand; eNotApplicable for others.
    Acad::ErrorStatus subGetStretchPoints(AcGePoint3dArray& points, AcDbIntArray& osnapModes,
                                          AcDbIntArray& geomIds) const override;
    Acad::ErrorStatus subMoveStretchPointsAt(const AcDbIntArray& indices,
                                             const AcGeVector3d& offset) override;

private:
    std::string m_typeName;
    RawTags m_tags;
    AcGeMatrix3d m_sinceDrawn;
};

}  // namespace prancheta
