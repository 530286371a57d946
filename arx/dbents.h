// SPDX-License-Identifier: MIT
// Simple entities. Points are in world coordinates, angles in radians, sizes in drawing units.
#pragma once

#include <memory>
#include <string>

#include "dbapserv.h"

namespace prancheta {
/// What stands behind a reference in its file: attributes, and what ends them.
struct InsertParts;
}  // namespace prancheta

/// The overrides that every simple entity has.
#define PRANCHETA_ENTITY_MEMBERS(CLASS)                                                            \
public:                                                                                            \
    ACRX_DECLARE_MEMBERS(CLASS);                                                                   \
    Acad::ErrorStatus dwgOutFields(AcDbDwgFiler* filer) const override;                            \
    Acad::ErrorStatus dwgInFields(AcDbDwgFiler* filer) override;                                   \
                                                                                                   \
protected:                                                                                         \
    Adesk::Boolean subWorldDraw(AcGiWorldDraw* draw) override;                                     \
    Acad::ErrorStatus subTransformBy(const AcGeMatrix3d& m) override;                              \
    void subList() const override;                                                                 \
    Acad::ErrorStatus subGetGripPoints(AcGePoint3dArray& points, AcDbIntArray& osnapModes,         \
                                       AcDbIntArray& geomIds) const override;                      \
    Acad::ErrorStatus subMoveGripPointsAt(const AcDbIntArray& indices, const AcGeVector3d& offset) \
        override;                                                                                  \
                                                                                                   \
public:

class AcDbLine : public AcDbEntity {
    PRANCHETA_ENTITY_MEMBERS(AcDbLine)
    AcDbLine() = default;
    AcDbLine(const AcGePoint3d& start, const AcGePoint3d& end) : m_start(start), m_end(end) {}

    AcGePoint3d startPoint() const { return m_start; }
    AcGePoint3d endPoint() const { return m_end; }
    Acad::ErrorStatus setStartPoint(const AcGePoint3d& p);
    Acad::ErrorStatus setEndPoint(const AcGePoint3d& p);

protected:
    /// The two ends.
    Acad::ErrorStatus subGetStretchPoints(AcGePoint3dArray& points, AcDbIntArray& osnapModes,
                                          AcDbIntArray& geomIds) const override;

private:
    AcGePoint3d m_start;
    AcGePoint3d m_end;
};

class AcDbPoint : public AcDbEntity {
    PRANCHETA_ENTITY_MEMBERS(AcDbPoint)
    AcDbPoint() = default;
    explicit AcDbPoint(const AcGePoint3d& p) : m_position(p) {}

    AcGePoint3d position() const { return m_position; }
    Acad::ErrorStatus setPosition(const AcGePoint3d& p);

private:
    AcGePoint3d m_position;
};

class AcDbCircle : public AcDbEntity {
    PRANCHETA_ENTITY_MEMBERS(AcDbCircle)
    AcDbCircle() = default;
    AcDbCircle(const AcGePoint3d& center, const AcGeVector3d& normal, double radius)
        : m_center(center), m_normal(normal), m_radius(radius) {}

    AcGePoint3d center() const { return m_center; }
    AcGeVector3d normal() const { return m_normal; }
    double radius() const { return m_radius; }
    Acad::ErrorStatus setCenter(const AcGePoint3d& p);
    Acad::ErrorStatus setRadius(double radius);

protected:
    /// The centre.
    Acad::ErrorStatus subGetStretchPoints(AcGePoint3dArray& points, AcDbIntArray& osnapModes,
                                          AcDbIntArray& geomIds) const override;

private:
    AcGePoint3d m_center;
    AcGeVector3d m_normal = AcGeVector3d::kZAxis;
    double m_radius = 0.0;
};

/// Counter-clockwise about the normal from the start angle to the end angle.
class AcDbArc : public AcDbEntity {
    PRANCHETA_ENTITY_MEMBERS(AcDbArc)
    AcDbArc() = default;
    AcDbArc(const AcGePoint3d& center, double radius, double startAngle, double endAngle)
        : m_center(center), m_radius(radius), m_startAngle(startAngle), m_endAngle(endAngle) {}

