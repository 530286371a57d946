// SPDX-License-Identifier: MIT
// Hatch: an area bounded by loops, filled or covered by families of parallel lines.
#pragma once

#include <vector>

#include "dbents.h"
#include "dbpl.h"

/// All coordinates of a hatch are those of its plane (normal and elevation), lengths in drawing
/// units, angles in radians.
namespace prancheta {

/// Corner of a loop; `bulge` is that of the segment to the next one.
struct HatchVertex {
    double x = 0.0;
    double y = 0.0;
    double bulge = 0.0;
};

/// One curve of a loop that is told curve by curve.
struct HatchEdge {
    enum Kind : Adesk::Int16 { kLine = 1, kArc = 2, kEllipse = 3, kSpline = 4 };
    Kind kind = kLine;
    AcGePoint2d a;        ///< first point of a line; centre
    AcGePoint2d b;        ///< second point of a line; half the major axis, from the centre
    double radius = 0.0;  ///< of an ellipse: minor axis by major
    double start = 0.0;   ///< in the sense in which the curve runs: clockwise ones count clockwise
    double end = 0.0;     ///< of an ellipse, both are parameters from the major axis
    bool clockwise = false;
    Adesk::Int16 degree = 3;
    bool rational = false;
    bool periodic = false;
    std::vector<double> knots;
    std::vector<AcGePoint2d> control;
    std::vector<double> weights;
    bool fitTold = false;  ///< files of newer releases say how many follow, even when none do
    std::vector<AcGePoint2d> fit;
    std::vector<AcGePoint2d> tangents;  ///< at both ends, or none
};

/// A loop has vertices or edges.
struct HatchLoop {
    enum Bits : Adesk::Int32 { kExternal = 1, kPolyline = 2, kDerived = 4, kOutermost = 16 };
    Adesk::Int32 kind = kExternal | kPolyline;
    bool closed = true;
    std::vector<HatchVertex> vertices;
    std::vector<HatchEdge> edges;
    std::vector<AcDbObjectId> sources;  ///< objects that bound it, when the hatch is associative

    bool isPolyline() const { return (kind & kPolyline) != 0; }
};

/// One family of lines: through `base`, the next one at `offset`; along each, dashes above 0, gaps
/// below, dots 0; none: whole lines.
struct HatchFamily {
    double angle = 0.0;
    AcGePoint2d base;
    AcGeVector3d offset;
    std::vector<double> dashes;
};

}  // namespace prancheta

class AcDbHatch : public AcDbEntity {
    PRANCHETA_ENTITY_MEMBERS(AcDbHatch)
    AcDbHatch() = default;

    enum HatchStyle : Adesk::Int16 { kNormal = 0, kOuter = 1, kIgnore = 2 };

    double elevation() const { return m_elevation; }
    AcGeVector3d normal() const { return m_normal; }
    bool isSolidFill() const { return m_solid; }
    bool associative() const { return m_associative; }
    HatchStyle hatchStyle() const { return m_style; }
    const std::wstring& patternName() const { return m_patternName; }
    double patternAngle() const { return m_patternAngle; }
    double patternScale() const { return m_patternScale; }
    /// DXF 76 and 77: 0 user's, 1 named, 2 of a file; each line a second time across it.
    int patternType() const { return m_patternType; }
    bool patternDouble() const { return m_patternDouble; }
    double pixelSize() const { return m_pixelSize; }
    const std::vector<prancheta::HatchFamily>& families() const { return m_families; }
    const std::vector<prancheta::HatchLoop>& loops() const { return m_loops; }
    int numLoops() const { return static_cast<int>(m_loops.size()); }
    /// Points inside from which the loops were found.
    const std::vector<AcGePoint2d>& seeds() const { return m_seeds; }

    Acad::ErrorStatus setElevation(double elevation);
    Acad::ErrorStatus setNormal(const AcGeVector3d& normal);
    Acad::ErrorStatus setHatchStyle(HatchStyle style);
    Acad::ErrorStatus setAssociative(bool associative);
    /// The families as they lie in the plane: scale and angle have gone into them already.
    Acad::ErrorStatus setPattern(int type, const std::wstring& name, double angle, double scale,
                                 bool doubled, std::vector<prancheta::HatchFamily> families);
    Acad::ErrorStatus setSolidFill(bool solid);
    Acad::ErrorStatus setPixelSize(double size);
    Acad::ErrorStatus setLoops(std::vector<prancheta::HatchLoop> loops);
    Acad::ErrorStatus setSeeds(std::vector<AcGePoint2d> seeds);

    /// Of what is filled, islands taken off. eInvalidInput without a loop.
    Acad::ErrorStatus getArea(double& area) const;

protected:
    /// Of the boundary, not of the lines of the pattern.
    Acad::ErrorStatus subGetOsnapPoints(AcDb::OsnapMode mode, Adesk::GsMarker marker,
                                        const AcGePoint3d& pick, const AcGePoint3d& last,
                                        const AcGeMatrix3d& view, AcGePoint3dArray& points,
                                        AcDbIntArray& geomIds) const override;
    Acad::ErrorStatus subGetGeomExtents(AcDbExtents& extents) const override;

private:
    std::vector<prancheta::HatchLoop> m_loops;
    std::vector<prancheta::HatchFamily> m_families;
    std::vector<AcGePoint2d> m_seeds;
    std::wstring m_patternName = L"SOLID";
    AcGeVector3d m_normal = AcGeVector3d::kZAxis;
    double m_elevation = 0.0;
    double m_patternAngle = 0.0;
    double m_patternScale = 1.0;
    double m_pixelSize = 0.0;
    HatchStyle m_style = kNormal;
    Adesk::Int16 m_patternType = 1;
    bool m_solid = true;
    bool m_associative = false;
    bool m_patternDouble = false;
};
