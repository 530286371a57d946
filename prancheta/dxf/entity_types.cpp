// SPDX-License-Identifier: MIT
// Tables of the entity types.
#include "prancheta/dxf/entity_types.h"

#include <algorithm>
#include <array>

#include "dbents.h"
#include "dbpl.h"
#include "prancheta/dxf/dimension_type.h"
#include "prancheta/dxf/ellipse_type.h"
#include "prancheta/dxf/endless_line_type.h"
#include "prancheta/dxf/hatch_type.h"
#include "prancheta/dxf/leader_type.h"
#include "prancheta/dxf/mtext_type.h"
#include "prancheta/dxf/spline_type.h"
#include "prancheta/dxf/viewport_type.h"
#include "prancheta/geometry/angles.h"

namespace prancheta::dxf {
namespace {

using enum Meaning;

bool isFlat(const Values& values) {
    return values.normal.x == 0.0 && values.normal.y == 0.0 && values.normal.z > 0.0;
}
bool has(const Tags& rest, int code) {
    return std::any_of(rest.begin(), rest.end(), [code](const Tag& t) { return t.code == code; });
}

bool always(const Values&, const Tags&) { return true; }
/// Classes without a normal of their own.
bool flatOnly(const Values& values, const Tags&) { return isFlat(values); }

// --- LINE ----------------------------------------------------------------------------------------

constexpr Field kLine[] = {marker("AcDbLine"), {10, Point, 0}, {11, Point, 1}};

std::unique_ptr<AcDbEntity> makeLine(const Values& v) {
    return std::make_unique<AcDbLine>(v.points[0], v.points[1]);
}
void takeLine(const AcDbEntity& entity, Values& v) {
    const auto& line = static_cast<const AcDbLine&>(entity);
    v.points[0] = line.startPoint();
    v.points[1] = line.endPoint();
}

// --- POINT ---------------------------------------------------------------------------------------

constexpr Field kPoint[] = {marker("AcDbPoint"), {10, Point, 0}};

std::unique_ptr<AcDbEntity> makePoint(const Values& v) {
    return std::make_unique<AcDbPoint>(v.points[0]);
}
void takePoint(const AcDbEntity& entity, Values& v) {
    v.points[0] = static_cast<const AcDbPoint&>(entity).position();
}

// --- CIRCLE --------------------------------------------------------------------------------------

constexpr Field kCircle[] = {
    marker("AcDbCircle"), {10, PlanePoint, 0}, {40, Real, 0}, {210, Normal}};

std::unique_ptr<AcDbEntity> makeCircle(const Values& v) {
    return std::make_unique<AcDbCircle>(v.points[0], v.normal, v.reals[0]);
}
void takeCircle(const AcDbEntity& entity, Values& v) {
    const auto& circle = static_cast<const AcDbCircle&>(entity);
    v.points[0] = circle.center();
    v.normal = circle.normal();
    v.reals[0] = circle.radius();
}

// --- ARC -----------------------------------------------------------------------------------------

constexpr Field kArc[] = {marker("AcDbCircle"), {10, PlanePoint, 0}, {40, Real, 0},   {210, Normal},
                          marker("AcDbArc"),    {50, Degrees, 1},    {51, Degrees, 2}};

std::unique_ptr<AcDbEntity> makeArc(const Values& v) {
    auto arc = std::make_unique<AcDbArc>(v.points[0], v.reals[0], v.reals[1], v.reals[2]);
    if (!isFlat(v)) (void)arc->setNormal(v.normal);  // reading made it no zero vector
    return arc;
}
void takeArc(const AcDbEntity& entity, Values& v) {
    const auto& arc = static_cast<const AcDbArc&>(entity);
    v.points[0] = arc.center();
    v.normal = arc.normal();
    v.reals[0] = arc.radius();
    v.reals[1] = arc.startAngle();
    v.reals[2] = arc.endAngle();
}

// --- LWPOLYLINE ----------------------------------------------------------------------------------

constexpr int kClosed = 1;
constexpr int kPlinegen = 128;

constexpr Field kPolyline[] = {marker("AcDbPolyline"),
                               {90, Integer, 1},
                               {70, Integer, 0},
                               optionalField(43, Real, 1, 0.0),
                               optionalField(38, Real, 0, 0.0),
                               {10, Vertices},
                               {40, VertexStart},
                               {41, VertexEnd},
                               {42, VertexBulge},
                               {210, Normal}};

bool suitsPolyline(const Values& v, const Tags& rest) {
    return !has(rest, 91) && (v.integers[0] & ~(kClosed | kPlinegen)) == 0;
}
std::unique_ptr<AcDbEntity> makePolyline(const Values& v) {
    auto line = std::make_unique<AcDbPolyline>();
    const double width = v.reals[1];
    unsigned index = 0;
    for (const FieldVertex& p : v.vertices)
        (void)line->addVertexAt(index++, {p.x, p.y}, p.bulge, width != 0.0 ? width : p.startWidth,
                                width != 0.0 ? width : p.endWidth);
    (void)line->setClosed((v.integers[0] & kClosed) != 0);
    (void)line->setPlinegen((v.integers[0] & kPlinegen) != 0);
    (void)line->setElevation(v.reals[0]);
    if (!isFlat(v)) (void)line->setNormal(v.normal);
    return line;
}
void takePolyline(const AcDbEntity& entity, Values& v) {
    const auto& line = static_cast<const AcDbPolyline&>(entity);
    v.integers[0] = (line.isClosed() ? kClosed : 0) | (line.hasPlinegen() ? kPlinegen : 0);
    v.integers[1] = line.numVerts();
    v.normal = line.normal();
    v.reals[0] = line.elevation();
    v.vertices.clear();
    const bool tilted = !isFlat(v);
    const AcGeMatrix3d toPlane =
        tilted ? planeToWorld(v.normal).inverse() : AcGeMatrix3d::kIdentity;
    bool sameWidth = true;
    for (unsigned i = 0; i < line.numVerts(); ++i) {
        AcGePoint3d p;
        FieldVertex vertex;
        (void)line.getPointAt(i, p);
        if (tilted) p.transformBy(toPlane);
        (void)line.getBulgeAt(i, vertex.bulge);
        (void)line.getWidthsAt(i, vertex.startWidth, vertex.endWidth);
        vertex.x = p.x;
        vertex.y = p.y;
        v.vertices.push_back(vertex);
        sameWidth = sameWidth && vertex.startWidth == vertex.endWidth &&
                    vertex.startWidth == v.vertices.front().startWidth;
    }
    v.reals[1] = sameWidth && !v.vertices.empty() ? v.vertices.front().startWidth : 0.0;
}

// --- TEXT ----------------------------------------------------------------------------------------

/// What all texts of one line say; behind it each type has its own.
constexpr Field kLineOfText[] = {marker("AcDbText"),
                                 {10, PlanePoint, 0},
                                 {40, Real, 0},
                                 {1, Text, 0},
                                 optionalField(50, Degrees, 1, 0.0),
                                 optionalField(41, Real, 2, 1.0),
                                 optionalField(51, Degrees, 3, 0.0),
                                 optionalField(7, TextStyle, 0, 0.0),
                                 optionalField(71, Integer, 4, 0.0),
                                 optionalField(72, Integer, 0, 0.0),
                                 {11, AlignedPoint, 1},
                                 {210, Normal}};

template <std::size_t N>
constexpr auto lineOfText(const Field (&own)[N]) {
    std::array<Field, std::size(kLineOfText) + N> fields{};
    std::copy(std::begin(own), std::end(own),
              std::copy(std::begin(kLineOfText), std::end(kLineOfText), fields.begin()));
    return fields;
}

constexpr auto kText = lineOfText({marker("AcDbText"), optionalField(73, Integer, 1, 0.0)});

// Bits of group 71.
constexpr int kBackwards = 2;
constexpr int kUpsideDown = 4;

bool suitsText(const Values& v, const Tags&) {
    const bool modes =
        v.integers[0] >= 0 && v.integers[0] <= 5 && v.integers[1] >= 0 && v.integers[1] <= 3;
    const bool letters = (v.integers[4] & ~(kBackwards | kUpsideDown)) == 0;
    return letters && modes && v.reals[0] > 0.0 && v.reals[2] > 0.0;
}
void fillText(AcDbText& text, const Values& v) {
    (void)text.setNormal(v.normal);
    (void)text.mirrorInX((v.integers[4] & kBackwards) != 0);
    (void)text.mirrorInY((v.integers[4] & kUpsideDown) != 0);
    (void)text.setHeight(v.reals[0]);
    (void)text.setRotation(v.reals[1]);
    (void)text.setWidthFactor(v.reals[2]);
    (void)text.setOblique(v.reals[3]);
    (void)text.setHorizontalMode(static_cast<int>(v.integers[0]));
    (void)text.setVerticalMode(static_cast<int>(v.integers[1]));
    if (v.integers[0] != 0 || v.integers[1] != 0) (void)text.setAlignmentPoint(v.points[1]);
    // Readers compute the left end anew; the file's own is kept so that it is written back.
    (void)text.setPosition(v.points[0]);
}
std::unique_ptr<AcDbEntity> makeText(const Values& v) {
    auto text = std::make_unique<AcDbText>(v.points[0], v.texts[0].c_str(), v.ids[0]);
    fillText(*text, v);
    return text;
}
void takeText(const AcDbEntity& entity, Values& v) {
    const auto& text = static_cast<const AcDbText&>(entity);
    v.points[0] = text.position();
    v.points[1] = text.alignmentPoint();
    v.texts[0] = text.textStringConst();
    v.ids[0] = text.textStyle();
    v.reals[0] = text.height();
    v.reals[1] = text.rotation();
    v.reals[2] = text.widthFactor();
    v.reals[3] = text.oblique();
    v.normal = text.normal();
    v.integers[0] = text.horizontalMode();
    v.integers[1] = text.verticalMode();
    v.integers[4] =
        (text.isMirroredInX() ? kBackwards : 0) | (text.isMirroredInY() ? kUpsideDown : 0);
}

// --- ATTDEF, ATTRIB ------------------------------------------------------------------------------

constexpr auto kDefinition = lineOfText({marker("AcDbAttributeDefinition"),
                                         {3, Text, 2},
                                         {2, Text, 1},
                                         {70, Integer, 2},
                                         optionalField(73, Integer, 3, 0.0),
                                         optionalField(74, Integer, 1, 0.0)});
constexpr auto kAttribute = lineOfText({marker("AcDbAttribute"),
                                        {2, Text, 1},
                                        {70, Integer, 2},
                                        optionalField(73, Integer, 3, 0.0),
                                        optionalField(74, Integer, 1, 0.0)});

constexpr int kModes = AcDbAttributeText::kInvisible | AcDbAttributeText::kConstant |
                       AcDbAttributeText::kVerifiable | AcDbAttributeText::kPreset;

/// What stands behind group 101 are several lines in one; 73 is a field's length, which no one
/// uses.
bool suitsAttribute(const Values& v, const Tags& rest) {
    return suitsText(v, rest) && !has(rest, 101) && (v.integers[2] & ~kModes) == 0 &&
           v.integers[3] == 0 && AcDbAttribute().setTag(v.texts[1].c_str()) == Acad::eOk;
}
template <class Attribute>
std::unique_ptr<AcDbEntity> makeAttribute(const Values& v) {
    auto attribute = std::make_unique<Attribute>();
    (void)attribute->setTextString(v.texts[0].c_str());
    (void)attribute->setTextStyle(v.ids[0]);
    fillText(*attribute, v);
    (void)attribute->setTag(v.texts[1].c_str());
    (void)attribute->setModes(static_cast<int>(v.integers[2]));
    if (auto* const definition = AcDbAttributeDefinition::cast(attribute.get()))
        (void)definition->setPrompt(v.texts[2].c_str());
    return attribute;
}
void takeAttribute(const AcDbEntity& entity, Values& v) {
    takeText(entity, v);
    const auto& attribute = static_cast<const AcDbAttributeText&>(entity);
    v.texts[1] = attribute.tagConst();
    v.integers[2] = attribute.modes();
    if (const auto* const definition = AcDbAttributeDefinition::cast(&entity))
        v.texts[2] = definition->promptConst();
}

// --- SOLID ---------------------------------------------------------------------------------------

constexpr Field kSolid[] = {marker("AcDbTrace"), {10, Point, 0}, {11, Point, 1},
                            {12, Point, 2},      {13, Point, 3}, {210, Normal}};

std::unique_ptr<AcDbEntity> makeSolid(const Values& v) {
    return std::make_unique<AcDbSolid>(v.points[0], v.points[1], v.points[2], v.points[3]);
}
void takeSolid(const AcDbEntity& entity, Values& v) {
    const auto& solid = static_cast<const AcDbSolid&>(entity);
    for (Adesk::UInt16 i = 0; i < 4; ++i) (void)solid.getPointAt(i, v.points[i]);
}

// --- INSERT --------------------------------------------------------------------------------------

constexpr int kMostInsertions = 10000;

constexpr Field kInsert[] = {marker("AcDbBlockReference"),
                             optionalField(66, Integer, 0, 0.0),
                             {2, Block, 0},
                             {10, PlanePoint, 0},
                             optionalField(41, Real, 0, 1.0),
                             optionalField(42, Real, 1, 1.0),
                             optionalField(43, Real, 2, 1.0),
                             optionalField(50, Degrees, 3, 0.0),
                             optionalField(70, Integer, 1, 1.0),
                             optionalField(71, Integer, 2, 1.0),
                             optionalField(44, Real, 4, 0.0),
                             optionalField(45, Real, 5, 0.0),
                             {210, Normal}};

bool suitsInsert(const Values& v, const Tags&) {
    const bool scaled = v.reals[0] != 0.0 && v.reals[1] != 0.0;
    const auto inRange = [](long long n) { return n >= 1 && n <= kMostInsertions; };
    return scaled && !v.ids[0].isNull() && inRange(v.integers[1]) && inRange(v.integers[2]) &&
           inRange(v.integers[1] * v.integers[2]);
}
std::unique_ptr<AcDbEntity> makeInsert(const Values& v) {
    const bool isOne =
        v.integers[1] == 1 && v.integers[2] == 1 && v.reals[4] == 0.0 && v.reals[5] == 0.0;
    std::unique_ptr<AcDbBlockReference> insert;
    if (isOne)
        insert = std::make_unique<AcDbBlockReference>(v.points[0], v.ids[0]);
    else
        insert = std::make_unique<AcDbMInsertBlock>(
            v.points[0], v.ids[0], static_cast<int>(v.integers[1]), static_cast<int>(v.integers[2]),
            v.reals[4], v.reals[5]);
    // Programs of the plane write a factor of 0 for z.
    const double z = v.reals[2] != 0.0 ? v.reals[2] : 1.0;
    (void)insert->setScaleFactors({v.reals[0], v.reals[1], z});
    (void)insert->setRotation(v.reals[3]);
    if (!isFlat(v)) (void)insert->setNormal(v.normal);
    return insert;
}
void takeInsert(const AcDbEntity& entity, Values& v) {
    const auto& insert = static_cast<const AcDbBlockReference&>(entity);
    const AcGeVector3d scale = insert.scaleFactors();
    v.points[0] = insert.position();
    v.ids[0] = insert.blockTableRecord();
    v.reals[0] = scale.x;
    v.reals[1] = scale.y;
    v.reals[2] = scale.z;
    v.reals[3] = insert.rotation();
    v.normal = insert.normal();
    v.integers[0] = insert.parts() != nullptr ? 1 : 0;
    const auto* const array = AcDbMInsertBlock::cast(&insert);
    if (array == nullptr) return;
    v.integers[1] = array->columns();
    v.integers[2] = array->rows();
    v.reals[4] = array->columnSpacing();
    v.reals[5] = array->rowSpacing();
}

}  // namespace

std::span<const EntityType> entityTypes() {
    static const std::vector<EntityType> kTypes = [] {
        std::vector<EntityType> types = {
            {"LINE", &AcDbLine::desc, kLine, always, makeLine, takeLine},
            {"POINT", &AcDbPoint::desc, kPoint, always, makePoint, takePoint},
            {"CIRCLE", &AcDbCircle::desc, kCircle, always, makeCircle, takeCircle},
            {"ARC", &AcDbArc::desc, kArc, always, makeArc, takeArc},
            {"LWPOLYLINE", &AcDbPolyline::desc, kPolyline, suitsPolyline, makePolyline,
             takePolyline},
            {"TEXT", &AcDbText::desc, kText, suitsText, makeText, takeText},
            {"SOLID", &AcDbSolid::desc, kSolid, flatOnly, makeSolid, takeSolid},
            {"ATTDEF", &AcDbAttributeDefinition::desc, kDefinition, suitsAttribute,
             makeAttribute<AcDbAttributeDefinition>, takeAttribute},
            {"ATTRIB", &AcDbAttribute::desc, kAttribute, suitsAttribute,
             makeAttribute<AcDbAttribute>, takeAttribute},
            {"INSERT", &AcDbBlockReference::desc, kInsert, suitsInsert, makeInsert, takeInsert},
            // Read as the row above, which makes both.
            {"INSERT", &AcDbMInsertBlock::desc, kInsert, suitsInsert, makeInsert, takeInsert},
        };
        for (const EntityType& type : {ellipseType(), xlineType(), rayType(), mtextType(),
                                       leaderType(), hatchType(), splineType(), viewportType()})
            types.push_back(type);
        for (const EntityType& dimension : dimensionTypes()) types.push_back(dimension);
        return types;
    }();
    return kTypes;
}

const EntityType* entityTypeNamed(std::string_view name) {
    for (const EntityType& type : entityTypes())
        if (name == type.name) return &type;
    return nullptr;
}

const EntityType* entityTypeOf(const AcDbEntity& entity) {
    const AcRxClass* const wanted = entity.isA();
    for (const EntityType& type : entityTypes())
        if (type.desc() == wanted) return &type;
    return nullptr;
}

}  // namespace prancheta::dxf
