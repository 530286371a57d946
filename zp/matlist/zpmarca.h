// SPDX-License-Identifier: MIT
// Mark of a piece in the drawing: a leader and a short text.
#pragma once

#include <string>

#include "dbmain.h"

/// Text height of a mark at drawing scale 1.
inline constexpr double kMarcaAltura = 2.5;

/// Leader with an arrow at `tip`, text at `textAt` on the side that the leader comes from. World
/// coordinates; the text stays horizontal and is never mirrored.
class ZpMarca : public AcDbEntity {
public:
    ACRX_DECLARE_MEMBERS(ZpMarca);
    ZpMarca() = default;
    /// `peca` is what the mark stands for, null when that is not known.
    ZpMarca(const AcGePoint3d& tip, const AcGePoint3d& textAt, std::wstring marca, double altura,
            const AcDbObjectId& peca = {})
        : m_tip(tip),
          m_textAt(textAt),
          m_marca(std::move(marca)),
          m_altura(altura),
          m_hasPeca(!peca.isNull()),
          m_peca(peca) {}

    /// World coordinates.
    AcGePoint3d tip() const { return m_tip; }
    /// World coordinates, lower left corner of the text.
    AcGePoint3d textAt() const { return m_textAt; }
    const std::wstring& marca() const { return m_marca; }
    /// Of the text, drawing units.
    double altura() const { return m_altura; }
    /// The piece that the mark stands for, erased or not; null when it has none, when it is no
    /// longer in the drawing, or when something else is in its place.
    AcDbObjectId peca() const;
    /// True when the mark had a piece that is erased or gone.
    bool pecaErased() const;
    void setMarca(std::wstring marca);
    /// All that a mark shows, of no piece.
    void place(const AcGePoint3d& tip, const AcGePoint3d& textAt, std::wstring marca,
               double altura);
    /// Text of this height, above 0, as many times as far from the tip as it grows.
    void resize(double altura);
    /// Moves tip and text by vectors in world coordinates.
    void moveBy(const AcGeVector3d& tipStep, const AcGeVector3d& textStep);
    /// From now on the mark stands for this piece.
    void setPeca(const AcDbObjectId& peca);

    Acad::ErrorStatus dwgOutFields(AcDbDwgFiler* filer) const override;
    Acad::ErrorStatus dwgInFields(AcDbDwgFiler* filer) override;
    Acad::ErrorStatus dxfOutFields(AcDbDxfFiler* filer) const override;
    Acad::ErrorStatus dxfInFields(AcDbDxfFiler* filer) override;

protected:
    Adesk::Boolean subWorldDraw(AcGiWorldDraw* draw) override;
    Acad::ErrorStatus subGetGeomExtents(AcDbExtents& extents) const override;
    Acad::ErrorStatus subTransformBy(const AcGeMatrix3d& m) override;
    Acad::ErrorStatus subExplode(AcDbVoidPtrArray& set) const override;
    void subList() const override;
    Acad::ErrorStatus subGetOsnapPoints(AcDb::OsnapMode mode, Adesk::GsMarker marker,
                                        const AcGePoint3d& pick, const AcGePoint3d& last,
                                        const AcGeMatrix3d& view, AcGePoint3dArray& points,
                                        AcDbIntArray& geomIds) const override;
    Acad::ErrorStatus subGetGripPoints(AcGePoint3dArray& points, AcDbIntArray& osnapModes,
                                       AcDbIntArray& geomIds) const override;
    Acad::ErrorStatus subMoveGripPointsAt(const AcDbIntArray& indices,
                                          const AcGeVector3d& offset) override;

private:
    struct Picture;
    Picture picture() const;
    AcGePoint3d m_tip;
    AcGePoint3d m_textAt;
    std::wstring m_marca;
    double m_altura = 2.5;
    bool m_hasPeca = false;  ///< stays when the reference is lost
    AcDbSoftPointerId m_peca;
};
