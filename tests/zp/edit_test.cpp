// SPDX-License-Identifier: MIT
// Pieces edited by the dialogs of their commands: what stays, what is laid again, what is listed.
#include <cstdlib>

#include "prancheta/dcl/dialog.h"
#include "protocol/attach.h"
#include "protocol/edit.h"
#include "tests/zp/drawing.h"
#include "zp/matlist/lists.h"
#include "zp/matlist/zpmarca.h"
#include "zp/objects/edit.h"

namespace {

using namespace zp_tests;
using zp::secao::Papel;

class EditByDialog : public Desenho {
protected:
    EditByDialog() {
        const std::filesystem::path pasta = HOUSE_BINARY_DIR;
        ::setenv("ZPFORJA2010", (pasta / "instalacao").c_str(), 1);
        EXPECT_TRUE(static_cast<bool>(editor->modules().load(pasta / "bin/ZpPerfis18.arx")));
        prancheta::dcl::setDialogRunner(
            [this](prancheta::dcl::Dialog& dialogo) { ui.runDialog(dialogo); });
    }
    ~EditByDialog() override { prancheta::dcl::setDialogRunner({}); }
    using Keys = std::initializer_list<const char*>;
    /// Draws a piece at the origin, along X.
    AcDbObjectId desenha(const wchar_t* comando, Keys keys) {
        ui.keys.assign(keys.begin(), keys.end());
        type({comando, L"0,0", L"0"});
        EXPECT_TRUE(ui.keys.empty()) << testing::PrintToString(ui.printed);
        for (const AcDbObjectId& id : entities())
            if (id.objectClass()->isDerivedFrom(ZpObject::desc())) return id;
        return {};
    }
    void edit(AcDbObjectId id, Keys keys) {
        ui.keys.assign(keys.begin(), keys.end());
        type({L"EDITAPERFIL"});
        pick(0, 0, {id});
        EXPECT_TRUE(ui.keys.empty()) << testing::PrintToString(ui.printed);
    }
    /// Sets a value of the property sheet; the reason why not.
    std::wstring troca(AcDbObjectId id, const wchar_t* chave, const wchar_t* valor) {
        const protocol::EntityProperties* quem = nullptr;
        {
            const Read<ZpObject> aberta(id);
            quem = protocol::extensionOf<protocol::EntityProperties>(
                *aberta.object(), protocol::kEntityPropertiesClass);
        }
        ACHAR* mensagem = nullptr;
        if (quem->set(id, chave, valor, mensagem)) return {};
        const std::wstring motivo = mensagem;
        acutDelString(mensagem);
        return motivo;
    }
    double valor(AcDbObjectId id, Papel papel) {
        return zp::edicao::valoresDe(*Read<ZpObject>(id).object())[papel];
    }
    /// Where the plates of a piece that lies along X start, in their order along it.
    std::vector<double> chapas() {
        std::vector<double> x;
        for (const AcDbObjectId& id : entities()) {
            if (!id.objectClass()->isDerivedFrom(ZpChapa::desc())) continue;
            AcGePoint3d p;
            (void)Read<ZpObject>(id)->StartPoint(p);
            x.push_back(p.x);
        }
        std::sort(x.begin(), x.end());
        return x;
    }
    std::vector<Linha> linhas() {
        return zp::lista::linhas(zp::lista::listas(editor->database()).front().id);
    }
};

TEST_F(EditByDialog, ValuesWithoutATileStay) {
    const AcGePoint3d origem;
    const AcDbObjectId viga =
        poe(new ZpISoldado(origem, ZpObject::kVistaDireita, 300, 300, 250, 8, 9.5, 6000, 0, 0, 0));
    edit(viga, {"h=400", "accept"});
    EXPECT_EQ(valor(viga, Papel::H), 400);
    EXPECT_EQ(valor(viga, Papel::Bb), 250);
    const AcDbObjectId perfilU = poe(new ZpUDobrado(origem, ZpObject::kVistaDireita, 200, 75, 75, 3,
                                                    6, 0.5 * kPi, 0.5 * kPi, 1000, 0, 0, 0));
    edit(perfilU, {"b=80", "accept"});
    EXPECT_EQ(valor(perfilU, Papel::Ri), 6);
    EXPECT_EQ(valor(perfilU, Papel::B2), 80);  // equal by rule
    const AcDbObjectId cantoneira = poe(new ZpCantoneiraDobrada(origem, ZpObject::kVistaDireita, 60,
                                                                60, 4, 4, kPi / 3, 1000, 0, 0, 0));
    edit(cantoneira, {"accept"});
    EXPECT_DOUBLE_EQ(valor(cantoneira, Papel::Ang1), kPi / 3);
    const AcDbObjectId caixa = poe(
        new ZpCaixaDobrado(origem, ZpObject::kVistaDireita, 200, 75, 3, 3, 150, 1000, 0, 0, 20));
    edit(caixa, {"a=0", "accept"});
    EXPECT_EQ(valor(caixa, Papel::Vao), 0);
    EXPECT_EQ(valor(caixa, Papel::Aba), 20);
    // Another row of the catalogue is another section, of which nothing is kept.
    const AcDbObjectId laminado =
        poe(new ZpULaminado(origem, ZpObject::kVistaDireita, 76.2, 35.81, 4.32, 35.81, 9, 9, 12,
                            4.32, 0, 0, 1000, 775.8, 6.1));
    edit(laminado, {"lista=3", "accept"});
    EXPECT_EQ(valor(laminado, Papel::H), 101.6);
    EXPECT_EQ(valor(laminado, Papel::Tf1), 4.67);
}

TEST_F(EditByDialog, CoincidingChapasAreOnePart) {
    // Spaces of (1000 - 100) / 8 = 112.5; 1000 holds nine of them, of which the last one meets the
    // far end.
    const AcDbObjectId peca =
        desenha(L"pcantoneira", {"h=60", "b=50", "t=4", "vista0=0", "OutraVista", "l=1000",
                                 "accept", "dimensionar=1", "travejar=1", "altura=30",
                                 "largura=100", "n_partes=8", "accept", "accept"});
    ASSERT_EQ(chapas().size(), 10u);
    edit(peca, {"accept"});
    edit(peca, {"accept"});
    EXPECT_EQ(chapas().size(), 10u);
    EXPECT_NEAR(chapas()[1], 112.5, 1e-9);
    // Its dimensions have nothing to do with the plates.
    const auto cotas = zp::edicao::cotasDe(*Read<ZpObject>(peca).object());
    ASSERT_EQ(cotas.size(), 2u);
    edit(peca, {"travejar=0", "accept"});
    EXPECT_TRUE(chapas().empty());
    EXPECT_EQ(zp::edicao::cotasDe(*Read<ZpObject>(peca).object()), cotas);
}

TEST_F(EditByDialog, AnotherComprimentoKeepsTheParts) {
    const AcDbObjectId peca = desenha(
        L"cantdteel", {"lista=12", "a=10", "vista0=0", "OutraVista", "l=3000", "accept", "travejar",
                       "altura=60", "largura=100", "n_partes=9", "accept", "accept"});
    ASSERT_EQ(chapas().size(), 10u);
    edit(peca, {"OutraVista", "l=3400", "accept", "accept"});
    ASSERT_EQ(chapas().size(), 10u);
    for (int i = 0; i < 10; ++i)
        EXPECT_NEAR(chapas()[static_cast<std::size_t>(i)], i * (3400.0 - 100.0) / 9, 1e-9);
    // Nine spaces of a shorter one would not stand apart; the dialog asks for others.
    edit(peca, {"OutraVista", "l=2000", "accept", "accept", "travejar", "n_partes=4", "accept",
                "accept"});
    EXPECT_EQ(chapas().size(), 5u);
}

TEST_F(EditByDialog, BeforeDrawingTheSpacingStays) {
    // Spaces of (2500 - 100) / 5 = 480; 6000 holds 12.5 of them, rounded up.
    const AcDbObjectId peca =
        desenha(L"pcantoneira", {"h=60", "b=50", "t=4", "vista0=0", "OutraVista", "l=2500",
                                 "accept", "travejar=1", "altura=30", "largura=100", "n_partes=5",
                                 "accept", "OutraVista", "l=6000", "accept", "accept"});
    ASSERT_EQ(chapas().size(), 14u);
    EXPECT_NEAR(chapas()[1], 480.0, 1e-9);
    edit(peca, {"accept"});
    EXPECT_EQ(troca(peca, L"tipo_barra", L"1"), L"");
    ASSERT_EQ(chapas().size(), 14u);
    EXPECT_NEAR(chapas()[1], 480.0, 1e-9) << "the length is the same";
    edit(peca, {"OutraVista", "l=6600", "accept", "accept"});
    ASSERT_EQ(chapas().size(), 14u);
    EXPECT_NEAR(chapas()[1], 500.0, 1e-9) << "another length keeps the parts";
}

TEST_F(EditByDialog, AChapaInASecaoHasNoLargura) {
    const AcDbObjectId peca =
        desenha(L"cantdteel", {"lista=12", "a=10", "travejar", "altura=60", "accept", "accept"});
    ASSERT_EQ(chapas().size(), 1u);
    edit(peca, {"vista0=0", "OutraVista", "l=1000", "accept", "accept", "cancel"});
    EXPECT_EQ(chapas().size(), 1u);
    edit(peca, {"vista0=0", "OutraVista", "l=1000", "accept", "travejar", "largura=10",
                "n_partes=4", "accept", "accept"});
    ASSERT_EQ(chapas().size(), 5u);
    EXPECT_NEAR(chapas()[1] - chapas()[0], 247.5, 1e-9);
}

TEST_F(EditByDialog, AnOpenCaixaWithAbaKeepsBothRows) {
    const AcDbObjectId peca =
        desenha(L"perfilduc",
                {"h=200", "b=75", "t=3", "a=170", "vista0=0", "OutraVista", "l=1000", "accept",
                 "travejar", "altura=100", "largura=10", "n_partes=4", "accept", "accept"});
    ASSERT_EQ(chapas().size(), 10u);
    EXPECT_EQ(troca(peca, L"aba", L"20"), L"");
    EXPECT_EQ(chapas().size(), 10u);
    // Four spaces between plates of 10 need more than 4 x 30 + 10.
    EXPECT_TRUE(troca(peca, L"comprimento", L"130").starts_with(L"As chapas de travejamento"));
    EXPECT_EQ(chapas().size(), 10u);
    EXPECT_EQ(troca(peca, L"comprimento", L"131"), L"");
    EXPECT_EQ(chapas().size(), 10u);
    edit(peca, {"accept"});
    EXPECT_EQ(chapas().size(), 10u);
    EXPECT_EQ(valor(peca, Papel::Vao), 170);
    EXPECT_EQ(valor(peca, Papel::Aba), 20);
}

TEST_F(EditByDialog, LeavesTheListAndGetsChapas) {
    const AcDbObjectId peca =
        desenha(L"cantdteel", {"lista=12", "a=0", "vista0=0", "OutraVista", "l=3000",
                               "gerar_matlist=1", "num_pecas=1", "accept", "accept"});
    ASSERT_EQ(linhas().size(), 1u);
    edit(peca, {"OutraVista", "gerar_matlist=0", "accept", "travejar", "altura=60", "largura=10",
                "n_partes=8", "accept", "accept"});
    EXPECT_EQ(chapas().size(), 9u);
    ASSERT_EQ(linhas().size(), 1u);
    EXPECT_TRUE(zp::lista::apagada(linhas()[0]));
}

TEST_F(EditByDialog, MarcasOfAnOpenedDrawingHaveTheirPecas) {
    desenha(L"cantdteel",
            {"lista=12", "a=10", "vista0=0", "OutraVista", "l=1000", "accept", "travejar",
             "altura=60", "largura=10", "n_partes=4", "accept", "accept"});
    const std::filesystem::path arquivo =
        std::filesystem::temp_directory_path() / "zp_edicao_test.dxf";
    ASSERT_TRUE(static_cast<bool>(editor->file().save(arquivo)));
    ASSERT_TRUE(static_cast<bool>(editor->file().open(arquivo)));
    std::filesystem::remove(arquivo);
    const AcDbObjectId peca = entities().front();
    edit(peca, {"OutraVista", "gerar_matlist=1", "num_pecas=1", "accept", "accept"});
    ASSERT_EQ(linhas().size(), 2u);
    EXPECT_EQ(Read<ZpMarca>(linhas()[0].ids[0])->peca(), peca);
    const AcDbObjectId placa = Read<ZpMarca>(linhas()[1].ids[0])->peca();
    ASSERT_FALSE(placa.isNull());
    EXPECT_TRUE(placa.objectClass()->isDerivedFrom(ZpChapa::desc()));
}

}  // namespace
