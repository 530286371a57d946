// SPDX-License-Identifier: MIT
// Deep clone. Originals are written to memory, which also tells what they own; when all copies have
// their place in the drawing, they read what was written with every reference inside the set turned
// to the copy's. Cost: O(objects), with those in the blocks that come along.
#include "prancheta/database/deep_clone.h"

#include "prancheta/base/text.h"
#include "prancheta/database/memory_filer.h"
#include "prancheta/database/object_access.h"

using namespace prancheta;

namespace {

/// The object itself where it has no copy.
AcDbObjectId copyOf(const Copies& copies, AcDbObjectId id) {
    const auto found = copies.find(id);
    return found != copies.end() ? found->second : id;
}

AcDbObject& objectAt(AcDbObjectId id) { return *static_cast<AcDbStub*>(id)->object; }

/// The table of another drawing where such a record belongs.
AcDbObjectId tableFor(const AcDbSymbolTableRecord& record, const AcDbDatabase& target) {
    const AcDbDatabase& source = *record.database();
    for (const auto table : {&AcDbDatabase::blockTableId, &AcDbDatabase::layerTableId,
                             &AcDbDatabase::linetypeTableId, &AcDbDatabase::textStyleTableId,
                             &AcDbDatabase::dimStyleTableId, &AcDbDatabase::regAppTableId})
        if (record.ownerId() == (source.*table)()) return (target.*table)();
    return {};
}

struct Clone {
    Clone(AcDbObjectId of, AcDb::FilerType type) : original(of), filer(type) {}
    AcDbObjectId original;
    std::unique_ptr<AcDbObject> object;  ///< null for what cannot leave its drawing
    MemoryFiler filer;
};

class Cloner {
public:
    /// Between two drawings nothing is shared: what is referred to comes along when it is a record,
    /// and is forgotten when not.
    Cloner(AcDbDatabase& source, AcDbDatabase& target)
        : m_source(source), m_target(target), m_crosses(&source != &target) {}

    Acad::ErrorStatus run(const AcDbObjectIdArray& ids, AcDbObjectId owner,
                          AcDbObjectIdArray& copies) {
        for (AcDbObjectId id : ids) {
            if (id.database() != &m_source) return Acad::eWrongDatabase;
            if (id.isErased()) return Acad::eWasErased;
            if (AcDbEntity::cast(&objectAt(id)) == nullptr) return Acad::eNotAnEntity;
            const Acad::ErrorStatus es = take(id);
            if (es != Acad::eOk) return es;
        }
        m_entities = m_clones.size();
        for (std::size_t i = 0; i < m_clones.size(); ++i) write(*m_clones[i]);
        place(owner);
        return read(copies);
    }

    AcDbObjectId copy(AcDbObjectId original) const {
        const auto found = m_copies.find(original);
        return found != m_copies.end() ? found->second : AcDbObjectId();
    }
    /// Entities that could not leave their drawing, in blocks too.
    std::size_t left() const { return m_left; }

private:
    Acad::ErrorStatus take(AcDbObjectId id) {
        if (!id.isResident() || id.isErased() || m_copies.contains(id)) return Acad::eOk;
        auto clone = std::make_unique<Clone>(
            id, m_crosses ? AcDb::kWblockCloneFiler : AcDb::kDeepCloneFiler);
        std::unique_ptr<AcRxObject> made(id.objectClass()->create());
        auto* object = AcDbObject::cast(made.get());
        if (object == nullptr) return Acad::eNotApplicable;
        clone->object.reset(object);
        (void)made.release();  // the same object
        m_copies[id] = AcDbObjectId();
        m_clones.push_back(std::move(clone));
        return Acad::eOk;
    }

    /// A record that the copies refer to: the target's of the same name where it has one. A block
    /// brings what it holds; one without a name of its own comes again each time.
    void takeRecord(AcDbObjectId id) {
        if (!id.isResident() || id.isErased() || m_copies.contains(id)) return;
        const auto* const record = AcDbSymbolTableRecord::cast(&objectAt(id));
        if (record == nullptr) return;
        const auto* const block = AcDbBlockTableRecord::cast(record);
        if (block != nullptr && block->isLayout()) return;
        if (block == nullptr || !block->isAnonymous())
            if (const AcDbObjectId known =
                    ObjectAccess::lookup(tableFor(*record, m_target), ObjectAccess::name(*record));
                !known.isNull()) {
                m_copies[id] = known;
                return;
            }
        if (take(id) != Acad::eOk || block == nullptr) return;
        for (const AcDbObjectId entity : ObjectAccess::entities(*block))
            (void)take(entity);  // one that cannot be made stays behind
    }

    /// What is owned is found while its owner is written; owned objects that cannot be made stay
    /// with the original alone.
    void write(Clone& clone) {
        std::vector<AcDbObjectId> owned;
        std::vector<AcDbObjectId> referred;
        clone.filer.ownedWritten = [&](AcDbObjectId id) { owned.push_back(id); };
        if (m_crosses)
            clone.filer.referenceWritten = [&](AcDbObjectId id) { referred.push_back(id); };
        const Acad::ErrorStatus es = objectAt(clone.original).dwgOutFields(&clone.filer);
        clone.filer.ownedWritten = clone.filer.referenceWritten = nullptr;
        if (m_crosses && es != Acad::eOk) {
            clone.object.reset();
            ++m_left;
            return;
        }
        // An entity comes along only when it is asked for, too.
        for (AcDbObjectId id : owned)
            if (id.isResident() && AcDbEntity::cast(&objectAt(id)) == nullptr) (void)take(id);
        for (AcDbObjectId id : referred) takeRecord(id);
    }

