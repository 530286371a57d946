// SPDX-License-Identifier: MIT
// Drawing: what an entity tells the host to show.
#pragma once

#include "acdb.h"
#include "dbid.h"
#include "gemat3d.h"

enum AcGiArcType { kAcGiArcSimple = 0, kAcGiArcSector = 1, kAcGiArcChord = 2 };
enum AcGiFillType { kAcGiFillAlways = 1, kAcGiFillNever = 2 };
enum AcGiRegenType {
    kAcGiStandardDisplay = 2,
    kAcGiHideOrShadeCommand = 3,
    kAcGiShadedDisplay = 4,
    kAcGiForExplode = 5,
    kAcGiSaveWorldDrawForProxy = 6,
};

/// A colour by its shares of red, green and blue.
class AcCmEntityColor {
public:
    AcCmEntityColor(Adesk::UInt8 red, Adesk::UInt8 green, Adesk::UInt8 blue)
        : m_red(red), m_green(green), m_blue(blue) {}
    Adesk::UInt8 red() const { return m_red; }
    Adesk::UInt8 green() const { return m_green; }
    Adesk::UInt8 blue() const { return m_blue; }

private:
    Adesk::UInt8 m_red, m_green, m_blue;
};

/// Properties of what is drawn next; reset to the entity's own before each subWorldDraw.
class AcGiSubEntityTraits {
public:
    virtual ~AcGiSubEntityTraits() = default;
    /// Colour index; 256 by layer, 0 by block.
    virtual void setColor(Adesk::UInt16 index) = 0;
    /// Goes over the index until the next setColor().
    virtual void setTrueColor(const AcCmEntityColor& color) = 0;
    virtual void setLayer(const AcDbObjectId& layer) = 0;
    virtual void setLineType(const AcDbObjectId& linetype) = 0;
    virtual void setLineTypeScale(double scale) = 0;
    virtual void setLineWeight(AcDb::LineWeight weight) = 0;
    virtual void setFillType(AcGiFillType type) = 0;
    virtual void setSelectionMarker(Adesk::GsMarker marker) = 0;
};

/// Primitives, in world coordinates unless a model transform is pushed. Each returns true to ask
/// the entity to stop drawing.
class AcGiGeometry {
public:
    virtual ~AcGiGeometry() = default;
    virtual Adesk::Boolean polyline(Adesk::UInt32 count, const AcGePoint3d* points,
                                    const AcGeVector3d* normal = nullptr,
                                    Adesk::LongPtr marker = -1) = 0;
    virtual Adesk::Boolean polygon(Adesk::UInt32 count, const AcGePoint3d* points) = 0;
    virtual Adesk::Boolean circle(const AcGePoint3d& center, double radius,
                                  const AcGeVector3d& normal) = 0;
    /// Counter-clockwise about the normal by `sweep` radians from `start`.
    virtual Adesk::Boolean circularArc(const AcGePoint3d& center, double radius,
                                       const AcGeVector3d& normal, const AcGeVector3d& start,
                                       double sweep, AcGiArcType type = kAcGiArcSimple) = 0;
    /// Left end of the baseline, baseline direction, height, width factor, oblique angle (radians).
    virtual Adesk::Boolean text(const AcGePoint3d& position, const AcGeVector3d& normal,
                                const AcGeVector3d& direction, double height, double width,
                                double oblique, const ACHAR* text) = 0;
    /// Lines and arcs in one piece: `bulges[i]` = tan(angle / 4) of the segment from vertex i,
    /// positive counter-clockwise about z. `closed` joins the last vertex to the first.
    virtual Adesk::Boolean pline(Adesk::UInt32 count, const AcGePoint3d* points,
                                 const double* bulges, bool closed) = 0;
    virtual Adesk::Boolean pushModelTransform(const AcGeMatrix3d& m) = 0;
    virtual Adesk::Boolean popModelTransform() = 0;
};
using AcGiWorldGeometry = AcGiGeometry;
using AcGiViewportGeometry = AcGiGeometry;

class AcGiCommonDraw {
public:
    virtual ~AcGiCommonDraw() = default;
    virtual AcGiRegenType regenType() const = 0;
    virtual bool regenAbort() const = 0;
    virtual bool isDragging() const = 0;
    virtual AcGiSubEntityTraits& subEntityTraits() const = 0;
};

class AcGiWorldDraw : public AcGiCommonDraw {
public:
    virtual AcGiWorldGeometry& geometry() const = 0;
};

class AcGiViewportDraw : public AcGiCommonDraw {
public:
    virtual AcGiViewportGeometry& geometry() const = 0;
};
