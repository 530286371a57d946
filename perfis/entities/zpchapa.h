// SPDX-License-Identifier: MIT
// Plates.
#pragma once

#include "perfis/entities/zpobject.h"

/// Rectangular plate: d1 = largura (along the member), d2 = espessura, d3 = height, which is also
/// its getComprimentoReal. rot1 and rot2 (0 or -pi/2) tell with the view which face is drawn:
/// view 0 on edge (d1 x d2, centred on the axis line), view 4 with (0, -pi/2) flat (d1 x d3, below
/// the line), view 4 with (0, 0) on edge in a section (d3 x d2, above the line).
class ZpChapa : public ZpObject {
public:
    ACRX_DECLARE_MEMBERS(ZpChapa);
    ZpChapa();
    ZpChapa(const AcGePoint3d& origin, ZpVistas vista, double d1, double d2, double d3, double rot1,
            double rot2);

    Acad::ErrorStatus espessura(double& value) const;
    Acad::ErrorStatus largura(double& value) const;
    /// mm3.
    double getVolume() const;
};
