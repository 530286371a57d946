// SPDX-License-Identifier: MIT
// Which snap points a pointer is offered, in what order, and what they say of themselves.
#include <cmath>

#include "dbpl.h"
#include "prancheta/base/text.h"
#include "prancheta/editor/dynamic_input.h"
#include "prancheta/editor/picking.h"
#include "prancheta/editor/snap_modes.h"
#include "prancheta/editor/tracking.h"
#include "prancheta/geometry/angles.h"
#include "support.h"

using namespace prancheta;

namespace {

constexpr int kEnd = 1;
constexpr int kMiddle = 2;
constexpr int kIntersection = 32;
constexpr int kNearest = 512;

// The aperture is 10 pixels of 297 / 600 units: 4.95.
class SnapHitsTest : public editortest::EditorTest {
protected:
    std::vector<SnapHit> hits(double x, double y, int modes,
                              SnapReach reach = SnapReach::Aperture) {
        return snapHits(*editor, AcGePoint3d(x, y, 0), modes, reach);
    }
    static void expectHit(const SnapHit& hit, double x, double y, int mode, AcDbObjectId entity) {
        editortest::expectPoint(hit.point, x, y);
        EXPECT_EQ(hit.mode, mode);
        EXPECT_TRUE(hit.entity == entity);
    }
    AcDbObjectId add(AcDbEntity* entity) {
        AcDbObjectPointer<AcDbBlockTableRecord> space(editor->database().currentSpaceId(),
                                                      AcDb::kForWrite);
        AcDbObjectId id;
        EXPECT_EQ(space->appendAcDbEntity(id, entity), Acad::eOk);
        (void)entity->close();
        return id;
    }
    template <class Change>
    void changeLayer(AcDbObjectId id, Change&& what) {
        const AcDbObjectId layer = editor->database().core().ensureLayer(L"OUTRA");
        {
            AcDbObjectPointer<AcDbEntity> entity(id, AcDb::kForWrite);
            entity->setLayer(layer);
        }
        AcDbObjectPointer<AcDbLayerTableRecord> record(layer, AcDb::kForWrite);
        what(*record.object());
    }
};

TEST_F(SnapHitsTest, aCentreIsMeantByItsCircle) {
    constexpr int kCentre = 4;
    constexpr int kQuadrant = 16;
    const AcDbObjectId circle = add(new AcDbCircle({100, 100, 0}, AcGeVector3d::kZAxis, 50));
    const std::vector<SnapHit> round = hits(135.4, 135.4, kCentre + kQuadrant);
    ASSERT_EQ(round.size(), 1u);
    expectHit(round[0], 100, 100, kCentre, circle);
    // What lies under the pointer goes before it; away from the circle there is nothing.
    expectHit(hits(150.3, 100, kCentre + kQuadrant).front(), 150, 100, kQuadrant, circle);
    EXPECT_TRUE(hits(120, 100, kCentre).empty());
}

TEST_F(SnapHitsTest, nearestFirstAndEachPlaceOnce) {
    const AcDbObjectId tall = line(100, 0, 100, 50);
    const AcDbObjectId small = line(102, 24, 104, 24);
    const std::vector<SnapHit> all = hits(100.3, 26, kEnd + kMiddle + kNearest);
    ASSERT_EQ(all.size(), 5u);
    expectHit(all[0], 100, 25, kMiddle, tall);
    expectHit(all[1], 102, 24, kEnd, small);
    expectHit(all[2], 103, 24, kMiddle, small);
    expectHit(all[3], 104, 24, kEnd, small);
    // The point nearest on the small line is its end: named already.
    expectHit(all[4], 100, 26, kNearest, tall);
}

TEST_F(SnapHitsTest, anEndWinsOverTheCrossingThatFallsOnIt) {
    const AcDbObjectId upright = line(100, 0, 100, 50);
    const AcDbObjectId flat = line(100, 0, 150, 1.0 / 3);
    const std::vector<SnapHit> corner = hits(100.3, 0.4, kEnd + kIntersection);
    ASSERT_EQ(corner.size(), 1u);
    EXPECT_EQ(corner[0].mode, kEnd);
    EXPECT_EQ(corner[0].point.x, 100.0);  // as it was drawn, to the last bit
    EXPECT_EQ(corner[0].point.y, 0.0);
    EXPECT_TRUE(corner[0].entity == upright || corner[0].entity == flat);
    const AcDbObjectId over = line(90, 20, 110, 20);
    const std::vector<SnapHit> crossing = hits(100.3, 20.2, kEnd + kIntersection);
    ASSERT_EQ(crossing.size(), 1u);
    expectHit(crossing[0], 100, 20, kIntersection, over);
}

TEST_F(SnapHitsTest, apparentCrossings) {
    line(100, 0, 100, 50);
    const AcDbObjectId over = line(90, 20, 110, 20);
    const std::vector<SnapHit> apparent = hits(100.3, 20.2, kApparentSnap);
    ASSERT_EQ(apparent.size(), 1u);
    expectHit(apparent[0], 100, 20, kApparentSnap, over);
    EXPECT_EQ(hits(100.3, 20.2, kApparentSnap + kIntersection).size(), 1u);
}

TEST_F(SnapHitsTest, extensionsBeyondTheEnds) {
    const AcDbObjectId slope = line(0, 0, 30, 40);
    const auto extended = [&](double x, double y) {
        return hits(x, y, kExtensionSnap, SnapReach::Object);
    };
    // Twice as far: 60, 80, and one unit aside of it.
    const std::vector<SnapHit> beyond = extended(60.8, 79.4);
    ASSERT_EQ(beyond.size(), 1u);
    expectHit(beyond[0], 60, 80, kExtensionSnap, slope);
    expectHit(extended(-30, -40).at(0), -30, -40, kExtensionSnap, slope);
    EXPECT_TRUE(extended(15.8, 19.4).empty());              // on the line itself
    EXPECT_TRUE(extended(60, 90).empty());                  // ten above 60, 80: six aside
    EXPECT_TRUE(hits(60.8, 79.4, kExtensionSnap).empty());  // does not run
    // The quarter from east to north of the circle of radius 10 about 200, 0.
    const AcDbObjectId quarter = add(new AcDbArc({200, 0, 0}, 10, 0, kPi / 2));
    expectHit(extended(189, 0).at(0), 190, 0, kExtensionSnap, quarter);
    EXPECT_TRUE(extended(200 + 11 * std::sqrt(0.5), 11 * std::sqrt(0.5)).empty());
    // A pointer is offered those of what is shown.
    EXPECT_EQ(hits(60.8, 79.4, kExtensionSnap, SnapReach::Shown).size(), 1u);
    editor->screen().show({AcGePoint3d(90, 120, 0), 59.4});
    EXPECT_TRUE(hits(90.2, 119.6, kExtensionSnap, SnapReach::Shown).empty());
    EXPECT_EQ(extended(90.2, 119.6).size(), 1u);
}

TEST_F(SnapHitsTest, wholeObjectWhenAskedFor) {
    const AcDbObjectId tall = line(100, 0, 100, 50);
    EXPECT_TRUE(hits(100.2, 35, kEnd).empty());
    const std::vector<SnapHit> ends = hits(100.2, 35, kEnd, SnapReach::Object);
    ASSERT_EQ(ends.size(), 2u);
    expectHit(ends[0], 100, 50, kEnd, tall);
    expectHit(ends[1], 100, 0, kEnd, tall);
}

/// Of a box the middle of the side that was aimed at, though that of another side is nearer.
TEST_F(SnapHitsTest, theEdgeUnderThePointerIsMeant) {
    auto* const box = new AcDbPolyline;
    const double corners[][2] = {{0, 0}, {200, 0}, {200, 40}, {0, 40}};
    for (unsigned i = 0; i < 4; ++i)
        (void)box->addVertexAt(i, AcGePoint2d(corners[i][0], corners[i][1]));
    (void)box->setClosed(true);
    const AcDbObjectId id = add(box);
    const std::vector<SnapHit> middles = hits(45, 0.5, kMiddle, SnapReach::Object);
    ASSERT_EQ(middles.size(), 1u);
    expectHit(middles[0], 100, 0, kMiddle, id);
}

TEST_F(SnapHitsTest, hiddenLayersDoNotCountLockedOnesDo) {
    const AcDbObjectId piece = line(100, 0, 100, 50);
    changeLayer(piece, [](AcDbLayerTableRecord& l) { (void)l.setIsLocked(true); });
    EXPECT_EQ(hits(100, 1, kEnd).size(), 1u);
    changeLayer(piece, [](AcDbLayerTableRecord& l) { (void)l.setIsOff(true); });
    EXPECT_TRUE(hits(100, 1, kEnd).empty());
    EXPECT_TRUE(entityAt(*editor, {100, 10, 0}).isNull());
}

/// Thousands of crossings under the aperture stay an answer that somebody can leaf through.
TEST_F(SnapHitsTest, crowdedPlacesAreCut) {
    for (int i = 0; i < 60; ++i) {
        line(100 + 0.1 * i, 0, 100 + 0.1 * i, 6);
        line(100, 0.1 * i, 106, 0.1 * i);
    }
    const std::vector<SnapHit> crossings = hits(103.02, 3.01, kIntersection);
    ASSERT_EQ(crossings.size(), 64u);
    editortest::expectPoint(crossings[0].point, 103, 3);
}

// --- Lines that hold the pointer ----------------------------------------------------------------

TEST_F(SnapHitsTest, thePointerIsHeldOnLinesFromWhereItRested) {
    constexpr int kExtension = 4096;
    constexpr int kParallel = 8192;
    constexpr int kBoth = kPolarTracking + kObjectTracking;
    line(20, 30, 40, 30);  // its end holds along X and Y, and beyond itself
    line(0, 0, 30, 40);    // rises by 4 on 3
    const AcGePoint3d base(100, 100, 0);
    const struct {
        const char* what;
        short aids;  // AUTOSNAP
        double polar;
        std::vector<AcGePoint3d> rests;
        AcGePoint3d pointer;
        int modes;
        std::vector<TrackLine::Kind> lines;
        AcGePoint3d held;
    } kCases[] = {
        {"on the polar line",
         kPolarTracking,
         90,
         {},
         {150, 103, 0},
         0,
         {TrackLine::Kind::Polar},
         {150, 100, 0}},
        {"none is near", kPolarTracking, 90, {}, {150, 120, 0}, 0, {}, {}},
        {"at 45 degrees",
         kPolarTracking,
         45,
         {},
         {151, 149, 0},
         0,
         {TrackLine::Kind::Polar},
         {150, 150, 0}},
        {"switched off", 0, 90, {{40, 30, 0}}, {150, 103, 0}, kEnd, {}, {}},
        {"above an end",
         kObjectTracking,
         90,
         {{40, 30, 0}},
         {42, 80, 0},
         kEnd,
         {TrackLine::Kind::Object},
         {40, 80, 0}},
        {"an end that was let go",
         kObjectTracking,
         90,
         {{40, 30, 0}, {40, 30, 0}},
         {42, 80, 0},
         kEnd,
         {},
         {}},
        {"above the end, level with the base",
         kBoth,
         90,
         {{40, 30, 0}},
         {42, 98, 0},
         kEnd,
         {TrackLine::Kind::Polar, TrackLine::Kind::Object},
         {40, 100, 0}},
        // 50 beyond the end of the rising line: 30 and 40 more.
        {"beyond an end",
         0,
         90,
         {{30, 40, 0}},
         {60.8, 79.4, 0},
         kEnd + kExtension,
         {TrackLine::Kind::Extension},
         {60, 80, 0}},
        {"not before it", 0, 90, {{30, 40, 0}}, {15.8, 19.4, 0}, kEnd + kExtension, {}, {}},
        {"parallel to an edge",
         0,
         90,
         {{12, 16, 0}},
         {130.8, 139.4, 0},
         kParallel,
         {TrackLine::Kind::Parallel},
         {130, 140, 0}},
    };
    for (const auto& c : kCases) {
        SCOPED_TRACE(c.what);
        editor->variables().force(L"AUTOSNAP", c.aids);
        editor->variables().force(L"POLARANG", c.polar * kPi / 180.0);
        Tracking tracking;
        for (const AcGePoint3d& at : c.rests) EXPECT_TRUE(tracking.rest(*editor, at, c.modes));
        const auto hit = tracking.hold(*editor, c.pointer, base, c.modes);
        ASSERT_EQ(hit.has_value(), !c.lines.empty());
        if (!hit) continue;
        std::vector<TrackLine::Kind> kinds;
        for (const TrackLine& each : hit->lines) kinds.push_back(each.kind);
        EXPECT_EQ(kinds, c.lines);
        EXPECT_TRUE(hit->point.isEqualTo(c.held, AcGeTol())) << hit->point.x << " " << hit->point.y;
    }
}

// --- Values beside the pointer ------------------------------------------------------------------

TEST_F(SnapHitsTest, tabGoesOnToTheNextValueOfAnAnswer) {
    editor->setLastPoint({10, 10, 0});
    InputRequest from;  // 40 to the right and 30 up: 50 long
    from.kind = InputKind::Point;
    from.base = AcGePoint3d(10, 10, 0);
    InputRequest corner = from;
    corner.kind = InputKind::Corner;
    InputRequest first;
    first.kind = InputKind::Point;
    InputRequest elsewhere = from;  // @ would not count from there
    elsewhere.base = AcGePoint3d(20, 10, 0);
    const struct {
        const InputRequest& request;
        TypedLine typed;
        TypedLine next;
        std::vector<std::wstring> shown;
        int active;
        const wchar_t* answered;
    } kCases[] = {
        {from, {L"", 0}, {L"<", 1}, {L"50.0000", L"37"}, 0, L""},
        {from, {L"70", 2}, {L"@70<", 4}, {L"70", L"37"}, 0, L"70"},
        {from, {L"@70<", 4}, {L"@70<", 3}, {L"70", L"37"}, 1, L"70"},
        {from, {L"@70<90", 6}, {L"@70<90", 3}, {L"70", L"90"}, 1, L"@70<90"},
        {from, {L"<90", 3}, {L"@<90", 1}, {L"50.0000", L"90"}, 1, L"<90"},
        {from, {L"@<90", 1}, {L"@<90", 4}, {L"50.0000", L"90"}, 0, L"<90"},
        {from, {L"_end", 4}, {L"_end", 4}, {L"50.0000", L"37"}, -1, L"_end"},
        {corner, {L"70", 2}, {L"@70,", 4}, {L"70", L"30.0000"}, 0, L"70"},
        {first, {L"70", 2}, {L"70,", 3}, {L"70", L"40.0000"}, 0, L"70"},
        {elsewhere, {L"70", 2}, {L"70", 2}, {L"70", L"45"}, 0, L"70"},
    };
    for (const auto& c : kCases) {
        SCOPED_TRACE(toUtf8(c.typed.text));
        EXPECT_EQ(nextField(*editor, c.request, c.typed), c.next);
        EXPECT_EQ(withoutEmptyField(c.typed.text), c.answered);
        const auto fields = dynamicFields(*editor, c.request, {50, 40, 0}, c.typed);
        ASSERT_EQ(fields.size(), 2u);
        for (int i : {0, 1}) {
            EXPECT_EQ(fields[static_cast<std::size_t>(i)].text,
                      c.shown[static_cast<std::size_t>(i)]);
            EXPECT_EQ(fields[static_cast<std::size_t>(i)].active, i == c.active);
        }
    }
    editor->variables().force(L"DYNMODE", short{-3});
    EXPECT_TRUE(dynamicFields(*editor, from, {50, 40, 0}, {}).empty());
}

}  // namespace
