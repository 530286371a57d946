// SPDX-License-Identifier: MIT
// Pieces that another program made ordinary blocks of: their blocks still hold a copy of the data.
#pragma once

#include <string>
#include <vector>

#include "dbapserv.h"
#include "prancheta/dxf/piece_copy.h"

namespace prancheta {

struct LostPieces {
    struct Block {
        AcDbObjectId record;
        dxf::BlockCopy copy;
        bool isPiece = true;  ///< false for what only belongs to one, as its mark does
    };
    struct Use {
        AcDbObjectId reference;
        std::size_t block = 0;
    };
    std::vector<Block> blocks;
    std::vector<Use> uses;  ///< in drawing order, space after space, those inside blocks too
};

/// References that still have their data are none of them. O(entities); where no block has a copy
/// only the texts of blocks are looked at.
LostPieces lostPieces(const AcDbDatabase& database);

/// "10 peças viraram blocos comuns (o outro programa retirou os dados)." and what helps; empty when
/// there is none.
std::wstring lostPiecesLine(const AcDbDatabase& database);

}  // namespace prancheta
