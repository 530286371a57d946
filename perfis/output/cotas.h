// SPDX-License-Identifier: MIT
// Automatic dimensions of a new piece.
#pragma once

#include <vector>

#include "perfis/entities/zpobject.h"

namespace perfis {

/// Distances of dimension lines, times the drawing scale.
inline constexpr double kNearLine = 10.0;
inline constexpr double kFarLine = 17.0;

/// An aligned dimension, in world coordinates.
struct CotaLine {
    AcGePoint3d from;
    AcGePoint3d to;
    AcGePoint3d line;  ///< a point on the dimension line
    bool isEmpty() const { return from == to; }
};

/// Lays out the aligned dimensions of one piece from its limit points and makes them.
class PecaCotas {
public:
    /// `origin` is the piece's reference point, `faces` its four limit points: upper left, lower
    /// left, upper right, lower right. For the drawing's scale, or another one.
    PecaCotas(const AcGePoint3d& origin, const AcGePoint3d (&faces)[4], double scale);

    /// From `from` to `to`, the line passing through `line`.
    void add(const AcGePoint3d& from, const AcGePoint3d& to, const AcGePoint3d& line);
    /// W: lower edge, line below.
    void largura();
    /// V: left edge, line to the left.
    void altura();
    /// T: from the upper right corner down by `espessura`, line to the right.
    void espessura(double espessura);

    /// Limit point 0 to 3.
    const AcGePoint3d& face(int index) const { return m_faces[index]; }
    /// Point of the picture relative to the reference point.
    AcGePoint3d at(double x, double y) const;
    /// For which they are laid out.
    double scale() const { return m_scale; }
    /// Vector (x, y) in drawing units.
    static AcGeVector3d by(double x, double y) { return {x, y, 0.0}; }
    /// Vector (x, y) times the drawing scale, from a point to its dimension line.
    AcGeVector3d off(double x, double y) const { return by(x * m_scale, y * m_scale); }

    /// All that were laid out, empty ones too.
    const std::vector<CotaLine>& lines() const { return m_lines; }
    /// Puts them in the drawing. A dimension between equal points is not made.
    std::vector<AcDbObjectId> make() const;

private:
    AcGePoint3d m_origin;
    AcGePoint3d m_faces[4];
    double m_scale;
    std::vector<CotaLine> m_lines;
};

}  // namespace perfis
