// SPDX-License-Identifier: MIT
// Section from values, and the cache that makes equal sections one.
#include "zp/objects/secao/secao.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <numbers>
#include <unordered_map>

#include "zp/objects/secao/assembly.h"

namespace zp::secao {
namespace {

using enum Role;

/// kg per metre of one mm2 of steel.
constexpr double kSteelKgMetro = 7850e-6;
/// Sections kept for reuse; a catalogue has some hundred.
constexpr std::size_t kMaxCache = 4096;

void turnLoops(std::vector<Loop>& loops, double r) {
    if (r == 0.0 || !std::isfinite(r)) return;
    for (Loop& loop : loops) {
        if (std::abs(r - std::numbers::pi) < 1e-9)
            halfTurn(loop);
        else
            rotate(loop, r);
    }
}

double positive(double v) { return std::isfinite(v) && v > 0.0 ? v : 0.0; }

struct Key {
    std::array<std::uint64_t, kMaxValues + 4> v{};
    bool operator==(const Key&) const = default;
};

struct Hash {
    std::size_t operator()(const Key& c) const {
        std::uint64_t h = 0xcbf29ce484222325u;
        for (const std::uint64_t x : c.v) h = (h ^ x ^ (x >> 29)) * 0x9e3779b97f4a7c15u;
        return static_cast<std::size_t>(h ^ (h >> 32));
    }
};

/// Class, form and the values that shape the section, bit by bit.
Key keyOf(Kind kind, const Roles& roles, int points, std::span<const double> values,
          const Printed& printed) {
    Key c;
    c.v[0] = static_cast<std::uint64_t>(kind) | static_cast<std::uint64_t>(points) << 8 |
             values.size() << 16 | static_cast<std::uint64_t>(printed.otherMass ? 1 : 0) << 32;
    const double more[] = {printed.root, printed.toe, printed.area};
    std::memcpy(&c.v[kMaxValues + 1], more, sizeof more);
    for (std::size_t i = 0; i < values.size(); ++i)
        if (roles[i] != L && roles[i] != Zero) std::memcpy(&c.v[i + 1], &values[i], sizeof(double));
    return c;
}

}  // namespace

Secao::Secao(Kind kind, const RoleValues& given) {
    const Description& row = description(kind);
    RoleValues d = given;
    if (d.printed.otherMass) d[A] = d[M] = 0.0;
    Assembly m = row.build(d);
    m_invalid = m.invalid;
    m_torsion = m.torsion;
    turnLoops(m.loops, d[Giro]);
    for (const Loop& loop : m.loops) {
        m_outlines.push_back(trace(loop));
        m_bounds.include(m_outlines.back().bounds);
    }
    m_loops = std::move(m.loops);
    m_properties = secao::properties(m_outlines);
    m_perimetroPintura = m.outerOutline;
    if (m_perimetroPintura == 0.0)
        for (const Outline& c : m_outlines)
            if (!c.hole)
                for (const Segment& s : c.segments) m_perimetroPintura += s.comprimento();

    const bool redonda = kind == Kind::Tubo || kind == Kind::BarraRedonda;
    const bool perfilI = kind == Kind::ISoldado || kind == Kind::ILaminadoUSA;
    if (row.composition != Composition::One) {
        m_altura = m_bounds.altura();
        m_largura = m_bounds.largura();
    } else {
        m_altura = redonda ? d[D] : d[H];
        m_largura = redonda ? d[D] : std::max({d[B1], d[Bc], d[Bb]});
        if (kind == Kind::BNLaminado) m_largura = d[H];
    }
    m_espessura = perfilI ? d[Tw] : d[T];
    if (kind == Kind::BarraRedonda) m_espessura = d[D];
    if (kind == Kind::Tubo) m_espessura = 0.5 * (d[D] - d[Dint]);
    const double area =
        positive(given[A]) * (row.composition == Composition::TwoInCm2 ? 100.0 : 1.0);
    m_area = area > 0.0 ? area : m_properties.area;
    m_kgMetro = positive(d[M]) > 0.0 ? d[M] : kgMetroOfOutline();
}

const Sheet& Secao::sheet() const {
    if (!m_sheet)
        m_sheet = std::make_unique<Sheet>(
            sheetOf({m_loops, m_outlines, m_bounds, m_properties, m_perimetroPintura, m_torsion,
                     m_espessura, m_invalid}));
    return *m_sheet;
}

double Secao::kgMetroOfOutline() const { return m_properties.area * kSteelKgMetro; }

const Vista& Secao::vista(int vista) const {
    std::unique_ptr<Vista>& v = m_vistas[static_cast<std::size_t>(std::clamp(vista, 1, 4) - 1)];
    if (!v) v = std::make_unique<Vista>(vistaLongitudinal(m_outlines, std::clamp(vista, 1, 4)));
    return *v;
}

std::shared_ptr<const Secao> secaoFrom(Kind kind, int points, std::span<const double> values,
                                       const Printed& printed) {
    static std::unordered_map<Key, std::shared_ptr<const Secao>, Hash> cache;
    const Roles* roles = rolesOf(kind, points, static_cast<int>(values.size()));
    if (roles == nullptr) return std::make_shared<Secao>(Kind::None, RoleValues{});
    const Key key = keyOf(kind, *roles, points, values, printed);
    if (const auto found = cache.find(key); found != cache.end()) return found->second;
    if (cache.size() >= kMaxCache) cache.clear();
    RoleValues d = roleValuesOf(kind, points, values);
    d.printed = printed;
    auto fresh = std::make_shared<const Secao>(kind, d);
    cache.emplace(key, fresh);
    return fresh;
}

}  // namespace zp::secao
