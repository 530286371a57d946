// SPDX-License-Identifier: MIT
// Undo and redo.
#include <malloc.h>

#include "fixture.h"

namespace {

class UndoTest : public DatabaseTest {
protected:
    /// Runs `work` as a command.
    template <class Work>
    void command(const wchar_t* name, Work&& work) {
        undo().begin(name);
        work();
        undo().end();
    }
    std::size_t alive() { return core().modelSpace().size(); }
};

void erase(AcDbObjectId id) { AcDbObjectPointer<AcDbObject>(id, AcDb::kForWrite)->erase(); }

TEST_F(UndoTest, OneStepPerCommandBothWays) {
    AcDbObjectId a;
    AcDbObjectId b;
    command(L"LINHA", [&] { a = append(database, new Piece(1)); });
    command(L"MUDAR", [&] {
        resize(a, 2);
        b = append(database, new Piece(10));
        resize(a, 3);
        erase(a);
        resize(b, 11);
    });
    std::wstring name;
    EXPECT_TRUE(undo().undo(&name));
    EXPECT_EQ(name, L"MUDAR");
    EXPECT_EQ(sizeOf(a), 1);
    EXPECT_EQ(core().modelSpace(), std::vector{a});
    EXPECT_TRUE(undo().undo(&name));
    EXPECT_EQ(name, L"LINHA");
    EXPECT_EQ(alive(), 0u);
    EXPECT_FALSE(undo().undo());
    for (int round = 0; round < 2; ++round) {
        EXPECT_TRUE(undo().redo());
        EXPECT_EQ(sizeOf(a), 1);
        EXPECT_TRUE(undo().redo(&name));
        EXPECT_EQ(name, L"MUDAR");
        EXPECT_FALSE(undo().redo());
        EXPECT_EQ(core().modelSpace(), std::vector{b});
        EXPECT_EQ(sizeOf(b), 11);
        EXPECT_TRUE(undo().undo());
        EXPECT_TRUE(undo().undo());
    }
}

TEST_F(UndoTest, GroupsNestAndEmptyOnesLeaveNoTrace) {
    const AcDbObjectId id = append(database, new Piece(1));
    command(L"FORA", [&] {
        command(L"DENTRO", [&] { resize(id, 2); });
        resize(id, 3);
    });
    const std::size_t groups = undo().groupCount();
    undo().undo();
    EXPECT_EQ(sizeOf(id), 1);
    command(L"LISTAR", [&] {
        AcDbObjectPointer<Piece> looked(id, AcDb::kForWrite);  // opened, not changed
        EXPECT_EQ(looked->size(), 1);
    });
    EXPECT_EQ(undo().groupCount(), groups - 1);
    EXPECT_TRUE(undo().canRedo());
    undo().redo();
    EXPECT_EQ(sizeOf(id), 3);
    undo().undo();
    command(L"MUDAR", [&] { resize(id, 7); });
    EXPECT_FALSE(undo().canRedo());
    undo().undo();
    resize(id, 8);  // outside a command
    EXPECT_FALSE(undo().canRedo());
}

TEST_F(UndoTest, ChangesOutsideCommandsAreStepsOfTheirOwn) {
    const AcDbObjectId id = append(database, new Piece(1));
    resize(id, 2);
    Piece* piece = nullptr;
    ASSERT_EQ(acdbOpenObject(piece, id, AcDb::kForWrite), Acad::eOk);
    piece->setSize(3);
    piece->setSize(4);
    piece->close();
    EXPECT_EQ(undo().groupCount(), 3u);
    undo().undo();
    EXPECT_EQ(sizeOf(id), 2);
    undo().undo();
    EXPECT_EQ(sizeOf(id), 1);
    undo().undo();
    EXPECT_EQ(alive(), 0u);
}

TEST_F(UndoTest, ObjectsKeptOpenAreRecordedInEachCommand) {
    AcDbObjectPointer<AcDbBlockTableRecord> space(database.currentSpaceId(), AcDb::kForWrite);
    auto* piece = new Piece(1);
    command(L"A", [&] { ASSERT_EQ(space->appendAcDbEntity(piece), Acad::eOk); });
    command(L"B", [&] { piece->setSize(2); });
    command(L"C", [&] { piece->setSize(3); });
    piece->close();
    undo().undo();
    EXPECT_EQ(piece->size(), 2);
    undo().undo();
    EXPECT_EQ(piece->size(), 1);
    EXPECT_EQ(alive(), 1u);
}

// One group opens the object three times: each access can be given up alone, and the group is one
// step.
TEST_F(UndoTest, CancelGivesUpOneAccessOfMany) {
    const AcDbObjectId old = append(database, new Piece(1));
    AcDbObjectId made;
    command(L"MUDAR", [&] {
        made = append(database, new Piece(10));
        for (const AcDbObjectId& id : {old, made}) {
            const double size = sizeOf(id);
            resize(id, size + 1);
            AcDbObjectPointer<Piece> piece(id, AcDb::kForWrite);
            piece->setSize(100);
            piece->cancel();
            EXPECT_EQ(sizeOf(id), size + 1);
            resize(id, size + 2);
        }
    });
    EXPECT_EQ(undo().groupCount(), 2u);
    undo().undo();
    EXPECT_EQ(sizeOf(old), 1);
    EXPECT_EQ(alive(), 1u);
    undo().redo();
    EXPECT_EQ(sizeOf(old), 3);
    EXPECT_EQ(sizeOf(made), 12);
    // The next group starts anew: what it cancels goes back to the group before.
    command(L"DE NOVO", [&] {
        AcDbObjectPointer<Piece> piece(made, AcDb::kForWrite);
        piece->setSize(5);
        piece->cancel();
        resize(made, 6);
    });
    undo().undo();
    EXPECT_EQ(sizeOf(made), 12);
}

TEST_F(UndoTest, ManyChangesInOneGroupKeepOneState) {
    constexpr std::size_t kName = 10000;
    const AcDbObjectId id = append(database, new Piece(1, std::wstring(kName, L'x')));
    const std::size_t before = mallinfo2().uordblks;
    command(L"MUDAR", [&] {
        for (int i = 2; i <= 500; ++i) resize(id, i);
    });
    EXPECT_LT(mallinfo2().uordblks, before + 3 * kName * sizeof(wchar_t));
    undo().undo();
    EXPECT_EQ(sizeOf(id), 1);
}

TEST_F(UndoTest, FailedCommandIsRolledBack) {
    const AcDbObjectId id = append(database, new Piece(1));
    resize(id, 5);
    undo().undo();
    const std::uint64_t revision = undo().revision();
    command(L"FALHA", [&] {
        resize(id, 2);
        append(database, new Piece(9));
        ASSERT_EQ(database.setDimscale(50), Acad::eOk);
        undo().rollbackOpenGroup();
        EXPECT_EQ(sizeOf(id), 1);
        EXPECT_EQ(alive(), 1u);
        EXPECT_EQ(database.dimscale(), 1.0);
    });
    EXPECT_EQ(undo().groupCount(), 1u);
    EXPECT_EQ(undo().revision(), revision);
    EXPECT_TRUE(undo().canRedo());
    undo().redo();
    EXPECT_EQ(sizeOf(id), 5);
}

TEST_F(UndoTest, MarksAndUserGroups) {
    const AcDbObjectId id = append(database, new Piece(0));
    EXPECT_FALSE(undo().backToMark());
    undo().mark();
    for (int i = 1; i <= 3; ++i) resize(id, i);
    EXPECT_TRUE(undo().backToMark());
    EXPECT_EQ(sizeOf(id), 0);
    EXPECT_FALSE(undo().backToMark());
    EXPECT_EQ(sizeOf(id), 0);

    undo().beginUserGroup();
    for (int i = 1; i <= 3; ++i) command(L"MUDAR", [&] { resize(id, i); });
    undo().undo();
    EXPECT_EQ(sizeOf(id), 2);
    undo().endUserGroup();
    EXPECT_EQ(undo().groupCount(), 2u);
    const std::uint64_t revision = undo().revision();
    undo().undo();
    EXPECT_EQ(sizeOf(id), 0);
    undo().redo();
    EXPECT_EQ(undo().revision(), revision);
    EXPECT_EQ(sizeOf(id), 2);
}

TEST_F(UndoTest, EqualRevisionsMeanEqualDrawings) {
    const std::uint64_t empty = undo().revision();
    const AcDbObjectId id = append(database, new Piece(1));
    const std::uint64_t one = undo().revision();
    resize(id, 2);
    const std::uint64_t two = undo().revision();
    EXPECT_NE(one, two);
    undo().undo();
    EXPECT_EQ(undo().revision(), one);
    resize(id, 3);
    EXPECT_NE(undo().revision(), two);
    undo().undo();
    undo().undo();
    EXPECT_EQ(undo().revision(), empty);
}

TEST_F(UndoTest, EverythingAnObjectCarriesComesBack) {
    core().ensureRegApp(L"ZP");
    const AcDbObjectId other = append(database, new Piece(2));
    const AcDbObjectId id = append(database, new Piece(1, L"Viga é"));
    const AcDbObjectId cotas = core().ensureLayer(L"cotas");
    const std::wstring handle = L"2F";
    const prancheta::ListOwner data(
        acutBuildList(1001, L"ZP", 1000, L"é", 1005, handle.c_str(), 1070, 7, RTNONE));
    const auto state = [&] {
        AcDbObjectPointer<Piece> piece(id, AcDb::kForRead);
        prancheta::MemoryFiler filer(AcDb::kUndoFiler);
        piece->dwgOutFields(&filer);
        return filer.bytes();
    };
    const std::vector<char> before = state();
    command(L"TUDO", [&] {
        AcDbObjectPointer<Piece> piece(id, AcDb::kForWrite);
        ASSERT_EQ(piece->setXData(data.get()), Acad::eOk);
        ASSERT_EQ(piece->addPersistentReactor(other), Acad::eOk);
        ASSERT_EQ(piece->createExtensionDictionary(), Acad::eOk);
        ASSERT_EQ(piece->setLayer(cotas), Acad::eOk);
        ASSERT_EQ(piece->setColorIndex(3), Acad::eOk);
        ASSERT_EQ(piece->setLinetype(L"Continuous"), Acad::eOk);
        ASSERT_EQ(piece->setLinetypeScale(2), Acad::eOk);
        ASSERT_EQ(piece->setLineWeight(AcDb::kLnWt035), Acad::eOk);
        ASSERT_EQ(piece->setVisibility(AcDb::kInvisible), Acad::eOk);
        piece->setPartner(other);
    });
    const std::vector<char> after = state();
    EXPECT_NE(before, after);
    undo().undo();
    EXPECT_EQ(state(), before);
    undo().redo();
    EXPECT_EQ(state(), after);
    AcDbObjectPointer<Piece> piece(id, AcDb::kForRead);
    const prancheta::ListOwner read(piece->xData(L"ZP"));
    ASSERT_NE(read, nullptr);
    EXPECT_STREQ(read->rbnext->resval.rstring, L"é");
    EXPECT_STREQ(read->rbnext->rbnext->resval.rstring, L"2F");
    EXPECT_TRUE(piece->extensionDictionary().isValid());
    EXPECT_EQ(piece->lineWeight(), AcDb::kLnWt035);
}

TEST_F(UndoTest, ReactorsAndFrontEndAreTold) {
    std::string shown;
    core().onEntityAppended = [&](const AcDbEntity&) { shown += '+'; };
    core().onEntityErased = [&](const AcDbEntity&) { shown += '-'; };
    Witness witness(database);
    AcDbObjectId id;
    command(L"NOVA", [&] { id = append(database, new Piece(1)); });
    EXPECT_EQ(witness.taken(), "+");
    command(L"MUDA", [&] { resize(id, 2); });
    EXPECT_EQ(witness.taken(), "m");
    command(L"APAGA", [&] { erase(id); });
    EXPECT_EQ(witness.taken(), "e");
    for (int i = 0; i < 3; ++i) undo().undo();
    EXPECT_EQ(witness.taken(), "UM-");
    for (int i = 0; i < 3; ++i) undo().redo();
    EXPECT_EQ(witness.taken(), "&ME");
    EXPECT_EQ(shown, "+-+-+-");
    AcDbObjectPointer<Piece> looked(id, AcDb::kForWrite, true);
    looked.close();
    EXPECT_EQ(witness.taken(), "");
}

TEST_F(UndoTest, ReactorsReadButDoNotWriteAndSeeWholeGroups) {
    struct Meddler : AcDbDatabaseReactor {
        void objectModified(const AcDbDatabase*, const AcDbObject* o) override {
            AcDbObject* open = nullptr;
            write = acdbOpenObject(open, o->objectId(), AcDb::kForWrite);
            read = acdbOpenObject(open, o->objectId(), AcDb::kForRead);
            if (open != nullptr) open->close();
            seen = sizeOf(other);
        }
        AcDbObjectId other;
        Acad::ErrorStatus write = Acad::eOk;
        Acad::ErrorStatus read = Acad::eOutOfRange;
        double seen = 0.0;
    } meddler;
    const AcDbObjectId a = append(database, new Piece(1));
    meddler.other = append(database, new Piece(1));
    command(L"AMBAS", [&] {
        resize(meddler.other, 2);
        resize(a, 2);
    });
    database.addReactor(&meddler);
    undo().undo();
    EXPECT_EQ(meddler.write, Acad::eWasNotifying);
    EXPECT_EQ(meddler.read, Acad::eOk);
    EXPECT_EQ(meddler.seen, 1);
    database.removeReactor(&meddler);
}

TEST_F(UndoTest, RecordingOffLeavesNoTrace) {
    undo().setRecording(false);
    const AcDbObjectId id = append(database, new Piece(1));
    resize(id, 2);
    undo().setRecording(true);
    EXPECT_FALSE(undo().canUndo());
    EXPECT_EQ(sizeOf(id), 2);
}

TEST_F(UndoTest, ManyGroupsStayCheap) {
    std::vector<AcDbObjectId> ids;
    for (int i = 0; i < 100000; ++i)
        command(L"L", [&] { ids.push_back(append(database, new Piece(i))); });
    EXPECT_EQ(undo().groupCount(), ids.size());
    for (std::size_t i = 0; i < ids.size(); ++i) undo().undo();
    EXPECT_EQ(alive(), 0u);
    for (std::size_t i = 0; i < ids.size(); ++i) undo().redo();
    EXPECT_EQ(core().modelSpace(), ids);
    EXPECT_EQ(sizeOf(ids.back()), 99999);
}

}  // namespace

