// SPDX-License-Identifier: MIT
// Draws pictures with a QPainter: paper, screen and preview alike.
#pragma once

#include <QPainter>
#include <QTransform>
#include <memory>

#include "prancheta/display/appearance.h"
#include "prancheta/graphics/picture.h"

namespace prancheta {

class LayerMarks;
class PenTable;

/// Works in the painter's coordinates as they are at each call, here called the device's pixels.
/// Pen, brush and font are left changed, the transform is not. Painter and table must outlive it;
/// after AppearanceTable::invalidate() a new one is needed.
class PicturePainter {
public:
    struct Settings {
        QTransform toDevice;  ///< from world to the device's pixels, y turned over; a similarity
        double devicePerMillimetre = 3.78;  ///< of line weights
        bool darkGround = false;            ///< colour 7 is white
        QColor ground = Qt::white;          ///< of areas that hide what lies under them
        bool monochrome = false;
        LayerMarks* layers = nullptr;    ///< of a file that has layers: told where each begins
        const PenTable* pens = nullptr;  ///< of paper; null: everything as it is; outlives the work
        bool lineWeights = true;         ///< false: everything `leastLineWidth` wide
        /// Pixels; thinner lines are drawn so wide.
        double leastLineWidth = 1.0;
        /// The device is a file of numbers: arcs stay curves and points are put on whole pixels,
        /// which are small there. Else arcs become chords. All within 0.1 pixel but for that.
        bool vector = false;
        /// Texts lower than this many pixels are drawn as a bar; 0 = never.
        double leastTextHeight = 0.0;
        /// Dash periods shorter than this many pixels are drawn continuous; 0 = never.
        double leastDashPeriod = 0.0;
    };

    PicturePainter(QPainter& painter, AppearanceTable& appearances, const Settings& settings);
    ~PicturePainter();
    PicturePainter(const PicturePainter&) = delete;
    PicturePainter& operator=(const PicturePainter&) = delete;

    /// Draws at once.
    void paint(const Picture& picture);
    /// The same, but what looks alike is gathered over many pictures until something looks
    /// different; flush() draws the rest and ends the layer. Drawing order is kept.
    void add(const Picture& picture);
    void flush();
    /// One colour and width for everything, for highlights, grips and previews.
    void paintPlain(const Picture& picture, const QPen& pen);

private:
    struct Impl;
    std::unique_ptr<Impl> m_impl;
};

}  // namespace prancheta
