// SPDX-License-Identifier: MIT
// Paragraphs of text.
#pragma once

#include "dbents.h"

/// Text in lines that break at a width, with formatting codes inside it: \P next paragraph, \L \O
/// \K with \l \o \k lines under, over and through, \fFONT|b1|i1; \H2.5; \H0.7x; \W0.8; \Q15; \C1;
/// \Supper/lower; \A1; \pqc; \~ and braces for a stretch. The location is a corner, an edge's
/// middle or the middle of the frame, as the attachment says.
class AcDbMText : public AcDbEntity {
    PRANCHETA_ENTITY_MEMBERS(AcDbMText)
    enum AttachmentPoint {
        kTopLeft = 1,
        kTopCenter,
        kTopRight,
        kMiddleLeft,
        kMiddleCenter,
        kMiddleRight,
        kBottomLeft,
        kBottomCenter,
        kBottomRight
    };
    AcDbMText() = default;

    AcGePoint3d location() const { return m_location; }
    AcGeVector3d normal() const { return m_normal; }
    /// In which lines run, unit length.
    AcGeVector3d direction() const { return m_direction; }
    /// The same as an angle about the normal from its plane's x axis, radians.
    double rotation() const;
    /// At which lines break, drawing units; 0 breaks none.
    double width() const { return m_width; }
    /// Height of the frame that was drawn for it, drawing units; 0 when none was. Lines that do not
    /// fit go on below it.
    double definedHeight() const { return m_definedHeight; }
    double textHeight() const { return m_height; }
    AttachmentPoint attachment() const { return static_cast<AttachmentPoint>(m_attachment); }
    /// DXF 72: 1 left to right, 3 top to bottom, 5 as the style has it; shown left to right.
    int flowDirection() const { return m_flow; }
    /// Of 5/3 of the height, from line to line.
    double lineSpacingFactor() const { return m_spacing; }
    /// DXF 73: 1 lines of higher letters take more room, 2 all take the same.
    int lineSpacingStyle() const { return m_spacingStyle; }
    AcDbObjectId textStyle() const { return m_style; }
    const ACHAR* contentsConst() const { return m_contents.c_str(); }
    /// The caller frees it with acutDelString.
    ACHAR* contents() const;
    /// Room that the lines take, drawing units.
    double actualWidth() const;
    double actualHeight() const;

    Acad::ErrorStatus setLocation(const AcGePoint3d& p);
    Acad::ErrorStatus setNormal(const AcGeVector3d& normal);
    Acad::ErrorStatus setDirection(const AcGeVector3d& direction);
    Acad::ErrorStatus setRotation(double angle);
    Acad::ErrorStatus setWidth(double width);
    Acad::ErrorStatus setDefinedHeight(double height);
    Acad::ErrorStatus setTextHeight(double height);
    Acad::ErrorStatus setAttachment(AttachmentPoint attachment);
    Acad::ErrorStatus setFlowDirection(int direction);
    Acad::ErrorStatus setLineSpacingFactor(double factor);
    Acad::ErrorStatus setLineSpacingStyle(int style);
    Acad::ErrorStatus setTextStyle(AcDbObjectId id);
    Acad::ErrorStatus setContents(const ACHAR* contents);

protected:
    /// Leaders that are tied to it follow.
    Acad::ErrorStatus subClose() override;
    /// One TEXT a stretch of letters of one kind, and lines.
    Acad::ErrorStatus subExplode(AcDbVoidPtrArray& set) const override;
    /// The insertion point is the location.
    Acad::ErrorStatus subGetOsnapPoints(AcDb::OsnapMode mode, Adesk::GsMarker marker,
                                        const AcGePoint3d& pick, const AcGePoint3d& last,
                                        const AcGeMatrix3d& view, AcGePoint3dArray& points,
                                        AcDbIntArray& geomIds) const override;
    /// The location.
    Acad::ErrorStatus subGetStretchPoints(AcGePoint3dArray& points, AcDbIntArray& osnapModes,
                                          AcDbIntArray& geomIds) const override;

private:
    AcGePoint3d m_location;
    AcGeVector3d m_normal = AcGeVector3d::kZAxis;
    AcGeVector3d m_direction = AcGeVector3d::kXAxis;
    std::wstring m_contents;
    AcDbObjectId m_style;
    double m_height = 2.5;
    double m_width = 0.0;
    double m_definedHeight = 0.0;
    double m_spacing = 1.0;
    Adesk::Int16 m_attachment = kTopLeft;
    Adesk::Int16 m_flow = 1;
    Adesk::Int16 m_spacingStyle = 1;
};
