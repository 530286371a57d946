// SPDX-License-Identifier: MIT
// What all entities have and what is told from their pictures.
#include "acutmem.h"
#include "fixture.h"
#include "prancheta/database/entity_picture.h"
#include "prancheta/database/object_access.h"

namespace {

using EntityTest = DatabaseTest;

TEST_F(EntityTest, LayersMustExistAndFit) {
    Piece piece;
    EXPECT_EQ(piece.setLayer(L"nenhuma"), Acad::eKeyNotFound);
    EXPECT_TRUE(piece.layerId().isNull());
    const AcDbObjectId cotas = core().ensureLayer(L"Cotas");
    EXPECT_EQ(piece.setLayer(L"COTAS"), Acad::eOk);
    ACHAR* name = piece.layer();
    EXPECT_STREQ(name, L"Cotas");
    acutDelString(name);
    EXPECT_EQ(piece.setLayer(AcDbObjectId()), Acad::eNullObjectId);
    EXPECT_EQ(piece.setLayer(database.textstyle()), Acad::eWrongObjectType);
    EXPECT_EQ(piece.layerId(), cotas);

    // Looked up in the entity's own drawing, not in the working one.
    AcDbDatabase other;
    const AcDbObjectId there = append(other, new Piece);
    AcDbObjectPointer<Piece> resident(there, AcDb::kForRead);
    EXPECT_EQ(resident->setLayer(other.layerZero()), Acad::eNotOpenForWrite);
    ASSERT_EQ(resident->upgradeOpen(), Acad::eOk);
    EXPECT_EQ(resident->setLayer(L"Cotas"), Acad::eKeyNotFound);
    EXPECT_EQ(resident->setLayer(cotas), Acad::eWrongDatabase);
    EXPECT_EQ(resident->layerId(), other.layerZero());
}

TEST_F(EntityTest, NewEntitiesTakeCurrentProperties) {
    const AcDbObjectId cotas = core().ensureLayer(L"Cotas");
    ASSERT_EQ(database.setClayer(cotas), Acad::eOk);
    ASSERT_EQ(database.setCecolor(5), Acad::eOk);
    EXPECT_EQ(AcDbObjectPointer<Piece>(append(database, new Piece), AcDb::kForRead)->layerId(),
              cotas);
    Piece piece;
    piece.setDatabaseDefaults();
    EXPECT_EQ(piece.colorIndex(), 5);
    EXPECT_EQ(piece.linetypeId(), database.byLayerLinetype());
    Piece other;
    EXPECT_EQ(other.setPropertiesFrom(&piece), Acad::eOk);
    EXPECT_EQ(other.layerId(), cotas);
    // A true colour has the nearest index beside it, goes with the properties and gives way to an
    // index.
    core().variables().force(L"CECOLOR", std::wstring(L"250, 0,1"));
    EXPECT_EQ(core().variables().text(L"CECOLOR"), L"RGB:250,0,1");
    piece.setDatabaseDefaults();
    EXPECT_EQ(other.setPropertiesFrom(&piece), Acad::eOk);
    prancheta::Picture picture;
    prancheta::recordPicture(other, picture);
    EXPECT_EQ(other.colorIndex(), 1);
    EXPECT_EQ(picture[0].traits().trueColor, (prancheta::Rgb{250, 0, 1}));
    EXPECT_EQ(picture[1].traits().trueColor, std::nullopt);  // drawn in colour 1
    EXPECT_EQ(other.setColorIndex(1), Acad::eOk);
    EXPECT_EQ(prancheta::ObjectAccess::trueColor(other), std::nullopt);
    EXPECT_EQ(other.setColorIndex(257), Acad::eInvalidInput);
    EXPECT_EQ(other.setLinetypeScale(0), Acad::eInvalidInput);
    EXPECT_EQ(other.setLineWeight(static_cast<AcDb::LineWeight>(500)), Acad::eInvalidInput);
}

TEST_F(EntityTest, PictureHoldsBothDrawingsAndOwnProperties) {
    Piece piece(2);
    ASSERT_EQ(piece.setColorIndex(4), Acad::eOk);
    prancheta::Picture picture;
    prancheta::recordPicture(piece, picture);
    ASSERT_EQ(picture.size(), 2u);
    EXPECT_EQ(picture[0].traits().color, 4);
    EXPECT_EQ(picture[1].traits().color, 1);
    AcDbExtents extents;
    ASSERT_EQ(piece.getGeomExtents(extents), Acad::eOk);
    EXPECT_EQ(extents.minPoint(), AcGePoint3d(-2, 0, 0));
    EXPECT_EQ(extents.maxPoint(), AcGePoint3d(2, 2, 0));
    AcGePoint3dArray points;
    AcDbIntArray marks;
    points.append({9, 9, 9});
    piece.getOsnapPoints(AcDb::kOsModeMid, 0, {}, {}, AcGeMatrix3d::kIdentity, points, marks);
    EXPECT_EQ(points.length(), 1 + 4 + 1);  // kept what was there; four sides and the tail
}

TEST_F(EntityTest, ExplodeGoesThroughThePicture) {
    const Piece piece(2);
    AcDbVoidPtrArray set;
    EXPECT_EQ(piece.explode(set), Acad::eCannotExplodeEntity);
    int parts = 2;
    prancheta::pictureExploder = [&](const prancheta::Picture& picture, AcDbVoidPtrArray& out) {
        EXPECT_EQ(picture.size(), 2u);
        for (int i = 0; i < parts; ++i) out.append(static_cast<AcDbEntity*>(new Piece(1)));
    };
    EXPECT_EQ(piece.explode(set), Acad::eOk);
    ASSERT_EQ(set.length(), 2);
    for (void* part : set) delete static_cast<AcDbEntity*>(part);
    set.removeAll();
    parts = 1;  // would only become itself
    EXPECT_EQ(piece.explode(set), Acad::eCannotExplodeEntity);
    EXPECT_TRUE(set.isEmpty());
    prancheta::pictureExploder = nullptr;
}

TEST_F(EntityTest, CopiesOutsideTheDrawingShareNothing) {
    const AcDbObjectId id = append(database, new Piece(3, L"x"));
    AcDbObjectPointer<Piece> piece(id, AcDb::kForWrite);
    ASSERT_EQ(piece->createExtensionDictionary(), Acad::eOk);
    ASSERT_EQ(piece->addPersistentReactor(id), Acad::eOk);
    AcDbEntity* copy = nullptr;
    ASSERT_EQ(piece->getTransformedCopy(AcGeMatrix3d::kIdentity, copy), Acad::eOk);
    const std::unique_ptr<AcDbEntity> owner(copy);
    EXPECT_EQ(Piece::cast(copy)->size(), 3);
    EXPECT_EQ(copy->database(), nullptr);
    EXPECT_EQ(copy->layerId(), piece->layerId());
    EXPECT_TRUE(copy->extensionDictionary().isNull());
    EXPECT_EQ(ObjectAccess::extra(*copy), nullptr);
}

TEST_F(EntityTest, ListTellsWhatDiffersFromTheLayer) {
    const AcDbObjectId id = append(database, new Piece(1));
    AcDbObjectPointer<Piece> piece(id, AcDb::kForWrite);
    takePrinted();
    piece->list();
    const std::wstring plain = takePrinted();
    ACHAR handle[17];
    id.handle().getIntoAsciiBuffer(handle);
    EXPECT_NE(plain.find(L"PIECE      Camada: \"0\""), std::wstring::npos);
    EXPECT_NE(plain.find(std::wstring(L"Identificador = ") + handle), std::wstring::npos);
    EXPECT_EQ(plain.find(L"Cor:"), std::wstring::npos);
    piece->setColorIndex(0);
    piece->setLinetype(L"Continuous");
    piece->setLineWeight(AcDb::kLnWt035);
    piece->list();
    const std::wstring special = takePrinted();
    for (const wchar_t* part : {L"Cor: PORBLOCO", L"Tipo de linha: \"Continuous\"", L"0.35 mm"})
        EXPECT_NE(special.find(part), std::wstring::npos) << toUtf8(part);
}

TEST_F(EntityTest, ClassesInUseAreKnown) {
    EXPECT_FALSE(core().hasObjectsOf(Piece::desc()));
    const AcDbObjectId id = append(database, new Piece(1));
    undo().undo();
    EXPECT_TRUE(id.isErased());
    EXPECT_TRUE(core().hasObjectsOf(AcDbEntity::desc()));  // redo may bring it back
}

}  // namespace
