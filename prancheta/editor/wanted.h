// SPDX-License-Identifier: MIT
// Picks of questions that are about one kind of entity.
#pragma once

#include <functional>

#include "dbmain.h"
#include "gepnt3d.h"

namespace prancheta {

class Editor;

/// Says of an entity whether a question is about such ones.
using Wanted = std::function<bool(AcDbObjectId)>;

/// As entityAt(); others than the wanted only where none of these is.
AcDbObjectId entityAt(const Editor& editor, const AcGePoint3d& world, const Wanted& wanted);

/// What a pick at the point stands for: the entity that it took, or, where that is not wanted, one
/// that is and lies there too.
AcDbObjectId wantedAt(const Editor& editor, AcDbObjectId picked, const AcGePoint3d& world,
                      const Wanted& wanted);

}  // namespace prancheta
