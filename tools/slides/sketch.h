// SPDX-License-Identifier: MIT
// A slide being drawn in millimetres of a section, fitted into the recording area at the end.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "prancheta/slides/slide.h"
#include "zp/objects/secao/outline.h"

namespace tools {

using zp::secao::Caixa;
using zp::secao::Contorno;
using zp::secao::Ponto;

/// Colour indices of the pictures: outlines contrast with any background.
enum class Cor : std::uint8_t { Contorno = 7, Eixo = 1, Marca = 1, Oculta = 3, Seta = 3 };

/// Collects strokes and filled polygons. Dashes and marks are sized in pixels of the finished
/// slide, so all slides look alike whatever the size of the section.
class Sketch {
public:
    /// The box that is fitted into the picture, margins aside.
    explicit Sketch(const Caixa& world);

    void line(Ponto a, Ponto b, Cor cor);
    /// Dash and gap in pixels.
    void dashed(Ponto a, Ponto b, Cor cor, double dash, double gap);
    void outline(const std::vector<Contorno>& contornos, Cor cor);
    /// Cross and filled square on a point.
    void mark(Ponto at, Cor cor);
    /// Arrow whose head is at `tip`; direction in degrees, length in pixels.
    void arrow(Ponto tip, double degrees, double length, Cor cor);
    /// Digits 1 to 4 and letters A, C, L made of strokes, the middle of the first one at a distance
    /// in pixels from a point.
    void text(std::string_view signs, Ponto at, double dx, double dy, Cor cor);

    /// Drawing unit of one pixel.
    double pixel() const { return 1.0 / m_scale; }
    const prancheta::slides::Slide& slide() const { return m_slide; }

private:
    prancheta::slides::Pixel toPixel(Ponto p) const;
    Ponto moved(Ponto p, double degrees, double pixels) const;
    void polygon(const std::vector<Ponto>& points, Cor cor);

    prancheta::slides::Slide m_slide;
    double m_scale = 1.0;
    double m_dx = 0.0;
    double m_dy = 0.0;
};

}  // namespace tools