    AcGePoint3d center() const { return m_center; }
    AcGeVector3d normal() const { return m_normal; }
    double radius() const { return m_radius; }
    double startAngle() const { return m_startAngle; }
    double endAngle() const { return m_endAngle; }
    Acad::ErrorStatus setCenter(const AcGePoint3d& p);
    Acad::ErrorStatus setNormal(const AcGeVector3d& normal);
    Acad::ErrorStatus setRadius(double radius);
    Acad::ErrorStatus setStartAngle(double angle);
    Acad::ErrorStatus setEndAngle(double angle);

protected:
    /// The two ends; the arc keeps its height above its chord. eInvalidInput, and no change, where
    /// they would meet.
    Acad::ErrorStatus subGetStretchPoints(AcGePoint3dArray& points, AcDbIntArray& osnapModes,
                                          AcDbIntArray& geomIds) const override;
    Acad::ErrorStatus subMoveStretchPointsAt(const AcDbIntArray& indices,
                                             const AcGeVector3d& offset) override;

private:
    AcGePoint3d m_center;
    AcGeVector3d m_normal = AcGeVector3d::kZAxis;
    double m_radius = 0.0;
    double m_startAngle = 0.0;
    double m_endAngle = 0.0;
};

/// Whole or part of an ellipse: centre + major axis * cos t + minor axis * sin t, t from the start
/// parameter to the end parameter, counter-clockwise about the normal. Equal parameters are a full
/// turn.
class AcDbEllipse : public AcDbEntity {
    PRANCHETA_ENTITY_MEMBERS(AcDbEllipse)
    AcDbEllipse() = default;
    /// The normal and the half axis are perpendicular to each other, neither is zero.
    AcDbEllipse(const AcGePoint3d& center, const AcGeVector3d& unitNormal,
                const AcGeVector3d& majorAxis, double radiusRatio, double startParam = 0.0,
                double endParam = 6.28318530717958647692);

    AcGePoint3d center() const { return m_center; }
    AcGeVector3d normal() const { return m_normal; }
    /// Half of the axis, drawing units.
    AcGeVector3d majorAxis() const { return m_major; }
    AcGeVector3d minorAxis() const { return m_normal.crossProduct(m_major) * m_ratio; }
    /// Length of the minor axis over that of the major one.
    double radiusRatio() const { return m_ratio; }
    double startParam() const { return m_start; }
    double endParam() const { return m_end; }
    /// From 0, exclusive, to a full turn.
    double sweep() const;
    bool isClosed() const;
    AcGePoint3d pointAt(double param) const;
    Acad::ErrorStatus setCenter(const AcGePoint3d& p);
    /// eInvalidInput for a ratio that is not above 0.
    Acad::ErrorStatus setRadiusRatio(double ratio);
    Acad::ErrorStatus setStartParam(double param);
    Acad::ErrorStatus setEndParam(double param);

protected:
    /// The centre.
    Acad::ErrorStatus subGetStretchPoints(AcGePoint3dArray& points, AcDbIntArray& osnapModes,
                                          AcDbIntArray& geomIds) const override;
    Acad::ErrorStatus subGetOsnapPoints(AcDb::OsnapMode mode, Adesk::GsMarker marker,
                                        const AcGePoint3d& pick, const AcGePoint3d& last,
                                        const AcGeMatrix3d& view, AcGePoint3dArray& points,
                                        AcDbIntArray& geomIds) const override;

private:
    bool passes(double param) const;
    AcGePoint3d m_center;
    AcGeVector3d m_normal = AcGeVector3d::kZAxis;
    AcGeVector3d m_major = AcGeVector3d::kXAxis;
    double m_ratio = 1.0;
    double m_start = 0.0;
    double m_end = 0.0;
};

