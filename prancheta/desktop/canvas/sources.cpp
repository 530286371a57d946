// SPDX-License-Identifier: MIT
// What the sheet of the drawing area shows.
#include "prancheta/desktop/canvas/sources.h"

#include <QPainter>

#include <cmath>

#include "prancheta/display/appearance.h"
#include "prancheta/entities/viewports.h"
#include "prancheta/plot/painter.h"
#include "prancheta/plot/through.h"

namespace prancheta::desktop {
namespace {

/// An entity smaller than a frame is shown as its box, a side shorter than a dot as none (pixels).
constexpr double kDot = 1.5;
constexpr double kFrame = 4.0;
/// Boxes are looked at so many at a time between two looks at the clock.
constexpr unsigned kBoxesPerLook = 64;
/// A change of the selection by more than this repaints everything.
constexpr std::size_t kManyChanges = 500;
constexpr int kHighlightAlpha = 150;
constexpr double kHighlightWidth = 3.0;

constexpr double kLeastGridPixels = 12.0;
constexpr int kMajorEvery = 10;

/// Writes into an image of 32 bits a pixel, clipped to it.
class Pixels {
public:
    explicit Pixels(QImage& image)
        : m_bits(image.bits()),
          m_stride(image.bytesPerLine()),
          m_width(image.width()),
          m_height(image.height()) {}
    void row(int x1, int x2, int y, QRgb color) {
        if (y < 0 || y >= m_height) return;
        auto* const line = reinterpret_cast<QRgb*>(m_bits + m_stride * y);
        for (int x = std::max(x1, 0); x <= std::min(x2, m_width - 1); ++x) line[x] = color;
    }
    void column(int x, int y1, int y2, QRgb color) {
        if (x < 0 || x >= m_width) return;
        for (int y = std::max(y1, 0); y <= std::min(y2, m_height - 1); ++y)
            reinterpret_cast<QRgb*>(m_bits + m_stride * y)[x] = color;
    }
    /// One pixel in each column or row, whichever it passes more of.
    void line(const QPointF& a, const QPointF& b, QRgb color) {
        const QPointF v = b - a;
        const bool flat = std::abs(v.x()) >= std::abs(v.y());
        const double from = flat ? a.x() : a.y();
        const double to = flat ? b.x() : b.y();
        const double side = flat ? a.y() : a.x();
        const double slope = flat ? v.y() / v.x() : v.x() / v.y();
        const int last =
            static_cast<int>(std::min(std::max(from, to), flat ? m_width - 1.0 : m_height - 1.0));
        for (int i = static_cast<int>(std::max(0.0, std::min(from, to))); i <= last; ++i) {
            const int across = static_cast<int>(std::floor(side + (i - from) * slope));
            if (flat)
                row(i, i, across, color);
            else
                column(across, i, i, color);
        }
    }
    /// Outline of a box; a dot or a line when it is thin.
    void frame(const QRectF& box, QRgb color) {
        const int left = static_cast<int>(std::floor(box.left()));
        const int right = static_cast<int>(std::floor(box.right()));
        const int top = static_cast<int>(std::floor(box.top()));
        const int bottom = static_cast<int>(std::floor(box.bottom()));
        const bool flat = box.height() < kDot;
        const bool narrow = box.width() < kDot;
        row(left, narrow ? left : right, top, color);
        if (flat) return;
        column(left, top, bottom, color);
        if (narrow) return;
        row(left, right, bottom, color);
        column(right, top, bottom, color);
    }

private:
    uchar* m_bits;
    qsizetype m_stride;
    int m_width;
    int m_height;
};

QRectF mapped(const QTransform& t, const Box2d& box) {
    const double left = t.m11() * box.left + t.dx();
    const double top = t.m22() * box.top + t.dy();
    return {left, top, t.m11() * box.width(), -t.m22() * box.height()};
}

bool isSmall(const QRectF& box) { return std::max(box.width(), box.height()) < kFrame; }

}  // namespace

// --- The drawing --------------------------------------------------------------------------------

void DrawingSource::setEditor(Editor* editor) {
    m_editor = editor;
    m_selection.clear();
    m_selected.clear();
}

void DrawingSource::setSelection(const std::vector<AcDbObjectId>& ids, Sheet& sheet) {
    if (ids == m_selection) return;
    Set selected;
    selected.reserve(ids.size());
    for (const AcDbObjectId& id : ids) selected.insert(id.asOldId());
    std::vector<AcDbObjectId> changed;
    for (const AcDbObjectId& id : m_selection)
        if (!selected.contains(id.asOldId())) changed.push_back(id);
    for (const AcDbObjectId& id : ids)
        if (!isSelected(id)) changed.push_back(id);
    m_selection = ids;
    m_selected = std::move(selected);
    // Through a viewport the boxes are the model's.
    const bool through = !m_editor->spaces().viewport().isNull();
    if (changed.size() > kManyChanges || (through && !changed.empty())) return sheet.spoilAll();
    for (const AcDbObjectId& id : changed)
        sheet.spoil(boxOf(m_editor->display().picture(id).reach()));
}

/// The paper's edge, with a shadow.
void DrawingSource::paintSheetEdge(QImage& piece, const QTransform& toPiece) const {
    const Tab tab = tabOf(m_editor->database(), m_editor->spaces().tab());
    const QRectF edge = mapped(toPiece, sheetOf(tab));
    Pixels pixels(piece);
    const QRgb color = look.palette.cursor.rgb();
    pixels.frame(edge, color);
    pixels.frame(edge.translated(look.ratio * 2.0, look.ratio * 2.0), look.palette.gridMajor.rgb());
}

void DrawingSource::ground(QImage& piece, const QTransform& toPiece) {
    piece.fill(look.palette.ground);
    if (m_editor != nullptr && m_editor->spaces().onSheet()) return paintSheetEdge(piece, toPiece);
    if (!look.grid) return;
    // The spacing, ten times, a hundred times that keeps the lines apart; every tenth one is
    // stronger.
    const double least = kLeastGridPixels * look.ratio / toPiece.m11();
    const auto stepOf = [least](double spacing) {
        return spacing * std::pow(10.0, std::max(0.0, std::ceil(std::log10(least / spacing))));
    };
    const QTransform userToPiece = look.userToWorld * toPiece;
    const QRectF area = userToPiece.inverted().mapRect(QRectF(piece.rect()));
    Pixels pixels(piece);
    const auto lines = [&](double from, double to, double step, auto draw) {
        for (const bool major : {false, true}) {
            const QRgb color = (major ? look.palette.gridMajor : look.palette.grid).rgb();
            for (double k = std::ceil(from / step); k * step <= to; k += 1.0)
                if ((std::fmod(k, kMajorEvery) == 0.0) == major) draw(k * step, color);
        }
    };
    const auto between = [&](const QPointF& a, const QPointF& b, QRgb color) {
        pixels.line(userToPiece.map(a), userToPiece.map(b), color);
    };
    lines(area.left(), area.right(), stepOf(look.gridSpacing.width()), [&](double x, QRgb color) {
        between({x, area.top()}, {x, area.bottom()}, color);
    });
    lines(area.top(), area.bottom(), stepOf(look.gridSpacing.height()), [&](double y, QRgb color) {
        between({area.left(), y}, {area.right(), y}, color);
    });
}

DisplayList& DrawingSource::shownList() const {
    return m_editor->displayOf(m_editor->spaces().tab());
}

SheetSource::Items DrawingSource::items(const Box2d& area) {
    return m_editor != nullptr ? shownList().find(area) : Items();
}

QRgb DrawingSource::colorOf(AcDbObjectId layer) {
    PictureTraits traits;
    traits.layer = layer;
    const Appearance& appearance = m_editor->appearances().of(traits);
    if (appearance.followsGround) return look.palette.dark ? qRgb(255, 255, 255) : qRgb(0, 0, 0);
    return qRgb(appearance.color.red, appearance.color.green, appearance.color.blue);
}

bool DrawingSource::paint(QImage& piece, const QTransform& toPiece, const Items& items,
                          std::size_t& next, Clock::time_point until) {
    Pixels pixels(piece);  // before the painter, which shares the image from then on
    QPainter painter(&piece);
    PicturePainter::Settings settings;
    settings.toDevice = toPiece;
    settings.devicePerMillimetre = look.pixelsPerMillimetre * look.ratio;
    settings.darkGround = look.palette.dark;
    settings.ground = look.palette.ground;
    settings.lineWeights = look.lineWeights;
    settings.leastTextHeight = 3.0 * look.ratio;
    settings.leastDashPeriod = 4.0;
    PicturePainter pictures(painter, m_editor->appearances(), settings);
    QColor highlight = look.palette.highlight;
    highlight.setAlpha(kHighlightAlpha);
    const QPen pen(highlight, kHighlightWidth * look.ratio, Qt::SolidLine, Qt::RoundCap,
                   Qt::RoundJoin);
    DisplayList& display = shownList();
    const QRectF shown = toPiece.inverted().mapRect(QRectF(piece.rect()));
    const ThroughViewport through{
        settings,
        {shown.left(), shown.top(), shown.right(), shown.bottom()},
        {},
        [&](PicturePainter& model, const DisplayList::Item& item, const Picture& picture) {
            if (!isSelected(item.id)) return;
            model.flush();
            model.paintPlain(picture, pen);
        }};
    AcDbObjectId layer;
    QRgb color = 0;
    unsigned boxes = 0;
    for (; next < items.size(); ++next) {
        const DisplayList::Item& item = items[next];
        const QRectF box = mapped(toPiece, item.box);
        if (isSmall(box)) {
            if (++boxes % kBoxesPerLook == 0 && Clock::now() >= until) return false;
            if (color == 0 || item.layer != layer) color = colorOf(layer = item.layer);
            pixels.frame(box, isSelected(item.id) ? look.palette.highlight.rgb() : color);
            continue;
        }
        if (Clock::now() >= until) return false;
        const AcDbViewport* const viewport = viewportOf(item.id);
        if (viewport != nullptr) paintThrough(painter, *m_editor, *viewport, through);
        // The outline stands for the frame.
        if (viewport == nullptr || !viewport->isNonRectClipOn())
            pictures.paint(display.picture(item.id));
        if (isSelected(item.id)) pictures.paintPlain(display.picture(item.id), pen);
    }
    return true;
}

}  // namespace prancheta::desktop
