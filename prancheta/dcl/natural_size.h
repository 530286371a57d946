// SPDX-License-Identifier: MIT
// Smallest sizes of tiles, from their attributes, labels and kinds.
#pragma once

#include "prancheta/dcl/dialog.h"

namespace prancheta::dcl {

/// Pixels.
struct Size {
    double width = 0;
    double height = 0;
};

struct Insets {
    double left = 0;
    double top = 0;
    double right = 0;
    double bottom = 0;
};

/// All lengths in pixels.
class NaturalSizes {
public:
    explicit NaturalSizes(const Metrics& metrics) : m_metrics(metrics) {}

    /// Of a tile that holds no others.
    Size of(const Tile& tile) const;
    /// Of a cluster whose children need `inside`.
    Size ofCluster(const Tile& cluster, const Size& inside) const;

    /// Frame and title between a cluster's outside and its children.
    Insets insets(const Tile& cluster) const;
    /// Between neighbours, pixels.
    double gap(bool horizontal) const;

    /// Label of an edit box or popup with the gap that follows it.
    double labelRoom(const Tile& tile) const;
    /// Input part as `edit_width` asks for it, frame and arrow included; 0 when it takes what is
    /// left.
    double inputWidth(const Tile& tile) const;
    /// Label line above the rows of a list box.
    double titleHeight(const Tile& tile) const;

private:
    Size natural(const Tile& tile) const;
    Size imageSize(const Tile& tile) const;
    double labelWidth(const Tile& tile) const;
    double inputFrame(const Tile& tile) const;
    /// Own figures in characters, or what the front end's widget needs when that is more.
    double lineHeight(double lines, const Metrics::Widget& widget) const;
    double frameWidth(double characters, const Metrics::Widget& widget) const;
    double wide(double characters) const { return characters * m_metrics.characterWidth; }
    double high(double lines) const { return lines * m_metrics.characterHeight; }
    double given(const Tile& tile, const char* attribute) const;

    const Metrics& m_metrics;
};

}  // namespace prancheta::dcl
