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
class Mapa {
public:
    Mapa(const Peca& antes, const Peca& depois);
    /// Where a place of the former piece is in the present one, piece coordinates.
    AcGeVector3d leva(const AcGeVector3d& ponto) const;
    /// The same for a point as a link holds it.
    PontoAprendido leva(const PontoAprendido& ponto) const;

private:
    struct Eixo {
        double min0 = 0.0;
        double max0 = 0.0;
        double min1 = 0.0;
        double max1 = 0.0;
        std::vector<std::pair<double, double>> marcas;  ///< old and new, the surest first
        /// The same of one coordinate.
        double leva(double c) const;
    };
    void marcaSecao(const secao::Secao& antes, const secao::Secao& depois);
    void marcaVista(const secao::Vista& antes, const secao::Vista& depois);

    double m_comprimento0;
    double m_comprimento1;
    bool m_longitudinal1;
    bool m_soEmAltura;  ///< both are longitudinal: along the axis everything stays
    Eixo m_x;
    Eixo m_y;
};

}  // namespace zp
