// SPDX-License-Identifier: MIT
// From the drawing to the drawing area and back.
#pragma once

#include <QPointF>
#include <QRectF>
#include <QTransform>

#include "prancheta/editor/editor.h"

namespace prancheta::desktop {

/// What a matrix does in the plane.
inline QTransform flat(const AcGeMatrix3d& m) {
    return {m.entry[0][0], m.entry[1][0], m.entry[0][1],
            m.entry[1][1], m.entry[0][3], m.entry[1][3]};
}

/// Plan view of the world's XY plane. Screen points are logical pixels from the area's top left.
class Viewport {
public:
    Viewport() = default;
    Viewport(const View& view, const QSizeF& size)
        : m_centre(view.centre), m_size(size), m_unit(view.height / size.height()) {}

    /// Drawing units of one logical pixel.
    double unit() const { return m_unit; }
    /// Pixels, y down.
    QPointF toScreen(const AcGePoint3d& p) const {
        return {m_size.width() / 2.0 + (p.x - m_centre.x) / m_unit,
                m_size.height() / 2.0 - (p.y - m_centre.y) / m_unit};
    }
    /// Drawing units, z 0.
    AcGePoint3d toWorld(const QPointF& p) const {
        return {m_centre.x + (p.x() - m_size.width() / 2.0) * m_unit,
                m_centre.y - (p.y() - m_size.height() / 2.0) * m_unit, 0.0};
    }
    /// To pixels of which `ratio` make a logical one.
    QTransform transform(double ratio = 1.0) const {
        const double k = ratio / m_unit;
        return {k,
                0.0,
                0.0,
                -k,
                m_size.width() / 2.0 * ratio - m_centre.x * k,
                m_size.height() / 2.0 * ratio + m_centre.y * k};
    }

private:
    AcGePoint3d m_centre;
    QSizeF m_size{1.0, 1.0};
    double m_unit = 1.0;
};

}  // namespace prancheta::desktop
