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

using namespace zp_teste;

/// Groups in memory; gives them back, or as many of them as it is told.
class Grupos : public AcDbDxfFiler {
public:
    struct Grupo {
        int codigo = 0;
        std::wstring texto;
        double reais[3] = {};
        int inteiro = 0;
        AcDbObjectId id;
    };
    std::vector<Grupo> grupos;
    std::size_t ate = 0;
    std::wstring erro;

    void rele(std::size_t quantos) {
        m_lido = 0;
        ate = quantos;
        m_estado = Acad::eOk;
        erro.clear();
    }
    Acad::ErrorStatus filerStatus() const override { return m_estado; }
    void resetFilerStatus() override { m_estado = Acad::eOk; }
    Acad::ErrorStatus setError(Acad::ErrorStatus es, const ACHAR* texto, ...) override {
        erro = texto;
        return m_estado = es;
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
        if (m_lido >= ate) return Acad::eBadDxfSequence;
        const Grupo& g = grupos[m_lido++];
        r->restype = static_cast<short>(g.codigo);
        if (g.codigo == 40) r->resval.rreal = g.reais[0];
        if (g.codigo == 10 || g.codigo == 11) std::copy_n(g.reais, 3, r->resval.rpoint);
        if (g.codigo == 70) r->resval.rint = static_cast<short>(g.inteiro);
        if (g.codigo == 330) (void)acdbGetAdsName(r->resval.rlname, g.id);
        if (g.codigo < 10 || g.codigo == 100)
            (void)acutNewString(g.texto.c_str(), r->resval.rstring);
        return Acad::eOk;
    }
    void pushBackItem() override { --m_lido; }
    bool atSubclassData(const ACHAR* nome) override {
        if (m_lido >= ate || grupos[m_lido].codigo != 100 || grupos[m_lido].texto != nome)
            return false;
        ++m_lido;
        return true;
    }
    bool atEOF() override { return m_lido >= ate; }

private:
    Acad::ErrorStatus poe(Grupo g) {
        grupos.push_back(std::move(g));
        return m_estado;
    }
    std::size_t m_lido = 0;
    Acad::ErrorStatus m_estado = Acad::eOk;
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
    std::vector<std::unique_ptr<ZpObject>> deTodasAsClasses() {
        const AcGePoint3d p(10, 20, 3);
        const AcGePoint3d q(110, 120, 3);
        const double r = 0.5 * kPi;
        const auto v = ZpObject::kVistaSuperior;
        std::vector<std::unique_ptr<ZpObject>> todas;
        const auto poe = [&](ZpObject* o) { todas.emplace_back(o); };
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
        for (const auto& o : todas) {
            o->settipoBarra(ZpObject::kTerca);
            o->transformBy(
                AcGeMatrix3d::mirroring(AcGePoint3d(1, 2, 0), AcGeVector3d(0.6, 0.8, 0)));
            o->transformBy(AcGeMatrix3d::scaling(1.5));
        }
        return todas;
    }
};

TEST_F(Arquivo, TodasAsClassesVoltamIguais) {
    for (const auto& o : deTodasAsClasses()) {
        SCOPED_TRACE(testing::Message() << o->isA()->name());
        const std::wstring antes = relatorio(*o);
        ASSERT_NE(antes.find(L"perfil='"), std::wstring::npos);

        prancheta::MemoryFiler memoria(AcDb::kCopyFiler);
        ASSERT_EQ(o->dwgOutFields(&memoria), Acad::eOk);
        memoria.rewind();
        const std::unique_ptr<ZpObject> volta(ZpObject::cast(o->isA()->create()));
        ASSERT_EQ(volta->dwgInFields(&memoria), Acad::eOk);
        EXPECT_TRUE(memoria.atEnd());
        EXPECT_EQ(relatorio(*volta), antes);

        Grupos grupos;
        ASSERT_EQ(o->dxfOutFields(&grupos), Acad::eOk);
        grupos.rele(grupos.grupos.size());
        const std::unique_ptr<ZpObject> deDxf(ZpObject::cast(o->isA()->create()));
        ASSERT_EQ(deDxf->dxfInFields(&grupos), Acad::eOk);
        EXPECT_TRUE(grupos.atEOF());
        EXPECT_EQ(relatorio(*deDxf), antes);
    }
}

