// SPDX-License-Identifier: MIT
// Tables of the symbol table records.
#include "prancheta/dxf/record_types.h"

#include <algorithm>
#include <cstdlib>

#include "prancheta/database/dim_variables.h"
#include "prancheta/database/object_access.h"

namespace prancheta::dxf {
namespace {

using enum Meaning;

Field handleField(int code) {
    return {code, DefaultHandle, kDefaultHandleSlot, false, 0.0, nullptr};
}

// --- LTYPE ---------------------------------------------------------------------------------------

const Field kLinetype[] = {marker("AcDbLinetypeTableRecord"),
                           {2, Text, 0},
                           defaultField(70, 0),
                           {3, Text, 1},
                           defaultField(72, 65),
                           {73, Integer, 0},
                           {40, Real, 0},
                           {49, Dashes},
                           {74, Ignored}};

std::unique_ptr<AcDbSymbolTableRecord> makeLinetype(const Values& v) {
    auto record = std::make_unique<AcDbLinetypeTableRecord>();
    (void)record->setComments(v.texts[1].c_str());
    ObjectAccess::dashes(*record) = v.dashes;
    return record;
}
void takeLinetype(const AcDbSymbolTableRecord& any, Values& v) {
    const auto& record = static_cast<const AcDbLinetypeTableRecord&>(any);
    v.texts[1] = record.comments();
    v.dashes.clear();
    for (int i = 0; i < record.numDashes(); ++i) v.dashes.push_back(record.dashLengthAt(i));
    v.integers[0] = record.numDashes();
    v.reals[0] = record.patternLength();
}

// --- LAYER ---------------------------------------------------------------------------------------

constexpr int kFrozen = 1;
constexpr int kLocked = 4;

const Field kLayer[] = {
    marker("AcDbLayerTableRecord"), {2, Text, 0},     {70, Integer, 0},
    {62, Integer, 1, false, 7},     {6, Linetype, 0}, optionalField(290, Integer, 2, 1),
    {370, Integer, 3, false, -3},   handleField(390)};

std::unique_ptr<AcDbSymbolTableRecord> makeLayer(const Values& v) {
    auto record = std::make_unique<AcDbLayerTableRecord>();
    ObjectAccess::setFrozen(*record, (v.integers[0] & kFrozen) != 0);
    (void)record->setIsLocked((v.integers[0] & kLocked) != 0);
    (void)record->setIsOff(v.integers[1] < 0);
    const long long color = std::llabs(std::clamp(v.integers[1], -256LL, 256LL));
    (void)record->setColorIndex(static_cast<Adesk::UInt16>(color >= 1 && color <= 255 ? color : 7));
    if (!v.ids[0].isNull()) (void)record->setLinetypeObjectId(v.ids[0]);
    (void)record->setIsPlottable(v.integers[2] != 0);
    (void)record->setLineWeight(static_cast<AcDb::LineWeight>(v.integers[3]));
    return record;
}
void takeLayer(const AcDbSymbolTableRecord& any, Values& v) {
    const auto& record = static_cast<const AcDbLayerTableRecord&>(any);
    v.integers[0] |= (record.isFrozen() ? kFrozen : 0) | (record.isLocked() ? kLocked : 0);
    v.integers[1] = record.isOff() ? -record.colorIndex() : record.colorIndex();
    v.integers[2] = record.isPlottable() ? 1 : 0;
    v.integers[3] = record.lineWeight();
    v.ids[0] = record.linetypeObjectId();
}

// --- STYLE ---------------------------------------------------------------------------------------

const Field kTextStyle[] = {marker("AcDbTextStyleTableRecord"),
                            {2, Text, 0},
                            defaultField(70, 0),
                            {40, Real, 0},
                            {41, Real, 1, false, 1.0},
                            {50, Degrees, 2},
                            defaultField(71, 0),
                            defaultField(42, 2.5),
                            {3, Text, 1},
                            {4, DefaultText, 0, false, 0.0, ""}};

std::unique_ptr<AcDbSymbolTableRecord> makeTextStyle(const Values& v) {
    auto record = std::make_unique<AcDbTextStyleTableRecord>();
    (void)record->setTextSize(v.reals[0]);
    (void)record->setXScale(v.reals[1]);
    (void)record->setObliquingAngle(v.reals[2]);
    (void)record->setFileName(v.texts[1].c_str());
    return record;
}
void takeTextStyle(const AcDbSymbolTableRecord& any, Values& v) {
    const auto& record = static_cast<const AcDbTextStyleTableRecord&>(any);
    v.reals[0] = record.textSize();
    v.reals[1] = record.xScale();
    v.reals[2] = record.obliquingAngle();
    v.texts[1] = record.fileName();
}

// --- APPID ---------------------------------------------------------------------------------------

const Field kRegApp[] = {marker("AcDbRegAppTableRecord"), {2, Text, 0}, defaultField(70, 0)};

std::unique_ptr<AcDbSymbolTableRecord> makeRegApp(const Values&) {
    return std::make_unique<AcDbRegAppTableRecord>();
}
void takeNothing(const AcDbSymbolTableRecord&, Values&) {}

// --- DIMSTYLE ------------------------------------------------------------------------------------

const Field kDimStyle[] = {marker("AcDbDimStyleTableRecord"),
                           {2, Text, 0},
                           defaultField(70, 0),
                           {40, Real, 0, false, 1.0},
                           {41, Real, 1, false, 2.5},
                           {42, Real, 2, false, 0.625},
                           {43, Real, 3, false, 3.75},
                           {44, Real, 4, false, 1.25},
                           {140, Real, 5, false, 2.5},
                           {147, Real, 6, false, 0.625},
                           optionalField(45, Real, 7, 0.0),
                           optionalField(142, Real, 8, 0.0),
                           optionalField(144, Real, 9, 1.0),
                           {73, Integer, 0},
                           {74, Integer, 1},
                           optionalField(75, Integer, 2, 0),
                           optionalField(76, Integer, 3, 0),
                           {77, Integer, 4},
                           {78, Integer, 5},
                           optionalField(173, Integer, 6, 0),
                           optionalField(174, Integer, 7, 0),
                           optionalField(176, Integer, 8, 0),
                           optionalField(177, Integer, 9, 0),
                           optionalField(178, Integer, 10, 0),
                           optionalField(179, Integer, 11, 0),
                           {271, Integer, 12, false, 2},
                           defaultField(277, 2),
                           {278, Integer, 13, false, 46},
                           optionalField(3, Text, 1, 0.0),
                           {340, StyleHandle, 0},
                           optionalField(342, StyleHandle, 1, 0.0),
                           optionalField(343, StyleHandle, 2, 0.0),
                           optionalField(344, StyleHandle, 3, 0.0)};

/// The values of a style between the record and the groups that name them; `pass` gets both.
template <class Values_, class Style, class Pass>
void eachDimVariable(Values_& v, Style& style, Pass pass) {
    for (const Field& field : kDimStyle) {
        const DimVariable* const variable = dimVariable(field.code);
        if (variable == nullptr || field.meaning == Meaning::Marker) continue;
        if (variable->real != nullptr) pass(v.reals[field.slot], style.*variable->real);
        if (variable->integer != nullptr) pass(v.integers[field.slot], style.*variable->integer);
        if (variable->text != nullptr) pass(v.texts[field.slot], style.*variable->text);
        if (variable->block != nullptr) pass(v.ids[field.slot], style.*variable->block);
    }
}

std::unique_ptr<AcDbSymbolTableRecord> makeDimStyle(const Values& v) {
    auto record = std::make_unique<AcDbDimStyleTableRecord>();
    AcDbDimStyleValues values;
    eachDimVariable(v, values, [](const auto& filed, auto& member) {
        member = static_cast<std::remove_reference_t<decltype(member)>>(filed);
    });
    (void)record->setValues(values);
    (void)record->setDimtxsty(v.ids[0]);
    return record;
}
void takeDimStyle(const AcDbSymbolTableRecord& any, Values& v) {
    const auto& record = static_cast<const AcDbDimStyleTableRecord&>(any);
    eachDimVariable(v, record.values(), [](auto& filed, const auto& member) { filed = member; });
    v.ids[0] = record.dimtxsty();
}

// --- BLOCK_RECORD --------------------------------------------------------------------------------

const Field kBlockRecord[] = {marker("AcDbBlockTableRecord"), {2, Text, 0}, handleField(340)};

std::unique_ptr<AcDbSymbolTableRecord> makeBlockRecord(const Values&) {
    return std::make_unique<AcDbBlockTableRecord>();
}

}  // namespace

std::span<const RecordType> recordTypes() {
    static const RecordType kTypes[] = {
        {"LTYPE", &AcDbDatabase::linetypeTableId, 5, kLinetype, makeLinetype, takeLinetype},
        {"LAYER", &AcDbDatabase::layerTableId, 5, kLayer, makeLayer, takeLayer},
        {"STYLE", &AcDbDatabase::textStyleTableId, 5, kTextStyle, makeTextStyle, takeTextStyle},
        {"APPID", &AcDbDatabase::regAppTableId, 5, kRegApp, makeRegApp, takeNothing},
        {"DIMSTYLE", &AcDbDatabase::dimStyleTableId, 105, kDimStyle, makeDimStyle, takeDimStyle},
        {"BLOCK_RECORD", &AcDbDatabase::blockTableId, 5, kBlockRecord, makeBlockRecord,
         takeNothing},
    };
    return kTypes;
}

const RecordType* recordTypeNamed(std::string_view name) {
    for (const RecordType& type : recordTypes())
        if (name == type.name) return &type;
    return nullptr;
}

}  // namespace prancheta::dxf
