// SPDX-License-Identifier: MIT
// The panel of properties: values of the selection, and what typing them does.
#include <QComboBox>
#include <QLabel>
#include <QTreeView>

#include <cmath>

#include "acutmem.h"
#include "prancheta/editor/edit_group.h"
#include "prancheta/entities/insert_parts.h"
#include "protocol/edit.h"
#include "rxdict.h"
#include "tests/desktop/panels_fixture.h"

namespace panels {
namespace {

using builtin::Read;

class Properties : public PanelTest {
protected:
    void openPanel() {
        open(prancheta::desktop::makePropertiesPanel());
        view = find<QTreeView>("propriedades");
    }
    QModelIndex cell(const char* label) {
        return cellOf(view, QString::fromUtf8(label)).siblingAtColumn(1);
    }
    std::string value(const char* label) { return cell(label).data().toString().toStdString(); }
    void enter(const char* label, const char* text) {
        click(view, cell(label));
        typeInPlace(view, text);
    }
    void choose(const char* label, const char* text) {
        click(view, cell(label));
        auto* box = view->viewport()->findChild<QComboBox*>();
        ASSERT_NE(box, nullptr);
        const int index = box->findText(QString::fromUtf8(text));
        ASSERT_GE(index, 0) << text;
        box->setCurrentIndex(index);
        emit box->activated(index);
        settle();
    }
    std::string reason() {
        auto* label = find<QLabel>("motivo");
        return label->isVisible() ? label->text().toStdString() : std::string();
    }
    AcDbObjectId add(std::unique_ptr<AcDbEntity> entity) {
        AcDbObjectPointer<AcDbBlockTableRecord> space(editor->database().currentSpaceId(),
                                                      AcDb::kForWrite);
        AcDbObjectId id;
        EXPECT_EQ(space->appendAcDbEntity(id, entity.get()), Acad::eOk);
        (void)entity.release()->close();
        return id;
    }
    AcDbObjectId circle(double radius) {
        return add(
            std::make_unique<AcDbCircle>(AcGePoint3d(1, 2, 0), AcGeVector3d::kZAxis, radius));
    }

