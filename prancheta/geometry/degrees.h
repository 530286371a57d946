// SPDX-License-Identifier: MIT
// Angles as files have them.
#pragma once

namespace prancheta {

/// Degrees that read back to exactly these radians, where there are such; otherwise what is read
/// back gives the same degrees again.
double degreesOf(double radians);
/// Of any size.
double radiansOf(double degrees);

}  // namespace prancheta
