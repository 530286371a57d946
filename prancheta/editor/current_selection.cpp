// SPDX-License-Identifier: MIT
// What is selected while no command runs.
#include "prancheta/editor/current_selection.h"

#include <algorithm>
#include <unordered_set>
#include <utility>

#include "prancheta/database/database_core.h"
#include "prancheta/editor/editor.h"

namespace prancheta {
namespace {

bool same(const Grip& a, const Grip& b) { return a.entity == b.entity && a.index == b.index; }

std::unordered_set<Adesk::LongPtr> namesOf(const CurrentSelection::Ids& ids) {
    std::unordered_set<Adesk::LongPtr> names;
    for (const AcDbObjectId& id : ids) names.insert(id.asOldId());
    return names;
}

}  // namespace

void CurrentSelection::select(Ids ids) {
    m_ids = std::move(ids);
    coolOthers();
}

void CurrentSelection::clear() {
    m_ids.clear();
    m_hotGrips.clear();
}

CurrentSelection::Ids CurrentSelection::take() {
    Ids ids = std::exchange(m_ids, {});
    clear();
    if (m_editor.database().core().variables().number(L"PICKFIRST") == 0) ids.clear();
    return ids;
}

void CurrentSelection::pick(const Ids& ids, Shift shift) {
    const SystemVariables& variables = m_editor.database().core().variables();
    if (variables.number(L"PICKFIRST") == 0) return;
    const bool alone = variables.number(L"PICKADD") == 0;
    const bool replaces = alone && shift == Shift::Up;
    const std::size_t before = m_ids.size();
    std::unordered_set<Adesk::LongPtr> named = namesOf(ids);
    std::erase_if(m_ids,
                  [&](const AcDbObjectId& id) { return replaces || named.contains(id.asOldId()); });
    // Where every pick replaces, Shift is the way to add.
    if (shift == Shift::Up || (alone && m_ids.size() == before))
        for (const AcDbObjectId& id : ids)
            if (named.erase(id.asOldId()) != 0) m_ids.push_back(id);
    coolOthers();
}

void CurrentSelection::coolOthers() {
    if (m_hotGrips.empty()) return;
    const std::unordered_set<Adesk::LongPtr> named = namesOf(m_ids);
    std::erase_if(m_hotGrips,
                  [&](const Grip& grip) { return !named.contains(grip.entity.asOldId()); });
}

bool CurrentSelection::isHot(const Grip& grip) const {
    return std::any_of(m_hotGrips.begin(), m_hotGrips.end(),
                       [&](const Grip& hot) { return same(hot, grip); });
}

void CurrentSelection::heat(const Grip& grip) {
    cool(grip);
    m_hotGrips.push_back(grip);
}

void CurrentSelection::cool(const Grip& grip) {
    std::erase_if(m_hotGrips, [&](const Grip& hot) { return same(hot, grip); });
}

}  // namespace prancheta