namespace prancheta {

/// A line without an end on one side or both: has no extents, is drawn as far as it is seen.
class EndlessLine : public AcDbEntity {
    PRANCHETA_ENTITY_MEMBERS(EndlessLine)
    AcGePoint3d basePoint() const { return m_base; }
    /// Unit vector.
    AcGeVector3d unitDir() const { return m_direction; }
    Acad::ErrorStatus setBasePoint(const AcGePoint3d& p);
    /// Of any length; eInvalidInput for none.
    Acad::ErrorStatus setUnitDir(const AcGeVector3d& direction);

protected:
    EndlessLine() = default;
    virtual bool goesBothWays() const = 0;
    Acad::ErrorStatus subExplode(AcDbVoidPtrArray& set) const override;
    /// The base.
    Acad::ErrorStatus subGetStretchPoints(AcGePoint3dArray& points, AcDbIntArray& osnapModes,
                                          AcDbIntArray& geomIds) const override;
    Acad::ErrorStatus subGetOsnapPoints(AcDb::OsnapMode mode, Adesk::GsMarker marker,
                                        const AcGePoint3d& pick, const AcGePoint3d& last,
                                        const AcGeMatrix3d& view, AcGePoint3dArray& points,
                                        AcDbIntArray& geomIds) const override;

private:
    AcGePoint3d m_base;
    AcGeVector3d m_direction = AcGeVector3d::kXAxis;
};

}  // namespace prancheta

class AcDbXline : public prancheta::EndlessLine {
public:
    ACRX_DECLARE_MEMBERS(AcDbXline);
    AcDbXline() = default;

protected:
    bool goesBothWays() const override { return true; }
};

class AcDbRay : public prancheta::EndlessLine {
public:
    ACRX_DECLARE_MEMBERS(AcDbRay);
    AcDbRay() = default;

protected:
    bool goesBothWays() const override { return false; }
};

/// One line of text. `position` is the left end of the baseline; `alignmentPoint` counts when the
/// justification is not left / baseline.
class AcDbText : public AcDbEntity {
    PRANCHETA_ENTITY_MEMBERS(AcDbText)
    AcDbText() = default;
    AcDbText(const AcGePoint3d& position, const ACHAR* text,
             AcDbObjectId style = AcDbObjectId::kNull, double height = 0, double rotation = 0);

    AcGePoint3d position() const { return m_position; }
    AcGePoint3d alignmentPoint() const { return m_alignment; }
    const ACHAR* textStringConst() const { return m_text.c_str(); }
    double height() const { return m_height; }
    double rotation() const { return m_rotation; }
    double widthFactor() const { return m_widthFactor; }
    double oblique() const { return m_oblique; }
    /// Of the plane in which the angle is told and the text lies; the points are the world's.
    AcGeVector3d normal() const { return m_normal; }
    /// The letters run backwards (DXF 71: 2) or stand upside down (4), about the point by which the
    /// text stands.
    bool isMirroredInX() const { return m_backwards; }
    bool isMirroredInY() const { return m_upsideDown; }
    AcDbObjectId textStyle() const { return m_style; }
    /// DXF 72: 0 left, 1 centre, 2 right, 3 aligned, 4 middle, 5 fit.
    int horizontalMode() const { return m_horizontal; }
    /// DXF 73: 0 baseline, 1 bottom, 2 middle, 3 top.
    int verticalMode() const { return m_vertical; }
    Acad::ErrorStatus setPosition(const AcGePoint3d& p);
    Acad::ErrorStatus setAlignmentPoint(const AcGePoint3d& p);
    Acad::ErrorStatus setTextString(const ACHAR* text);
    Acad::ErrorStatus setHeight(double height);
    Acad::ErrorStatus setRotation(double angle);
    Acad::ErrorStatus setWidthFactor(double factor);
    Acad::ErrorStatus setOblique(double angle);
    /// eInvalidInput for a zero vector.
    Acad::ErrorStatus setNormal(const AcGeVector3d& normal);
    Acad::ErrorStatus mirrorInX(bool backwards);
    Acad::ErrorStatus mirrorInY(bool upsideDown);
    Acad::ErrorStatus setTextStyle(AcDbObjectId id);
    Acad::ErrorStatus setHorizontalMode(int mode);
    Acad::ErrorStatus setVerticalMode(int mode);

protected:
    /// The point by which the text stands, or the two between which it is set.
    Acad::ErrorStatus subGetStretchPoints(AcGePoint3dArray& points, AcDbIntArray& osnapModes,
                                          AcDbIntArray& geomIds) const override;

private:
    /// Puts `position` where the alignment point and the justification ask for.
    void justify();
    AcGePoint3d m_position;
    AcGePoint3d m_alignment;
    std::wstring m_text;
    AcDbObjectId m_style;
    double m_height = 2.5;
    double m_rotation = 0.0;
    double m_widthFactor = 1.0;
    double m_oblique = 0.0;
    AcGeVector3d m_normal = AcGeVector3d::kZAxis;
    Adesk::Int16 m_horizontal = 0;
    Adesk::Int16 m_vertical = 0;
    bool m_backwards = false;
    bool m_upsideDown = false;
};

