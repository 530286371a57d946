// SPDX-License-Identifier: MIT
// Viewports: windows of a sheet through which the model is seen.
#pragma once

#include <vector>

#include "dbents.h"
#include "dbpl.h"
#include "gemat3d.h"

/// An upright frame on the sheet that shows a plan view of the model. Frame in millimetres of the
/// sheet, view in units of the model. Number 1 of a sheet is the sheet's own view: it is no window,
/// draws nothing and cannot be picked.
class AcDbViewport : public AcDbEntity {
    PRANCHETA_ENTITY_MEMBERS(AcDbViewport)
    AcDbViewport() = default;

    AcGePoint3d centerPoint() const { return m_center; }
    double width() const { return m_width; }
    double height() const { return m_height; }
    /// Of what is shown, from the target, turned by the twist.
    AcGePoint2d viewCenter() const { return m_viewCenter; }
    double viewHeight() const { return m_viewHeight; }
    AcGePoint3d viewTarget() const { return m_target; }
    /// Radians by which the model is seen turned, counter-clockwise.
    double twistAngle() const { return m_twist; }
    /// Millimetres of the sheet for one unit of the model: 0.1 is 1:10.
    double customScale() const { return m_height / m_viewHeight; }
    bool isOn() const;
    /// The view does not change by zooming.
    bool isLocked() const;
    Adesk::Int16 number() const { return m_number; }
    const std::vector<AcDbObjectId>& frozenLayers() const { return m_frozen; }
    bool isLayerFrozenInViewport(AcDbObjectId layer) const;
    /// The entity whose outline bounds what is seen, on the sheet beside the viewport; null for one
    /// that is bounded by its frame. A copy without its own copy of the outline has none.
    AcDbObjectId nonRectClipEntityId() const { return m_clip; }
    bool isNonRectClipOn() const;
    /// As a file has them: group 68, and the bits of group 90.
    Adesk::Int16 status() const { return m_status; }
    Adesk::Int32 flags() const { return m_flags; }

    Acad::ErrorStatus setCenterPoint(const AcGePoint3d& p);
    /// eInvalidInput for a size that is not above 0; so for the other lengths.
    Acad::ErrorStatus setWidth(double width);
    Acad::ErrorStatus setHeight(double height);
    Acad::ErrorStatus setViewCenter(const AcGePoint2d& p);
    Acad::ErrorStatus setViewHeight(double height);
    Acad::ErrorStatus setViewTarget(const AcGePoint3d& p);
    Acad::ErrorStatus setTwistAngle(double angle);
    /// The middle of the view stays.
    Acad::ErrorStatus setCustomScale(double scale);
    Acad::ErrorStatus setOn();
    Acad::ErrorStatus setOff();
    Acad::ErrorStatus setLocked();
    Acad::ErrorStatus setUnlocked();
    Acad::ErrorStatus setNumber(Adesk::Int16 number);
    Acad::ErrorStatus setFrozenLayers(const std::vector<AcDbObjectId>& layers);
    /// Null takes the outline away; else it is switched on.
    Acad::ErrorStatus setNonRectClipEntityId(AcDbObjectId outline);
    Acad::ErrorStatus setFiledState(Adesk::Int16 status, Adesk::Int32 flags);

    /// From the model to the sheet.
    AcGeMatrix3d modelToSheet() const;

protected:
    /// The corners, from the lower left one, counter-clockwise. The view stays where it is on the
    /// sheet, and so does its scale.
    Acad::ErrorStatus subGetStretchPoints(AcGePoint3dArray& points, AcDbIntArray& osnapModes,
                                          AcDbIntArray& geomIds) const override;
    Acad::ErrorStatus subMoveStretchPointsAt(const AcDbIntArray& indices,
                                             const AcGeVector3d& offset) override;
    Acad::ErrorStatus subExplode(AcDbVoidPtrArray& set) const override;

private:
    void setFrame(double left, double bottom, double right, double top);

    AcGePoint3d m_center;
    AcGePoint3d m_target;
    AcGePoint2d m_viewCenter;
    double m_width = 100.0;
    double m_height = 100.0;
    double m_viewHeight = 100.0;
    double m_twist = 0.0;
    std::vector<AcDbObjectId> m_frozen;
    AcDbObjectId m_clip;
    Adesk::Int32 m_flags = 32768 | 64 | 32;
    Adesk::Int16 m_status = 2;
    Adesk::Int16 m_number = 2;
};
