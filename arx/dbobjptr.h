// SPDX-License-Identifier: MIT
// Scoped access to database objects.
#pragma once

#include "dbmain.h"
