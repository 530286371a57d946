// SPDX-License-Identifier: MIT
// Plates that were moved along their bar, and the bar's dimensions that measured to them.
#pragma once

#include <vector>

#include "zp/objects/peca.h"

namespace zp {

/// All that happened to the plates in one command.
class MovedChapas {
public:
    /// Before the bar learns where the plate stands now. Both are readable.
    void note(const ZpObject& barra, const ZpObject& chapa);

    /// After all was learnt: a measured point that lay on an edge of such a plate goes along with
    /// it, where no plate has left an edge. The bars whose dimensions that concerns.
    std::vector<AcDbObjectId> takeCotasAlong() const;

private:
    struct Edge {
        double from;  ///< along the bar, mm
        double to;
    };
    struct Moved {
        AcDbObjectId barra;
        std::vector<Edge> edges;
    };
    std::vector<Moved> m_moved;
};

}  // namespace zp
