// SPDX-License-Identifier: MIT
// The entities of a drawing's current space as displayed.
#include "prancheta/display/display_list.h"

#include <algorithm>

#include "prancheta/display/items.h"

namespace prancheta {

struct DisplayList::Impl {
    Impl(AcDbDatabase& database, AcDbObjectId space) : items(database, space) {}
    DisplayItems& current() {
        items.update();
        return items;
    }
    DisplayItems items;
};

DisplayList::DisplayList(AcDbDatabase& database, AcDbObjectId space)
    : m_impl(std::make_unique<Impl>(database, space)) {}
DisplayList::~DisplayList() = default;

void DisplayList::query(const Box2d& area, const std::function<void(const Item&)>& visit) {
    DisplayItems& items = m_impl->current();
    const DisplayItems::Visiting visiting(items);
    items.index().visit(area, [&](DisplayItems::Number number) {
        if (items.displayed(number))
            visit({items.id(number), items.box(number), items.order(number), items.layer(number)});
    });
}

std::vector<DisplayList::Item> DisplayList::find(const Box2d& area) {
    std::vector<Item> found;
    query(area, [&](const Item& item) { found.push_back(item); });
    std::sort(found.begin(), found.end(),
              [](const Item& a, const Item& b) { return a.order < b.order; });
    return found;
}

Box2d DisplayList::extents() { return m_impl->current().extents(); }
std::size_t DisplayList::size() { return m_impl->current().size(); }
AcDbObjectId DisplayList::last() { return m_impl->current().last(); }
const Picture& DisplayList::picture(AcDbObjectId id) { return m_impl->current().picture(id); }
std::uint64_t DisplayList::revision() { return m_impl->current().changes().revision(); }
std::vector<Box2d> DisplayList::changedSince(std::uint64_t since) {
    return m_impl->current().changes().since(since);
}
void DisplayList::invalidate() { m_impl->items.invalidate(); }

}  // namespace prancheta
