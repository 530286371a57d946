// SPDX-License-Identifier: MIT
// What became of the job between two drawings of it: by member, whatever the handles are.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "dbid.h"
#include "gepnt3d.h"
#include "protocol/comparison.h"

class AcDbDatabase;

namespace zp::matlist {

/// A member as one drawing has it; a row without drawn pieces is one, too.
struct JobMember {
    AcDbObjectId peca;   ///< null: nothing of it is drawn
    AcDbObjectId block;  ///< that it stands in
    std::wstring marca;
    std::uint64_t name = 0;  ///< of mark and whether it is a plate; 0 without a mark
    long long count = 0;     ///< as the list counts; in no list, as often as it is drawn
    bool listed = false;
    bool mirrored = false;
    bool chapa = false;  ///< goes with its bar: where it stands is nothing to tell
    double kg = 0.0;     ///< of one
    AcGePoint3d start;
    AcGePoint3d end;
    int vista = 0;
    double turn = 0.0;        ///< in its view about its own axis, radians
    std::uint64_t kind = 0;   ///< of section
    std::uint64_t steel = 0;  ///< all that makes it other steel: sizes, length, ends, lacing, grade
    std::wstring row;         ///< "U 200x75x3, 2162 mm", of a row without drawn pieces
};
/// All that a drawing holds, further views left out; O(n).
std::vector<JobMember> membersOf(AcDbDatabase& drawing);

enum class Difference { New, Gone, Changed, Quantity, Moved };

/// Members of one mark that all changed alike.
struct MemberChange {
    Difference kind = Difference::Changed;
    std::wstring marca;  ///< that of the later drawing, where it is in both
    std::wstring text;   ///< "L 5980 -> 6020"
    long long count = 0;
    double kg = 0.0;  ///< what the job became heavier by
    std::vector<JobMember> before;
    std::vector<JobMember> after;
};

/// By kind, then by mark. Members are matched by mark, place and what they are, so that a drawing
/// whose handles another program gave anew compares as itself. O(n log n).
std::vector<MemberChange> compareMembers(const std::vector<JobMember>& before,
                                         const std::vector<JobMember>& after);

/// "V3: L 5980 -> 6020, +1,9 kg"
std::wstring lineOf(const MemberChange& change);
/// "3 diferenças: 1 nova, 2 alteradas. Entram 12,3 kg, saem 4,5 kg, saldo +7,8 kg."
std::wstring summaryOf(const std::vector<MemberChange>& changes);
std::wstring toldAs(protocol::ComparisonForm form, const std::vector<MemberChange>& changes);

/// What to tell beside changes, an empty line or one for each of the drawings that shows something
/// and has no members while the other one has: its pieces lost their data.
std::wstring lostMembersText(AcDbDatabase& before, const std::vector<JobMember>& membersBefore,
                             AcDbDatabase& after, const std::vector<JobMember>& membersAfter);

/// Revision clouds around what changed and a table beside the drawing, on the layer of "REVISAO";
/// those of the comparison before are to be erased first. How many clouds there are, and table rows
/// left out.
struct Revision {
    std::size_t clouds = 0;
    std::size_t rowsLeftOut = 0;
};
Revision drawRevision(AcDbDatabase& drawing, const std::wstring& title,
                      const std::vector<MemberChange>& changes);
struct ErasedRevision {
    std::size_t erased = 0;
    std::size_t locked = 0;  ///< that stay, on a locked layer
};
ErasedRevision eraseRevision(AcDbDatabase& drawing);
/// What to tell a user who has such; names the layer.
std::wstring lockedRevisionText();

/// The command COMPARAR, and the answer to a host that asks.
inline constexpr const ACHAR* kCompareCommand = L"COMPARAR";
void compareCommand();
void installComparison();
void uninstallComparison();

}  // namespace zp::matlist
