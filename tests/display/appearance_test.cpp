// SPDX-License-Identifier: MIT
// Colours of the palette, dashes, line weights, by layer and by block.
#include "prancheta/display/appearance.h"

#include "../entities/fixture.h"
#include "prancheta/database/database_core.h"
#include "prancheta/database/object_access.h"

using namespace prancheta;

namespace {

// Values of the published colour index, which every exchange library lists.
TEST(Palette, spotValues) {
    const struct {
        int index;
        Rgb color;
    } kKnown[] = {
        {1, {255, 0, 0}},     {2, {255, 255, 0}},    {5, {0, 0, 255}},       {8, {128, 128, 128}},
        {10, {255, 0, 0}},    {11, {255, 127, 127}}, {12, {165, 0, 0}},      {13, {165, 82, 82}},
        {14, {127, 0, 0}},    {15, {127, 63, 63}},   {19, {38, 19, 19}},     {20, {255, 63, 0}},
        {30, {255, 127, 0}},  {50, {255, 255, 0}},   {90, {0, 255, 0}},      {92, {0, 165, 0}},
        {130, {0, 255, 255}}, {170, {0, 0, 255}},    {210, {255, 0, 255}},   {230, {255, 0, 127}},
        {240, {255, 0, 63}},  {250, {51, 51, 51}},   {255, {255, 255, 255}},
    };
    for (const auto& known : kKnown) {
        const Rgb color = paletteColor(known.index);
        EXPECT_TRUE(color == known.color) << known.index << ": " << int(color.red) << ' '
                                          << int(color.green) << ' ' << int(color.blue);
    }
}

class AppearanceTest : public EntityTest {
protected:
    AcDbObjectId pattern(const wchar_t* name, std::initializer_list<double> dashes) {
        const AcDbObjectId id = database.core().ensureLinetype(name);
        const AcDbObjectPointer<AcDbLinetypeTableRecord> record(id, AcDb::kForWrite);
        (void)record->setNumDashes(static_cast<int>(dashes.size()));
        int at = 0;
        for (const double length : dashes) (void)record->setDashLengthAt(at++, length);
        return id;
    }
    PictureTraits traitsOn(AcDbObjectId layer) const {
        PictureTraits traits;
        traits.layer = layer;
        traits.linetype = database.byLayerLinetype();
        return traits;
    }
    using Dashes = std::vector<double>;
};

TEST_F(AppearanceTest, byLayerIsTheLayersAndFollowsIt) {
    const AcDbObjectId id = layer(L"Eixos");
    {
        const AcDbObjectPointer<AcDbLayerTableRecord> record(id, AcDb::kForWrite);
        (void)record->setColorIndex(1);
        (void)record->setLineWeight(AcDb::kLnWt050);
        (void)record->setLinetypeObjectId(pattern(L"TRACOS", {4, -2}));
    }
    AppearanceTable table(database);
    const Appearance look = table.of(traitsOn(id));
    EXPECT_TRUE(look.color == (Rgb{255, 0, 0}));
    EXPECT_FALSE(look.followsGround);
    EXPECT_EQ(look.lineWeight, 0.5);
    EXPECT_EQ(look.dashes, (Dashes{4, 2}));
    EXPECT_EQ(look.dashPeriod, 6.0);
    {
        const AcDbObjectPointer<AcDbLayerTableRecord> record(id, AcDb::kForWrite);
        (void)record->setColorIndex(7);
    }
    EXPECT_TRUE(table.of(traitsOn(id)).followsGround);

    // A true colour of the layer, and one of an entity over it; pens go by what is nearest.
    {
        const AcDbObjectPointer<AcDbLayerTableRecord> record(id, AcDb::kForWrite);
        (void)record->setColorIndex(3);
        ObjectAccess::setTrueColor(*record.object(), {0, 250, 2});
    }
    EXPECT_TRUE(table.of(traitsOn(id)).color == (Rgb{0, 250, 2}));
    EXPECT_EQ(table.of(traitsOn(id)).colorIndex, 3);
    EXPECT_FALSE(table.of(traitsOn(id)).followsGround);
    PictureTraits own = traitsOn(id);
    own.trueColor = Rgb{255, 255, 255};
    EXPECT_TRUE(table.of(own).color == (Rgb{255, 255, 255}));
    EXPECT_FALSE(table.of(own).followsGround);
    own.trueColor.reset();
    own.color = 3;
    own.lineWeight = AcDb::kLnWt013;
    own.linetype = database.continuousLinetype();
    EXPECT_TRUE(table.of(own).color == (Rgb{0, 255, 0}));
    EXPECT_EQ(table.of(own).lineWeight, 0.13);
    EXPECT_TRUE(table.of(own).dashes.empty());
}

TEST_F(AppearanceTest, outsideBlocksByBlockIsPlain) {
    AppearanceTable table(database);
    PictureTraits traits = traitsOn(database.layerZero());
    traits.color = 0;
    traits.lineWeight = AcDb::kLnWtByBlock;
    traits.linetype = database.byBlockLinetype();
    const Appearance& look = table.of(traits);
    EXPECT_TRUE(look.color == (Rgb{255, 255, 255}));
    EXPECT_TRUE(look.followsGround);
    EXPECT_EQ(look.lineWeight, 0.25);
    EXPECT_TRUE(look.dashes.empty());
}

TEST_F(AppearanceTest, dashesBeginWithTheDashAndComeInPairs) {
    AppearanceTable table(database);
    PictureTraits traits = traitsOn(database.layerZero());
    const auto dashes = [&](const wchar_t* name, std::initializer_list<double> lengths) {
        traits.linetype = pattern(name, lengths);
        return table.of(traits).dashes;
    };
    EXPECT_EQ(dashes(L"PONTO", {0, -5}), (Dashes{0, 5}));
    EXPECT_EQ(dashes(L"VAO_ANTES", {-1, 2}), (Dashes{2, 1}));
    EXPECT_EQ(dashes(L"JUNTOS", {2, 3, -1}), (Dashes{5, 1}));
    EXPECT_EQ(dashes(L"VOLTA", {2, -1, 3}), (Dashes{5, 1}));
    EXPECT_EQ(dashes(L"VAO_VOLTA", {-1, 2, -3}), (Dashes{2, 4}));
    EXPECT_EQ(dashes(L"EIXO", {30, -5, 5, -5}), (Dashes{30, 5, 5, 5}));
    EXPECT_EQ(dashes(L"CHEIA", {3}), Dashes());
    EXPECT_EQ(dashes(L"NADA", {0, 0}), Dashes());
}

TEST_F(AppearanceTest, scalesMultiply) {
    PictureTraits traits = traitsOn(database.layerZero());
    traits.linetype = database.core().ensureLinetype(L"HIDDEN");  // 6.35, -3.175
    traits.linetypeScale = 3.0;
    AppearanceTable table(database);
    (void)database.setLtscale(2.0);
    EXPECT_DOUBLE_EQ(table.of(traits).dashes[0], 38.1);
    EXPECT_DOUBLE_EQ(table.of(traits).dashes[1], 19.05);
    EXPECT_DOUBLE_EQ(table.of(traits).dashPeriod, 57.15);
    (void)database.setLtscale(1.0);
    table.invalidate();
    EXPECT_DOUBLE_EQ(table.of(traits).dashes[0], 19.05);
    traits.linetypeScale = 1.0;
    EXPECT_DOUBLE_EQ(table.of(traits).dashes[0], 6.35);
}

}  // namespace
