// SPDX-License-Identifier: MIT
// Splits the text of a DXF file into groups and the groups into records.
#pragma once

#include <optional>

#include "prancheta/dxf/tag.h"

namespace prancheta::dxf {

/// One record: everything from a group 0 to the next. Reused from record to record, so that reading
/// allocates nothing once the longest one has been seen.
struct Record {
    std::string_view type;  ///< value of group 0 without blanks
    Tags tags;              ///< what follows it
    const char* at = nullptr;
};

/// Reads pairs of lines (LF or CR LF) from text that outlives it. Comments (999) are passed over, a
/// byte-order mark too. After a fault nothing more is read.
class TagReader {
public:
    explicit TagReader(std::string_view text);

    /// False at the end of the text or at a fault.
    bool next(Tag& tag);
    /// Reads a whole record; a following group 0 begins the next one. False when there is none. An
    /// EOF is a record by itself, whatever follows.
    bool next(Record& record);
    /// Passes over a record; its type is told. Much cheaper than reading it.
    bool skip(std::string_view& type);
    /// Where the next record begins (its group code), or the end of the text.
    const char* position() const { return m_recordAt; }

    const std::optional<Fault>& fault() const { return m_fault; }

private:
    bool line(std::string_view& out);
    void fail(const char* at, std::string text);

    const char* m_at;
    const char* m_end;
    const char* m_recordAt;
    Tag m_pending;  ///< the group 0 that ended the last record
    bool m_hasPending = false;
    std::optional<Fault> m_fault;
};

}  // namespace prancheta::dxf
