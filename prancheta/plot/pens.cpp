// SPDX-License-Identifier: MIT
// Pens for appearances.
#include "prancheta/plot/pens.h"

#include <algorithm>
#include <cmath>

#include "prancheta/plot/pen_table.h"

namespace prancheta {
namespace {

/// Luminance, of 1, that a line may have on white to be seen well.
constexpr double kLightest = 0.3;

/// As dark as it has to be on white, in its own hue.
QColor darkened(const Rgb& color) {
    const auto linear = [](std::uint8_t share) { return std::pow(share / 255.0, 2.2); };
    const double luminance =
        0.2126 * linear(color.red) + 0.7152 * linear(color.green) + 0.0722 * linear(color.blue);
    const double factor = luminance > kLightest ? std::pow(kLightest / luminance, 1.0 / 2.2) : 1.0;
    const auto share = [factor](std::uint8_t full) {
        return static_cast<int>(std::lround(full * factor));
    };
    return {share(color.red), share(color.green), share(color.blue)};
}

QColor colorOf(const Appearance& appearance, const PicturePainter::Settings& settings) {
    if (settings.monochrome || appearance.followsGround)
        return settings.darkGround ? Qt::white : Qt::black;
    if (!settings.darkGround) return darkened(appearance.color);
    return {appearance.color.red, appearance.color.green, appearance.color.blue};
}

/// Mixed with the white of the paper.
QColor screened(const QColor& ink, double screen) {
    const auto mixed = [screen](int share) {
        return static_cast<int>(std::lround(255.0 - screen * (255 - share)));
    };
    return {mixed(ink.red()), mixed(ink.green()), mixed(ink.blue())};
}

/// Lengths in pen widths, as QPen wants them. A dot becomes a dash as long as the pen is wide, at
/// the cost of the gap behind it.
QList<qreal> dashesOf(const std::vector<double>& lengths, double scale, double width) {
    QList<qreal> out;
    double owed = 0.0;
    for (std::size_t i = 0; i < lengths.size(); ++i) {
        const double pixels = std::abs(lengths[i]) * scale;
        const bool down = i % 2 == 0;
        const double drawn = down ? std::max(pixels, width) : std::max(pixels - owed, 0.0);
        owed = down ? drawn - pixels : 0.0;
        out.append(drawn / width);
    }
    if (out.size() % 2 != 0) out.append(0.0);
    return out;
}

}  // namespace

Pens::Pens(const PicturePainter::Settings& settings, double scale)
    : m_settings(settings), m_scale(scale) {}

std::size_t Pens::of(const Appearance& appearance) {
    const auto [entry, isNew] = m_known.try_emplace(&appearance, m_pens.size());
    if (isNew) {
        QPen pen = make(appearance);
        // Layers that look alike share a pen; there are few of them.
        const auto same = std::find(m_pens.begin(), m_pens.end(), pen);
        entry->second = static_cast<std::size_t>(same - m_pens.begin());
        if (same == m_pens.end()) m_pens.push_back(std::move(pen));
    }
    return entry->second;
}

std::size_t Pens::ofGround() {
    if (!m_ground) {
        m_ground = m_pens.size();
        m_pens.emplace_back(m_settings.ground);
    }
    return *m_ground;
}

QPen Pens::make(const Appearance& appearance) const {
    const PlotPen* const pen =
        m_settings.pens != nullptr ? m_settings.pens->of(appearance) : nullptr;
    QColor ink = colorOf(appearance, m_settings);
    if (pen != nullptr && pen->ink && !m_settings.monochrome)
        ink = QColor(pen->ink->red, pen->ink->green, pen->ink->blue);
    if (pen != nullptr) ink = screened(ink, pen->screen);
    const double millimetres =
        pen != nullptr && pen->lineWeight ? *pen->lineWeight : appearance.lineWeight;
    const double weight =
        m_settings.lineWeights ? millimetres * m_settings.devicePerMillimetre : 0.0;
    const double width = std::max(weight, m_settings.leastLineWidth);
    // Flat ends keep dashes true to their length, and thin lines on the fast way of the screen.
    const double period = appearance.dashPeriod * m_scale;
    const bool dashed =
        !appearance.dashes.empty() && period > 0.0 && period >= m_settings.leastDashPeriod;
    const bool flat = dashed || width <= 1.0;
    QPen out(ink, width, Qt::SolidLine, flat ? Qt::FlatCap : Qt::RoundCap,
             flat ? Qt::BevelJoin : Qt::RoundJoin);
    if (dashed) out.setDashPattern(dashesOf(appearance.dashes, m_scale, width));
    return out;
}

}  // namespace prancheta
