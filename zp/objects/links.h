// SPDX-License-Identifier: MIT
// Links: what stands where relative to a piece, and putting it there.
#pragma once

#include <functional>
#include <vector>

#include "zp/objects/peca.h"

namespace zp {

/// Application name under which a dimension names the pieces that it belongs to, by their handles.
inline constexpr const ACHAR* kLinkApplication = L"ZP_LIGA";

/// Ties `other` to the piece, both ways, and learns where it stands. The piece is open for write
/// and resident.
Acad::ErrorStatus tie(ZpObject& peca, const AcDbObjectId& other, Link::Role role);

/// Pieces that this entity is tied to.
std::vector<AcDbObjectId> ownersOf(const AcDbEntity& entity);
/// Takes one away from an entity open for write.
void removeOwner(AcDbEntity& entity, AcDbObjectId owner);
/// Adds one; nothing happens when it is there.
void addOwner(AcDbEntity& entity, AcDbObjectId owner);

/// Keeps where the entity stands now. The piece is open for write.
void learn(ZpObject& peca, const AcDbEntity& entity);

/// What happens to that which does not simply follow.
struct Following {
    /// Told of a piece of whose links one could not be opened now.
    std::function<void(AcDbObjectId)> held;
    /// Asked whether something on a locked layer stays where it is.
    std::function<bool(AcDbObjectId)> stays;
};
/// Puts all that is tied to the piece where its links say, plates in the size that they say, and
/// what is tied to that. The piece is readable.
void putLinked(const ZpObject& peca, const Following& following, int depth = 0);

/// What is tied to the piece does not measure, or stand, where its link says.
bool strayed(const ZpObject& peca, const AcDbEntity& entity);
/// As putLinked, for one that is tied to the piece.
void putBack(const ZpObject& peca, AcDbObjectId linked, const Following& following);

/// Followers that stand beyond the end of a piece.
int chapasBeyondBarra(const ZpObject& peca);

}  // namespace zp
