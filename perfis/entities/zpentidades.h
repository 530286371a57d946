// SPDX-License-Identifier: MIT
// Everything of the entity library that the drawing commands use.
#pragma once

#include "perfis/entities/zpchapa.h"
#include "perfis/entities/zpdobrados.h"
#include "perfis/entities/zpfuncoes.h"
#include "perfis/entities/zplaminados.h"
#include "perfis/entities/zpobject.h"
#include "perfis/entities/zpvigas.h"
