// SPDX-License-Identifier: MIT
// Material list: cutting plans, left-overs, delivery list; what is drawn and written of them.
#include "acutmem.h"
#include "protocol/plan.h"
#include "rxdict.h"
#include "tests/zp/matlist.h"
#include "texts/number.h"
#include "zp/matlist/formats.h"
#include "zp/matlist/plan_files.h"
#include "zp/matlist/resumo.h"

namespace {

using namespace zp_tests;
using Texts = std::vector<std::wstring>;
using zp::matlist::CutSettings;
using zp::matlist::plansOf;

Linha row(const wchar_t* marca, int quantidade, const wchar_t* descricao, const wchar_t* dimensoes,
          double comprimento, const wchar_t* material = L"ACO", double peso = 1.0) {
    return {marca,       quantidade, descricao,         dimensoes, material,
            comprimento, peso,       peso * quantidade, 1.0,       nullptr};
}

Texts linesOf(const std::vector<Linha>& rows, const CutSettings& settings,
              const zp::matlist::LeftOvers& leftOvers = {}) {
    Texts lines;
    for (const auto& product : plansOf(rows, settings, leftOvers)) {
        lines.push_back(lineOf(product));
        for (const std::wstring& line : tooLongLines(product, settings)) lines.push_back(line);
    }
    return lines;
}

TEST(CuttingPlans, WhatIsBoughtForTheRows) {
    // Two single U of each built-up member; 2 x 2000 of the mark P2 and one cut fit beside none of
    // them. Plates are no bars. A36 is another product, and takes the left-overs that ACO leaves.
    const std::vector<Linha> rows = {
        row(L"P1", 1, L"2U ][", L"200x75x2,65 a=10", 6000),
        row(L"P2", 2, L"U", L"200x75x2,65", 2000),
        row(L"P3", 4, L"Chapa", L"60x8", 120),
        row(L"P4", 1, L"U", L"200x75x2,65", 2000, L"A36"),
        row(L"P5", 2, L"TQ", L"60x60x4", 12500),
    };
    EXPECT_EQ(linesOf(rows, {{6000}, 3, 0}),
              (Texts{L"U 200x75x2,65 (ACO): 3 barras de 6000, aproveitamento 88,9 %, mínimo "
                     L"teórico 3.",
                     L"U 200x75x2,65 (A36): 1 barra de 6000, aproveitamento 33,3 %, mínimo "
                     L"teórico 1.",
                     L"TQ 60x60x4: nenhuma barra.",
                     L"TQ 60x60x4: P5 (2 peças de 12500 mm) não cabe em barra nenhuma: a maior dá "
                     L"6000 mm. Preveja uma emenda ou informe uma barra maior."}));
    // 12000 holds one 6000, a cut, two 2000 and another cut: 10006; the other 6000 a bar of its
    // own.
    EXPECT_EQ(linesOf({rows[0], rows[1]}, {{6000, 12000}, 3, 0}),
              (Texts{L"U 200x75x2,65: 1 barra de 6000 e 1 de 12000, aproveitamento 88,9 %, mínimo "
                     L"teórico 18000 mm."}));
    // A 6000 is too long for a trimmed bar.
    EXPECT_EQ(linesOf({rows[0]}, {{6000}, 3, 1})[1],
              L"U 200x75x2,65: P1 (2 peças de 6000 mm) não cabe em barra nenhuma: a maior dá 5998 "
              L"mm. Preveja uma emenda ou informe uma barra maior.");
    EXPECT_EQ(linesOf({rows[1], rows[3]}, {{6000}, 3, 0},
                      zp::matlist::leftOversIn(L"U 200X75X2.65\t2000\t3\r\n")),
              (Texts{L"U 200x75x2,65 (ACO): 2 retalhos, aproveitamento 100,0 %, mínimo teórico 0.",
                     L"U 200x75x2,65 (A36): 1 retalho, aproveitamento 100,0 %, mínimo teórico "
                     L"0."}));
    EXPECT_EQ(linesOf({row(L"P1", 150000, L"2U ][", L"200x75x3", 10)}, {})[0],
              L"U 200x75x3: mais de 200000 peças; reparta a lista para ter o plano.");
}

TEST(LeftOvers, DamagedRowsAreNamed) {
    const auto read = zp::matlist::leftOversIn(
        L"; retalhos\r\n\r\nU 200x75x3\t1500,5\t2\nU 200x75x3\t900\t1\t da obra 7\n"
        L"U 200x75x3 1500 2\n\t100\t1\nU 1\t-5\t1\nU 1\t1e9\t1\nU 1\t100\t1,5\nU 1\t100\t0");
    ASSERT_EQ(read.byKey.size(), 1u);
    const auto& lengths = read.byKey.at(zp::matlist::keyOf(L"u 200 x 75 x 3"));
    ASSERT_EQ(lengths.size(), 2u);
    EXPECT_EQ(lengths[0].length, 1500.5);
    EXPECT_EQ(lengths[0].quantity, 2);
    ASSERT_EQ(read.faults.size(), 6u);
    EXPECT_EQ(read.faults[0],
              L"retalhos.lst, linha 5: são esperados perfil, comprimento e quantidade, separados "
              L"por tabulação. A linha ficou de fora; corrija o arquivo.");
    EXPECT_EQ(read.faults[5],
              L"retalhos.lst, linha 10: quantidade inválida: 0. A linha ficou de fora; corrija o "
              L"arquivo.");
}

TEST(DeliveryList, PackagesByFirstFit) {
    // 60 opens four packages of 100, 40 fills two of them, 30 goes into the third.
    EXPECT_EQ(
        zp::matlist::packageLines(
            {row(L"P1", 2, L"U", L"1", 1, L"", 40), row(L"P2", 4, L"U", L"1", 1, L"", 60),
             row(L"P3", 2, L"U", L"2", 1, L"", 250.5), row(L"P4", 1, L"Chapa", L"1x1", 1, L"", 30)},
            100),
        (Texts{L"Pacotes 1 a 2: 1 P3 (mais pesada que o pacote); 250,5 kg cada",
               L"Pacotes 3 a 4: 1 P2 + 1 P1; 100,0 kg cada", L"Pacote 5: 1 P2 + 1 P4; 90,0 kg",
               L"Pacote 6: 1 P2; 60,0 kg"}));
}

TEST_F(MaterialListTest, ShapesOfOneNameAreBoughtApart) {
    // 28 kg/m to the next kg, both; and a rolled and a bent U 100x50x6.
    const auto vs = [&](double bc, double tc) {
        const AcDbObjectId id =
            put(new ZpISoldado({}, ZpObject::kVistaDireita, 300, bc, bc, 4.75, tc, 2900, 0, 0, 28));
        change(id, [](ZpObject& p) { static_cast<ZpISoldado&>(p).setSubType(ZpISoldado::kVS); });
        return id;
    };
    enter(1, 0, vs(120, 9.5));
    enter(1, 0, vs(140, 8));
    enter(1, 0, vs(120, 9.5));
    enter(1, 0,
          put(new ZpULaminado({}, ZpObject::kVistaDireita, 100, 50, 6, 50, 6, 6, 1, 6, 0, 0, 2900,
                              0, 0)));
    enter(1, 0,
          put(new ZpUDobrado({}, ZpObject::kVistaDireita, 100, 50, 50, 6, 6, 0.5 * kPi, 0.5 * kPi,
                             2900, 0, 0, 0)));
    const std::vector<Linha> all = rows();
    Texts names;
    for (const auto& plan : plansOf(all, {{6000}, 3, 0}, {})) names.push_back(plan.name);
    EXPECT_EQ(names,
              (Texts{L"VS 300x28 (soldado 300x120x4,75x9,5)", L"VS 300x28 (soldado 300x140x4,75x8)",
                     L"U 100x50x6 (laminado 100x50x6)", L"U 100x50x6 (dobrado 100x50x6)"}));
}

TEST_F(MaterialListTest, ThePlanIsDrawnAndWritten) {
    ui.mayComplain = true;
    type({L"PLANOCORTE"});
    EXPECT_TRUE(said(L"O desenho não tem lista de material.\n"));
    enter(3);  // U 200x75x3 of 500
    type({L"PLANOCORTE", L"1000", L"0", L"0", L""});
    EXPECT_EQ(countOf<AcDbLine>(), 0u) << "listed only";
    type({L"PLANOCORTE", L"", L"", L"", L"100,200"});  // the answers given last
    EXPECT_TRUE(asked(L"Barras em estoque <1000>: "));
    std::map<std::wstring, int> texts;
    for (const AcDbObjectId& id : entities()) {
        const AcDbObjectPointer<AcDbText> text(id, AcDb::kForRead);
        if (text.object() == nullptr) continue;
        ++texts[text->textStringConst()];
    }
    // Two bars, 2 x 500 and 500 with its rest: three cuts between them.
    for (const auto& [text, n] : std::map<std::wstring, int>{{L"2 x 500 P1", 1},
                                                             {L"500 P1", 1},
                                                             {L"1 x 1000", 2},
                                                             {L"P1", 3},
                                                             {L"sobra 500", 1},
                                                             {L"mínimo teórico 2", 1}})
        EXPECT_EQ(texts[text], n) << testing::PrintToString(text);
    const std::filesystem::path folder = std::filesystem::temp_directory_path();
    for (const wchar_t* format : {L"csv", L"xlsx"}) {
        const std::filesystem::path file = folder / (std::wstring(L"zp_Obra-PLANO.") + format);
        std::filesystem::remove(file);
        type({L"LISTAMATERIAL", format, file.wstring().c_str()});
        EXPECT_TRUE(said(L"Plano de corte gravado em " + file.wstring()));
        EXPECT_GT(std::filesystem::file_size(file), 100u);
        std::filesystem::remove(file);
    }
    type({L"LISTAMATERIAL", L"csv", L"/nao/existe/x-plano"});
    EXPECT_TRUE(said(L"Não foi possível gravar /nao/existe/x-plano.csv"));
    type({L"_erase"});
    pick(0, 0, {rows()[0].ids[0]});
    type({L"", L"PLANOCORTE", L"", L"", L""});
    EXPECT_TRUE(said(L"A lista não tem barras para cortar.\n"));
}

/// What a host is told, a line for each.
class PlanReader : public protocol::PlanVisitor {
public:
    void list(int number, const ACHAR* group) override {
        say(L"lista " + std::to_wstring(number) + L' ' + group);
    }
    void answers(const Answers& a) override {
        say(std::wstring(a.stock) + L'|' + a.sawCut + L'|' + a.trim);
    }
    void begin(int list) override { say(L"plano " + std::to_wstring(list)); }
    void product(const ACHAR* line) override { say(line); }
    void note(const ACHAR* line) override { say(line); }
    void bar(const Bar& b) override {
        say(std::to_wstring(b.count) + L" x " + texts::withPoint(b.length, 1) +
            (b.leftOver ? L" retalho " : L" ") + b.cuts + L", " + texts::withPoint(b.rest, 1) +
            L", " + texts::withPoint(100.0 * b.utilisation, 1));
    }
    void cut(const ACHAR* marca, double at, double length) override {
        say(marca + (L' ' + texts::withPoint(at, 1)) + L' ' + texts::withPoint(length, 1));
    }
    void end() override { say(L"fim"); }
    void say(const std::wstring& line) { lines.push_back(line); }
    Texts lines;
};

TEST_F(MaterialListTest, APlanIsShownByTheHost) {
    const auto* const plans =
        static_cast<protocol::CuttingPlan*>(acrxSysRegistry()->at(protocol::kCuttingPlanKey));
    ASSERT_NE(plans, nullptr);
    const auto use = [&](const wchar_t* stock, const wchar_t* sawCut, const wchar_t* trim) {
        ACHAR* message = nullptr;
        const bool taken = plans->use({stock, sawCut, trim}, message);
        EXPECT_EQ(taken, message == nullptr);
        const std::wstring reason = message != nullptr ? message : L"";
        acutDelString(message);
        return reason;
    };
    ACHAR* none = nullptr;
    PlanReader told;
    EXPECT_FALSE(plans->plan(editor->database(), 1, told, none)) << "there is no list";
    EXPECT_EQ(std::wstring(none), L"A lista não tem barras para cortar.");
    acutDelString(none);
    enter(3);  // U 200x75x3 of 500
    const std::size_t before = plans->stamp(editor->database(), 1);
    EXPECT_EQ(use(L"1100;2000,5", L"3", L"5,5"), L"");
    // 1100 - 11 holds 500, a cut and 500, and 86 - 3 are left behind the last one's cut.
    EXPECT_EQ(use(L"1100", L"3", L""), L"");
    for (const auto& [stock, sawCut, trim, why] :
         std::vector<std::array<const wchar_t*, 4>>{{L"50", L"3", L"0", L"de 100 a 100000"},
                                                    {L"1000", L"x", L"0", L"Largura do corte"},
                                                    {L"1000", L"3", L"499,5", L"de 0 a 499 mm"}})
        EXPECT_NE(use(stock, sawCut, trim).find(why), std::wstring::npos) << why;
    EXPECT_TRUE(plans->plan(editor->database(), 1, told, none));
    const Texts plan{L"1100|3|5,5",
                     L"plano 1",
                     L"U 200x75x3: 2 barras de 1100, aproveitamento 68,2 %, mínimo teórico 2.",
                     L"1 x 1100 2 x 500 P1, 83, 90.9",
                     L"P1 5.5 500",
                     L"P1 508.5 500",
                     L"1 x 1100 500 P1, 586, 45.5",
                     L"P1 5.5 500",
                     L"fim"};
    EXPECT_EQ(told.lines, plan);
    told.lines.clear();
    plans->describe(editor->database(), told);
    EXPECT_EQ(told.lines, (Texts{L"lista 1 Perfil", plan[0]})) << "and the refused are not kept";
    // The command shows the same before its last question; then nothing changed.
    told.lines.clear();
    acrxSysRegistry()->atPut(protocol::kPlanViewerKey, &told);
    type({L"PLANOCORTE", L"", L"", L""});
    EXPECT_EQ(told.lines, plan);
    acrxSysRegistry()->remove(protocol::kPlanViewerKey);
    type({L""});
    EXPECT_EQ(plans->stamp(editor->database(), 1), before);
    enter(1);
    EXPECT_NE(plans->stamp(editor->database(), 1), before);
    use(L"6000,12000", L"3", L"0");
}

}  // namespace
