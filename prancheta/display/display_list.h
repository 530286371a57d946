// SPDX-License-Identifier: MIT
// The entities of a drawing's space as displayed, under a spatial index.
//
// Design. One item an entity: its box, its layer, its place in drawing order. Boxes are kept for
// all items in a grid of boxes (cost of a query: what it finds); pictures are recorded when
// somebody looks at them and kept while there is room, oldest out first. The list follows the
// drawing as a reactor: what changed is noted and brought up to date by the next query, so a
// command that touches one entity costs one entity.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <vector>

#include "dbapserv.h"
#include "prancheta/display/box.h"
#include "prancheta/graphics/picture.h"

namespace prancheta {

class DisplayList {
public:
    struct Item {
        AcDbObjectId id;
        Box2d box;                ///< world, empty for an entity that draws nothing
        std::uint32_t order = 0;  ///< drawing order: greater is nearer to the viewer
        AcDbObjectId layer;
    };

    /// Follows a space of `database`, which must outlive the list; with none the current one.
    explicit DisplayList(AcDbDatabase& database, AcDbObjectId space = {});
    /// The same list with its annotations `factor` times as large (annotations.h); `whole`, which
    /// outlives it, is a list of a space that was named. It keeps annotations only, so its cost is
    /// theirs. Its extents, size and revisions are those of `whole`.
    DisplayList(DisplayList& whole, double factor);
    ~DisplayList();
    DisplayList(const DisplayList&) = delete;
    DisplayList& operator=(const DisplayList&) = delete;

    /// Calls `visit` for every displayed item (visible, layer neither off nor frozen) whose box
    /// meets `area`, in no particular order. Cost: what it finds. `visit` may not change the
    /// drawing.
    void query(const Box2d& area, const std::function<void(const Item&)>& visit);
    /// The same items in drawing order. O(k log k) of the k found.
    std::vector<Item> find(const Box2d& area);
    /// Box of all displayed items; empty for an empty drawing. O(1), O(items) after one on its
    /// border changed or a layer was turned on or off.
    Box2d extents();
    /// Number of displayed items that draw something.
    std::size_t size();
    /// The displayed entity that was created last (greatest handle), also one that draws nothing or
    /// is open for write; null when there is none.
    AcDbObjectId last();

    /// What the entity draws; the reference is good until the next call of any function of the
    /// list. An entity that is open for write or gone gives an empty picture.
    const Picture& picture(AcDbObjectId id);

    /// Grows with every change that can be seen, layers' changes included. Equal numbers: nothing
    /// to repaint.
    std::uint64_t revision();
    /// Boxes of what looked different before and after the changes since revision `since`; one box
    /// of everything when that is too long ago.
    std::vector<Box2d> changedSince(std::uint64_t since);
    /// Everything is looked at anew (REGEN; what no object tells of: LTSCALE and the like).
    void invalidate();

private:
    struct Impl;
    std::unique_ptr<Impl> m_impl;
};

}  // namespace prancheta
