// SPDX-License-Identifier: MIT
// Dimensions.
#pragma once

#include <memory>
#include <span>

#include "dbents.h"

namespace prancheta {
struct DimensionLayout;
struct FiledDimension;
}  // namespace prancheta

class AcDbDimension : public AcDbEntity {
public:
    ACRX_DECLARE_MEMBERS(AcDbDimension);

    AcDbObjectId dimensionStyle() const { return m_own ? m_own->style : AcDbObjectId(); }
    /// A null id means the database's current style.
    Acad::ErrorStatus setDimensionStyle(AcDbObjectId id);
    const ACHAR* dimensionTextConst() const { return m_own ? m_own->text.c_str() : L""; }
    /// "" or "<>" is the measured value; "<>" inside a text is replaced by it.
    Acad::ErrorStatus setDimensionText(const ACHAR* text);
    /// Middle of the text; where the style puts it unless it was set.
    AcGePoint3d textPosition() const;
    Acad::ErrorStatus setTextPosition(const AcGePoint3d& p);
    bool isUsingDefaultTextPosition() const { return !m_own || !m_own->userTextPosition; }
    Acad::ErrorStatus useDefaultTextPosition();
    /// Direction of the text, radians from the world's x; 0 leaves it to the style.
    double textRotation() const { return m_own ? m_own->textRotation : 0.0; }
    Acad::ErrorStatus setTextRotation(double angle);
    /// Measured value: drawing units, of angular dimensions radians.
    virtual double measurement() const = 0;
    /// Multiplies text, arrows and offsets; 0 takes the style's value.
    double dimscale() const;
    Acad::ErrorStatus setDimscale(double scale);
    /// The dimension's own scale; 0 when it takes the style's.
    double ownDimscale() const { return m_own ? m_own->dimscale : 0.0; }
    /// Text as shown: the measured value as the style writes it, or the user's.
    std::wstring shownText() const;
    Acad::ErrorStatus dwgOutFields(AcDbDwgFiler* filer) const override;
    Acad::ErrorStatus dwgInFields(AcDbDwgFiler* filer) override;

    /// The points by which it stands, in an order that each class says: those that measure first.
    virtual std::span<const AcGePoint3d> definitionPoints() const = 0;
    /// How many of them, from the first on, lie on what is measured.
    virtual std::size_t measuredPoints() const = 0;
    Acad::ErrorStatus setDefinitionPoint(std::size_t index, const AcGePoint3d& p);
    /// Puts the middle of the text there, by the means of the class.
    virtual Acad::ErrorStatus moveText(const AcGePoint3d& p) { return setTextPosition(p); }
    /// Lines, arrows and text in the world.
    virtual void layOut(prancheta::DimensionLayout& out) const = 0;
    /// What stands before the measured value of a style that says nothing: R, Ø.
    virtual const ACHAR* usualPrefix() const { return L""; }
    virtual bool isAngular() const { return false; }

    /// As another program's file has it; null when it never was, or was changed since.
    const prancheta::FiledDimension* filed() const;
    /// Shows and keeps this until the dimension is changed. Not for one in a drawing's undo.
    void keepFiled(std::shared_ptr<const prancheta::FiledDimension> filed) {
        m_filed = std::move(filed);
    }

protected:
    /// What a dimension seldom says for itself.
    struct Own {
        AcGePoint3d textPosition;
        bool userTextPosition = false;
        AcDbObjectId style;
        std::wstring text;
        double dimscale = 0.0;
        double oblique = 0.0;
        double textRotation = 0.0;
    };
    AcDbDimension() = default;
    /// Null until something is said.
    const Own* own() const { return m_own.get(); }
    Own& makeOwn() {
        if (!m_own) m_own = std::make_unique<Own>();
        return *m_own;
    }

    /// Before every change of what the picture shows.
    void assertChange() {
        assertWriteEnabled();
        m_filed.reset();
    }

