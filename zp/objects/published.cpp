// SPDX-License-Identifier: MIT
// Pieces and published tables: from a section's values to the size of its single shape.
#include "zp/objects/published.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

#include "acutads.h"
#include "texts/number.h"
#include "zp/objects/layers.h"
#include "zp/objects/secao/assembly.h"

namespace zp::published {
namespace {

using secao::Kind;
using secao::RoleValues;
using tables::Family;
using tables::Size;
using enum secao::Role;

/// Numbers nearer than this are one, mm.
constexpr double kSame = 0.01;

bool same(double a, double b) { return std::abs(a - b) <= kSame; }

/// The bends, or the flanges' thicknesses, are those that the commands derive from t.
bool hasRadiusOfT(const RoleValues& d) { return same(d[Ri], d[T]); }
bool equalFlanges(const RoleValues& d) { return d[B2] == 0.0 || same(d[B2], d[B1]); }
bool square(double angle) { return std::abs(angle - 0.5 * std::numbers::pi) < 1e-6; }

std::optional<Size> bentU(const RoleValues& d) {
    if (!hasRadiusOfT(d) || !equalFlanges(d)) return {};
    const double aba = secao::effectiveAba(d[Aba], d[T]);
    if (aba < 0.0) return {};
    if (aba == 0.0) return Size{Family::UDobrado, {d[H], d[B1], d[T]}};
    return Size{Family::UEnrijecido, {d[H], d[B1], aba, d[T]}};
}

/// Two U back to back, or two hats whose tops stand upright.
std::optional<Size> bentI(const RoleValues& d) {
    if (d[Species] != 1.0) return bentU(d);
    const double aba = std::abs(d[Aba]);
    if (!hasRadiusOfT(d) || !equalFlanges(d) || secao::effectiveAba(aba, d[T]) == 0.0) return {};
    return Size{Family::Cartola, {d[B1], d[H], aba, d[T]}};
}

std::optional<Size> bentL(const RoleValues& d) {
    if (!hasRadiusOfT(d)) return {};
    return Size{Family::CantoneiraDobrada, {d[H], d[B1], d[T]}};
}

std::optional<Size> withAba(Family family, const RoleValues& d) {
    if (!hasRadiusOfT(d) || secao::effectiveAba(d[Aba], d[T]) <= 0.0) return {};
    return Size{family, {d[H], d[B1], d[Aba], d[T]}};
}

std::optional<Size> rolledL(const RoleValues& d) {
    if (!hasRadiusOfT(d)) return {};
    return Size{Family::L, {d[H], d[B1] != 0.0 ? d[B1] : d[H], d[T]}};
}

std::optional<Size> rolledU(const RoleValues& d) {
    if (!hasRadiusOfT(d) || !equalFlanges(d) || !same(d[Tf1], d[T]) || !same(d[Tf2], d[T]))
        return {};
    return Size{Family::U, {d[H], d[B1], d[T]}};
}

std::optional<Size> rolledI(const RoleValues& d) {
    constexpr Family kTypes[] = {Family::Ipe, Family::W, Family::I};
    if (!(d[Type] >= 0.0 && d[Type] < std::size(kTypes))) return {};
    return Size{kTypes[static_cast<std::size_t>(d[Type])], {d[H], d[B1], d[Tw], d[Tf1]}};
}

/// A series; the user's favourites are none.
std::optional<Size> weldedI(const RoleValues& d, int series) {
    constexpr Family kSeries[] = {Family::Vs, Family::Cvs, Family::Cs};
    if (d.variant != 0 || series < 1 || series > 3 || !same(d[Bb], d[Bc])) return {};
    return Size{kSeries[series - 1], {d[H], d[Bc], d[Tw], d[Tc]}};
}

/// Once for every state of the tables.
void tellFaults(const tables::PublishedTables& tables) {
    constexpr std::size_t kMostLines = 5;
    static std::vector<tables::Fault> told;
    if (tables.faults() == told) return;
    told = tables.faults();
    for (std::size_t i = 0; i < std::min(told.size(), kMostLines); ++i)
        acutPrintf(L"\n%ls.", tables::told(told[i]).c_str());
    if (told.size() > kMostLines)
        acutPrintf(L"\nHá %d linhas assim ao todo.", static_cast<int>(told.size()));
    if (!told.empty()) acutPrintf(L"\nO que há de errado numa tabela não vale.\n");
}

/// The same, with a mass that is another size's; `kept` may be null.
std::shared_ptr<const Commercial> disowned(const Commercial* kept) {
    Commercial own = kept != nullptr ? *kept : Commercial();
    own.printed.otherMass = true;
    return shared(std::move(own));
}

}  // namespace

std::optional<Size> sizeOf(const Peca& p) {
    const RoleValues d = p.roles();
    switch (p.kind) {
        case Kind::UDobrado:
            return square(d[Ang1]) && square(d[Ang2]) ? bentU(d) : std::nullopt;
        case Kind::CaixaDobrado:
            return bentU(d);
        case Kind::IDobrado:
            return bentI(d);
        case Kind::ZDobrado:
            return square(d[Ang1]) && square(d[Ang2]) ? withAba(Family::ZDobrado, d) : std::nullopt;
        case Kind::Cartola:
            return withAba(Family::Cartola, d);
        case Kind::CantoneiraDobrada:
            return square(d[Ang1]) ? bentL(d) : std::nullopt;
        case Kind::CantTDobrada:
        case Kind::CantUDobrada:
        case Kind::XDobrado:
            return bentL(d);
        case Kind::Box:
            if (!hasRadiusOfT(d)) return {};
            return Size{Family::TuboRetangular, {d[H], d[B1], d[T]}};
        case Kind::Tubo:
            return Size{Family::TuboRedondo, {d[D], 0.5 * (d[D] - d[Dint])}};
        case Kind::BarraRedonda:
            return Size{Family::BarraRedonda, {d[D]}};
        case Kind::ULaminado:
        case Kind::UULaminado:
        case Kind::DoisULaminado:
            return rolledU(d);
        case Kind::ILaminadoUSA:
            return rolledI(d);
        case Kind::ISoldado:
            return weldedI(d, p.series);
        case Kind::None:
        case Kind::Chapa:
        case Kind::kTotal:
            return {};
        default:
            return rolledL(d);
    }
}

std::shared_ptr<const Commercial> ofToday(const Peca& p) {
    const std::optional<Size> size = sizeOf(p);
    if (!size) return nullptr;
    const std::filesystem::path& installation = installationFolder();
    if (installation.empty()) return nullptr;
    const auto tables = tables::publishedOf(installation);
    tellFaults(*tables);
    const tables::Published* const row = tables->find(*size);
    if (row == nullptr) return nullptr;
    return shared(
        {row->name, std::max(0.0, row->kgMetro), {row->root, row->toe, std::max(0.0, row->area)}});
}

std::shared_ptr<const Commercial> shared(Commercial commercial) {
    /// Names of sizes that a session meets; tables have some thousand.
    constexpr std::size_t kMostNames = 8192;
    static std::unordered_map<std::wstring, std::shared_ptr<const Commercial>> byName;
    if (byName.size() >= kMostNames) byName.clear();
    std::shared_ptr<const Commercial>& known = byName[commercial.name];
    if (!known || *known != commercial)
        known = std::make_shared<const Commercial>(std::move(commercial));
    return known;
}

std::wstring massWords(const Peca& p) {
    if (p.massSource() == MassSource::Geometria) return L"geometria";
    const double percent = 100.0 * (p.secao().kgMetroOfOutline() / p.kgMetro() - 1.0);
    const std::wstring words = texts::withComma(percent, 1);
    return L"tabela (geometria " + (percent > 0.0 && words != L"0" ? L"+" + words : words) + L" %)";
}

void take(Peca& p) {
    const bool otherMass = p.roles().printed.otherMass;
    p.commercial = ofToday(p);
    if (otherMass) p.commercial = disowned(p.commercial.get());
    p.cachedSecao.reset();
}

void follow(Peca& p, secao::Role changed) {
    constexpr std::array kOfNoShape{L, Giro, Vao, VaoV, E, Ex, Ey, Zero};
    if (std::ranges::find(kOfNoShape, changed) != kOfNoShape.end()) return;
    take(p);
    if (!p.commercial || (changed != M && changed != A)) return;
    Commercial own = *p.commercial;
    own.kgMetro = 0.0;
    own.printed.otherMass = false;
    p.commercial = shared(std::move(own));
}

void keep(ZpObject& peca, std::shared_ptr<const Commercial> commercial) {
    peca.assertWriteEnabled();
    Peca& p = Access::of(peca);
    p.commercial = std::move(commercial);
    p.cachedSecao.reset();
    p.barraStale = true;
}

void disownMass(ZpObject& peca) { keep(peca, disowned(Access::of(peca).commercial.get())); }

}  // namespace zp::published
