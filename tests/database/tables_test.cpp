// SPDX-License-Identifier: MIT
// Symbol tables: the default drawing, names, what layers allow.
#include "acutmem.h"
#include "fixture.h"

namespace {

class TablesTest : public DatabaseTest {
protected:
    /// Adds a layer of this name and tells what came of it.
    Acad::ErrorStatus addLayer(const wchar_t* name) {
        auto record = std::make_unique<AcDbLayerTableRecord>();
        Acad::ErrorStatus es = record->setName(name);
        if (es != Acad::eOk) return es;
        AcDbObjectPointer<AcDbLayerTable> table(database.layerTableId(), AcDb::kForWrite);
        es = table->add(record.get());
        if (es == Acad::eOk) record.release()->close();
        return es;
    }
    AcDbObjectId layer(const wchar_t* name) {
        AcDbObjectPointer<AcDbLayerTable> table(database.layerTableId(), AcDb::kForRead);
        AcDbObjectId id;
        (void)table->getAt(name, id);
        return id;
    }
};

TEST_F(TablesTest, DefaultDrawing) {
    for (const wchar_t* name : {L"ByBlock", L"bylayer", L"CONTINUOUS"}) {
        AcDbObjectPointer<AcDbLinetypeTable> table(database.linetypeTableId(), AcDb::kForRead);
        EXPECT_TRUE(table->has(name)) << toUtf8(name);
    }
    AcDbObjectPointer<AcDbLayerTableRecord> zero(database.clayer(), AcDb::kForRead);
    ASSERT_NE(zero.object(), nullptr);
    EXPECT_EQ(zero->objectId(), database.layerZero());
    EXPECT_EQ(zero->colorIndex(), 7);
    EXPECT_EQ(zero->linetypeObjectId(), database.continuousLinetype());
    AcDbObjectPointer<AcDbDimStyleTableRecord> style(database.dimstyle(), AcDb::kForRead);
    ASSERT_NE(style.object(), nullptr);
    EXPECT_EQ(style->values().dimtxt, 2.5);
    EXPECT_EQ(style->dimtxsty(), database.textstyle());
    AcDbBlockTable* blocks = nullptr;
    ASSERT_EQ(database.getBlockTable(blocks, AcDb::kForRead), Acad::eOk);
    AcDbBlockTableRecord* space = nullptr;
    ASSERT_EQ(blocks->getAt(L"*MODEL_SPACE", space, AcDb::kForWrite), Acad::eOk);
    EXPECT_EQ(space->objectId(), database.currentSpaceId());
    EXPECT_TRUE(space->isLayout());
    space->close();
    EXPECT_TRUE(blocks->has(ACDB_PAPER_SPACE));
    blocks->close();
    EXPECT_FALSE(undo().canUndo());
}

TEST_F(TablesTest, NamesIgnoreCaseAndRefuseForbiddenCharacters) {
    EXPECT_EQ(addLayer(L"Peças Ç"), Acad::eOk);
    EXPECT_EQ(addLayer(L"PEÇAS ç"), Acad::eDuplicateRecordName);
    EXPECT_EQ(layer(L"peças ç"), layer(L"Peças Ç"));
    EXPECT_FALSE(layer(L"peças ç").isNull());
    for (const wchar_t* name : {L"", L"a<b", L"a>b", L"a/b", L"a\\b", L"a\"b", L"a:b", L"a;b",
                                L"a?b", L"a*b", L"a|b", L"a=b", L"a`b", L"a\nb", L"*U1"})
        EXPECT_EQ(addLayer(name), Acad::eInvalidKey) << toUtf8(name);
    EXPECT_EQ(addLayer(std::wstring(255, L'x').c_str()), Acad::eOk);
    EXPECT_EQ(addLayer(std::wstring(256, L'x').c_str()), Acad::eInvalidKey);
}

TEST_F(TablesTest, AddChecksItsRecord) {
    AcDbObjectPointer<AcDbLayerTable> table(database.layerTableId(), AcDb::kForRead);
    AcDbLayerTableRecord record;
    AcDbTextStyleTableRecord style;
    EXPECT_EQ(table->add(&record), Acad::eNotOpenForWrite);
    ASSERT_EQ(table->upgradeOpen(), Acad::eOk);
    EXPECT_EQ(table->add(nullptr), Acad::eNullObjectPointer);
    EXPECT_EQ(table->add(&record), Acad::eInvalidKey);
    ASSERT_EQ(style.setName(L"estilo"), Acad::eOk);
    EXPECT_EQ(table->add(&style), Acad::eWrongObjectType);
}

TEST_F(TablesTest, CurrentLayerCanBeNeitherFrozenNorErased) {
    const AcDbObjectId cotas = core().ensureLayer(L"cotas", 3);
    EXPECT_EQ(core().ensureLayer(L"COTAS", 5), cotas);
    AcDbLayerTableRecord* record = nullptr;
    ASSERT_EQ(acdbOpenObject(record, cotas, AcDb::kForWrite), Acad::eOk);
    EXPECT_EQ(record->colorIndex(), 3);
    EXPECT_EQ(record->setColorIndex(256), Acad::eInvalidInput);
    EXPECT_EQ(record->setIsFrozen(true), Acad::eOk);
    EXPECT_EQ(database.setClayer(cotas), Acad::eInvalidLayer);
    EXPECT_EQ(record->setIsFrozen(false), Acad::eOk);
    EXPECT_EQ(database.setClayer(cotas), Acad::eOk);
    EXPECT_EQ(record->setIsFrozen(true), Acad::eInvalidLayer);
    EXPECT_FALSE(record->isFrozen());
    EXPECT_EQ(record->setIsOff(true), Acad::eOk);
    EXPECT_EQ(record->setIsLocked(true), Acad::eOk);
    EXPECT_EQ(record->erase(), Acad::eInvalidLayer);
    EXPECT_EQ(database.setClayer(AcDbObjectId()), Acad::eNullObjectId);
    EXPECT_EQ(database.setClayer(database.textstyle()), Acad::eWrongObjectType);
    EXPECT_EQ(database.setClayer(database.layerZero()), Acad::eOk);
    EXPECT_EQ(record->erase(), Acad::eOk);
    record->close();
    EXPECT_EQ(database.setClayer(cotas), Acad::eWasErased);
    AcDbObjectPointer<AcDbLayerTableRecord> zero(database.layerZero(), AcDb::kForWrite);
    EXPECT_EQ(zero->erase(), Acad::eNotApplicable);
    EXPECT_EQ(zero->setName(L"outra"), Acad::eNotApplicable);
}

TEST_F(TablesTest, RenamedAndReplacedRecordsAreFoundThroughUndo) {
    const AcDbObjectId first = core().ensureLayer(L"A");
    {
        AcDbObjectPointer<AcDbLayerTableRecord> record(first, AcDb::kForWrite);
        EXPECT_EQ(record->setName(L"0"), Acad::eDuplicateRecordName);
        EXPECT_EQ(record->setName(L"a"), Acad::eOk);  // only the case
        EXPECT_EQ(record->setName(L"B"), Acad::eOk);
    }
    const AcDbObjectId second = core().ensureLayer(L"A");
    EXPECT_NE(first, second);
    EXPECT_EQ(layer(L"b"), first);
    AcDbObjectPointer<AcDbLayerTableRecord>(second, AcDb::kForWrite)->erase();
    EXPECT_TRUE(layer(L"A").isNull());
    const AcDbObjectId third = core().ensureLayer(L"A");
    EXPECT_EQ(layer(L"A"), third);

    undo().undo();
    EXPECT_TRUE(layer(L"A").isNull());
    undo().undo();
    EXPECT_EQ(layer(L"A"), second);
    undo().undo();
    undo().undo();
    EXPECT_EQ(layer(L"A"), first);
    EXPECT_TRUE(layer(L"B").isNull());
    for (int i = 0; i < 4; ++i) EXPECT_TRUE(undo().redo());
    EXPECT_EQ(layer(L"A"), third);
    EXPECT_EQ(layer(L"B"), first);
    AcDbObjectPointer<AcDbLayerTableRecord> back(second, AcDb::kForWrite, true);
    EXPECT_EQ(back->erase(Adesk::kFalse), Acad::eDuplicateRecordName);
}

TEST_F(TablesTest, StandardPatterns) {
    const AcDbObjectId id = core().ensureLinetype(L"center");
    EXPECT_EQ(core().ensureLinetype(L"CENTER"), id);
    AcDbObjectPointer<AcDbLinetypeTableRecord> center(id, AcDb::kForWrite);
    ASSERT_EQ(center->numDashes(), 4);
    EXPECT_DOUBLE_EQ(center->patternLength(), 31.75 + 3 * 6.35);
    EXPECT_LT(center->dashLengthAt(1), 0);
    EXPECT_EQ(center->setDashLengthAt(4, 1), Acad::eInvalidIndex);
    EXPECT_TRUE(core().ensureLinetype(L"a*b").isNull());
}

TEST_F(TablesTest, AnonymousBlocksGetNumbers) {
    AcDbObjectPointer<AcDbBlockTable> blocks(database.blockTableId(), AcDb::kForWrite);
    std::wstring names[2];
    for (std::wstring& name : names) {
        auto* block = new AcDbBlockTableRecord;
        ASSERT_EQ(block->setName(L"*U"), Acad::eOk);
        ASSERT_EQ(blocks->add(block), Acad::eOk);
        name = ObjectAccess::name(*block);
        EXPECT_TRUE(block->isAnonymous());
        EXPECT_FALSE(block->isLayout());
        block->close();
    }
    EXPECT_NE(names[0], names[1]);
    EXPECT_GT(names[0].size(), 2u);
}

}  // namespace
