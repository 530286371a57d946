// SPDX-License-Identifier: MIT
// Pieces in files: both filers, versions, damage; what other modules read of a piece.
#include "prancheta/base/file.h"
#include "prancheta/base/text.h"
#include "prancheta/database/memory_filer.h"
#include "protocol/attach.h"
#include "protocol/report.h"
#include "tests/zp/drawing.h"
#include "zp/trelica/zptrelica.h"

namespace {

using namespace zp_tests;

/// Groups in memory; gives them back, or as many of them as it is told.
class Groups : public AcDbDxfFiler {
public:
    struct Grupo {
        int codigo = 0;
        std::wstring texto;
        double reals[3] = {};
        int inteiro = 0;
        AcDbObjectId id;
    };
    std::vector<Grupo> grupos;
    std::size_t ate = 0;
    std::wstring erro;

    void reread(std::size_t quantos) {
        m_read = 0;
        ate = quantos;
        m_state = Acad::eOk;
        erro.clear();
    }
    Acad::ErrorStatus filerStatus() const override { return m_state; }
    void resetFilerStatus() override { m_state = Acad::eOk; }
    Acad::ErrorStatus setError(Acad::ErrorStatus es, const ACHAR* texto, ...) override {
        erro = texto;
        return m_state = es;
    }
    Acad::ErrorStatus writeString(int c, const ACHAR* t) override { return poe({c, t, {}, 0, {}}); }
    Acad::ErrorStatus writeDouble(int c, double v) override { return poe({c, L"", {v}, 0, {}}); }
    Acad::ErrorStatus writePoint3d(int c, const AcGePoint3d& p) override {
        return poe({c, L"", {p.x, p.y, p.z}, 0, {}});
    }
    Acad::ErrorStatus writeInt16(int c, Adesk::Int16 v) override {
        return poe({c, L"", {}, v, {}});
    }
    Acad::ErrorStatus writeInt32(int c, Adesk::Int32 v) override {
        return poe({c, L"", {}, v, {}});
    }
    Acad::ErrorStatus writeBool(int c, bool v) override { return poe({c, L"", {}, v, {}}); }
    Acad::ErrorStatus writeObjectId(int c, const AcDbObjectId& id) override {
        return poe({c, L"", {}, 0, id});
    }
    Acad::ErrorStatus readItem(resbuf* r) override {
        if (m_read >= ate) return Acad::eBadDxfSequence;
        const Grupo& g = grupos[m_read++];
        r->restype = static_cast<short>(g.codigo);
        if (g.codigo == 40) r->resval.rreal = g.reals[0];
        if (g.codigo == 10 || g.codigo == 11) std::copy_n(g.reals, 3, r->resval.rpoint);
        if (g.codigo == 70) r->resval.rint = static_cast<short>(g.inteiro);
        if (g.codigo == 330) (void)acdbGetAdsName(r->resval.rlname, g.id);
        if (g.codigo < 10 || g.codigo == 100)
            (void)acutNewString(g.texto.c_str(), r->resval.rstring);
        return Acad::eOk;
    }
    void pushBackItem() override { --m_read; }
    bool atSubclassData(const ACHAR* nome) override {
        if (m_read >= ate || grupos[m_read].codigo != 100 || grupos[m_read].texto != nome)
            return false;
        ++m_read;
        return true;
    }
    bool atEOF() override { return m_read >= ate; }

private:
    Acad::ErrorStatus poe(Grupo g) {
        grupos.push_back(std::move(g));
        return m_state;
    }
    std::size_t m_read = 0;
    Acad::ErrorStatus m_state = Acad::eOk;
};

/// Everything that a report says, as one text.
class Texto : public protocol::PropertyVisitor {
public:
    std::wstring tudo;
    void number(const ACHAR* n, double v) override { diz(n, std::to_wstring(v)); }
    void integer(const ACHAR* n, long long v) override { diz(n, std::to_wstring(v)); }
    void text(const ACHAR* n, const ACHAR* v) override { diz(n, std::wstring(L"'") + v + L"'"); }
    void point(const ACHAR* n, const AcGePoint3d& p) override {
        diz(n, L"(" + std::to_wstring(p.x) + L" " + std::to_wstring(p.y) + L" " +
                   std::to_wstring(p.z) + L")");
    }
    void object(const ACHAR* n, const AcDbObjectId& id) override {
        ACHAR h[17];
        id.handle().getIntoAsciiBuffer(h);
        diz(n, std::wstring(L"#") + h);
    }
    void beginList(const ACHAR* n) override { diz(n, L"["); }
    void endList() override { tudo += L"] "; }
    void beginGroup(const ACHAR* n) override { diz(n, L"{"); }
    void endGroup() override { tudo += L"} "; }

private:
    void diz(const ACHAR* n, const std::wstring& v) {
        tudo += (n != nullptr ? std::wstring(n) + L"=" : L"") + v + L" ";
    }
};

class Arquivo : public Desenho {
protected:
    std::wstring relatorio(const AcDbEntity& e) {
        auto* r = protocol::extensionOf<protocol::EntityReport>(e, protocol::kEntityReportClass);
        Texto texto;
        if (r != nullptr) r->describe(e, texto);
        return texto.tudo;
    }
    std::wstring relatorio(AcDbObjectId id) { return relatorio(*Read<AcDbEntity>(id)); }

