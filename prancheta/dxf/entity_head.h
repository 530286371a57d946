// SPDX-License-Identifier: MIT
// What all records have before the groups of their type.
#pragma once

#include <optional>

#include "prancheta/database/database_core.h"
#include "prancheta/dxf/encoding.h"
#include "prancheta/dxf/tag_reader.h"

namespace prancheta::dxf {

/// Parts of one record; reused from record to record.
struct RecordHead {
    const char* at = nullptr;  ///< where the record begins
    Adesk::UInt64 handle = 0;
    Adesk::UInt64 owner = 0;
    Adesk::UInt64 dictionary = 0;
    std::vector<Adesk::UInt64> reactors;
    std::string_view layer = "0";
    std::string_view linetype;
    double linetypeScale = 1.0;
    int color = 256;
    int lineWeight = -1;
    bool paper = false;
    bool invisible = false;
    Tags extra;  ///< groups {NAME ... } of applications, and common groups that nothing above holds
    Tags body;   ///< subclass markers and data of the type; without markers in files of R12
    Tags xdata;
};

/// False with a fault for a value that is none.
bool splitEntity(const Record& record, RecordHead& head, std::optional<Fault>& fault);
/// For records of tables and for objects, where everything but handle, owner and groups of
/// applications belongs to the type. `handleCode` is 5, or 105 for dimension styles.
bool splitRecord(const Record& record, int handleCode, RecordHead& head,
                 std::optional<Fault>& fault);

/// Appends groups as they stand, after a look at their values; an empty handle becomes 0.
bool appendRaw(RawTags& out, const Tags& tags, Charset charset, std::optional<Fault>& fault);

}  // namespace prancheta::dxf
