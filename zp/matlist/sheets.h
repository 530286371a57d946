// SPDX-License-Identifier: MIT
// Property sheets of marks for any host that shows them.
#pragma once

#include <string>

#include "dbid.h"

namespace zp::matlist {

/// Sets what the user typed for an editable column of a row; its pieces and tables follow. The
/// reason of a refusal, and then nothing changed; empty when the value was taken.
std::wstring changeRow(AcDbObjectId record, const std::wstring& key, const std::wstring& value);

/// Attaches the sheets to the class of marks, and takes them away again.
void installSheets();
void uninstallSheets();

}  // namespace zp::matlist
