// SPDX-License-Identifier: MIT
// Run-time classes of the entity library, as the module registers them.
#pragma once

class AcRxClass;

namespace zp {

/// Enters ZpObject and the section classes in the host's class dictionary.
void registraClasses();
/// Takes them out, children first.
void retiraClasses();

}  // namespace zp