/// What a definition of an attribute and the attribute itself have in common.
class AcDbAttributeText : public AcDbText {
public:
    ACRX_DECLARE_MEMBERS(AcDbAttributeText);
    Acad::ErrorStatus dwgOutFields(AcDbDwgFiler* filer) const override;
    Acad::ErrorStatus dwgInFields(AcDbDwgFiler* filer) override;

    /// Name by which the attribute is known in its block, never empty once it is set.
    const ACHAR* tagConst() const { return m_tag.c_str(); }
    /// eInvalidInput for an empty tag and for one with blanks.
    Acad::ErrorStatus setTag(const ACHAR* tag);
    bool isInvisible() const { return (m_modes & kInvisible) != 0; }
    bool isConstant() const { return (m_modes & kConstant) != 0; }
    bool isVerifiable() const { return (m_modes & kVerifiable) != 0; }
    bool isPreset() const { return (m_modes & kPreset) != 0; }
    /// DXF 70.
    enum Mode { kInvisible = 1, kConstant = 2, kVerifiable = 4, kPreset = 8 };
    int modes() const { return m_modes; }
    /// eInvalidInput for bits that are no mode.
    Acad::ErrorStatus setModes(int modes);

protected:
    AcDbAttributeText() = default;
    AcDbAttributeText(const AcGePoint3d& position, const ACHAR* text, const ACHAR* tag,
                      AcDbObjectId style);
    void subList() const override;

private:
    std::wstring m_tag;
    Adesk::Int16 m_modes = 0;
};

/// What a block asks for when it is inserted. The text is the value offered, or of a constant one
/// the value; by itself, outside an insertion, it shows its tag.
class AcDbAttributeDefinition : public AcDbAttributeText {
public:
    ACRX_DECLARE_MEMBERS(AcDbAttributeDefinition);
    AcDbAttributeDefinition() = default;
    AcDbAttributeDefinition(const AcGePoint3d& position, const ACHAR* text, const ACHAR* tag,
                            const ACHAR* prompt, AcDbObjectId style = AcDbObjectId::kNull);
    Acad::ErrorStatus dwgOutFields(AcDbDwgFiler* filer) const override;
    Acad::ErrorStatus dwgInFields(AcDbDwgFiler* filer) override;

    /// Empty: the tag is asked for.
    const ACHAR* promptConst() const { return m_prompt.c_str(); }
    Acad::ErrorStatus setPrompt(const ACHAR* prompt);

protected:
    Adesk::Boolean subWorldDraw(AcGiWorldDraw* draw) override;
    void subList() const override;

private:
    std::wstring m_prompt;
};

/// A value of an insertion: a text that belongs to its reference.
class AcDbAttribute : public AcDbAttributeText {
public:
    ACRX_DECLARE_MEMBERS(AcDbAttribute);
    AcDbAttribute() = default;
    AcDbAttribute(const AcGePoint3d& position, const ACHAR* text, const ACHAR* tag,
                  AcDbObjectId style = AcDbObjectId::kNull);

    /// Place, looks, tag and text of the definition as an insertion with this transformation
    /// shows them. eInvalidInput for a definition without a tag.
    Acad::ErrorStatus setAttributeFromBlock(const AcDbAttributeDefinition* definition,
                                            const AcGeMatrix3d& blockTransform);

protected:
    Adesk::Boolean subWorldDraw(AcGiWorldDraw* draw) override;
};

/// Filled triangle or quadrangle; the third and fourth corners are in bow-tie order.
class AcDbSolid : public AcDbEntity {
    PRANCHETA_ENTITY_MEMBERS(AcDbSolid)
    AcDbSolid() = default;
    AcDbSolid(const AcGePoint3d& p0, const AcGePoint3d& p1, const AcGePoint3d& p2,
              const AcGePoint3d& p3)
        : m_points{p0, p1, p2, p3} {}

