// SPDX-License-Identifier: MIT
// Pictures without what some of their traits draw.
#include "prancheta/display/visible_part.h"

namespace prancheta {
namespace {

void add(const PrimitiveView& p, Picture& to) {
    switch (p.kind()) {
        case PrimitiveKind::Polyline:
            return to.addPolyline(p.traits(), p.points());
        case PrimitiveKind::Polygon:
            return to.addPolygon(p.traits(), p.points());
        case PrimitiveKind::Circle:
            return to.addCircle(p.traits(), p.center(), p.radius(), p.normal());
        case PrimitiveKind::Arc:
            return to.addArc(p.traits(), p.center(), p.radius(), p.normal(), p.start(), p.sweep());
        case PrimitiveKind::Text:
            return to.addText(p.traits(), p.position(), p.normal(), p.direction(), p.height(),
                              p.widthFactor(), p.oblique(), p.text());
        case PrimitiveKind::Pline:
            return to.addPline(p.traits(), p.points(), p.bulges(), p.closed(), p.normal());
    }
}

}  // namespace

Picture visiblePart(const Picture& picture, const std::vector<bool>& hidden) {
    Picture part;
    for (const PrimitiveView p : picture)
        if (!hidden[p.traitsIndex()]) add(p, part);
    return part;
}

}  // namespace prancheta
