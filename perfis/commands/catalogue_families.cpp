// SPDX-License-Identifier: MIT
// The table of the families and that of the lists.
#include "perfis/commands/catalogue_families.h"

#include <algorithm>
#include <cmath>

namespace perfis {
namespace {

constexpr SizeColumn kHbt[] = {{L"h", &Medidas::h}, {L"b", &Medidas::b}, {L"t", &Medidas::t}};
constexpr SizeColumn kHbta[] = {
    {L"h", &Medidas::h}, {L"b", &Medidas::b}, {L"t", &Medidas::t}, {L"aba", &Medidas::a}};
constexpr SizeColumn kHbte[] = {
    {L"h", &Medidas::h}, {L"b", &Medidas::b}, {L"t", &Medidas::t}, {L"aba", &Medidas::e}};
/// A hat that lies on its side.
constexpr SizeColumn kBhte[] = {
    {L"h", &Medidas::b}, {L"b", &Medidas::h}, {L"t", &Medidas::t}, {L"aba", &Medidas::e}};
constexpr SizeColumn kU[] = {{L"h", &Medidas::h}, {L"b", &Medidas::b}, {L"tw", &Medidas::t}};
constexpr SizeColumn kI[] = {
    {L"h", &Medidas::h}, {L"b", &Medidas::b}, {L"tf", &Medidas::t}, {L"tw", &Medidas::a}};
constexpr SizeColumn kTubo[] = {{L"d", &Medidas::d}, {L"t", &Medidas::di}};
constexpr SizeColumn kBarra[] = {{L"d", &Medidas::d}};
constexpr SizeColumn kSquare[] = {{L"b", &Medidas::b}};
constexpr SizeColumn kFlat[] = {{L"b", &Medidas::b}, {L"t", &Medidas::t}};

constexpr Family kFamilies[] = {
    {L"w_hp", Symmetry::kBoth, kI, &pilaminado, 0},
    {L"ipe", Symmetry::kBoth, kI, &pilaminado, 1},
    {L"i", Symmetry::kBoth, kI, &pilaminado, 2},
    {L"u", Symmetry::kUpper, kU, &perfilulaminado},
    {L"l", Symmetry::kNone, kHbt, &pcantlam, 0, true},
    {L"t", Symmetry::kTee, kHbt, nullptr, 0, false,
     [](const Medidas& m) { return m.t * (m.h + m.b - m.t); }},
    {L"soldado_vs", Symmetry::kBoth, kI, &pisoldado, 1},
    {L"soldado_cvs", Symmetry::kBoth, kI, &pisoldado, 2},
    {L"soldado_cs", Symmetry::kBoth, kI, &pisoldado, 3},
    {L"tubo_retangular", Symmetry::kTube, kHbt, &perfilbox, 0, true},
    {L"tubo_redondo", Symmetry::kRound, kTubo, &perfiltubo},
    {L"barra_redonda", Symmetry::kRound, kBarra, &perfilbarraredonda},
    {L"barra_quadrada", Symmetry::kBoth, kSquare, nullptr, 0, false,
     [](const Medidas& m) { return m.b * m.b; }},
    {L"barra_chata", Symmetry::kBoth, kFlat, nullptr, 0, false,
     [](const Medidas& m) { return m.b * m.t; }},
    {L"u_dobrado", Symmetry::kUpper, kHbt, &pudobrado},
    {L"u_enrijecido", Symmetry::kUpper, kHbta, &pudoben},
    {L"z_dobrado", Symmetry::kNone, kHbta, &pzdobrado},
    {L"cartola", Symmetry::kNone, kHbta, &pcartola},
    {L"cantoneira_dobrada", Symmetry::kNone, kHbt, &pcantdob, 0, true},
};

const SizeList kLists[] = {
    {L"pu.lst", L"u_dobrado", pudobrado},
    {L"pur.lst", L"u_enrijecido", pudoben},
    {L"pz.lst", L"z_dobrado", pzdobrado},
    {L"pc.lst", L"cartola", pcartola},
    {L"pl.lst", L"cantoneira_dobrada", pcantdob},
    {.file = L"pl_lam.lst", .table = L"l", .command = pcantlam, .peso = true},
    {.file = L"pu_lam.lst", .table = L"u", .command = perfilulaminado, .peso = true},
    {L"pbr.lst", L"barra_redonda", perfilbarraredonda},
    {L"ptb.lst", L"tubo_redondo", perfiltubo},
    {.file = L"pbox.lst",
     .table = L"tubo_retangular",
     .command = perfilbox,
     .blankRows = true,
     .oneMore = true},
    {L"pua.lst", L"u_dobrado", pidobrado},
    {L"puf.lst", L"u_dobrado", pcxdobrado},
    {.file = L"puaenr.lst", .table = L"u_enrijecido", .command = pienrdobrado, .sizes = kHbte},
    {.file = L"picart.lst", .table = L"cartola", .command = perfilicartola, .sizes = kBhte},
    {L"pltee.lst", L"cantoneira_dobrada", pcanttdob},
    {L"plf.lst", L"cantoneira_dobrada", pcantudob},
    {L"plv.lst", L"cantoneira_dobrada", pcantxdob},
    {L"vi.lst", nullptr, pisoldado},
    {L"vs.lst", L"soldado_vs", pisoldado, 1, L"vi_vs.lst", true},
    {L"cvs.lst", L"soldado_cvs", pisoldado, 2, L"vi_cvs.lst", true},
    {L"cs.lst", L"soldado_cs", pisoldado, 3, L"vi_cs.lst", true},
    {L"psa.lst", nullptr, perfilpsa},
    {.file = L"DadosAcoMinas.lst",
     .table = L"w_hp",
     .command = pilaminado,
     .source = 0,
     .shown = L"BitolasAcoMinas.lst",
     .peso = true,
     .blankRows = true,
     .shows = Shown::kName},
    {.file = L"ipe.lst",
     .table = L"ipe",
     .command = pilaminado,
     .source = 1,
     .shown = L"vi_lam.lst",
     .peso = true,
     .firstColumn = 1,
     .blankRows = true},
    {.file = L"vi_usa_dados.lst",
     .table = L"i",
     .command = pilaminado,
     .source = 2,
     .shown = L"vi_usa.lst",
     .peso = true,
     .blankRows = true,
     .shows = Shown::kColumns},
};

}  // namespace

std::span<const Family> families() { return kFamilies; }
std::span<const SizeList> sizeLists() { return kLists; }

SizeKey sizeKeyOf(const Family& family, std::span<const SizeColumn> sizes, const Medidas& medidas) {
    SizeKey key;
    for (const SizeColumn& size : sizes)
        key.push_back(std::lround(std::clamp(100.0 * medidas.*size.medida, -1e9, 1e9)));
    if (family.eitherWay && key[0] < key[1]) std::swap(key[0], key[1]);
    return key;
}

std::optional<std::size_t> familyOf(const zp::tables::TableName& name) {
    std::optional<std::size_t> found;
    std::size_t longest = 0;
    for (std::size_t i = 0; i < families().size(); ++i) {
        const std::wstring_view table = families()[i].table;
        if (!name.isOf(table) || table.size() < longest) continue;
        found = i;
        longest = table.size();
    }
    return found;
}

}  // namespace perfis
