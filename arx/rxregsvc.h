// SPDX-License-Identifier: MIT
// Services that the host offers to modules.
#pragma once

#include "rxdict.h"

/// Allows the user to unload the module; a module starts locked.
bool acrxUnlockApplication(void* appId);
bool acrxLockApplication(void* appId);
bool acrxRegisterAppMDIAware(void* appId);

/// True when the module of this file name (case ignored) is loaded.
bool acrxAppIsLoaded(const ACHAR* fileName);
bool acrxLoadModule(const ACHAR* fileName, bool printit, bool asCmd = false);
bool acrxUnloadModule(const ACHAR* fileName, bool asCmd = false);
