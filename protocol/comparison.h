// SPDX-License-Identifier: MIT
// How any host has a module tell what became of a job between two drawings of it.
//
// Header only, on the run-time class system alone, as report.h.
#pragma once

#include <string>

#include "dbapserv.h"

namespace protocol {

enum class ComparisonForm { Text, Csv, Json };

/// Object of the system registry under kDrawingComparisonKey.
class DrawingComparison : public AcRxObject {
public:
    /// Global name of the command that tells it of the drawing and a file.
    virtual const ACHAR* command() const = 0;
    /// `told` becomes what differs, lines end in \n; changes neither drawing. False when nothing
    /// differs.
    virtual bool compare(AcDbDatabase& before, AcDbDatabase& after, ComparisonForm form,
                         std::wstring& told) const = 0;
};
inline constexpr const ACHAR* kDrawingComparisonKey = L"ZP_DRAWING_COMPARISON";

}  // namespace protocol
