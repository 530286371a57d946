// SPDX-License-Identifier: MIT
// What an edit of one drawn piece means for the other drawings of its member.
#pragma once

namespace zp::matlist {

/// From now on an edit that would change what the row says is asked about where other pieces stand
/// in that row, and further views of a member whose ends a command moves show it as it is by then:
/// pieces that count 0, each with the nearest one of its row that counts. A line says how many.
/// O(views x pieces that count) of each such row.
void startSharing();
void stopSharing();

}  // namespace zp::matlist
