// SPDX-License-Identifier: MIT
// Groups of a damaged record that each make sense, but not where they stand.
#pragma once

#include <functional>
#include <set>
#include <string>

#include "prancheta/dxf/damaged_records.h"

namespace prancheta::dxf {

/// What is wrong with a group, in Portuguese, and its line.
using TellGroup = std::function<void(std::string text, int line)>;

/// Takes out of extended data what has no application before it, and what is none behind its
/// beginning; brackets without their other half go, too.
void tidyExtendedData(DamagedRecord& record, const TellGroup& tell);

/// Markers of classes are names: characters that no name has are replaced, a nearly right
/// AcDbEntity by that.
void tidyMarkers(DamagedRecord& record, const TellGroup& tell);

/// Groups of applications, from 102 "{NAME" to 102 "}", that do not end or did not begin.
void tidyApplicationGroups(DamagedRecord& record, const TellGroup& tell);

/// Variables that `known` has already; the others are added to it.
void dropRepeatedVariables(DamagedRecord& record, std::set<std::string>& known,
                           const TellGroup& tell);

}  // namespace prancheta::dxf