TEST_F(Arquivo, RegistroCortadoOuEstragadoERecusado) {
    ZpTubo tubo(AcGePoint3d(), AcGePoint3d(100, 0, 0), ZpObject::kVistaDireita, 60.3, 54.3);
    Grupos grupos;
    tubo.dxfOutFields(&grupos);
    for (std::size_t n = 0; n < grupos.grupos.size(); ++n) {
        grupos.rele(n);
        ZpTubo outro;
        EXPECT_NE(outro.dxfInFields(&grupos), Acad::eOk) << n;
        EXPECT_EQ(outro.getComprimentoReal(), 0.0);
    }
    // Another class, an unknown view, a number of values that no constructor has, a negative count
    // of links.
    for (const auto& [grupo, valor] :
         {std::pair<std::size_t, int>{2, 1}, {6, 9}, {7, 5}, {grupos.grupos.size() - 1, -1}}) {
        Grupos ruins;
        ruins.grupos = grupos.grupos;
        ASSERT_EQ(ruins.grupos[grupo].codigo, 70);
        ruins.grupos[grupo].inteiro = valor;
        ruins.rele(ruins.grupos.size());
        ZpTubo outro;
        EXPECT_EQ(outro.dxfInFields(&ruins), Acad::eInvalidInput) << grupo;
    }
}

TEST_F(Arquivo, MedidasQueNenhumComandoDaSaoRecusadas) {
    ZpUDobrado u(AcGePoint3d(), ZpObject::kVistaSecao, 200, 75, 75, 3, 3, 1.5, 1.5, 1000, 0, 0, 20);
    Grupos grupos;
    u.dxfOutFields(&grupos);
    std::vector<std::size_t> reais;
    for (std::size_t i = 0; i < grupos.grupos.size(); ++i)
        if (grupos.grupos[i].codigo == 40) reais.push_back(i);
    ASSERT_EQ(grupos.grupos[reais[0]].reais[0], 200.0);
    // The height, the upper flange, its angle, and the length behind the eleven values.
    for (const std::size_t qual : {reais[0], reais[1], reais[5], reais[11]}) {
        for (const double valor : {-5.0, 0.0, 1e308, 2e9, 1.0}) {
            Grupos outros;
            outros.grupos = grupos.grupos;
            outros.grupos[qual].reais[0] = valor;
            outros.rele(outros.grupos.size());
            ZpUDobrado lida;
            // A length of nothing is that of a piece between two equal points.
            const bool possivel = valor == 1.0 || (valor == 0.0 && qual == reais[11]);
            EXPECT_EQ(lida.dxfInFields(&outros), possivel ? Acad::eOk : Acad::eInvalidInput)
                << qual << " " << valor;
        }
    }
}

TEST_F(Arquivo, VersaoMaisNovaERecusadaComMotivo) {
    ZpBarraRedonda barra(AcGePoint3d(), ZpObject::kVistaSecao, 25.4, 1000, 0);
    Grupos grupos;
    barra.dxfOutFields(&grupos);
    ASSERT_EQ(grupos.grupos[1].inteiro, 1);
    grupos.grupos[1].inteiro = 2;
    grupos.rele(grupos.grupos.size());
    ZpBarraRedonda outra;
    EXPECT_EQ(outra.dxfInFields(&grupos), Acad::eNotImplementedYet);
    EXPECT_NE(grupos.erro.find(L"versão"), std::wstring::npos);
}

