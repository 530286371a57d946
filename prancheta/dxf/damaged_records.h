// SPDX-License-Identifier: MIT
// Records of a file whose groups cannot all be read.
#pragma once

#include <deque>
#include <string>
#include <string_view>
#include <vector>

#include "prancheta/dxf/tag.h"

namespace prancheta::dxf {

struct DamagedGroup {
    int code = 0;
    std::string_view value;
    int line = 0;  ///< of the value
};

struct DamagedRecord {
    std::string type;
    std::vector<DamagedGroup> groups;  ///< up to where it breaks off
    std::string_view text;             ///< as it stands, with group 0
    int line = 0;                      ///< of its type
    std::string broken;                ///< why it cannot be used as it stands, in Portuguese
    int brokenAt = 0;                  ///< line
    bool last = false;                 ///< nothing follows it
    bool changed = false;              ///< groups were taken out: the text no longer counts
    std::deque<std::string> kept;      ///< values that do not stand in the text
};

/// Reads records from text that outlives it; garbage ends a record, and is passed over up to a line
/// 0 that a type follows. Every line is looked at twice at the most.
class DamagedRecords {
public:
    explicit DamagedRecords(std::string_view text);
    bool next(DamagedRecord& record);
    /// Number of the last line that was read.
    int line() const { return m_at.line - 1; }

private:
    struct Place {
        const char* at = nullptr;
        int line = 1;
    };
    struct Line {
        std::string_view text;
        Place begin;
    };
    bool read(Line& line);
    bool takeHold(Place from);
    bool isBlank(Place from) const;
    bool passGarbage(DamagedRecord& record, Place at, bool ends);

    Place m_at;
    const char* m_end;
};

}  // namespace prancheta::dxf
