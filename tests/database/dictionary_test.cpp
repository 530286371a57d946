// SPDX-License-Identifier: MIT
// Dictionaries and records of free groups, also through undo.
#include "dbdict.h"
#include "dbxrecrd.h"
#include "fixture.h"

namespace {

class DictionaryTest : public DatabaseTest {
protected:
    /// Puts a record with one number under a key of the root dictionary.
    AcDbObjectId put(const wchar_t* key, int number) {
        AcDbObjectPointer<AcDbDictionary> root(database.namedObjectsDictionaryId(),
                                               AcDb::kForWrite);
        auto* record = new AcDbXrecord;
        const prancheta::ListOwner list(acutBuildList(70, number, RTNONE));
        EXPECT_EQ(record->setFromRbChain(*list), Acad::eOk);
        AcDbObjectId id;
        EXPECT_EQ(root->setAt(key, record, id), Acad::eOk);
        record->close();
        return id;
    }
    /// The number under a key; -1 when there is none.
    int get(const wchar_t* key) {
        AcDbObjectPointer<AcDbDictionary> root(database.namedObjectsDictionaryId(), AcDb::kForRead);
        AcDbObjectId id;
        if (root->getAt(key, id) != Acad::eOk) return -1;
        AcDbObjectPointer<AcDbXrecord> record(id, AcDb::kForRead);
        resbuf* list = nullptr;
        record->rbChain(&list);
        const prancheta::ListOwner owner(list);
        return list->resval.rint;
    }
    Adesk::UInt32 count() {
        return AcDbObjectPointer<AcDbDictionary>(database.namedObjectsDictionaryId(),
                                                 AcDb::kForRead)
            ->numEntries();
    }
};

TEST_F(DictionaryTest, ReplacedAndRemovedEntriesComeBack) {
    put(L"Um", 1);
    put(L"Dois", 2);
    const AcDbObjectId first = put(L"UM", 3);
    EXPECT_EQ(get(L"um"), 3);
    EXPECT_EQ(count(), 2u);
    EXPECT_EQ(first.database(), &database);
    {
        AcDbObjectPointer<AcDbDictionary> root(database.namedObjectsDictionaryId(),
                                               AcDb::kForWrite);
        EXPECT_EQ(root->remove(L"dois"), Acad::eOk);
        EXPECT_EQ(root->remove(L"dois"), Acad::eKeyNotFound);
        std::unique_ptr<AcDbDictionaryIterator> at(root->newIterator());
        ASSERT_FALSE(at->done());
        EXPECT_STREQ(at->name(), L"UM");
        EXPECT_FALSE(at->next());
    }
    AcDbObjectPointer<AcDbObject>(database.namedObjectsDictionaryId(), AcDb::kForWrite)
        ->addPersistentReactor(first);
    undo().undo();  // the dictionary's own state; its entries are not part of it
    EXPECT_EQ(get(L"Um"), 3);
    undo().undo();
    EXPECT_EQ(get(L"Dois"), 2);
    undo().undo();  // the new entry
    undo().undo();  // erasing the old one
    EXPECT_EQ(get(L"Um"), 1);
    EXPECT_EQ(count(), 2u);
    while (undo().redo()) {
    }
    EXPECT_EQ(get(L"Um"), 3);
    EXPECT_EQ(get(L"Dois"), -1);
}

TEST_F(DictionaryTest, SetAtKeepsItsContract) {
    AcDbObjectPointer<AcDbDictionary> root(database.namedObjectsDictionaryId(), AcDb::kForRead);
    AcDbXrecord record;
    AcDbObjectId id;
    EXPECT_EQ(root->setAt(L"x", &record, id), Acad::eNotOpenForWrite);
    ASSERT_EQ(root->upgradeOpen(), Acad::eOk);
    EXPECT_EQ(root->setAt(L"", &record, id), Acad::eInvalidKey);
    EXPECT_EQ(root->setAt(L"x", nullptr, id), Acad::eNullObjectPointer);
    AcDbObject* open = nullptr;
    EXPECT_EQ(root->getAt(L"x", open, AcDb::kForRead), Acad::eKeyNotFound);
}

TEST_F(DictionaryTest, RecordsRefuseForeignCodesAndAreUndone) {
    const AcDbObjectId id = put(L"x", 1);
    {
        AcDbObjectPointer<AcDbXrecord> record(id, AcDb::kForWrite);
        for (const int code : {5, 105, 370, 1000}) {
            const prancheta::ListOwner bad(acutBuildList(70, 2, code, L"1", RTNONE));
            if (bad == nullptr) continue;  // 370 holds no text
            EXPECT_EQ(record->setFromRbChain(*bad), Acad::eInvalidInput) << code;
        }
        const ads_point p = {1, 2, 3};
        const prancheta::ListOwner list(
            acutBuildList(1, L"á", 40, 0.5, 10, p, 90, 70000, 290, 1, RTNONE));
        EXPECT_EQ(record->setFromRbChain(*list), Acad::eOk);
    }
    undo().undo();
    EXPECT_EQ(get(L"x"), 1);
    undo().redo();
    AcDbObjectPointer<AcDbXrecord> record(id, AcDb::kForRead);
    resbuf* list = nullptr;
    record->rbChain(&list);
    const prancheta::ListOwner owner(list);
    ASSERT_NE(list, nullptr);
    EXPECT_STREQ(list->resval.rstring, L"á");
    EXPECT_EQ(list->rbnext->rbnext->resval.rpoint[1], 2);
    EXPECT_EQ(list->rbnext->rbnext->rbnext->resval.rlong, 70000);
}

TEST_F(DictionaryTest, ExtensionDictionaryBelongsToItsEntity) {
    Piece loose;
    EXPECT_EQ(loose.createExtensionDictionary(), Acad::eNoDatabase);
    const AcDbObjectId id = append(database, new Piece(1));
    AcDbObjectPointer<Piece> piece(id, AcDb::kForWrite);
    EXPECT_TRUE(piece->extensionDictionary().isNull());
    ASSERT_EQ(piece->createExtensionDictionary(), Acad::eOk);
    EXPECT_EQ(piece->createExtensionDictionary(), Acad::eAlreadyInDb);
    AcDbObjectPointer<AcDbDictionary> dictionary(piece->extensionDictionary(), AcDb::kForRead);
    EXPECT_EQ(dictionary->ownerId(), id);
    EXPECT_TRUE(ObjectAccess::isAlive(*dictionary));
    ASSERT_EQ(piece->erase(), Acad::eOk);
    EXPECT_FALSE(dictionary->isErased());
    EXPECT_FALSE(ObjectAccess::isAlive(*dictionary));
}

}  // namespace
