// SPDX-License-Identifier: MIT
// How primitives look on paper: measured on a picture with ten dots a millimetre.
#include <QPainter>

#include "prancheta/graphics/text_metrics.h"
#include "prancheta/plot/flatten.h"
#include "prancheta/plot/pen_table.h"
#include "prancheta/plot/pens.h"
#include "prancheta/plot/sheet.h"
#include "tests/plot/fixture.h"

namespace plotting {
namespace {

using prancheta::Appearance;
using prancheta::Pens;
using prancheta::PenTable;
using prancheta::Picture;
using prancheta::PicturePainter;
using prancheta::PictureTraits;
using prancheta::Rgb;

class Ink : public Plotted {
protected:
    AcDbObjectId add(AcDbEntity* entity) {
        AcDbObjectPointer<AcDbBlockTableRecord> space(editor->database().currentSpaceId(),
                                                      AcDb::kForWrite);
        AcDbObjectId id;
        EXPECT_EQ(space->appendAcDbEntity(id, entity), Acad::eOk);
        (void)entity->close();
        return id;
    }
    AcDbObjectId linetype(std::initializer_list<double> dashes) {
        auto* record = new AcDbLinetypeTableRecord;
        (void)record->setName(L"ENSAIO");
        (void)record->setNumDashes(static_cast<int>(dashes.size()));
        int index = 0;
        for (const double dash : dashes) (void)record->setDashLengthAt(index++, dash);
        AcDbLinetypeTable* table = nullptr;
        AcDbObjectId id;
        EXPECT_EQ(editor->database().getSymbolTable(table, AcDb::kForWrite), Acad::eOk);
        EXPECT_EQ(table->add(id, record), Acad::eOk);
        (void)record->close();
        (void)table->close();
        return id;
    }
    /// Lengths in millimetres of ink and gap in turn along a row, from the first ink on.
    static std::vector<double> runs(const QImage& image, double y, double from, double to) {
        std::vector<double> out;
        int column = columnOf(from);
        while (column < columnOf(to) && !dark(image, column, rowOf(y))) ++column;
        for (bool ink = true; column < columnOf(to); ink = !ink) {
            const int start = column;
            while (column < columnOf(to) && dark(image, column, rowOf(y)) == ink) ++column;
            out.push_back((column - start) / kPerMillimetre);
        }
        return out;
    }
};

TEST_F(Ink, LineWeightsAreTrueAndColourSevenIsBlack) {
    auto* line = new AcDbLine({20, 50, 0}, {60, 50, 0});
    (void)line->setColorIndex(7);
    (void)line->setLineWeight(AcDb::kLnWt100);
    add(line);
    // Half a millimetre on each side; round ends reach as far.
    expectBox(inkWithin(picture(trueToSize()), {5, 35, 75, 65}), {19.5, 49.5, 60.5, 50.5}, 0.11);
    PlotSettings plain = trueToSize();
    plain.lineWeights = false;
    EXPECT_LT(inkWithin(picture(plain), {5, 35, 75, 65}).height(), 0.25);
}

TEST_F(Ink, DashesKeepTheirLengthsRoundCorners) {
    const AcDbObjectId dashed = linetype({10.0, -5.0});
    auto* bent = new AcDbPolyline;
    (void)bent->addVertexAt(0, AcGePoint2d(20, 100));
    (void)bent->addVertexAt(1, AcGePoint2d(32, 100));
    (void)bent->addVertexAt(2, AcGePoint2d(32, 160));
    (void)bent->setLinetype(dashed);
    add(bent);
    auto* line = new AcDbLine({20, 50, 0}, {90, 50, 0});
    (void)line->setLinetype(dashed);
    (void)line->setLinetypeScale(0.5);
    add(line);
    const QImage image = picture(trueToSize());
    // Scale 0.5: dashes of 5 and gaps of 2.5.
    const std::vector<double> lengths = runs(image, 50, 15, 80);
    ASSERT_GE(lengths.size(), 8U);
    for (std::size_t i = 0; i < 8; ++i) EXPECT_NEAR(lengths[i], i % 2 == 0 ? 5.0 : 2.5, 0.21) << i;
    // 12 to the corner: dash of 10, 2 of the gap; 3 more of it upwards, then a dash again.
    EXPECT_TRUE(inkAt(image, 25, 100));
    EXPECT_FALSE(inkAt(image, 31.3, 100));
    EXPECT_FALSE(inkAt(image, 32, 102));
    EXPECT_TRUE(inkAt(image, 32, 104));
    EXPECT_TRUE(inkAt(image, 32, 112));
    EXPECT_FALSE(inkAt(image, 32, 115.5));
}

TEST_F(Ink, DotsShow) {
    auto* line = new AcDbLine({20, 50, 0}, {40, 50, 0});
    (void)line->setLinetype(linetype({0.0, -4.0}));
    add(line);
    const QImage image = picture(trueToSize());
    EXPECT_TRUE(inkAt(image, 24, 50));
    EXPECT_TRUE(inkAt(image, 28, 50));
    EXPECT_FALSE(inkAt(image, 26, 50));
}

TEST_F(Ink, ArcsAreRound) {
    const AcGePoint3d center(95, 120, 0);
    for (const double radius : {40.0, 94.0})
        add(new AcDbCircle(center, AcGeVector3d::kZAxis, radius));
    // A bulge of 1 is a half circle, to the right of the way from the first point to the second.
    auto* half = new AcDbPolyline;
    (void)half->addVertexAt(0, AcGePoint2d(120, 250), 1.0);
    (void)half->addVertexAt(1, AcGePoint2d(160, 250));
    add(half);
    const QImage image = picture(trueToSize());
    for (int degrees = 0; degrees < 360; degrees += 7) {
        const double angle = degrees * 3.14159265358979 / 180.0;
        const auto at = [&](double radius) {
            return dark(image, columnOf(center.x + radius * std::cos(angle)),
                        rowOf(center.y + radius * std::sin(angle)));
        };
        // Within the weight of 0.25 about the true circle, and nothing beside it.
        for (const double radius : {40.0, 94.0}) {
            EXPECT_TRUE(at(radius)) << degrees;
            EXPECT_FALSE(at(radius - 0.25)) << degrees;
            EXPECT_FALSE(at(radius + 0.25)) << degrees;
        }
    }
    EXPECT_TRUE(inkAt(image, 140, 230));
    EXPECT_FALSE(inkAt(image, 140, 270));
}

/// An arc of ten million pixels' radius on a screen: exact where it is seen, and cheap.
TEST(Flatten, HugeArcsCostWhatIsSeen) {
    constexpr double kRadius = 1e7;
    const QRectF screen(0, 0, 1000, 1000);
    const prancheta::DeviceArc arc{
        {500.0 - kRadius, 500.0}, {kRadius, 0.0}, {0.0, -kRadius}, 6.283185307179586};
    QPainterPath path;
    path.moveTo(arc.at(0.0));
    prancheta::appendChords(path, arc, 0.1, screen);
    EXPECT_LT(path.elementCount(), 300);
    int seen = 0;
    for (int i = 1; i < path.elementCount(); ++i) {
        const QPointF a = path.elementAt(i - 1);
        const QPointF b = path.elementAt(i);
        for (double share = 0.0; share <= 1.0; share += 0.01) {
            const QPointF p = a + (b - a) * share;
            if (!screen.contains(p)) continue;
            ++seen;
            EXPECT_NEAR(std::hypot(p.x() - arc.center.x(), p.y() - arc.center.y()), kRadius, 0.1);
        }
    }
    EXPECT_GT(seen, 0);
}

TEST_F(Ink, PensOfPaper) {
    const auto parsed = [](const char* text) { return PenTable::parse(text, "penas.txt"); };
    const auto table =
        parsed("; penas\ncor 1, objeto, 0.7, 100\r\ncor *,preto,objeto,50\ncamada 0, 3, 0, 100\n");
    ASSERT_TRUE(table);
    Appearance look;
    look.layer = L"Vigas";
    look.colorIndex = 1;
    ASSERT_NE(table->of(look), nullptr);
    EXPECT_FALSE(table->of(look)->ink);
    EXPECT_EQ(table->of(look)->lineWeight, 0.7);
    look.colorIndex = 2;
    EXPECT_EQ(table->of(look)->ink, (Rgb{0, 0, 0}));
    EXPECT_EQ(table->of(look)->screen, 0.5);
    look.layer = L"0";
    EXPECT_EQ(table->of(look)->ink, (Rgb{0, 255, 0}));
    for (const auto& [text, line] : {std::pair{"cor 0, preto, 0.1, 100", 1},
                                     {"\ncor 1, azul, 0.1, 100", 2},
                                     {"camada A, preto, 0.1, 101", 1},
                                     {"cor 1, preto, 6, 100", 1},
                                     {"cor 1, preto", 1}}) {
        const auto wrong = parsed(text);
        ASSERT_FALSE(wrong) << text;
        EXPECT_EQ(wrong.error().line, line) << text;
    }
    // Yellow on white is darkened, what is dark enough stays.
    PicturePainter::Settings settings;
    Pens bare(settings, 1.0);
    Appearance yellow;
    yellow.color = {255, 255, 0};
    Appearance red = yellow;
    red.color = {255, 0, 0};
    const QColor seen = bare.at(bare.of(yellow)).color();
    EXPECT_LT(seen.red(), 170);
    EXPECT_EQ(seen.red(), seen.green());
    EXPECT_EQ(bare.at(bare.of(red)).color(), QColor(255, 0, 0));
    // Half of black is grey, in the width of the pen.
    settings.pens = &*table;
    settings.devicePerMillimetre = 10.0;
    Pens pens(settings, 1.0);
    yellow.layer = red.layer = L"Vigas";
    yellow.colorIndex = 2;
    red.colorIndex = 1;
    EXPECT_EQ(pens.at(pens.of(yellow)).color(), QColor(128, 128, 128));
    EXPECT_EQ(pens.at(pens.of(red)).widthF(), 7.0);
}

TEST_F(Ink, AreasAreFilledAndLaterOnesCoverEarlierOnes) {
    auto* wide = new AcDbPolyline;
    (void)wide->addVertexAt(0, AcGePoint2d(20, 40), 0.0, 10.0, 10.0);
    (void)wide->addVertexAt(1, AcGePoint2d(60, 40), 0.0, 10.0, 10.0);
    add(wide);
    auto* yellow = new AcDbLine({10, 40, 0}, {70, 40, 0});
    (void)yellow->setColorIndex(2);
    (void)yellow->setLineWeight(AcDb::kLnWt100);
    add(yellow);
    // Two triangles turned opposite ways: where they overlap, both are there.
    add(new AcDbSolid({20, 100, 0}, {60, 100, 0}, {40, 140, 0}, {40, 140, 0}));
    add(new AcDbSolid({20, 110, 0}, {40, 150, 0}, {60, 110, 0}, {60, 110, 0}));
    const QImage image = picture(trueToSize());
    for (const double y : {102.0, 120.0, 145.0}) EXPECT_TRUE(inkAt(image, 40, y)) << y;
    EXPECT_FALSE(inkAt(image, 22, 130));
    expectBox(inkWithin(image, {5, 20, 75, 60}), {20, 35, 60, 45}, 0.11);
    EXPECT_FALSE(dark(image, columnOf(40), rowOf(40)));
    EXPECT_TRUE(dark(image, columnOf(40), rowOf(43)));
}

TEST_F(Ink, CoversHideWhatIsDrawnBeforeThemInTheColourOfTheGround) {
    Picture picture;
    PictureTraits wide;
    wide.lineWeight = AcDb::kLnWt211;
    const auto line = [&](double y) {
        const AcGePoint3d ends[] = {{0, y, 0}, {100, y, 0}};
        picture.addPolyline(wide, ends);
    };
    line(50);
    PictureTraits cover = wide;
    cover.marker = prancheta::kCoverMarker;
    const AcGePoint3d corners[] = {{20, 20, 0}, {60, 20, 0}, {60, 80, 0}, {20, 80, 0}};
    picture.addPolygon(cover, corners);
    line(30);
    PicturePainter::Settings settings;
    settings.ground = QColor(10, 20, 30);
    settings.darkGround = true;
    QImage image(100, 100, QImage::Format_RGB32);
    image.fill(settings.ground);
    QPainter painter(&image);
    PicturePainter(painter, editor->appearances(), settings).paint(picture);
    painter.end();
    EXPECT_EQ(image.pixelColor(10, 50), Qt::white);
    EXPECT_EQ(image.pixelColor(40, 50), settings.ground);
    EXPECT_EQ(image.pixelColor(40, 30), Qt::white);
}

TEST_F(Ink, TextsFillTheWidthThatTheHouseReckonsWith) {
    constexpr const wchar_t* kText = L"HHIIHH";
    auto* text = new AcDbText({30, 100, 0}, kText, AcDbObjectId::kNull, 10);
    (void)text->setWidthFactor(1.5);
    add(text);
    const double width = prancheta::textWidth(kText, 10, 1.5);
    const Box2d ink = inkWithin(picture(trueToSize()), {20, 90, 180, 120});
    EXPECT_NEAR(ink.bottom, 100.0, 0.25);
    EXPECT_NEAR(ink.top, 110.0, 0.25);
    // The letters' own side bearings remain white.
    EXPECT_GE(ink.left, 30.0);
    EXPECT_LE(ink.left, 32.5);
    EXPECT_LE(ink.right, 30.0 + width);
    EXPECT_GE(ink.right, 30.0 + width - 2.5);
}

TEST_F(Ink, TextsTurnSlantAndTakeLines) {
    add(new AcDbText({100, 30, 0}, L"HHH", AcDbObjectId::kNull, 10, 3.14159265358979 / 2.0));
    auto* slanted = new AcDbText({20, 200, 0}, L"I", AcDbObjectId::kNull, 20);
    (void)slanted->setOblique(0.7853981633974483);
    add(slanted);
    add(new AcDbText({20, 100, 0}, L"%%uHHH", AcDbObjectId::kNull, 10));
    const QImage image = picture(trueToSize());
    // Upwards from (100, 30), the letters' feet to the right.
    const Box2d turned = inkWithin(image, {80, 20, 120, 80});
    EXPECT_NEAR(turned.right, 100.0, 0.25);
    EXPECT_NEAR(turned.left, 90.0, 0.25);
    EXPECT_GT(turned.height(), 25.0);
    // At 45 degrees the head stands as far to the right as it is high.
    const Box2d foot = inkWithin(image, {10, 200, 60, 202});
    const Box2d head = inkWithin(image, {10, 218, 60, 220});
    EXPECT_NEAR(head.left - foot.left, 18.0, 0.5);
    EXPECT_LT(inkWithin(image, {10, 90, 60, 120}).bottom, 99.0);
}

TEST_F(Ink, PreviewIsTheOutput) {
    add(new AcDbText({30, 100, 0}, L"Viga %%c12", AcDbObjectId::kNull, 10, 0.3));
    add(new AcDbCircle({60, 60, 0}, AcGeVector3d::kZAxis, 40));
    const PlotSettings settings = trueToSize();
    const QImage file = picture(settings);
    QImage preview(file.size(), QImage::Format_RGB32);
    preview.fill(Qt::white);
    QPainter painter(&preview);
    painter.setRenderHint(QPainter::Antialiasing);
    prancheta::paintSheet(painter, QRectF(0, 0, 2100, 2970), *editor, settings);
    painter.end();
    EXPECT_EQ(preview, file.convertToFormat(QImage::Format_RGB32));
}

}  // namespace
}  // namespace plotting
