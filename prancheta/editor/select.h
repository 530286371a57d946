// SPDX-License-Identifier: MIT
// The prompt "Selecione objetos:".
#pragma once

#include <string>
#include <vector>

#include "prancheta/editor/command.h"

namespace prancheta {

struct SelectOptions {
    // No aggregate: g++ 12 destroys temporaries of aggregates twice inside a co_await expression.
    SelectOptions() {}

    std::wstring prompt = L"\nSelecione objetos: ";
    bool usePickfirst = true;  ///< what was selected before the command is taken without asking
    bool dropLocked = true;    ///< objects on locked layers are reported and left out
    Keywords words;            ///< further options, which go before the usual ones
    /// Ends after the first step that found something, or with one of `words`: RTKWORD then.
    bool single = false;
};

/// `status`: RTNORM with at least one object, RTNONE when nothing was selected, RTCAN after Esc;
/// RTKWORD as in the options.
struct Selection {
    int status = 0;
    std::vector<AcDbObjectId> ids;
    /// Those of them that crossing frames found, and nothing else before.
    std::vector<AcDbObjectId> crossed;
    /// Corners of the last one of those frames, world coordinates; empty without one.
    std::vector<AcGePoint3d> crossing;
    std::wstring word;  ///< global word of the further option that was said last
};

/// Repeats until Enter; every object once, in the order of selection. The result becomes the
/// editor's previous selection.
Task<Selection> selectObjects(CommandContext context, SelectOptions options);
Task<Selection> selectObjects(CommandContext context);

}  // namespace prancheta
