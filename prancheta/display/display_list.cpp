// SPDX-License-Identifier: MIT
// The entities of a drawing's current space as displayed.
#include "prancheta/display/display_list.h"

#include <algorithm>

#include "prancheta/display/items.h"

namespace prancheta {

struct DisplayList::Impl {
    Impl(AcDbDatabase& database, AcDbObjectId space) : items(database, space) {}
    Impl(Impl& of, double factor)
        : items(of.items.database(), of.items.space(), factor), whole(&of) {}
    DisplayItems& current() {
        items.update();
        return items;
    }
    /// Of all that is shown.
    DisplayItems& all() { return whole != nullptr ? whole->current() : current(); }
    /// The items that show an entity.
    DisplayItems& itemsOf(AcDbObjectId id) {
        return whole == nullptr || current().replaces(items.find(id)) ? current() : all();
    }

    DisplayItems items;
    Impl* whole = nullptr;
};

DisplayList::DisplayList(AcDbDatabase& database, AcDbObjectId space)
    : m_impl(std::make_unique<Impl>(database, space)) {}
DisplayList::DisplayList(DisplayList& whole, double factor)
    : m_impl(std::make_unique<Impl>(*whole.m_impl, factor)) {}
DisplayList::~DisplayList() = default;

void DisplayList::query(const Box2d& area, const std::function<void(const Item&)>& visit) {
    DisplayItems& own = m_impl->current();
    const DisplayItems::Visiting visiting(own);
    const auto visitItems = [&](const DisplayItems& items) {
        items.index().visit(area, [&](DisplayItems::Number number) {
            if (items.displayed(number) && (&items == &own || !own.replaces(number)))
                visit({items.id(number), items.box(number), items.order(number),
                       items.layer(number)});
        });
    };
    visitItems(own);
    if (m_impl->whole == nullptr) return;
    const DisplayItems::Visiting visitingAll(m_impl->all());
    visitItems(m_impl->whole->items);
}

std::vector<DisplayList::Item> DisplayList::find(const Box2d& area) {
    std::vector<Item> found;
    query(area, [&](const Item& item) { found.push_back(item); });
    std::sort(found.begin(), found.end(),
              [](const Item& a, const Item& b) { return a.order < b.order; });
    return found;
}

Box2d DisplayList::extents() { return m_impl->all().extents(); }
std::size_t DisplayList::size() { return m_impl->all().size(); }
AcDbObjectId DisplayList::last() { return m_impl->all().last(); }
const Picture& DisplayList::picture(AcDbObjectId id) { return m_impl->itemsOf(id).picture(id); }
std::uint64_t DisplayList::revision() { return m_impl->all().changes().revision(); }
std::vector<Box2d> DisplayList::changedSince(std::uint64_t since) {
    return m_impl->all().changes().since(since);
}
void DisplayList::invalidate() {
    m_impl->items.invalidate();
    if (m_impl->whole != nullptr) m_impl->whole->items.invalidate();
}

}  // namespace prancheta
