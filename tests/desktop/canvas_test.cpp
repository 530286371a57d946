// SPDX-License-Identifier: MIT
// The drawing area under mouse and keyboard.
#include "dbjig.h"
#include "prancheta/desktop/canvas/aim.h"
#include "prancheta/editor/picking.h"
#include "tests/desktop/canvas_fixture.h"

namespace {

using namespace prancheta;
using Ids = std::vector<AcDbObjectId>;
using canvastest::expectLine;
using desktop::Canvas;

class Pointing : public canvastest::CanvasTest {};

TEST_F(Pointing, theWheelKeepsThePointUnderTheCursor) {
    const QPointF at(130.0, 470.0);
    const AcGePoint3d before = world(at);
    wheel(at, 3);
    then([&] {
        EXPECT_NEAR(editor->screen().view().height, 600.0 / (1.2 * 1.2 * 1.2), 1e-9);
        EXPECT_NEAR(world(at).x, before.x, 1e-9);
        EXPECT_NEAR(world(at).y, before.y, 1e-9);
    });
    wheel(at, -3);
    run();
    EXPECT_NEAR(editor->screen().view().height, 600.0, 1e-9);
    // The turns were one step.
    ASSERT_TRUE(editor->screen().back());
    EXPECT_NEAR(editor->screen().view().centre.x, 400.0, 1e-9);
}

TEST_F(Pointing, windowTakesWhatIsInsideCrossingWhatIsTouchedAndShiftTakesOut) {
    const AcDbObjectId inside = line(100, 100, 150, 150);
    const AcDbObjectId across = line(120, 120, 400, 120);
    const AcDbObjectId away = line(600, 500, 700, 500);
    (void)away;
    Ids first, second, third, fourth;
    drag(90, 90, 200, 200);  // to the right
    then([&] { first = editor->selection().ids(); });
    drag(200, 200, 90, 90);  // to the left
    then([&] { second = editor->selection().ids(); });
    click(300, 120, Qt::ShiftModifier);
    then([&] { third = editor->selection().ids(); });
    // By two clicks.
    click(200, 60);
    click(90, 220, Qt::ShiftModifier);
    then([&] { fourth = editor->selection().ids(); });
    run();
    EXPECT_EQ(first, Ids{inside});
    EXPECT_EQ(second, (Ids{inside, across}));
    EXPECT_EQ(third, Ids{inside});
    EXPECT_EQ(fourth, Ids{});
}

TEST_F(Pointing, aSelectionPromptTakesClicksFramesAndTheRightButtonAsEnter) {
    const AcDbObjectId a = line(100, 100, 150, 150);
    const AcDbObjectId b = line(300, 300, 350, 300);
    const AcDbObjectId c = line(500, 100, 550, 100);
    type(L"_ERASE");
    click(125, 125);
    drag(280, 280, 370, 320);
    click(320, 300, Qt::ShiftModifier);
    drag(560, 120, 520, 80);
    click(10, 10, Qt::NoModifier, Qt::RightButton);
    run();
    EXPECT_TRUE(a.isErased());
    EXPECT_FALSE(b.isErased());
    EXPECT_TRUE(c.isErased());
}

TEST_F(Pointing, whatACrossingFrameHoldsIsStretchedAndWhatAWindowHoldsMoves) {
    const AcDbObjectId crossed = line(100, 100, 300, 100);
    const AcDbObjectId whole = line(400, 400, 450, 400);
    type(L"_STRETCH");
    drag(390, 380, 460, 420);  // to the right
    drag(350, 150, 250, 50);   // to the left: the end at 300
    click(10, 10, Qt::NoModifier, Qt::RightButton);
    type(L"0,0");
    type(L"50,0");
    run();
    expectLine(crossed, 100, 100, 350, 100);
    expectLine(whole, 450, 400, 500, 400);
}

TEST_F(Pointing, snapsGiveExactPointsAndTabGoesOn) {
    line(100.25, 100.125, 300.5, 250.75);
    type(L"OSMODE");
    type(L"3");
    type(L"_LINE");
    click(103, 97);   // off the end by 3 pixels
    click(202, 173);  // near the middle
    type(L"");
    run();
    ASSERT_EQ(entities().size(), 2u);
    expectLine(entities().back(), 100.25, 100.125, 200.375, 175.4375);
}

TEST_F(Pointing, orthoLimitsTheCursorButNotSnapsNorTypedPoints) {
    line(500, 400, 600, 400);
    type(L"ORTHOMODE");
    type(L"1");
    type(L"OSMODE");
    type(L"1");
    type(L"_LINE");
    type(L"100,100");
    click(300, 130);  // flat from the base
    click(502, 398);  // an end point
    moveTo(400, 500);
    type(L"50");  // direct distance: downwards is further than leftwards? the nearer axis wins
    click(520, 480, Qt::ShiftModifier);
    type(L"");
    run();
    const Ids all = entities();
    ASSERT_EQ(all.size(), 5u);
    expectLine(all[1], 100, 100, 300, 100);
    expectLine(all[2], 300, 100, 500, 400);
    // From (500, 400) to the pointer: 100 to the left and 100 up; of two alike X is taken.
    expectLine(all[3], 500, 400, 450, 400);
    expectLine(all[4], 450, 400, 520, 480);
}

TEST_F(Pointing, trackingHoldsThePointerAndEndsWithItsPoint) {
    line(500, 400, 600, 400);
    for (const wchar_t* text : {L"OSMODE", L"1", L"POLARANG", L"45", L"_LINE", L"100,100"})
        type(text);
    click(302, 298);   // at 45 degrees
    moveTo(501, 399);  // the end, at which the pointer rests
    then([] { QTest::qWait(500); });
    click(503, 201);  // below it
    click(560, 230);  // nothing holds it there
    type(L"'AUTOSNAP");
    type(L"0");
    click(660, 253);
    type(L"");
    run();
    const Ids all = entities();
    ASSERT_EQ(all.size(), 5u);
    expectLine(all[1], 100, 100, 300, 300);
    expectLine(all[2], 300, 300, 500, 201);
    expectLine(all[3], 500, 201, 560, 230);
    expectLine(all[4], 560, 230, 660, 253);
}

TEST_F(Pointing, orthoLeavesThePointerItsHeight) {
    type(L"ORTHOMODE");
    type(L"1");
    type(L"_LINE");
    type(L"100,100,5");
    click(300, 130);
    type(L"");
    run();
    ASSERT_EQ(entities().size(), 1u);
    const AcDbObjectPointer<AcDbLine> drawn(entities().back(), AcDb::kForRead);
    EXPECT_EQ(drawn->startPoint().z, 5.0);
    EXPECT_EQ(drawn->endPoint().z, 0.0);
}

TEST_F(Pointing, theSnapGridRoundsThePointerButNotSnapsNorTypedPoints) {
    line(503.5, 301.25, 600, 400);
    for (const wchar_t* text : {L"OSMODE", L"1", L"SNAPMODE", L"1", L"SNAPUNIT", L"20,10"})
        type(text);
    type(L"_LINE");
    click(113, 148);
    type(L"7.5,3.25");
    click(502, 300);  // an end point
    type(L"'SNAPUNIT");
    type(L"-5,10");  // refused: asked again
    type(L"0,10");   // X stays free
    click(333, 148);
    type(L"");
    run();
    const Ids all = entities();
    ASSERT_EQ(all.size(), 4u);
    expectLine(all[3], 503.5, 301.25, 333, 150);
    expectLine(all[1], 120, 150, 7.5, 3.25);
    expectLine(all[2], 7.5, 3.25, 503.5, 301.25);
}

/// A line that follows the pointer from the origin.
class LineJig : public AcEdJig {
public:
    explicit LineJig(AcDbLine* line) : m_line(line) {}
    DragStatus sampler() override {
        setUserInputControls(static_cast<UserInputControls>(kNoZeroResponseAccepted));
        return acquirePoint(m_now, m_line->startPoint());
    }
    Adesk::Boolean update() override {
        seen.push_back(m_now);
        m_line->setEndPoint(m_now);
        return Adesk::kTrue;
    }
    AcDbEntity* entity() const override { return m_line; }
    std::vector<AcGePoint3d> seen;

private:
    AcDbLine* m_line;
    AcGePoint3d m_now;
};

TEST_F(Pointing, aDragIsToldOnlyTheLastOfManyPositionsAndEndsByAClick) {
    AcDbLine dragged(AcGePoint3d(100, 100, 0), AcGePoint3d(100, 100, 0));
    LineJig jig(&dragged);
    jig.setDispPrompt(L"\nPonto: ");
    then([&] {
        for (int i = 0; i <= 50; ++i) mouse(QEvent::MouseMove, pixel(200 + i, 300));
    });
    click(400, 350);
    EXPECT_EQ(jig.drag(), AcEdJig::kNormal);
    int passed = 0;
    for (const AcGePoint3d& at : jig.seen) passed += at.x >= 200.0 && at.x < 250.0 ? 1 : 0;
    EXPECT_EQ(passed, 0);
    EXPECT_EQ(std::count(jig.seen.begin(), jig.seen.end(), AcGePoint3d(250, 300, 0)), 1);
    EXPECT_TRUE(dragged.endPoint().isEqualTo(AcGePoint3d(400, 350, 0)));
}

TEST(SnapNames, whatIsShownCanBeTyped) {
    for (int bit = 1; bit < 16384; bit *= 2) {
        const std::wstring name = desktop::snapName(bit);
        if (bit == 1024) continue;  // no mode
        EXPECT_EQ(snapModes(name), bit);
        EXPECT_EQ(snapModes(name.substr(0, 3)), bit);
    }
    // Both at once, and either language.
    EXPECT_EQ(snapModes(L"final,_mid"), 3);
    EXPECT_EQ(snapModes(L"Perpendiculares"), std::nullopt);
}

TEST_F(Pointing, gripsStretchWithSnapsTypedPointsAndModes) {
    const AcDbObjectId id = line(100, 100, 300, 100);
    line(500, 300, 600, 300);
    type(L"OSMODE");
    type(L"1");
    click(200, 100);
    click(300, 100);  // the grip of the end
    then([&] { EXPECT_EQ(editor->runner().activeName(), L"GRIPS"); });
    click(502, 298);
    then([&] {
        expectLine(id, 100, 100, 500, 300);
        EXPECT_EQ(editor->selection().ids(), Ids{id});
        EXPECT_TRUE(editor->selection().hotGrips().empty());
    });
    click(100, 100);
    type(L"@0,50");
    then([&] { expectLine(id, 100, 150, 500, 300); });
    // Enter goes on to moving, with a copy that stays.
    click(100, 150);
    type(L"");
    type(L"_Copy");
    type(L"100,400");
    type(L"_eXit");
    then([&] {
        expectLine(id, 100, 150, 500, 300);
        ASSERT_EQ(entities().size(), 3u);
        expectLine(entities().back(), 100, 400, 500, 550);
    });
    type(L"_U");
    then([&] { EXPECT_TRUE(entities().back().isErased() || entities().size() == 2u); });
    type(L"_U");
    run();
    expectLine(id, 100, 100, 500, 300);
}

TEST_F(Pointing, severalGripsMoveTogether) {
    const AcDbObjectId a = line(100, 100, 300, 100);
    const AcDbObjectId b = line(300, 100, 300, 300);
    drag(90, 90, 310, 310);
    // Both ends at the corner are one place; with Shift the other end of the second line, too.
    click(300, 300, Qt::ShiftModifier);
    click(300, 100);
    type(L"@10,20");
    run();
    expectLine(a, 100, 100, 310, 120);
    expectLine(b, 310, 120, 310, 320);
}

TEST_F(Pointing, gripsTakenHoldOfGoWithTheirSelection) {
    const AcDbObjectId a = line(100, 100, 300, 100);
    const AcDbObjectId b = line(100, 400, 300, 400);
    drag(90, 90, 310, 410);
    click(300, 100, Qt::ShiftModifier);  // an end of each is gathered
    click(300, 400, Qt::ShiftModifier);
    click(150, 100, Qt::ShiftModifier);  // and the first line taken out
    then([&] {
        EXPECT_EQ(editor->selection().ids(), Ids{b});
        ASSERT_EQ(editor->selection().hotGrips().size(), 1u);
    });
    click(100, 400);
    type(L"@0,20");
    run();
    expectLine(a, 100, 100, 300, 100);
    expectLine(b, 100, 420, 300, 420);
}

TEST_F(Pointing, aDoubleClickGoesThroughAViewportAndOutOfIt) {
    line(0, 0, 1000, 0);
    editor->spaces().show(tabsOf(editor->database())[1]);
    look(100, 75, 300);
    // 100 x 50 mm about (100, 75), 1:10 about the model's (500, 0).
    auto* const frame = new AcDbViewport;
    (void)frame->setCenterPoint({100, 75, 0});
    (void)frame->setWidth(100);
    (void)frame->setHeight(50);
    (void)frame->setViewCenter({500, 0});
    (void)frame->setCustomScale(0.1);
    const AcDbObjectId id = add(frame);
    const auto doubleClick = [&](double x, double y) {
        then([this, x, y] {
            mouse(QEvent::MouseButtonDblClick, pixel(x, y), Qt::NoModifier, Qt::LeftButton);
        });
    };
    QPoint middle;
    then([&] { middle = pixel(100, 60); });
    doubleClick(100, 60);
    then([&] {
        ASSERT_EQ(editor->spaces().viewport(), id);
        // The frame stands where it stood: 15 mm below its middle are 150 of the model.
        EXPECT_EQ(pixel(500, -150), middle);
    });
    type(L"_LINE");
    click(500, -150);
    click(600, -150);
    type(L"");
    wheel({400, 300}, 1);
    then([&] {
        // The wheel changes what the frame shows, not where it is.
        EXPECT_GT(frame->customScale(), 0.1);
        EXPECT_EQ(editor->spaces().tabView().height, 300.0);
    });
    doubleClick(5000, 0);
    then([&] {
        EXPECT_TRUE(editor->spaces().drawsOnPaper());
        EXPECT_EQ(editor->screen().view().height, 300.0);
    });
    run();
    EXPECT_EQ(entities().size(), 2u);  // of the model
}

TEST_F(Pointing, escapeGivesUpAFrameAndThenIsTheCommandLines) {
    line(100, 100, 150, 150);
    click(300, 300);
    then([&] { EXPECT_TRUE(canvas.escape()); });
    then([&] { EXPECT_FALSE(canvas.escape()); });
    click(125, 125);  // picks: the frame is gone
    press(Qt::Key_Delete);
    run();
    EXPECT_EQ(editor->selection().ids(), Ids{});
    EXPECT_TRUE(entities().empty() || entities().front().isErased());
}

// --- The picture --------------------------------------------------------------------------------

class Showing : public canvastest::CanvasTest {
protected:
    /// What another canvas paints of the same view, all at once.
    QImage fresh() {
        Canvas other;
        other.resize(canvas.size());
        other.show();
        other.setEditor(editor.get());
        other.setRequest(nullptr);
        const QImage image = shown(other);
        other.setEditor(nullptr);
        return image;
    }
    /// But for a few pixels where a line is cut at the edge of what was painted.
    static testing::AssertionResult alike(const QImage& a, const QImage& b) {
        int different = 0;
        for (int y = 0; y < a.height(); ++y)
            for (int x = 0; x < a.width(); ++x) different += a.pixel(x, y) != b.pixel(x, y) ? 1 : 0;
        const double logical = different / (a.devicePixelRatio() * a.devicePixelRatio());
        if (a.size() == b.size() && logical < 150.0) return testing::AssertionSuccess();
        return testing::AssertionFailure() << different << " pixels differ";
    }
    void drawSomething() {
        for (int i = 0; i < 40; ++i) {
            line(20.0 * i, 10, 900 - 20.0 * i, 590);
            add(new AcDbCircle(AcGePoint3d(20.0 * i, 300, 0), AcGeVector3d::kZAxis,
                               5.0 + 10.0 * i));
        }
    }
};

TEST_F(Showing, whatIsShiftedStretchedAndPatchedLooksLikePaintedAnew) {
    drawSomething();
    (void)shown();
    drag(400, 300, 431, 317, Qt::NoModifier, Qt::MiddleButton);
    then([&] { EXPECT_TRUE(alike(shown(), fresh())) << "moved"; });
    drag(431, 317, 300, 250, Qt::NoModifier, Qt::MiddleButton);
    wheel(QPointF(111, 222), 2);
    then([&] { EXPECT_TRUE(alike(shown(), fresh())) << "enlarged"; });
    wheel(QPointF(500, 100), -7);
    then([&] { EXPECT_TRUE(alike(shown(), fresh())) << "reduced"; });
    run();
    editor->screen().show({AcGePoint3d(400.3, 300.7, 0), 600.0});
    EXPECT_TRUE(alike(shown(), fresh())) << "moved by a fraction";
}

TEST_F(Showing, aChangeRepaintsWhereItWasAndWhereItIs) {
    drawSomething();
    look(400, 300, 600);
    const QImage before = shown();
    const AcDbObjectId id = line(200, 200, 600, 500);
    EXPECT_NE(shown(), before);
    {
        AcDbObjectPointer<AcDbEntity> entity(id, AcDb::kForWrite);
        ASSERT_EQ(entity->transformBy(AcGeMatrix3d::translation({-150, 60, 0})), Acad::eOk);
    }
    canvas.refresh();
    EXPECT_TRUE(alike(shown(), fresh()));
    {
        AcDbObjectPointer<AcDbEntity> entity(id, AcDb::kForWrite);
        ASSERT_EQ(entity->erase(), Acad::eOk);
    }
    canvas.refresh();
    EXPECT_TRUE(alike(shown(), before));
}

TEST_F(Showing, selectionAndGroundAreSeen) {
    const AcDbObjectId id = line(100, 100, 700, 100);
    const QImage before = shown();
    editor->selection().select({id});
    canvas.refresh();
    EXPECT_NE(shown(), before);
    editor->selection().clear();
    canvas.refresh();
    EXPECT_TRUE(alike(shown(), before));
    canvas.setColors(desktop::lightPalette());
    EXPECT_GT(shown().pixelColor(400, 300).lightness(), before.pixelColor(400, 300).lightness());
}

}  // namespace
