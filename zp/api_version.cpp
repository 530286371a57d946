// SPDX-License-Identifier: MIT
// The interface release the companions were built for. With the SDK its import library supplies
// this.
#include "rxdefs.h"

extern "C" int acrxGetApiVersion(void) { return 18; }
