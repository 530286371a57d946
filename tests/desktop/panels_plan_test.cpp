// SPDX-License-Identifier: MIT
// The panel of the cutting plan.
#include <QHelpEvent>
#include <QLabel>
#include <QPushButton>
#include <QToolTip>

#include "acutmem.h"
#include "prancheta/desktop/panels/list_file.h"
#include "prancheta/desktop/panels/plan_bars.h"
#include "protocol/plan.h"
#include "protocol/report.h"
#include "rxdict.h"
#include "tests/desktop/panels_fixture.h"

namespace panels {
namespace {

using protocol::PlanVisitor;

/// Plans one bar of 6000 and its half, P1 of 1000 behind a trim of 10 and P2 of 2000 behind a cut
/// of 5.
class Planner : public protocol::CuttingPlan {
public:
    const ACHAR* command() const override { return L"PLANO"; }
    void describe(AcDbDatabase&, PlanVisitor& v) const override {
        for (int i = 1; i <= lists; ++i) v.list(2 * i, L"Perfil");
        tell(v);
    }
    bool use(const PlanVisitor::Answers& given, ACHAR*& message) const override {
        if (std::wstring_view(given.sawCut) == L"x") {
            EXPECT_EQ(acutNewString(L"Corte inválido.", message), Acad::eOk);
            return false;
        }
        stock = given.stock;
        return true;
    }
    bool plan(AcDbDatabase&, int list, PlanVisitor& v, ACHAR*& message) const override {
        if (empty) {
            EXPECT_EQ(acutNewString(L"Nada a cortar.", message), Acad::eOk);
            return false;
        }
        tell(v);
        v.begin(list);
        v.product(L"U 200: 2 barras");
        v.note(L"P9 não cabe");
        v.bar({6000, 2, false, 2980, 0.5, L"1000 P1 + 2000 P2"});
        v.cut(L"P1", 10, 1000);
        v.cut(L"P2", 1015, 2000);
        v.bar({3000, 1, true, 0, 1.0, L"3000 P3"});
        v.cut(L"P3", 0, 3000);
        v.end();
        return true;
    }
    std::size_t stamp(AcDbDatabase&, int list) const override {
        return rows + static_cast<std::size_t>(list);
    }
    void tell(PlanVisitor& v) const { v.answers({stock.c_str(), L"5", L"10"}); }

    mutable std::wstring stock = L"6000";
    int lists = 1;
    bool empty = false;
    std::size_t rows = 0;
};

class PlanPanelTest : public PanelTest {
protected:
    PlanPanelTest() { acrxSysRegistry()->atPut(protocol::kCuttingPlanKey, &planner); }
    ~PlanPanelTest() override {
        panel.reset();
        acrxSysRegistry()->remove(protocol::kCuttingPlanKey);
    }
    void openPanel() {
        open(prancheta::desktop::makePlanPanel());
        QObject::connect(panel.get(), &Panel::wanted, [this] { ++wanted; });
        bars = find<prancheta::desktop::PlanBars>("barras");
    }
    void press(const char* name) { QTest::mouseClick(find<QPushButton>(name), Qt::LeftButton); }
    std::string notice() {
        auto* const label = find<QLabel>("aviso");
        return label->isVisible() ? label->text().toStdString() : "";
    }
    /// What is told of the place `mm` along a bar.
    std::string tip(std::size_t bar, double mm) {
        const QRectF rect = bars->rectOf(0, bar);
        const QPoint at(static_cast<int>(rect.left() +
                                         mm * rect.width() / bars->products()[0].bars[bar].length),
                        static_cast<int>(rect.center().y()));
        QHelpEvent help(QEvent::ToolTip, at, bars->viewport()->mapToGlobal(at));
        QCoreApplication::sendEvent(bars->viewport(), &help);
        return QToolTip::text().toStdString();
    }

