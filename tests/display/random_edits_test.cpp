// SPDX-License-Identifier: MIT
// The display list against looking at every entity, over long series of random edits.
#include <random>

#include "../entities/fixture.h"
#include "brute_force.h"
#include "prancheta/database/database_core.h"

using namespace prancheta;
using displaytest::Drawing;
using displaytest::lookAt;

namespace {

/// Edits a drawing of lines, circles, texts, plates and block references as users and programs do.
class RandomEdits : public EntityTest, public testing::WithParamInterface<unsigned> {
protected:
    RandomEdits() : m_random(GetParam()) {
        for (const wchar_t* name : {L"0", L"Furos", L"Eixos"}) m_layers.push_back(layer(name));
        m_inner = block(L"FURO", {new AcDbCircle({0, 0, 0}, AcGeVector3d::kZAxis, 2)});
        m_outer = block(L"CHAPA", {new AcDbLine({0, 0, 0}, {8, 3, 0}),
                                   new AcDbBlockReference({4, 4, 0}, m_inner)});
    }

    int number(int below) { return static_cast<int>(m_random() % static_cast<unsigned>(below)); }
    /// Most close to each other, some far away, sizes over five powers of ten.
    AcGePoint3d point() {
        const double far = number(20) == 0 ? 1e7 : 0.0;
        return {number(1000) / 3.0 + far, number(1000) / 7.0 - far, 0.0};
    }
    AcDbEntity* entity() {
        const AcGePoint3d at = point();
        const double size = std::pow(10.0, number(6) - 2);
        switch (number(6)) {
            case 0:
                return new AcDbCircle(at, AcGeVector3d::kZAxis, size);
            case 1:
                return new AcDbText(at, L"Ø21", AcDbObjectId::kNull, size);
            case 2:
                return new AcDbBlockReference(at, number(2) == 0 ? m_inner : m_outer);
            case 3:
                return new AcDbText(at, L"", AcDbObjectId::kNull, size);  // draws nothing
            default:
                return new AcDbLine(at, at + AcGeVector3d(size, size / 2, 0));
        }
    }
    AcDbObjectId any() {
        const std::vector<AcDbObjectId> all = database.core().modelSpace();
        if (all.empty()) return {};
        return all[static_cast<std::size_t>(number(static_cast<int>(all.size())))];
    }
    template <class T, class Change>
    void change(AcDbObjectId id, Change&& what) {
        const AcDbObjectPointer<T> object(id, AcDb::kForWrite);
        if (object.openStatus() == Acad::eOk) what(*object.object());
    }
    AcDbObjectId anyLayer() { return m_layers[static_cast<std::size_t>(number(3))]; }

    void editOnce() {
        const auto onEntity = [this](auto&& what) { change<AcDbEntity>(any(), what); };
        const auto onLayer = [this](auto&& what) {
            change<AcDbLayerTableRecord>(anyLayer(), what);
        };
        switch (number(16)) {
            case 0:
                return onEntity([](AcDbEntity& e) { (void)e.erase(); });
            case 1:
            case 2:
                return onEntity([this](AcDbEntity& e) {
                    (void)e.transformBy(AcGeMatrix3d::translation(point() - point()));
                });
            case 3:
                return onEntity([this](AcDbEntity& e) { (void)e.setLayer(anyLayer()); });
            case 4:
                return onEntity([this](AcDbEntity& e) {
                    (void)e.setVisibility(number(2) == 0 ? AcDb::kInvisible : AcDb::kVisible);
                });
            case 5:
                return onLayer(
                    [this](AcDbLayerTableRecord& l) { (void)l.setIsOff(number(2) == 0); });
            case 6:
                return onLayer(
                    [this](AcDbLayerTableRecord& l) { (void)l.setIsFrozen(number(2) == 0); });
            case 7:
                return change<AcDbBlockTableRecord>(m_inner, [this](AcDbBlockTableRecord& b) {
                    (void)b.setOrigin({double(number(9)), double(number(9)), 0});
                });
            case 8:
                return change<AcDbBlockTableRecord>(m_inner, [this](AcDbBlockTableRecord& b) {
                    auto* line = new AcDbLine({0, 0, 0}, {double(number(50)), 1, 0});
                    (void)b.appendAcDbEntity(m_inBlock, line);
                    line->close();
                });
            case 9:
                return change<AcDbEntity>(m_inBlock, [](AcDbEntity& e) { (void)e.erase(); });
            case 10:
                (void)database.core().undo().undo();
                return;
            case 11:
                (void)database.core().undo().redo();
                return;
            case 12: {
                AcDbObjectIdArray ids;
                AcDbObjectIdArray copies;
                if (const AcDbObjectId id = any(); !id.isNull()) ids.append(id);
                (void)database.deepCloneObjects(ids, database.currentSpaceId(), copies);
                return;
            }
            default:
                append(entity());
        }
    }

