// SPDX-License-Identifier: MIT
// The ends of a piece's axis on their way: a grip, a stretch, a cut and a longer piece are one
// change.
#pragma once

#include <set>
#include <string>
#include <vector>

#include "zp/objects/edit.h"
#include "zp/objects/peca.h"

namespace zp::ends {

/// World coordinates, in the plane of the piece, and how it is cut there.
struct Ends {
    AcGePoint3d start;
    AcGePoint3d end;
    std::array<Corte, 2> cortes;
};
Ends endsOf(const Peca& peca);
/// Points of the axis at these distances from the start; cut as the ends are.
Ends between(const Peca& peca, double from, double to);

/// Why a piece that is a section or a plate has no ends; null for one that has.
const ACHAR* whyNone(const Peca& peca);
/// The piece, of no drawing, gets these ends. False, and no change, where nothing would remain.
bool put(Peca& peca, const Ends& fresh);
/// Why the piece, readable, may not have these ends, for the user; empty when it may.
std::wstring refusal(const ZpObject& peca, const Ends& fresh);
/// The piece, resident and open for write, gets ends that were not refused. What is tied to it, and
/// those that listen to edits, follow at the end of the command.
void move(ZpObject& peca, const Ends& fresh);

/// True where both have one size and role, and axes of one length, cut alike.
bool alike(const ZpObject& a, const ZpObject& b);
/// Another view of a piece, resident and closed, gets the size, role and lacing that the piece,
/// readable, has by now, its length and its cuts; in its view it starts as far along its axis from
/// where it did as the piece does, which `before` was. A section stays where it stands. Why it may
/// not, for the user, and no change; empty when it has.
std::wstring showLike(AcDbObjectId view, const ZpObject& peca, const edit::Former& before);

/// What one command did to pieces in one drawing.
class Moved {
public:
    enum class What {
        Ends,
        Whole,  ///< with all that is tied to it, which is told already
    };
    /// `before` is what the piece was; what it was first holds.
    void note(AcDbObjectId peca, const edit::Former& before, What what);
    /// Nothing is said of an empty reason.
    void refuse(const std::wstring& reason);
    /// Tells those that listen to edits, and forgets.
    void notify();
    /// Tells the user why ends stayed, each reason once, and forgets.
    void say();
    bool empty() const { return m_changes.empty(); }

private:
    std::vector<edit::Change> m_changes;
    std::set<Adesk::LongPtr> m_whole;
    std::set<Adesk::LongPtr> m_noted;
    std::set<std::wstring> m_reasons;
};

}  // namespace zp::ends
