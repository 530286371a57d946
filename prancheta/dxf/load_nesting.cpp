// SPDX-License-Identifier: MIT
// How deep the blocks of a drawing lie in one another.
//
// Kahn's algorithm from the innermost blocks outwards: no recursion, however deep they lie, and
// what is left over is in a circle or shows one. Cost: O(blocks + entities in them).
#include <unordered_map>
#include <vector>

#include "prancheta/base/nesting.h"
#include "prancheta/base/text.h"
#include "prancheta/database/object_access.h"
#include "prancheta/dxf/loader.h"
#include "prancheta/entities/block_content.h"

namespace prancheta::dxf {
namespace {

struct Nest {
    const AcDbBlockTableRecord* record = nullptr;
    std::vector<AcDbStub*> shows;
    std::vector<AcDbStub*> shownBy;
    std::size_t open = 0;  ///< blocks that it shows and that are not counted yet
    int levels = 1;
};
using Nests = std::unordered_map<AcDbStub*, Nest>;

Nests nestsOf(AcDbDatabase& database) {
    Nests nests;
    const auto& table =
        static_cast<AcDbSymbolTable&>(*static_cast<AcDbStub*>(database.blockTableId())->object);
    for (const AcDbObjectId id : ObjectAccess::records(table)) {
        const auto& record =
            static_cast<const AcDbBlockTableRecord&>(*static_cast<AcDbStub*>(id)->object);
        // Nothing shows a space.
        if (!record.isLayout()) nests[id].record = &record;
    }
    for (auto& [stub, nest] : nests) {
        for (const AcDbObjectId id : ObjectAccess::entities(*nest.record)) {
            AcDbStub* const shown =
                blockShownBy(static_cast<AcDbEntity&>(*static_cast<AcDbStub*>(id)->object));
            if (!nests.contains(shown)) continue;
            nest.shows.push_back(shown);
            nests[shown].shownBy.push_back(stub);
            ++nest.open;
        }
    }
    return nests;
}

/// Counts the levels of all blocks but those that are in a circle or show one.
int countLevels(Nests& nests) {
    std::vector<AcDbStub*> ready;
    for (const auto& [stub, nest] : nests)
        if (nest.open == 0) ready.push_back(stub);
    int most = 0;
    while (!ready.empty()) {
        const Nest& inner = nests[ready.back()];
        ready.pop_back();
        most = std::max(most, inner.levels);
        for (AcDbStub* const stub : inner.shownBy) {
            Nest& outer = nests[stub];
            outer.levels = std::max(outer.levels, inner.levels + 1);
            if (--outer.open == 0) ready.push_back(stub);
        }
    }
    return most;
}

/// A block in a circle, found by going inwards until one comes again; null when there is none.
const AcDbBlockTableRecord* blockInCircle(const Nests& nests) {
    const auto isLeft = [&](const auto& stub) { return nests.at(stub).open > 0; };
    const auto first = std::find_if(nests.begin(), nests.end(),
                                    [](const auto& entry) { return entry.second.open > 0; });
    if (first == nests.end()) return nullptr;
    std::unordered_set<AcDbStub*> passed;
    AcDbStub* stub = first->first;
    while (passed.insert(stub).second) {
        const std::vector<AcDbStub*>& shows = nests.at(stub).shows;
        stub = *std::find_if(shows.begin(), shows.end(), isLeft);
    }
    return nests.at(stub).record;
}

}  // namespace

void Loader::noteNesting() {
    Nests nests = nestsOf(m_database);
    if (const int levels = countLevels(nests); levels > kDeepestNesting)
        note("há blocos uns dentro dos outros em " + std::to_string(levels) +
                 " níveis; o que está além de " + std::to_string(kDeepestNesting) +
                 " níveis fica no desenho mas não é mostrado",
             nullptr, 0);
    if (const AcDbBlockTableRecord* const block = blockInCircle(nests))
        note("o bloco \"" + toUtf8(ObjectAccess::name(*block)) +
                 "\" contém a si mesmo; a repetição não é mostrada",
             nullptr, block->objectId().handle().value());
}

}  // namespace prancheta::dxf