    void expectSame(DisplayList& list) {
        const Drawing drawing = lookAt(database);
        ASSERT_EQ(list.size(), drawing.size());
        Box2d whole;
        for (const auto& [id, shown] : drawing) whole.add(shown.box);
        EXPECT_TRUE(list.extents() == whole || whole.empty());
        for (int i = 0; i < 5; ++i) {
            const AcGePoint3d corner = point();
            const double size = std::pow(10.0, number(9) - 2);
            const Box2d area{corner.x, corner.y, corner.x + size, corner.y + size * 2};
            std::map<std::size_t, AcDbObjectId> expected;  // in drawing order
            for (const auto& [id, shown] : drawing)
                if (shown.box.meets(area)) expected[shown.order] = id;
            const std::vector<DisplayList::Item> found = list.find(area);
            ASSERT_EQ(found.size(), expected.size());
            auto item = found.begin();
            for (const auto& [order, id] : expected) {
                ASSERT_TRUE(item->id == id);
                EXPECT_EQ(item->box, drawing.at(id).box);
                EXPECT_TRUE(list.picture(id) == drawing.at(id).picture);
                ++item;
            }
        }
    }

    std::mt19937 m_random;
    std::vector<AcDbObjectId> m_layers;
    AcDbObjectId m_inner;
    AcDbObjectId m_outer;
    AcDbObjectId m_inBlock;
};

TEST_P(RandomEdits, giveTheSameAnswers) {
    DisplayList list(database);
    for (int round = 0; round < 150; ++round) {
        for (int edits = 1 + number(12); edits > 0; --edits) editOnce();
        ASSERT_NO_FATAL_FAILURE(expectSame(list)) << "round " << round;
    }
    // What was built anew knows no more than what followed.
    list.invalidate();
    ASSERT_NO_FATAL_FAILURE(expectSame(list));
}

/// Whatever looked different stands in the boxes that are told, before and after.
TEST_P(RandomEdits, areToldByTheirPlaces) {
    DisplayList list(database);
    for (int i = 0; i < 100; ++i) append(entity());
    std::uint64_t seen = list.revision();
    Drawing before = lookAt(database);
    int local = 0;
    for (int round = 0; round < 150; ++round) {
        editOnce();
        Drawing after = lookAt(database);
        const std::vector<Box2d> places = list.changedSince(seen);
        const auto told = [&](const Box2d& box) {
            for (const Box2d& place : places)
                if (place.left <= box.left && place.right >= box.right &&
                    place.bottom <= box.bottom && place.top >= box.top)
                    return true;
            return false;
        };
        const auto expectTold = [&](const Drawing& one, const Drawing& other) {
            for (const auto& [id, shown] : one) {
                const auto there = other.find(id);
                const bool same = there != other.end() && there->second.picture == shown.picture;
                EXPECT_TRUE(same || told(shown.box)) << "round " << round;
            }
        };
        expectTold(before, after);
        expectTold(after, before);
        if (!places.empty() && places[0].width() < 1e9) ++local;
        EXPECT_EQ(places.empty(), list.revision() == seen);
        seen = list.revision();
        before = std::move(after);
    }
    EXPECT_GT(local, 50);  // telling of everything each time would be true, too
}

INSTANTIATE_TEST_SUITE_P(Seeds, RandomEdits, testing::Values(1u, 2u, 3u, 4u));

}  // namespace
