// SPDX-License-Identifier: MIT
// Who wants to be told: the reactors of one kind.
#pragma once

#include <algorithm>
#include <vector>

namespace prancheta {

/// The reactors belong to the programs that added them.
template <class Reactor>
class ReactorList {
public:
    /// A null pointer, or one that is in the list, changes nothing.
    void add(Reactor* reactor) {
        if (reactor != nullptr && !contains(reactor)) m_reactors.push_back(reactor);
    }
    void remove(Reactor* reactor) { std::erase(m_reactors, reactor); }
    template <class Condition>
    void removeIf(Condition condition) {
        std::erase_if(m_reactors, condition);
    }
    /// In the order in which they were added. One that is taken out meanwhile is told no more.
    template <class Argument>
    void tell(void (Reactor::*message)(Argument), Argument argument) const {
        for (Reactor* const reactor : std::vector(m_reactors))
            if (contains(reactor)) (reactor->*message)(argument);
    }

private:
    bool contains(const Reactor* reactor) const {
        return std::find(m_reactors.begin(), m_reactors.end(), reactor) != m_reactors.end();
    }

    std::vector<Reactor*> m_reactors;
};

}  // namespace prancheta
