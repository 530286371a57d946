// SPDX-License-Identifier: MIT
// System variables, alone and bound to the drawing.
#include <algorithm>
#include <limits>

#include "fixture.h"

namespace {

using prancheta::VariableAccess;
using prancheta::VariableValue;

class VariablesTest : public DatabaseTest {
protected:
    prancheta::SystemVariables& variables() { return core().variables(); }
    bool set(const wchar_t* name, const VariableValue& value) {
        return variables().set(name, value).ok();
    }
};

std::wstring text(const wchar_t* t) { return t; }

TEST_F(VariablesTest, TypeRangeAndAccessAreChecked) {
    EXPECT_TRUE(set(L"osmode", short{0}));
    EXPECT_EQ(variables().number(L"OSMODE"), 0);
    EXPECT_FALSE(set(L"OSMODE", 1.0));
    EXPECT_FALSE(set(L"OSMODE", short{-1}));
    EXPECT_FALSE(set(L"CMDECHO", short{2}));
    EXPECT_FALSE(set(L"LTSCALE", 0.0));
    EXPECT_FALSE(set(L"LTSCALE", std::numeric_limits<double>::quiet_NaN()));
    EXPECT_TRUE(set(L"DIMSCALE", 0.0));
    EXPECT_FALSE(set(L"ACADVER", text(L"19")));
    EXPECT_FALSE(set(L"NADA", short{1}));
    EXPECT_EQ(variables().number(L"OSMODE"), 0);
    EXPECT_NE(variables().set(L"CMDECHO", short{2}).error().text.find("de 0 a 1"),
              std::string::npos);
    EXPECT_NE(variables().set(L"DWGNAME", text(L"a")).error().text.find("somente de leitura"),
              std::string::npos);
}

TEST_F(VariablesTest, KnownDefaultsInAlphabeticalOrder) {
    EXPECT_EQ(variables().number(L"OSMODE"), 4133);
    EXPECT_EQ(variables().number(L"PICKBOX"), 3);
    EXPECT_EQ(variables().number(L"LUPREC"), 4);
    EXPECT_EQ(variables().number(L"DIMDSEP"), 44);
    EXPECT_EQ(variables().text(L"CLAYER"), L"0");
    EXPECT_EQ(variables().find(L"nada"), nullptr);
    const auto& all = variables().all();
    EXPECT_TRUE(std::is_sorted(all.begin(), all.end(),
                               [](const auto& a, const auto& b) { return a.name < b.name; }));
    for (const auto& info : all) EXPECT_EQ(variables().find(info.name), &info);
}

TEST_F(VariablesTest, EditorMayRefuseAndIsTold) {
    int told = 0;
    variables().setHooks(
        [](const prancheta::VariableInfo& info, const VariableValue&) -> prancheta::Result<void> {
            if (info.name == L"ORTHOMODE") return prancheta::Error{"não", {}, 0, 0};
            return {};
        },
        [&](const prancheta::VariableInfo&) { ++told; });
    EXPECT_FALSE(set(L"ORTHOMODE", short{1}));
    EXPECT_EQ(told, 0);
    EXPECT_TRUE(set(L"SNAPMODE", short{1}));
    EXPECT_TRUE(set(L"SNAPMODE", short{1}));  // nothing new
    EXPECT_TRUE(set(L"CLAYER", text(L"0")));
    variables().force(L"CMDACTIVE", short{1});
    EXPECT_EQ(told, 2);
    EXPECT_FALSE(undo().canUndo());
}

TEST_F(VariablesTest, CurrentLayerFollowsInBothDirections) {
    const AcDbObjectId cotas = core().ensureLayer(L"Cotas");
    const AcDbObjectId marcas = core().ensureLayer(L"Marcas");
    EXPECT_TRUE(set(L"CLAYER", text(L"COTAS")));
    EXPECT_EQ(database.clayer(), cotas);
    EXPECT_EQ(variables().text(L"CLAYER"), L"Cotas");
    EXPECT_EQ(database.setClayer(marcas), Acad::eOk);
    EXPECT_EQ(variables().text(L"CLAYER"), L"Marcas");
    EXPECT_FALSE(set(L"CLAYER", text(L"nenhuma")));
    AcDbObjectPointer<AcDbLayerTableRecord>(cotas, AcDb::kForWrite)->setIsFrozen(true);
    EXPECT_FALSE(set(L"CLAYER", text(L"Cotas")));
    EXPECT_EQ(database.clayer(), marcas);
    AcDbObjectPointer<AcDbLayerTableRecord>(marcas, AcDb::kForWrite)->setName(L"Textos");
    EXPECT_EQ(variables().text(L"CLAYER"), L"Textos");
    undo().undo();  // the name
    EXPECT_EQ(variables().text(L"CLAYER"), L"Marcas");
    undo().undo();  // frozen
    undo().undo();  // current again
    EXPECT_EQ(variables().text(L"CLAYER"), L"Cotas");
    EXPECT_EQ(database.clayer(), cotas);
    undo().undo();
    EXPECT_EQ(database.clayer(), database.layerZero());
    while (undo().redo()) {
    }
    EXPECT_EQ(database.clayer(), marcas);
    EXPECT_EQ(variables().text(L"CLAYER"), L"Textos");
}

TEST_F(VariablesTest, ColoursAndScales) {
    EXPECT_EQ(database.cecolor(), 256);
    EXPECT_TRUE(set(L"CECOLOR", text(L"porbloco")));
    EXPECT_EQ(database.cecolor(), 0);
    EXPECT_EQ(variables().text(L"CECOLOR"), L"BYBLOCK");
    EXPECT_TRUE(set(L"CECOLOR", text(L"255")));
    EXPECT_EQ(database.cecolor(), 255);
    for (const wchar_t* bad :
         {L"256", L"0", L"1.5", L"azulão", L"", L"1,2", L"1,2,256", L"1,2,3,4"})
        EXPECT_FALSE(set(L"CECOLOR", text(bad))) << toUtf8(bad);
    EXPECT_EQ(database.setCecolor(3), Acad::eOk);
    EXPECT_EQ(variables().text(L"CECOLOR"), L"3");
    EXPECT_EQ(database.setLtscale(-1), Acad::eInvalidInput);
    EXPECT_EQ(database.setLtscale(20), Acad::eOk);
    EXPECT_EQ(variables().real(L"LTSCALE"), 20);
    undo().undo();
    EXPECT_EQ(database.ltscale(), 1);
}

TEST_F(VariablesTest, DimensionValuesLiveInTheCurrentStyle) {
    EXPECT_TRUE(set(L"DIMTXT", 5.0));
    EXPECT_EQ(AcDbObjectPointer<AcDbDimStyleTableRecord>(database.dimstyle(), AcDb::kForRead)
                  ->values()
                  .dimtxt,
              5.0);
    auto* other = new AcDbDimStyleTableRecord;
    AcDbDimStyleValues values;
    values.dimtxt = 9;
    values.dimscale = 25;
    other->setValues(values);
    other->setName(L"Outro");
    AcDbDimStyleTable* table = nullptr;
    ASSERT_EQ(database.getSymbolTable(table, AcDb::kForWrite), Acad::eOk);
    ASSERT_EQ(table->add(other), Acad::eOk);
    table->close();
    other->close();
    undo().begin(L"ESTILO");
    EXPECT_TRUE(set(L"DIMSTYLE", text(L"outro")));
    undo().end();
    EXPECT_EQ(variables().real(L"DIMTXT"), 9);
    EXPECT_EQ(database.dimscale(), 25);
    EXPECT_TRUE(set(L"DIMDEC", short{1}));
    undo().undo();
    EXPECT_EQ(variables().number(L"DIMDEC"), 2);
    undo().undo();
    EXPECT_EQ(variables().text(L"DIMSTYLE"), L"Standard");
    EXPECT_EQ(variables().real(L"DIMTXT"), 5);
    EXPECT_EQ(database.dimscale(), 1);
    undo().redo();
    undo().redo();
    EXPECT_EQ(variables().real(L"DIMTXT"), 9);
    EXPECT_EQ(variables().number(L"DIMDEC"), 1);
    EXPECT_EQ(database.dimscale(), 25);
}

}  // namespace
