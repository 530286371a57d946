// SPDX-License-Identifier: MIT
// Polyline of lines and arcs in a plane.
#pragma once

#include "dbents.h"

struct AcGePoint2d {
    double x = 0.0;
    double y = 0.0;
};

class AcDbPolyline : public AcDbEntity {
    PRANCHETA_ENTITY_MEMBERS(AcDbPolyline)
    AcDbPolyline() = default;

    unsigned int numVerts() const { return static_cast<unsigned int>(m_vertices.size()); }
    bool isClosed() const { return m_closed; }
    double elevation() const { return m_elevation; }
    AcGeVector3d normal() const { return m_normal; }
    bool hasPlinegen() const { return m_plinegen; }
    Acad::ErrorStatus getPointAt(unsigned int index, AcGePoint3d& p) const;
    /// tan(angle / 4) of the segment that starts at the vertex, positive counter-clockwise.
    Acad::ErrorStatus getBulgeAt(unsigned int index, double& bulge) const;
    Acad::ErrorStatus getWidthsAt(unsigned int index, double& start, double& end) const;
    /// In the polyline's own plane. eInvalidIndex beyond the number of vertices.
    Acad::ErrorStatus addVertexAt(unsigned int index, const AcGePoint2d& p, double bulge = 0,
                                  double startWidth = 0, double endWidth = 0);
    Acad::ErrorStatus removeVertexAt(unsigned int index);
    Acad::ErrorStatus setPointAt(unsigned int index, const AcGePoint2d& p);
    Acad::ErrorStatus setBulgeAt(unsigned int index, double bulge);
    Acad::ErrorStatus setClosed(bool closed);
    Acad::ErrorStatus setElevation(double elevation);
    Acad::ErrorStatus setNormal(const AcGeVector3d& normal);
    Acad::ErrorStatus setPlinegen(bool on);

protected:
    Acad::ErrorStatus subExplode(AcDbVoidPtrArray& set) const override;

private:
    struct Vertex {
        double x;
        double y;
        double bulge;
        double startWidth;
        double endWidth;
    };
    std::vector<Vertex> m_vertices;
    AcGeVector3d m_normal = AcGeVector3d::kZAxis;
    double m_elevation = 0.0;
    bool m_closed = false;
    bool m_plinegen = false;
};
