// SPDX-License-Identifier: MIT
// What a piece takes of the published tables, and when.
#pragma once

#include <memory>
#include <optional>

#include "zp/objects/peca.h"
#include "zp/tables/published.h"

namespace zp::published {

/// The size of one single shape of a section as the tables have it; nothing where no table has
/// such shapes: radii or flanges of one's own, monosymmetric I, the user's welded I, plates.
std::optional<tables::Size> sizeOf(const Peca& p);

/// What the tables of the installation say of the size today; null when they do not have it.
std::shared_ptr<const Commercial> ofToday(const Peca& p);

/// The same, one object for all pieces that keep it.
std::shared_ptr<const Commercial> shared(Commercial commercial);

/// Where the mass comes from and how far the outline's is from it, for the user:
/// "tabela (geometria -0,8 %)", "geometria".
std::wstring massWords(const Peca& p);

/// The piece keeps that. Called where it is made and where its sizes change; a piece that is read
/// from a drawing keeps what it was drawn with. A mass that is another size's stays one.
void take(Peca& p);
/// The same after one of its values was changed: a mass of the user's own counts, not the table's.
void follow(Peca& p, secao::Role changed);

/// What the piece keeps becomes this. It is open for write, or in no drawing.
void keep(ZpObject& peca, std::shared_ptr<const Commercial> commercial);
/// Mass and area that its constructor got belong to another size: they weigh and shape nothing.
void disownMass(ZpObject& peca);

}  // namespace zp::published
