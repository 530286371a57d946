// SPDX-License-Identifier: MIT
// The pictures of the current space's displayed entities, recorded for one question.
#pragma once

#include <unordered_map>
#include <vector>

#include "dbmain.h"
#include "prancheta/graphics/picture.h"

namespace prancheta {

class Editor;

/// States of layers, each layer opened once.
class LayerStates {
public:
    struct State {
        bool off = false;
        bool frozen = false;
        bool locked = false;
    };
    /// Of an entity's layer; nothing special when it cannot be read.
    const State& of(AcDbObjectId entity);
    const State& ofLayer(AcDbObjectId layer);

private:
    std::unordered_map<Adesk::LongPtr, State> m_states;
};

class Scene {
public:
    struct Item {
        AcDbObjectId id;
        Picture picture;
    };
    /// Leaves out what is invisible, off, frozen, or open for write. O(entities).
    explicit Scene(const Editor& editor);

    /// In drawing order: the last is topmost.
    const std::vector<Item>& entities() const { return m_items; }
    template <class Fits>
    std::vector<AcDbObjectId> select(Fits fits) const {
        std::vector<AcDbObjectId> ids;
        for (const Item& item : m_items)
            if (fits(item.picture)) ids.push_back(item.id);
        return ids;
    }

    /// All entities of the current space that are not erased.
    static std::vector<AcDbObjectId> spaceOf(const Editor& editor);

private:
    std::vector<Item> m_items;
};

}  // namespace prancheta
