// SPDX-License-Identifier: MIT
// Dimensions in files.
#include "prancheta/dxf/dimension_type.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "prancheta/base/text.h"
#include "prancheta/database/object_access.h"
#include "prancheta/dxf/piece_record.h"
#include "prancheta/entities/dimension_layout.h"

namespace prancheta::dxf {
namespace {

using enum Meaning;

constexpr int kKindBits = 7;
constexpr int kOwnBlock = 32;
constexpr int kUserTextPosition = 128;
constexpr int kMiddleCentre = 5;

/// Kinds as group 70 has them.
enum Kind { kRotated, kAligned, kTwoLines, kDiameter, kRadius, kThreePoints };

/// Slots of the points by their groups: 10 to 16 without 12.
enum Place { kPoint10, kTextMiddle, kPoint13, kPoint14, kPoint15, kPoint16 };
enum Number { kOblique, kMeasure, kTextTurn, kTurn, kLeader };

/// The groups that all kinds have, then those of the kind.
template <class... Fields>
constexpr auto dimensionFields(Fields... own) {
    return std::to_array<Field>({marker("AcDbDimension"),
                                 {2, Text, 1},
                                 {10, Point, kPoint10},
                                 {11, Point, kTextMiddle},
                                 {70, Integer, 0},
                                 {1, Text, 0},
                                 {71, Integer, 1, false, kMiddleCentre},
                                 {42, Real, kMeasure},
                                 optionalField(53, Degrees, kTextTurn, 0.0),
                                 {3, DimStyle, 0},
                                 {210, Normal},
                                 own...});
}

constexpr auto kAlignedFields =
    dimensionFields(marker("AcDbAlignedDimension"), Field{13, Point, kPoint13},
                    Field{14, Point, kPoint14}, optionalField(52, Degrees, kOblique, 0.0));
constexpr auto kRotatedFields =
    dimensionFields(marker("AcDbAlignedDimension"), Field{13, Point, kPoint13},
                    Field{14, Point, kPoint14}, optionalField(52, Degrees, kOblique, 0.0),
                    Field{50, Degrees, kTurn}, marker("AcDbRotatedDimension"));
constexpr auto kRadiusFields = dimensionFields(
    marker("AcDbRadialDimension"), Field{15, Point, kPoint15}, Field{40, Real, kLeader});
constexpr auto kDiameterFields = dimensionFields(
    marker("AcDbDiametricDimension"), Field{15, Point, kPoint15}, Field{40, Real, kLeader});
constexpr auto kTwoLineFields = dimensionFields(
    marker("AcDb2LineAngularDimension"), Field{13, Point, kPoint13}, Field{14, Point, kPoint14},
    Field{15, Point, kPoint15}, Field{16, Point, kPoint16});
constexpr auto kThreePointFields =
    dimensionFields(marker("AcDb3PointAngularDimension"), Field{13, Point, kPoint13},
                    Field{14, Point, kPoint14}, Field{15, Point, kPoint15});

/// Groups that say nothing when they have this value; any value where there is none.
struct Harmless {
    int code;
    bool any;
    double value;
};
constexpr Harmless kHarmless[] = {{12, true, 0},
                                  {22, true, 0},
                                  {32, true, 0},
                                  {16, true, 0},
                                  {26, true, 0},
                                  {36, true, 0},
                                  {280, true, 0},
                                  {40, false, 0},
                                  {41, false, 1},
                                  // Of lines of text, which a dimension has one of.
                                  {72, true, 0},
                                  {51, false, 0},
                                  {73, false, 0},
                                  {74, false, 0},
                                  {75, false, 0},
                                  // The angle of a rotated dimension, which others write in all.
                                  {50, true, 0}};

/// What changes the picture or the text of a dimension and is not drawn by here, with the value
/// that changes nothing: tolerances, limits, alternate units, other than decimal units, a hidden
/// half of the line, text at an end, extension lines of one length.
constexpr std::pair<int, int> kNotDrawn[] = {{71, 0},  {72, 0},  {170, 0}, {277, 2},
                                             {281, 0}, {282, 0}, {280, 0}, {290, 0}};

bool isHarmless(const Tag& tag) {
    if (tag.code == 100) return true;
    for (const Harmless& h : kHarmless) {
        double value = 0.0;
        if (h.code == tag.code) return h.any || (parseReal(tag.value, value) && value == h.value);
    }
    return false;
}

bool isDrawn(int code, std::string_view value) {
    long long number = 0;
    return std::ranges::none_of(kNotDrawn, [&](const auto& each) {
        return each.first == code && parseInteger(value, number) && number != each.second;
    });
}

template <Kind kind>
bool suits(const Values& v, const Tags& rest) {
    const bool flat = v.normal.x == 0.0 && v.normal.y == 0.0 && v.normal.z > 0.0;
    return flat && (v.integers[0] & kKindBits) == kind && v.integers[1] == kMiddleCentre &&
           std::all_of(rest.begin(), rest.end(), isHarmless);
}

std::unique_ptr<AcDbDimension> ofKind(Kind kind, const Values& v) {
    const AcGePoint3d(&p)[6] = v.points;
    switch (kind) {
        case kRotated:
            return std::make_unique<AcDbRotatedDimension>(v.reals[kTurn], p[kPoint13], p[kPoint14],
                                                          p[kPoint10]);
        case kAligned:
            return std::make_unique<AcDbAlignedDimension>(p[kPoint13], p[kPoint14], p[kPoint10]);
        case kTwoLines:
            return std::make_unique<AcDb2LineAngularDimension>(
                p[kPoint13], p[kPoint14], p[kPoint15], p[kPoint10], p[kPoint16]);
        case kDiameter:
            return std::make_unique<AcDbDiametricDimension>(p[kPoint15], p[kPoint10],
                                                            v.reals[kLeader]);
        case kRadius:
            return std::make_unique<AcDbRadialDimension>(p[kPoint10], p[kPoint15],
                                                         v.reals[kLeader]);
        default:
            return std::make_unique<AcDb3PointAngularDimension>(p[kPoint15], p[kPoint13],
                                                                p[kPoint14], p[kPoint10]);
    }
}

template <Kind kind>
std::unique_ptr<AcDbEntity> make(const Values& v) {
    std::unique_ptr<AcDbDimension> dimension = ofKind(kind, v);
    (void)dimension->setDimensionText(v.texts[0].c_str());  // not resident: nothing can fail
    (void)dimension->setDimensionStyle(v.ids[0]);
    (void)dimension->setTextRotation(v.reals[kTextTurn]);
    if constexpr (kind == kAligned || kind == kRotated)
        (void)static_cast<PranchetaLinearDimension&>(*dimension).setOblique(v.reals[kOblique]);
    if ((v.integers[0] & kUserTextPosition) != 0)
        (void)dimension->setTextPosition(v.points[kTextMiddle]);
    return dimension;
}

/// Where each definition point goes, in the order of the class.
template <Kind kind>
constexpr auto placesOf() {
    if constexpr (kind == kAligned || kind == kRotated)
        return std::to_array<int>({kPoint13, kPoint14, kPoint10});
    else if constexpr (kind == kRadius)
        return std::to_array<int>({kPoint10, kPoint15});
    else if constexpr (kind == kDiameter)
        return std::to_array<int>({kPoint15, kPoint10});
    else if constexpr (kind == kTwoLines)
        return std::to_array<int>({kPoint13, kPoint14, kPoint15, kPoint10, kPoint16});
    else
        return std::to_array<int>({kPoint15, kPoint13, kPoint14, kPoint10});
}

template <Kind kind>
void take(const AcDbEntity& entity, Values& v) {
    const auto& dimension = static_cast<const AcDbDimension&>(entity);
    v.points[kTextMiddle] = dimension.textPosition();
    std::size_t i = 0;
    for (const int place : placesOf<kind>()) v.points[place] = dimension.definitionPoints()[i++];
    v.integers[0] =
        kind | kOwnBlock | (dimension.isUsingDefaultTextPosition() ? 0 : kUserTextPosition);
    v.integers[1] = kMiddleCentre;
    v.texts[0] = dimension.dimensionTextConst();
    v.ids[0] = dimension.dimensionStyle();
    v.reals[kMeasure] = dimension.measurement();
    v.reals[kTextTurn] = dimension.textRotation();
    if constexpr (kind == kAligned || kind == kRotated)
        v.reals[kOblique] = static_cast<const PranchetaLinearDimension&>(dimension).oblique();
    if constexpr (kind == kRotated)
        v.reals[kTurn] = static_cast<const AcDbRotatedDimension&>(dimension).rotation();
    if constexpr (kind == kRadius || kind == kDiameter)
        v.reals[kLeader] = static_cast<const PranchetaRadialDimension&>(dimension).leaderLength();
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

std::array<EntityType, 6> dimensionTypes() {
    return {{{"DIMENSION", &AcDbAlignedDimension::desc, kAlignedFields, suits<kAligned>,
              make<kAligned>, take<kAligned>},
             {"DIMENSION", &AcDbRotatedDimension::desc, kRotatedFields, suits<kRotated>,
              make<kRotated>, take<kRotated>},
             {"DIMENSION", &AcDbRadialDimension::desc, kRadiusFields, suits<kRadius>, make<kRadius>,
              take<kRadius>},
             {"DIMENSION", &AcDbDiametricDimension::desc, kDiameterFields, suits<kDiameter>,
              make<kDiameter>, take<kDiameter>},
             {"DIMENSION", &AcDb2LineAngularDimension::desc, kTwoLineFields, suits<kTwoLines>,
              make<kTwoLines>, take<kTwoLines>},
             {"DIMENSION", &AcDb3PointAngularDimension::desc, kThreePointFields,
              suits<kThreePoints>, make<kThreePoints>, take<kThreePoints>}}};
}

bool isDrawnAsFiled(AcDbObjectId style, const Tags& xdata) {
    const AcDbStub* const stub = style;
    const ObjectExtra* const extra =
        stub != nullptr && stub->object != nullptr ? ObjectAccess::extra(*stub->object) : nullptr;
    if (extra != nullptr)
        for (const RawTag& tag : extra->foreign)
            if (!isDrawn(tag.code, tag.value)) return false;
    const Tag* code = nullptr;
    bool inStyle = false;
    for (const Tag& tag : xdata) {
        if (tag.code == 1000) inStyle = tag.value == "DSTYLE";
        if (tag.code == 1001 || tag.code == 1002) code = nullptr;
        if (!inStyle || tag.code < 1003) continue;
        long long number = 0;
        if (code == nullptr) {
            code = &tag;
        } else {
            if (parseInteger(code->value, number) && !isDrawn(static_cast<int>(number), tag.value))
                return false;
            code = nullptr;
        }
    }
    return true;
}

std::vector<AcGePoint3d> filedPoints(const AcDbDimension& dimension) {
    const std::span<const AcGePoint3d> own = dimension.definitionPoints();
    std::vector<AcGePoint3d> points(own.begin(), own.end());
    const auto* const linear = dynamic_cast<const PranchetaLinearDimension*>(&dimension);
    if (linear == nullptr) return points;
    const AcGePoint3d through = linear->dimLinePoint();
    const AcGePoint3d filed = definitionPoint10(*linear);
    // A through point that came from a file is the definition point but for rounding.
    const double size = std::max({1.0, std::abs(through.x), std::abs(through.y)});
    if (filed.distanceTo(through) > 1e-9 * size) points.back() = filed;
    return points;
}

std::unique_ptr<AcDbDimension> asFiled(const AcDbDimension& dimension) {
    AcDbEntity* made = nullptr;
    if (dimension.getTransformedCopy(AcGeMatrix3d::kIdentity, made) != Acad::eOk) return nullptr;
    std::unique_ptr<AcDbDimension> copy(static_cast<AcDbDimension*>(made));
    AcDbObjectId style = dimension.dimensionStyle();
    if ((style.isNull() || style.isErased()) && dimension.database() != nullptr)
        style = dimension.database()->dimstyle();
    (void)copy->setDimensionStyle(style);  // not resident: nothing can fail
    const std::vector<AcGePoint3d> points = filedPoints(dimension);
    (void)copy->setDefinitionPoint(points.size() - 1, points.back());
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

void takeThroughPoint(RawTags& xdata, PranchetaLinearDimension& dimension) {
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
