// SPDX-License-Identifier: MIT
// One builder per class over the blocks.
#include "zp/objects/secao/assembly.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "zp/objects/secao/blocks.h"
#include "zp/objects/secao/torsion.h"

namespace zp::secao {
namespace {

using enum Role;
constexpr double kPi = std::numbers::pi;
constexpr double kRoot2 = std::numbers::sqrt2;
/// Area of the fillet in a right corner over r^2.
constexpr double kRightFillet = 1.0 - 0.25 * kPi;
/// cot(phi/2) - (pi - phi)/2 for phi = pi/2 + atan(1/6): area of the fillet in a tapered corner
/// over r^2.
const double kTaperFillet = [] {
    const double phi = 0.5 * kPi + std::atan(1.0 / 6.0);
    return 1.0 / std::tan(0.5 * phi) - 0.5 * (kPi - phi);
}();

Assembly one(Block block, double torsion) {
    return {{std::move(block.loop)}, block.invalid, torsion, 0.0};
}

/// Two pieces of equal torsion.
Assembly two(Block first, Block second, double torsion) {
    const bool invalid = first.invalid || second.invalid;
    return {{std::move(first.loop), std::move(second.loop)}, invalid, 2.0 * torsion, 0.0};
}

Assembly withHalfTurn(const Block& block, double torsion) {
    Block other = block;
    halfTurn(other.loop);
    return two(block, std::move(other), torsion);
}

Assembly withMirror(const Block& block, double torsion) {
    Block other = block;
    mirror(other.loop);
    return two(block, std::move(other), torsion);
}

double finite(double v) { return std::isfinite(v) ? std::clamp(v, -1e9, 1e9) : 0.0; }

MedidasU medidasU(const RoleValues& d, double aba) {
    const double b2 = d[B2] != 0.0 ? d[B2] : d[B1];
    return {d[H], d[B1], b2, d[T], d[Ri], d[Ang1], d[Ang2], aba};
}

/// Outside width of two pieces of width b, at least that of the pieces touching.
double totalLargura(double w, double b) { return std::max(finite(w), 2.0 * finite(b)); }

Loop circle(double d, bool hole) { return {{}, hole, 0.5 * d, {}}; }

struct Radii {
    double root = 0.0;
    double toe = 0.0;
};

/// As the table prints them; where it prints only the area, toes of half the root that make up for
/// what the legs lack. Many a table has the area of the bare legs: those are drawn sharp.
Radii lRadii(const RoleValues& d) {
    const double t = finite(d[T]);
    Radii radii{d[Ri], 0.0};
    if (d.printed.root >= 0.0) {
        radii.root = d.printed.root;
    } else if (d.printed.area > 0.0) {
        const double b = d[B1] != 0.0 ? d[B1] : d[H];
        const double rest = d.printed.area - t * (finite(d[H]) + finite(b) - t);
        radii.root = rest > 0.0 ? std::min(std::sqrt(2.0 * rest / kRightFillet), 2.0 * t) : 0.0;
    }
    radii.toe = d.printed.toe >= 0.0 ? d.printed.toe : 0.5 * std::max(0.0, finite(radii.root));
    radii.toe = std::min(radii.toe, t);
    return radii;
}

double lTorsion(const RoleValues& d) {
    const double b = d[B1] != 0.0 ? d[B1] : d[H];
    return torsionOfL(finite(d[H]), finite(b), finite(d[T]), std::max(0.0, finite(lRadii(d).root)));
}

Block lLaminado(const RoleValues& d) {
    const Radii radii = lRadii(d);
    return cantoneiraLaminada(d[H], d[B1] != 0.0 ? d[B1] : d[H], d[T], radii.root, radii.toe);
}

/// Rolled angle with the heel lower left, legs b to the right and h up: the mirror image in y of
/// the standing one.
Block lStanding(const RoleValues& d) {
    Block l = lLaminado(d);
    mirror(l.loop);
    halfTurn(l.loop);
    return l;
}

/// One rolled U of a section of n equal ones, web back on x = 0.
struct OneU {
    Block block;
    double torsion;
    double tf;  ///< at mid overhang
};

OneU oneU(const RoleValues& d, int n) {
    const double b2 = d[B2] != 0.0 ? d[B2] : d[B1];
    const bool tabled = d.printed.root >= 0.0;
    const double root = tabled ? d.printed.root : d[Ri];
    // Fillets and toes of the table are no part of the flanges' mean thickness.
    const double toe = tabled && d.printed.toe < 0.0 ? 0.5 * root : d.printed.toe;
    const double rounded = tabled ? 2.0 * kTaperFillet * (root * root - toe * toe) : 0.0;
    const double area = (d.printed.area > 0.0 ? d.printed.area : finite(d[A]) / n) - rounded;
    const double tfUpper = meanFlange(area, d[H], d[B1], b2, d[T], d[Tf1]);
    const double tfLower = meanFlange(area, d[H], d[B1], b2, d[T], d[Tf2]);
    const double b = 0.5 * (finite(d[B1]) + finite(b2));
    const double tf = 0.5 * (tfUpper + tfLower);
    const double t = finite(d[T]);
    const double j = torsionOfU({finite(d[H]), b, tf, t, std::max(0.0, finite(root)),
                                 std::min(halfFlangeFall(b, t), 2.0 * tf / 3.0)});
    return {uLaminado({d[H], d[B1], b2, d[T], tfUpper, tfLower, root, toe}), j, tf};
}

double rolledRoot(const RoleValues& d, double divisor) {
    const double b = finite(d[B1]);
    const double web = finite(d[H]) - 2.0 * finite(d[Tf1]);
    const double room = std::max(0.0, 0.5 * std::min(b - finite(d[Tw]), web));
    if (d.printed.root >= 0.0) return std::min(d.printed.root, room);
    const double area = d.printed.area > 0.0 ? d.printed.area : finite(d[A]);
    const double rest = area - 2.0 * b * finite(d[Tf1]) - web * finite(d[Tw]);
    return rest > 0.0 ? std::min(std::sqrt(rest / divisor), room) : 0.0;
}

}  // namespace

double meanFlange(double area, double h, double bUpper, double bLower, double t, double declared) {
    const double aba = finite(bUpper) + finite(bLower) - 2.0 * finite(t);
    if (!(finite(area) > 0.0) || !(aba > 0.0)) return finite(declared);
    const double tf = (finite(area) - finite(h) * finite(t)) / aba;
    return std::max(0.5 * finite(t), std::min(tf, 0.25 * finite(h)));
}

double effectiveAba(double aba, double t) {
    return std::abs(finite(aba)) > finite(t) ? finite(aba) : 0.0;
}

Assembly assembly::none(const RoleValues&) { return {}; }

Assembly assembly::uDobradoSingle(const RoleValues& d) {
    Block u = uDobrado(medidasU(d, d[Aba]));
    move(u.loop, -finite(d[B1]) / 3.0, 0.0);
    const double j = torsionOfStrip(area(u.loop), d[T]);
    return one(std::move(u), j);
}

Assembly assembly::z(const RoleValues& d) {
    Block b = zDobrado(d[H], d[B1], d[Aba], d[T], d[Ri], d[Ang1], d[Ang2]);
    const double j = torsionOfStrip(area(b.loop), d[T]);
    return one(std::move(b), j);
}

Assembly assembly::cartolaSingle(const RoleValues& d) {
    Block b = cartola(d[H], d[B1], d[T], d[Ri], d[Aba]);
    const double j = torsionOfStrip(area(b.loop), d[T]);
    return one(std::move(b), j);
}

Assembly assembly::cantoneira(const RoleValues& d) {
    Block b = cantoneiraDobrada(d[H], d[B1], d[T], d[Ri], d[Ang1]);
    move(b.loop, -finite(d[B1]) / 3.0, finite(d[H]) / 3.0);
    const double j = torsionOfStrip(area(b.loop), d[T]);
    return one(std::move(b), j);
}

Assembly assembly::caixaDobrado(const RoleValues& d) {
    Block u = uDobrado(medidasU(d, std::max(0.0, finite(d[Aba]))));
    const double w = totalLargura(d[Vao], d[B1]);
    const double j = torsionOfStrip(area(u.loop), d[T]);
    const bool closed = w <= 2.0 * finite(d[B1]);
    const double outer = closed ? 2.0 * outerOutline(u) : 0.0;
    move(u.loop, -0.5 * w, 0.0);
    Assembly m = withHalfTurn(u, j);
    m.outerOutline = outer;
    if (closed) {
        const double t = finite(d[T]);
        m.torsion =
            torsionOfCell({w - t, finite(d[H]) - t, t, t, std::max(0.0, finite(d[Ri])) + 0.5 * t});
    }
    return m;
}

Assembly assembly::tuboRetangular(const RoleValues& d) {
    const double h = d[H];
    const double b = d[B1];
    const double t = d[T];
    const double ri = d.printed.root >= 0.0 ? d.printed.root : std::max(0.0, finite(d[Ri]));
    const bool hollow = t > 0.0 && 2.0 * t < std::min(h, b);
    Block outside = rectangle(b, h, hollow ? ri + t : 0.0, false);
    Assembly m{{outside.loop}, outside.invalid || !hollow, 0.0, 0.0};
    if (!hollow) return m;
    Block hole = rectangle(b - 2.0 * t, h - 2.0 * t, ri, true);
    m.loops.push_back(std::move(hole.loop));
    const double radius = 0.5 * (m.loops[0].vertices[0].radius + m.loops[1].vertices[0].radius);
    m.torsion = torsionOfCell({b - t, h - t, t, t, radius});
    return m;
}

Assembly assembly::redondo(const RoleValues& d) {
    const double outside = std::max(0.0, finite(d[D]));
    const double inside = finite(d[Dint]);
    if (!(outside > 0.0)) return {{rectangle(0.0, 0.0, 0.0, false).loop}, true, 0.0, 0.0};
    Assembly m{{circle(outside, false)}, inside >= outside, 0.0, 0.0};
    const bool hollow = inside > 0.0 && inside < outside;
    if (hollow) m.loops.push_back(circle(inside, true));
    const auto polar = [](double diameter) { return kPi * std::pow(diameter, 4) / 32.0; };
    m.torsion = polar(outside) - (hollow ? polar(inside) : 0.0);
    return m;
}

Assembly assembly::bn(const RoleValues& d) {
    Block l = lLaminado(d);
    rotate(l.loop, 0.25 * kPi);
    move(l.loop, 2.0 * finite(d[E]), 0.0);
    return one(std::move(l), lTorsion(d));
}

Assembly assembly::cantLaminada(const RoleValues& d) {
    Block l = lLaminado(d);
    move(l.loop, -finite(d[Ex]), finite(d[H]) - finite(d[Ey]));
    return one(std::move(l), lTorsion(d));
}

Assembly assembly::caixaOfCantoneiras(const RoleValues& d) {
    Block l = lStanding(d);
    const double t = finite(d[T]);
    const double q = l.invalid ? 0.0 : lRadii(d).toe;
    const double outer = 2.0 * (finite(d[H]) + finite(d[B1]) + t + 0.5 * kPi * q);
    move(l.loop, -0.5 * finite(d[B1]), -0.5 * (finite(d[H]) + t));
    Assembly m = withHalfTurn(l, lTorsion(d));
    m.outerOutline = outer;
    m.torsion = torsionOfCell({finite(d[B1]) - t, finite(d[H]), t, t});
    return m;
}

Assembly assembly::uLaminadoSingle(const RoleValues& d) {
    OneU u = oneU(d, 1);
    move(u.block.loop, -finite(d[Ex]), 0.0);
    return one(std::move(u.block), u.torsion);
}

Assembly assembly::tDobrada(const RoleValues& d) {
    Block l = cantoneiraDobrada(d[H], d[B1], d[T], d[Ri], 0.5 * kPi);
    const double j = torsionOfStrip(area(l.loop), d[T]);
    move(l.loop, 0.5 * finite(d[Vao]), finite(d[H]) / 3.0);
    return withMirror(l, j);
}

Assembly assembly::uOfDobradas(const RoleValues& d) {
    Block l = cantoneiraDobrada(d[H], d[B1], d[T], d[Ri], 0.5 * kPi);
    const double j = torsionOfStrip(area(l.loop), d[T]);
    move(l.loop, -0.5 * totalLargura(d[Vao], d[B1]), finite(d[H]) / 3.0);
    return withMirror(l, j);
}

Assembly assembly::xDobrado(const RoleValues& d) {
    Block l = cantoneiraDobrada(d[H], d[B1], d[T], d[Ri], 0.5 * kPi);
    const double j = torsionOfStrip(area(l.loop), d[T]);
    // The bend, not the unrounded heel, touches the gap.
    const double radius = l.loop.vertices[0].radius;
    rotate(l.loop, 0.25 * kPi);
    move(l.loop, 0.5 * finite(d[Vao]) - radius * (kRoot2 - 1.0), 0.0);
    return withMirror(l, j);
}

Assembly assembly::tLaminada(const RoleValues& d) {
    Block l = lLaminado(d);
    move(l.loop, 0.5 * finite(d[Vao]), finite(d[H]) - finite(d[Ey]));
    return withMirror(l, lTorsion(d));
}

Assembly assembly::uOfLaminadas(const RoleValues& d) {
    Block l = lLaminado(d);
    move(l.loop, -0.5 * totalLargura(d[Vao], d[B1]), finite(d[H]) - finite(d[Ey]));
    return withMirror(l, lTorsion(d));
}

Assembly assembly::bnDouble(const RoleValues& d) {
    Block l = lLaminado(d);
    rotate(l.loop, 0.25 * kPi);
    move(l.loop, 0.5 * finite(d[Vao]), 0.0);
    return withMirror(l, lTorsion(d));
}

Assembly assembly::cruz(const RoleValues& d) {
    Block l = lStanding(d);
    move(l.loop, 0.5 * finite(d[Vao]), 0.5 * finite(d[VaoV]));
    return withHalfTurn(l, lTorsion(d));
}

Assembly assembly::zOfLaminadas(const RoleValues& d) {
    Block l = lLaminado(d);
    mirror(l.loop);
    move(l.loop, -0.5 * finite(d[Vao]), 0.5 * (finite(d[H]) + finite(d[VaoV])));
    return withHalfTurn(l, lTorsion(d));
}

Assembly assembly::uULaminado(const RoleValues& d) {
    OneU u = oneU(d, 2);
    const double w = totalLargura(d[Vao], d[B1]);
    move(u.block.loop, -0.5 * w, 0.0);
    Assembly m = withHalfTurn(u.block, u.torsion);
    const double t = finite(d[T]);
    if (w <= 2.0 * finite(d[B1])) m.torsion = torsionOfCell({w - t, finite(d[H]) - u.tf, t, u.tf});
    return m;
}

Assembly assembly::doisULaminado(const RoleValues& d) {
    OneU u = oneU(d, 2);
    move(u.block.loop, 0.5 * finite(d[Vao]), 0.0);
    return withHalfTurn(u.block, u.torsion);
}

Assembly assembly::iDobrado(const RoleValues& d) {
    const double aba = std::abs(finite(d[Aba]));
    Block u = uDobrado(medidasU(d, d[Species] == 1.0 ? -aba : aba));
    const double j = torsionOfStrip(area(u.loop), d[T]);
    move(u.loop, 0.5 * finite(d[Vao]), 0.0);
    return withHalfTurn(u, j);
}

Assembly assembly::iSoldado(const RoleValues& d) {
    const double tb = d.variant == 1 ? d[Tb] : d[Tc];
    Block b = perfilI({d[H], d[Bc], d[Bb], d[Tc], tb, d[Tw], 0.0});
    return one(std::move(b), torsionOfPlates(finite(d[H]), finite(d[Bc]), finite(d[Tc]),
                                             finite(d[Bb]), finite(tb), finite(d[Tw])));
}

Assembly assembly::iLaminado(const RoleValues& d) {
    const double h = finite(d[H]);
    const double b = finite(d[B1]);
    const double tw = finite(d[Tw]);
    const double tf = finite(d[Tf1]);
    if (d[Type] == 2.0) {
        const double r = rolledRoot(d, 3.0 * kTaperFillet);
        const double fall = std::min((b - tw) / 24.0, 2.0 * tf / 3.0);
        return one(perfilITapered(h, b, tf, tw, r, d.printed.toe),
                   torsionOfI({h, b, tf, tw, r, fall}));
    }
    const double r = rolledRoot(d, 4.0 * kRightFillet);
    return one(perfilI({h, b, b, tf, tf, tw, r}), torsionOfI({h, b, tf, tw, r}));
}

}  // namespace zp::secao
