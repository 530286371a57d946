// SPDX-License-Identifier: MIT
// How any host has a module draw a table of pieces from a file.
//
// Header only, on the run-time class system alone, as report.h.
#pragma once

#include "rxdict.h"

namespace protocol {

/// Object of the system registry under kPieceTableKey.
class PieceTable : public AcRxObject {
public:
    /// Global name of the command that draws a table. What it cannot draw it tells as answers.h
    /// says, and then draws nothing.
    virtual const ACHAR* command() const = 0;
    /// The next run of the command takes this file instead of asking for one. `partial`: rows that
    /// are wrong are told and left out.
    virtual void take(const ACHAR* file, bool partial) = 0;
};
inline constexpr const ACHAR* kPieceTableKey = L"ZP_PIECE_TABLE";

}  // namespace protocol
