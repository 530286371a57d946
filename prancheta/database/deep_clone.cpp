// SPDX-License-Identifier: MIT
// Deep clone. Originals are written to memory, which also tells what they own; when all copies have
// their place in the drawing, they read what was written with every reference inside the set turned
// to the copy's. Cost: O(objects).
#include "prancheta/database/deep_clone.h"

#include "prancheta/database/memory_filer.h"
#include "prancheta/database/object_access.h"

using namespace prancheta;

namespace {

/// The object itself where it has no copy.
AcDbObjectId copyOf(const Copies& copies, AcDbObjectId id) {
    const auto found = copies.find(id);
    return found != copies.end() ? found->second : id;
}

struct Clone {
    AcDbObjectId original;
    std::unique_ptr<AcDbObject> object;
    MemoryFiler filer{AcDb::kDeepCloneFiler};
};

class Cloner {
public:
    explicit Cloner(AcDbDatabase& database) : m_database(database) {}

    Acad::ErrorStatus run(const AcDbObjectIdArray& ids, AcDbObjectId owner,
                          AcDbObjectIdArray& copies) {
        for (AcDbObjectId id : ids) {
            if (id.database() != &m_database) return Acad::eWrongDatabase;
            if (id.isErased()) return Acad::eWasErased;
            if (AcDbEntity::cast(static_cast<AcDbStub*>(id)->object) == nullptr)
                return Acad::eNotAnEntity;
            const Acad::ErrorStatus es = take(id);
            if (es != Acad::eOk) return es;
        }
        m_entities = m_clones.size();
        for (std::size_t i = 0; i < m_clones.size(); ++i) {
            // What is owned is found while its owner is written; owned objects that cannot be made
            // stay with the original.
            const std::vector<AcDbObjectId> owned = write(*m_clones[i]);
            for (AcDbObjectId id : owned) (void)take(id);
        }
        place(owner);
        return read(copies);
    }

private:
    Acad::ErrorStatus take(AcDbObjectId id) {
        if (!id.isResident() || id.isErased() || m_copies.contains(id)) return Acad::eOk;
        auto clone = std::make_unique<Clone>();
        std::unique_ptr<AcRxObject> made(id.objectClass()->create());
        auto* object = AcDbObject::cast(made.get());
        if (object == nullptr) return Acad::eNotApplicable;
        clone->object.reset(object);
        (void)made.release();  // the same object
        clone->original = id;
        m_copies[id] = AcDbObjectId();
        m_clones.push_back(std::move(clone));
        return Acad::eOk;
    }

    std::vector<AcDbObjectId> write(Clone& clone) {
        std::vector<AcDbObjectId> owned;
        clone.filer.ownedWritten = [&](AcDbObjectId id) { owned.push_back(id); };
        (void)static_cast<AcDbStub*>(clone.original)->object->dwgOutFields(&clone.filer);
        clone.filer.ownedWritten = nullptr;
        return owned;
    }

    /// Owners first: they stand before what they own.
    void place(AcDbObjectId owner) {
        DatabaseCore& core = m_database.core();
        for (std::size_t i = 0; i < m_clones.size(); ++i) {
            Clone& clone = *m_clones[i];
            AcDbObjectId parent = owner;
            if (i >= m_entities)
                parent = m_copies[static_cast<AcDbStub*>(clone.original)->object->ownerId()];
            (void)core.makeResident(*clone.object, parent);  // fails for taken handles only
            m_copies[clone.original] = clone.object.release()->objectId();
        }
    }

    Acad::ErrorStatus read(AcDbObjectIdArray& copies) {
        DatabaseCore& core = m_database.core();
        Acad::ErrorStatus worst = Acad::eOk;
        for (std::size_t i = 0; i < m_clones.size(); ++i) {
            Clone& clone = *m_clones[i];
            const AcDbObjectId copy = m_copies[clone.original];
            AcDbObject& object = *static_cast<AcDbStub*>(copy)->object;
            clone.filer.translate = [this](AcDbObjectId id) { return copyOf(m_copies, id); };
            clone.filer.rewind();
            const Acad::ErrorStatus es = object.dwgInFields(&clone.filer);
            if (es != Acad::eOk) worst = es;
            if (i >= m_entities) continue;
            auto* block = static_cast<AcDbBlockTableRecord*>(
                static_cast<AcDbStub*>(object.ownerId())->object);
            ObjectAccess::entities(*block).push_back(copy);
            copies.append(copy);
        }
        for (const auto& clone : m_clones) {
            AcDbStub* stub = m_copies[clone->original];
            stub->modified = false;
            core.announce(*stub->object);
        }
        for (const auto& clone : m_clones)
            static_cast<AcDbStub*>(m_copies[clone->original])->object->close();
        return worst;
    }

    AcDbDatabase& m_database;
    std::vector<std::unique_ptr<Clone>> m_clones;  // the entities asked for, then what they own
    std::size_t m_entities = 0;
    Copies m_copies;
};

}  // namespace

void prancheta::translateReferences(const Copies& copies) {
    for (const auto& [original, copy] : copies) {
        const AcDbObjectPointer<AcDbObject> object(copy, AcDb::kForWrite);
        if (object.openStatus() != Acad::eOk) continue;
        MemoryFiler filer(AcDb::kDeepCloneFiler);
        bool refers = false;
        filer.referenceWritten = [&](AcDbObjectId id) { refers = refers || copies.contains(id); };
        (void)object->dwgOutFields(&filer);
        if (!refers) continue;
        filer.translate = [&](AcDbObjectId id) { return copyOf(copies, id); };
        filer.rewind();
        (void)object->dwgInFields(&filer);  // what it wrote itself
    }
}

Acad::ErrorStatus AcDbDatabase::deepCloneObjects(const AcDbObjectIdArray& ids, AcDbObjectId owner,
                                                 AcDbObjectIdArray& copies) {
    if (owner.isNull()) return Acad::eNullObjectId;
    if (owner.database() != this) return Acad::eWrongDatabase;
    if (owner.objectClass() != AcDbBlockTableRecord::desc()) return Acad::eWrongObjectType;
    return Cloner(*this).run(ids, owner, copies);
}
