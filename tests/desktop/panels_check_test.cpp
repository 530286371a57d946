// SPDX-License-Identifier: MIT
// The panel of the check.
#include <QLabel>
#include <QPushButton>
#include <QTableView>

#include "panels_fixture.h"
#include "protocol/check.h"
#include "rxdict.h"

namespace {

class Answer : public protocol::DrawingCheck {
public:
    const ACHAR* command() const override { return L"CONFERIR"; }
    void check(AcDbDatabase&, protocol::FindingVisitor& visitor) const override {
        for (const auto& [severity, objects] : findings)
            visitor.finding(
                {severity, L"P1", L"a peça sobra.", L"Apague-a.", {500, 700, 0}, objects});
    }
    std::vector<std::pair<protocol::Severity, std::vector<AcDbObjectId>>> findings;
};

class CheckPanel : public panels::PanelTest {
protected:
    CheckPanel() {
        type({L"_line", L"0,0", L"1000,0", L"1000,2000", L""});
        lines = entities();
        open(prancheta::desktop::makeCheckPanel());
        view = find<QTableView>("achados");
    }
    ~CheckPanel() override {
        panel.reset();
        acrxSysRegistry()->remove(protocol::kDrawingCheckKey);
    }
    void check() { QTest::mouseClick(find<QPushButton>("conferir"), Qt::LeftButton); }
    std::string summary() { return find<QLabel>("resumo")->text().toStdString(); }

    Answer answer;
    std::vector<AcDbObjectId> lines;
    QTableView* view = nullptr;
};

TEST_F(CheckPanel, ListsFindingsAndGoesToThem) {
    using enum protocol::Severity;
    check();
    ASSERT_EQ(messages.size(), 1);
    EXPECT_TRUE(messages.front().contains("ARX"));
    acrxSysRegistry()->atPut(protocol::kDrawingCheckKey, &answer);
    answer.findings = {{Fault, {lines[1], lines[0]}},
                       {Hint, {editor->database().namedObjectsDictionaryId()}}};
    check();
    ASSERT_EQ(view->model()->rowCount(), 2);
    EXPECT_EQ(summary(), "1 falha, 1 aviso.");
    EXPECT_EQ(view->model()->index(0, 1).data().toString(), "P1");
    EXPECT_EQ(view->model()->index(0, 2).data().toString(), "a peça sobra.");
    // 0 to 1000 by 0 to 2000, with a quarter of the larger side about it.
    click(view, view->model()->index(0, 2));
    EXPECT_TRUE(commands.isEmpty());
    EXPECT_EQ(find<QLabel>("texto")->text().toStdString(), "a peça sobra. Apague-a.");
    QTest::keyClick(view, Qt::Key_Return);
    EXPECT_EQ(commands, QStringList{"'_ZOOM _Window\n-500.000,-500.000\n1500.000,2500.000"});
    EXPECT_EQ(editor->selection().ids(), (std::vector<AcDbObjectId>{lines[1], lines[0]}));
    // What is no entity is shown by its place.
    click(view, view->model()->index(1, 2));
    QTest::mouseDClick(view->viewport(), Qt::LeftButton, Qt::NoModifier,
                       view->visualRect(view->model()->index(1, 2)).center());
    EXPECT_EQ(commands.back(), "'_ZOOM _Window\n475.000,675.000\n525.000,725.000");
    EXPECT_TRUE(editor->selection().ids().empty());
}

TEST_F(CheckPanel, SaysThatTheDrawingChanged) {
    acrxSysRegistry()->atPut(protocol::kDrawingCheckKey, &answer);
    check();
    panel->refresh();
    EXPECT_EQ(summary(), "Nenhuma falha encontrada.");
    answer.findings = {{protocol::Severity::Fault, {lines[0]}}};
    type({L"_circle", L"0,0", L"5"});
    panel->refresh();
    EXPECT_EQ(summary(), "Nenhuma falha encontrada. O desenho mudou depois.");
    EXPECT_EQ(view->model()->rowCount(), 0) << "checked when it is asked for";
    check();
    EXPECT_EQ(summary(), "1 falha.");
    panel->setEditor(editor.get());
    EXPECT_EQ(view->model()->rowCount(), 0);
    EXPECT_EQ(summary(), "");
}

}  // namespace
