// SPDX-License-Identifier: MIT
// Draws a picture again.
#include "prancheta/geometry/angles.h"
#include "prancheta/graphics/picture_recorder.h"

namespace prancheta {

namespace {

void apply(const PictureTraits& traits, AcGiSubEntityTraits& to) {
    to.setLayer(traits.layer);
    setColor(to, traits);
    to.setLineType(traits.linetype);
    to.setLineTypeScale(traits.linetypeScale);
    to.setLineWeight(traits.lineWeight);
    to.setSelectionMarker(traits.marker);
}

/// Bulges are told about z: another plane goes through a model transform.
void drawPline(const PrimitiveView& p, AcGiGeometry& to) {
    const auto count = static_cast<Adesk::UInt32>(p.points().size());
    const AcGeVector3d normal = p.normal();
    if (normal.isEqualTo(AcGeVector3d::kZAxis)) {
        to.pline(count, p.points().data(), p.bulges().data(), p.closed());
        return;
    }
    const AcGeMatrix3d plane = planeToWorld(normal);
    const AcGeMatrix3d back = plane.inverse();
    std::vector<AcGePoint3d> points(p.points().begin(), p.points().end());
    for (AcGePoint3d& point : points) point.transformBy(back);
    to.pushModelTransform(plane);
    to.pline(count, points.data(), p.bulges().data(), p.closed());
    to.popModelTransform();
}

}  // namespace

void setColor(AcGiSubEntityTraits& to, const PictureTraits& traits) {
    to.setColor(traits.color);
    if (const auto& rgb = traits.trueColor)
        to.setTrueColor(AcCmEntityColor(rgb->red, rgb->green, rgb->blue));
}

void replay(const Picture& picture, AcGiWorldDraw& draw) {
    AcGiSubEntityTraits& traits = draw.subEntityTraits();
    AcGiGeometry& to = draw.geometry();
    traits.setFillType(kAcGiFillAlways);
    const PictureTraits* applied = nullptr;
    for (const PrimitiveView p : picture) {
        if (applied != &p.traits()) apply(*(applied = &p.traits()), traits);
        const auto count = static_cast<Adesk::UInt32>(p.points().size());
        switch (p.kind()) {
            case PrimitiveKind::Polyline:
                to.polyline(count, p.points().data());
                break;
            case PrimitiveKind::Polygon:
                to.polygon(count, p.points().data());
                break;
            case PrimitiveKind::Circle:
                to.circle(p.center(), p.radius(), p.normal());
                break;
            case PrimitiveKind::Arc:
                to.circularArc(p.center(), p.radius(), p.normal(), p.start(), p.sweep());
                break;
            case PrimitiveKind::Text:
                to.text(p.position(), p.normal(), p.direction(), p.height(), p.widthFactor(),
                        p.oblique(), p.text());
                break;
            case PrimitiveKind::Pline:
                drawPline(p, to);
                break;
        }
    }
}

void replayAt(const Picture& picture, const AcGeMatrix3d& place, AcGiWorldDraw& draw) {
    Picture placed;
    PictureRecorder recorder(placed);
    recorder.begin({});
    recorder.setLetters(PictureRecorder::Letters::Mirrored);
    recorder.geometry().pushModelTransform(place);
    replay(picture, recorder);
    replay(placed, draw);
}

}  // namespace prancheta
