// SPDX-License-Identifier: MIT
// The polyline that PLINE is drawing.
#include "prancheta/editor/commands/pline_draft.h"

#include <cmath>

#include "dbpl.h"
#include "prancheta/database/database_core.h"
#include "prancheta/editor/commands/arcs.h"

namespace prancheta::commands {

namespace {

AcGePoint2d flat(const AcGePoint3d& p) { return {p.x, p.y}; }

/// Keeping the state before each segment would make a long polyline cost the square of its length.
class GrowingPolyline : public AcDbObjectPointer<AcDbPolyline> {
public:
    explicit GrowingPolyline(AcDbObjectId id) : AcDbObjectPointer(id, AcDb::kForWrite) {
        if (object() != nullptr) object()->database()->core().undo().willNotCancel(*object());
    }
};

}  // namespace

double PlineDraft::endDirection() const {
    if (segments() == 0) return 0.0;
    const Corner& from = m_corners[m_corners.size() - 2];
    return endDirectionOf(from.point, end(), from.bulge);
}

// A vertex says how the segment after it runs, which is known only now.
bool PlineDraft::leave(AcDbPolyline& polyline, double bulge, double startWidth, double endWidth) {
    const unsigned int last = static_cast<unsigned int>(segments());
    return polyline.addVertexAt(last + 1, flat(end()), bulge, startWidth, endWidth) == Acad::eOk &&
           polyline.removeVertexAt(last) == Acad::eOk;
}

bool PlineDraft::add(const AcGePoint3d& to, double bulge, double startWidth, double endWidth) {
    const AcGePoint3d corner(to.x, to.y, start().z);
    if (segments() == 0) {
        auto polyline = std::make_unique<AcDbPolyline>();
        (void)polyline->setElevation(start().z);  // a new entity takes any value
        (void)polyline->addVertexAt(0, flat(end()), bulge, startWidth, endWidth);
        (void)polyline->addVertexAt(1, flat(corner));
        m_id = addEntity(m_context, std::move(polyline));
        if (m_id.isNull()) return false;
    } else {
        const GrowingPolyline polyline(m_id);
        if (polyline.openStatus() != Acad::eOk ||
            !leave(*polyline.object(), bulge, startWidth, endWidth) ||
            polyline->addVertexAt(polyline->numVerts(), flat(corner)) != Acad::eOk)
            return false;
    }
    m_corners.back().bulge = bulge;
    m_corners.push_back({corner, 0.0});
    return true;
}

bool PlineDraft::removeLast() {
    if (segments() == 0) return false;
    if (segments() == 1) {
        if (eraseAll(m_context, {m_id}).empty()) return false;
    } else {
        const GrowingPolyline polyline(m_id);
        const unsigned int last = static_cast<unsigned int>(segments());
        if (polyline.openStatus() != Acad::eOk || polyline->removeVertexAt(last) != Acad::eOk ||
            polyline->setBulgeAt(last - 1, 0.0) != Acad::eOk)
            return false;
    }
    m_corners.pop_back();
    m_corners.back().bulge = 0.0;
    return true;
}

bool PlineDraft::close(double bulge, double startWidth, double endWidth) {
    const GrowingPolyline polyline(m_id);
    return polyline.openStatus() == Acad::eOk &&
           leave(*polyline.object(), bulge, startWidth, endWidth) &&
           polyline->setClosed(true) == Acad::eOk;
}

}  // namespace prancheta::commands
