// SPDX-License-Identifier: MIT
// The interface release this module was built for. With the SDK its import library supplies this.
#include "rxdefs.h"

extern "C" int acrxGetApiVersion(void) { return 18; }
