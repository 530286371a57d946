// SPDX-License-Identifier: MIT
// A picture of the drawing that follows the view: painted piece by piece while there is time.
//
// Moving shifts what is there and leaves strips to paint; a change of scale shows it stretched and
// paints it anew. A piece is painted aside and appears when it is complete, so that nothing half
// drawn is seen. Cost of a change of view: one copy of the picture.
#pragma once

#include <QImage>
#include <QRegion>
#include <QTransform>

#include <chrono>
#include <optional>
#include <vector>

#include "prancheta/display/display_list.h"

namespace prancheta::desktop {

using Clock = std::chrono::steady_clock;

/// What a sheet shows.
class SheetSource {
public:
    using Items = std::vector<DisplayList::Item>;
    virtual ~SheetSource() = default;
    /// Draws what lies below all items on a fresh piece.
    virtual void ground(QImage& piece, const QTransform& toPiece) = 0;
    /// What stands in a part of the world, in drawing order.
    virtual Items items(const Box2d& area) = 0;
    /// Draws on from items[next] until there is no time left; true when all is drawn.
    virtual bool paint(QImage& piece, const QTransform& toPiece, const Items& items,
                       std::size_t& next, Clock::time_point until) = 0;
};

class Sheet {
public:
    explicit Sheet(QImage::Format format) : m_format(format) {}

    /// Shows another part of the world. `size` in pixels.
    void show(const QTransform& toDevice, const QSize& size, const QColor& beyond);
    /// What is seen there is no longer true.
    void spoil(const Box2d& world);
    void spoilAll();
    bool complete() const { return m_dirty.isEmpty(); }
    /// Paints what is missing, from `focus` outwards, until there is no time left.
    void paint(SheetSource& source, Clock::time_point until, const QPoint& focus);
    const QImage& image() const { return m_image; }

private:
    /// Being painted, aside.
    struct Piece {
        QRect rect;
        QTransform toPiece;
        QImage image;
        SheetSource::Items items;
        std::size_t next = 0;
    };
    void shift(int dx, int dy);
    void stretch(const QTransform& toDevice, const QSize& size, const QColor& beyond);
    void begin(SheetSource& source, const QPoint& focus);
    void place(const Piece& piece);

    QImage::Format m_format;
    QTransform m_toDevice;
    QImage m_image;
    QImage m_spare;  // the other one of a stretch
    QRegion m_dirty;
    std::optional<Piece> m_piece;
};

}  // namespace prancheta::desktop