    Adesk::Boolean subWorldDraw(AcGiWorldDraw* draw) override;
    Acad::ErrorStatus subTransformBy(const AcGeMatrix3d& m) override;
    void subList() const override;
    Acad::ErrorStatus subExplode(AcDbVoidPtrArray& set) const override;
    Acad::ErrorStatus subGetOsnapPoints(AcDb::OsnapMode mode, Adesk::GsMarker marker,
                                        const AcGePoint3d& pick, const AcGePoint3d& last,
                                        const AcGeMatrix3d& view, AcGePoint3dArray& points,
                                        AcDbIntArray& geomIds) const override;
    /// The definition points, then the middle of the text.
    Acad::ErrorStatus subGetGripPoints(AcGePoint3dArray& points, AcDbIntArray& osnapModes,
                                       AcDbIntArray& geomIds) const override;
    Acad::ErrorStatus subMoveGripPointsAt(const AcDbIntArray& indices,
                                          const AcGeVector3d& offset) override;
    /// The same; the text only where the user put it.
    Acad::ErrorStatus subGetStretchPoints(AcGePoint3dArray& points, AcDbIntArray& osnapModes,
                                          AcDbIntArray& geomIds) const override;

private:
    std::span<AcGePoint3d> points();
    std::unique_ptr<Own> m_own;
    std::shared_ptr<const prancheta::FiledDimension> m_filed;
};

/// What aligned and rotated dimensions share; not a class at run time.
class PranchetaLinearDimension : public AcDbDimension {
public:
    AcGePoint3d xLine1Point() const { return m_points[0]; }
    AcGePoint3d xLine2Point() const { return m_points[1]; }
    /// A point that the dimension line passes through, as it was given.
    AcGePoint3d dimLinePoint() const { return m_points[2]; }
    double oblique() const { return own() != nullptr ? own()->oblique : 0.0; }
    Acad::ErrorStatus setXLine1Point(const AcGePoint3d& p) { return setDefinitionPoint(0, p); }
    Acad::ErrorStatus setXLine2Point(const AcGePoint3d& p) { return setDefinitionPoint(1, p); }
    Acad::ErrorStatus setDimLinePoint(const AcGePoint3d& p) { return setDefinitionPoint(2, p); }
    /// Of the extension lines, radians from the dimension line; 0: across it.
    Acad::ErrorStatus setOblique(double angle);
    /// Unit vector in the plane along which it measures.
    virtual AcGeVector3d measuredAlong() const = 0;

    std::span<const AcGePoint3d> definitionPoints() const override { return m_points; }
    std::size_t measuredPoints() const override { return 2; }
    void layOut(prancheta::DimensionLayout& out) const override;

protected:
    PranchetaLinearDimension() = default;
    PranchetaLinearDimension(const AcGePoint3d& xLine1, const AcGePoint3d& xLine2,
                             const AcGePoint3d& dimLinePoint, const ACHAR* text,
                             AcDbObjectId style);
    /// The two measured points and both ends of the dimension line, then the middle of the text.
    Acad::ErrorStatus subGetGripPoints(AcGePoint3dArray& points, AcDbIntArray& osnapModes,
                                       AcDbIntArray& geomIds) const override;
    Acad::ErrorStatus subMoveGripPointsAt(const AcDbIntArray& indices,
                                          const AcGeVector3d& offset) override;

private:
    AcGePoint3d m_points[3];
};

/// Distance of two points, measured along their own direction. Points that coincide measure 0.
class AcDbAlignedDimension : public PranchetaLinearDimension {
public:
    ACRX_DECLARE_MEMBERS(AcDbAlignedDimension);
    AcDbAlignedDimension() = default;
    AcDbAlignedDimension(const AcGePoint3d& xLine1, const AcGePoint3d& xLine2,
                         const AcGePoint3d& dimLinePoint, const ACHAR* text = nullptr,
                         AcDbObjectId style = AcDbObjectId::kNull)
        : PranchetaLinearDimension(xLine1, xLine2, dimLinePoint, text, style) {}
    double measurement() const override { return xLine1Point().distanceTo(xLine2Point()); }
    AcGeVector3d measuredAlong() const override;
};

