// SPDX-License-Identifier: MIT
// LAYER on the command line.
#include "prancheta/database/object_access.h"
#include "prancheta/editor/commands/support.h"
#include "tests/builtin/script_ui.h"

namespace builtin {
namespace {

class Layer : public Builtin {
protected:
    AcDbObjectId find(const wchar_t* name) {
        AcDbLayerTable* table = nullptr;
        AcDbObjectId id;
        if (editor->database().getSymbolTable(table, AcDb::kForRead) != Acad::eOk) return id;
        if (table->getAt(name, id) != Acad::eOk) id.setNull();
        (void)table->close();
        return id;
    }
    template <class F>
    auto of(const wchar_t* name, F f) {
        const Read<AcDbLayerTableRecord> layer(find(name));
        return (layer.object()->*f)();
    }
    bool trueColorOf(const wchar_t* name) {
        return prancheta::ObjectAccess::trueColor(
                   *Read<AcDbLayerTableRecord>(find(name)).object()) == prancheta::Rgb{0, 250, 2};
    }
    std::wstring current() { return editor->variables().text(L"CLAYER"); }
};

TEST_F(Layer, MakeNewAndSet) {
    type({L"camada", L"CRiar", L"Perfis", L"_n", L"Eixos, Cotas ,Chapas", L"_s", L"cotas", L""});
    EXPECT_EQ(current(), L"Cotas");
    for (const wchar_t* name : {L"Perfis", L"Eixos", L"Chapas"})
        EXPECT_FALSE(find(name).isNull()) << prancheta::toUtf8(name);
    // Made again, a layer is only made current.
    type({L"_layer", L"_m", L"PERFIS", L""});
    EXPECT_EQ(current(), L"Perfis");
    EXPECT_TRUE(asked(L"<Cotas>"));
    EXPECT_TRUE(said(L"Camada atual:  \"Cotas\""));
}

TEST_F(Layer, RefusedNames) {
    type({L"_-layer", L"_n", L"0,a|b,Boa", L"_s", L"Nada", L"_off", L"Nada*", L""});
    EXPECT_TRUE(said(L"A camada \"0\" já existe."));
    EXPECT_TRUE(said(L"O nome de camada \"a|b\" é inválido."));
    EXPECT_FALSE(find(L"Boa").isNull());
    EXPECT_TRUE(said(L"A camada \"Nada\" não existe."));
    EXPECT_TRUE(said(L"Nenhuma camada corresponde a \"Nada*\"."));
    EXPECT_EQ(current(), L"0");
}

TEST_F(Layer, SwitchesByListAndPattern) {
    using Record = AcDbLayerTableRecord;
    type({L"_-layer", L"_n", L"P1,P2,P30,Q", L"_off", L"p#", L"_f", L"*30,q", L"_lo", L"P?", L""});
    EXPECT_TRUE(of(L"P1", &Record::isOff) && of(L"P2", &Record::isOff));
    EXPECT_FALSE(of(L"P30", &Record::isOff) || of(L"Q", &Record::isOff));
    EXPECT_TRUE(of(L"P30", &Record::isFrozen) && of(L"Q", &Record::isFrozen));
    EXPECT_TRUE(of(L"P1", &Record::isLocked) && !of(L"P30", &Record::isLocked));
    type({L"-camada", L"LIG", L"*", L"DESC", L"*", L"DESB", L"P1", L""});
    EXPECT_FALSE(of(L"P1", &Record::isOff) || of(L"P30", &Record::isFrozen) ||
                 of(L"P1", &Record::isLocked));
    EXPECT_TRUE(of(L"P2", &Record::isLocked));
}

TEST_F(Layer, TheCurrentOneIsGuarded) {
    using Record = AcDbLayerTableRecord;
    type({L"_-layer", L"_f", L"0", L"_off", L"0", L"", L""});
    EXPECT_TRUE(said(L"Não é possível congelar a camada \"0\". Ela é a camada ATUAL."));
    EXPECT_FALSE(of(L"0", &Record::isFrozen));
    EXPECT_FALSE(of(L"0", &Record::isOff));
    type({L"_-layer", L"_off", L"0", L"_y", L""});
    EXPECT_TRUE(of(L"0", &Record::isOff));
    type({L"_-layer", L"_n", L"Fria", L"_f", L"Fria", L"_s", L"Fria", L""});
    EXPECT_EQ(current(), L"0");
    EXPECT_TRUE(said(L"Uma camada congelada não pode ser a atual."));
}

TEST_F(Layer, Properties) {
    using Record = AcDbLayerTableRecord;
    type({L"_-layer", L"_n", L"A,B", L"_c", L"vermelho", L"A", L"COR", L"-30", L"B", L"_l",
          L"hidden", L"A"});
    type({L"_lw", L"0.34", L"A", L"_p", L"não", L"B", L"_c", L"_blue", L"", L""});
    EXPECT_EQ(of(L"A", &Record::colorIndex), 1);
    EXPECT_EQ(of(L"B", &Record::colorIndex), 30);
    EXPECT_TRUE(of(L"B", &Record::isOff));
    EXPECT_EQ(of(L"0", &Record::colorIndex), 5);
    EXPECT_EQ(of(L"A", &Record::lineWeight), AcDb::kLnWt035);
    EXPECT_FALSE(of(L"B", &Record::isPlottable));
    type({L"_-layer", L"_c", L"0,250,256", L"_c", L"0,250,2", L"A", L"_c", L"1", L"B", L""});
    EXPECT_EQ(of(L"A", &Record::colorIndex), 3);
    EXPECT_TRUE(trueColorOf(L"A"));
    EXPECT_FALSE(trueColorOf(L"B"));
    type({L"_u"});
    EXPECT_EQ(of(L"A", &Record::colorIndex), 1);
    EXPECT_FALSE(trueColorOf(L"A"));
    const Read<AcDbLinetypeTableRecord> linetype(of(L"A", &Record::linetypeObjectId));
    const ACHAR* name = nullptr;
    ASSERT_EQ(linetype->getName(name), Acad::eOk);
    EXPECT_STREQ(name, L"HIDDEN");
}

TEST_F(Layer, RefusedProperties) {
    type({L"_-layer", L"_c", L"256", L"_l", L"inexistente", L"_lw", L"3", L"_p", L"talvez", L""});
    EXPECT_EQ(ui.complaints.size(), 4u);
    EXPECT_FALSE(editor->runner().active());
    EXPECT_EQ(of(L"0", &AcDbLayerTableRecord::colorIndex), 7);
}

TEST_F(Layer, TheOneThatCannotBeChangedIsNamed) {
    type({L"_-layer", L"_n", L"A,B", L""});
    {
        const Read<AcDbLayerTableRecord> held(find(L"A"));
        type({L"_-layer", L"_lo", L"*", L"_c", L"3", L"*", L""});
    }
    const std::wstring told = L"A camada \"A\" não pôde ser alterada.";
    const std::size_t first = ui.output.find(told);
    ASSERT_NE(first, std::wstring::npos);
    EXPECT_NE(ui.output.find(told, first + 1), std::wstring::npos);
    EXPECT_TRUE(of(L"B", &AcDbLayerTableRecord::isLocked));
}

TEST_F(Layer, Rename) {
    type({L"_-layer", L"_n", L"A,B", L"_r", L"A", L"Vigas", L"_r", L"0", L"_r", L"B", L"Vigas",
          L""});
    EXPECT_TRUE(find(L"A").isNull());
    EXPECT_FALSE(find(L"Vigas").isNull());
    EXPECT_TRUE(said(L"A camada \"0\" não pode ser renomeada."));
    EXPECT_FALSE(find(L"B").isNull());
}

TEST_F(Layer, List) {
    type({L"_-layer", L"_n", L"Vigas,Terças", L"_lo", L"Vigas", L"?", L"v*", L""});
    EXPECT_TRUE(said(L"\"Vigas\""));
    EXPECT_TRUE(said(L"ligada, bloqueada"));
    EXPECT_FALSE(said(L"\"Terças\""));
}

TEST_F(Layer, EscapeKeepsWhatWasDone) {
    type({L"_-layer", L"_m", L"Perfis", L"_c", L"^C"});
    EXPECT_FALSE(editor->runner().active());
    EXPECT_EQ(current(), L"Perfis");
}

TEST_F(Layer, PickedByWhatStandsOnThem) {
    type({L"_-layer", L"_n", L"a,b,c", L""});
    for (const wchar_t* name : {L"a", L"b", L"c"})
        type({L"_setvar", L"CLAYER", name, L"_line", L"0,0", L"9,9", L""});
    const auto state = [&] {
        std::wstring text;
        for (const AcDbObjectId& id : entities()) {
            const Read<AcDbLine> line(id);
            const Read<AcDbLayerTableRecord> layer(line->layerId());
            text += layer->isOff()      ? L'-'
                    : layer->isFrozen() ? L'*'
                    : layer->isLocked() ? L'!'
                                        : L'+';
        }
        return text;
    };
    const std::vector<AcDbObjectId> all = entities();
    ASSERT_EQ(state(), L"+++");
    editor->selection().select({all[0]});
    type({L"isolacamada"});
    EXPECT_EQ(state(), L"+--");
    EXPECT_EQ(layerOf(all[0]), editor->variables().text(L"CLAYER"));
    type({L"_layuniso"});
    EXPECT_EQ(state(), L"+++");
    type({L"_layuniso"});
    EXPECT_TRUE(said(L"Nenhuma camada foi isolada"));
    // The current layer, "a" now, stays.
    editor->selection().select({all[0], all[1]});
    type({L"_layoff"});
    EXPECT_EQ(state(), L"+-+");
    editor->selection().select({all[2], all[0]});
    type({L"_layfrz"});
    EXPECT_EQ(state(), L"+-*");
    type({L"camadaanterior"});
    EXPECT_EQ(state(), L"+-+");
    editor->selection().select({all[2]});
    type({L"_laylck"});
    EXPECT_EQ(state(), L"+-!");
    editor->selection().select({all[2]});
    type({L"_laymcur"});
    EXPECT_EQ(editor->variables().text(L"CLAYER"), L"c");
    type({L"_u", L"_u", L"_u"});
    EXPECT_EQ(state(), L"+-*");
}

TEST_F(Layer, SelectedByWhatTheyAre) {
    type({L"_-layer", L"_n", L"Banzo 1,Banzo 10", L""});
    type({L"_line", L"0,0", L"5,0", L"20,0", L"", L"_setvar", L"CLAYER", L"Banzo 1"});
    type({L"_line", L"0,5", L"30,5", L"", L"_circle", L"0,0", L"1", L"_setvar", L"CLAYER",
          L"Banzo 10", L"_text", L"0,0", L"2", L"0", L"a", L""});
    const std::vector<AcDbObjectId> all = entities();  // 5, 15 and 30 long; circle; text
    ASSERT_EQ(all.size(), 5u);
    {
        const AcDbObjectPointer<AcDbLine> red(all[1], AcDb::kForWrite);
        (void)red->setColorIndex(1);
    }
    const struct {
        const wchar_t* typed;
        std::vector<AcDbObjectId> found;
    } cases[] = {
        {L"tipo=linha", {all[0], all[1], all[2]}},
        {L"TIPO = circle", {all[3]}},
        {L"comprimento > 5", {all[1], all[2], all[3]}},  // 2 pi is longer than 5
        {L"tipo=linha comprimento<15", {all[0]}},
        {L"camada=banzo 1  comprimento=30,0", {all[2]}},
        {L"camada=banzo *", {all[2], all[3], all[4]}},
        {L"camada>Banzo 2", {all[4]}},
        {L"cor=vermelho", {all[1]}},
        {L"cor=porcamada tipo=texto", {all[4]}},
        {L"marca=P1", {}},
    };
    for (const auto& each : cases) {
        editor->selection().clear();
        type({L"selrap", each.typed});
        EXPECT_EQ(editor->selection().ids(), each.found) << prancheta::toUtf8(each.typed);
    }
    // Among what is selected already; what makes no sense is asked again.
    editor->selection().select({all[1], all[4]});
    type({L"_qselect", L"comprido", L"tipo=", L"cor=roxo", L"comprimento>x", L"comprimento>1"});
    EXPECT_EQ(editor->selection().ids(), std::vector<AcDbObjectId>{all[1]});
    EXPECT_EQ(ui.complaints.size(), 4u);
    type({L"_erase"});
    EXPECT_EQ(count(), 4u);
}

/// What is needed: by an object, a block in a block, a style, a foreign group, the drawing.
TEST_F(Layer, PurgeTakesWhatNothingNeeds) {
    type({L"_-layer", L"_n",      L"Usada,Livre,DoBloco,Nomeada,Atual,Defpoints",
          L"_lt",     L"center",  L"Usada",
          L"_s",      L"DoBloco", L"",
          L"_line",   L"0,0",     L"9,0",
          L"",        L"_block",  L"DENTRO",
          L"0,0",     L"_l",      L"",
          L"_block",  L"FORA",    L"0,0",
          L"_l",      L"",        L"_erase",
          L"_all",    L"",        L"_-layer",
          L"_s",      L"Usada",   L"",
          L"_line",   L"0,0",     L"9,0",
          L"",        L"_-layer", L"_s",
          L"Atual",   L""});
    editor->database().core().foreign().objects.push_back(
        {{0, "COISA"}, {5, "FFFF"}, {100, "AcDbCoisa"}, {8, "Nomeada"}});
    const auto block = [&](const wchar_t* name) {
        AcDbBlockTable* table = nullptr;
        (void)editor->database().getSymbolTable(table, AcDb::kForRead);
        const bool has = table->has(name);
        (void)table->close();
        return has;
    };
    type({L"limpar", L"ca", L"", L"n"});
    EXPECT_TRUE(said(L"Limpeza: 1 camada."));
    EXPECT_TRUE(find(L"Livre").isNull());
    type({L"_purge", L"_all", L"", L"_y", L"_n", L"_n"});
    EXPECT_TRUE(asked(L"Limpar o bloco \"FORA\"? [Sim/Não] <Não>:"));
    EXPECT_TRUE(block(L"FORA")) << "confirmed name by name";
    EXPECT_TRUE(said(L"Nada foi limpo"));
    type({L"_purge", L"_all", L"xyz*", L"_n"});
    EXPECT_TRUE(block(L"FORA"));
    type({L"pu", L"_all", L"*", L"_n"});
    EXPECT_TRUE(said(L"2 blocos, 1 camada"));
    EXPECT_FALSE(block(L"FORA") || block(L"DENTRO")) << "what only the first one held goes, too";
    EXPECT_TRUE(find(L"DoBloco").isNull());
    for (const wchar_t* name : {L"Usada", L"Nomeada", L"Atual", L"Defpoints", L"0"})
        EXPECT_FALSE(find(name).isNull()) << name;
    EXPECT_FALSE(
        prancheta::ObjectAccess::lookup(editor->database().linetypeTableId(), L"CENTER").isNull());
    type({L"_u"});
    EXPECT_TRUE(block(L"FORA") && block(L"DENTRO") && !find(L"DoBloco").isNull());
}

}  // namespace
}  // namespace builtin
