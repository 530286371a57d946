// SPDX-License-Identifier: MIT
// --pdf, --svg, --png: drawings plotted into files.
#pragma once

#include <functional>

#include "prancheta/base/result.h"
#include "prancheta/console/options.h"
#include "prancheta/editor/host.h"

namespace prancheta::console {

/// Plots the drawing into every file that is asked for; one failure does not keep the others, each
/// is told to `failed`. The plot library is loaded only when it is needed.
void plotDrawing(Editor& editor, const Options& options,
                 const std::function<void(const Error&)>& failed);

/// All drawings of the options into one PDF, of which the first is open.
Result<void> plotDrawings(Editor& editor, const Options& options);

}  // namespace prancheta::console