    /// One of every class, with values of its own kind.
    std::vector<std::unique_ptr<ZpObject>> ofAllKinds() {
        const AcGePoint3d p(10, 20, 3);
        const AcGePoint3d q(110, 120, 3);
        const double r = 0.5 * kPi;
        const auto v = ZpObject::kVistaSuperior;
        std::vector<std::unique_ptr<ZpObject>> all;
        const auto poe = [&](ZpObject* o) { all.emplace_back(o); };
        poe(new ZpUDobrado(p, v, 200, 75, 75, 2.65, 2.65, r, r, 900, kPi, 0, 20));
        poe(new ZpUDobrado(p, q, v, 200, 75, 75, 2.65, 2.65, r, r, 0, 20));
        poe(new ZpZDobrado(p, v, 150, 60, 20, 2, 2, r, r, 900, 0, 0, 0, 0));
        poe(new ZpCartola(p, q, v, 50, 100, 2, 2, 20, 0));
        poe(new ZpCantoneiraDobrada(p, v, 50, 50, 3, 3, r, 900, 0, 0, 0));
        poe(new ZpCaixaDobrado(p, v, 200, 75, 2.65, 2.65, 170, 900, 0, 0, 20));
        poe(new ZpBox(p, v, 100, 60, 4, 4, 900, 0, 0));
        poe(new ZpTubo(p, q, v, 60.3, 54.3));
        poe(new ZpBarraRedonda(p, v, 25.4, 900, 0));
        poe(new ZpBNLaminado(p, v, 50.8, 6.35, -11.97, 6.35, 0, 0, 900, 4.74, 602.9));
        poe(new ZpCantLaminada(p, v, 50.8, 50.8, 6.35, 16.9, 33.9, 6.35, 0, 0, 900, 4.74, 602.9));
        poe(new ZpCantLaminadaCaixa(p, v, 50.8, 50.8, 6.35, 6.35, 0, 0, 900, 9.48, 1205.7));
        poe(new ZpULaminado(p, v, 152.4, 48.77, 5.08, 48.77, 5.08, 5.08, 16.3, 5.08, 0, 0, 900,
                            1551.7, 12.2));
        poe(new ZpCantTDobrada(p, v, 50, 50, 3, 3, 8, 900, 0, 0, 0));
        poe(new ZpCantUDobrada(p, v, 50, 50, 3, 3, 150, 900, 0, 0, 0));
        poe(new ZpXDobrado(p, v, 50, 50, 3, 3, 10, 900, 0, 0, 0, 0));
        poe(new ZpCantTEELaminada(p, v, 50.8, 50.8, 6.35, 0, 33.9, 6.35, 10, 0, 0, 900, 9.48,
                                  12.06));
        poe(new ZpCantULaminada(p, v, 50.8, 50.8, 6.35, 0, 33.9, 6.35, 150, 0, 0, 900, 9.48,
                                12.06));
        poe(new ZpBNDuplaLaminada(p, v, 50.8, 6.35, -11.97, 6.35, 10, 0, 0, 900, 9.48, 12.06));
        poe(new ZpCantCruzLaminada(p, v, 50.8, 50.8, 6.35, 6.35, 8, 8, 0, 0, 900, 9.48, 12.06));
        poe(new ZpCantZLaminada(p, v, 50.8, 50.8, 6.35, 6.35, 8, 8, 0, 0, 900, 9.48, 12.06));
        poe(new ZpUULaminado(p, v, 152.4, 48.77, 5.08, 48.77, 5.08, 5.08, 0, 5.08, 0, 0, 900,
                             3103.4, 24.4));
        poe(new Zp2ULaminado(p, v, 152.4, 48.77, 5.08, 48.77, 5.08, 5.08, 16.3, 5.08, 10, 0, 0, 900,
                             3103.4, 24.4));
        poe(new ZpIDobrado(p, v, 200, 75, 75, 2.65, 2.65, 50, 900, 0, 0, 0));
        poe(new ZpISoldado(p, v, 300, 300, 300, 8, 9.5, 900, 0, 0, 62.4));
        poe(new ZpISoldado(p, 300, 150, 200, 9.5, 12.5, 6.3, 900, v, 0, 0, 0));
        poe(new ZpISoldado(p, q, v, 300, 300, 300, 8, 9.5, 0, 62.4));
        poe(new ZpISoldado(p, q, 300, 150, 200, 9.5, 12.5, 6.3, v, 0, 0));
        poe(new ZpILaminadoUSA(p, v, 200, 100, 5.6, 8.5, ZpILaminadoUSA::kEuropeu, 0, 0, 900,
                               2848.9, 22.4));
        poe(new ZpILaminadoUSA(p, q, v, 200, 100, 5.6, 8.5, ZpILaminadoUSA::kAmericano, 0, 2848.9,
                               22.4));
        poe(new ZpChapa(p, ZpObject::kVistaEsquerda, 100, 8, 120, 0, -r));
        for (const auto& o : all) {
            o->settipoBarra(ZpObject::kTerca);
            o->transformBy(
                AcGeMatrix3d::mirroring(AcGePoint3d(1, 2, 0), AcGeVector3d(0.6, 0.8, 0)));
            o->transformBy(AcGeMatrix3d::scaling(1.5));
        }
        return all;
    }
};

TEST_F(Arquivo, EveryKindComesBackTheSame) {
    for (const auto& o : ofAllKinds()) {
        SCOPED_TRACE(testing::Message() << o->isA()->name());
        const std::wstring antes = relatorio(*o);
        ASSERT_NE(antes.find(L"perfil='"), std::wstring::npos);

        prancheta::MemoryFiler memory(AcDb::kCopyFiler);
        ASSERT_EQ(o->dwgOutFields(&memory), Acad::eOk);
        memory.rewind();
        const std::unique_ptr<ZpObject> volta(ZpObject::cast(o->isA()->create()));
        ASSERT_EQ(volta->dwgInFields(&memory), Acad::eOk);
        EXPECT_TRUE(memory.atEnd());
        EXPECT_EQ(relatorio(*volta), antes);

        Groups grupos;
        ASSERT_EQ(o->dxfOutFields(&grupos), Acad::eOk);
        grupos.reread(grupos.grupos.size());
        const std::unique_ptr<ZpObject> fromDxf(ZpObject::cast(o->isA()->create()));
        ASSERT_EQ(fromDxf->dxfInFields(&grupos), Acad::eOk);
        EXPECT_TRUE(grupos.atEOF());
        EXPECT_EQ(relatorio(*fromDxf), antes);
    }
}

TEST_F(Arquivo, ACutOrDamagedRecordIsRefused) {
    ZpTubo tubo(AcGePoint3d(), AcGePoint3d(100, 0, 0), ZpObject::kVistaDireita, 60.3, 54.3);
    Groups grupos;
    tubo.dxfOutFields(&grupos);
    for (std::size_t n = 0; n < grupos.grupos.size(); ++n) {
        grupos.reread(n);
        ZpTubo outro;
        EXPECT_NE(outro.dxfInFields(&grupos), Acad::eOk) << n;
        EXPECT_EQ(outro.getComprimentoReal(), 0.0);
    }
    // Another class, an unknown view, a number of values that no constructor has, a negative count
    // of links.
    for (const auto& [grupo, valor] :
         {std::pair<std::size_t, int>{2, 1}, {6, 9}, {7, 5}, {grupos.grupos.size() - 1, -1}}) {
        Groups bad;
        bad.grupos = grupos.grupos;
        ASSERT_EQ(bad.grupos[grupo].codigo, 70);
        bad.grupos[grupo].inteiro = valor;
        bad.reread(bad.grupos.size());
        ZpTubo outro;
        EXPECT_EQ(outro.dxfInFields(&bad), Acad::eInvalidInput) << grupo;
    }
}

TEST_F(Arquivo, SizesThatNoCommandGivesAreRefused) {
    ZpUDobrado u(AcGePoint3d(), ZpObject::kVistaSecao, 200, 75, 75, 3, 3, 1.5, 1.5, 1000, 0, 0, 20);
    Groups grupos;
    u.dxfOutFields(&grupos);
    std::vector<std::size_t> reals;
    for (std::size_t i = 0; i < grupos.grupos.size(); ++i)
        if (grupos.grupos[i].codigo == 40) reals.push_back(i);
    ASSERT_EQ(grupos.grupos[reals[0]].reals[0], 200.0);
    // The height, the upper flange, its angle, and the length behind the eleven values.
    for (const std::size_t index : {reals[0], reals[1], reals[5], reals[11]}) {
        for (const double valor : {-5.0, 0.0, 1e308, 2e9, 1.0}) {
            Groups outros;
            outros.grupos = grupos.grupos;
            outros.grupos[index].reals[0] = valor;
            outros.reread(outros.grupos.size());
            ZpUDobrado lida;
            // A length of nothing is that of a piece between two equal points.
            const bool possible = valor == 1.0 || (valor == 0.0 && index == reals[11]);
            EXPECT_EQ(lida.dxfInFields(&outros), possible ? Acad::eOk : Acad::eInvalidInput)
                << index << " " << valor;
        }
    }
}

TEST_F(Arquivo, ANewerVersionIsRefusedWithAReason) {
    ZpBarraRedonda barra(AcGePoint3d(), ZpObject::kVistaSecao, 25.4, 1000, 0);
    Groups grupos;
    barra.dxfOutFields(&grupos);
    ASSERT_EQ(grupos.grupos[1].inteiro, 1);
    grupos.grupos[1].inteiro = 2;
    grupos.reread(grupos.grupos.size());
    ZpBarraRedonda outra;
    EXPECT_EQ(outra.dxfInFields(&grupos), Acad::eNotImplementedYet);
    EXPECT_NE(grupos.erro.find(L"versão"), std::wstring::npos);
}

TEST_F(Arquivo, ADrawingSavedAndOpened) {
    const std::filesystem::path arquivo =
        std::filesystem::temp_directory_path() / "zp_arquivo_test.dxf";
    const AcDbObjectId peca = u(100, 0, 500);
    const AcDbObjectId medida = cota(100, -100, 600, -100, 100, -110);
    const AcDbObjectId placa = chapa(500, 60, 100, 120);
    muda(peca, [&](ZpObject& p) {
        p.LinkDim(medida);
        p.LinkPos(placa);
        p.transformBy(AcGeMatrix3d::rotation(0.25 * kPi, AcGeVector3d::kZAxis));
    });
    const std::wstring antes = relatorio(peca) + relatorio(placa);
    ASSERT_TRUE(static_cast<bool>(editor->file().save(arquivo)));
    ASSERT_TRUE(static_cast<bool>(editor->file().open(arquivo)));
    std::filesystem::remove(arquivo);
    const std::vector<AcDbObjectId> all = entities();
    ASSERT_EQ(all.size(), 3u);
    EXPECT_EQ(relatorio(all[0]) + relatorio(all[2]), antes);
    // The links live: what was tied follows in the opened drawing.
    type({L"_move"});
    pick(0, 0, {all[0]});
    type({L"", L"0,0", L"10,0"});
    const double c = std::sqrt(0.5);
    expectCota(all[1], 200 * c + 10, 0, 700 * c + 10, 500 * c, 210 * c + 10, -10 * c);
}

/// Record of the entity with this handle, from its "0" to the next one's.
std::pair<std::size_t, std::size_t> registro(const std::string& texto, const std::string& handle) {
    const std::size_t de = texto.rfind("\n0\n", texto.find("\n5\n" + handle + "\n330\n")) + 1;
    // Two lines at a time: a layer may be called 0 too.
    std::size_t ate = de;
    do {
        for (int linha = 0; linha < 2; ++linha) ate = texto.find('\n', ate) + 1;
    } while (texto.compare(ate, 2, "0\n") != 0);
    return {de, ate};
}

std::string troca(std::string texto, const std::string& que, const std::string& por) {
    const std::size_t onde = texto.find(que);
    EXPECT_NE(onde, std::string::npos) << que;
    return onde == std::string::npos ? texto : texto.replace(onde, que.size(), por);
}

TEST_F(Arquivo, AnotherProgramMovesCopiesAndErases) {
    const std::filesystem::path arquivo =
        std::filesystem::temp_directory_path() / "zp_visita_test.dxf";
    const AcDbObjectId peca = u(100, 0, 500);
    const AcDbObjectId fica = cota(100, -100, 600, -100, 100, -110);
    const AcDbObjectId some = cota(100, 100, 100, -100, 90, 100);
    muda(peca, [&](ZpObject& p) {
        p.LinkDim(fica);
        p.LinkDim(some);
    });
    const auto handle = [](AcDbObjectId id) {
        ACHAR texto[17];
        id.handle().getIntoAsciiBuffer(texto);
        return prancheta::toUtf8(texto);
    };
    const std::string ofPeca = handle(peca);
    const std::string ofVanishing = handle(some);
    ASSERT_TRUE(static_cast<bool>(editor->file().save(arquivo)));
    std::string texto = *prancheta::readFile(arquivo);
    // The second dimension goes, the piece moves up by 50 and has a copy further up.
    const auto [de, ate] = registro(texto, ofVanishing);
    texto.erase(de, ate - de);
    const auto [inicio, fim] = registro(texto, ofPeca);
    const std::string original = texto.substr(inicio, fim - inicio);
    const std::string moved = troca(original, "\n20\n0.0\n", "\n20\n50.0\n");
    const std::string copia =
        troca(troca(original, "\n20\n0.0\n", "\n20\n900.0\n"), "\n5\n" + ofPeca, "\n5\nFF0");
    texto.replace(inicio, fim - inicio, moved + copia);
    prancheta::AtomicFile saida(arquivo);
    ASSERT_TRUE(static_cast<bool>(saida.open()));
    saida.write(texto);
    ASSERT_TRUE(static_cast<bool>(saida.commit()));
    ASSERT_TRUE(static_cast<bool>(editor->file().open(arquivo)));
    std::filesystem::remove(arquivo);
    const std::vector<AcDbObjectId> all = entities();
    ASSERT_EQ(all.size(), 3u);
    expectPoint(face(all[0], 1), 100, -50);
    expectPoint(face(all[1], 1), 100, 800);
    expectCota(all[2], 100, -50, 600, -50, 100, -60);
    EXPECT_NE(relatorio(all[0]).find(L"cotas=[ #" + prancheta::toWide(handle(all[2])) + L" ]"),
              std::wstring::npos)
        << testing::PrintToString(relatorio(all[0]));
    EXPECT_NE(relatorio(all[1]).find(L"cotas=[ ]"), std::wstring::npos);
    EXPECT_FALSE(editor->database().core().undo().canUndo()) << "opening is no step";
}

class Revisited : public Arquivo {
protected:
    Revisited() {
        peca = u(100, 0, 500);
        medida = cota(100, -100, 600, -100, 100, -110);
        placa = chapa(500, 60, 100, 120);
        muda(peca, [&](ZpObject& p) {
            p.LinkDim(medida);
            p.LinkPos(placa);
        });
        arquivo = std::filesystem::temp_directory_path() / "zp_visitado_test.dxf";
    }
    ~Revisited() override { std::filesystem::remove(arquivo); }
    std::string salva() {
        EXPECT_TRUE(static_cast<bool>(editor->file().save(arquivo)));
        return *prancheta::readFile(arquivo);
    }
    void grava(const std::string& texto) {
        prancheta::AtomicFile saida(arquivo);
        ASSERT_TRUE(static_cast<bool>(saida.open()));
        saida.write(texto);
        ASSERT_TRUE(static_cast<bool>(saida.commit()));
    }
    static std::string handle(AcDbObjectId id) {
        ACHAR texto[17];
        id.handle().getIntoAsciiBuffer(texto);
        return prancheta::toUtf8(texto);
    }
    /// The same text with the INSERT of the piece somewhere else.
    static std::string moved(std::string texto, const std::string& index, const char* de,
                             const char* para) {
        const auto [inicio, fim] = registro(texto, index);
        return texto.replace(inicio, fim - inicio,
                             troca(texto.substr(inicio, fim - inicio), de, para));
    }
    AcGePoint3d inicio(AcDbObjectId id) {
        AcGePoint3d p;
        Read<ZpObject>(id)->StartPoint(p);
        return p;
    }
    AcDbObjectId peca, medida, placa;
    std::filesystem::path arquivo;
};

TEST_F(Revisited, AMovedPecaTakesWhatIsTiedToIt) {
    const std::string ofPeca = handle(peca);
    grava(moved(salva(), ofPeca, "\n20\n0.0\n", "\n20\n50.0\n"));
    // Inside a command, as users open drawings.
    type({L"_open", arquivo.wstring().c_str()});
    const std::vector<AcDbObjectId> all = entities();
    ASSERT_EQ(all.size(), 3u);
    expectNear(inicio(all[0]), 100, 50);
    expectCota(all[1], 100, -50, 600, -50, 100, -60);
    expectNear(inicio(all[2]), 500, 110);
    EXPECT_FALSE(editor->database().core().undo().canUndo()) << "opening is no step";
}

TEST_F(Revisited, WhatMovedWithItsChapaMovesOnce) {
    const std::string ofPeca = handle(peca);
    const std::string ofChapa = handle(placa);
    const std::string texto = moved(salva(), ofPeca, "\n20\n0.0\n", "\n20\n50.0\n");
    grava(moved(texto, ofChapa, "\n20\n60.0\n", "\n20\n110.0\n"));
    ASSERT_TRUE(static_cast<bool>(editor->file().open(arquivo)));
    ASSERT_EQ(entities().size(), 3u);
    expectNear(inicio(entities()[2]), 500, 110);
    // A plate that was moved alone stays where it was put, and goes on from there.
    grava(moved(salva(), ofChapa, "\n10\n500.0\n", "\n10\n400.0\n"));
    ASSERT_TRUE(static_cast<bool>(editor->file().open(arquivo)));
    expectNear(inicio(entities()[2]), 400, 110);
    type({L"_move"});
    pick(0, 0, {entities()[0]});
    type({L"", L"0,0", L"0,7"});
    expectNear(inicio(entities()[2]), 400, 117);
}

TEST_F(Revisited, WhatWasNotMovedStays) {
    muda(peca, [](ZpObject& p) {
        p.transformBy(AcGeMatrix3d::rotation(0.3, AcGeVector3d::kZAxis, AcGePoint3d(7, 1, 0)));
    });
    const std::string antes = salva();
    ASSERT_TRUE(static_cast<bool>(editor->file().open(arquivo)));
    EXPECT_TRUE(salva() == antes);
}

TEST_F(Arquivo, TheReportHasEverythingInOrder) {
    const AcDbObjectId id = poe(new ZpISoldado(AcGePoint3d(1, 2, 0), ZpObject::kVistaDireita, 300,
                                               300, 300, 8, 9.5, 1000, 0, 0, 62.4));
    muda(id, [](ZpObject& p) {
        static_cast<ZpISoldado&>(p).setSubType(ZpISoldado::kCS);
        p.settipoBarra(ZpObject::kPilar);
        p.AlteraComprimento(2000);
    });
    EXPECT_EQ(
        relatorio(id),
        L"tipo_barra=6 subtipo=3 construtor={ forma=1 pontos=[ (1.000000 2.000000 0.000000) ] "
        L"vista=3 "
        L"valores=[ 300.000000 300.000000 300.000000 8.000000 9.500000 1000.000000 0.000000 "
        L"0.000000 62.400000 ] } "
        L"inicio=(1.000000 2.000000 0.000000) fim=(2001.000000 2.000000 0.000000) angulo=0.000000 "
        L"comprimento=2000.000000 "
        L"faces=[ (1.000000 152.000000 0.000000) (1.000000 -148.000000 0.000000) (2001.000000 "
        L"152.000000 0.000000) "
        L"(2001.000000 -148.000000 0.000000) ] altura=300.000000 largura=300.000000 "
        L"espessura=8.000000 "
        L"area=7948.000000 perimetro=1784.000000 area_pintura=3.568000 peso=124.800000 perfil='CS' "
        L"dimensoes='300x62,4' cotas=[ ] ligados=[ ] ");
    const AcDbObjectId rolled =
        poe(new ZpILaminadoUSA(AcGePoint3d(), ZpObject::kVistaSecao, 200, 100, 5.6, 8.5,
                               ZpILaminadoUSA::kAmericano, 0, 0, 1000, 0, 0));
    EXPECT_NE(relatorio(rolled).find(L"5.600000 8.500000 2.000000 0.000000 0.000000 1000.000000"),
              std::wstring::npos);
}

TEST_F(Arquivo, BarDataFollowThePeca) {
    const AcDbObjectId id = u(0, 0, 500);
    tagZP_GBARRA barra;
    ASSERT_EQ(GetXDataEntStObject(id, &barra), RTNORM);
    EXPECT_STREQ(barra.perfil, L"U");
    EXPECT_STREQ(barra.dimensoes, L"200x75x3");
    EXPECT_EQ(barra.comprimento, 500.0);
    EXPECT_NEAR(barra.peso, 8.010230 * 0.5, 1e-6);
    muda(id, [](ZpObject& p) {
        p.settipoBarra(ZpObject::kViga);
        p.AlteraComprimento(800);
    });
    ASSERT_EQ(GetXDataEntStObject(id, &barra), RTNORM);
    EXPECT_EQ(barra.tipo, 5);
    EXPECT_EQ(barra.comprimento, 800.0);
    ZpString dimensoes, perfil;
    GetDimAndPerfText(barra, dimensoes, perfil);
    EXPECT_EQ(dimensoes, ZpString(L"200x75x3"));
    // Plates carry none, and what is no piece neither.
    EXPECT_EQ(GetXDataEntStObject(chapa(0, 0, 100, 120), &barra), RTERROR);
    EXPECT_EQ(GetXDataEntStObject(cota(0, 0, 1, 1, 0, 1), &barra), RTERROR);
    EXPECT_EQ(barra.tipo, 5);
}

}  // namespace
