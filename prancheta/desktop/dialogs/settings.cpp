// SPDX-License-Identifier: MIT
// Metrics from fonts and widgets.
#include "prancheta/desktop/dialogs/settings.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFontDatabase>
#include <QFontMetricsF>
#include <QLineEdit>
#include <QPushButton>
#include <QSlider>
#include <QStyle>

#include <cmath>

#include "prancheta/desktop/dialogs/accessible_tiles.h"
#include "prancheta/desktop/dialogs/run_dialog.h"

namespace prancheta::desktop {
namespace {

constexpr double kMoreBetweenColumns = 4;
constexpr double kTitleGap = 0.25;  // of a line
const QString kProbe = QStringLiteral("Texto");

/// Mean of A to Z and a to z, as the language defines its unit.
double meanLetter(const QFontMetricsF& metrics) {
    double sum = 0;
    for (char letter = 'A'; letter <= 'Z'; ++letter)
        sum += metrics.horizontalAdvance(QLatin1Char(letter)) +
               metrics.horizontalAdvance(QLatin1Char(static_cast<char>(letter - 'A' + 'a')));
    return sum / 52.0;
}

/// Widths are rounded up: a text drawn at whole pixels must not lose its last one.
std::function<double(std::wstring_view)> widthIn(const QFont& font) {
    return [metrics = QFontMetricsF(font)](std::wstring_view text) {
        const QString shown =
            QString::fromWCharArray(text.data(), static_cast<qsizetype>(text.size()));
        return std::ceil(metrics.horizontalAdvance(shown));
    };
}

/// What a widget that shows kProbe takes beyond it.
template <class W>
dcl::Metrics::Widget needOf(W& widget, const QWidget& like, double text) {
    widget.setFont(like.font());
    widget.setStyle(like.style());
    widget.ensurePolished();
    const QSize hint = widget.sizeHint();
    return {static_cast<double>(hint.height()), std::max(0.0, hint.width() - text)};
}

}  // namespace

DialogSettings& dialogSettings() {
    static DialogSettings theSettings;
    return theSettings;
}

QFont fixedFont(const QFont& like) {
    QFont font = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    if (like.pixelSize() > 0)
        font.setPixelSize(like.pixelSize());
    else
        font.setPointSizeF(like.pointSizeF());
    return font;
}

dcl::Metrics metricsOf(const QWidget& like) {
    const QFontMetricsF font(like.font());
    QFont bold = like.font();
    bold.setBold(true);
    dcl::Metrics metrics;
    metrics.characterWidth = meanLetter(font);
    metrics.characterHeight = std::ceil(font.lineSpacing());
    metrics.textWidth = widthIn(like.font());
    metrics.boldWidth = widthIn(bold);

    const QStyle* style = like.style();
    metrics.dialogMargin = style->pixelMetric(QStyle::PM_LayoutLeftMargin, nullptr, &like);
    metrics.fixedLine = std::ceil(QFontMetricsF(fixedFont(like.font())).lineSpacing());
    metrics.columnGap = style->pixelMetric(QStyle::PM_LayoutHorizontalSpacing, nullptr, &like) +
                        kMoreBetweenColumns;
    metrics.rowGap = style->pixelMetric(QStyle::PM_LayoutVerticalSpacing, nullptr, &like);
    metrics.titleGap = std::round(metrics.characterHeight * kTitleGap);

    const double text = font.horizontalAdvance(kProbe);
    QPushButton button(kProbe);
    QLineEdit edit;
    QComboBox popup;
    popup.addItem(kProbe);
    QCheckBox choice(kProbe);
    QSlider slider(Qt::Horizontal);
    metrics.button = {needOf(button, like, text).height, 0};
    metrics.edit = {needOf(edit, like, text).height, 0};
    metrics.popup = needOf(popup, like, text);
    metrics.choice = needOf(choice, like, text);
    metrics.slider = {needOf(slider, like, text).height, 0};
    return metrics;
}

void announceMetrics(const QWidget& like) {
    announceTiles();
    dialogSettings().font = like.font();
    dcl::setMetrics(metricsOf(like));
}

void announceHelp(std::function<void(QWidget& window, const QString& dialog)> help) {
    dialogSettings().help = std::move(help);
}

void announceGround(const QColor& ground) { dialogSettings().ground = ground; }

}  // namespace prancheta::desktop
