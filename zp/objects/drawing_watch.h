// SPDX-License-Identifier: MIT
// One rule at the end of each command: tied entities follow a piece that changed; a tied entity
// that changed alone has its place learnt again, a plate's with the dimensions that measured to it;
// an erased piece takes its dimensions and plates along and brings them back when it comes back;
// copies, and what came from a file, keep only links that are answered. What lies on a locked layer
// stays, and the user is told. Outside a command the rule runs after each change, except while a
// drawing is read.
#pragma once

#include <cstddef>
#include <string>
#include <unordered_map>
#include <unordered_set>
#include <utility>
#include <vector>

#include "dbapserv.h"
#include "zp/objects/ends.h"
#include "zp/objects/id_queue.h"
#include "zp/objects/links.h"
#include "zp/objects/moved_chapas.h"
#include "zp/objects/scaled.h"

namespace zp::watch {

class DrawingWatch : public AcDbDatabaseReactor {
public:
    /// `inCommand` tells whether a command runs, at whose end settle() will be called.
    DrawingWatch(AcDbDatabase* drawing, bool (*inCommand)())
        : m_drawing(drawing), m_inCommand(inCommand) {
        drawing->addReactor(this);
    }
    ~DrawingWatch() override {
        if (m_drawing != nullptr) m_drawing->removeReactor(this);
    }
    AcDbDatabase* drawing() const { return m_drawing; }

    void objectAppended(const AcDbDatabase*, const AcDbObject* o) override;
    void objectModified(const AcDbDatabase*, const AcDbObject* o) override;
    void objectErased(const AcDbDatabase*, const AcDbObject* o, Adesk::Boolean erased) override;
    void goodbye(const AcDbDatabase*) override { m_drawing = nullptr; }

    void apply(bool explodes);
    /// As `apply`, and the listeners hear of moved ends.
    void settle(bool explodes);
    void stays(AcDbObjectId id) { m_stayed.put(id); }
    void note(AcDbObjectId id, const edit::Former& before, ends::Moved::What what) {
        if (!m_reading) m_moved.note(id, before, what);
    }
    void scales(AcDbObjectId id, const std::wstring& before) {
        if (!m_reading) m_scaled.note(id, before);
    }
    void refused(AcDbObjectId id, const std::wstring& reason) {
        m_changed.put(id);
        m_moved.refuse(reason);
    }
    void startReading() { m_reading = true; }
    /// Other programs erase and copy without minding links.
    void checkAll();

private:
    void check(AcDbObjectId id, const IdQueue& newOnes);
    void checkPeca(ZpObject& peca, const IdQueue& newOnes);
    void carry(AcDbObjectId id, bool explodes);
    void detach(AcDbObjectId owner, AcDbObjectId id);
    void bringBack(AcDbObjectId id, IdQueue& owners);
    void reattach(AcDbObjectId id, IdQueue& owners);
    void putOrHold(AcDbObjectId peca);
    void put(const ZpObject& peca);
    void say();
    void follow();
    using Strays = std::vector<std::pair<AcDbObjectId, AcDbObjectId>>;  ///< with their owners first
    void learnAgain(AcDbObjectId id, const IdQueue& changed, MovedChapas& movedChapas,
                    Strays& strays);
    void putBack(const Strays& strays);

    AcDbDatabase* m_drawing;
    bool (*m_inCommand)();
    bool m_applying = false;
    bool m_reading = false;
    IdQueue m_newOnes;
    IdQueue m_changed;
    IdQueue m_erasedOnes;
    IdQueue m_returnedOnes;
    IdQueue m_heldOnes;
    /// Entities of the command before: what is still being placed goes with its piece even where
    /// its layer is locked.
    IdQueue m_justMade;
    IdQueue m_stayed;      ///< on locked layers
    IdQueue m_heldByPeca;  ///< tied to a piece on a locked layer
    ends::Moved m_moved;
    Scaled m_scaled;
    IdQueue m_unlaced;  ///< copies of laced pieces that have no plates
    /// What a piece knew of something tied to it that was erased alone, and where among its links.
    struct Undone {
        AcDbObjectId owner;
        std::ptrdiff_t place;
        Link link;
    };
    std::unordered_map<Adesk::LongPtr, std::vector<Undone>> m_undone;  // by what was erased
    /// New objects whose first access has not ended: what they are tied to may not be there yet.
    std::unordered_set<Adesk::LongPtr> m_toClose;
};

}  // namespace zp::watch
