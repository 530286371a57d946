// SPDX-License-Identifier: MIT
// The three schemes by which built-up members get their lacing plates.
#pragma once

#include "perfis/commands/medidas.h"
#include "perfis/output/chapas.h"

namespace perfis {

/// Planes in which a star of two angles is laced.
enum class TravejamentoPlanes { kHorizontal = 1, kVertical = 2, kBoth = 3 };

/// Width of a plate that is seen along its member before its lacing was edited for a whole one, mm.
inline constexpr double kUnknownLargura = 1.0;

/// A built-up member, open for write, that gets plates of thickness `medidas.t`.
struct BarraTravejada {
    ZpObject& peca;
    AcGePoint3d point;  ///< the piece's own
    ZpObject::ZpVistas vista;
    Medidas medidas;
    double C = 0.0;  ///< width of a plate, along the member, mm
    double A = 0.0;  ///< height of a plate, across the member, mm
    ChapaSpacing spacing;
    TravejamentoPlanes planes;
    ChapaSupply& supply;
};

/// One row of plates that lie on a face at `face` mm above the member's point.
LaidChapas layOnFace(const BarraTravejada& barra, double face);

/// Plates at both flanges, inside the height h. Seen from the side two rows, else one stands for
/// both.
LaidChapas layOnBothFlanges(const BarraTravejada& barra);

/// Horizontal and vertical plates through the axis, those of the chosen planes.
LaidChapas layThroughAxis(const BarraTravejada& barra);

}  // namespace perfis