/// Distance of two points, measured in a direction of its own.
class AcDbRotatedDimension : public PranchetaLinearDimension {
public:
    ACRX_DECLARE_MEMBERS(AcDbRotatedDimension);
    AcDbRotatedDimension() = default;
    /// `rotation`: of the dimension line, radians from the world's x.
    AcDbRotatedDimension(double rotation, const AcGePoint3d& xLine1, const AcGePoint3d& xLine2,
                         const AcGePoint3d& dimLinePoint, const ACHAR* text = nullptr,
                         AcDbObjectId style = AcDbObjectId::kNull)
        : PranchetaLinearDimension(xLine1, xLine2, dimLinePoint, text, style),
          m_rotation(rotation) {}
    double rotation() const { return m_rotation; }
    Acad::ErrorStatus setRotation(double angle);
    double measurement() const override;
    AcGeVector3d measuredAlong() const override;
    Acad::ErrorStatus dwgOutFields(AcDbDwgFiler* filer) const override;
    Acad::ErrorStatus dwgInFields(AcDbDwgFiler* filer) override;

protected:
    Acad::ErrorStatus subTransformBy(const AcGeMatrix3d& m) override;

private:
    double m_rotation = 0.0;
};

/// What radii and diameters share; not a class at run time.
class PranchetaRadialDimension : public AcDbDimension {
public:
    /// How far the line goes on beyond the circle, towards the text; 0: the text stands inside.
    double leaderLength() const { return m_leaderLength; }
    Acad::ErrorStatus setLeaderLength(double length);
    virtual AcGePoint3d chordPoint() const = 0;
    /// Where the line begins: the centre, or the far point of a diameter.
    virtual AcGePoint3d innerPoint() const = 0;
    virtual AcGePoint3d middle() const = 0;
    double measurement() const override { return m_points[0].distanceTo(m_points[1]); }
    std::span<const AcGePoint3d> definitionPoints() const override { return m_points; }
    std::size_t measuredPoints() const override { return 2; }
    void layOut(prancheta::DimensionLayout& out) const override;
    /// Turns the line towards the text.
    Acad::ErrorStatus moveText(const AcGePoint3d& p) override;
    Acad::ErrorStatus dwgOutFields(AcDbDwgFiler* filer) const override;
    Acad::ErrorStatus dwgInFields(AcDbDwgFiler* filer) override;

protected:
    PranchetaRadialDimension() = default;
    PranchetaRadialDimension(const AcGePoint3d& a, const AcGePoint3d& b, double leaderLength,
                             const ACHAR* text, AcDbObjectId style);
    Acad::ErrorStatus subTransformBy(const AcGeMatrix3d& m) override;
    virtual void setLine(const AcGePoint3d& inner, const AcGePoint3d& chord) = 0;
    AcGePoint3d m_points[2];

private:
    double m_leaderLength = 0.0;
};

/// Radius of a circle or arc.
class AcDbRadialDimension : public PranchetaRadialDimension {
public:
    ACRX_DECLARE_MEMBERS(AcDbRadialDimension);
    AcDbRadialDimension() = default;
    AcDbRadialDimension(const AcGePoint3d& center, const AcGePoint3d& chordPoint,
                        double leaderLength, const ACHAR* text = nullptr,
                        AcDbObjectId style = AcDbObjectId::kNull)
        : PranchetaRadialDimension(center, chordPoint, leaderLength, text, style) {}
    AcGePoint3d center() const { return m_points[0]; }
    AcGePoint3d chordPoint() const override { return m_points[1]; }
    AcGePoint3d innerPoint() const override { return center(); }
    AcGePoint3d middle() const override { return center(); }
    const ACHAR* usualPrefix() const override { return L"R"; }

protected:
    void setLine(const AcGePoint3d& inner, const AcGePoint3d& chord) override {
        m_points[0] = inner;
        m_points[1] = chord;
    }
};

