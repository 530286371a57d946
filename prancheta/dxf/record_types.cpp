// SPDX-License-Identifier: MIT
// Tables of the symbol table records.
#include "prancheta/dxf/record_types.h"

#include <algorithm>
#include <cstdlib>

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
                            defaultField(50, 0),
                            defaultField(71, 0),
                            defaultField(42, 2.5),
                            {3, Text, 1},
                            {4, DefaultText, 0, false, 0.0, ""}};

std::unique_ptr<AcDbSymbolTableRecord> makeTextStyle(const Values& v) {
    auto record = std::make_unique<AcDbTextStyleTableRecord>();
    (void)record->setTextSize(v.reals[0]);
    (void)record->setXScale(v.reals[1]);
    (void)record->setFileName(v.texts[1].c_str());
    return record;
}
void takeTextStyle(const AcDbSymbolTableRecord& any, Values& v) {
    const auto& record = static_cast<const AcDbTextStyleTableRecord&>(any);
    v.reals[0] = record.textSize();
    v.reals[1] = record.xScale();
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
                           {73, Integer, 0},
                           {74, Integer, 1},
                           {77, Integer, 2},
                           {78, Integer, 3},
                           {271, Integer, 4, false, 2},
                           defaultField(277, 2),
                           {278, Integer, 5, false, 46},
                           {340, StyleHandle, 0}};

std::unique_ptr<AcDbSymbolTableRecord> makeDimStyle(const Values& v) {
    auto record = std::make_unique<AcDbDimStyleTableRecord>();
    const auto integer = [&](std::size_t i) { return static_cast<Adesk::Int16>(v.integers[i]); };
    AcDbDimStyleValues values;
    values.dimscale = v.reals[0];
    values.dimasz = v.reals[1];
    values.dimexo = v.reals[2];
    values.dimdli = v.reals[3];
    values.dimexe = v.reals[4];
    values.dimtxt = v.reals[5];
    values.dimgap = v.reals[6];
    values.dimtih = integer(0);
    values.dimtoh = integer(1);
    values.dimtad = integer(2);
    values.dimzin = integer(3);
    values.dimdec = integer(4);
    values.dimdsep = integer(5);
    (void)record->setValues(values);
    (void)record->setDimtxsty(v.ids[0]);
    return record;
}
void takeDimStyle(const AcDbSymbolTableRecord& any, Values& v) {
    const auto& record = static_cast<const AcDbDimStyleTableRecord&>(any);
    const AcDbDimStyleValues& values = record.values();
    const double reals[] = {values.dimscale, values.dimasz, values.dimexo, values.dimdli,
                            values.dimexe,   values.dimtxt, values.dimgap};
    const Adesk::Int16 integers[] = {values.dimtih, values.dimtoh, values.dimtad,
                                     values.dimzin, values.dimdec, values.dimdsep};
    std::copy(std::begin(reals), std::end(reals), v.reals);
    std::copy(std::begin(integers), std::end(integers), v.integers);
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
