// SPDX-License-Identifier: MIT
// Vectors of a section's outline in an image tile.
#include "perfis/commands/escala.h"

#include <algorithm>
#include <cmath>

#include "texts/number.h"
#include "zp/objects/peca.h"

namespace perfis {
namespace {

using zp::secao::Bounds;
using zp::secao::Outline;
using zp::secao::Point;
using zp::secao::RoleValues;
using zp::secao::Secao;
using enum zp::secao::Role;

constexpr const wchar_t* kTile = L"escala";
constexpr short kMargin = 6;         ///< pixels around the section
constexpr short kMark = 4;           ///< half of the cross at the insertion point
constexpr short kLineColor = 7;      // contrast to the ground
constexpr short kMarkColor = 1;      // red
constexpr double kChordAngle = 0.2;  ///< radians that one chord of an arc spans

/// From mm of the section plane to pixels, y down; one scale for both.
class ScaledImage {
public:
    ScaledImage(const Bounds& box, short width, short height)
        : m_centre{(box.x0 + box.x1) / 2.0, (box.y0 + box.y1) / 2.0},
          m_middle{width / 2.0, height / 2.0} {
        const double side = std::max(box.side(), 1e-9);
        m_scale = std::min(room(width) / std::max(box.largura(), side * 1e-6),
                           room(height) / std::max(box.altura(), side * 1e-6));
    }
    void line(const Point& a, const Point& b) const {
        (void)ads_vector_image(x(a), y(a), x(b), y(b), kLineColor);
    }
    void cross(const Point& at) const {
        const short cx = x(at);
        const short cy = y(at);
        (void)ads_vector_image(pixel(cx - kMark), pixel(cy - kMark), pixel(cx + kMark),
                               pixel(cy + kMark), kMarkColor);
        (void)ads_vector_image(pixel(cx - kMark), pixel(cy + kMark), pixel(cx + kMark),
                               pixel(cy - kMark), kMarkColor);
    }

private:
    static double room(short pixels) { return std::max(1.0, pixels - 2.0 * kMargin); }
    static short pixel(double value) { return static_cast<short>(std::lround(value)); }
    short x(const Point& p) const { return pixel(m_middle.x + (p.x - m_centre.x) * m_scale); }
    short y(const Point& p) const { return pixel(m_middle.y - (p.y - m_centre.y) * m_scale); }

    Point m_centre;
    Point m_middle;
    double m_scale = 1.0;
};

void drawOutline(const ScaledImage& image, const Outline& outline) {
    for (const zp::secao::Segment& segment : outline.segments) {
        const int chords = std::max(1, static_cast<int>(std::abs(segment.sweep) / kChordAngle));
        Point from = segment.a;
        for (int i = 1; i <= chords; ++i) {
            const Point to = i == chords ? segment.b : segment.point(1.0 * i / chords);
            image.line(from, to);
            from = to;
        }
    }
}

bool drawable(const Bounds& box) {
    return !box.empty() && std::isfinite(box.largura()) && std::isfinite(box.altura()) &&
           box.side() > 0.0;
}

std::unique_ptr<ZpObject> pieceOf(const PerfilDescription& description,
                                  const PecaRequest& request) {
    if (description.wrong(request.medidas) != nullptr) return nullptr;
    return makeAtPoint(description, AcGePoint3d::kOrigin, request);
}

void draw(const Secao& secao, const std::optional<Shift>& shift, short width, short height) {
    Bounds box = secao.bounds();
    const Point mark = shift ? Point{-shift->x, -shift->y} : Point{};
    if (shift) box.include(mark.x, mark.y);
    if (!drawable(box)) return;
    const ScaledImage image(box, width, height);
    for (const Outline& outline : secao.outlines()) drawOutline(image, outline);
    if (shift) image.cross(mark);
}

}  // namespace

void showEscala(ads_hdlg dialog, const PerfilDescription& description, const PecaRequest& request,
                const std::optional<Shift>& shift) {
    if (ads_start_image(dialog, kTile) != RTNORM) return;
    short width = 0;
    short height = 0;
    (void)ads_dimensions_tile(dialog, kTile, &width, &height);
    (void)ads_fill_image(0, 0, width, height, GRAPHICS_BACKGROUND);
    if (const std::unique_ptr<ZpObject> peca = pieceOf(description, request))
        draw(zp::Access::of(*peca).secao(), shift, width, height);
    (void)ads_end_image();
}

std::wstring warningsOf(const PerfilDescription& description, const PecaRequest& request) {
    const std::unique_ptr<ZpObject> peca = pieceOf(description, request);
    if (peca == nullptr) return {};
    const RoleValues v = zp::Access::of(*peca).roles();
    const Secao& secao = zp::Access::of(*peca).secao();
    std::wstring warnings;
    const auto warn = [&](const std::wstring& what) {
        warnings += (warnings.empty() ? L"" : L"; ") + what;
    };
    const double aba = std::abs(v[Aba]);
    const double bend = v[Ri] + v[T];
    if (aba > 0.0 && aba < bend)
        warn(L"aba de " + texts::withComma(aba) + L" menor que a dobra, de " +
             texts::withComma(bend));
    if (v[B1] > 0.0 && v[T] > v[B1] / 2.0) warn(L"espessura t acima de b/2");
    const double mesa = std::max(v[B1], std::min(v[Bc], v[Bb]));
    if (mesa > 0.0 && v[Tw] > mesa / 2.0) warn(L"alma tw acima de B/2");
    if (v[D] > 0.0 && v[Dint] < 0.0) warn(L"parede di acima de d/2: o tubo fica maciço");
    if (secao.invalid()) warn(L"com estas medidas o contorno da seção não fecha");
    return warnings;
}

}  // namespace perfis
