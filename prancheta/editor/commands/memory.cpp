// SPDX-License-Identifier: MIT
// What built-in commands remember from one run to the next.
#include "prancheta/editor/commands/memory.h"

#include "prancheta/editor/editor.h"

namespace prancheta::commands {

Memory& memory(const CommandContext& context) {
    std::shared_ptr<void>& kept = context.editor().commandMemory();
    if (!kept) kept = std::make_shared<Memory>();
    return *static_cast<Memory*>(kept.get());
}

}  // namespace prancheta::commands
