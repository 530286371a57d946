// SPDX-License-Identifier: MIT
// The current space and the states of its layers.
#pragma once

#include <unordered_map>
#include <vector>

#include "dbmain.h"

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

/// All entities of the current space that are not erased, in drawing order.
std::vector<AcDbObjectId> entitiesOfSpace(const Editor& editor);

}  // namespace prancheta
