// SPDX-License-Identifier: MIT
// ZpObjectJig: drags the end of a new piece.
#pragma once

#include <memory>

#include "dbjig.h"
#include "perfis/entities/zpobject.h"

namespace perfis {

/// Stretches and turns a piece about its start point until the user gives the end point.
class ZpObjectJig : public AcEdJig {
public:
    /// The piece is not resident yet.
    explicit ZpObjectJig(std::unique_ptr<ZpObject> peca);
    ~ZpObjectJig() override;

    /// Runs the drag. kNormal: the piece is in the drawing and closed; otherwise it is gone.
    DragStatus run();

    DragStatus sampler() override;
    Adesk::Boolean update() override;
    AcDbEntity* entity() const override;

private:
    ZpObject* m_peca;  ///< owned until the drag ends
    AcGePoint3d m_current;
    AcGePoint3d m_shown;  ///< where the last update put the end
    bool m_updated = false;
};

}  // namespace perfis