    QTreeView* view = nullptr;
};

TEST_F(Properties, TheRadiusOfACircle) {
    const AcDbObjectId id = circle(10.0);
    openPanel();
    EXPECT_EQ(find<QLabel>("titulo")->text().toStdString(),
              "Nada selecionado: do que for desenhado");
    EXPECT_EQ(value("Espessura de linha"), "PorCamada");
    ASSERT_TRUE(editor->variables().set(L"CECOLOR", std::wstring(L"255,128,0")));
    select({});
    EXPECT_EQ(value("Cor"), "255,128,0");
    choose("Espessura de linha", "0,35 mm");
    EXPECT_EQ(editor->variables().number(L"CELWEIGHT"), 35);
    changes->clear();
    select({id});
    EXPECT_EQ(find<QLabel>("titulo")->text(), "Círculo");
    EXPECT_EQ(value("Raio"), "10,0000 mm");
    EXPECT_EQ(value("Área"), "314,1593 mm²");
    const std::size_t before = steps();
    enter("Raio", "25.5");
    EXPECT_EQ(Read<AcDbCircle>(id)->radius(), 25.5);
    EXPECT_EQ(value("Diâmetro"), "51,0000 mm");
    EXPECT_EQ(steps(), before + 1);
    EXPECT_EQ(changes->count(), 1);
    enter("Raio", "7,25");
    EXPECT_EQ(Read<AcDbCircle>(id)->radius(), 7.25);
    undo();
    undo();
    EXPECT_EQ(Read<AcDbCircle>(id)->radius(), 10.0);
    EXPECT_EQ(value("Raio"), "10,0000 mm");
}

TEST_F(Properties, WrongInputLeavesTheOldValueAndSaysWhy) {
    const AcDbObjectId id = circle(10.0);
    openPanel();
    select({id});
    const std::size_t before = steps();
    for (const char* wrong : {"1,5,2", "1.234,5", "abc", "", "-3", "0", "1e999", "nan"}) {
        enter("Raio", wrong);
        EXPECT_EQ(Read<AcDbCircle>(id)->radius(), 10.0) << wrong;
        EXPECT_EQ(value("Raio"), "10,0000 mm") << wrong;
        EXPECT_NE(reason().find("Raio: "), std::string::npos) << wrong;
    }
    EXPECT_EQ(steps(), before);
    EXPECT_EQ(changes->count(), 0);
    // An entry left as it stands is no change; a right one clears the complaint.
    enter("Raio", "10");
    EXPECT_EQ(steps(), before);
    enter("Raio", "12");
    EXPECT_EQ(reason(), "");
}

TEST_F(Properties, SeveralObjectsShareWhatTheyHave) {
    type({L"_-layer", L"_n", L"Perfis,Cotas", L"_lo", L"Cotas", L""});
    const AcDbObjectId a = circle(10.0);
    const AcDbObjectId b = circle(20.0);
    const AcDbObjectId c =
        add(std::make_unique<AcDbLine>(AcGePoint3d(0, 0, 0), AcGePoint3d(9, 0, 0)));
    openPanel();
    select({a, b});
    EXPECT_EQ(value("Raio"), "*VARIA*");
    EXPECT_EQ(value("Centro X"), "1,0000 mm");
    enter("Raio", "7");
    EXPECT_EQ(Read<AcDbCircle>(b)->radius(), 7.0);
    EXPECT_EQ(value("Raio"), "7,0000 mm");
    undo();
    EXPECT_EQ(Read<AcDbCircle>(a)->radius(), 10.0);
    EXPECT_EQ(Read<AcDbCircle>(b)->radius(), 20.0);

    select({a, b, c});
    EXPECT_FALSE(cell("Raio").isValid());
    EXPECT_EQ(value("Tipo"), "*VARIA*");
    const std::size_t before = steps();
    choose("Camada", "Perfis");
    choose("Cor", "vermelho");
    EXPECT_EQ(layerOf(c), L"Perfis");
    EXPECT_EQ(Read<AcDbEntity>(b)->colorIndex(), 1);
    EXPECT_EQ(steps(), before + 2);
    choose("Cor", "PorCamada");
    EXPECT_EQ(Read<AcDbEntity>(b)->colorIndex(), 256);

    // What lies on a locked layer stays; alone it is refused.
    select({a});
    choose("Camada", "Cotas");
    EXPECT_EQ(layerOf(a), L"Cotas");
    enter("Raio", "99");
    EXPECT_EQ(Read<AcDbCircle>(a)->radius(), 10.0);
    EXPECT_NE(reason().find("bloqueadas"), std::string::npos);
    select({a, b});
    enter("Raio", "33");
    EXPECT_EQ(Read<AcDbCircle>(a)->radius(), 10.0);
    EXPECT_EQ(Read<AcDbCircle>(b)->radius(), 33.0);
}

TEST_F(Properties, LinesByLengthAndAngle) {
    const AcDbObjectId id =
        add(std::make_unique<AcDbLine>(AcGePoint3d(10, 20, 5), AcGePoint3d(40, 60, 5)));
    openPanel();
    select({id});
    EXPECT_EQ(value("Comprimento"), "50,0000 mm");  // 30, 40, 50
    EXPECT_EQ(value("Ângulo"), "53,1301°");
    enter("Comprimento", "100");
    builtin::expectPoint(Read<AcDbLine>(id)->endPoint(), 70, 100, 5);
    enter("Ângulo", "90");
    builtin::expectPoint(Read<AcDbLine>(id)->endPoint(), 10, 120, 5);
    enter("Início Y", "-20");
    builtin::expectPoint(Read<AcDbLine>(id)->startPoint(), 10, -20, 5);
}

TEST_F(Properties, AreaAndLengthOfAPolyline) {
    // A rectangle of 100 by 50 with a half circle of radius 25 on its right side.
    auto outline = std::make_unique<AcDbPolyline>();
    const AcGePoint2d corners[] = {{0, 0}, {100, 0}, {100, 50}, {0, 50}};
    for (unsigned i = 0; i < 4; ++i)
        ASSERT_EQ(outline->addVertexAt(i, corners[i], i == 1 ? 1.0 : 0.0), Acad::eOk);
    const AcDbObjectId id = add(std::move(outline));
    openPanel();
    select({id});
    EXPECT_EQ(value("Área"), "5981,7477 mm²");       // 5000 + pi 625 / 2
    EXPECT_EQ(value("Comprimento"), "278,5398 mm");  // 200 + 25 pi
    choose("Fechada", "Sim");
    EXPECT_TRUE(Read<AcDbPolyline>(id)->isClosed());
    EXPECT_EQ(value("Comprimento"), "328,5398 mm");
}

TEST_F(Properties, TextsAndDimensions) {
    const AcDbObjectId text = add(std::make_unique<AcDbText>(AcGePoint3d(0, 0, 0), L"P1"));
    const AcDbObjectId dimension = add(std::make_unique<AcDbAlignedDimension>(
        AcGePoint3d(0, 0, 0), AcGePoint3d(300, 400, 0), AcGePoint3d(0, 10, 0)));
    openPanel();
    select({text});
    enter("Conteúdo", "Viga ção");
    enter("Rotação", "-45");
    EXPECT_STREQ(Read<AcDbText>(text)->textStringConst(), L"Viga ção");
    EXPECT_NEAR(Read<AcDbText>(text)->rotation(), -std::atan(1.0), 1e-12);
    select({dimension});
    EXPECT_EQ(value("Medida"), "500,0000 mm");
    enter("Texto substituto", "L = <> mm");
    EXPECT_EQ(value("Texto mostrado"), "L = 500 mm");
    EXPECT_FALSE(cell("Medida").flags() & Qt::ItemIsEditable);
}

/// A module that knows points as bolts: their diameter is the elevation.
class Bolts : public protocol::EntityProperties {
public:
    void list(const AcDbEntity& entity, protocol::PropertySheet& sheet) const override {
        static const ACHAR* const kGrades[] = {L"A307", L"A325"};
        const AcGePoint3d p = static_cast<const AcDbPoint&>(entity).position();
        sheet.group(L"Parafuso");
        sheet.edit(L"d", L"Diâmetro (d)", prancheta::numberTextWide(p.z).c_str(), L"mm");
        sheet.choose(L"aco", L"Aço", p.x > 0.0 ? 1 : 0, 2, kGrades);
        sheet.show(L"massa", L"Massa", L"0.10 kg");
    }
    bool set(AcDbObjectId id, const ACHAR* key, const ACHAR* value,
             ACHAR*& message) const override {
        AcDbObjectPointer<AcDbPoint> point(id, AcDb::kForWrite);
        if (point.object() == nullptr) return false;
        AcGePoint3d p = point->position();
        double number = 0.0;
        const bool read = prancheta::parseNumber(std::wstring_view(value), number);
        if (!read || (p.y > 0.0 && number > 20.0)) {
            (void)acutNewString(L"O furo não comporta este parafuso.", message);
            return false;
        }
        (std::wstring_view(key) == L"d" ? p.z : p.x) = number;
        return point->setPosition(p) == Acad::eOk;
    }
    Totals totals(const AcDbEntity&) const override { return {1, 41.5, 1.7333}; }
};

class ModuleProperties : public Properties {
protected:
    ModuleProperties() {
        m_class = newAcRxClass(protocol::kEntityPropertiesClass, AcRxObject::desc());
        AcDbPoint::desc()->addX(m_class, &m_bolts);
    }
    ~ModuleProperties() override {
        panel.reset();
        AcDbPoint::desc()->delX(m_class);
        deleteAcRxClass(m_class);
    }
    AcDbObjectId bolt(double x, double y, double z) {
        return add(std::make_unique<AcDbPoint>(AcGePoint3d(x, y, z)));
    }

private:
    Bolts m_bolts;
    AcRxClass* m_class = nullptr;
};

TEST_F(Properties, AttributesOfAnInsertion) {
    type({L"_attdef", L"", L"FOLHA", L"", L"1", L"0,0", L"5", L"0", L"_block", L"C", L"0,0",
          L"_all", L""});
    openPanel();
    select({last()});
    EXPECT_EQ(value("Nome do bloco"), "C");
    EXPECT_EQ(value("FOLHA"), "1");
    enter("FOLHA", "A2");
    enter("Posição X", "30");
    enter("Nome do bloco", "*Model_Space");
    EXPECT_EQ(value("Nome do bloco"), "C");
    const Read<AcDbBlockReference> insertion(last());
    const AcDbAttribute* const attribute = prancheta::attributesOf(*insertion.object())[0];
    EXPECT_STREQ(attribute->textStringConst(), L"A2");
    EXPECT_EQ(attribute->position().x, 30.0);
}

TEST_F(ModuleProperties, RowsOfAModule) {
    const AcDbObjectId a = bolt(0, 0, 16);
    const AcDbObjectId b = bolt(1, 1, 16);
    openPanel();
    select({a, b});
    EXPECT_EQ(value("Diâmetro (d)"), "16 mm");
    EXPECT_EQ(value("Aço"), "*VARIA*");
    EXPECT_FALSE(cell("Posição X").isValid());
    choose("Aço", "A325");
    EXPECT_EQ(Read<AcDbPoint>(a)->position().x, 1.0);
    EXPECT_EQ(value("Aço"), "A325");
    // The first one takes it, the second one does not: both stay.
    const std::size_t before = steps();
    enter("Diâmetro (d)", "24");
    EXPECT_EQ(Read<AcDbPoint>(a)->position().z, 16.0);
    EXPECT_EQ(Read<AcDbPoint>(b)->position().z, 16.0);
    EXPECT_NE(reason().find("O furo não comporta"), std::string::npos);
    EXPECT_EQ(steps(), before);
}

TEST_F(ModuleProperties, TotalsOfTheSelection) {
    const AcDbObjectId a = bolt(0, 0, 16);
    const AcDbObjectId b = bolt(1, 0, 16);
    const AcDbObjectId c = bolt(2, 0, 16);
    const auto totals = [&](std::vector<AcDbObjectId> ids) {
        editor->selection().select(std::move(ids));
        return prancheta::desktop::selectionTotals(*editor).toStdString();
    };
    EXPECT_EQ(totals({}), "");
    EXPECT_EQ(totals({circle(5.0)}), "");
    EXPECT_EQ(totals({a}), "1 peça   41,50 kg   1,73 m²");
    EXPECT_EQ(totals({a, b, circle(5.0), c}), "3 peças   124,50 kg   5,20 m²");
    {
        AcDbObjectPointer<AcDbEntity> gone(c, AcDb::kForWrite);
        ASSERT_EQ(gone->erase(), Acad::eOk);
    }
    EXPECT_EQ(totals({a, c}), "1 peça   41,50 kg   1,73 m²");
}

/// Changes a second entity at the end of each edit, as modules do that tie entities together.
class Follower : public AcEditorReactor {
public:
    explicit Follower(AcDbObjectId follower) : m_follower(follower) {}
    void commandWillStart(const ACHAR*) override { ++started; }
    void commandEnded(const ACHAR*) override {
        ++ended;
        AcDbObjectPointer<AcDbCircle> circle(m_follower, AcDb::kForWrite);
        (void)circle->setRadius(circle->radius() + 1.0);
    }
    int started = 0;
    int ended = 0;

private:
    AcDbObjectId m_follower;
};

TEST_F(Properties, WhatFollowsAnEditIsInItsStep) {
    const AcDbObjectId id = circle(10.0);
    const AcDbObjectId tied = circle(50.0);
    openPanel();
    select({id});
    Follower follower(tied);
    editor->programs().acEditor().addReactor(&follower);
    const std::size_t before = steps();
    enter("Raio", "20");
    editor->programs().acEditor().removeReactor(&follower);
    EXPECT_EQ(follower.started, 1);
    EXPECT_EQ(follower.ended, 1);
    EXPECT_EQ(steps(), before + 1);
    undo();
    EXPECT_EQ(Read<AcDbCircle>(id)->radius(), 10.0);
    EXPECT_EQ(Read<AcDbCircle>(tied)->radius(), 50.0);
}

}  // namespace
}  // namespace panels
