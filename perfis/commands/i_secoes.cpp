// SPDX-License-Identifier: MIT
// Dimensions of I sections with two equal flanges.
#include "perfis/commands/i_secoes.h"

namespace perfis {

void cotaISecao(PecaCotas& d, const Medidas& m) {
    const AcGePoint3d upper = d.face(0);
    const AcGePoint3d lower = d.face(1);
    const AcGePoint3d middle = lower + d.by(m.b / 2.0, 0.0);
    const AcGePoint3d below = lower + d.off(0.0, -kNearLine);
    d.add(lower, middle, below);
    d.add(middle, d.face(3), below);
    d.add(lower, d.face(3), lower + d.off(0.0, -kFarLine));
    d.add(d.face(2), d.face(3), d.face(3) + d.off(kNearLine, 0.0));
    d.add(upper, upper - d.by(0.0, m.t), upper + d.off(-kNearLine, 0.0));
    const AcGePoint3d web(middle.x, upper.y - m.h / 2.0, upper.z);
    const AcGePoint3d beside(upper.x - kNearLine * d.scale(), web.y, web.z);
    d.add(web - d.by(m.a / 2.0, 0.0), web + d.by(m.a / 2.0, 0.0), beside);
}

}  // namespace perfis
