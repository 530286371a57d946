// SPDX-License-Identifier: MIT
// What every command says of its section, held against the section as it is drawn.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <map>
#include <numbers>
#include <ranges>

#include "perfis/commands/command_table.h"
#include "prancheta/base/text.h"

namespace {

using namespace perfis;

/// Sizes of which no two are alike.
Medidas sizes() {
    Medidas m;
    m.h = 204;
    m.b = 75;
    m.t = 6;
    m.a = 22;
    m.d = 102;
    m.di = 7;
    m.e = 21;
    m.av = 13;
    m.bb = 87;
    m.tb = 9;
    m.bc = 63;
    m.tc = 8;
    return m;
}

struct Box {
    explicit Box(const ZpObject& peca) {
        peca.GetLimitPointsOfFaces(faces[0], faces[1], faces[2], faces[3]);
    }
    double left() const { return faces[1].x; }
    double right() const { return faces[2].x; }
    double lower() const { return faces[1].y; }
    double upper() const { return faces[2].y; }
    void widen(double wall) {
        for (AcGePoint3d& f : faces) f += AcGeVector3d(f.x, f.y, 0) * (wall / std::abs(f.x));
    }
    AcGePoint3d faces[4];
};

Box drawn(const PerfilDescription& d, const Medidas& m, int vista) {
    PecaRequest request;
    request.vista = static_cast<ZpObject::ZpVistas>(vista);
    request.medidas = m;
    request.comprimento = 2000;
    const auto peca = makeAtPoint(d, AcGePoint3d::kOrigin, request);
    return Box(*peca);
}

TEST(CommandTable, ANamedCornerOfTheSectionStandsOnThePickedPoint) {
    for (const CommandRow& row : commandTable()) {
        const PerfilDescription& d = row.command.description;
        const Medidas m = sizes();
        Box box = drawn(d, m, 0);
        // The limit points of a tube are those of its bore.
        if (std::wstring_view(row.localName) == L"perfiltubo") box.widen(m.di);
        // Of a section with two flanges the upper one counts at the lower edge, too.
        const bool byUpperFlange = std::wstring_view(row.localName) == L"perfilpsa";
        for (const Insertion& insertion : d.insertions) {
            SCOPED_TRACE(prancheta::toUtf8(std::wstring(row.localName) + L" " + insertion.name));
            const std::wstring_view name = insertion.name;
            const auto says = [&](const wchar_t* word) { return name.find(word) != name.npos; };
            const Shift s = insertion.shift(m);
            if (says(L"RIGHT")) {
                EXPECT_NEAR((byUpperFlange ? m.bc / 2 : box.right()) + s.x, 0, 1e-9);
            }
            if (says(L"LEFT")) {
                EXPECT_NEAR((byUpperFlange ? -m.bc / 2 : box.left()) + s.x, 0, 1e-9);
            }
            if (says(L"UPPER")) {
                EXPECT_NEAR(box.upper() + s.y, 0, 1e-9);
            }
            if (says(L"DOWN")) {
                EXPECT_NEAR(box.lower() + s.y, 0, 1e-9);
            }
            if (says(L"CENTER")) {
                EXPECT_EQ(s.x, 0);
                EXPECT_EQ(s.y, 0);
            }
        }
    }
}

/// Views offered, where not all four differ or are made.
const std::map<std::wstring, int> kFigures{{L"bnlaminado", 2},
                                           {L"cantoneiracaixalaminada", 2},
                                           {L"perfilc", 2},
                                           {L"perfilcaixa", 2},
                                           {L"perfilbarraredonda", 1},
                                           {L"perfilbox", 2},
                                           {L"perfiltubo", 1},
                                           {L"vigai", 2},
                                           {L"perfilur", 3},
                                           {L"perfilz", 2}};

TEST(CommandTable, AMemberLiesOnThePickedPointByItsEdgeOrItsAxis) {
    for (const CommandRow& row : commandTable()) {
        const PerfilDescription& d = row.command.description;
        if (d.barraShift == nullptr) continue;
        const Medidas m = sizes();
        const auto fewer = kFigures.find(row.localName);
        ASSERT_EQ(d.figures, fewer != kFigures.end() ? fewer->second : 4);
        for (const int vista : std::array{3, 1, 2, 4} | std::views::take(d.figures)) {
            const Box box = drawn(d, m, vista);
            for (int alignment = 1; alignment <= 5; ++alignment) {
                SCOPED_TRACE(prancheta::toUtf8(row.localName) + ", view " + std::to_string(vista) +
                             ", " + std::to_string(alignment));
                const Shift s = d.barraShift(m, {vista, alignment, 2000});
                const bool middle = alignment == 2 || alignment == 5;
                EXPECT_EQ(s.x, middle ? -1000 : 0);
                EXPECT_NEAR(s.y,
                            alignment < 3   ? -box.upper()
                            : alignment > 3 ? -box.lower()
                                            : 0,
                            1e-9);
            }
        }
    }
}

/// How far a dimension line stands from what it measures, or from the section's box, mm.
bool standsOff(const CotaLine& cota, const Box& box) {
    const AcGeVector3d along = cota.to - cota.from;
    const AcGeVector3d off = cota.line - cota.from;
    const double fromBox = std::max({box.left() - cota.line.x, cota.line.x - box.right(),
                                     box.lower() - cota.line.y, cota.line.y - box.upper()});
    const double fromLine =
        along.length() > 0 ? along.crossProduct(off).length() / along.length() : fromBox;
    return std::ranges::any_of(std::array{fromBox, fromLine}, [](double d) {
        return std::abs(d - 10) < 1e-9 || std::abs(d - 17) < 1e-9;
    });
}

TEST(CommandTable, DimensionsOfTheSectionTellItsSizes) {
    const double tips = 2 * 11 + std::numbers::sqrt2 * 210;  // two legs at 45 degrees, rounded
    const std::map<std::wstring, std::vector<double>> expected{
        {L"perfilu", {75, 204, 6}},
        {L"perfil2u", {172, 204, 6, 22}},
        {L"perfil2uenr", {172, 204, 6, 22, 21}},
        {L"perfilduc", {150, 204, 6, 0}},
        {L"perfilc", {107, 204, 6, 75, 22}},  // 75 + 2 (22 - 6)
        {L"perfilcaixa", {150, 204, 6}},
        {L"pcantoneira", {75, 204, 6}},
        {L"pcdtee", {172, 204, 6, 22}},
        {L"pcantoneiradu", {150, 204, 6, 0}},
        {L"perfilz", {144, 204, 6, 22}},
        {L"perfilur", {75, 204, 6, 22}},
        {L"perfildvv",
         {2 * (11 - 12 * (std::numbers::sqrt2 - 1)) + std::numbers::sqrt2 * 210,
          (204 + 75) / std::numbers::sqrt2, 22, 6}},
        {L"perfilcl", {75, 204, 6}},
        {L"perfilil", {37.5, 37.5, 75, 204, 6, 22}},
        {L"vigai", {37.5, 37.5, 75, 204, 6, 22}},
        {L"cantdvvl", {tips - 6 * (std::numbers::sqrt2 - 1), 408 / std::numbers::sqrt2, 22, 6}},
        {L"cantdteel", {172, 204, 6, 22}},
        {L"cantdul", {150, 204, 6, 0}},
        {L"bnlaminado", {204, 6}},
        {L"PERFILULAMINADO", {75, 204, 6}},
        {L"perfiluulaminado", {150, 204, 6, 0}},
        {L"cantoneiracaixalaminada", {75, 210, 6}},
        {L"perfil2ulam", {172, 204, 6, 22}},
        {L"perfilcantzlaminado", {172, 217, 6, 22}},
        {L"perfilcantcruzlaminado", {172, 421, 22, 13, 6}},
        {L"perfilbarraredonda", {102}},
        {L"perfiltubo", {102, 7}},
        {L"perfilbox", {75, 204, 6}},
        {L"perfilpsa", {43.5, 43.5, 87, 63, 204, 8, 9, 22}},
        {L"perfilicartola", {172, 234, 6, 22, 21}},  // 204 + 2 (21 - 6)
    };
    for (const CommandRow& row : commandTable()) {
        SCOPED_TRACE(prancheta::toUtf8(row.localName));
        const PerfilDescription& d = row.command.description;
        const Medidas m = sizes();
        const Box box = drawn(d, m, 0);
        PecaCotas cotas(AcGePoint3d::kOrigin, box.faces, 1.0);
        d.cotaSecao(cotas, m);
        const std::vector<double>& lengths = expected.at(row.localName);
        ASSERT_EQ(cotas.lines().size(), lengths.size());
        for (std::size_t i = 0; i < lengths.size(); ++i) {
            const CotaLine& cota = cotas.lines()[i];
            EXPECT_NEAR(cota.from.distanceTo(cota.to), lengths[i], 1e-9) << i;
            EXPECT_TRUE(standsOff(cota, box)) << i;
            for (const AcGePoint3d& p : {cota.from, cota.to}) {
                // Beyond the box: the wall of a tube, the rounded toes of turned angles.
                const double wall = row.localName == std::wstring_view(L"perfiltubo") ? m.di
                                    : row.localName == std::wstring_view(L"cantdvvl") ? m.t / 4
                                                                                      : 0.0;
                EXPECT_LE(std::abs(p.x), std::max(-box.left(), box.right()) + wall + 1e-9) << i;
                EXPECT_LE(std::abs(p.y), std::max(-box.lower(), box.upper()) + wall + 1e-9) << i;
            }
        }
    }
}

}  // namespace
