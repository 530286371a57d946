// SPDX-License-Identifier: MIT
// Run-time classes, registry, protocol extensions.
#include <gtest/gtest.h>

#include "dbdict.h"
#include "dbxrecrd.h"
#include "piece.h"
#include "prancheta/database/register.h"
#include "rxdict.h"

namespace {

class RunTimeClass : public testing::Test {
protected:
    RunTimeClass() {
        prancheta::registerDatabaseClasses();
        Piece::rxInit();
    }
};

TEST_F(RunTimeClass, HierarchyAndCast) {
    Piece piece;
    EXPECT_TRUE(piece.isKindOf(AcDbEntity::desc()));
    EXPECT_TRUE(piece.isKindOf(AcRxObject::desc()));
    EXPECT_FALSE(piece.isKindOf(AcDbDictionary::desc()));
    EXPECT_EQ(AcDbEntity::cast(&piece), &piece);
    EXPECT_EQ(AcDbXrecord::cast(&piece), nullptr);
    EXPECT_EQ(AcDbEntity::cast(nullptr), nullptr);
    EXPECT_EQ(Piece::desc()->myParent(), AcDbEntity::desc());
}

TEST_F(RunTimeClass, DictionariesIgnoreCaseAndGiveWhatWasThere) {
    EXPECT_EQ(acrxClassDictionary->at(L"piece"), Piece::desc());
    EXPECT_EQ(prancheta::classOfDxfName(L"Piece"), Piece::desc());
    EXPECT_EQ(prancheta::classOfDxfName(L"NADA"), nullptr);
    Piece one;
    Piece two;
    EXPECT_EQ(acrxSysRegistry()->atPut(L"Chave", &one), nullptr);
    EXPECT_EQ(acrxSysRegistry()->atPut(L"CHAVE", &two), &one);
    EXPECT_EQ(acrxSysRegistry()->remove(L"chave"), &two);
    EXPECT_EQ(acrxSysRegistry()->at(L"Chave"), nullptr);
}

TEST_F(RunTimeClass, CreateMakesOnlyWhatHasAConstructor) {
    std::unique_ptr<AcRxObject> made(Piece::desc()->create());
    EXPECT_EQ(made->isA(), Piece::desc());
    EXPECT_EQ(AcDbEntity::desc()->create(), nullptr);
}

TEST_F(RunTimeClass, ExtensionsAreInherited) {
    AcRxClass* protocol = newAcRxClass(L"TestProtocol", AcRxObject::desc());
    Piece own;
    Piece general;
    EXPECT_EQ(AcDbEntity::desc()->addX(protocol, &general), nullptr);
    Piece piece;
    EXPECT_EQ(piece.x(protocol), &general);
    Piece::desc()->addX(protocol, &own);
    EXPECT_EQ(piece.x(protocol), &own);
    EXPECT_EQ(Piece::desc()->delX(protocol), &own);
    EXPECT_EQ(AcDbEntity::desc()->delX(protocol), &general);
    EXPECT_EQ(piece.x(protocol), nullptr);
    deleteAcRxClass(protocol);
}

TEST_F(RunTimeClass, ParentsStayWhileTheyHaveChildren) {
    AcRxClass* parent = newAcRxClass(L"TestParent", AcDbEntity::desc());
    AcRxClass* child = newAcRxClass(L"TestChild", parent);
    EXPECT_EQ(newAcRxClass(L"TestParent", nullptr), parent);
    deleteAcRxClass(parent);
    EXPECT_EQ(acrxClassDictionary->at(L"TestParent"), parent);
    deleteAcRxClass(child);
    deleteAcRxClass(parent);
    EXPECT_EQ(acrxClassDictionary->at(L"TestParent"), nullptr);
}

}  // namespace