TEST_F(UndoTest, AColourIndexReplacesTheTrueColourOfAFile) {
    using prancheta::RawTags;
    const AcDbObjectId entity = append(database, new Piece(1));
    const AcDbObjectId layer = core().ensureLayer(L"Furos");
    const auto object = [](AcDbObjectId id) { return static_cast<AcDbStub*>(id)->object; };
    const auto codes = [&](AcDbObjectId id) {
        std::vector<int> found;
        if (const auto* extra = ObjectAccess::extra(*object(id)))
            for (const auto& tag : extra->foreign) found.push_back(tag.code);
        return found;
    };
    ObjectAccess::makeExtra(*object(entity)).foreign =
        RawTags{{102, "{APP"}, {420, "1"}, {102, "}"}, {420, "255"}, {430, "RAL$1"}, {440, "9"}};
    ObjectAccess::makeExtra(*object(layer)).foreign =
        RawTags{{100, "AcDbLayerTableRecord"}, {420, "255"}};
    command(L"COR", [&] {
        const AcDbObjectPointer<AcDbEntity> open(entity, AcDb::kForWrite);
        EXPECT_EQ(open->setColorIndex(257), Acad::eInvalidInput);
        EXPECT_EQ(codes(entity).size(), 6U);
        EXPECT_EQ(open->setColorIndex(3), Acad::eOk);
        const AcDbObjectPointer<AcDbLayerTableRecord> record(layer, AcDb::kForWrite);
        EXPECT_EQ(record->setColorIndex(5), Acad::eOk);
    });
    EXPECT_EQ(codes(entity), (std::vector<int>{102, 420, 102, 440}));
    EXPECT_EQ(codes(layer), std::vector<int>{100});
    undo().undo();
    EXPECT_EQ(codes(entity), (std::vector<int>{102, 420, 102, 420, 430, 440}));
    EXPECT_EQ(codes(layer), (std::vector<int>{100, 420}));
}
