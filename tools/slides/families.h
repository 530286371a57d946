// SPDX-License-Identifier: MIT
// The profile families that have a slide library, and what their pictures show.
#pragma once

#include <span>
#include <vector>

#include "zp/objects/secao/kinds.h"

namespace tools {

/// How the command draws the four views: most as they are, the channels with view 2 turned about
/// the piece's axis, the cold-formed angle with views 1 and 4 shown as views 2 and 3 turned, pairs
/// of angles with views 2 and 4 shown as views 1 and 3.
enum class Remap { None, Channel, Cantoneira, CantoneiraPair };

/// What a library holds besides: TRAV, the picture of the lacing dialog.
enum class Extra { None, TravejamentoPicture };

struct Family {
    const char* library;  ///< file name without extension
    zp::secao::Kind kind;
    /// Constructor values of a typical size, one-point form unless `points` is 2.
    std::vector<double> values;
    /// Texts of the command's insertion list in its order: each names a point of the section's box.
    std::vector<const char*> insertions;
    int points = 1;
    Remap remap = Remap::None;
    Extra extra = Extra::None;
};

std::span<const Family> families();

}  // namespace tools