TEST_F(Arquivo, DesenhoSalvoEAberto) {
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
    const std::vector<AcDbObjectId> todas = entities();
    ASSERT_EQ(todas.size(), 3u);
    EXPECT_EQ(relatorio(todas[0]) + relatorio(todas[2]), antes);
    // The links live: what was tied follows in the opened drawing.
    type({L"_move"});
    pick(0, 0, {todas[0]});
    type({L"", L"0,0", L"10,0"});
    const double c = std::sqrt(0.5);
    esperaCota(todas[1], 200 * c + 10, 0, 700 * c + 10, 500 * c, 210 * c + 10, -10 * c);
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

TEST_F(Arquivo, OutroProgramaMoveCopiaEApaga) {
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
    const std::string daPeca = handle(peca);
    const std::string daQueSome = handle(some);
    ASSERT_TRUE(static_cast<bool>(editor->file().save(arquivo)));
    std::string texto = *prancheta::readFile(arquivo);
    // The second dimension goes, the piece moves up by 50 and has a copy further up.
    const auto [de, ate] = registro(texto, daQueSome);
    texto.erase(de, ate - de);
    const auto [inicio, fim] = registro(texto, daPeca);
    const std::string original = texto.substr(inicio, fim - inicio);
    const std::string movida = troca(original, "\n20\n0.0\n", "\n20\n50.0\n");
    const std::string copia =
        troca(troca(original, "\n20\n0.0\n", "\n20\n900.0\n"), "\n5\n" + daPeca, "\n5\nFF0");
    texto.replace(inicio, fim - inicio, movida + copia);
    prancheta::AtomicFile saida(arquivo);
    ASSERT_TRUE(static_cast<bool>(saida.open()));
    saida.write(texto);
    ASSERT_TRUE(static_cast<bool>(saida.commit()));
    ASSERT_TRUE(static_cast<bool>(editor->file().open(arquivo)));
    std::filesystem::remove(arquivo);
    const std::vector<AcDbObjectId> todas = entities();
    ASSERT_EQ(todas.size(), 3u);
    expectPoint(face(todas[0], 1), 100, -50);
    expectPoint(face(todas[1], 1), 100, 800);
    esperaCota(todas[2], 100, -50, 600, -50, 100, -60);
    EXPECT_NE(relatorio(todas[0]).find(L"cotas=[ #" + prancheta::toWide(handle(todas[2])) + L" ]"),
              std::wstring::npos)
        << testing::PrintToString(relatorio(todas[0]));
    EXPECT_NE(relatorio(todas[1]).find(L"cotas=[ ]"), std::wstring::npos);
    EXPECT_FALSE(editor->database().core().undo().canUndo()) << "opening is no step";
}

class Visitado : public Arquivo {
protected:
    Visitado() {
        peca = u(100, 0, 500);
        medida = cota(100, -100, 600, -100, 100, -110);
        placa = chapa(500, 60, 100, 120);
        muda(peca, [&](ZpObject& p) {
            p.LinkDim(medida);
            p.LinkPos(placa);
        });
        arquivo = std::filesystem::temp_directory_path() / "zp_visitado_test.dxf";
    }
    ~Visitado() override { std::filesystem::remove(arquivo); }
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
    static std::string movida(std::string texto, const std::string& qual, const char* de,
                              const char* para) {
        const auto [inicio, fim] = registro(texto, qual);
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

TEST_F(Visitado, PecaMovidaLevaOQueELigado) {
    const std::string daPeca = handle(peca);
    grava(movida(salva(), daPeca, "\n20\n0.0\n", "\n20\n50.0\n"));
    // Inside a command, as users open drawings.
    type({L"_open", arquivo.wstring().c_str()});
    const std::vector<AcDbObjectId> todas = entities();
    ASSERT_EQ(todas.size(), 3u);
    esperaPonto(inicio(todas[0]), 100, 50);
    esperaCota(todas[1], 100, -50, 600, -50, 100, -60);
    esperaPonto(inicio(todas[2]), 500, 110);
    EXPECT_FALSE(editor->database().core().undo().canUndo()) << "opening is no step";
}

TEST_F(Visitado, MovidaComAChapaNaoEMovidaDuasVezes) {
    const std::string daPeca = handle(peca);
    const std::string daPlaca = handle(placa);
    const std::string texto = movida(salva(), daPeca, "\n20\n0.0\n", "\n20\n50.0\n");
    grava(movida(texto, daPlaca, "\n20\n60.0\n", "\n20\n110.0\n"));
    ASSERT_TRUE(static_cast<bool>(editor->file().open(arquivo)));
    ASSERT_EQ(entities().size(), 3u);
    esperaPonto(inicio(entities()[2]), 500, 110);
    // A plate that was moved alone stays where it was put, and goes on from there.
    grava(movida(salva(), daPlaca, "\n10\n500.0\n", "\n10\n400.0\n"));
    ASSERT_TRUE(static_cast<bool>(editor->file().open(arquivo)));
    esperaPonto(inicio(entities()[2]), 400, 110);
    type({L"_move"});
    pick(0, 0, {entities()[0]});
    type({L"", L"0,0", L"0,7"});
    esperaPonto(inicio(entities()[2]), 400, 117);
}

TEST_F(Visitado, QuemNaoFoiMovidoFicaIgual) {
    muda(peca, [](ZpObject& p) {
        p.transformBy(AcGeMatrix3d::rotation(0.3, AcGeVector3d::kZAxis, AcGePoint3d(7, 1, 0)));
    });
    const std::string antes = salva();
    ASSERT_TRUE(static_cast<bool>(editor->file().open(arquivo)));
    EXPECT_TRUE(salva() == antes);
}

TEST_F(Arquivo, RelatorioTemTudoNaOrdem) {
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
    const AcDbObjectId rolado =
        poe(new ZpILaminadoUSA(AcGePoint3d(), ZpObject::kVistaSecao, 200, 100, 5.6, 8.5,
                               ZpILaminadoUSA::kAmericano, 0, 0, 1000, 0, 0));
    EXPECT_NE(relatorio(rolado).find(L"5.600000 8.500000 2.000000 0.000000 0.000000 1000.000000"),
              std::wstring::npos);
}

TEST_F(Arquivo, DadosDaBarraAcompanhamAPeca) {
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
