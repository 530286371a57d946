// SPDX-License-Identifier: MIT
// Opening, closing, names and identifiers of objects.
#include <cstring>

#include "acutmem.h"
#include "fixture.h"

namespace {

using OpenTest = DatabaseTest;

TEST_F(OpenTest, ReadersAndWritersExcludeEachOther) {
    const AcDbObjectId id = append(database, new Piece(1));
    AcDbObject* first = nullptr;
    AcDbObject* second = nullptr;
    for (int i = 0; i < 256; ++i) ASSERT_EQ(acdbOpenObject(first, id, AcDb::kForRead), Acad::eOk);
    EXPECT_EQ(acdbOpenObject(second, id, AcDb::kForRead), Acad::eAtMaxReaders);
    EXPECT_EQ(second, nullptr);
    EXPECT_EQ(acdbOpenObject(second, id, AcDb::kForWrite), Acad::eWasOpenForRead);
    EXPECT_EQ(first->upgradeOpen(), Acad::eWasOpenForRead);
    for (int i = 0; i < 255; ++i) first->close();
    EXPECT_EQ(first->upgradeOpen(), Acad::eOk);
    EXPECT_EQ(acdbOpenObject(second, id, AcDb::kForRead), Acad::eWasOpenForWrite);
    EXPECT_EQ(acdbOpenObject(second, id, AcDb::kForWrite), Acad::eWasOpenForWrite);
    EXPECT_EQ(acdbOpenObject(second, id, AcDb::kForNotify), Acad::eOk);
    second->close();
    EXPECT_TRUE(first->isWriteEnabled());
    EXPECT_EQ(first->downgradeOpen(), Acad::eOk);
    EXPECT_EQ(acdbOpenObject(second, id, AcDb::kForRead), Acad::eOk);
    EXPECT_EQ(second->close(), Acad::eOk);
    EXPECT_EQ(first->close(), Acad::eOk);
    EXPECT_EQ(first->close(), Acad::eNotOpenForRead);
}

TEST_F(OpenTest, WrongIdsAndClasses) {
    AcDbObject* object = nullptr;
    EXPECT_EQ(acdbOpenObject(object, AcDbObjectId(), AcDb::kForRead), Acad::eNullObjectId);
    AcDbEntity* entity = nullptr;
    EXPECT_EQ(acdbOpenAcDbEntity(entity, database.layerZero(), AcDb::kForRead),
              Acad::eNotThatKindOfClass);
    // The failed open leaves nothing open.
    EXPECT_EQ(acdbOpenObject(object, database.layerZero(), AcDb::kForWrite), Acad::eOk);
    object->close();
}

TEST_F(OpenTest, ErasedObjectsOpenOnlyOnRequest) {
    const AcDbObjectId id = append(database, new Piece(1));
    AcDbObject* object = nullptr;
    ASSERT_EQ(acdbOpenObject(object, id, AcDb::kForRead), Acad::eOk);
    EXPECT_EQ(object->erase(), Acad::eNotOpenForWrite);
    ASSERT_EQ(object->upgradeOpen(), Acad::eOk);
    EXPECT_EQ(object->erase(Adesk::kFalse), Acad::eWasNotErased);
    EXPECT_EQ(object->erase(), Acad::eOk);
    EXPECT_EQ(object->erase(), Acad::eWasErased);
    object->close();
    EXPECT_TRUE(id.isErased());
    EXPECT_TRUE(core().modelSpace().empty());
    EXPECT_EQ(acdbOpenObject(object, id, AcDb::kForRead), Acad::eWasErased);
    ASSERT_EQ(acdbOpenObject(object, id, AcDb::kForWrite, true), Acad::eOk);
    EXPECT_EQ(object->erase(Adesk::kFalse), Acad::eOk);
    object->close();
    EXPECT_EQ(core().modelSpace().size(), 1u);
}

TEST_F(OpenTest, CancelGivesUpChanges) {
    const AcDbObjectId id = append(database, new Piece(1));
    const std::size_t groups = undo().groupCount();
    const std::uint64_t handle = core().nextHandle();
    for (const bool inGroup : {false, true}) {
        if (inGroup) undo().begin(L"TESTE");
        Piece* piece = nullptr;
        ASSERT_EQ(acdbOpenObject(piece, id, AcDb::kForWrite), Acad::eOk);
        piece->setSize(5);
        piece->erase();
        EXPECT_EQ(piece->cancel(), Acad::eOk);
        if (inGroup) undo().end();
        EXPECT_EQ(sizeOf(id), 1);
        EXPECT_EQ(undo().groupCount(), groups);
    }
    Witness witness(database);
    auto* fresh = new Piece(2);
    AcDbObjectPointer<AcDbBlockTableRecord> space(database.currentSpaceId(), AcDb::kForWrite);
    ASSERT_EQ(space->appendAcDbEntity(fresh), Acad::eOk);
    fresh->cancel();
    EXPECT_EQ(witness.taken(), "+-");
    EXPECT_EQ(core().modelSpace().size(), 1u);
    EXPECT_EQ(undo().groupCount(), groups);
    EXPECT_EQ(core().nextHandle(), handle + 1);  // a handle is never given twice
}

TEST_F(OpenTest, AppendKeepsItsContract) {
    auto piece = std::make_unique<Piece>(1);
    AcDbBlockTableRecord* space = nullptr;
    ASSERT_EQ(acdbOpenObject(space, database.currentSpaceId(), AcDb::kForRead), Acad::eOk);
    AcDbObjectId id;
    EXPECT_EQ(space->appendAcDbEntity(id, piece.get()), Acad::eNotOpenForWrite);
    EXPECT_EQ(piece->database(), nullptr);
    ASSERT_EQ(space->upgradeOpen(), Acad::eOk);
    EXPECT_EQ(space->appendAcDbEntity(id, nullptr), Acad::eNullEntityPointer);
    AcDbDatabase other;
    ASSERT_EQ(piece->setLayer(other.layerZero()), Acad::eOk);
    EXPECT_EQ(space->appendAcDbEntity(id, piece.get()), Acad::eWrongDatabase);
    ASSERT_EQ(piece->setLayer(database.layerZero()), Acad::eOk);
    EXPECT_EQ(space->appendAcDbEntity(id, piece.get()), Acad::eOk);
    Piece* owned = piece.release();
    EXPECT_TRUE(owned->isWriteEnabled());
    EXPECT_TRUE(owned->isNewObject());
    EXPECT_EQ(owned->ownerId(), space->objectId());
    EXPECT_EQ(space->appendAcDbEntity(id, owned), Acad::eAlreadyInDb);
    owned->close();
    space->close();
}

TEST_F(OpenTest, EntityNamesAreCheckedNotFollowed) {
    const AcDbObjectId id = append(database, new Piece(1));
    ads_name name;
    ASSERT_EQ(acdbGetAdsName(name, id), Acad::eOk);
    AcDbObjectId back;
    EXPECT_EQ(acdbGetObjectId(back, name), Acad::eOk);
    EXPECT_EQ(back, id);
    EXPECT_EQ(acdbGetAdsName(name, AcDbObjectId()), Acad::eNullObjectId);
    EXPECT_TRUE(ads_name_nil(name));
    const ads_name wrong[] = {{0, 0},
                              {12345, 0},
                              {id.asOldId() + 1, 0},
                              {id.asOldId(), 7},
                              {id.asOldId() + 1000 * static_cast<long>(sizeof(AcDbStub)), 0}};
    for (const ads_name& n : wrong) {
        EXPECT_EQ(acdbGetObjectId(back, n), Acad::eInvalidAdsName);
        EXPECT_TRUE(back.isNull());
    }
}

TEST_F(OpenTest, SeveralDatabasesLiveSideBySide) {
    AcDbObjectId gone;
    ads_name name;
    {
        AcDbDatabase other;
        gone = append(other, new Piece(2));
        const AcDbObjectId here = append(database, new Piece(1));
        EXPECT_EQ(gone.database(), &other);
        EXPECT_EQ(gone.handle(), here.handle());  // both drawings began alike
        EXPECT_TRUE(gone.isValid());
        acdbGetAdsName(name, gone);
    }
    EXPECT_FALSE(gone.isValid());
    AcDbObject* object = nullptr;
    EXPECT_EQ(acdbOpenObject(object, gone, AcDb::kForRead), Acad::eNullObjectId);
    EXPECT_EQ(acdbGetObjectId(gone, name), Acad::eInvalidAdsName);
    EXPECT_EQ(acdbHostApplicationServices()->workingDatabase(), &database);
}

TEST_F(OpenTest, HandlesAreUniqueAndFound) {
    AcDbObjectId id;
    auto* piece = new Piece(1);
    ASSERT_EQ(core().appendWithHandle(database.currentSpaceId(), piece, 0xABC, id), Acad::eOk);
    piece->close();
    ACHAR text[17];
    id.handle().getIntoAsciiBuffer(text);
    EXPECT_STREQ(text, L"ABC");
    EXPECT_EQ(core().nextHandle(), 0xABDu);
    Piece second;
    AcDbObjectId none;
    EXPECT_EQ(core().appendWithHandle(database.currentSpaceId(), &second, 0xABC, none),
              Acad::eAlreadyInDb);
    AcDbObjectId found;
    EXPECT_EQ(database.getAcDbObjectId(found, false, AcDbHandle(0xABC)), Acad::eOk);
    EXPECT_EQ(found, id);
    EXPECT_EQ(database.getAcDbObjectId(found, false, AcDbHandle(0xFFF)), Acad::eKeyNotFound);
    // A reference may come before its object.
    ASSERT_EQ(database.getAcDbObjectId(found, true, AcDbHandle(0xFFF)), Acad::eOk);
    EXPECT_FALSE(found.isValid());
    auto* late = new Piece(3);
    ASSERT_EQ(core().appendWithHandle(database.currentSpaceId(), late, 0xFFF, id), Acad::eOk);
    late->close();
    EXPECT_EQ(id, found);
    EXPECT_EQ(sizeOf(found), 3);
    EXPECT_TRUE(core().changeHandle(found, 0x1000));
    EXPECT_EQ(core().find(0xFFF), nullptr);
    EXPECT_EQ(found.handle().value(), 0x1000u);
}

TEST_F(OpenTest, EmptyDatabaseTakesTheHandlesOfAFile) {
    AcDbDatabase empty(false);
    EXPECT_TRUE(empty.layerZero().isNull());
    auto* piece = new Piece(1);
    AcDbObjectId id;
    ASSERT_EQ(empty.core().appendWithHandle(empty.core().modelSpaceId(), piece, 1, id), Acad::eOk);
    piece->close();
    EXPECT_TRUE(empty.core().changeHandle(empty.layerTableId(), 0x2));
    EXPECT_FALSE(empty.core().changeHandle(empty.blockTableId(), 0x2));
    empty.core().addRequiredRecords();
    empty.core().assignMissingHandles();
    EXPECT_EQ(empty.layerTableId().handle().value(), 2u);
    EXPECT_FALSE(empty.blockTableId().handle().isNull());
    EXPECT_EQ(empty.core().find(1), static_cast<AcDbStub*>(id));
    EXPECT_EQ(empty.clayer(), empty.layerZero());
}

}  // namespace
