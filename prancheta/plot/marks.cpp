// SPDX-License-Identifier: MIT
// Marks in files.
#include "prancheta/plot/marks.h"

#include "prancheta/base/text.h"

namespace prancheta {

void drawMark(QPainter& painter, Mark kind, const QPointF& first, const QPointF& second,
              const QPolygonF& outline) {
    painter.setPen(QPen(QColor(1, 2, 3), 7.0 + static_cast<double>(kind)));
    QPolygonF points({{kMark, static_cast<double>(kind)}, first, second});
    painter.drawPolyline(points << outline);
}

std::size_t LayerMarks::numberOf(const std::wstring& name) {
    const auto [entry, isNew] = m_numbers.try_emplace(foldCase(name), m_names.size());
    if (isNew) m_names.push_back(name);
    return entry->second;
}

void LayerMarks::begin(QPainter& painter, std::size_t number) {
    if (number == m_open) return;
    end(painter);
    m_open = number;
    drawMark(painter, Mark::LayerBegin, {static_cast<double>(number), 0.0});
}

void LayerMarks::end(QPainter& painter) {
    if (m_open != kNone) drawMark(painter, Mark::LayerEnd);
    m_open = kNone;
}

}  // namespace prancheta
