// SPDX-License-Identifier: MIT
// What follows what, at the end of each command.
#include "zp/objects/drawing_watch.h"

#include <algorithm>
#include <ranges>

#include "acutads.h"
#include "dbdim.h"
#include "dbsymtb.h"
#include "zp/objects/held_words.h"
#include "zp/objects/member.h"

namespace zp::watch {
namespace {

bool matters(const AcDbObject* o) {
    return o->isKindOf(ZpObject::desc()) || o->isKindOf(AcDbDimension::desc());
}

/// Nothing that the rule does itself calls for the rule.
class Applying {
public:
    explicit Applying(bool& flag) : m_flag(flag) { m_flag = true; }
    ~Applying() { m_flag = false; }
    Applying(const Applying&) = delete;
    Applying& operator=(const Applying&) = delete;

private:
    bool& m_flag;
};

/// Whether all links of the entity are known on their other side, as far as that can be read.
bool answered(const AcDbEntity& entity) {
    const auto listed = [](const auto& ids, AcDbObjectId id) {
        return std::ranges::find(ids, id) != ids.end();
    };
    if (const auto* peca = ZpObject::cast(&entity)) {
        for (const Link& l : Access::of(*peca).linked()) {
            if (l.role == Link::Role::Owner) continue;
            const AcDbObjectPointer<AcDbEntity> other(l.id, AcDb::kForRead);
            if (other.openStatus() == Acad::eWasOpenForWrite) continue;
            if (other.object() == nullptr || !listed(ownersOf(*other.object()), entity.objectId()))
                return false;
        }
    }
    for (const AcDbObjectId& owner : ownersOf(entity)) {
        const AcDbObjectPointer<ZpObject> peca(owner, AcDb::kForRead);
        if (peca.openStatus() == Acad::eWasOpenForWrite) continue;
        if (peca.object() == nullptr ||
            Access::of(*peca.object()).link(entity.objectId()) == nullptr)
            return false;
    }
    return true;
}

}  // namespace

void DrawingWatch::objectAppended(const AcDbDatabase*, const AcDbObject* o) {
    if (m_applying || o->isUndoing() || !matters(o)) return;
    m_newOnes.put(o->objectId());
    m_toClose.insert(o->objectId().asOldId());
}

void DrawingWatch::objectModified(const AcDbDatabase*, const AcDbObject* o) {
    if (m_applying || o->isUndoing() || !matters(o)) return;
    m_changed.put(o->objectId());
    if (m_toClose.erase(o->objectId().asOldId()) > 0) return;
    if (!m_inCommand() && !m_reading) settle(false);
}

void DrawingWatch::objectErased(const AcDbDatabase*, const AcDbObject* o, Adesk::Boolean erased) {
    if (m_applying || o->isUndoing() || !matters(o)) return;
    (erased ? m_erasedOnes : m_returnedOnes).put(o->objectId());
    if (!m_inCommand() && !m_reading) settle(false);
}

void DrawingWatch::settle(bool explodes) {
    apply(explodes);
    // What listens may move other ends.
    while (!m_applying && !m_moved.empty()) {
        m_moved.notify();
        apply(false);
    }
}

void DrawingWatch::apply(bool explodes) {
    if (m_applying) return;
    const Applying applying(m_applying);
    m_reading = false;
    IdQueue newOnes = std::exchange(m_newOnes, {});
    m_toClose.clear();
    for (const AcDbObjectId& id : newOnes.order()) check(id, newOnes);
    const IdQueue erasedOnes = std::exchange(m_erasedOnes, {});
    for (const AcDbObjectId& id : erasedOnes.order()) carry(id, explodes);
    // In the reverse order, so that each link finds the place that it had among the others.
    const IdQueue returnedOnes = std::exchange(m_returnedOnes, {});
    IdQueue owners;
    for (const AcDbObjectId& id : returnedOnes.order() | std::views::reverse) bringBack(id, owners);
    for (const AcDbObjectId& owner : owners.order()) putOrHold(owner);
    follow();
    m_changed = std::exchange(m_heldOnes, {});
    m_justMade = std::move(newOnes);
    say();
}

void DrawingWatch::checkAll() {
    const AcDbObjectPointer<AcDbBlockTableRecord> space(m_drawing->currentSpaceId(),
                                                        AcDb::kForRead);
    AcDbBlockTableRecordIterator* iterator = nullptr;
    if (space.object() == nullptr || space->newIterator(iterator) != Acad::eOk) return;
    const std::unique_ptr<AcDbBlockTableRecordIterator> holder(iterator);
    const Applying applying(m_applying);
    for (; !iterator->done(); iterator->step()) {
        AcDbObjectId id;
        if (iterator->getEntityId(id) != Acad::eOk) continue;
        bool loose = false;
        {
            const AcDbObjectPointer<AcDbEntity> entity(id, AcDb::kForRead);
            loose = entity.object() != nullptr && matters(entity.object()) &&
                    !answered(*entity.object());
        }
        if (loose) check(id, {});
    }
}

/// A new piece keeps a link when the other side names it, or when the other side is as new as
/// itself and was copied with it; a new dimension keeps the pieces that name it.
void DrawingWatch::check(AcDbObjectId id, const IdQueue& newOnes) {
    AcDbEntity* entity = nullptr;
    if (acdbOpenAcDbEntity(entity, id, AcDb::kForWrite) != Acad::eOk) return;
    if (auto* peca = ZpObject::cast(entity)) checkPeca(*peca, newOnes);
    for (const AcDbObjectId& owner : ownersOf(*entity)) {
        const AcDbObjectPointer<ZpObject> peca(owner, AcDb::kForRead);
        if (peca.openStatus() == Acad::eWasOpenForWrite) continue;
        const bool remembers = peca.object() != nullptr &&
                               std::ranges::any_of(Access::of(*peca.object()).linked(),
                                                   [&](const Link& l) { return l.id == id; });
        if (!remembers) removeOwner(*entity, owner);
    }
    (void)entity->close();
}

void DrawingWatch::checkPeca(ZpObject& peca, const IdQueue& newOnes) {
    std::vector<AcDbObjectId> dead;
    for (const Link& l : Access::of(peca).linked()) {
        if (l.role == Link::Role::Owner) continue;
        const bool fresh = newOnes.has(l.id);
        const AcDbObjectPointer<AcDbEntity> other(l.id, fresh ? AcDb::kForWrite : AcDb::kForRead);
        if (other.openStatus() == Acad::eWasOpenForWrite) continue;
        if (other.object() == nullptr) {
            dead.push_back(l.id);
            continue;
        }
        const auto owners = ownersOf(*other.object());
        if (std::find(owners.begin(), owners.end(), peca.objectId()) != owners.end()) continue;
        if (fresh)
            addOwner(*other.object(), peca.objectId());
        else
            dead.push_back(l.id);
    }
    if (dead.empty()) return;
    peca.assertWriteEnabled();
    for (const AcDbObjectId& id : dead) Access::of(peca).untie(id);
    if (member::of(peca).lacing.n > 0 && edit::chapasOf(peca).empty())
        m_unlaced.put(peca.objectId());
}

/// What an erased entity takes along, or what forgets it.
void DrawingWatch::carry(AcDbObjectId id, bool explodes) {
    struct Other {
        AcDbObjectId id;
        bool erases;
    };
    std::vector<Other> others;
    std::vector<AcDbObjectId> owners;
    {
        AcDbEntity* erased = nullptr;
        if (acdbOpenAcDbEntity(erased, id, AcDb::kForRead, true) != Acad::eOk) return;
        owners = ownersOf(*erased);
        const bool was = erased->isErased();
        if (const auto* peca = ZpObject::cast(erased))
            for (const Link& l : Access::of(*peca).linked())
                if (l.role != Link::Role::Owner)
                    others.push_back({l.id, l.role == Link::Role::Cota});
        (void)erased->close();
        if (!was) return;
    }
    m_undone.erase(id.asOldId());
    for (const AcDbObjectId& owner : owners) detach(owner, id);
    for (Other& other : others) {
        AcDbEntity* entity = nullptr;
        if (acdbOpenAcDbEntity(entity, other.id, AcDb::kForWrite) != Acad::eOk) continue;
        if (const auto* peca = ZpObject::cast(entity)) other.erases = Access::of(*peca).chapa();
        bool vanishes = other.erases && !explodes;
        if (vanishes && edit::onLockedLayer(*entity)) {
            vanishes = false;
            stays(other.id);
        }
        if (vanishes)
            (void)entity->erase();  // open for write and alive
        else
            removeOwner(*entity, id);
        (void)entity->close();
        if (vanishes) carry(other.id, explodes);
    }
}

void DrawingWatch::detach(AcDbObjectId owner, AcDbObjectId id) {
    AcDbEntity* peca = nullptr;
    if (acdbOpenAcDbEntity(peca, owner, AcDb::kForWrite) != Acad::eOk) return;
    if (auto* object = ZpObject::cast(peca);
        object != nullptr && Access::of(*object).link(id) != nullptr) {
        object->assertWriteEnabled();
        Peca& p = Access::of(*object);
        const Link* link = p.link(id);
        m_undone[id.asOldId()].push_back({owner, link - p.linked().data(), *link});
        p.untie(id);
    }
    (void)peca->close();
}

/// The other way round of leva: what had gone along comes back, and both sides know of each other.
void DrawingWatch::bringBack(AcDbObjectId id, IdQueue& owners) {
    std::vector<AcDbObjectId> others;
    {
        const AcDbObjectPointer<AcDbEntity> returned(id, AcDb::kForRead);
        if (returned.object() == nullptr) return;
        if (const auto* peca = ZpObject::cast(returned.object()))
            for (const Link& l : Access::of(*peca).linked())
                if (l.role != Link::Role::Owner) others.push_back(l.id);
    }
    for (const AcDbObjectId& other : others | std::views::reverse) {
        AcDbEntity* entity = nullptr;
        if (acdbOpenAcDbEntity(entity, other, AcDb::kForWrite, true) != Acad::eOk) continue;
        const auto* peca = ZpObject::cast(entity);
        const bool was = entity->isErased() && (peca == nullptr || Access::of(*peca).chapa());
        if (was) (void)entity->erase(Adesk::kFalse);  // open for write and erased
        if (!entity->isErased()) addOwner(*entity, id);
        (void)entity->close();
        if (was) bringBack(other, owners);
    }
    reattach(id, owners);
}

/// The pieces that forgot what was erased alone know it again as they did.
void DrawingWatch::reattach(AcDbObjectId id, IdQueue& owners) {
    const auto found = m_undone.find(id.asOldId());
    if (found == m_undone.end()) return;
    for (const Undone& undone : found->second | std::views::reverse) {
        const AcDbObjectPointer<ZpObject> owner(undone.owner, AcDb::kForWrite);
        if (owner.object() == nullptr || Access::of(*owner.object()).link(id) != nullptr) continue;
        owner->assertWriteEnabled();
        Access::of(*owner.object()).insert(undone.place, undone.link);
        owners.put(undone.owner);
    }
    m_undone.erase(found);
}

void DrawingWatch::putOrHold(AcDbObjectId id) {
    const AcDbObjectPointer<ZpObject> peca(id, AcDb::kForRead);
    if (peca.object() != nullptr) put(*peca.object());
}

void DrawingWatch::put(const ZpObject& peca) {
    putLinked(peca, {[this](AcDbObjectId held) { m_heldOnes.put(held); },
                     [this](AcDbObjectId locked) {
                         if (m_justMade.has(locked)) return false;
                         stays(locked);
                         return true;
                     }});
}
void DrawingWatch::say() {
    m_scaled.say();
    sayHeld(std::exchange(m_stayed, {}), L"fica como está, em camada bloqueada",
            L"ficam como estão, em camada bloqueada");
    sayHeld(std::exchange(m_heldByPeca, {}), L"fica com a sua peça, que está em camada bloqueada",
            L"ficam com as suas peças, que estão em camada bloqueada");
    m_moved.say();
    const IdQueue copies = std::exchange(m_unlaced, {});
    const auto unlaced =
        std::ranges::count_if(copies.order(), [](AcDbObjectId id) { return !id.isErased(); });
    if (unlaced == 1)
        acutPrintf(L"\nPeça copiada sem as chapas de travejamento; EDITAPERFIL as refaz.\n");
    else if (unlaced > 1)
        acutPrintf(L"\n%d peças copiadas sem as chapas de travejamento; EDITAPERFIL as refaz.\n",
                   static_cast<int>(unlaced));
}

void DrawingWatch::follow() {
    const IdQueue changed = std::exchange(m_changed, {});
    for (const AcDbObjectId& id : changed.order()) {
        const AcDbObjectPointer<AcDbEntity> entity(id, AcDb::kForRead);
        if (entity.openStatus() == Acad::eWasOpenForWrite) m_heldOnes.put(id);
        if (const auto* peca = ZpObject::cast(entity.object())) put(*peca);
    }
    MovedChapas movedChapas;
    Strays strays;
    for (const AcDbObjectId& id : changed.order()) learnAgain(id, changed, movedChapas, strays);
    putBack(strays);
    for (const AcDbObjectId& barra : movedChapas.takeCotasAlong()) putOrHold(barra);
}

void DrawingWatch::learnAgain(AcDbObjectId id, const IdQueue& changed, MovedChapas& movedChapas,
                              Strays& strays) {
    const AcDbObjectPointer<AcDbEntity> entity(id, AcDb::kForRead);
    if (entity.object() == nullptr) return;
    for (const AcDbObjectId& owner : ownersOf(*entity.object())) {
        if (changed.has(owner)) continue;
        if (edit::onLockedLayer(owner)) {
            strays.emplace_back(owner, id);
            continue;
        }
        const AcDbObjectPointer<ZpObject> peca(owner, AcDb::kForWrite);
        if (peca.object() != nullptr) {
            if (const auto* chapa = ZpObject::cast(entity.object()))
                movedChapas.note(*peca.object(), *chapa);
            learn(*peca.object(), *entity.object());
        } else if (peca.openStatus() == Acad::eWasOpenForWrite ||
                   peca.openStatus() == Acad::eWasOpenForRead)
            m_heldOnes.put(id);
    }
}

/// What was moved away from a piece that nobody may change goes back to it.
void DrawingWatch::putBack(const Strays& strays) {
    for (const auto& [owner, id] : strays) {
        const AcDbObjectPointer<ZpObject> peca(owner, AcDb::kForRead);
        if (peca.object() == nullptr) continue;
        {
            const AcDbObjectPointer<AcDbEntity> entity(id, AcDb::kForRead);
            if (entity.object() == nullptr || !strayed(*peca.object(), *entity.object())) continue;
        }
        zp::putBack(*peca.object(), id,
                    {[this](AcDbObjectId held) { m_heldOnes.put(held); },
                     [](AcDbObjectId) { return true; }});
        m_heldByPeca.put(id);
    }
}

}  // namespace zp::watch
