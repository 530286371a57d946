// SPDX-License-Identifier: MIT
// Steel that a scale made larger or smaller: its sizes do not change in silence.
#pragma once

#include <map>
#include <string>
#include <utility>

#include "dbapserv.h"

namespace zp {

/// All that one command scaled.
class Scaled {
public:
    /// Before the piece is scaled; `designacao` is what it is called. What it was first holds.
    void note(AcDbObjectId peca, const std::wstring& designacao);
    /// Tells the user what became of which size, each pair once, and forgets.
    void say();

private:
    std::map<Adesk::LongPtr, std::pair<AcDbObjectId, std::wstring>> m_pecas;
};

}  // namespace zp
