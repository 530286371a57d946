// SPDX-License-Identifier: MIT
// Draws dimensions.
#include <cmath>

#include "prancheta/entities/arrow_head.h"
#include "prancheta/entities/block_content.h"
#include "prancheta/entities/common.h"
#include "prancheta/entities/dimension_layout.h"
#include "prancheta/entities/filed_dimension.h"
#include "prancheta/entities/picture_entities.h"
#include "prancheta/graphics/picture_recorder.h"

namespace prancheta {

namespace {

using Kind = DimensionPart::Kind;

/// A colour of the style; by block it is the dimension's own.
class ColorScope {
public:
    ColorScope(AcGiWorldDraw& draw, const AcDbDimension& dimension, Adesk::Int16 color)
        : m_traits(draw.subEntityTraits()), m_own(traitsOf(dimension)) {
        if (color != 0)
            m_traits.setColor(static_cast<Adesk::UInt16>(color));
        else
            setColor(m_traits, m_own);
    }
    ~ColorScope() { setColor(m_traits, m_own); }
    ColorScope(const ColorScope&) = delete;
    ColorScope& operator=(const ColorScope&) = delete;

private:
    AcGiSubEntityTraits& m_traits;
    PictureTraits m_own;
};

/// Arrow blocks are drawn at size 1, their tip at the origin and pointing along x.
void arrow(const DimensionPart& part, const DimensionLayout& layout, const AcDbDimension& dimension,
           AcGiWorldDraw& draw) {
    const AcDbDimStyleValues& style = layout.style;
    const AcGeVector3d towards = part.a - part.b;
    const double size = layout.sizes.arrow;
    if (style.dimtsz > 0.0) {
        const AcGeVector3d stroke = (AcGeVector3d::kXAxis + AcGeVector3d::kYAxis) * size;
        AcGeVector3d turned = stroke;
        turned.rotateBy(angleInPlane(towards, AcGeVector3d::kZAxis), AcGeVector3d::kZAxis);
        const AcGePoint3d ends[2] = {part.a - turned, part.a + turned};
        draw.geometry().polyline(2, ends);
        return;
    }
    const AcDbObjectId block = style.dimsah == 0 ? style.dimblk
                               : part.end == 0   ? style.dimblk1
                                                 : style.dimblk2;
    if (block.isNull() || block.isErased())
        return drawArrowHead(part.a, towards, size, AcGeVector3d::kZAxis, draw.geometry());
    AcGeMatrix3d place;
    const AcGeVector3d along = towards * size;
    place.setCoordSystem(part.a, along, AcGeVector3d::kZAxis.crossProduct(along),
                         AcGeVector3d::kZAxis * size);
    PictureTraits traits = traitsOf(dimension);
    if (style.dimclrd != 0) {
        traits.color = static_cast<Adesk::UInt16>(style.dimclrd);
        traits.trueColor.reset();
    }
    Picture picture = blockPicture(block, traits);
    picture.transform(place);
    replay(picture, draw);
}

void part(const DimensionPart& each, AcGiGeometry& to) {
    if (each.kind == Kind::Arc) {
        to.circularArc(each.a, each.a.distanceTo(each.b), AcGeVector3d::kZAxis, each.b - each.a,
                       each.sweep);
        return;
    }
    const AcGePoint3d points[2] = {each.a, each.b};
    to.polyline(2, points);
}

}  // namespace

void drawDimension(const AcDbDimension& dimension, AcGiWorldDraw& draw) {
    if (const FiledDimension* const filed = dimension.filed())
        return replay(blockPicture(filed->block, traitsOf(dimension)), draw);
    DimensionLayout layout(dimension);
    dimension.layOut(layout);
    for (const DimensionPart& each : layout.parts) {
        const bool extension = each.kind == Kind::Extension;
        const ColorScope color(draw, dimension,
                               extension ? layout.style.dimclre : layout.style.dimclrd);
        if (each.kind == Kind::Arrow)
            arrow(each, layout, dimension, draw);
        else
            part(each, draw.geometry());
    }
    const ColorScope color(draw, dimension, layout.style.dimclrt);
    const double height = layout.sizes.textHeight;
    const AcGeVector3d up = AcGeVector3d::kZAxis.crossProduct(layout.reading);
    const AcGePoint3d middle = layout.userPosition ? dimension.textPosition() : layout.textMiddle;
    draw.geometry().text(middle - layout.reading * (layout.textLength / 2.0) - up * (height / 2.0),
                         AcGeVector3d::kZAxis, layout.reading, height, 1.0, 0.0,
                         layout.text.c_str());
}

}  // namespace prancheta
