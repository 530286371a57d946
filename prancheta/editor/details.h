// SPDX-License-Identifier: MIT
// Details: a region of the model, at a scale of its own, elsewhere in the model or on a sheet.
//
// The region is what its outline covers, a circle or the rectangle around a polyline in the model,
// with the detail's letter beside it. In the model the detail is an insertion of a block that holds
// a copy of what lies in the region: plain entities, which nobody lists or counts; on a sheet it is
// a viewport with a label, and a circle that clips it. The drawing keeps in a dictionary of its own
// which of them belong together. A copy of the insertion shows the same block.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "dbents.h"
#include "prancheta/curves/curve.h"

namespace prancheta {

class Editor;

struct Detail {
    enum class State {
        Live,   ///< shows what lies in its region
        Still,  ///< its outline is gone: it stays as it is
        Parts,  ///< was exploded: the letter remains in use
    };

    std::wstring letter;
    State state = State::Live;
    double scale = 1.0;     ///< drawing units per mm of paper
    double drawnFor = 0.0;  ///< scale of the drawing for which the copy was made; 0: none yet
    Box2d region;           ///< as it was followed last
    Box2d frame;            ///< of the viewport, so
    Box2d letterAt;         ///< a point: where letter and label stood then; empty: not known
    Box2d labelAt;
    AcDbObjectId outline;  ///< in the model, as the letter
    AcDbObjectId mark;
    AcDbObjectId head;   ///< the insertion or the viewport
    AcDbObjectId block;  ///< shown by the insertion
    AcDbObjectId label;  ///< on a sheet, as the border
    AcDbObjectId border;

    bool onSheet() const { return block.isNull(); }
};

/// By letter. O(details).
std::vector<Detail> detailsOf(const AcDbDatabase& database);
/// Under its letter; a former one of this letter is forgotten. False when the drawing refuses.
bool keepDetail(AcDbDatabase& database, const Detail& detail);
/// Of an entity that belongs to one: its parts, and insertions of its block. A letter without a
/// head for none.
Detail detailShownBy(const AcDbDatabase& database, AcDbObjectId entity);
/// The first insertion of a block in the model but this one; null for none. O(entities).
AcDbObjectId insertionOf(const AcDbDatabase& database, AcDbObjectId block, AcDbObjectId but = {});
/// The same ids with the labels of the windows of details among them: copies have one each.
std::vector<AcDbObjectId> withLabels(const AcDbDatabase& database, std::vector<AcDbObjectId> ids);
/// Its record; null for one that is not kept. Erased, the detail is none any more.
AcDbObjectId recordOf(const AcDbDatabase& database, const Detail& detail);
/// The insertion becomes what its block holds: its detail, unless it stands elsewhere, too, follows
/// no more, and keeps mark and letter. Before the insertion goes.
void releaseDetail(AcDbDatabase& database, AcDbObjectId insertion);
/// What lengths between two points are multiplied by to be those of the model: above 0 when both
/// lie in one copy of a detail, else 0. O(details).
double lengthFactorBetween(Editor& editor, const AcGePoint3d& a, const AcGePoint3d& b);
/// A detail of this letter stands. Case does not matter.
bool isLetterInUse(const AcDbDatabase& database, const std::wstring& letter);
/// A, B, ... Z, AA, AB, ...: the first one that is free.
std::wstring freeLetter(const AcDbDatabase& database);
/// "DETALHE A - ESC. 1:5".
std::wstring detailLabel(const std::wstring& letter, double scale);

/// Of the region, closed, in the plan; empty for what bounds none. The entity may be in no drawing.
Curve detailBorder(const AcDbEntity& outline);

/// Lower left end of the letter: outside, at the upper right of the region.
AcGePoint3d letterPlace(const Box2d& region, bool round, double height);
/// A centred line of the label's height, in no drawing; `unit`: drawing units per mm of paper.
std::unique_ptr<AcDbText> detailLabelText(const AcDbDatabase& database, const std::wstring& words,
                                          const AcGePoint3d& top, double unit);

/// Layer of everything that belongs to details.
inline constexpr const wchar_t* kDetailLayer = L"DETALHE";
inline constexpr double kDetailText = 3.5;  ///< mm on paper: label and letter
inline constexpr double kDetailGap = 3.0;   ///< mm on paper, from the border to the label

/// Follows what the steps of a session change.
class DetailFollower {
public:
    /// At the end of a step of undo, inside it: what was changed within a region goes into its
    /// copy, what was changed of a detail's parts into the others. Lines for the user; empty when
    /// there is nothing to say. O(details), and of each that changed what lies in its region.
    std::wstring follow(Editor& editor);
    /// What changed so far does not count: the drawing is new, or undo brought it back.
    void forget(Editor& editor);

private:
    std::uint64_t m_seen = 0;  ///< revision of what the model shows
};

}  // namespace prancheta
