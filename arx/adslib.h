// SPDX-License-Identifier: MIT
// Everything of the C-style interface.
#pragma once

#include "acedads.h"
#include "acutads.h"
#include "acutmem.h"
#include "adscodes.h"
#include "adsdef.h"
