// SPDX-License-Identifier: MIT
// The aligned dimension in files.
#include "prancheta/dxf/dimension_type.h"

#include <algorithm>
#include <cmath>

#include "prancheta/base/text.h"
#include "prancheta/dxf/piece_record.h"
#include "prancheta/entities/dimension_layout.h"

namespace prancheta::dxf {
namespace {

using enum Meaning;

constexpr int kAligned = 1;
constexpr int kKindBits = 7;
constexpr int kOwnBlock = 32;
constexpr int kUserTextPosition = 128;
constexpr int kMiddleCentre = 5;

constexpr Field kDimension[] = {marker("AcDbDimension"),
                                {2, Text, 1},
                                {10, Point, 0},
                                {11, Point, 1},
                                {70, Integer, 0},
                                {1, Text, 0},
                                {71, Integer, 1, false, kMiddleCentre},
                                {42, Real, 1},
                                {3, DimStyle, 0},
                                {210, Normal},
                                marker("AcDbAlignedDimension"),
                                {13, Point, 2},
                                {14, Point, 3},
                                optionalField(52, Degrees, 0, 0.0)};

/// Groups that say nothing when they have this value; any value where there is none.
struct Harmless {
    int code;
    bool any;
    double value;
};
constexpr Harmless kHarmless[] = {{12, true, 0},
                                  {22, true, 0},
                                  {32, true, 0},
                                  {280, true, 0},
                                  {41, false, 1},
                                  // Of lines of text, which a dimension has one of.
                                  {72, true, 0},
                                  {51, false, 0},
                                  {53, false, 0},
                                  {73, false, 0},
                                  {74, false, 0},
                                  {75, false, 0},
                                  // The angle of a rotated dimension, which others write in all.
                                  {50, true, 0}};

bool isHarmless(const Tag& tag) {
    if (tag.code == 100) return true;
    for (const Harmless& h : kHarmless) {
        double value = 0.0;
        if (h.code == tag.code) return h.any || (parseReal(tag.value, value) && value == h.value);
    }
    return false;
}

bool suits(const Values& v, const Tags& rest) {
    const bool flat = v.normal.x == 0.0 && v.normal.y == 0.0 && v.normal.z > 0.0;
    return flat && (v.integers[0] & kKindBits) == kAligned && v.integers[1] == kMiddleCentre &&
           std::all_of(rest.begin(), rest.end(), isHarmless);
}

std::unique_ptr<AcDbEntity> make(const Values& v) {
    auto dimension = std::make_unique<AcDbAlignedDimension>(v.points[2], v.points[3], v.points[0],
                                                            v.texts[0].c_str(), v.ids[0]);
    (void)dimension->setOblique(v.reals[0]);
    if ((v.integers[0] & kUserTextPosition) != 0) (void)dimension->setTextPosition(v.points[1]);
    return dimension;
}

void take(const AcDbEntity& entity, Values& v) {
    const auto& dimension = static_cast<const AcDbAlignedDimension&>(entity);
    v.points[0] = dimension.dimLinePoint();
    v.points[1] = dimension.textPosition();
    v.points[2] = dimension.xLine1Point();
    v.points[3] = dimension.xLine2Point();
    v.integers[0] =
        kAligned | kOwnBlock | (dimension.isUsingDefaultTextPosition() ? 0 : kUserTextPosition);
    v.integers[1] = kMiddleCentre;
    v.texts[0] = dimension.dimensionTextConst();
    v.ids[0] = dimension.dimensionStyle();
    v.reals[0] = dimension.oblique();
    v.reals[1] = dimension.measurement();
}

/// First group of the overrides and the one that closes them; equal when there are none.
struct Overrides {
    std::size_t open = 0;  ///< group 1002 {
    std::size_t close = 0;
};

Overrides findOverrides(const RawTags& xdata) {
    bool inAcad = false;
    for (std::size_t i = 0; i + 1 < xdata.size(); ++i) {
        if (xdata[i].code == 1001) inAcad = xdata[i].value == "ACAD";
        if (!inAcad || xdata[i].code != 1000 || xdata[i].value != "DSTYLE") continue;
        if (xdata[i + 1].code != 1002 || xdata[i + 1].value != "{") continue;
        for (std::size_t end = i + 2; end < xdata.size(); ++end)
            if (xdata[end].code == 1002 && xdata[end].value == "}") return {i + 1, end};
    }
    return {};
}

std::ptrdiff_t at(std::size_t i) { return static_cast<std::ptrdiff_t>(i); }

constexpr const char* kDimscaleCode = "40";

}  // namespace

EntityType alignedDimensionType() {
    return {"DIMENSION", &AcDbAlignedDimension::desc, kDimension, suits, make, take};
}

AcGePoint3d filedThroughPoint(const AcDbAlignedDimension& dimension) {
    const AcGePoint3d through = dimension.dimLinePoint();
    const AcGePoint3d filed = definitionPoint10(dimension);
    // A through point that came from a file is the definition point but for rounding.
    const double size = std::max({1.0, std::abs(through.x), std::abs(through.y)});
    return filed.distanceTo(through) <= 1e-9 * size ? through : filed;
}

std::unique_ptr<AcDbAlignedDimension> asFiled(const AcDbAlignedDimension& dimension) {
    const AcGePoint3d filed = filedThroughPoint(dimension);
    AcDbObjectId style = dimension.dimensionStyle();
    if ((style.isNull() || style.isErased()) && dimension.database() != nullptr)
        style = dimension.database()->dimstyle();
    auto copy =
        std::make_unique<AcDbAlignedDimension>(dimension.xLine1Point(), dimension.xLine2Point(),
                                               filed, dimension.dimensionTextConst(), style);
    (void)copy->setPropertiesFrom(&dimension);
    (void)copy->setDimscale(dimension.ownDimscale());
    (void)copy->setOblique(dimension.oblique());
    if (!dimension.isUsingDefaultTextPosition())
        (void)copy->setTextPosition(dimension.textPosition());
    return copy;
}

double takeDimscale(RawTags& xdata) {
    const Overrides found = findOverrides(xdata);
    for (std::size_t i = found.open + 1; i + 1 < found.close; i += 2) {
        double scale = 0.0;
        if (xdata[i].code != 1070 || trim(xdata[i].value) != kDimscaleCode ||
            !parseReal(xdata[i + 1].value, scale))
            continue;
        const bool alone = found.close - found.open == 3;
        const std::size_t first = alone ? found.open - 1 : i;
        const std::size_t last = alone ? found.close + 1 : i + 2;
        const bool wholeApplication = alone && xdata[first - 1].code == 1001 &&
                                      (last == xdata.size() || xdata[last].code == 1001);
        xdata.erase(xdata.begin() + at(wholeApplication ? first - 1 : first),
                    xdata.begin() + at(last));
        return scale;
    }
    return 0.0;
}

void putDimscale(RawTags& xdata, double scale) {
    std::string number = numberText(scale);
    if (number.find_first_of(".e") == std::string::npos) number += ".0";
    const RawTag pair[] = {{1070, kDimscaleCode}, {1040, number}};
    const Overrides found = findOverrides(xdata);
    if (found.close != found.open) {
        xdata.insert(xdata.begin() + at(found.open + 1), std::begin(pair), std::end(pair));
        return;
    }
    const RawTag group[] = {{1000, "DSTYLE"}, {1002, "{"}, pair[0], pair[1], {1002, "}"}};
    const auto acad = std::find_if(xdata.begin(), xdata.end(), [](const RawTag& tag) {
        return tag.code == 1001 && tag.value == "ACAD";
    });
    if (acad != xdata.end()) {
        xdata.insert(acad + 1, std::begin(group), std::end(group));
        return;
    }
    xdata.push_back({1001, "ACAD"});
    xdata.insert(xdata.end(), std::begin(group), std::end(group));
}

void takeThroughPoint(RawTags& xdata, AcDbAlignedDimension& dimension) {
    constexpr std::size_t kGroups = 4;  // 1001 and the three coordinates
    constexpr double kOnLine = 1e-7;
    const auto first = std::find_if(xdata.begin(), xdata.end(), [](const RawTag& tag) {
        return tag.code == 1001 && tag.value == kPieceApplication;
    });
    if (xdata.end() - first < at(kGroups) || first[1].code != 1011) return;
    AcGePoint3d through;
    const bool read = parseReal(first[1].value, through.x) &&
                      parseReal(first[2].value, through.y) && parseReal(first[3].value, through.z);
    xdata.erase(first, first + at(kGroups));
    if (!read) return;
    const AcGePoint3d filed = dimension.dimLinePoint();
    (void)dimension.setDimLinePoint(through);
    const double size = std::max({1.0, std::abs(through.x), std::abs(through.y)});
    // Another program may have moved the line and left our point behind.
    if (definitionPoint10(dimension).distanceTo(filed) > kOnLine * size)
        (void)dimension.setDimLinePoint(filed);
}

}  // namespace prancheta::dxf
