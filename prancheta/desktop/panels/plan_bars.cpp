// SPDX-License-Identifier: MIT
// Bars of cutting plans, drawn to scale one below the other.
#include "prancheta/desktop/panels/plan_bars.h"

#include <QAccessibleWidget>
#include <QHelpEvent>
#include <QPainter>
#include <QScrollBar>
#include <QToolTip>

#include <algorithm>

#include "prancheta/desktop/panels/text.h"

namespace prancheta::desktop {
namespace {

// Pixels.
constexpr int kMargin = 6;
constexpr int kBarHeight = 20;
constexpr int kGap = 8;

QString millimetres(double length) {
    QString text = commaText(length, 2);
    while (text.endsWith(u'0')) text.chop(1);
    if (text.endsWith(u',')) text.chop(1);
    return text;
}

QString wordsOf(const PlanBar& bar) {
    const QString kind = bar.leftOver ? QStringLiteral("retalho ") : QString();
    return QStringLiteral("%1 x %2%3").arg(bar.count).arg(kind, millimetres(bar.length));
}

QString useOf(const PlanBar& bar) {
    const QString use = QStringLiteral("aprov. %1 %").arg(commaText(100.0 * bar.utilisation, 1));
    return bar.rest > 0.0 ? use + QStringLiteral(", sobra ") + millimetres(bar.rest) : use;
}

QFont boldOf(QFont font) {
    font.setBold(true);
    return font;
}

/// Mark and length, or the mark alone, upright where the piece is narrow; nothing where there is no
/// room.
void paintWords(QPainter& painter, const QRectF& piece, const PlanCut& cut) {
    const QFontMetricsF metrics(painter.font());
    for (const QString& words : {cut.marca + u' ' + millimetres(cut.length), cut.marca})
        if (metrics.horizontalAdvance(words) + 4.0 <= piece.width())
            return painter.drawText(piece, Qt::AlignCenter, words);
    if (metrics.horizontalAdvance(cut.marca) > piece.height() || metrics.ascent() > piece.width())
        return;
    painter.save();
    painter.translate(piece.center());
    painter.rotate(-90.0);
    const QRectF turned(-0.5 * piece.height(), -0.5 * piece.width(), piece.height(), piece.width());
    painter.drawText(turned, Qt::AlignCenter | Qt::TextDontClip, cut.marca);
    painter.restore();
}

QAccessibleInterface* interfaceOf(const QString&, QObject* object) {
    auto* const bars = qobject_cast<PlanBars*>(object);
    return bars != nullptr ? new QAccessibleWidget(bars, QAccessible::Graphic) : nullptr;
}

}  // namespace

PlanBars::PlanBars(QWidget* parent) : QAbstractScrollArea(parent) {
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    viewport()->setBackgroundRole(QPalette::Base);
    QAccessible::installFactory(interfaceOf);  // the same one again changes nothing
    setAccessibleName(QStringLiteral("Barras do plano de corte"));
}

void PlanBars::setProducts(std::vector<PlanProduct> products) {
    m_products = std::move(products);
    m_longest = 1.0;
    for (const PlanProduct& product : m_products)
        for (const PlanBar& bar : product.bars) m_longest = std::max(m_longest, bar.length);
    layOut();
    verticalScrollBar()->setValue(0);
}

int PlanBars::room() const { return std::max(1, viewport()->width() - 2 * kMargin); }

void PlanBars::layOut() {
    m_items.clear();
    const QFontMetrics metrics = fontMetrics();
    const QFontMetrics bold(boldOf(font()));
    int y = kMargin;
    const auto add = [&](Item item) {
        const int text = item.bar != nullptr ? metrics.height()
                                             : (item.note ? metrics : bold)
                                                   .boundingRect(QRect(0, 0, room(), 0),
                                                                 Qt::TextWordWrap, *item.text)
                                                   .height();
        item.top = y;
        item.height = item.bar != nullptr ? text + kBarHeight : text;
        y += item.height + kGap;
        m_items.push_back(item);
    };
    for (const PlanProduct& product : m_products) {
        add({&product.line});
        for (const QString& note : product.notes) add({&note, nullptr, true});
        for (const PlanBar& bar : product.bars) add({nullptr, &bar});
    }
    verticalScrollBar()->setRange(0, std::max(0, y - viewport()->height()));
    verticalScrollBar()->setPageStep(viewport()->height());
    verticalScrollBar()->setSingleStep(metrics.height() + kBarHeight + kGap);
    viewport()->update();
}

void PlanBars::resizeEvent(QResizeEvent*) { layOut(); }

QRectF PlanBars::rectOf(const Item& item) const {
    const double top = item.top + item.height - kBarHeight - verticalScrollBar()->value();
    return {kMargin * 1.0, top, room() * item.bar->length / m_longest, kBarHeight * 1.0};
}

QRectF PlanBars::rectOf(std::size_t product, std::size_t bar) const {
    const PlanBar* const wanted = &m_products[product].bars[bar];
    return rectOf(*std::ranges::find(m_items, wanted, &Item::bar));
}

/// The first that ends below `y`.
std::vector<PlanBars::Item>::const_iterator PlanBars::itemAt(int y) const {
    return std::ranges::upper_bound(m_items, y, {},
                                    [](const Item& item) { return item.top + item.height; });
}

void PlanBars::paintEvent(QPaintEvent*) {
    QPainter painter(viewport());
    const int from = verticalScrollBar()->value();
    for (auto item = itemAt(from); item != m_items.end(); ++item) {
        if (item->top > from + viewport()->height()) return;
        if (item->bar != nullptr)
            paintBar(painter, *item);
        else
            paintText(painter, *item);
    }
}

void PlanBars::paintText(QPainter& painter, const Item& item) const {
    painter.save();
    if (item.note)
        painter.setPen(QColor(215, 50, 45));
    else
        painter.setFont(boldOf(font()));
    painter.drawText(QRect(kMargin, item.top - verticalScrollBar()->value(), room(), item.height),
                     Qt::TextWordWrap, *item.text);
    painter.restore();
}

void PlanBars::paintBar(QPainter& painter, const Item& item) const {
    const PlanBar& bar = *item.bar;
    const QRectF whole = rectOf(item);
    const QRectF text(kMargin, item.top - verticalScrollBar()->value(), room(),
                      item.height - kBarHeight);
    const QPalette& colors = palette();
    painter.setPen(colors.color(QPalette::Text));
    painter.drawText(text, Qt::AlignLeft, wordsOf(bar));
    painter.drawText(text, Qt::AlignRight, useOf(bar));
    // What is no piece: trims, saw cuts and the rest.
    painter.fillRect(whole, QBrush(colors.color(QPalette::Mid), Qt::BDiagPattern));
    const double scale = whole.width() / bar.length;
    for (const PlanCut& cut : bar.cuts) {
        const QRectF piece(whole.left() + cut.at * scale, whole.top(), cut.length * scale,
                           whole.height());
        painter.fillRect(piece, colors.color(QPalette::AlternateBase));
        painter.drawRect(piece);
        paintWords(painter, piece, cut);
    }
    painter.drawRect(whole);
}

QString PlanBars::tipAt(const QPoint& at) const {
    const int y = at.y() + verticalScrollBar()->value();
    const auto item = itemAt(y);
    if (item == m_items.end() || item->bar == nullptr || y < item->top) return {};
    const PlanBar& bar = *item->bar;
    const QRectF whole = rectOf(*item);
    const double along = (at.x() - whole.left()) * bar.length / whole.width();
    for (const PlanCut& cut : bar.cuts)
        if (whole.contains(at) && along >= cut.at && along <= cut.at + cut.length)
            return QStringLiteral("%1: %2 mm").arg(cut.marca, millimetres(cut.length));
    return wordsOf(bar) + QStringLiteral(": ") + bar.words;
}

bool PlanBars::viewportEvent(QEvent* event) {
    if (event->type() != QEvent::ToolTip) return QAbstractScrollArea::viewportEvent(event);
    const auto* const help = static_cast<QHelpEvent*>(event);
    QToolTip::showText(help->globalPos(), tipAt(help->pos()), viewport());
    return true;
}

}  // namespace prancheta::desktop
