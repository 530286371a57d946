// SPDX-License-Identifier: MIT
// Dimensions.
#pragma once

#include <memory>

#include "dbents.h"

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
    /// Measured value, drawing units.
    virtual double measurement() const = 0;
    /// Multiplies text, arrows and offsets; 0 takes the style's value.
    double dimscale() const;
    Acad::ErrorStatus setDimscale(double scale);
    /// The dimension's own scale; 0 when it takes the style's.
    double ownDimscale() const { return m_own ? m_own->dimscale : 0.0; }
    /// Text as shown: the measured value by the style's decimals and separator, or the user's.
    std::wstring shownText() const;
    Acad::ErrorStatus dwgOutFields(AcDbDwgFiler* filer) const override;
    Acad::ErrorStatus dwgInFields(AcDbDwgFiler* filer) override;

protected:
    /// What a dimension seldom says for itself.
    struct Own {
        AcGePoint3d textPosition;
        bool userTextPosition = false;
        AcDbObjectId style;
        std::wstring text;
        double dimscale = 0.0;
        double oblique = 0.0;
    };
    AcDbDimension() = default;
    virtual AcGePoint3d defaultTextPosition() const = 0;
    /// Null until something is said.
    const Own* own() const { return m_own.get(); }
    Own& makeOwn() {
        if (!m_own) m_own = std::make_unique<Own>();
        return *m_own;
    }

private:
    std::unique_ptr<Own> m_own;
};

/// Distance of two points, measured along their own direction. Points that coincide measure 0.
class AcDbAlignedDimension : public AcDbDimension {
    PRANCHETA_ENTITY_MEMBERS(AcDbAlignedDimension)
    AcDbAlignedDimension() = default;
    AcDbAlignedDimension(const AcGePoint3d& xLine1, const AcGePoint3d& xLine2,
                         const AcGePoint3d& dimLinePoint, const ACHAR* text = nullptr,
                         AcDbObjectId style = AcDbObjectId::kNull);

    AcGePoint3d xLine1Point() const { return m_xLine1; }
    AcGePoint3d xLine2Point() const { return m_xLine2; }
    /// A point that the dimension line passes through, as it was given.
    AcGePoint3d dimLinePoint() const { return m_dimLine; }
    double oblique() const { return own() != nullptr ? own()->oblique : 0.0; }
    Acad::ErrorStatus setXLine1Point(const AcGePoint3d& p);
    Acad::ErrorStatus setXLine2Point(const AcGePoint3d& p);
    Acad::ErrorStatus setDimLinePoint(const AcGePoint3d& p);
    Acad::ErrorStatus setOblique(double angle);
    double measurement() const override;

protected:
    AcGePoint3d defaultTextPosition() const override;
    Acad::ErrorStatus subExplode(AcDbVoidPtrArray& set) const override;
    Acad::ErrorStatus subGetOsnapPoints(AcDb::OsnapMode mode, Adesk::GsMarker marker,
                                        const AcGePoint3d& pick, const AcGePoint3d& last,
                                        const AcGeMatrix3d& view, AcGePoint3dArray& points,
                                        AcDbIntArray& geomIds) const override;
    /// What it measures, the ends of its line, and the text where the user put it.
    Acad::ErrorStatus subGetStretchPoints(AcGePoint3dArray& points, AcDbIntArray& osnapModes,
                                          AcDbIntArray& geomIds) const override;

private:
    AcGePoint3d m_xLine1;
    AcGePoint3d m_xLine2;
    AcGePoint3d m_dimLine;
};
