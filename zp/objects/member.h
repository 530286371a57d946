// SPDX-License-Identifier: MIT
// What a drawn piece stands for in the job: its row of a material list, how often it counts, its
// steel, its lacing.
#pragma once

#include <string>

#include "zp/objects/peca.h"

namespace zp::member {

/// What is known; a default one when nothing is. The piece is readable.
const Member& of(const ZpObject& peca);
/// Nothing happens when it is known already. The piece is open for write.
void set(ZpObject& peca, const Member& member);
/// The same of its lacing alone.
void lace(ZpObject& peca, const Lacing& lacing);

/// The piece belongs to the row with this record and counts so often. Null takes it out of any
/// list.
void tie(ZpObject& peca, AcDbObjectId row, int count);

/// Class, sizes, role, length within half a millimetre and cuts of the ends, which a section does
/// not tell.
bool sameSizes(const ZpObject& a, const ZpObject& b);
/// Two pieces that are the same member: class, sizes, role, steel, and, not between a section and
/// another view, length within half a millimetre and lacing, where it is known. What the numbers of
/// their views are, and on which side they are mirrored, does not matter.
bool same(const ZpObject& a, const ZpObject& b);
/// Pieces that are the same, seen from the same or as bars, have one of a piece's hashes with steps
/// -1, 0 and 1: lengths are counted in steps of half a millimetre.
std::size_t hashOf(const ZpObject& peca, int step = 0);

/// "banzo inferior"
const wchar_t* roleName(const ZpObject& peca);

/// Text of a row's mark, told by the module that keeps the lists; null takes it away.
using MarcaReader = std::wstring (*)(AcDbObjectId row);
void setMarcaReader(MarcaReader reader);
/// Mark of the row that the piece belongs to; empty when there is none.
std::wstring marcaOf(const ZpObject& peca);

}  // namespace zp::member
