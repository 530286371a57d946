// SPDX-License-Identifier: MIT
// Leaders.
#pragma once

#include <vector>

#include "dbents.h"

/// An arrow with a line or curve to a note. A note that it is tied to takes its end along.
class AcDbLeader : public AcDbEntity {
    PRANCHETA_ENTITY_MEMBERS(AcDbLeader)
    enum AnnoType { kMText = 0, kFcf, kBlockRef, kNoAnno };
    AcDbLeader() = default;

    int numVertices() const { return static_cast<int>(m_vertices.size()); }
    /// The arrow's tip is vertex 0. The index is below the count.
    AcGePoint3d vertexAt(int index) const { return m_vertices[static_cast<std::size_t>(index)]; }
    AcGePoint3d lastVertex() const {
        return m_vertices.empty() ? AcGePoint3d() : m_vertices.back();
    }
    AcGeVector3d normal() const { return m_normal; }
    /// In which a hook line runs, or against it; unit length.
    AcGeVector3d horizontalDirection() const { return m_horizontal; }
    bool hasArrowHead() const { return m_arrow; }
    bool isSplined() const { return m_splined; }
    /// A short line from the last vertex to the note.
    bool hasHookLine() const { return m_hook; }
    bool hookRunsAlong() const { return m_hookAlong; }
    AcDbObjectId dimensionStyle() const { return m_style; }
    /// The leader's own scale; 0 when it takes the style's.
    double ownDimscale() const { return m_dimscale; }
    AcDbObjectId annotationObjId() const { return m_annotation; }
    AnnoType annoType() const;
    /// The last vertex from the note's place.
    AcGeVector3d annotationOffset() const { return m_offset; }

    Acad::ErrorStatus appendVertex(const AcGePoint3d& p);
    /// eInvalidIndex for an index that there is not.
    Acad::ErrorStatus setVertexAt(int index, const AcGePoint3d& p);
    Acad::ErrorStatus setNormal(const AcGeVector3d& normal);
    Acad::ErrorStatus setHorizontalDirection(const AcGeVector3d& direction);
    Acad::ErrorStatus setHasArrowHead(bool arrow);
    Acad::ErrorStatus setSplined(bool splined);
    enum class Hook { None, Along, Against };
    Acad::ErrorStatus setHook(Hook hook);
    Acad::ErrorStatus setDimensionStyle(AcDbObjectId id);
    Acad::ErrorStatus setDimscale(double scale);
    /// Ties the note, an MTEXT of the same drawing, to its present distance from the last vertex;
    /// the leader is resident. eWrongObjectType for anything else.
    Acad::ErrorStatus attachAnnotation(AcDbObjectId note);
    /// What a file said, true or not.
    Acad::ErrorStatus setFiledAnnotation(AcDbObjectId note, AnnoType type,
                                         const AcGeVector3d& offset);
    /// The note stands there now; the end of the leader goes along if it is tied to it.
    void follow(AcDbObjectId note, const AcGePoint3d& place);

protected:
    Acad::ErrorStatus subClose() override;
    /// The vertices.
    Acad::ErrorStatus subGetStretchPoints(AcGePoint3dArray& points, AcDbIntArray& osnapModes,
                                          AcDbIntArray& geomIds) const override;

private:
    std::vector<AcGePoint3d> m_vertices;
    AcGeVector3d m_normal = AcGeVector3d::kZAxis;
    AcGeVector3d m_horizontal = AcGeVector3d::kXAxis;
    AcGeVector3d m_offset;
    AcDbObjectId m_style;
    AcDbObjectId m_annotation;
    double m_dimscale = 0.0;
    Adesk::Int16 m_annoType = kNoAnno;
    bool m_arrow = true;
    bool m_splined = false;
    bool m_hook = false;
    bool m_hookAlong = true;
};
