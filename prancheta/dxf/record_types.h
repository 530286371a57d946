// SPDX-License-Identifier: MIT
// Symbol table records in files: their groups, and how values and records become each other.
#pragma once

#include <memory>

#include "dbsymtb.h"
#include "prancheta/dxf/fields.h"

namespace prancheta::dxf {

/// Note among the kept groups: the record is written group by group as it stood.
constexpr int kWholeRecord = -1;
/// Note among the kept groups: bits of group 70 that the class does not hold.
constexpr int kOtherFlags = -70;
/// Code of the group by which the file's dictionary names its entries: 350 or 360.
constexpr int kEntryCode = -350;

/// What makes one kind of record. Texts 0 is its name.
struct RecordType {
    const char* name;
    AcDbObjectId (AcDbDatabase::*table)() const;
    int handleCode;
    std::span<const Field> fields;
    std::unique_ptr<AcDbSymbolTableRecord> (*make)(const Values& values);
    void (*take)(const AcDbSymbolTableRecord& record, Values& values);
};

/// In the order in which a file has them; block records come last.
std::span<const RecordType> recordTypes();
const RecordType* recordTypeNamed(std::string_view name);

/// Handles that a record has when nothing else says them: plot style of layers, layout of block
/// records.
constexpr int kDefaultHandleSlot = Values::kSlots - 1;

}  // namespace prancheta::dxf
