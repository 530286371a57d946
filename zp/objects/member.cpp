// SPDX-License-Identifier: MIT
// Pieces as members of the job.
#include "zp/objects/member.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <functional>
#include <iterator>

#include "zp/objects/cortes.h"
#include "zp/objects/edit.h"
#include "zp/objects/steel.h"

namespace zp::member {
namespace {

/// Members whose lengths differ by less are bought as one, mm.
constexpr double kSameComprimento = 0.5;
/// Sizes nearer than this are one, mm.
constexpr double kSameMedida = 1e-6;

MarcaReader g_marcaReader = nullptr;

constexpr const wchar_t* kRoleNames[] = {
    L"barra", L"montante", L"diagonal", L"banzo inferior", L"banzo superior",
    L"viga",  L"pilar",    L"barra",    L"barra",          L"terça"};

/// Values that describe the member and not how it is drawn.
bool describes(secao::Role role) {
    using enum secao::Role;
    return role != L && role != Giro;
}

/// A plate is told by the three sizes of its body, in whichever view; a profile by its values.
std::array<double, 3> chapaMedidas(const Peca& p) {
    return {p.actual[0], p.actual[1], p.comprimento};
}

bool near(double a, double b, double tolerance) { return std::abs(a - b) <= tolerance; }

bool sameValues(const Peca& a, const Peca& b) {
    const secao::RoleValues va = a.roles();
    const secao::RoleValues vb = b.roles();
    for (std::size_t i = 0; i < va.v.size(); ++i)
        if (describes(static_cast<secao::Role>(i)) &&
            !near(va.v[i], vb.v[i], kSameMedida * std::max(1.0, std::abs(va.v[i]))))
            return false;
    return true;
}

bool sameLength(const Peca& a, const Peca& b) {
    return near(cortes::longest(a), cortes::longest(b), kSameComprimento);
}

/// Plates that nobody laid by a rule.
bool lacingUnknown(const ZpObject& peca) {
    return of(peca).lacing.n == 0 && !edit::chapasOf(peca).empty();
}

bool sameLacing(const ZpObject& a, const ZpObject& b) {
    const Lacing& x = of(a).lacing;
    const Lacing& y = of(b).lacing;
    const auto equal = [](double u, double v) { return near(u, v, kSameMedida); };
    if (x.n == y.n && x.planes == y.planes && equal(x.A, y.A) && equal(x.C, y.C) &&
        near(x.L1, y.L1, kSameComprimento))
        return true;
    return lacingUnknown(a) || lacingUnknown(b);
}

}  // namespace

const Member& of(const ZpObject& peca) {
    static const Member kNothing;
    const Peca& p = Access::of(peca);
    return p.member ? *p.member : kNothing;
}

void set(ZpObject& peca, const Member& member) {
    if (of(peca) == member) return;
    peca.assertWriteEnabled();
    Access::of(peca).member = std::make_unique<Member>(member);
}

void lace(ZpObject& peca, const Lacing& lacing) {
    Member member = of(peca);
    member.lacing = lacing;
    set(peca, member);
}

void tie(ZpObject& peca, AcDbObjectId row, int count) {
    Member member = of(peca);
    member.row = AcDbSoftPointerId(row);
    member.listed = !row.isNull();
    member.count = count;
    set(peca, member);
}

bool sameSizes(const ZpObject& a, const ZpObject& b) {
    const Peca& p = Access::of(a);
    const Peca& q = Access::of(b);
    if (p.kind != q.kind || p.tipoBarra != q.tipoBarra || p.series != q.series) return false;
    if (p.chapa()) {
        const auto x = chapaMedidas(p);
        const auto y = chapaMedidas(q);
        return std::ranges::equal(x, y, [](double u, double v) { return near(u, v, kSameMedida); });
    }
    if (!sameValues(p, q)) return false;
    if (p.inSecao() || q.inSecao()) return p.inSecao() != q.inSecao() || sameLength(p, q);
    return sameLength(p, q) && cortes::same(p, q);
}

bool same(const ZpObject& a, const ZpObject& b) {
    if (!sameSizes(a, b) || steelOf(a) != steelOf(b)) return false;
    return Access::of(a).inSecao() != Access::of(b).inSecao() || sameLacing(a, b);
}

std::size_t hashOf(const ZpObject& peca, int step) {
    const Peca& p = Access::of(peca);
    std::size_t hash = 14695981039346656037U;  // steels follow the drawing's, so they are not in it
    const auto mix = [&](auto value) {
        hash = hash * 1099511628211U ^ std::hash<decltype(value)>()(value);
    };
    mix(static_cast<int>(p.kind));
    mix(static_cast<int>(p.tipoBarra));
    mix(p.inSecao() && !p.chapa());
    if (p.chapa()) return hash;
    if (!p.inSecao()) mix(std::llround(cortes::longest(p) / kSameComprimento) + step);
    const secao::RoleValues values = p.roles();
    for (std::size_t i = 0; i < values.v.size(); ++i)
        if (describes(static_cast<secao::Role>(i))) mix(std::llround(values.v[i] * 1e3));
    return hash;
}

const wchar_t* roleName(const ZpObject& peca) {
    const std::size_t role = Access::of(peca).tipoBarra;
    return kRoleNames[role < std::size(kRoleNames) ? role : 0];
}

void setMarcaReader(MarcaReader reader) { g_marcaReader = reader; }

std::wstring marcaOf(const ZpObject& peca) {
    const Member& m = of(peca);
    return g_marcaReader == nullptr || m.row.isNull() ? std::wstring() : g_marcaReader(m.row);
}

}  // namespace zp::member