    /// Owners first: they stand before what they own.
    void place(AcDbObjectId owner) {
        DatabaseCore& core = m_target.core();
        for (std::size_t i = 0; i < m_clones.size(); ++i) {
            Clone& clone = *m_clones[i];
            if (!clone.object) continue;
            const AcDbObject& original = objectAt(clone.original);
            if (const auto* const record = AcDbSymbolTableRecord::cast(&original)) {
                m_copies[clone.original] = placeRecord(clone, *record);
                continue;
            }
            const AcDbObjectId parent = i < m_entities ? owner : m_copies[original.ownerId()];
            if (parent.isNull()) continue;                   // its block could not be made
            (void)core.makeResident(*clone.object, parent);  // fails for taken handles only
            m_copies[clone.original] = clone.object.release()->objectId();
        }
    }

    AcDbObjectId placeRecord(Clone& clone, const AcDbSymbolTableRecord& original) {
        auto& record = static_cast<AcDbSymbolTableRecord&>(*clone.object);
        const std::wstring& name = ObjectAccess::name(original);
        // "*U" stands for the next free one.
        const auto* const block = AcDbBlockTableRecord::cast(&original);
        const bool numbered = block != nullptr && block->isAnonymous();
        ObjectAccess::setName(record, numbered ? name.substr(0, 2) : name);
        const AcDbObjectPointer<AcDbSymbolTable> table(tableFor(original, m_target),
                                                       AcDb::kForWrite);
        AcDbObjectId id;
        if (table.object() != nullptr && table->add(id, &record) == Acad::eOk)
            (void)clone.object.release();
        else
            clone.object.reset();
        return id;
    }

    Acad::ErrorStatus read(AcDbObjectIdArray& copies) {
        Acad::ErrorStatus worst = Acad::eOk;
        for (std::size_t i = 0; i < m_clones.size(); ++i) {
            Clone& clone = *m_clones[i];
            const AcDbObjectId copy = m_copies[clone.original];
            if (copy.isNull()) continue;
            AcDbObject& object = objectAt(copy);
            const Acad::ErrorStatus es = readOne(clone, object);
            if (es != Acad::eOk) worst = es;
            if (!object.isKindOf(AcDbEntity::desc())) continue;
            ObjectAccess::entities(static_cast<AcDbBlockTableRecord&>(objectAt(object.ownerId())))
                .push_back(copy);
            if (i < m_entities) copies.append(copy);
        }
        for (const auto& clone : m_clones) {
            AcDbStub* stub = m_copies[clone->original];
            // A record was announced when its table got it, and is told of as changed now.
            if (stub == nullptr || stub->object->isKindOf(AcDbSymbolTableRecord::desc())) continue;
            stub->modified = false;
            m_target.core().announce(*stub->object);
        }
        for (const auto& clone : m_clones)
            if (const AcDbObjectId copy = m_copies[clone->original]; !copy.isNull())
                (void)objectAt(copy).close();
        return worst;
    }

    Acad::ErrorStatus readOne(Clone& clone, AcDbObject& object) {
        clone.filer.translate = [this](AcDbObjectId id) {
            return m_crosses ? this->copy(id) : copyOf(m_copies, id);
        };
        // What belongs to the original is not the copy's.
        clone.filer.translateOwned = [this](AcDbObjectId id) { return this->copy(id); };
        clone.filer.rewind();
        auto* const record = AcDbSymbolTableRecord::cast(&object);
        if (record == nullptr) {
            const Acad::ErrorStatus es = object.dwgInFields(&clone.filer);
            registerApplications(object);
            return es;
        }
        // It reads its former name, which another record of this drawing may have.
        const std::wstring name = ObjectAccess::name(*record);
        const AcDbObjectId other =
            ObjectAccess::lookup(record->ownerId(), ObjectAccess::recordName(clone.original));
        const Acad::ErrorStatus es = object.dwgInFields(&clone.filer);
        ObjectAccess::setName(*record, name);
        if (!other.isNull()) ObjectAccess::cameBack(objectAt(other));
        registerApplications(object);
        return es;
    }

    /// Extended data name their applications by text alone.
    void registerApplications(const AcDbObject& object) {
        const ObjectExtra* const extra = m_crosses ? ObjectAccess::extra(object) : nullptr;
        if (extra == nullptr) return;
        for (const RawTagView& tag : extra->xdata)
            if (tag.code == 1001) (void)m_target.core().ensureRegApp(toWide(tag.value));
    }

    AcDbDatabase& m_source;
    AcDbDatabase& m_target;
    bool m_crosses;
    std::vector<std::unique_ptr<Clone>> m_clones;  // the entities asked for, then what they need
    std::size_t m_entities = 0;
    std::size_t m_left = 0;
    Copies m_copies;
};

bool isBlock(AcDbObjectId owner) {
    return owner.isResident() && owner.objectClass() == AcDbBlockTableRecord::desc();
}

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
    if (!isBlock(owner)) return Acad::eWrongObjectType;
    return Cloner(*this, *this).run(ids, owner, copies);
}

Acad::ErrorStatus prancheta::cloneAcross(const AcDbObjectIdArray& ids, AcDbObjectId owner,
                                         AcDbObjectIdArray& copies, std::size_t& left) {
    if (ids.isEmpty()) return Acad::eOk;
    if (ids[0].isNull() || owner.isNull()) return Acad::eNullObjectId;
    if (!isBlock(owner)) return Acad::eWrongObjectType;
    Cloner cloner(*ids[0].database(), *owner.database());
    AcDbObjectIdArray made;
    const Acad::ErrorStatus es = cloner.run(ids, owner, made);
    if (made.isEmpty() && cloner.left() == 0) return es;
    for (const AcDbObjectId id : ids) copies.append(cloner.copy(id));
    left += cloner.left();
    return es;
}
