// SPDX-License-Identifier: MIT
// Draws foreign entities that show a block, and the texts that go with them.
#include <algorithm>

#include "dbents.h"
#include "prancheta/base/text.h"
#include "prancheta/entities/block_content.h"
#include "prancheta/entities/common.h"
#include "prancheta/entities/foreign_types.h"
#include "prancheta/entities/picture_entities.h"
#include "prancheta/entities/tag_list.h"
#include "prancheta/entities/text_layout.h"
#include "prancheta/graphics/picture_recorder.h"

namespace prancheta {

namespace {

/// Copies of an array and primitives in all of them: files ask for anything.
constexpr int kMostCopies = 10000;

/// From the block's coordinates to the first copy's place in the plane of the insertion.
AcGeMatrix3d firstCopy(const RawTags& tags, AcDbObjectId block) {
    const auto factor = [&](int code) {
        const double value = findNumber(tags, code, 1.0);
        return value != 0.0 ? value : 1.0;
    };
    AcGeMatrix3d scale;
    scale.setCoordSystem(AcGePoint3d::kOrigin, AcGeVector3d::kXAxis * factor(41),
                         AcGeVector3d::kYAxis * factor(42), AcGeVector3d::kZAxis * factor(43));
    return scale * AcGeMatrix3d::translation(-blockOrigin(block).asVector());
}

}  // namespace

void drawDimensionBlock(const ForeignEntity& entity, AcGiWorldDraw& draw) {
    replay(blockPicture(blockShownBy(entity), traitsOf(entity), entity.sinceDrawn()), draw);
}

void drawInsert(const ForeignEntity& entity, AcGiWorldDraw& draw) {
    const std::vector<RawTags> records = recordsOf(entity.tags());
    if (records.empty()) return;
    const RawTags& tags = records[0];
    const AcDbObjectId block = blockShownBy(entity);
    const Picture content = blockPicture(block, traitsOf(entity));
    const AcGeMatrix3d inPlane =
        planeToWorld(planeNormal(tags)) *
        AcGeMatrix3d::translation(findPoint(tags, 10).asVector()) *
        AcGeMatrix3d::rotation(findNumber(tags, 50, 0.0) * kPi / 180.0, AcGeVector3d::kZAxis);
    const AcGeMatrix3d copy = firstCopy(tags, block);
    const int columns = std::clamp(findWhole(tags, 70, 1), 1, kMostCopies);
    const int rows = std::clamp(findWhole(tags, 71, 1), 1, kMostCopies / columns);
    std::size_t drawn = 0;
    for (int i = 0; i < columns * rows && drawn < kMostPrimitives; ++i) {
        const int column = i % columns;
        const int row = i / columns;
        const AcGeVector3d step(findNumber(tags, 44, 0.0) * column, findNumber(tags, 45, 0.0) * row,
                                0.0);
        replayAt(content, inPlane * AcGeMatrix3d::translation(step) * copy, draw);
        drawn += content.size();
    }
    for (const RawTags& record : records)
        if (record[0].code == 0 && trim(std::string_view(record[0].value)) == "ATTRIB")
            drawText(record, 74, draw.geometry());
}

void readText(AcDbText& text, const RawTags& tags, int verticalCode) {
    (void)text.setPosition(findPoint(tags, 10));  // not resident: what is refused stays as usual
    (void)text.setTextString(findText(tags, 1).c_str());
    (void)text.setHeight(findNumber(tags, 40, 2.5));
    (void)text.setRotation(findNumber(tags, 50, 0.0) * kPi / 180.0);
    (void)text.setWidthFactor(findNumber(tags, 41, 1.0));
    (void)text.setHorizontalMode(findWhole(tags, 72, 0));
    (void)text.setVerticalMode(findWhole(tags, verticalCode, 0));
    (void)text.setOblique(findNumber(tags, 51, 0.0) * kPi / 180.0);
    (void)text.mirrorInX((findWhole(tags, 71, 0) & 2) != 0);
    (void)text.mirrorInY((findWhole(tags, 71, 0) & 4) != 0);
    (void)text.setAlignmentPoint(findPoint(tags, 11));
}

void drawText(const RawTags& all, int verticalCode, AcGiGeometry& to) {
    constexpr int kInvisible = 1;
    const RawTags tags(all.begin(), all.begin() + static_cast<std::ptrdiff_t>(knownLength(all)));
    if (verticalCode == 74 && (findWhole(tags, 70, 0) & kInvisible) != 0) return;
    AcDbText text;
    readText(text, tags, verticalCode);
    const TextPlace place = shownPlaceOf(text);
    to.pushModelTransform(planeToWorld(planeNormal(tags)));
    to.text(place.start, AcGeVector3d::kZAxis, place.direction, place.height, place.widthFactor,
            place.oblique, text.textStringConst());
    to.popModelTransform();
}

}  // namespace prancheta
