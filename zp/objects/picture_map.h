// SPDX-License-Identifier: MIT
// Where a point of a piece's picture goes when the sizes of the piece change.
#pragma once

#include <utility>
#include <vector>

#include "zp/objects/peca.h"

namespace zp {

/// From the picture of a piece to that of the same piece with other values, both in the piece's
/// frame. A coordinate on an edge or corner of the old section goes to the same edge of the new
/// one; one outside the picture keeps its distance from it; any other keeps its distance from the
/// nearest edge.
class PictureMap {
public:
    PictureMap(const Peca& before, const Peca& after);
    /// Where a place of the former piece is in the present one, piece coordinates.
    AcGeVector3d carry(const AcGeVector3d& point) const;
    /// The same for a point as a link holds it.
    LearntPoint carry(const LearntPoint& point) const;

private:
    struct Axis {
        double min0 = 0.0;
        double max0 = 0.0;
        double min1 = 0.0;
        double max1 = 0.0;
        std::vector<std::pair<double, double>> entries;  ///< old and new, the surest first
        /// The same of one coordinate.
        double carry(double c) const;
    };
    void pairSecao(const secao::Secao& before, const secao::Secao& after);
    void pairVista(const secao::Vista& before, const secao::Vista& after);

    double m_comprimento0;
    double m_comprimento1;
    bool m_longitudinal1;
    bool m_onlyInAltura;  ///< both are longitudinal: along the axis everything stays
    Axis m_x;
    Axis m_y;
};

}  // namespace zp
