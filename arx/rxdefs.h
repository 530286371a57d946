// SPDX-License-Identifier: MIT
// Messages between the host and its modules.
#pragma once

#include "adesk.h"

namespace AcRx {
enum AppMsgCode {
    kNullMsg = 0,
    kInitAppMsg = 1,
    kUnloadAppMsg = 2,
    kLoadDwgMsg = 3,
    kUnloadDwgMsg = 4,
    kInvkSubrMsg = 5,
    kCfgMsg = 6,
    kEndMsg = 7,
    kQuitMsg = 8,
    kSaveMsg = 9,
    kDependencyMsg = 10,
    kNoDependencyMsg = 11,
    kOleUnloadAppMsg = 12,
    kPreQuitMsg = 13,
    kInitDialogMsg = 14,
    kEndDialogMsg = 15,
    kSuspendMsg = 16,
    kInitTabGroupMsg = 17,
    kEndTabGroupMsg = 18,
};

/// kRetError unloads a module that is being loaded and keeps one that is being unloaded.
enum AppRetCode { kRetOK = 0, kRetError = 3 };
}  // namespace AcRx

using AcRxFunctionPtr = void (*)();

/// What a module exports by name.
extern "C" {
AcRx::AppRetCode acrxEntryPoint(AcRx::AppMsgCode msg, void* pkt);
int acrxGetApiVersion(void);
}
