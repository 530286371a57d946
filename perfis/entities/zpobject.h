// SPDX-License-Identifier: MIT
// Base of all steel pieces: placement, links with dimensions and plates, section queries.
#pragma once

#include <initializer_list>
#include <memory>

#include "dbapserv.h"

namespace zp {
/// State of one piece; the library's own.
struct Peca;
/// The library's door to that state.
struct Access;
}  // namespace zp

/// Buffer that getPerfil and getDimensoes fill, characters with the terminator.
inline constexpr int kZpTextMax = 128;

/// Declares that a class reads and changes one value that it was constructed with.
#define ZP_VALUE(NAME)                           \
    Acad::ErrorStatus NAME(double& value) const; \
    Acad::ErrorStatus set##NAME(double value);

/// A piece of a drawn member. It lies in the plane of its start point parallel to XY: the axis runs
/// from the start along the direction AngleVista, and the picture is that of one view. Lengths in
/// drawing units (mm), angles in radians, masses in kg, areas of sections in mm2.
class ZpObject : public AcDbEntity {
public:
    ACRX_DECLARE_MEMBERS(ZpObject);
    ~ZpObject() override;

    /// What is drawn: the section seen from the start, or the member seen from above, below, right,
    /// left.
    enum ZpVistas {
        kVistaSecao = 0,
        kVistaSuperior = 1,
        kVistaInferior = 2,
        kVistaDireita = 3,
        kVistaEsquerda = 4,
    };
    /// Structural role. 7 and 8 are free places.
    enum TipoBarra {
        kBarra = 0,
        kMontante = 1,
        kDiagonal = 2,
        kBanzoInferior = 3,
        kBanzoSuperior = 4,
        kViga = 5,
        kPilar = 6,
        kTerca = 9,
    };

    Acad::ErrorStatus settipoBarra(TipoBarra type);
    Acad::ErrorStatus tipoBarra(TipoBarra& type) const;

    /// Ties a dimension to this piece and keeps where it stands relative to it. The piece and the
    /// dimension are resident and the dimension is closed. A second call changes nothing.
    /// eNoDatabase before the piece is appended, otherwise the status of opening the dimension.
    Acad::ErrorStatus LinkDim(const AcDbObjectId& cota);
    /// The same with another piece (a plate as a rule), which follows this one.
    Acad::ErrorStatus LinkPos(const AcDbObjectId& peca);

    /// Corners of the picture's box, oblique ends included, in the piece's own frame, moved and
    /// turned with it: upper left, lower left, upper right, lower right.
    virtual void GetLimitPointsOfFaces(AcGePoint3d& f0, AcGePoint3d& f1, AcGePoint3d& f2,
                                       AcGePoint3d& f3) const;
    Acad::ErrorStatus StartPoint(AcGePoint3d& point) const;
    /// Where the axis ends; the start itself in the section view.
    Acad::ErrorStatus EndPoint(AcGePoint3d& point) const;
    /// Direction of the axis; in the section view the angle by which the section was turned. [0, 2
    /// pi).
    Acad::ErrorStatus AngleVista(double& angle) const;
    ZpVistas vista() const;
    /// The end moves along the axis until getComprimentoReal() is this, what is linked to the end
    /// follows. eInvalidInput, and no change, for a length that is not positive and finite, or in
    /// which the cuts of the ends would meet.
    virtual Acad::ErrorStatus AlteraComprimento(double comprimento);

    /// Shortens the piece where its axis enters the picture of another one: the end that lies
    /// inside, or nearer to it, moves to the first face. eNotApplicable in the section view,
    /// eInvalidInput when the axis does not meet the other picture or nothing would remain.
    Acad::ErrorStatus Corte(const AcDbObjectId& other);
    /// The same when both pieces are drawn in longitudinal views only.
    Acad::ErrorStatus CorteVista(const AcDbObjectId& other);
    /// As Corte, to the far face instead of the near one.
    Acad::ErrorStatus CorteArestaVista(const AcDbObjectId& other);

    /// Height and width of one piece; of the whole box for built-up sections.
    virtual double getAltura() const;
    virtual double getLargura() const;
    virtual double getEspessura() const;
    /// Area handed over by the catalogue, that of the outline when none was.
    virtual double getArea() const;
    /// All loops of the outline, holes included.
    virtual double getPerimetro() const;
    /// m2.
    virtual double getAreaPintura() const;
    /// kg.
    virtual double getPeso() const;
    /// kg/m.
    virtual double getLinearWeight() const;
    virtual double getComprimento() const;
    /// The longest fibre, which is that of the axis where both ends are square. Mass and painted
    /// surface are those of this length.
    virtual double getComprimentoReal() const;
    /// Short name of the section ("Ue") and its sizes ("200x75x20x2,65"); the buffer holds
    /// kZpTextMax.
    virtual Acad::ErrorStatus getPerfil(ACHAR* text) const;
    virtual Acad::ErrorStatus getDimensoes(ACHAR* text) const;

    void getEcs(AcGeMatrix3d& ecs) const override;
    Acad::ErrorStatus dwgOutFields(AcDbDwgFiler* filer) const override;
    Acad::ErrorStatus dwgInFields(AcDbDwgFiler* filer) override;
    Acad::ErrorStatus dxfOutFields(AcDbDxfFiler* filer) const override;
    Acad::ErrorStatus dxfInFields(AcDbDxfFiler* filer) override;

protected:
    /// `kind` is the library's number of the section class.
    explicit ZpObject(int kind);
    ZpObject(int kind, const AcGePoint3d& point, ZpVistas vista,
             std::initializer_list<double> values);
    ZpObject(int kind, const AcGePoint3d& start, const AcGePoint3d& end, ZpVistas vista,
             std::initializer_list<double> values);

    /// One constructor value by the library's number of its role. eNotApplicable when the class has
    /// none.
    Acad::ErrorStatus readValue(int role, double& value) const;
    Acad::ErrorStatus writeValue(int role, double value);

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
    /// One end gives the piece another length and direction. The listeners of an edit may refuse,
    /// and hear of it at the end of the command; eInvalidInput then, and no change.
    Acad::ErrorStatus subMoveGripPointsAt(const AcDbIntArray& indices,
                                          const AcGeVector3d& offset) override;
    /// The two ends of the axis; of a section and a plate the start point.
    Acad::ErrorStatus subGetStretchPoints(AcGePoint3dArray& points, AcDbIntArray& osnapModes,
                                          AcDbIntArray& geomIds) const override;
    /// As a grip.
    Acad::ErrorStatus subMoveStretchPointsAt(const AcDbIntArray& indices,
                                             const AcGeVector3d& offset) override;
    Acad::ErrorStatus subClose() override;

private:
    friend struct zp::Access;
    /// The start or the end of the axis. eInvalidInput, and no change, where that is refused.
    Acad::ErrorStatus moveOneEnd(bool start, const AcGeVector3d& offset);
    std::unique_ptr<zp::Peca> m_peca;
};
