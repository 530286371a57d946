// SPDX-License-Identifier: MIT
// Deep clones.
#include "dbdict.h"
#include "dbxrecrd.h"
#include "fixture.h"
#include "prancheta/database/deep_clone.h"
#include "prancheta/database/memory_filer.h"

namespace {

class CloneTest : public DatabaseTest {
protected:
    CloneTest() {
        a = append(database, new Piece(1, L"a"));
        b = append(database, new Piece(2, L"b"));
        AcDbObjectPointer<Piece>(a, AcDb::kForWrite)->setPartner(b);
        AcDbObjectPointer<Piece>(b, AcDb::kForWrite)->setPartner(a);
    }
    AcDbObjectIdArray clone(std::initializer_list<AcDbObjectId> ids) {
        AcDbObjectIdArray set;
        for (AcDbObjectId id : ids) set.append(id);
        AcDbObjectIdArray copies;
        EXPECT_EQ(database.deepCloneObjects(set, database.currentSpaceId(), copies), Acad::eOk);
        return copies;
    }
    static AcDbObjectId partnerOf(AcDbObjectId id) {
        return AcDbObjectPointer<Piece>(id, AcDb::kForRead)->partner();
    }
    AcDbObjectId a;
    AcDbObjectId b;
};

TEST_F(CloneTest, ItemsAreFiledByTheirType) {
    prancheta::MemoryFiler filer(AcDb::kDeepCloneFiler);
    std::vector<AcDbObjectId> owned;
    filer.ownedWritten = [&](AcDbObjectId id) { owned.push_back(id); };
    filer.writeItem(Adesk::Int8{-5});
    filer.writeItem(Adesk::UInt8{200});
    filer.writeItem(Adesk::UInt16{60000});
    filer.writeItem(Adesk::UInt32{4000000000});
    filer.writeItem(AcGeVector3d(1, -2, 0.5));
    filer.writeItem(AcDbHandle(0xABC));
    filer.writeItem(AcDbHardOwnershipId(a));
    filer.writeItem(AcDbSoftOwnershipId(b));
    filer.writeItem(AcDbHardPointerId(b));
    filer.writeItem(AcDbSoftPointerId(a));
    EXPECT_EQ(owned, (std::vector{a, b})) << "an owned object is cloned along";

    filer.rewind();
    const auto read = [&](auto value) {
        EXPECT_EQ(filer.readItem(&value), Acad::eOk);
        return value;
    };
    EXPECT_EQ(read(Adesk::Int8{}), -5);
    EXPECT_EQ(read(Adesk::UInt8{}), 200);
    EXPECT_EQ(read(Adesk::UInt16{}), 60000);
    EXPECT_EQ(read(Adesk::UInt32{}), 4000000000);
    EXPECT_EQ(read(AcGeVector3d()), AcGeVector3d(1, -2, 0.5));
    EXPECT_EQ(read(AcDbHandle()), AcDbHandle(0xABC));
    EXPECT_EQ(read(AcDbHardOwnershipId()), a);
    EXPECT_EQ(read(AcDbSoftOwnershipId()), b);
    EXPECT_EQ(read(AcDbHardPointerId()), b);
    EXPECT_EQ(read(AcDbSoftPointerId()), a);
    EXPECT_TRUE(filer.atEnd());
}

TEST_F(CloneTest, ReferencesInsideTheSetFollow) {
    undo().begin(L"COPIAR");
    const AcDbObjectIdArray both = clone({b, a});
    undo().end();
    ASSERT_EQ(both.length(), 2);
    EXPECT_EQ(sizeOf(both[0]), 2);
    EXPECT_EQ(partnerOf(both[0]), both[1]);
    EXPECT_EQ(partnerOf(both[1]), both[0]);
    EXPECT_EQ(partnerOf(a), b);
    EXPECT_EQ(core().modelSpace(), (std::vector{a, b, both[0], both[1]}));
    EXPECT_NE(both[0].handle(), b.handle());
    undo().undo();
    EXPECT_EQ(core().modelSpace(), (std::vector{a, b}));
    undo().redo();
    EXPECT_EQ(partnerOf(both[0]), both[1]);
    const AcDbObjectIdArray alone = clone({a});
    EXPECT_EQ(partnerOf(alone[0]), b);
}

TEST_F(CloneTest, HandlesInDataReactorsAndDictionariesFollow) {
    core().ensureRegApp(L"ZP");
    {
        AcDbObjectPointer<Piece> piece(a, AcDb::kForWrite);
        ACHAR handle[17];
        b.handle().getIntoAsciiBuffer(handle);
        const prancheta::ListOwner data(
            acutBuildList(1001, L"ZP", 1005, handle, 1005, L"FFFF", RTNONE));
        ASSERT_EQ(piece->setXData(data.get()), Acad::eOk);
        ASSERT_EQ(piece->addPersistentReactor(b), Acad::eOk);
        ASSERT_EQ(piece->createExtensionDictionary(), Acad::eOk);
        AcDbObjectPointer<AcDbDictionary> dictionary(piece->extensionDictionary(), AcDb::kForWrite);
        auto* record = new AcDbXrecord;
        ads_name name;
        acdbGetAdsName(name, b);
        const prancheta::ListOwner list(acutBuildList(1, L"texto", 330, name, RTNONE));
        ASSERT_EQ(record->setFromRbChain(*list), Acad::eOk);
        AcDbObjectId id;
        ASSERT_EQ(dictionary->setAt(L"ZP_BARRA", record, id), Acad::eOk);
        record->close();
    }
    const AcDbObjectIdArray copies = clone({a, b});
    AcDbObjectPointer<Piece> copy(copies[0], AcDb::kForRead);
    const prancheta::ListOwner data(copy->xData(L"ZP"));
    ACHAR expected[17];
    copies[1].handle().getIntoAsciiBuffer(expected);
    EXPECT_STREQ(data->rbnext->resval.rstring, expected);
    EXPECT_STREQ(data->rbnext->rbnext->resval.rstring, L"FFFF");
    EXPECT_EQ(ObjectAccess::extra(*copy)->reactors, std::vector{AcDbObjectId(copies[1])});

    const AcDbObjectId own = copy->extensionDictionary();
    EXPECT_EQ(own.database(), &database);
    AcDbObjectPointer<AcDbDictionary> dictionary(own, AcDb::kForRead);
    ASSERT_NE(dictionary.object(), nullptr);
    EXPECT_EQ(dictionary->ownerId(), copies[0]);
    AcDbObjectId id;
    ASSERT_EQ(dictionary->getAt(L"ZP_BARRA", id), Acad::eOk);
    AcDbObjectPointer<AcDbXrecord> record(id, AcDb::kForRead);
    EXPECT_EQ(record->ownerId(), own);
    resbuf* list = nullptr;
    record->rbChain(&list);
    const prancheta::ListOwner owner(list);
    AcDbObjectId linked;
    ASSERT_EQ(acdbGetObjectId(linked, list->rbnext->resval.rlname), Acad::eOk);
    EXPECT_EQ(linked, copies[1]);
    // The original's are its own still.
    EXPECT_NE(AcDbObjectPointer<Piece>(a, AcDb::kForRead)->extensionDictionary(), own);
}

/// A second drawing, into which this one's pieces go.
class CrossTest : public CloneTest {
protected:
    AcDbObjectIdArray cross(std::initializer_list<AcDbObjectId> ids) {
        AcDbObjectIdArray set;
        for (AcDbObjectId id : ids) set.append(id);
        AcDbObjectIdArray copies;
        std::size_t left = 0;
        EXPECT_EQ(prancheta::cloneAcross(set, other.currentSpaceId(), copies, left), Acad::eOk);
        EXPECT_EQ(left, 0u);
        return copies;
    }
    static void tie(AcDbObjectId id, AcDbObjectId to) {
        AcDbObjectPointer<Piece>(id, AcDb::kForWrite)->setPartner(to);
    }
    AcDbObjectId block(AcDbDatabase& in, const wchar_t* name, double size) {
        const AcDbObjectPointer<AcDbBlockTable> table(in.blockTableId(), AcDb::kForWrite);
        auto* record = new AcDbBlockTableRecord;
        AcDbObjectId id;
        EXPECT_EQ(record->setName(name), Acad::eOk);
        EXPECT_EQ(table->add(id, record), Acad::eOk);
        auto* piece = new Piece(size);
        EXPECT_EQ(record->appendAcDbEntity(piece), Acad::eOk);
        piece->close();
        record->close();
        return id;
    }
    /// Of the first piece in a block.
    static double contentOf(AcDbObjectId record) {
        const AcDbObjectPointer<AcDbBlockTableRecord> opened(record, AcDb::kForRead);
        return sizeOf(ObjectAccess::entities(*opened).at(0));
    }
    AcDbDatabase other;
};

TEST_F(CrossTest, LinksInsideStayAndWhatIsElsewhereIsForgotten) {
    const AcDbObjectId outside = append(database, new Piece(9));
    core().ensureRegApp(L"ZP");
    {
        AcDbObjectPointer<Piece> piece(a, AcDb::kForWrite);
        ACHAR inside[17];
        ACHAR gone[17];
        b.handle().getIntoAsciiBuffer(inside);
        outside.handle().getIntoAsciiBuffer(gone);
        const prancheta::ListOwner data(
            acutBuildList(1001, L"ZP", 1005, inside, 1005, gone, 1000, L"fim", RTNONE));
        ASSERT_EQ(piece->setXData(data.get()), Acad::eOk);
        ASSERT_EQ(piece->addPersistentReactor(b), Acad::eOk);
        ASSERT_EQ(piece->addPersistentReactor(outside), Acad::eOk);
    }
    tie(b, outside);
    Witness witness(other);
    other.core().undo().begin(L"COLAR");
    const AcDbObjectIdArray copies = cross({b, a});
    other.core().undo().end();
    ASSERT_EQ(copies.length(), 2);
    EXPECT_EQ(witness.taken(), "+++") << "the application and both pieces, complete";
    EXPECT_EQ(partnerOf(copies[1]), copies[0]);
    EXPECT_TRUE(partnerOf(copies[0]).isNull());
    {
        const AcDbObjectPointer<Piece> copy(copies[1], AcDb::kForRead);
        EXPECT_EQ(copy->database(), &other);
        EXPECT_EQ(ObjectAccess::extra(*copy)->reactors, std::vector{AcDbObjectId(copies[0])});
        const prancheta::ListOwner data(copy->xData(L"ZP"));
        ACHAR handle[17];
        copies[0].handle().getIntoAsciiBuffer(handle);
        EXPECT_STREQ(data->rbnext->resval.rstring, handle);
        EXPECT_STREQ(data->rbnext->rbnext->resval.rstring, L"0");
        EXPECT_STREQ(data->rbnext->rbnext->rbnext->resval.rstring, L"fim");
    }
    other.core().undo().undo();
    EXPECT_TRUE(other.core().modelSpace().empty());
    EXPECT_TRUE(ObjectAccess::lookup(other.regAppTableId(), L"ZP").isNull());
    other.core().undo().redo();
    EXPECT_EQ(partnerOf(copies[1]), copies[0]);
    EXPECT_EQ(core().modelSpace().size(), 3u) << "the source is as it was";
}

TEST_F(CrossTest, RecordsComeAlongAndTheTargetsStay) {
    const auto layerOf = [](AcDbObjectId id) {
        const AcDbObjectPointer<AcDbEntity> entity(id, AcDb::kForRead);
        return entity->layerId();
    };
    for (AcDbDatabase* const each : {&database, &other})
        each->core().ensureLayer(L"EIXOS", each == &other ? 1 : 5);
    const AcDbObjectId vigas = core().ensureLayer(L"Vigas", 3);
    AcDbObjectPointer<AcDbLayerTableRecord>(vigas, AcDb::kForWrite)
        ->setLinetypeObjectId(core().ensureLinetype(L"HIDDEN"));
    AcDbObjectPointer<Piece>(a, AcDb::kForWrite)->setLayer(L"Vigas");
    AcDbObjectPointer<Piece>(b, AcDb::kForWrite)->setLayer(L"eixos");
    const AcDbObjectIdArray copies = cross({a, b});
    const AcDbObjectPointer<AcDbLayerTableRecord> made(layerOf(copies[0]), AcDb::kForRead);
    ASSERT_EQ(made->database(), &other);
    EXPECT_EQ(made->colorIndex(), 3);
    EXPECT_EQ(made->linetypeObjectId().database(), &other);
    EXPECT_EQ(ObjectAccess::recordName(made->linetypeObjectId()), L"HIDDEN");
    EXPECT_EQ(ObjectAccess::lookup(other.layerTableId(), L"VIGAS"), layerOf(copies[0]));
    const AcDbObjectPointer<AcDbLayerTableRecord> own(layerOf(copies[1]), AcDb::kForRead);
    EXPECT_EQ(own->colorIndex(), 1);
}

TEST_F(CrossTest, BlocksBringWhatTheyHold) {
    const AcDbObjectId named = block(database, L"Base", 7);
    const AcDbObjectId unnamed = block(database, L"*U3", 8);
    const AcDbObjectId theirs = block(other, L"*U3", 70);
    tie(a, named);
    tie(b, unnamed);
    const AcDbObjectIdArray first = cross({a, b});
    EXPECT_EQ(contentOf(partnerOf(first[0])), 7);
    EXPECT_EQ(contentOf(partnerOf(first[1])), 8);
    // One without a name is another one each time; the target's are where they were.
    const AcDbObjectIdArray second = cross({a, b});
    EXPECT_EQ(partnerOf(second[0]), partnerOf(first[0]));
    EXPECT_NE(partnerOf(second[1]), partnerOf(first[1]));
    EXPECT_EQ(contentOf(partnerOf(second[1])), 8);
    EXPECT_EQ(ObjectAccess::lookup(other.blockTableId(), L"*U3"), theirs);
    for (const AcDbObjectId copy : {first[1], second[1]}) {
        const AcDbObjectId own = partnerOf(copy);
        EXPECT_EQ(ObjectAccess::lookup(other.blockTableId(), ObjectAccess::recordName(own)), own);
    }
}

TEST_F(CloneTest, WhatCannotBeClonedChangesNothing) {
    AcDbDatabase other;
    AcDbObjectIdArray copies;
    AcDbObjectIdArray set;
    set.append(a);
    EXPECT_EQ(other.deepCloneObjects(set, other.currentSpaceId(), copies), Acad::eWrongDatabase);
    EXPECT_EQ(database.deepCloneObjects(set, AcDbObjectId(), copies), Acad::eNullObjectId);
    EXPECT_EQ(database.deepCloneObjects(set, database.layerZero(), copies), Acad::eWrongObjectType);
    set.append(database.layerZero());
    EXPECT_EQ(database.deepCloneObjects(set, database.currentSpaceId(), copies),
              Acad::eNotAnEntity);
    EXPECT_TRUE(copies.isEmpty());
    EXPECT_EQ(core().modelSpace().size(), 2u);
}

}  // namespace
