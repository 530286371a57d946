// SPDX-License-Identifier: MIT
// The plotted sheet.
#include "prancheta/plot/sheet.h"

#include <QPaintEngine>
#include <algorithm>
#include <unordered_map>

#include "dbsymtb.h"
#include "prancheta/base/text.h"
#include "prancheta/database/database_core.h"
#include "prancheta/display/appearance.h"
#include "prancheta/display/display_list.h"
#include "prancheta/display/visible_part.h"
#include "prancheta/editor/editor.h"
#include "prancheta/entities/viewports.h"
#include "prancheta/plot/lettering.h"
#include "prancheta/plot/painter.h"
#include "prancheta/plot/pen_table.h"
#include "prancheta/plot/through.h"

namespace prancheta {
namespace {

/// Half of the heaviest line weight: lines along the border of what is fitted keep their outer
/// half.
constexpr double kHalfPen = 1.06;

/// Millimetres; below it a line is hard to see on paper.
constexpr double kThinnestOnPaper = 0.05;
constexpr double kPlainOnPaper = 0.1;

/// Text lower than this many pixels is a grey smear anyway.
constexpr double kLeastTextHeight = 1.5;

double fitScale(const Box2d& area, double width, double height) {
    const double byWidth = area.width() > 0.0 ? width / area.width() : 1e300;
    const double byHeight = area.height() > 0.0 ? height / area.height() : 1e300;
    const double scale = std::min(byWidth, byHeight);
    return scale < 1e300 && scale > 0.0 ? scale : 1.0;
}

bool liesAcross(const PlotSettings& settings, const Box2d& area) {
    if (settings.orientation != PlotSettings::Orientation::Automatic)
        return settings.orientation == PlotSettings::Orientation::Landscape;
    return area.width() > area.height();
}

/// Layers that are shown on screen only; each is opened once.
class PlottedLayers {
public:
    bool has(AcDbObjectId layer) {
        const auto [entry, isNew] = m_known.try_emplace(layer.asOldId(), true);
        if (isNew) {
            const AcDbObjectPointer<AcDbLayerTableRecord> record(layer, AcDb::kForRead);
            if (record.openStatus() == Acad::eOk) entry->second = record->isPlottable();
        }
        return entry->second;
    }
    /// A mark for each of the picture's traits that stay off the paper; empty: all are plotted.
    std::vector<bool> missing(const Picture& picture) {
        const std::vector<PictureTraits>& traits = picture.allTraits();
        std::vector<bool> out;
        for (std::size_t i = 0; i < traits.size(); ++i) {
            if (has(traits[i].layer)) continue;
            out.resize(traits.size());
            out[i] = true;
        }
        return out;
    }

private:
    std::unordered_map<Adesk::LongPtr, bool> m_known;
};

bool isVector(const QPainter& painter) {
    const QPaintEngine* engine = painter.paintEngine();
    return engine != nullptr &&
           (engine->type() == QPaintEngine::Pdf || engine->type() == QPaintEngine::SVG);
}

PicturePainter::Settings painterSettings(const SheetLayout& layout, const QRectF& target,
                                         const PlotSettings& settings, bool vector) {
    const double perMillimetre = target.width() / layout.width;
    PicturePainter::Settings out;
    out.toDevice = layout.fromWorld * QTransform::fromScale(perMillimetre, perMillimetre) *
                   QTransform::fromTranslate(target.left(), target.top());
    out.devicePerMillimetre = perMillimetre;
    out.monochrome = settings.monochrome;
    if (const Result<PenTable>& pens = usualPens()) out.pens = &*pens;
    out.lineWeights = settings.lineWeights;
    out.vector = vector;
    out.leastLineWidth =
        !vector ? 1.0 : perMillimetre * (settings.lineWeights ? kThinnestOnPaper : kPlainOnPaper);
    out.leastTextHeight = vector ? 0.0 : kLeastTextHeight;
    return out;
}

constexpr double kFooterHeight = 2.0;  ///< mm, of capitals
constexpr double kFooterEdge = 3.0;  ///< mm from the paper's lower edge, when the margin is narrow

/// "1:10", "1:8,275"; empty for a layout, whose windows have scales of their own.
std::wstring footerScale(const Editor& editor, const SheetLayout& layout, AcDbObjectId space) {
    const AcDbDatabase& database = editor.database();
    const AcDbObjectId shown = space.isNull() ? database.currentSpaceId() : space;
    if (shown != database.core().modelSpaceId()) return {};
    const bool larger = layout.scale > 1.0;
    const QString number = QString::number(larger ? layout.scale : 1.0 / layout.scale, 'g', 4);
    const std::wstring words = QString(number).replace('.', ',').toStdWString();
    return L"   " + (larger ? words + L":1" : L"1:" + words);
}

/// "chapas.dxf   22/11/2026   1:10", in the middle of the lower margin.
void paintFooter(QPainter& painter, const QRectF& target, const Editor& editor,
                 const SheetLayout& layout, const PlotSettings& settings) {
    const double margin = settings.margin;
    const std::filesystem::path file = editor.file().name().filename();
    const std::wstring text = (file.empty() ? L"Desenho" : toWide(file.string())) + L"   " +
                              sheetDate() + footerScale(editor, layout, settings.space);
    const double perMillimetre = target.width() / layout.width;
    const LetteringFont font;
    const double size = kFooterHeight * perMillimetre / font.capHeight();
    const double edge = std::max(margin / 2.0 - kFooterHeight / 2.0, kFooterEdge);
    painter.save();
    painter.translate(target.left() + std::max(margin, 2.0 * kFooterEdge) * perMillimetre,
                      target.bottom() - edge * perMillimetre);
    painter.scale(size, size);
    painter.setFont(font.font());
    painter.setPen(Qt::black);
    painter.drawText(QPointF(), QString::fromStdWString(text));
    painter.restore();
}

DisplayList& displayOf(Editor& editor, const PlotSettings& settings) {
    return settings.space.isNull() ? editor.display() : editor.displayOf(settings.space);
}

}  // namespace

SheetLayout layoutSheet(Editor& editor, const PlotSettings& settings) {
    Box2d area = settings.area ? *settings.area : displayOf(editor, settings).extents();
    if (area.empty()) area = Box2d{0.0, 0.0, 0.0, 0.0};
    SheetLayout layout;
    layout.width = settings.paper.width;
    layout.height = settings.paper.height;
    if (liesAcross(settings, area)) std::swap(layout.width, layout.height);
    const QRectF printable =
        QRectF(0.0, 0.0, layout.width, layout.height)
            .adjusted(settings.margin, settings.margin, -settings.margin, -settings.margin);
    layout.scale =
        settings.scale ? *settings.scale : fitScale(area, printable.width(), printable.height());

    const QPointF middle = printable.center();
    layout.fromWorld = QTransform::fromTranslate(-(area.left + area.right) / 2.0,
                                                 -(area.bottom + area.top) / 2.0) *
                       QTransform::fromScale(layout.scale, -layout.scale) *
                       QTransform::fromTranslate(middle.x(), middle.y());
    const double spare = std::min(kHalfPen, settings.margin);
    layout.clip = printable.adjusted(-spare, -spare, spare, spare);
    if (settings.area) {
        const QRectF chosen(QPointF(area.left, area.bottom), QPointF(area.right, area.top));
        layout.clip &= layout.fromWorld.mapRect(chosen).adjusted(-spare, -spare, spare, spare);
    }
    const QRectF shown = layout.fromWorld.inverted().mapRect(layout.clip);
    layout.shown = Box2d{shown.left(), shown.top(), shown.right(), shown.bottom()};
    return layout;
}

void paintSheet(QPainter& painter, const QRectF& target, Editor& editor,
                const PlotSettings& settings, LayerMarks* layers) {
    const SheetLayout layout = layoutSheet(editor, settings);
    PicturePainter::Settings how = painterSettings(layout, target, settings, isVector(painter));
    how.layers = layers;
    const double perMillimetre = how.devicePerMillimetre;
    painter.save();
    painter.setClipRect(QTransform::fromScale(perMillimetre, perMillimetre)
                            .mapRect(layout.clip)
                            .translated(target.topLeft()),
                        Qt::IntersectClip);
    const AcDbObjectId space =
        settings.space.isNull() ? editor.database().currentSpaceId() : settings.space;
    const bool onSheet = space != editor.database().core().modelSpaceId();
    AppearanceTable appearances(editor.database(),
                                onSheet ? dashScaleOnSheet(editor.database()) : 1.0);
    PicturePainter pictures(painter, appearances, how);
    PlottedLayers plotted;
    const ThroughViewport through{
        how, layout.shown, [&](AcDbObjectId layer) { return !plotted.has(layer); }, {}};
    DisplayList& display = editor.displayOf(space);
    for (const DisplayList::Item& item : display.find(layout.shown)) {
        if (const AcDbViewport* const viewport = viewportOf(item.id)) {
            pictures.flush();
            paintThrough(painter, editor, *viewport, through);
            if (viewport->isNonRectClipOn()) continue;  // the outline stands for the frame
        }
        if (!plotted.has(item.layer)) continue;
        const Picture& picture = display.picture(item.id);
        const std::vector<bool> missing = plotted.missing(picture);
        if (missing.empty())
            pictures.add(picture);
        else
            pictures.add(visiblePart(picture, missing));
    }
    pictures.flush();
    painter.restore();
    if (settings.footer) paintFooter(painter, target, editor, layout, settings);
}

}  // namespace prancheta
