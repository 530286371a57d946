// SPDX-License-Identifier: MIT
// Pieces in files: both filers, versions, damage; what other modules read of a piece.
#include "prancheta/base/file.h"
#include "prancheta/base/text.h"
#include "prancheta/database/memory_filer.h"
#include "protocol/attach.h"
#include "protocol/report.h"
#include "tests/zp/drawing.h"
#include "zp/objects/cortes.h"
#include "zp/objects/published.h"
#include "zp/trelica/zptrelica.h"

namespace {

using namespace zp_tests;

/// Groups in memory; gives them back, or as many of them as it is told.
class Groups : public AcDbDxfFiler {
public:
    struct Group {
        int code = 0;
        std::wstring text;
        double reals[3] = {};
        int integer = 0;
        AcDbObjectId id;
    };
    std::vector<Group> groups;
    std::size_t to = 0;
    std::wstring error;

    void reread(std::size_t count) {
        m_read = 0;
        to = count;
        m_state = Acad::eOk;
        error.clear();
    }
    Acad::ErrorStatus filerStatus() const override { return m_state; }
    void resetFilerStatus() override { m_state = Acad::eOk; }
    Acad::ErrorStatus setError(Acad::ErrorStatus es, const ACHAR* text, ...) override {
        error = text;
        return m_state = es;
    }
    Acad::ErrorStatus writeString(int c, const ACHAR* t) override { return put({c, t, {}, 0, {}}); }
    Acad::ErrorStatus writeDouble(int c, double v) override { return put({c, L"", {v}, 0, {}}); }
    Acad::ErrorStatus writePoint3d(int c, const AcGePoint3d& p) override {
        return put({c, L"", {p.x, p.y, p.z}, 0, {}});
    }
    Acad::ErrorStatus writeInt16(int c, Adesk::Int16 v) override {
        return put({c, L"", {}, v, {}});
    }
    Acad::ErrorStatus writeInt32(int c, Adesk::Int32 v) override {
        return put({c, L"", {}, v, {}});
    }
    Acad::ErrorStatus writeBool(int c, bool v) override { return put({c, L"", {}, v, {}}); }
    Acad::ErrorStatus writeObjectId(int c, const AcDbObjectId& id) override {
        return put({c, L"", {}, 0, id});
    }
    Acad::ErrorStatus readItem(resbuf* r) override {
        if (m_read >= to) return Acad::eBadDxfSequence;
        const Group& g = groups[m_read++];
        r->restype = static_cast<short>(g.code);
        if (g.code == 40) r->resval.rreal = g.reals[0];
        if (g.code == 10 || g.code == 11) std::copy_n(g.reals, 3, r->resval.rpoint);
        if (g.code == 70) r->resval.rint = static_cast<short>(g.integer);
        if (g.code == 330) (void)acdbGetAdsName(r->resval.rlname, g.id);
        if (g.code < 10 || g.code == 100) (void)acutNewString(g.text.c_str(), r->resval.rstring);
        return Acad::eOk;
    }
    void pushBackItem() override { --m_read; }
    bool atSubclassData(const ACHAR* name) override {
        if (m_read >= to || groups[m_read].code != 100 || groups[m_read].text != name) return false;
        ++m_read;
        return true;
    }
    bool atEOF() override { return m_read >= to; }

private:
    Acad::ErrorStatus put(Group g) {
        groups.push_back(std::move(g));
        return m_state;
    }
    std::size_t m_read = 0;
    Acad::ErrorStatus m_state = Acad::eOk;
};

/// Everything that a report says, as one text.
class ReportText : public protocol::PropertyVisitor {
public:
    std::wstring everything;
    void number(const ACHAR* n, double v) override { say(n, std::to_wstring(v)); }
    void integer(const ACHAR* n, long long v) override { say(n, std::to_wstring(v)); }
    void text(const ACHAR* n, const ACHAR* v) override {
        say(n, v == nullptr ? L"-" : std::wstring(L"'") + v + L"'");
    }
    void point(const ACHAR* n, const AcGePoint3d& p) override {
        say(n, L"(" + std::to_wstring(p.x) + L" " + std::to_wstring(p.y) + L" " +
                   std::to_wstring(p.z) + L")");
    }
    void object(const ACHAR* n, const AcDbObjectId& id) override {
        ACHAR h[17];
        id.handle().getIntoAsciiBuffer(h);
        say(n, std::wstring(L"#") + h);
    }
    void beginList(const ACHAR* n) override { say(n, L"["); }
    void endList() override { everything += L"] "; }
    void beginGroup(const ACHAR* n) override { say(n, L"{"); }
    void endGroup() override { everything += L"} "; }

private:
    void say(const ACHAR* n, const std::wstring& v) {
        everything += (n != nullptr ? std::wstring(n) + L"=" : L"") + v + L" ";
    }
};

class Filing : public Drawing {
protected:
    std::wstring report(const AcDbEntity& e) {
        auto* r = protocol::extensionOf<protocol::EntityReport>(e, protocol::kEntityReportClass);
        ReportText text;
        if (r != nullptr) r->describe(e, text);
        return text.everything;
    }
    std::wstring report(AcDbObjectId id) { return report(*Read<AcDbEntity>(id)); }

