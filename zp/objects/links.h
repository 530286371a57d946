// SPDX-License-Identifier: MIT
// Links: what stands where relative to a piece, and putting it there.
#pragma once

#include <functional>
#include <vector>

#include "zp/objects/peca.h"

namespace zp {

/// Application name under which a dimension names the pieces that it belongs to, by their handles.
inline constexpr const ACHAR* kAplicacaoLiga = L"ZP_LIGA";

/// Ties `outra` to the piece, both ways, and learns where it stands. The piece is open for write
/// and resident.
Acad::ErrorStatus liga(ZpObject& peca, const AcDbObjectId& outra, Ligacao::Papel papel);

/// Pieces that this entity is tied to.
std::vector<AcDbObjectId> donasDe(const AcDbEntity& entidade);
/// Takes one away from an entity open for write.
void esqueceDona(AcDbEntity& entidade, AcDbObjectId dona);
/// Adds one; nothing happens when it is there.
void lembraDona(AcDbEntity& entidade, AcDbObjectId dona);

/// Keeps where the entity stands now. The piece is open for write.
void aprende(ZpObject& peca, const AcDbEntity& entidade);

/// Puts all that is tied to the piece where its links say, and what is tied to that. Calls `presa`
/// for what could not be opened. The piece is readable.
void coloca(const ZpObject& peca, const std::function<void(AcDbObjectId)>& presa, int fundo = 0);

/// Followers that stand beyond the end of a piece.
int chapasForaDaBarra(const ZpObject& peca);

}  // namespace zp
