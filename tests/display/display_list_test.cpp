// SPDX-License-Identifier: MIT
// What single changes do to the display list.
#include "prancheta/display/display_list.h"

#include "../entities/fixture.h"
#include "prancheta/database/database_core.h"

using namespace prancheta;

namespace {

class DisplayListTest : public EntityTest {
protected:
    template <class T, class Change>
    void change(AcDbObjectId id, Change&& what) {
        const AcDbObjectPointer<T> object(id, AcDb::kForWrite);
        ASSERT_EQ(object.openStatus(), Acad::eOk);
        what(*object.object());
    }
    AcDbObjectId line(double x, double length = 10) {
        return append(new AcDbLine({x, 0, 0}, {x + length, 0, 0}));
    }
    std::size_t countIn(DisplayList& list, const Box2d& area) { return list.find(area).size(); }
};

TEST_F(DisplayListTest, layersHideAndLockedOnesDoNot) {
    const AcDbObjectId piece = line(0);
    const AcDbObjectId other = line(100);
    const AcDbObjectId furos = layer(L"Furos");
    change<AcDbEntity>(other, [&](AcDbEntity& e) { (void)e.setLayer(furos); });
    DisplayList list(database);
    EXPECT_EQ(list.extents(), (Box2d{0, 0, 110, 0}));
    const std::uint64_t before = list.revision();

    const auto set = [&](auto what) { change<AcDbLayerTableRecord>(furos, what); };
    set([](AcDbLayerTableRecord& l) { (void)l.setIsLocked(true); });
    EXPECT_EQ(list.revision(), before);  // nothing looks different
    EXPECT_EQ(list.size(), 2u);
    set([](AcDbLayerTableRecord& l) { (void)l.setIsOff(true); });
    EXPECT_EQ(list.size(), 1u);
    EXPECT_EQ(list.extents(), (Box2d{0, 0, 10, 0}));
    EXPECT_TRUE(list.last() == piece);
    EXPECT_EQ(countIn(list, {90, -1, 120, 1}), 0u);
    EXPECT_EQ(list.picture(other).size(), 1u);  // a hidden one can still be drawn, for a preview
    set([](AcDbLayerTableRecord& l) {
        (void)l.setIsOff(false);
        (void)l.setIsFrozen(true);
    });
    EXPECT_EQ(list.size(), 1u);
    set([](AcDbLayerTableRecord& l) { (void)l.setIsFrozen(false); });
    EXPECT_EQ(countIn(list, {90, -1, 120, 1}), 1u);
    EXPECT_TRUE(list.last() == other);

    const std::uint64_t shown = list.revision();
    set([](AcDbLayerTableRecord& l) { (void)l.setColorIndex(1); });
    EXPECT_GT(list.revision(), shown);
}

/// As a viewport of another scale shows them; all else is the other list's.
TEST_F(DisplayListTest, annotationsOfAnotherSizeFollowTheDrawing) {
    DisplayList whole(database, database.core().modelSpaceId());
    DisplayList large(whole, 3.0);
    const AcDbObjectId below = line(0, 100);
    const AcDbObjectId text = append(new AcDbText({50, 0, 0}, L"H", AcDbObjectId(), 10.0, 0.0));
    const AcDbObjectId above = line(0, 200);
    const auto order = [&] {
        std::vector<AcDbObjectId> ids;
        for (const DisplayList::Item& item : large.find({52, 25, 53, 29})) ids.push_back(item.id);
        return ids;
    };
    EXPECT_EQ(order(), std::vector{text});  // 30 high
    EXPECT_EQ(countIn(whole, {52, 25, 53, 29}), 0u);
    std::vector<AcDbObjectId> all;
    for (const DisplayList::Item& item : large.find({51, -1, 53, 29})) all.push_back(item.id);
    EXPECT_EQ(all, (std::vector{below, text, above}));
    EXPECT_EQ(large.picture(text)[0].height(), 30.0);
    EXPECT_EQ(large.extents(), whole.extents());
    change<AcDbText>(text, [](AcDbText& t) { (void)t.setPosition({500, 0, 0}); });
    EXPECT_EQ(countIn(large, {501, 25, 503, 29}), 1u);
    change<AcDbText>(text, [](AcDbText& t) { (void)t.erase(); });
    EXPECT_TRUE(large.find({501, -1, 503, 29}).empty());
}

TEST_F(DisplayListTest, blocksInsideBlocksAreFollowed) {
    auto* hole = new AcDbCircle({0, 0, 0}, AcGeVector3d::kZAxis, 1);
    const AcDbObjectId inner = block(L"FURO", {hole});
    const AcDbObjectId outer = block(L"CHAPA", {new AcDbBlockReference({10, 0, 0}, inner)});
    append(new AcDbBlockReference({100, 0, 0}, outer));
    const AcDbObjectId empty = block(L"VAZIO", {});
    append(new AcDbBlockReference({0, 50, 0}, empty));
    DisplayList list(database);
    EXPECT_EQ(list.extents(), (Box2d{109, -1, 111, 1}));
    EXPECT_EQ(list.size(), 1u);
    const std::uint64_t before = list.revision();
    change<AcDbCircle>(hole->objectId(), [](AcDbCircle& c) { (void)c.setRadius(3); });
    EXPECT_EQ(list.extents(), (Box2d{107, -3, 113, 3}));
    EXPECT_EQ(list.changedSince(before).size(), 2u);
    change<AcDbBlockTableRecord>(empty, [](AcDbBlockTableRecord& b) {
        auto* made = new AcDbLine({0, 0, 0}, {5, 0, 0});
        (void)b.appendAcDbEntity(made);
        made->close();
    });
    EXPECT_EQ(list.size(), 2u);
    EXPECT_EQ(countIn(list, {0, 49, 1, 51}), 1u);
}

/// What a block draws on a hidden layer is neither seen nor touched; the rest of it is.
TEST_F(DisplayListTest, hiddenLayersInsideBlocks) {
    const AcDbObjectId furos = layer(L"Furos");
    auto* hole = new AcDbCircle({20, 0, 0}, AcGeVector3d::kZAxis, 5);
    (void)hole->setLayer(furos);
    const AcDbObjectId plate = block(L"CHAPA", {new AcDbLine({0, 0, 0}, {10, 2, 0}), hole});
    const AcDbObjectId reference = append(new AcDbBlockReference({100, 0, 0}, plate));
    DisplayList list(database);
    EXPECT_EQ(list.extents(), (Box2d{100, -5, 125, 5}));
    const auto freeze = [&](bool frozen) {
        change<AcDbLayerTableRecord>(furos,
                                     [&](AcDbLayerTableRecord& l) { (void)l.setIsFrozen(frozen); });
    };
    for (int round = 0; round < 2; ++round) {
        freeze(true);
        EXPECT_EQ(list.extents(), (Box2d{100, 0, 110, 2}));
        EXPECT_EQ(list.picture(reference).size(), 1u);
        EXPECT_EQ(countIn(list, {118, -1, 122, 1}), 0u);
        freeze(false);
        EXPECT_EQ(list.extents(), (Box2d{100, -5, 125, 5}));
        EXPECT_EQ(list.picture(reference).size(), 2u);
    }
    change<AcDbEntity>(reference, [&](AcDbEntity& e) { (void)e.setLayer(furos); });
    freeze(true);
    EXPECT_EQ(list.size(), 0u);
}

TEST_F(DisplayListTest, openForWriteWaitsUntilItIsClosed) {
    const AcDbObjectId first = line(0);
    DisplayList list(database);
    EXPECT_EQ(list.size(), 1u);
    AcDbObjectPointer<AcDbLine> held(first, AcDb::kForWrite);
    (void)held->setEndPoint({50, 0, 0});
    EXPECT_EQ(list.size(), 1u);  // nobody has been told yet
    (void)held.close();
    EXPECT_EQ(list.extents(), (Box2d{0, 0, 50, 0}));

    const AcDbObjectPointer<AcDbBlockTableRecord> space(database.currentSpaceId(), AcDb::kForWrite);
    auto* made = new AcDbLine({0, 0, 0}, {0, 70, 0});
    ASSERT_EQ(space->appendAcDbEntity(made), Acad::eOk);
    EXPECT_EQ(list.size(), 1u);
    EXPECT_TRUE(list.picture(made->objectId()).empty());
    EXPECT_TRUE(list.last() == made->objectId());
    made->close();  // unchanged since it was appended: no notification
    EXPECT_EQ(list.size(), 2u);
    EXPECT_EQ(list.extents(), (Box2d{0, 0, 50, 70}));
}

TEST_F(DisplayListTest, lastIsByHandleAlsoInADrawingFromAFile) {
    DatabaseCore& core = database.core();
    const auto appendWith = [&](Adesk::UInt64 handle) {
        auto* made = new AcDbLine({0, 0, 0}, {1, 0, 0});
        AcDbObjectId id;
        EXPECT_EQ(core.appendWithHandle(database.currentSpaceId(), made, handle, id), Acad::eOk);
        made->close();
        return id;
    };
    const AcDbObjectId high = appendWith(0x5000);
    appendWith(0x4000);
    DisplayList list(database);
    EXPECT_TRUE(list.last() == high);
    appendWith(0x4500);  // later, but below
    EXPECT_TRUE(list.last() == high);
    const AcDbObjectId next = appendWith(0x6000);
    EXPECT_TRUE(list.last() == next);
    change<AcDbEntity>(next, [](AcDbEntity& e) { (void)e.erase(); });
    EXPECT_TRUE(list.last() == high);
}

TEST_F(DisplayListTest, changesLongAgoAreOneBoxOfEverything) {
    const AcDbObjectId piece = line(0);
    DisplayList list(database);
    const std::uint64_t start = list.revision();
    EXPECT_TRUE(list.changedSince(start).empty());
    for (int i = 0; i < 2000; ++i) {
        change<AcDbEntity>(piece, [](AcDbEntity& e) {
            (void)e.transformBy(AcGeMatrix3d::translation({1, 0, 0}));
        });
        (void)list.revision();
    }
    ASSERT_EQ(list.changedSince(start).size(), 1u);
    EXPECT_TRUE(list.changedSince(start)[0].contains(-1e9, 1e9));
    // The last step: from 1999 to 2000.
    const std::vector<Box2d> step = list.changedSince(list.revision() - 1);
    ASSERT_EQ(step.size(), 2u);
    EXPECT_EQ(std::min(step[0].left, step[1].left), 1999.0);
    EXPECT_EQ(std::max(step[0].right, step[1].right), 2010.0);
}

TEST_F(DisplayListTest, visitMayAskForPictures) {
    for (int i = 0; i < 50; ++i) line(20.0 * i);
    DisplayList list(database);
    std::size_t primitives = 0;
    list.query(list.extents(),
               [&](const DisplayList::Item& item) { primitives += list.picture(item.id).size(); });
    EXPECT_EQ(primitives, 50u);
}

/// Far and huge things are found with what is near, and coordinates at the limit end the search.
TEST_F(DisplayListTest, placesOfAllSizes) {
    line(1e9, 1e-4);
    line(-5e13, 1e14);
    for (int i = 0; i < 100; ++i) append(new AcDbPoint({3, 3, 0}));
    DisplayList list(database);
    EXPECT_EQ(list.size(), 102u);
    EXPECT_EQ(countIn(list, {3, 3, 3, 3}), 100u);
    EXPECT_EQ(countIn(list, {1e9 - 1, -1, 1e9 + 1, 1}), 2u);
    EXPECT_EQ(countIn(list, {-4e13, -1, -3e13, 1}), 1u);
}

}  // namespace