    Acad::ErrorStatus getPointAt(Adesk::UInt16 index, AcGePoint3d& p) const;
    Acad::ErrorStatus setPointAt(Adesk::UInt16 index, const AcGePoint3d& p);

private:
    AcGePoint3d m_points[4];
};

/// An insertion of a block. Its attributes belong to it and are no objects of the drawing: they
/// are moved, copied, erased and undone with it.
class AcDbBlockReference : public AcDbEntity {
    PRANCHETA_ENTITY_MEMBERS(AcDbBlockReference)
    AcDbBlockReference();
    AcDbBlockReference(const AcGePoint3d& position, AcDbObjectId blockTableRecord);
    ~AcDbBlockReference() override;

    AcDbObjectId blockTableRecord() const { return m_block; }
    AcGePoint3d position() const { return m_position; }
    double rotation() const { return m_rotation; }
    AcGeVector3d scaleFactors() const { return m_scale; }
    AcGeVector3d normal() const { return m_normal; }
    Acad::ErrorStatus setBlockTableRecord(AcDbObjectId id);
    /// The attributes follow this and what comes next.
    Acad::ErrorStatus setPosition(const AcGePoint3d& p);
    Acad::ErrorStatus setRotation(double angle);
    /// eInvalidInput for a factor of 0.
    Acad::ErrorStatus setScaleFactors(const AcGeVector3d& scale);
    Acad::ErrorStatus setNormal(const AcGeVector3d& normal);
    /// From the block's coordinates to the world's.
    AcGeMatrix3d blockTransform() const;

    /// Takes the attribute over: it stands behind those that are there.
    Acad::ErrorStatus appendAttribute(AcDbAttribute* attribute);
    /// The host's door to attributes and what came with them; null when there are none.
    const prancheta::InsertParts* parts() const { return m_parts.get(); }
    /// To be changed; made when there are none. The reference is open for write or not resident.
    prancheta::InsertParts& partsForChange();

protected:
    /// The point by which the reference stands; its attributes follow.
    Acad::ErrorStatus subGetStretchPoints(AcGePoint3dArray& points, AcDbIntArray& osnapModes,
                                          AcDbIntArray& geomIds) const override;
    Acad::ErrorStatus subExplode(AcDbVoidPtrArray& set) const override;
    Acad::ErrorStatus subGetOsnapPoints(AcDb::OsnapMode mode, Adesk::GsMarker marker,
                                        const AcGePoint3d& pick, const AcGePoint3d& last,
                                        const AcGeMatrix3d& view, AcGePoint3dArray& points,
                                        AcDbIntArray& geomIds) const override;

private:
    AcGePoint3d m_position;
    AcDbObjectId m_block;
    AcGeVector3d m_scale{1.0, 1.0, 1.0};
    AcGeVector3d m_normal = AcGeVector3d::kZAxis;
    double m_rotation = 0.0;
    std::unique_ptr<prancheta::InsertParts> m_parts;

    /// The attributes follow the reference, which stood there with this transformation.
    void takePartsAlong(const AcGeMatrix3d& former);
};

/// A rectangular array of insertions in one: the columns stand along the x axis of the turned
/// block, the rows along its y axis.
class AcDbMInsertBlock : public AcDbBlockReference {
public:
    ACRX_DECLARE_MEMBERS(AcDbMInsertBlock);
    AcDbMInsertBlock() = default;
    /// At least one column and one row; steps in drawing units, not scaled with the block.
    AcDbMInsertBlock(const AcGePoint3d& position, AcDbObjectId blockTableRecord, int columns,
                     int rows, double columnSpacing, double rowSpacing);
    Acad::ErrorStatus dwgOutFields(AcDbDwgFiler* filer) const override;
    Acad::ErrorStatus dwgInFields(AcDbDwgFiler* filer) override;

    int columns() const { return m_columns; }
    int rows() const { return m_rows; }
    double columnSpacing() const { return m_columnSpacing; }
    double rowSpacing() const { return m_rowSpacing; }

protected:
    Acad::ErrorStatus subTransformBy(const AcGeMatrix3d& m) override;
    void subList() const override;

private:
    Adesk::Int32 m_columns = 1;
    Adesk::Int32 m_rows = 1;
    double m_columnSpacing = 0.0;
    double m_rowSpacing = 0.0;
};
