// SPDX-License-Identifier: MIT
// What a built-in command works with.
#include "prancheta/editor/editor.h"

namespace prancheta {
AcDbDatabase& CommandContext::database() const { return m_editor.database(); }

void CommandContext::print(std::wstring_view text) const {
    if (m_editor.runner().echo()) m_editor.print(text);
}

}  // namespace prancheta
