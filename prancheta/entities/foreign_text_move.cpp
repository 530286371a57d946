// SPDX-License-Identifier: MIT
// Turns the texts of foreign entities. A mirror keeps them readable in the mirrored place: either
// what was on top is at the bottom, or what was left is right.
#include <algorithm>
#include <cmath>

#include "dbents.h"
#include "dbsymtb.h"
#include "prancheta/base/text.h"
#include "prancheta/entities/common.h"
#include "prancheta/entities/foreign_types.h"
#include "prancheta/entities/tag_list.h"
#include "prancheta/graphics/text_metrics.h"

namespace prancheta {

namespace {

/// How a text runs after a motion.
struct Reading {
    AcGeVector3d along;      ///< unit length
    bool headDown = false;   ///< top and bottom have changed places
    bool backwards = false;  ///< left and right have
};

Reading readingAfter(const AcGeVector3d& along, const AcGeVector3d& normal, const Motion& world) {
    Reading reading{(world.matrix * along).normal()};
    if (!world.mirrored) return reading;
    const AcGeMatrix3d plane = planeToWorld(mappedNormal(world.matrix, normal));
    reading.headDown = isReadable(plane.inverse() * reading.along);
    reading.backwards = !reading.headDown;
    if (reading.backwards) reading.along = -reading.along;
    return reading;
}

std::size_t firstOf(const RawTags& tags, int code) {
    std::size_t i = 0;
    while (i < tags.size() && tags[i].code != code) ++i;
    return i;
}

void setDirection(RawTags& tags, int code, const AcGeVector3d& v) {
    const std::size_t i = firstOf(tags, code);
    if (i == tags.size())
        for (const int step : {0, 10, 20}) tags.push_back({code + step, "0"});
    setPointAt(tags, i, AcGePoint3d::kOrigin + v);
}

/// 1 to 3: left, centre, right.
void swapSides(RawTag& tag) {
    const int side = tagWhole(tag);
    if (side >= 1 && side <= 3) setNumber(tag, 4 - side);
}

/// Rough: compartments of symbols and texts, with the usual height where the style is unknown.
double frameWidth(const RawTags& tags) {
    const double height = AcDbDimStyleValues().dimtxt;
    double width = 0.0;
    for (std::wstring text = findText(tags, 1); !text.empty();) {
        const std::size_t end = std::min(text.find(L"%%v"), text.size());
        const std::wstring shown = plainParagraphs(text.substr(0, end)).front();
        if (!shown.empty()) width += textWidth(shown, height, 1.0) + height;
        text.erase(0, end + 3);
    }
    return width;
}

}  // namespace

void turnParagraphs(RawTags& tags, const RawTags& before, const Motion& world, const Motion&) {
    if (world.onlyMoves) return;
    const Reading reading = readingAfter(paragraphDirection(before), planeNormal(before), world);
    // The angle and the direction say the same, and the last one counts.
    const std::size_t angle = firstOf(tags, 50);
    if (angle < firstOf(tags, 75) && angle < tags.size())
        tags.erase(tags.begin() + static_cast<std::ptrdiff_t>(angle));
    setDirection(tags, 11, reading.along);
    const int attachment = findWhole(tags, 71, 1);
    if (!world.mirrored || attachment < 1 || attachment > 9) return;
    const int column = (attachment - 1) % 3;
    const int row = (attachment - 1) / 3;
    setFirst(
        tags, 71,
        1 + (reading.headDown ? 2 - row : row) * 3 + (reading.backwards ? 2 - column : column));
}

void turnTolerance(RawTags& tags, const RawTags& before, const Motion& world, const Motion&) {
    const AcGeVector3d along = findPoint(before, 11, {1, 0, 0}).asVector();
    const Reading reading = readingAfter(along, planeNormal(before), world);
    const std::size_t at = firstOf(tags, 10);
    if (!reading.backwards || at == tags.size()) return;
    setDirection(tags, 11, reading.along);
    setPointAt(tags, at, pointAt(tags, at) - reading.along * frameWidth(before) * world.scale);
}

void turnText(RawTags& tags, const RawTags& before, int verticalCode, const Motion& plane) {
    if (!plane.mirrored) return;
    AcDbText text;
    readText(text, before, verticalCode);
    if (text.transformBy(plane.matrix) != Acad::eOk) return;  // not resident: cannot be refused
    if (const std::size_t i = firstOf(tags, 10); i < tags.size())
        setPointAt(tags, i, text.position());
    if (const std::size_t i = firstOf(tags, 11); i < tags.size())
        setPointAt(tags, i, text.alignmentPoint());
    setFirst(tags, 50, movedReadingAngle(findNumber(before, 50, 0.0), plane));
}

namespace {

/// Content of a MULTILEADER: the groups right inside CONTEXT_DATA{, and those of the entity itself.
struct Content {
    RawTags inside;
    std::vector<std::size_t> insideAt;
    std::vector<std::size_t> outsideAt;
};

Content contentOf(const RawTags& tags) {
    Content content;
    int depth = 0;
    for (std::size_t i = 0; i < tags.size(); ++i) {
        if (tags[i].code == 300 + 2 * depth && tags[i].value.ends_with('{')) {
            ++depth;
        } else if (depth > 0 && tags[i].code == 299 + 2 * depth) {
            --depth;
        } else if (depth == 1) {
            content.inside.push_back(tags[i]);
            content.insideAt.push_back(i);
        } else if (depth == 0) {
            content.outsideAt.push_back(i);
        }
    }
    return content;
}

void turnLeaderText(RawTags& inside, const RawTags& before, const Motion& world) {
    const AcGeVector3d normal = findPoint(before, 11, {0, 0, 1}).asVector();
    const AcGeVector3d along = findPoint(before, 13, {1, 0, 0}).asVector();
    const Reading reading = readingAfter(along, normal, world);
    setDirection(inside, 13, reading.along);
    if (const std::size_t i = firstOf(inside, 171); reading.backwards && i < inside.size())
        swapSides(inside[i]);
    if (const std::size_t i = firstOf(inside, 42); reading.backwards && i < inside.size())
        setNumber(inside[i], positiveAngle(tagNumber(inside[i]) + kPi));
    const std::size_t at = firstOf(inside, 12);
    if (!reading.headDown || at == inside.size()) return;
    // It hangs from its place.
    const AcGeVector3d up = mappedNormal(world.matrix, normal).crossProduct(reading.along);
    ParagraphStyle style;
    style.height = findNumber(before, 41, 0.0);
    style.width = findNumber(before, 43, 0.0);
    style.spacing = findNumber(before, 45, 1.0);
    const double height = setParagraphs(findText(before, 304), style).height;
    setPointAt(inside, at, pointAt(inside, at) + up * height * world.scale);
}

/// A mirror shows in the factor of x.
void turnLeaderBlock(RawTags& inside, const Motion& world) {
    const std::size_t factor = firstOf(inside, 16);
    const std::size_t angle = firstOf(inside, 46);
    if (!world.mirrored || factor == inside.size()) return;
    setNumber(inside[factor], 0.0 - tagNumber(inside[factor]));
    if (angle < inside.size())
        setNumber(inside[angle], positiveAngle(tagNumber(inside[angle]) + kPi));
}

/// The matrix of the block, row by row.
void moveLeaderMatrix(RawTags& inside, const Motion& world) {
    const std::size_t first = firstOf(inside, 47);
    if (first + 16 > inside.size()) return;
    AcGeMatrix3d m;
    for (std::size_t i = 0; i < 16; ++i) {
        if (inside[first + i].code != 47) return;
        m.entry[i / 4][i % 4] = tagNumber(inside[first + i]);
    }
    m = world.matrix * m;
    for (std::size_t i = 0; i < 16; ++i) setNumber(inside[first + i], m.entry[i / 4][i % 4]);
}

}  // namespace

void turnMultileader(RawTags& tags, const RawTags& before, const Motion& world, const Motion&) {
    Content content = contentOf(tags);
    RawTags& inside = content.inside;
    const std::size_t groups = inside.size();
    const bool ofText = firstOf(inside, 304) < groups && firstOf(inside, 13) < groups;
    if (ofText && world.mirrored) turnLeaderText(inside, contentOf(before).inside, world);
    turnLeaderBlock(inside, world);
    moveLeaderMatrix(inside, world);
    if (const std::size_t i = firstOf(inside, 297); world.mirrored && i < groups)
        setNumber(inside[i], tagWhole(inside[i]) != 0 ? 0.0 : 1.0);
    for (std::size_t i = 0; i < groups; ++i) tags[content.insideAt[i]] = inside[i];

    // The entity says again what its content says.
    const AcGePoint3d factors = findPoint(inside, 16, {0, 0, 0});
    for (const std::size_t i : content.outsideAt) {
        if (tags[i].code == 179 && ofText && world.mirrored)
            setNumber(tags[i], findNumber(inside, 171, tagNumber(tags[i])));
        if (factors.asVector().isZeroLength()) continue;
        if (tags[i].code == 10) setPointAt(tags, i, factors);
        if (tags[i].code == 43) setNumber(tags[i], findNumber(inside, 46, tagNumber(tags[i])));
    }
}

}  // namespace prancheta
