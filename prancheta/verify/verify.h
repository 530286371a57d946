// SPDX-License-Identifier: MIT
// Strict examination of DXF files: what programs that read leniently pass over in silence.
//
// Design. The file is read twice, record by record, and never kept: the first reading takes a
// census of handles and names, the second holds every group and every record against it. Cost:
// O(groups), memory: one entry a handle.
#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

#include "prancheta/base/result.h"

namespace prancheta::verify {

enum class Severity {
    Error,    ///< a strict reader refuses or repairs the file
    Warning,  ///< every reader copes, but the file says something that is not so
};

/// One thing that is wrong, for the user.
struct Remark {
    Severity severity = Severity::Error;
    std::string text;          ///< Portuguese
    std::string type;          ///< of the record: "LINE", "LAYER"; empty for the file as a whole
    std::uint64_t handle = 0;  ///< of the record, 0 when it has none
    int line = 0;              ///< from 1; 0 when no line can be named

    /// "linha 120: LINE 2F: texto".
    std::string message() const;
};

struct Verdict {
    std::vector<Remark> remarks;  ///< in the order of the file, the first kMostRemarks of them
    std::size_t errors = 0;
    std::size_t warnings = 0;
    std::size_t records = 0;
};
inline constexpr std::size_t kMostRemarks = 1000;

/// Examines a text or binary DXF file; in a binary one lines are those of the same file as text. An
/// error only when the file cannot be read at all.
Result<Verdict> examine(const std::filesystem::path& path);

}  // namespace prancheta::verify
