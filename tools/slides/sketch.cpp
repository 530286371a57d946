// SPDX-License-Identifier: MIT
// Strokes of a slide.
#include "sketch.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <numbers>

namespace tools {
namespace {

constexpr int kWidth = 399;
constexpr int kHeight = 299;
constexpr double kMargin = 34.0;
constexpr double kHead = 13.0;     // arrow head, pixels
constexpr double kCross = 15.0;    // half of an insertion mark's cross
constexpr double kSquare = 4.0;    // half of its square
constexpr double kArcStep = 0.12;  // radians a chord of an arc, at most

double radians(double degrees) { return degrees * std::numbers::pi / 180.0; }

}  // namespace

Sketch::Sketch(const Caixa& world) {
    m_slide.width = kWidth;
    m_slide.height = kHeight;
    m_slide.aspect = 4.0 / 3.0;
    m_scale = std::min((kWidth - 2 * kMargin) / world.largura(),
                       (kHeight - 2 * kMargin) / world.altura());
    m_dx = kWidth / 2.0 - m_scale * (world.x0 + world.x1) / 2.0;
    m_dy = kHeight / 2.0 - m_scale * (world.y0 + world.y1) / 2.0;
}

prancheta::slides::Pixel Sketch::toPixel(Ponto p) const {
    return {static_cast<std::int16_t>(std::lround(m_scale * p.x + m_dx)),
            static_cast<std::int16_t>(std::lround(m_scale * p.y + m_dy))};
}

Ponto Sketch::moved(Ponto p, double degrees, double pixels) const {
    return {p.x + pixel() * pixels * std::cos(radians(degrees)),
            p.y + pixel() * pixels * std::sin(radians(degrees))};
}

void Sketch::line(Ponto a, Ponto b, Cor cor) {
    m_slide.elements.push_back({static_cast<std::uint8_t>(cor), {toPixel(a), toPixel(b)}});
}

void Sketch::polygon(const std::vector<Ponto>& points, Cor cor) {
    prancheta::slides::Element element{static_cast<std::uint8_t>(cor), {}};
    for (const Ponto& p : points) element.points.push_back(toPixel(p));
    m_slide.elements.push_back(std::move(element));
}

void Sketch::dashed(Ponto a, Ponto b, Cor cor, double dash, double gap) {
    const double length = std::hypot(b.x - a.x, b.y - a.y) * m_scale;
    const auto at = [&](double pixels) {
        const double f = std::min(pixels / length, 1.0);
        return Ponto{a.x + f * (b.x - a.x), a.y + f * (b.y - a.y)};
    };
    for (double s = 0.0; s < length; s += dash + gap) line(at(s), at(s + dash), cor);
}

void Sketch::outline(const std::vector<Contorno>& contornos, Cor cor) {
    for (const Contorno& contorno : contornos) {
        for (const auto& segmento : contorno.segmentos) {
            const int chords =
                std::max(1, static_cast<int>(std::ceil(std::abs(segmento.varre) / kArcStep)));
            for (int i = 0; i < chords; ++i)
                line(segmento.ponto(static_cast<double>(i) / chords),
                     segmento.ponto((i + 1.0) / chords), cor);
        }
    }
}

void Sketch::mark(Ponto at, Cor cor) {
    for (const double degrees : {0.0, 90.0})
        line(moved(at, degrees, -kCross), moved(at, degrees, kCross), cor);
    const double s = kSquare * pixel();
    polygon(
        {{at.x - s, at.y - s}, {at.x + s, at.y - s}, {at.x + s, at.y + s}, {at.x - s, at.y + s}},
        cor);
}

void Sketch::arrow(Ponto tip, double degrees, double length, Cor cor) {
    line(moved(tip, degrees, -length), tip, cor);
    polygon({tip, moved(tip, degrees + 160.0, kHead), moved(tip, degrees - 160.0, kHead)}, cor);
}

void Sketch::text(std::string_view signs, Ponto at, double dx, double dy, Cor cor) {
    // Strokes in a 2 x 4 grid, as pairs of grid points.
    struct Stroke {
        int x1, y1, x2, y2;
    };
    static const std::map<char, std::vector<Stroke>> kSigns = {
        {'1', {{1, 0, 1, 4}, {1, 4, 0, 3}}},
        {'2', {{0, 4, 2, 4}, {2, 4, 2, 2}, {2, 2, 0, 2}, {0, 2, 0, 0}, {0, 0, 2, 0}}},
        {'3', {{0, 4, 2, 4}, {2, 4, 2, 0}, {2, 0, 0, 0}, {2, 2, 0, 2}}},
        {'4', {{0, 4, 0, 2}, {0, 2, 2, 2}, {2, 4, 2, 0}}},
        {'A', {{0, 0, 1, 4}, {1, 4, 2, 0}, {0, 1, 2, 1}}},
        {'C', {{2, 4, 0, 4}, {0, 4, 0, 0}, {0, 0, 2, 0}}},
        {'L', {{0, 4, 0, 0}, {0, 0, 2, 0}}},
    };
    constexpr double kGrid = 4.0;
    constexpr double kAdvance = 3 * kGrid;
    for (const char sign : signs) {
        const auto point = [&](int x, int y) {
            return Ponto{at.x + pixel() * (dx + kGrid * (x - 1)),
                         at.y + pixel() * (dy + kGrid * (y - 2))};
        };
        for (const Stroke& s : kSigns.at(sign)) line(point(s.x1, s.y1), point(s.x2, s.y2), cor);
        dx += kAdvance;
    }
}

}  // namespace tools
