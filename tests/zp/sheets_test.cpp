// SPDX-License-Identifier: MIT
// Property sheets: what they show, what they take, what goes along.
#include "acutmem.h"
#include "protocol/attach.h"
#include "protocol/edit.h"
#include "protocol/report.h"
#include "rxdict.h"
#include "tests/zp/drawing.h"
#include "zp/matlist/lists.h"
#include "zp/matlist/zpmarca.h"

namespace {

using namespace zp_tests;

/// A sheet as lines "key=value" under its titles.
class ReadSheet : public protocol::PropertySheet {
public:
    void group(const ACHAR* title) override { groups.emplace_back(title); }
    void show(const ACHAR* key, const ACHAR*, const ACHAR* value) override { values[key] = value; }
    void edit(const ACHAR* key, const ACHAR* label, const ACHAR* value,
              const ACHAR* unit) override {
        values[key] = value;
        editable[key] = std::wstring(label) + (unit != nullptr ? std::wstring(L", ") + unit : L"");
    }
    void choose(const ACHAR* key, const ACHAR*, int current, int count,
                const ACHAR* const* choices) override {
        values[key] = current >= 0 && current < count ? choices[current] : L"?";
        editable[key] = L"escolha";
    }
    std::vector<std::wstring> groups;
    std::map<std::wstring, std::wstring> values;
    std::map<std::wstring, std::wstring> editable;
};

class Sheets : public Drawing {
protected:
    static const protocol::EntityProperties* whose(const AcDbEntity& entity) {
        return protocol::extensionOf<protocol::EntityProperties>(entity,
                                                                 protocol::kEntityPropertiesClass);
    }
    ReadSheet sheet(AcDbObjectId id) {
        ReadSheet read;
        const Read<AcDbEntity> e(id);
        whose(*e.object())->list(*e.object(), read);
        return read;
    }
    protocol::EntityProperties::Totals total(AcDbObjectId id) {
        const Read<AcDbEntity> e(id);
        return whose(*e.object())->totals(*e.object());
    }
    /// The reason of a refusal; empty when the value was taken.
    std::wstring setValue(AcDbObjectId id, const wchar_t* key, const wchar_t* value) {
        const protocol::EntityProperties* cutter = nullptr;
        {
            const Read<AcDbEntity> e(id);
            cutter = whose(*e.object());
        }
        ACHAR* message = nullptr;
        const bool accepted = cutter->set(id, key, value, message);
        const std::wstring reason = message != nullptr ? message : L"";
        acutDelString(message);
        EXPECT_EQ(accepted, reason.empty());
        return reason;
    }
    /// Mark at the upper left corner and row of a piece, twice.
    AcDbObjectId list(AcDbObjectId peca, const wchar_t* descricao) {
        CCountMarca counter;
        wchar_t group[] = L"Perfil";
        int number = 0;
        int state = 0;
        int type = 2;
        AcDbObjectId list;
        AcGePoint3d point;
        EXPECT_EQ(ZpArxConnectLista(number, list, state, group, counter, type), 1);
        EXPECT_EQ(ZpArxOpenLista(number, list, state, group, type, counter, point), 1);
        wchar_t marca[kZpMarcaMax];
        EXPECT_EQ(ZpArxGetNextMarca(marca), 1);
        AcDbObjectId id;
        const AcGePoint3d corner = face(peca, 0);
        ZpArxAddMarca(corner, corner + AcGeVector3d(-10, 10, 0), marca, id);
        Linha row(marca, 1, descricao, L"", L"ACO", 0, 0, 0, 0, nullptr);
        AcDbSoftPointerId linked(id);
        row.AddObjId(linked);
        row.AddPeca(peca);
        EXPECT_EQ(ZpArxAddToLista(row), 1);
        ZpArxCloseLista();
        return id;
    }
    std::vector<Linha> rows() {
        return zp::matlist::rows(zp::matlist::materialLists(editor->database()).front().id);
    }
    AcGePoint3d start(AcDbObjectId id) {
        AcGePoint3d p;
        Read<ZpObject>(id)->StartPoint(p);
        return p;
    }
};

/// Area of a plain U of sheet t with bends of inner radius t, mm2: flats and bends at mid
/// thickness.
double areaOfU(double h, double b, double t) {
    return t * ((h - 4 * t) + 2 * (b - 2 * t) + kPi * 1.5 * t);
}

TEST_F(Sheets, ShowsMedidasAndProperties) {
    const AcDbObjectId peca = u(0, 0, 500);
    ReadSheet f = sheet(peca);
    EXPECT_EQ(f.groups, (std::vector<std::wstring>{L"Perfil", L"Geometria", L"Seção"}));
    EXPECT_EQ(f.values[L"perfil"], L"U");
    EXPECT_EQ(f.values[L"classe"], L"ZpUDobrado");
    EXPECT_EQ(f.values[L"tipo_barra"], L"Barra simples");
    EXPECT_EQ(f.values[L"vista"], L"Direita");
    EXPECT_EQ(f.values[L"comprimento"], L"500");
    EXPECT_EQ(f.editable[L"h"], L"Altura (h), mm");
    EXPECT_EQ(f.values[L"ang1"], L"90");
    EXPECT_EQ(f.editable.count(L"classe") + f.editable.count(L"massa"), 0u);
    // 1020.4115 mm2; x 7850 kg/m3.
    EXPECT_EQ(f.values[L"A"], L"10,204 cm²");
    EXPECT_EQ(f.values[L"kg_m"], L"8,01 kg/m");
    EXPECT_EQ(f.values[L"massa"], L"4,005 kg");
    // From the faces of the section and from the insertion point, a third of the flange inside.
    EXPECT_EQ(f.values[L"xg"], L"17,39 mm");
    EXPECT_EQ(f.values[L"xo"], L"-7,61 mm");
    EXPECT_EQ(f.values[L"Wx_sup"], L"60,77 cm³");
    EXPECT_EQ(f.values[L"tira"], L"340,14 mm");
}

TEST_F(Sheets, ANewAlturaTakesCotasMarcaAndRow) {
    const AcDbObjectId peca = u(0, 0, 500);
    const AcDbObjectId altura = cota(0, 100, 0, -100, -10, 100);
    const AcDbObjectId largura = cota(0, -100, 500, -100, 0, -110);
    const AcDbObjectId espessura =
        cota(500, 100, 500, 97, 510, 100);  // flange, an edge of the view
    change(peca, [&](ZpObject& p) {
        for (const AcDbObjectId& id : {altura, largura, espessura})
            EXPECT_EQ(p.LinkDim(id), Acad::eOk);
        (void)p.transformBy(AcGeMatrix3d::rotation(0.5 * kPi, AcGeVector3d::kZAxis));
    });
    const AcDbObjectId marca = list(peca, L"U");
    EXPECT_EQ(setValue(peca, L"h", L"250"), L"");
    expectNear(start(peca), 0, 0);
    // (x, y) stands at (-y, x).
    expectCota(altura, -125, 0, 125, 0, -125, -10);
    expectCota(largura, 125, 0, 125, 500, 135, 0);
    expectCota(espessura, -125, 500, -122, 500, -125, 510);
    expectNear(Read<ZpMarca>(marca)->tip(), -125, 0);
    expectNear(Read<ZpMarca>(marca)->textAt(), -135, 10);
    const double peso = areaOfU(250, 75, 3) * 7850e-9 * 500;
    const Linha l = rows().front();
    EXPECT_EQ(l.dimensoes, L"250x75x3");
    EXPECT_EQ(l.quantidade, 2);
    EXPECT_NEAR(l.pesoUnitario, peso, 1e-9);
    EXPECT_NEAR(l.pesoTotal, 2 * peso, 1e-9);
}

TEST_F(Sheets, WhatMakesNoPecaIsRefusedWithoutAChange) {
    const AcDbObjectId peca = u(0, 0, 500);
    for (const auto& [key, value] :
         std::initializer_list<std::pair<const wchar_t*, const wchar_t*>>{
             {L"h", L"0"},
             {L"h", L"-200"},
             {L"h", L"duzentos"},
             {L"h", L""},
             {L"t", L"120"},
             {L"ang1", L"180"},
             {L"comprimento", L"0"},
             {L"comprimento", L"1e400"},
             {L"tipo_barra", L"8"},
             {L"massa", L"1"},
             {L"d1", L"10"}})
        EXPECT_NE(setValue(peca, key, value), L"") << testing::PrintToString(std::wstring(key));
    const ReadSheet f = sheet(peca);
    EXPECT_EQ(f.values.at(L"dimensoes"), L"200x75x3");
    EXPECT_EQ(f.values.at(L"comprimento"), L"500");
    expectNear(face(peca, 2), 500, 100);
}

TEST_F(Sheets, WhatFollowsARuleGoesAlong) {
    // Equal legs 60, axis at a third of the legs from both backs, mass of a catalogue.
    const AcDbObjectId peca = put(new ZpCantLaminada(AcGePoint3d(0, 0, 0), ZpObject::kVistaSecao,
                                                     60, 60, 6, 20, 40, 6, 0, 0, 1000, 5.42, 691));
    EXPECT_EQ(setValue(peca, L"h", L"90,0"), L"");
    expectNear(face(peca, 0), -20, 30);
    expectNear(face(peca, 1), -20, -60);
    // The mass of the old size does not hold any more: 90 x 6 + 54 x 6 = 864 mm2 and a fillet.
    const double kgm = Read<ZpObject>(peca)->getLinearWeight();
    EXPECT_NEAR(kgm, 864 * 7850e-6, 0.1);
    EXPECT_EQ(setValue(peca, L"m", L"6.9"), L"");
    EXPECT_DOUBLE_EQ(Read<ZpObject>(peca)->getLinearWeight(), 6.9);
    EXPECT_EQ(setValue(peca, L"tipo_barra", L"6"), L"");
    EXPECT_EQ(sheet(peca).values.at(L"tipo_barra"), L"Pilar");
    // A welded I of a series is a free one once its web is another.
    const AcDbObjectId viga = put(new ZpISoldado(AcGePoint3d(0, 0, 0), ZpObject::kVistaDireita, 300,
                                                 300, 300, 8, 9.5, 6000, 0, 0, 62.4));
    change(viga, [](ZpObject& p) {
        EXPECT_EQ(static_cast<ZpISoldado&>(p).setSubType(ZpISoldado::kCS), Acad::eOk);
    });
    EXPECT_EQ(setValue(viga, L"tw", L"12.5"), L"");
    EXPECT_EQ(sheet(viga).values.at(L"perfil"), L"PS");
    EXPECT_NEAR(Read<ZpObject>(viga)->getLinearWeight(), (2 * 300 * 9.5 + 281 * 12.5) * 7850e-6,
                1e-9);
}

TEST_F(Sheets, PecasFurtherApartStayThoseOfTheCatalogue) {
    // Two rolled U 152.4 x 12.2 kg/m, 8 apart: 2 x 1551.65 mm2.
    const AcDbObjectId pairId =
        put(new Zp2ULaminado(AcGePoint3d(0, 0, 0), ZpObject::kVistaSecao, 152.4, 48.77, 5.08, 48.77,
                             5.08, 5.08, 16.26, 5.08, 8, 0, 0, 1000, 3103.3, 24.4));
    EXPECT_EQ(setValue(pairId, L"vao", L"10"), L"");
    EXPECT_DOUBLE_EQ(Read<ZpObject>(pairId)->getLinearWeight(), 24.4);
    EXPECT_EQ(sheet(pairId).values.at(L"area"), L"31,033 cm²");
    EXPECT_NEAR(face(pairId, 2).x - face(pairId, 0).x, 2 * 48.77 + 10, 1e-9);
}

TEST_F(Sheets, TravejamentoKeepsTheRule) {
    ASSERT_TRUE(static_cast<bool>(
        editor->modules().load(std::filesystem::path(HOUSE_BINARY_DIR) / "bin/ZpPerfis18.arx")));
    // Two angles 60x50x4 in T, 8 apart; plates of 10 x 40 on the upper face, at 60/3 + 4/2.
    const AcDbObjectId peca = put(new ZpCantTDobrada(AcGePoint3d(0, 0, 0), ZpObject::kVistaDireita,
                                                     60, 50, 4, 4, 8, 1000, 0, 0, 0));
    std::vector<AcDbObjectId> chapas;
    for (const double x : {0.0, 990.0, 247.5, 495.0, 742.5})
        chapas.push_back(put(
            new ZpChapa(AcGePoint3d(x, 22, 0), ZpObject::kVistaSecao, 10, 4, 40, 0, -0.5 * kPi)));
    change(peca, [&](ZpObject& p) {
        for (const AcDbObjectId& id : chapas) EXPECT_EQ(p.LinkPos(id), Acad::eOk);
    });
    EXPECT_NE(setValue(chapas[0], L"d2", L"6"), L"");
    EXPECT_EQ(setValue(peca, L"t", L"5"), L"");
    EXPECT_EQ(setValue(peca, L"comprimento", L"1250"), L"");
    EXPECT_EQ(countOf<ZpChapa>(), 5u);
    // Four spaces of (1250 - 10) / 4.
    const double x[] = {0, 1240, 310, 620, 930};
    for (std::size_t i = 0; i < chapas.size(); ++i) {
        expectNear(start(chapas[i]), x[i], 22.5);
        EXPECT_EQ(Read<ZpObject>(chapas[i])->getEspessura(), 5);
    }
}

TEST_F(Sheets, MarcaAndRowOfTheList) {
    const AcDbObjectId p1 = list(u(0, 0, 500), L"U");
    const AcDbObjectId p2 = list(u(0, 1000, 500), L"U");
    EXPECT_NE(setValue(p2, L"marca", L"P1"), L"");
    EXPECT_NE(setValue(p2, L"marca", L"  "), L"");
    EXPECT_NE(setValue(p2, L"quantidade", L"1.5"), L"");
    EXPECT_NE(setValue(p2, L"peso_total", L"3"), L"");
    EXPECT_EQ(setValue(p2, L"marca", L" V12 "), L"");
    EXPECT_EQ(setValue(p2, L"quantidade", L"5"), L"");
    EXPECT_EQ(setValue(p2, L"material", L"ASTM A572"), L"");
    EXPECT_EQ(Read<ZpMarca>(p2)->marca(), L"V12");
    const Linha l = rows().back();
    EXPECT_EQ(l.marca + L"|" + l.material, L"V12|ASTM A572");
    EXPECT_EQ(l.quantidade, 5);
    EXPECT_EQ(sheet(p1).values.at(L"quantidade"), L"2");
    // The lowest free mark is that which was given up.
    EXPECT_EQ(Read<ZpMarca>(list(u(0, 2000, 500), L"U"))->marca(), L"P2");
}

TEST_F(Sheets, RowsAreEditedWithoutTheirMarks) {
    const auto* const report =
        static_cast<protocol::DrawingReport*>(acrxSysRegistry()->at(protocol::kDrawingReportKey));
    const AcDbObjectId peca = u(0, 0, 500);
    list(peca, L"U");
    type({L"LISTAMATERIAL", L"", L"0,-1000"});
    const auto set = [&](AcDbObjectId row, const wchar_t* key, const wchar_t* value) {
        ACHAR* message = nullptr;
        const bool taken = report->set(row, key, value, message);
        EXPECT_EQ(taken, message == nullptr);
        const std::wstring reason = message != nullptr ? message : L"";
        acutDelString(message);
        return reason;
    };
    const AcDbObjectId row = rows()[0].record;
    const auto inTable = [&](const wchar_t* words) {
        return std::ranges::any_of(entities(), [&](AcDbObjectId id) {
            const AcDbObjectPointer<AcDbText> text(id, AcDb::kForRead);
            return text.object() != nullptr && std::wstring_view(text->textStringConst()) == words;
        });
    };
    EXPECT_EQ(set(row, L"observacao", L" galvanizar "), L"");
    EXPECT_EQ(rows()[0].observacao, L"galvanizar");
    EXPECT_TRUE(inTable(L"galvanizar")) << "the table follows";
    EXPECT_EQ(set(row, L"quantidade", L"5"), L"");
    EXPECT_EQ(rows()[0].quantidade, 5);
    // Refused: what follows from others, no number, no row, a sum over several pieces.
    EXPECT_NE(set(row, L"peso_total", L"3"), L"");
    EXPECT_NE(set(row, L"quantidade", L"0"), L"");
    EXPECT_NE(set(peca, L"observacao", L"x"), L"");
    EXPECT_NE(set({}, L"observacao", L"x"), L"");
    type({L"_copy"});
    pick(0, 0, {peca});
    type({L"", L"0,0", L"0,800", L""});
    ASSERT_EQ(rows()[0].quantidade, 10);
    EXPECT_NE(set(row, L"quantidade", L"7").find(L"MARCAS Contar"), std::wstring::npos);
    EXPECT_EQ(rows()[0].quantidade, 10);
}

TEST_F(Sheets, SecoesAndMarcasDoNotCount) {
    const AcDbObjectId barra = u(0, 0, 500);
    const auto t = total(barra);
    EXPECT_EQ(t.pieces, 1);
    EXPECT_NEAR(t.mass, areaOfU(200, 75, 3) * 7850e-9 * 500, 1e-9);
    EXPECT_GT(t.paintArea, 0.0);
    EXPECT_EQ(total(list(barra, L"U")).pieces, 0);
    EXPECT_EQ(total(u(0, 0, 500, ZpObject::kVistaSecao)).pieces, 0);
    // 100 x 8 x 120 x 7850 kg/m3.
    const AcDbObjectId loose = chapa(0, 60, 100, 120);
    EXPECT_NEAR(total(loose).mass, 0.7536, 1e-12);
    EXPECT_EQ(setValue(loose, L"comprimento", L"240"), L"");
    EXPECT_NEAR(total(loose).mass, 1.5072, 1e-12);
}

}  // namespace
