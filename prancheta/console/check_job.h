// SPDX-License-Identifier: MIT
// `--confere`: what a module finds wrong with the job that a drawing shows, one line each on
// standard output.
#pragma once

class AcDbDatabase;

namespace prancheta::console {

/// Exit code: 0 without faults (hints may be there), 1 for faults, 3 when no loaded module knows
/// how to check a drawing.
int checkJob(AcDbDatabase& drawing);

}  // namespace prancheta::console
