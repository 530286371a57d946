// SPDX-License-Identifier: MIT
// The dimension flag that all profile commands share.
#pragma once

namespace perfis {

/// Non-zero: dimensions are made after generation. Every command resets it at its start.
int& sharedCotaFlag();

}  // namespace perfis
