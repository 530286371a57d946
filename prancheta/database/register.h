// SPDX-License-Identifier: MIT
// Run-time classes of the database.
#pragma once

#include <string_view>
#include <vector>

#include "rxclass.h"

namespace prancheta {

/// Enters every class of this room in the class dictionary. May be called again.
void registerDatabaseClasses();

/// Class that files its objects under this name (case ignored); null when there is none.
AcRxClass* classOfDxfName(std::wstring_view dxfName);

/// All classes of the dictionary, in the order in which they were entered.
const std::vector<AcRxClass*>& allClasses();

}  // namespace prancheta
