// SPDX-License-Identifier: MIT
// How any host has a module write what a shop cuts from sheets.
//
// Header only, on the run-time class system alone, as report.h.
#pragma once

#include <string>

#include "dbapserv.h"

namespace protocol {

enum class CutFilesOutcome {
    Written,
    Refused,  ///< a check finds something in those members, or there is nothing to cut
    Failed,   ///< a file could not be written
};

/// Object of the system registry under kCutFilesKey.
class CutFiles : public AcRxObject {
public:
    /// Of all lists of the drawing. `destination` is one file for all where it ends in .dxf, else a
    /// folder, made where there is none, with a file for each mark; what stands there under these
    /// names is replaced. `forced`: whatever a check finds. `told` is a line for the user.
    virtual CutFilesOutcome write(AcDbDatabase& drawing, const ACHAR* destination, bool forced,
                                  std::wstring& told) const = 0;
};
inline constexpr const ACHAR* kCutFilesKey = L"ZP_CUT_FILES";

}  // namespace protocol
