// SPDX-License-Identifier: MIT
// How a new piece with its companions reaches its final place in the drawing.
#pragma once

#include <array>
#include <vector>

#include "perfis/entities/zpobject.h"

namespace perfis {

/// What turns together with a piece. Null identifiers are left out.
struct Companions {
    std::vector<AcDbObjectId> cotas;
    std::vector<AcDbObjectId> others;      ///< plates
    std::array<AcDbObjectId, 3> marcas{};  ///< of the material list
};

/// Hands the piece and its companions to the host's rotate command, which is left waiting for its
/// angle, with `base` (world) as base point. RTNORM; 0 and nothing is sent when the piece cannot be
/// opened or its layer is frozen, locked or off.
int rotateIntoPlace(const AcGePoint3d& base, AcDbObjectId peca, const Companions& companions);

/// The same for a plain list of entities, the piece first. RTNORM always; nothing is sent while the
/// shared dimension flag is set or when the piece cannot be worked on.
int rotateSet(const AcGePoint3d& base, const std::vector<AcDbObjectId>& entities);

/// Translates the piece by target minus start and returns the target: for alignment 1 the lower
/// left limit point, 2 the same half a length further left, 4 the upper left one, 5 the same half a
/// length further left; for any other the start itself.
AcGePoint3d moveToFacePoint(ZpObject& peca, int alignment);

/// Asks for start and end of a member, world coordinates. RTNORM, or RTCAN when either is refused.
int askStartAndEnd(AcGePoint3d& start, AcGePoint3d& end);

/// Prompt for the start of a member.
inline constexpr const wchar_t* kStartPrompt = L"\nIndique o ponto inicial do perfil: ";

}  // namespace perfis
