// SPDX-License-Identifier: MIT
// Painting of text tiles.
#include "prancheta/desktop/dialogs/text_tile.h"

#include <QPainter>
#include <QStyleOption>

#include "prancheta/dcl/layout.h"
#include "prancheta/dcl/tile_value.h"
#include "prancheta/desktop/dialogs/list_tiles.h"
#include "prancheta/desktop/dialogs/settings.h"

namespace prancheta::desktop {
namespace {

/// Red that reads on the ground.
QColor warningColor(const QPalette& palette) {
    const bool dark = qGray(palette.color(QPalette::Window).rgb()) < 128;
    return dark ? QColor(0xff, 0x8a, 0x80) : QColor(0xb3, 0x1b, 0x1b);
}

}  // namespace

TextTile::TextTile(const dcl::Tile& tile, const dcl::Metrics& dialog, const dcl::Tile* list,
                   QWidget* parent)
    : QWidget(parent), m_tile(tile), m_isMessage(tile.key == "error") {
    const bool fixed = dcl::flagAttribute(tile, "fixed_width_font");
    QFont shown = fixed ? fixedFont(font()) : font();
    if (dcl::flagAttribute(tile, "is_bold")) shown.setBold(true);
    setFont(shown);
    if (list != nullptr) m_columns.emplace(*list, dialog, shown);
    showTile();
}

void TextTile::showTile() {
    const QString label = QString::fromStdWString(dcl::labelText(m_tile));
    // A program that empties the text wants it empty; a label that it never touched stays.
    m_text = m_tile.value.empty() ? label : QString::fromStdWString(m_tile.value);
    setAccessibleName(m_text);
    const bool cut = fontMetrics().horizontalAdvance(m_text) > width();
    setToolTip(cut ? m_text : QString());
    update();
}

void TextTile::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const QPalette::ColorGroup group = isEnabled() ? QPalette::Active : QPalette::Disabled;
    painter.setPen(m_isMessage ? warningColor(palette())
                               : palette().color(group, QPalette::WindowText));
    // A title of columns stands over the cells, not over the frame of the list.
    if (m_columns)
        return m_columns->paintHeading(painter, rect().adjusted(kRowMargin, 0, 0, 0),
                                       m_text.toStdWString());
    const QString shown = fontMetrics().elidedText(m_text, Qt::ElideRight, width());
    painter.drawText(rect(), Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine, shown);
}

}  // namespace prancheta::desktop
