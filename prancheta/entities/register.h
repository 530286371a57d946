// SPDX-License-Identifier: MIT
// Makes the entity classes known at run time.
#pragma once

namespace prancheta {

/// Registers the classes of the simple entities, of dimensions and of foreign entities, and tells
/// the database how to turn a picture into entities. Further calls do nothing.
void registerEntityClasses();

}  // namespace prancheta
