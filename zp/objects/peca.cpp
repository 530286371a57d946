// SPDX-License-Identifier: MIT
// Frames and pictures' boxes of pieces.
#include "zp/objects/peca.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "zp/objects/cortes.h"
#include "zp/objects/secao/single.h"

namespace zp {
namespace {

constexpr double kPi = std::numbers::pi;
constexpr double kNearZero = 1e-12;

double withoutDust(double v) {
    if (std::abs(v) < kNearZero) return 0.0;
    if (std::abs(v - 1.0) < kNearZero) return 1.0;
    return std::abs(v + 1.0) < kNearZero ? -1.0 : v;
}

bool equal(double a, double b) { return std::abs(a - b) < 1e-9; }

/// How a plate lies in its picture.
enum class Attitude { OnEdge, Flat, EdgeInSecao };

Attitude attitude(const Peca& p) {
    const double r1 = p.actual[3];
    const double r2 = p.actual[4];
    if (p.vista == 4 && equal(r1, 0.0) && equal(r2, -0.5 * kPi)) return Attitude::Flat;
    if (p.vista == 4 && equal(r1, 0.0) && equal(r2, 0.0)) return Attitude::EdgeInSecao;
    return Attitude::OnEdge;
}

/// Turn of a plate's picture about its origin; 0 for the attitudes that the members use.
double chapaGiro(const Peca& p) {
    if (!p.chapa() || attitude(p) != Attitude::OnEdge) return 0.0;
    const auto known = [](double r) { return equal(r, 0.0) || equal(r, -0.5 * kPi); };
    if (p.vista == 0 && known(p.actual[3]) && known(p.actual[4])) return 0.0;
    const double giro = p.actual[3] + p.actual[4];
    return std::isfinite(giro) ? giro : 0.0;
}

secao::Bounds chapaPicture(const Peca& p) {
    const double d1 = p.actual[0];
    const double d2 = p.actual[1];
    const double d3 = p.comprimento;
    secao::Bounds c;
    switch (attitude(p)) {
        case Attitude::OnEdge:
            c.include(0.0, -0.5 * d2);
            c.include(d1, 0.5 * d2);
            break;
        case Attitude::Flat:
            c.include(0.0, -d3);
            c.include(d1, 0.0);
            break;
        case Attitude::EdgeInSecao:
            c.include(0.0, 0.0);
            c.include(d3, d2);
            break;
    }
    return c;
}

Frame frameWith(const AcGePoint3d& origin, double angle, bool mirrored) {
    const AcGeVector3d x = direction(angle);
    const double s = mirrored ? -1.0 : 1.0;
    return {origin, x, {-s * x.y, s * x.x, 0.0}};
}

}  // namespace

AcGeVector3d direction(double angle) {
    return {withoutDust(std::cos(angle)), withoutDust(std::sin(angle)), 0.0};
}

double angleOf(const AcGeVector3d& v) {
    double a = std::atan2(v.y, v.x);
    const double quarters = std::round(a / (0.5 * kPi));
    if (std::abs(a - quarters * 0.5 * kPi) < kNearZero) a = quarters * 0.5 * kPi;
    if (a < 0.0) a += 2.0 * kPi;
    return a >= 2.0 * kPi ? 0.0 : a;
}

AcGePoint3d Frame::toWorld(double px, double py, double pz) const {
    return {origin.x + px * x.x + py * y.x, origin.y + px * x.y + py * y.y, origin.z + pz};
}

AcGeVector3d Frame::toLocal(const AcGePoint3d& p) const {
    const AcGeVector3d v = p - origin;
    return {v.dotProduct(x), v.dotProduct(y), v.z};
}

secao::RoleValues Peca::roles() const {
    secao::RoleValues d = secao::roleValuesOf(kind, form, values());
    if (commercial) d.printed = commercial->printed;
    return d;
}

const secao::Secao& Peca::secao() const {
    if (!cachedSecao)
        cachedSecao = secao::secaoFrom(kind, form, values(),
                                       commercial ? commercial->printed : secao::Printed());
    return *cachedSecao;
}

double Peca::kgMetro() const {
    if (!commercial || !(commercial->kgMetro > 0.0)) return secao().kgMetro();
    const bool one = secao::description(kind).composition == secao::Composition::One;
    return (one ? 1.0 : 2.0) * commercial->kgMetro;
}

MassSource Peca::massSource() const {
    if (commercial && commercial->kgMetro > 0.0) return MassSource::Tabela;
    const bool handedOver = roles()[secao::Role::M] > 0.0;
    const bool own = !commercial || !commercial->printed.otherMass;
    return handedOver && own ? MassSource::Tabela : MassSource::Geometria;
}

std::wstring Peca::perfil() const {
    // What the tables call an HP is one, whatever its sizes.
    if (kind == secao::Kind::ILaminadoUSA && !name().empty())
        return name().substr(0, name().find(L' '));
    return secao::perfilText(kind, roles(), series);
}

std::wstring Peca::dimensoes() const { return secao::dimensoesText(kind, roles(), series); }

std::wstring Peca::designacao() const {
    return secao::designacaoText(perfil(), dimensoes(), name());
}

const std::wstring& Peca::name() const {
    static const std::wstring kNone;
    return commercial ? commercial->name : kNone;
}

Frame Peca::frame() const { return frameWith(start, angle, mirrored); }

Frame Peca::pictureFrame() const {
    const double giro = chapaGiro(*this);
    return frameWith(start, angle + (mirrored ? -giro : giro), mirrored);
}

void Peca::setComprimento(double fresh) {
    comprimento = fresh;
    if (const int i = place(secao::Role::L); i >= 0)
        given[static_cast<std::size_t>(i)] = actual[static_cast<std::size_t>(i)] = fresh;
    barraStale = true;
}

void Peca::scale(double k) {
    const secao::Roles* const roles = order();
    for (std::size_t i = 0; roles != nullptr && i < count; ++i)
        actual[i] *= std::pow(k, secao::power((*roles)[i]));
    comprimento *= k;
    cachedSecao.reset();
    barraStale = true;
    if (member)
        for (double* const size : {&member->lacing.A, &member->lacing.C, &member->lacing.L1})
            *size *= k;
    if (!links) return;
    for (Link& l : *links) l.points.scale(k);
}

AcGePoint3d Peca::end() const { return inSecao() ? start : start + direction(angle) * comprimento; }

secao::Bounds Peca::picture() const {
    if (chapa()) return chapaPicture(*this);
    if (inSecao()) return secao().bounds();
    const secao::Vista& v = secao().vista(vista);
    return {-cortes::furthest(*this, cortes::kStart), v.wMin,
            comprimento + cortes::furthest(*this, cortes::kEnd), v.wMax};
}

// Nearly all pieces have a handful of links: until then no room is kept for more.
void Peca::add(const Link& l) {
    constexpr std::size_t kFew = 8;
    if (!links) links = std::make_unique<std::vector<Link>>();
    if (links->size() < kFew) links->reserve(links->size() + 1);
    links->push_back(l);
}

void Peca::insert(std::ptrdiff_t place, const Link& l) {
    add(l);
    const auto end = links->end() - 1;
    std::rotate(std::min(links->begin() + place, end), end, links->end());
}

std::span<const Link> Peca::linked() const {
    return links ? std::span<const Link>(*links) : std::span<const Link>();
}

Link* Peca::link(AcDbObjectId id) {
    if (!links) return nullptr;
    for (Link& l : *links)
        if (l.id == id) return &l;
    return nullptr;
}

void Peca::untie(AcDbObjectId id) {
    if (!links) return;
    std::erase_if(*links, [&](const Link& l) { return l.id == id; });
    if (links->empty()) links.reset();
}

}  // namespace zp