    Planner planner;
    prancheta::desktop::PlanBars* bars = nullptr;
    int wanted = 0;
};

TEST_F(PlanPanelTest, BarsToScale) {
    openPanel();
    EXPECT_TRUE(bars->products().empty()) << "nothing is computed unasked";
    EXPECT_FALSE(find<QPushButton>("desenhar")->isEnabled());
    press("calcular");
    ASSERT_EQ(bars->products().size(), 1u);
    EXPECT_EQ(bars->products()[0].notes, QStringList{QString::fromUtf8("P9 não cabe")});
    EXPECT_NEAR(bars->rectOf(0, 1).width(), 0.5 * bars->rectOf(0, 0).width(), 1e-9);
    EXPECT_LT(bars->rectOf(0, 0).bottom(), bars->rectOf(0, 1).top());
    for (const auto& [bar, mm, told] : std::vector<std::tuple<std::size_t, double, std::string>>{
             {0, 60.0, "P1: 1000 mm"},
             {0, 960.0, "P1: 1000 mm"},
             {0, 1070.0, "P2: 2000 mm"},
             {0, 2960.0, "P2: 2000 mm"},
             {0, 3100.0, "2 x 6000: 1000 P1 + 2000 P2"},
             {1, 2900.0, "P3: 3000 mm"}})
        EXPECT_EQ(tip(bar, mm), told) << mm;
    // Drawn, and nothing of it outside: the rest is hatched on the ground, the pieces are filled.
    const QImage image = bars->viewport()->grab().toImage();
    const auto colors = [&](double from, double to) {
        std::set<QRgb> found;
        const QRectF rect = bars->rectOf(0, 0);
        for (double mm = from; mm < to; mm += 50.0)
            found.insert(image.pixel(static_cast<int>(rect.left() + mm * rect.width() / 6000.0),
                                     static_cast<int>(rect.bottom() - 3.0)));
        return found.size();
    };
    EXPECT_EQ(colors(1100, 2950), 1u);
    EXPECT_GT(colors(3100, 5900), 1u);
}

TEST_F(PlanPanelTest, WhatIsRefusedIsTold) {
    openPanel();
    find<QLineEdit>("corte")->setText("x");
    press("calcular");
    EXPECT_EQ(notice(), "Corte inválido.");
    find<QLineEdit>("corte")->setText("3");
    find<QLineEdit>("estoque")->setText("7000");
    QTest::keyClick(find<QLineEdit>("estoque"), Qt::Key_Return);
    EXPECT_EQ(planner.stock, L"7000");
    EXPECT_EQ(notice(), "");
    planner.rows = 1;
    panel->refresh();
    EXPECT_EQ(notice(), "") << "the drawing is the same";
    type({L"_line", L"0,0", L"5,5", L""});
    panel->refresh();
    EXPECT_EQ(notice(), "A lista mudou depois deste plano; calcule-o de novo.");
    planner.empty = true;
    press("calcular");
    EXPECT_EQ(notice(), "Nada a cortar.");
    EXPECT_TRUE(bars->products().empty());
    acrxSysRegistry()->remove(protocol::kCuttingPlanKey);
    press("calcular");
    EXPECT_EQ(notice().rfind("Nenhum módulo", 0), 0u);
}

TEST_F(PlanPanelTest, GoesOnInTheCommand) {
    planner.lists = 2;
    openPanel();
    press("calcular");
    find<QLineEdit>("estoque")->setText("9000");  // not what the plan is for
    press("desenhar");
    EXPECT_EQ(commands, QStringList{"PLANO 2\n6000\n5\n10"});
    // A command shows its own plan.
    auto* const viewer = static_cast<PlanVisitor*>(acrxSysRegistry()->at(protocol::kPlanViewerKey));
    ASSERT_NE(viewer, nullptr);
    planner.stock = L"8000";
    wanted = 0;
    ACHAR* none = nullptr;
    EXPECT_TRUE(planner.plan(editor->database(), 4, *viewer, none));
    EXPECT_EQ(wanted, 1);
    EXPECT_EQ(find<QLineEdit>("estoque")->text(), "8000");
    press("desenhar");
    EXPECT_EQ(commands.back(), "PLANO 4\n8000\n5\n10");
    panel->setEditor(nullptr);
    EXPECT_TRUE(bars->products().empty());
}

TEST(ListFiles, NamesGetTheirEndAndExtension) {
    const struct {
        const char* chosen;
        const char* end;
        const char* name;
    } cases[] = {{"a/obra", "", "a/obra.csv"},
                 {"a/Obra.CSV", "", "a/Obra.CSV"},
                 {"obra.v2", "-plano", "obra.v2-plano.csv"},
                 {"obra.CSV", "-plano", "obra-plano.CSV"},
                 {"Obra-PLANO.csv", "-plano", "Obra-PLANO.csv"},
                 {"obra-plano", "-plano", "obra-plano.csv"}};
    for (const auto& c : cases)
        EXPECT_EQ(prancheta::desktop::listFileName(c.chosen, c.end, "csv").toStdString(), c.name);
}

}  // namespace
}  // namespace panels
