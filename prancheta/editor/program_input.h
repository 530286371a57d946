// SPDX-License-Identifier: MIT
// What acedCommand feeds to the command line.
#pragma once

#include <string>
#include <vector>

#include "adsdef.h"
#include "dbid.h"
#include "gepnt3d.h"

namespace prancheta {

struct ProgramToken {
    enum class Kind {
        Text,  ///< as typed; empty = Enter
        Real,
        Integer,
        Point,    ///< user coordinates
        Angle,    ///< radians
        Objects,  ///< an entity, or those of a selection set
    };
    Kind kind = Kind::Text;
    std::wstring text;
    double number = 0.0;
    AcGePoint3d point;
    std::vector<AcDbObjectId> objects;

    /// Leaves one answer to the user.
    bool pause() const { return kind == Kind::Text && text == L"\\"; }
};

/// Tokens of a typed list (restypes RT*); false when a type or a name is wrong.
bool readTokens(const resbuf* list, std::vector<ProgramToken>& tokens);

/// Records the call.
void recordTokens(const std::vector<ProgramToken>& tokens);

}  // namespace prancheta
