// SPDX-License-Identifier: MIT
// Run-time classes of the entity library, as the module registers them.
#pragma once

class AcRxClass;

namespace zp {

/// Enters ZpObject and the section classes in the host's class dictionary.
void registerClasses();
/// Takes them out, children first.
void unregisterClasses();

}  // namespace zp
