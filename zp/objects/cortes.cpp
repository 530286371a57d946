// SPDX-License-Identifier: MIT
// A cut is a linear function over the section: lengths are its extremes, volumes its mean.
#include "zp/objects/cortes.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "texts/number.h"

namespace zp::cortes {
namespace {

constexpr double kDegree = std::numbers::pi / 180.0;
/// Less is square, and no difference; radians.
constexpr double kLeastAngle = 0.01 * kDegree;
/// What has to be left of the shortest fibre, mm.
constexpr double kShortestFibre = 1e-6;
/// Reaches nearer than this are one, mm.
constexpr double kSameReach = 1e-9;

bool cuttable(const Peca& p) { return !p.inSecao() && !p.chapa(); }

double giroOf(const Peca& p) {
    const double giro = p.roles()[secao::Role::Giro];
    return std::isfinite(giro) ? giro : 0.0;
}

secao::Point turned(double x, double y, double angle) {
    const double c = std::cos(angle);
    const double s = std::sin(angle);
    return {c * x - s * y, s * x + c * y};
}

/// Growth of the reach in the section as it is turned.
secao::Point inSection(const Peca& p, const Corte& corte) {
    if (p.chapa() || !(p.comprimento > 0.0) || corte == Corte()) return {};
    return turned(corte.x, corte.y, giroOf(p));
}

/// Of both ends together: what every fibre is longer than the axis.
secao::Point both(const Peca& p) {
    const secao::Point a = inSection(p, p.cortes[kStart]);
    const secao::Point b = inSection(p, p.cortes[kEnd]);
    return {a.x + b.x, a.y + b.y};
}

double most(const Peca& p, const secao::Point& growth) {
    if (growth.x == 0.0 && growth.y == 0.0) return 0.0;
    const secao::Point at = secao::furthest(p.secao().outlines(), growth);
    return growth.x * at.x + growth.y * at.y;
}

/// Edge of the view that is nearest to height w.
secao::VistaPoint edgeNear(const Peca& p, double w) {
    const std::vector<secao::Level>& levels = p.secao().vista(p.vista).levels;
    const auto nearest = std::ranges::min_element(
        levels, {}, [w](const secao::Level& level) { return std::abs(level.w - w); });
    return nearest != levels.end() ? secao::VistaPoint{nearest->w, nearest->p}
                                   : secao::VistaPoint{w, 0.0};
}

Fibre fibreThrough(const Peca& p, const secao::VistaPoint& at) {
    const auto reach = [&](std::size_t end) {
        const Slope slope = slopeOf(p, end);
        return slope.w * at.w + slope.p * at.p;
    };
    return {at.w, -reach(kStart), p.comprimento + reach(kEnd)};
}

}  // namespace

Slope slopeOf(const Peca& p, std::size_t end) {
    if (p.inSecao()) return {};
    const secao::Point growth = inSection(p, p.cortes[end]);
    const secao::VistaPoint seen = secao::see(p.vista, growth);
    const auto withoutDust = [](double v) { return std::abs(v) < 1e-12 ? 0.0 : v; };
    return {withoutDust(seen.w), withoutDust(seen.p)};
}

double angleOf(const Peca& p, std::size_t end) {
    const double angle = std::atan(slopeOf(p, end).w);
    return p.mirrored && angle != 0.0 ? -angle : angle;
}

double degreesOf(const Peca& p, std::size_t end) { return angleOf(p, end) / kDegree; }

double depthDegreesOf(const Peca& p, std::size_t end) {
    return std::atan(slopeOf(p, end).p) / kDegree;
}

Corte withSlope(const Peca& p, const Slope& slope) {
    const secao::VistaPoint x = secao::see(p.vista, {1.0, 0.0});
    const secao::VistaPoint y = secao::see(p.vista, {0.0, 1.0});
    const secao::Point body =
        turned(slope.w * x.w + slope.p * x.p, slope.w * y.w + slope.p * y.p, -giroOf(p));
    return {body.x, body.y};
}

Corte withAngle(const Peca& p, std::size_t end, double angle) {
    const double w = std::abs(angle) < kLeastAngle ? 0.0 : std::tan(p.mirrored ? -angle : angle);
    return withSlope(p, {w, slopeOf(p, end).p});
}

Corte withDepthAngle(const Peca& p, std::size_t end, double angle) {
    const double depth = std::abs(angle) < kLeastAngle ? 0.0 : std::tan(angle);
    return withSlope(p, {slopeOf(p, end).w, depth});
}

bool oblique(const Peca& p) { return !p.chapa() && p.cortes != std::array<Corte, 2>(); }

Reach reachOver(const Peca& p, std::size_t end, const secao::VistaPoint& a,
                const secao::VistaPoint& b) {
    const Slope slope = slopeOf(p, end);
    const auto [w0, w1] = std::minmax({slope.w * a.w, slope.w * b.w});
    const auto [p0, p1] = std::minmax({slope.p * a.p, slope.p * b.p});
    return {w0 + p0, w1 + p1};
}

double edgeAt(const Peca& p, std::size_t end, double w) {
    if (slopeOf(p, end).square()) return 0.0;
    const secao::Bounds& box = p.secao().bounds();
    return reachOver(p, end, {w, secao::see(p.vista, {box.x0, box.y0}).p},
                     {w, secao::see(p.vista, {box.x1, box.y1}).p})
        .most;
}

double furthest(const Peca& p, std::size_t end) { return most(p, inSection(p, p.cortes[end])); }

Fibre fibreAt(const Peca& p, double w) { return fibreThrough(p, edgeNear(p, w)); }

Fibre longestFibre(const Peca& p, double w) {
    const secao::Point growth = both(p);
    if (std::hypot(growth.x, growth.y) <= 1e-12) return fibreAt(p, w);
    const secao::Point most = secao::furthest(p.secao().outlines(), growth);
    const Fibre exact = fibreThrough(p, secao::see(p.vista, most));
    // Of a whole face the edge that is seen.
    const Fibre seen = fibreAt(p, exact.w);
    return seen.to - seen.from < exact.to - exact.from - kSameReach ? exact : seen;
}

std::array<secao::Point, 4> corners(const Peca& p) {
    const secao::Bounds box = p.picture();
    if (!cuttable(p) || !oblique(p))
        return {{{box.x0, box.y1}, {box.x0, box.y0}, {box.x1, box.y1}, {box.x1, box.y0}}};
    const Fibre upper = fibreAt(p, box.y1);
    const Fibre lower = fibreAt(p, box.y0);
    return {
        {{upper.from, upper.w}, {lower.from, lower.w}, {upper.to, upper.w}, {lower.to, lower.w}}};
}

bool onEnd(const Peca& p, const AcGeVector3d& point) {
    if (!cuttable(p) || !(p.comprimento > 0.0)) return false;
    const double beyond = point.x - p.comprimento;
    const auto at = [&](double x) { return std::abs(beyond - x) <= 1e-6 * p.comprimento; };
    return at(0.0) ||
           (p.cortes[kEnd] != Corte() && (at(furthest(p, kEnd)) || at(edgeAt(p, kEnd, point.y)) ||
                                          at(longestFibre(p, point.y).to - p.comprimento)));
}

double longest(const Peca& p) { return p.comprimento + most(p, both(p)); }

double mean(const Peca& p) {
    const secao::Point growth = both(p);
    if (growth.x == 0.0 && growth.y == 0.0) return p.comprimento;
    const secao::Properties& s = p.secao().properties();
    return p.comprimento + growth.x * s.xg + growth.y * s.yg;
}

double netMass(const Peca& p) { return p.kgMetro() * mean(p) * 1e-3; }

std::wstring fault(const Peca& p) {
    const secao::Point growth = both(p);
    const double least = most(p, {-growth.x, -growth.y});
    if (p.comprimento - least > kShortestFibre || (growth.x == 0.0 && growth.y == 0.0)) return {};
    return L"Os cortes das duas pontas se encontram: com estes ângulos a peça precisa de mais de " +
           texts::withComma(least, 1) + L" mm no eixo. Diminua um dos ângulos ou alongue a peça.";
}

bool same(const Peca& a, const Peca& b) {
    return std::ranges::equal(a.cortes, b.cortes, [](const Corte& u, const Corte& v) {
        return std::abs(std::atan(u.x) - std::atan(v.x)) <= kLeastAngle &&
               std::abs(std::atan(u.y) - std::atan(v.y)) <= kLeastAngle;
    });
}

}  // namespace zp::cortes