    /// One of every class, with values of its own kind.
    std::vector<std::unique_ptr<ZpObject>> ofAllKinds() {
        const AcGePoint3d p(10, 20, 3);
        const AcGePoint3d q(110, 120, 3);
        const double r = 0.5 * kPi;
        const auto v = ZpObject::kVistaSuperior;
        std::vector<std::unique_ptr<ZpObject>> all;
        const auto put = [&](ZpObject* o) { all.emplace_back(o); };
        put(new ZpUDobrado(p, v, 200, 75, 75, 2.65, 2.65, r, r, 900, kPi, 0, 20));
        put(new ZpUDobrado(p, v, 200, 75, 75, 2.65, 2.65, r, r, 900, 0, 0, 0));
        zp::Peca& cut = zp::Access::of(*all.back());
        cut.cortes = {zp::cortes::withAngle(cut, 0, 0.4), zp::cortes::withAngle(cut, 1, -0.3)};
        put(new ZpUDobrado(p, q, v, 200, 75, 75, 2.65, 2.65, r, r, 0, 20));
        put(new ZpZDobrado(p, v, 150, 60, 20, 2, 2, r, r, 900, 0, 0, 0, 0));
        put(new ZpCartola(p, q, v, 50, 100, 2, 2, 20, 0));
        put(new ZpCantoneiraDobrada(p, v, 50, 50, 3, 3, r, 900, 0, 0, 0));
        put(new ZpCaixaDobrado(p, v, 200, 75, 2.65, 2.65, 170, 900, 0, 0, 20));
        put(new ZpBox(p, v, 100, 60, 4, 4, 900, 0, 0));
        put(new ZpTubo(p, q, v, 60.3, 54.3));
        put(new ZpBarraRedonda(p, v, 25.4, 900, 0));
        put(new ZpBNLaminado(p, v, 50.8, 6.35, -11.97, 6.35, 0, 0, 900, 4.74, 602.9));
        put(new ZpCantLaminada(p, v, 50.8, 50.8, 6.35, 16.9, 33.9, 6.35, 0, 0, 900, 4.74, 602.9));
        put(new ZpCantLaminadaCaixa(p, v, 50.8, 50.8, 6.35, 6.35, 0, 0, 900, 9.48, 1205.7));
        put(new ZpULaminado(p, v, 152.4, 48.77, 5.08, 48.77, 5.08, 5.08, 16.3, 5.08, 0, 0, 900,
                            1551.7, 12.2));
        put(new ZpCantTDobrada(p, v, 50, 50, 3, 3, 8, 900, 0, 0, 0));
        put(new ZpCantUDobrada(p, v, 50, 50, 3, 3, 150, 900, 0, 0, 0));
        put(new ZpXDobrado(p, v, 50, 50, 3, 3, 10, 900, 0, 0, 0, 0));
        put(new ZpCantTEELaminada(p, v, 50.8, 50.8, 6.35, 0, 33.9, 6.35, 10, 0, 0, 900, 9.48,
                                  12.06));
        put(new ZpCantULaminada(p, v, 50.8, 50.8, 6.35, 0, 33.9, 6.35, 150, 0, 0, 900, 9.48,
                                12.06));
        put(new ZpBNDuplaLaminada(p, v, 50.8, 6.35, -11.97, 6.35, 10, 0, 0, 900, 9.48, 12.06));
        put(new ZpCantCruzLaminada(p, v, 50.8, 50.8, 6.35, 6.35, 8, 8, 0, 0, 900, 9.48, 12.06));
        put(new ZpCantZLaminada(p, v, 50.8, 50.8, 6.35, 6.35, 8, 8, 0, 0, 900, 9.48, 12.06));
        put(new ZpUULaminado(p, v, 152.4, 48.77, 5.08, 48.77, 5.08, 5.08, 0, 5.08, 0, 0, 900,
                             3103.4, 24.4));
        put(new Zp2ULaminado(p, v, 152.4, 48.77, 5.08, 48.77, 5.08, 5.08, 16.3, 5.08, 10, 0, 0, 900,
                             3103.4, 24.4));
        put(new ZpIDobrado(p, v, 200, 75, 75, 2.65, 2.65, 50, 900, 0, 0, 0));
        put(new ZpISoldado(p, v, 300, 300, 300, 8, 9.5, 900, 0, 0, 62.4));
        put(new ZpISoldado(p, 300, 150, 200, 9.5, 12.5, 6.3, 900, v, 0, 0, 0));
        put(new ZpISoldado(p, q, v, 300, 300, 300, 8, 9.5, 0, 62.4));
        put(new ZpISoldado(p, q, 300, 150, 200, 9.5, 12.5, 6.3, v, 0, 0));
        put(new ZpILaminadoUSA(p, v, 200, 100, 5.6, 8.5, ZpILaminadoUSA::kEuropeu, 0, 0, 900,
                               2848.9, 22.4));
        put(new ZpILaminadoUSA(p, q, v, 200, 100, 5.6, 8.5, ZpILaminadoUSA::kAmericano, 0, 2848.9,
                               22.4));
        put(new ZpChapa(p, ZpObject::kVistaEsquerda, 100, 8, 120, 0, -r));
        for (const auto& o : all) {
            o->settipoBarra(ZpObject::kTerca);
            o->transformBy(
                AcGeMatrix3d::mirroring(AcGePoint3d(1, 2, 0), AcGeVector3d(0.6, 0.8, 0)));
            o->transformBy(AcGeMatrix3d::scaling(1.5));
        }
        return all;
    }
};

TEST_F(Filing, EveryKindComesBackTheSame) {
    for (const auto& o : ofAllKinds()) {
        SCOPED_TRACE(testing::Message() << o->isA()->name());
        const std::wstring before = report(*o);
        ASSERT_NE(before.find(L"perfil='"), std::wstring::npos);

        prancheta::MemoryFiler memory(AcDb::kCopyFiler);
        ASSERT_EQ(o->dwgOutFields(&memory), Acad::eOk);
        memory.rewind();
        const std::unique_ptr<ZpObject> around(ZpObject::cast(o->isA()->create()));
        ASSERT_EQ(around->dwgInFields(&memory), Acad::eOk);
        EXPECT_TRUE(memory.atEnd());
        EXPECT_EQ(report(*around), before);

        Groups groups;
        ASSERT_EQ(o->dxfOutFields(&groups), Acad::eOk);
        groups.reread(groups.groups.size());
        const std::unique_ptr<ZpObject> fromDxf(ZpObject::cast(o->isA()->create()));
        ASSERT_EQ(fromDxf->dxfInFields(&groups), Acad::eOk);
        EXPECT_TRUE(groups.atEOF());
        EXPECT_EQ(report(*fromDxf), before);
    }
}

TEST_F(Filing, ACutOrDamagedRecordIsRefused) {
    ZpTubo tubo(AcGePoint3d(), AcGePoint3d(100, 0, 0), ZpObject::kVistaDireita, 60.3, 54.3);
    Groups groups;
    tubo.dxfOutFields(&groups);
    for (std::size_t n = 0; n < groups.groups.size(); ++n) {
        groups.reread(n);
        ZpTubo other;
        EXPECT_NE(other.dxfInFields(&groups), Acad::eOk) << n;
        EXPECT_EQ(other.getComprimentoReal(), 0.0);
    }
    // Another class, an unknown view, a number of values that no constructor has, a negative count
    // of links; behind them the job, name and numbers of the table.
    for (const auto& [group, value] :
         {std::pair<std::size_t, int>{2, 1}, {6, 9}, {7, 5}, {groups.groups.size() - 8, -1}}) {
        Groups bad;
        bad.groups = groups.groups;
        ASSERT_EQ(bad.groups[group].code, 70);
        bad.groups[group].integer = value;
        bad.reread(bad.groups.size());
        ZpTubo other;
        EXPECT_EQ(other.dxfInFields(&bad), Acad::eInvalidInput) << group;
    }
}

/// On a machine with other tables, or none, and in a drawing of before pieces kept theirs.
TEST_F(Filing, WhatTheTablePrintedIsKept) {
    const auto i = [] {
        return std::make_unique<ZpILaminadoUSA>(AcGePoint3d(), ZpObject::kVistaSecao, 150, 100, 4.3,
                                                4.9, ZpILaminadoUSA::kAcoMinas, 0, 0, 1000,
                                                13 * 127.1848, 13);
    };
    auto kept = i();
    zp::published::keep(*kept, std::make_shared<zp::Commercial>(zp::Commercial{
                                   L"W 150 x 13,7", 13.7, {8.0, 2.0, 1700.0, true}}));
    const std::wstring before = report(*kept);
    for (const bool older : {false, true}) {
        Groups groups;
        ASSERT_EQ((older ? i() : std::move(kept))->dxfOutFields(&groups), Acad::eOk);
        EXPECT_EQ(groups.groups[1].integer, older ? 1 : 3);
        groups.reread(groups.groups.size());
        ZpILaminadoUSA read;
        ASSERT_EQ(read.dxfInFields(&groups), Acad::eOk);
        EXPECT_TRUE(groups.atEOF());
        EXPECT_EQ(report(read) == before, !older);
        EXPECT_NEAR(read.getLinearWeight(), older ? 13.0 : 13.7, 1e-12);
        EXPECT_EQ(zp::Access::of(read).designacao(), older ? L"W 150x13" : L"W 150 x 13,7");
        EXPECT_EQ(zp::Access::of(read).roles().printed.root, older ? -1.0 : 8.0);
    }
}

TEST_F(Filing, SizesThatNoCommandGivesAreRefused) {
    ZpUDobrado u(AcGePoint3d(), ZpObject::kVistaSecao, 200, 75, 75, 3, 3, 1.5, 1.5, 1000, 0, 0, 20);
    Groups groups;
    u.dxfOutFields(&groups);
    std::vector<std::size_t> reals;
    for (std::size_t i = 0; i < groups.groups.size(); ++i)
        if (groups.groups[i].code == 40) reals.push_back(i);
    ASSERT_EQ(groups.groups[reals[0]].reals[0], 200.0);
    // The height, the upper flange, its angle, and the length behind the eleven values.
    for (const std::size_t index : {reals[0], reals[1], reals[5], reals[11]}) {
        for (const double value : {-5.0, 0.0, 1e308, 2e9, 1.0}) {
            Groups others;
            others.groups = groups.groups;
            others.groups[index].reals[0] = value;
            others.reread(others.groups.size());
            ZpUDobrado read;
            // A length of nothing is that of a piece between two equal points.
            const bool possible = value == 1.0 || (value == 0.0 && index == reals[11]);
            EXPECT_EQ(read.dxfInFields(&others), possible ? Acad::eOk : Acad::eInvalidInput)
                << index << " " << value;
        }
    }
}

TEST_F(Filing, ANewerVersionIsRefusedWithAReason) {
    ZpBarraRedonda barra(AcGePoint3d(), ZpObject::kVistaSecao, 25.4, 1000, 0);
    Groups groups;
    barra.dxfOutFields(&groups);
    ASSERT_EQ(groups.groups[1].integer, 3);
    groups.groups[1].integer = 5;
    groups.reread(groups.groups.size());
    ZpBarraRedonda other;
    EXPECT_EQ(other.dxfInFields(&groups), Acad::eNotImplementedYet);
    EXPECT_NE(groups.error.find(L"versão"), std::wstring::npos);
}

TEST_F(Filing, ADrawingSavedAndOpened) {
    const std::filesystem::path file =
        std::filesystem::temp_directory_path() / "zp_arquivo_test.dxf";
    const AcDbObjectId peca = u(100, 0, 500);
    const AcDbObjectId medida = cota(100, -100, 600, -100, 100, -110);
    const AcDbObjectId chapaId = chapa(500, 60, 100, 120);
    change(peca, [&](ZpObject& p) {
        p.LinkDim(medida);
        p.LinkPos(chapaId);
        p.transformBy(AcGeMatrix3d::rotation(0.25 * kPi, AcGeVector3d::kZAxis));
    });
    const std::wstring before = report(peca) + report(chapaId);
    ASSERT_TRUE(static_cast<bool>(editor->file().save(file)));
    ASSERT_TRUE(static_cast<bool>(editor->file().open(file)));
    std::filesystem::remove(file);
    const std::vector<AcDbObjectId> all = entities();
    ASSERT_EQ(all.size(), 3u);
    EXPECT_EQ(report(all[0]) + report(all[2]), before);
    // The links live: what was tied follows in the opened drawing.
    type({L"_move"});
    pick(0, 0, {all[0]});
    type({L"", L"0,0", L"10,0"});
    const double c = std::sqrt(0.5);
    expectCota(all[1], 200 * c + 10, 0, 700 * c + 10, 500 * c, 210 * c + 10, -10 * c);
}

/// Record of the entity with this handle, from its "0" to the next one's.
std::pair<std::size_t, std::size_t> record(const std::string& text, const std::string& handle) {
    const std::size_t from = text.rfind("\n0\n", text.find("\n5\n" + handle + "\n330\n")) + 1;
    // Two lines at a time: a layer may be called 0 too.
    std::size_t to = from;
    do {
        for (int row = 0; row < 2; ++row) to = text.find('\n', to) + 1;
    } while (text.compare(to, 2, "0\n") != 0);
    return {from, to};
}

std::string replaced(std::string text, const std::string& what, const std::string& with) {
    const std::size_t where = text.find(what);
    EXPECT_NE(where, std::string::npos) << what;
    return where == std::string::npos ? text : text.replace(where, what.size(), with);
}

TEST_F(Filing, AnotherProgramMovesCopiesAndErases) {
    const std::filesystem::path file =
        std::filesystem::temp_directory_path() / "zp_visita_test.dxf";
    const AcDbObjectId peca = u(100, 0, 500);
    const AcDbObjectId stays = cota(100, -100, 600, -100, 100, -110);
    const AcDbObjectId vanishes = cota(100, 100, 100, -100, 90, 100);
    change(peca, [&](ZpObject& p) {
        p.LinkDim(stays);
        p.LinkDim(vanishes);
    });
    const auto handle = [](AcDbObjectId id) {
        ACHAR text[17];
        id.handle().getIntoAsciiBuffer(text);
        return prancheta::toUtf8(text);
    };
    const std::string ofPeca = handle(peca);
    const std::string ofVanishing = handle(vanishes);
    ASSERT_TRUE(static_cast<bool>(editor->file().save(file)));
    std::string text = *prancheta::readFile(file);
    // The second dimension goes, the piece moves up by 50 and has a copy further up.
    const auto [from, to] = record(text, ofVanishing);
    text.erase(from, to - from);
    const auto [start, end] = record(text, ofPeca);
    const std::string original = text.substr(start, end - start);
    const std::string moved = replaced(original, "\n20\n0.0\n", "\n20\n50.0\n");
    const std::string copy =
        replaced(replaced(original, "\n20\n0.0\n", "\n20\n900.0\n"), "\n5\n" + ofPeca, "\n5\nFF0");
    text.replace(start, end - start, moved + copy);
    prancheta::AtomicFile output(file);
    ASSERT_TRUE(static_cast<bool>(output.open()));
    output.write(text);
    ASSERT_TRUE(static_cast<bool>(output.commit()));
    ASSERT_TRUE(static_cast<bool>(editor->file().open(file)));
    std::filesystem::remove(file);
    const std::vector<AcDbObjectId> all = entities();
    ASSERT_EQ(all.size(), 3u);
    expectPoint(face(all[0], 1), 100, -50);
    expectPoint(face(all[1], 1), 100, 800);
    expectCota(all[2], 100, -50, 600, -50, 100, -60);
    EXPECT_NE(report(all[0]).find(L"cotas=[ #" + prancheta::toWide(handle(all[2])) + L" ]"),
              std::wstring::npos)
        << testing::PrintToString(report(all[0]));
    EXPECT_NE(report(all[1]).find(L"cotas=[ ]"), std::wstring::npos);
    EXPECT_FALSE(editor->database().core().undo().canUndo()) << "opening is no step";
}

class Revisited : public Filing {
protected:
    Revisited() {
        peca = u(100, 0, 500);
        medida = cota(100, -100, 600, -100, 100, -110);
        chapaId = chapa(500, 60, 100, 120);
        change(peca, [&](ZpObject& p) {
            p.LinkDim(medida);
            p.LinkPos(chapaId);
        });
        file = std::filesystem::temp_directory_path() / "zp_visitado_test.dxf";
    }
    ~Revisited() override {
        for (const char* extension : {".dxf", ".bak"})
            std::filesystem::remove(file.replace_extension(extension));
    }
    std::string save() {
        EXPECT_TRUE(static_cast<bool>(editor->file().save(file)));
        return *prancheta::readFile(file);
    }
    void write(const std::string& text) {
        prancheta::AtomicFile output(file);
        ASSERT_TRUE(static_cast<bool>(output.open()));
        output.write(text);
        ASSERT_TRUE(static_cast<bool>(output.commit()));
    }
    static std::string handle(AcDbObjectId id) {
        ACHAR text[17];
        id.handle().getIntoAsciiBuffer(text);
        return prancheta::toUtf8(text);
    }
    /// The same text with the INSERT of the piece somewhere else.
    static std::string moved(std::string text, const std::string& index, const char* from,
                             const char* target) {
        const auto [start, end] = record(text, index);
        return text.replace(start, end - start,
                            replaced(text.substr(start, end - start), from, target));
    }
    AcGePoint3d start(AcDbObjectId id) {
        AcGePoint3d p;
        Read<ZpObject>(id)->StartPoint(p);
        return p;
    }
    AcDbObjectId peca, medida, chapaId;
    std::filesystem::path file;
};

TEST_F(Revisited, AMovedPecaTakesWhatIsTiedToIt) {
    const std::string ofPeca = handle(peca);
    write(moved(save(), ofPeca, "\n20\n0.0\n", "\n20\n50.0\n"));
    // Inside a command, as users open drawings.
    type({L"_open", file.wstring().c_str()});
    const std::vector<AcDbObjectId> all = entities();
    ASSERT_EQ(all.size(), 3u);
    expectNear(start(all[0]), 100, 50);
    expectCota(all[1], 100, -50, 600, -50, 100, -60);
    expectNear(start(all[2]), 500, 110);
    EXPECT_FALSE(editor->database().core().undo().canUndo()) << "opening is no step";
}

TEST_F(Revisited, WhatMovedWithItsChapaMovesOnce) {
    const std::string ofPeca = handle(peca);
    const std::string ofChapa = handle(chapaId);
    const std::string text = moved(save(), ofPeca, "\n20\n0.0\n", "\n20\n50.0\n");
    write(moved(text, ofChapa, "\n20\n60.0\n", "\n20\n110.0\n"));
    ASSERT_TRUE(static_cast<bool>(editor->file().open(file)));
    ASSERT_EQ(entities().size(), 3u);
    expectNear(start(entities()[2]), 500, 110);
    // A plate that was moved alone stays where it was put, and goes on from there.
    write(moved(save(), ofChapa, "\n10\n500.0\n", "\n10\n400.0\n"));
    ASSERT_TRUE(static_cast<bool>(editor->file().open(file)));
    expectNear(start(entities()[2]), 400, 110);
    type({L"_move"});
    pick(0, 0, {entities()[0]});
    type({L"", L"0,0", L"0,7"});
    expectNear(start(entities()[2]), 400, 117);
}

TEST_F(Revisited, WhatWasNotMovedStays) {
    change(peca, [](ZpObject& p) {
        p.transformBy(AcGeMatrix3d::rotation(0.3, AcGeVector3d::kZAxis, AcGePoint3d(7, 1, 0)));
    });
    const std::string before = save();
    ASSERT_TRUE(static_cast<bool>(editor->file().open(file)));
    EXPECT_TRUE(save() == before);
}

TEST_F(Filing, TheReportHasEverythingInOrder) {
    const AcDbObjectId id = put(new ZpISoldado(AcGePoint3d(1, 2, 0), ZpObject::kVistaDireita, 300,
                                               300, 300, 8, 9.5, 1000, 0, 0, 62.4));
    change(id, [](ZpObject& p) {
        static_cast<ZpISoldado&>(p).setSubType(ZpISoldado::kCS);
        p.settipoBarra(ZpObject::kPilar);
        p.AlteraComprimento(2000);
    });
    std::wstring all = report(id);
    const std::size_t name = all.find(L"designacao=");
    const std::size_t from = all.find(L"secao={ ");
    ASSERT_TRUE(name < from && from != std::wstring::npos);
    const std::wstring section = all.substr(from, all.find(L"} ", from) + 2 - from);
    EXPECT_EQ(all.substr(name, from - name), L"designacao='CS 300x62' ");
    all.erase(name, from + section.size() - name);
    // In mm: Zx = 300 x 9.5 x 290.5 + 8 x 281^2 / 4, It = (2 x 300 x 9.5^3 + 290.5 x 8^3) / 3.
    EXPECT_TRUE(
        section.starts_with(L"secao={ kg_m=62.400000 fonte_massa='tabela' A=7948.000000 "
                            L"m2_m=1.784000 xg=150.000000 yg=150.000000 Ix="));
    for (const wchar_t* const part :
         {L" Zx=985847.000000 ", L" It=221053.666667 ", L" x0=0.000000 ",
          L" esbeltez=[ [ 150.000000 9.500000 ] ", L" [ 281.000000 8.000000 ] ", L" tira=- } "})
        EXPECT_NE(section.find(part), std::wstring::npos);
    EXPECT_EQ(
        all,
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
        L"area=7948.000000 perimetro=1784.000000 area_pintura=3.568000 peso=124.800000 "
        L"peso_liquido=124.800000 corte_inicio=0.000000 corte_fim=0.000000 "
        L"fundo_inicio=0.000000 fundo_fim=0.000000 perfil='CS' "
        L"dimensoes='300x62,4' marca=- conta=1 cotas=[ ] ligados=[ ] ");
    const AcDbObjectId rolled =
        put(new ZpILaminadoUSA(AcGePoint3d(), ZpObject::kVistaSecao, 200, 100, 5.6, 8.5,
                               ZpILaminadoUSA::kAmericano, 0, 0, 1000, 0, 0));
    EXPECT_NE(report(rolled).find(L"5.600000 8.500000 2.000000 0.000000 0.000000 1000.000000"),
              std::wstring::npos);
}

TEST_F(Filing, BarDataFollowThePeca) {
    const AcDbObjectId id = u(0, 0, 500);
    tagZP_GBARRA barra;
    ASSERT_EQ(GetXDataEntStObject(id, &barra), RTNORM);
    EXPECT_STREQ(barra.perfil, L"U");
    EXPECT_STREQ(barra.dimensoes, L"200x75x3");
    EXPECT_EQ(barra.comprimento, 500.0);
    EXPECT_NEAR(barra.peso, 8.010230 * 0.5, 1e-6);
    change(id, [](ZpObject& p) {
        p.settipoBarra(ZpObject::kViga);
        p.AlteraComprimento(800);
    });
    ASSERT_EQ(GetXDataEntStObject(id, &barra), RTNORM);
    EXPECT_EQ(barra.type, 5);
    EXPECT_EQ(barra.comprimento, 800.0);
    ZpString dimensoes, perfil;
    GetDimAndPerfText(barra, dimensoes, perfil);
    EXPECT_EQ(dimensoes, ZpString(L"200x75x3"));
    // Plates carry none, and what is no piece neither.
    EXPECT_EQ(GetXDataEntStObject(chapa(0, 0, 100, 120), &barra), RTERROR);
    EXPECT_EQ(GetXDataEntStObject(cota(0, 0, 1, 1, 0, 1), &barra), RTERROR);
    EXPECT_EQ(barra.type, 5);
}

}  // namespace
