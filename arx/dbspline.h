// SPDX-License-Identifier: MIT
// Splines.
#pragma once

#include <vector>

#include "dbents.h"

namespace prancheta {

/// What a spline is made of, as files tell it. Points are in world coordinates. With control points
/// those, their knots and weights (empty: all 1) are the curve; without, it goes smoothly through
/// the fit points.
struct SplineData {
    static constexpr int kClosed = 1;
    static constexpr int kPeriodic = 2;

    int flags = 8;  ///< DXF 70: 1 closed, 2 periodic, 4 rational, 8 planar; others are kept
    int degree = 3;
    std::vector<AcGePoint3d> control;
    std::vector<double> knots;
    std::vector<double> weights;
    std::vector<AcGePoint3d> fit;
    AcGeVector3d tangents[2];  ///< at the first and last fit point; zero: none is told
    AcGeVector3d normal;       ///< of its plane; zero: none is told
    double tolerances[3] = {-1.0, -1.0, -1.0};  ///< of knots, control and fit points; below 0: none
};

}  // namespace prancheta

class AcDbSpline : public AcDbEntity {
    PRANCHETA_ENTITY_MEMBERS(AcDbSpline)
    AcDbSpline() = default;

    const prancheta::SplineData& data() const { return m_data; }
    /// eInvalidInput, and no change, for what is no curve: too few points, knots that do not fit
    /// the control points or fall, weights that are not above 0 or not one a control point.
    Acad::ErrorStatus setData(prancheta::SplineData data);
    int degree() const { return m_data.degree; }
    int numControlPoints() const { return static_cast<int>(m_data.control.size()); }
    int numFitPoints() const { return static_cast<int>(m_data.fit.size()); }
    /// Ends where it begins.
    bool isClosed() const;
    AcGePoint3d startPoint() const { return m_curve.front(); }
    AcGePoint3d endPoint() const { return m_curve.back(); }
    /// Of the curve, drawing units.
    double length() const;
    /// Enclosed by a closed one that lies at one height, drawing units squared; else
    /// eInvalidInput, and no change.
    Acad::ErrorStatus getArea(double& area) const;

protected:
    /// The control points; of a spline without, the fit points.
    Acad::ErrorStatus subGetStretchPoints(AcGePoint3dArray& points, AcDbIntArray& osnapModes,
                                          AcDbIntArray& geomIds) const override;
    Acad::ErrorStatus subGetOsnapPoints(AcDb::OsnapMode mode, Adesk::GsMarker marker,
                                        const AcGePoint3d& pick, const AcGePoint3d& last,
                                        const AcGeMatrix3d& view, AcGePoint3dArray& points,
                                        AcDbIntArray& geomIds) const override;

private:
    void follow();
    /// Half of the length away from both ends.
    AcGePoint3d middle() const;
    prancheta::SplineData m_data;
    /// Places along the curve, from its start to its end, see splinePlaces().
    std::vector<AcGePoint3d> m_curve = std::vector<AcGePoint3d>(3);
};