/// Diameter of a circle or arc. The text stands at the side of the chord point.
class AcDbDiametricDimension : public PranchetaRadialDimension {
public:
    ACRX_DECLARE_MEMBERS(AcDbDiametricDimension);
    AcDbDiametricDimension() = default;
    AcDbDiametricDimension(const AcGePoint3d& chordPoint, const AcGePoint3d& farChordPoint,
                           double leaderLength, const ACHAR* text = nullptr,
                           AcDbObjectId style = AcDbObjectId::kNull)
        : PranchetaRadialDimension(chordPoint, farChordPoint, leaderLength, text, style) {}
    AcGePoint3d chordPoint() const override { return m_points[0]; }
    AcGePoint3d farChordPoint() const { return m_points[1]; }
    AcGePoint3d innerPoint() const override { return farChordPoint(); }
    AcGePoint3d middle() const override { return m_points[0] + (m_points[1] - m_points[0]) * 0.5; }
    const ACHAR* usualPrefix() const override { return L"Ø"; }

protected:
    void setLine(const AcGePoint3d& inner, const AcGePoint3d& chord) override {
        m_points[0] = chord;
        m_points[1] = inner;
    }
};

/// What angular dimensions share; not a class at run time. The dimension is an arc about the
/// vertex through `arcPoint`.
class PranchetaAngularDimension : public AcDbDimension {
public:
    virtual AcGePoint3d arcPoint() const = 0;
    /// Of the angle in which the arc point lies: where its sides meet and where they begin, in the
    /// plane. False when there is no angle.
    struct Angle {
        AcGePoint3d vertex;
        double start = 0.0;  ///< radians, counter-clockwise from the world's x
        double sweep = 0.0;
    };
    virtual bool angle(Angle& out) const = 0;
    double measurement() const override;
    void layOut(prancheta::DimensionLayout& out) const override;
    bool isAngular() const override { return true; }

protected:
    /// A point of the measured side that leaves the vertex at `direction`, for its extension line.
    virtual AcGePoint3d sidePoint(const Angle& angle, double direction) const = 0;
};

/// Angle between two lines.
class AcDb2LineAngularDimension : public PranchetaAngularDimension {
public:
    ACRX_DECLARE_MEMBERS(AcDb2LineAngularDimension);
    AcDb2LineAngularDimension() = default;
    AcDb2LineAngularDimension(const AcGePoint3d& xLine1Start, const AcGePoint3d& xLine1End,
                              const AcGePoint3d& xLine2Start, const AcGePoint3d& xLine2End,
                              const AcGePoint3d& arcPoint, const ACHAR* text = nullptr,
                              AcDbObjectId style = AcDbObjectId::kNull);
    AcGePoint3d xLine1Start() const { return m_points[0]; }
    AcGePoint3d xLine1End() const { return m_points[1]; }
    AcGePoint3d xLine2Start() const { return m_points[2]; }
    AcGePoint3d xLine2End() const { return m_points[3]; }
    AcGePoint3d arcPoint() const override { return m_points[4]; }
    bool angle(Angle& out) const override;
    std::span<const AcGePoint3d> definitionPoints() const override { return m_points; }
    std::size_t measuredPoints() const override { return 4; }

protected:
    AcGePoint3d sidePoint(const Angle& angle, double direction) const override;

private:
    AcGePoint3d m_points[5];
};

/// Angle at a vertex between two points.
class AcDb3PointAngularDimension : public PranchetaAngularDimension {
public:
    ACRX_DECLARE_MEMBERS(AcDb3PointAngularDimension);
    AcDb3PointAngularDimension() = default;
    AcDb3PointAngularDimension(const AcGePoint3d& centerPoint, const AcGePoint3d& xLine1Point,
                               const AcGePoint3d& xLine2Point, const AcGePoint3d& arcPoint,
                               const ACHAR* text = nullptr,
                               AcDbObjectId style = AcDbObjectId::kNull);
    AcGePoint3d centerPoint() const { return m_points[0]; }
    AcGePoint3d xLine1Point() const { return m_points[1]; }
    AcGePoint3d xLine2Point() const { return m_points[2]; }
    AcGePoint3d arcPoint() const override { return m_points[3]; }
    bool angle(Angle& out) const override;
    std::span<const AcGePoint3d> definitionPoints() const override { return m_points; }
    std::size_t measuredPoints() const override { return 3; }

protected:
    AcGePoint3d sidePoint(const Angle& angle, double direction) const override;

private:
    AcGePoint3d m_points[4];
};
