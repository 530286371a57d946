// SPDX-License-Identifier: MIT
// One rule at the end of each command: tied entities follow a piece that changed; a tied entity
// that changed alone has its place learnt again, a plate's with the dimensions that measured to it;
// an erased piece takes its dimensions and plates along and brings them back when it comes back;
// copies, and what came from a file, keep only links that are answered. What lies on a locked layer
// stays, and the user is told. Outside a command the rule runs after each change, except while a
// drawing is read.
#include "zp/objects/watch.h"

#include <algorithm>
#include <cwchar>
#include <cwctype>
#include <memory>
#include <ranges>
#include <string>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "aced.h"
#include "acutads.h"
#include "dbdim.h"
#include "dbsymtb.h"
#include "zp/objects/ends.h"
#include "zp/objects/links.h"
#include "zp/objects/member.h"
#include "zp/objects/moved_chapas.h"
#include "zp/objects/scaled.h"

namespace zp::watch {
namespace {

/// Ids in the order in which they came, each once.
class IdQueue {
public:
    void put(AcDbObjectId id) {
        if (m_seen.insert(id.asOldId()).second) m_order.push_back(id);
    }
    bool has(AcDbObjectId id) const { return m_seen.contains(id.asOldId()); }
    bool empty() const { return m_order.empty(); }
    const std::vector<AcDbObjectId>& order() const { return m_order; }

private:
    std::vector<AcDbObjectId> m_order;
    std::unordered_set<Adesk::LongPtr> m_seen;
};

bool matters(const AcDbObject* o) {
    return o->isKindOf(ZpObject::desc()) || o->isKindOf(AcDbDimension::desc());
}

bool explode(const ACHAR* command) {
    constexpr const wchar_t kName[] = L"EXPLODE";
    const wchar_t* n = kName;
    for (; command != nullptr && *command != L'\0' && *n != L'\0'; ++command, ++n)
        if (static_cast<wchar_t>(std::towupper(static_cast<std::wint_t>(*command))) != *n)
            return false;
    return command != nullptr && *command == L'\0' && *n == L'\0';
}

class Drawing : public AcDbDatabaseReactor {
public:
    explicit Drawing(AcDbDatabase* drawing) : m_drawing(drawing) { drawing->addReactor(this); }
    ~Drawing() override {
        if (m_drawing != nullptr) m_drawing->removeReactor(this);
    }
    AcDbDatabase* drawing() const { return m_drawing; }

    void objectAppended(const AcDbDatabase*, const AcDbObject* o) override {
        if (m_applying || o->isUndoing() || !matters(o)) return;
        m_newOnes.put(o->objectId());
        m_toClose.insert(o->objectId().asOldId());
    }
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

class CommandWatch : public AcEditorReactor {
public:
    CommandWatch() {
        if (AcEditor* editor = acedEditor; editor != nullptr) editor->addReactor(this);
    }
    ~CommandWatch() override {
        if (AcEditor* editor = acedEditor; editor != nullptr) editor->removeReactor(this);
    }
    void commandWillStart(const ACHAR*) override { ++m_commands; }
    void commandEnded(const ACHAR* name) override { end(name); }
    void commandCancelled(const ACHAR* name) override { end(name); }
    void commandFailed(const ACHAR* name) override { end(name); }
    bool inCommand() const { return m_commands > 0; }

private:
    void end(const ACHAR* name);
    int m_commands = 0;
};

// The host calls reactors by pointer, without a context of the module's own.
struct State {
    std::unique_ptr<CommandWatch> commands;
    std::vector<std::unique_ptr<Drawing>> drawings;
};
State g_state;

void CommandWatch::end(const ACHAR* name) {
    for (const auto& d : g_state.drawings)
        if (d->drawing() != nullptr) d->settle(explode(name));
    m_commands = std::max(0, m_commands - 1);
}

bool inCommand() { return g_state.commands && g_state.commands->inCommand(); }

void Drawing::objectModified(const AcDbDatabase*, const AcDbObject* o) {
    if (m_applying || o->isUndoing() || !matters(o)) return;
    m_changed.put(o->objectId());
    if (m_toClose.erase(o->objectId().asOldId()) > 0) return;
    if (!inCommand() && !m_reading) settle(false);
}

void Drawing::objectErased(const AcDbDatabase*, const AcDbObject* o, Adesk::Boolean erased) {
    if (m_applying || o->isUndoing() || !matters(o)) return;
    (erased ? m_erasedOnes : m_returnedOnes).put(o->objectId());
    if (!inCommand() && !m_reading) settle(false);
}

void Drawing::settle(bool explodes) {
    apply(explodes);
    // What listens may move other ends.
    while (!m_applying && !m_moved.empty()) {
        m_moved.notify();
        apply(false);
    }
}

void Drawing::apply(bool explodes) {
    if (m_applying) return;
    m_applying = true;
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
    m_applying = false;
}

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

void Drawing::checkAll() {
    const AcDbObjectPointer<AcDbBlockTableRecord> space(m_drawing->currentSpaceId(),
                                                        AcDb::kForRead);
    AcDbBlockTableRecordIterator* iterator = nullptr;
    if (space.object() == nullptr || space->newIterator(iterator) != Acad::eOk) return;
    const std::unique_ptr<AcDbBlockTableRecordIterator> holder(iterator);
    m_applying = true;
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
    m_applying = false;
}

/// A new piece keeps a link when the other side names it, or when the other side is as new as
/// itself and was copied with it; a new dimension keeps the pieces that name it.
void Drawing::check(AcDbObjectId id, const IdQueue& newOnes) {
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

void Drawing::checkPeca(ZpObject& peca, const IdQueue& newOnes) {
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
void Drawing::carry(AcDbObjectId id, bool explodes) {
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

void Drawing::detach(AcDbObjectId owner, AcDbObjectId id) {
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
void Drawing::bringBack(AcDbObjectId id, IdQueue& owners) {
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
void Drawing::reattach(AcDbObjectId id, IdQueue& owners) {
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

void Drawing::putOrHold(AcDbObjectId id) {
    const AcDbObjectPointer<ZpObject> peca(id, AcDb::kForRead);
    if (peca.object() != nullptr) put(*peca.object());
}

void Drawing::put(const ZpObject& peca) {
    putLinked(peca, {[this](AcDbObjectId held) { m_heldOnes.put(held); },
                     [this](AcDbObjectId locked) {
                         if (m_justMade.has(locked)) return false;
                         stays(locked);
                         return true;
                     }});
}

bool isKind(AcDbObjectId id, const AcRxClass* kind) {
    return id.objectClass() != nullptr && id.objectClass()->isDerivedFrom(kind);
}

/// "3 cotas", behind what is there already.
void addCounted(std::wstring& text, std::size_t count, const wchar_t* one, const wchar_t* many) {
    if (count == 0) return;
    if (!text.empty()) text += L" e ";
    text += std::to_wstring(count) + L" " + (count == 1 ? one : many);
}

/// "2 chapas e 1 cota"; empty where there are none.
std::wstring counted(const IdQueue& ids) {
    const auto count = [&](AcRxClass* kind) {
        return static_cast<std::size_t>(
            std::ranges::count_if(ids.order(), [&](AcDbObjectId id) { return isKind(id, kind); }));
    };
    const std::size_t chapas = count(ZpChapa::desc());
    const std::size_t cotas = count(AcDbDimension::desc());
    std::wstring text;
    addCounted(text, chapas, L"chapa", L"chapas");
    addCounted(text, cotas, L"cota", L"cotas");
    addCounted(text, ids.order().size() - chapas - cotas, L"peça", L"peças");
    return text;
}

/// `one` and `many` say what became of them, and why.
void sayOf(const IdQueue& ids, const wchar_t* one, const wchar_t* many) {
    if (!ids.empty())
        acutPrintf(L"\n%ls %ls; desbloqueie a camada para alterar.\n", counted(ids).c_str(),
                   ids.order().size() == 1 ? one : many);
}

void Drawing::say() {
    m_scaled.say();
    sayOf(std::exchange(m_stayed, {}), L"fica como está, em camada bloqueada",
          L"ficam como estão, em camada bloqueada");
    sayOf(std::exchange(m_heldByPeca, {}), L"fica com a sua peça, que está em camada bloqueada",
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

void Drawing::follow() {
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

void Drawing::learnAgain(AcDbObjectId id, const IdQueue& changed, MovedChapas& movedChapas,
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
void Drawing::putBack(const Strays& strays) {
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

}  // namespace

void start() {
    if (!g_state.commands) g_state.commands = std::make_unique<CommandWatch>();
}

void stop() {
    g_state.drawings.clear();
    g_state.commands.reset();
}

namespace {

/// Null for a drawing that is not watched.
Drawing* watchOf(AcDbObjectId id) {
    for (const auto& d : g_state.drawings)
        if (d->drawing() != nullptr && d->drawing() == id.database()) return d.get();
    return nullptr;
}

}  // namespace

void stays(AcDbObjectId linked) {
    if (Drawing* const d = watchOf(linked)) d->stays(linked);
}

void movesEnd(AcDbObjectId peca, const edit::Former& before) {
    if (Drawing* const d = watchOf(peca)) d->note(peca, before, ends::Moved::What::Ends);
}

void changes(AcDbObjectId peca, const edit::Former& before) {
    if (Drawing* const d = watchOf(peca)) d->note(peca, before, ends::Moved::What::Whole);
}

void scales(AcDbObjectId peca, const std::wstring& before) {
    if (Drawing* const d = watchOf(peca)) d->scales(peca, before);
}

void refused(AcDbObjectId peca, const std::wstring& reason) {
    if (Drawing* const d = watchOf(peca)) d->refused(peca, reason);
}

void observe(AcDbDatabase* drawing) {
    if (drawing == nullptr) return;
    std::erase_if(g_state.drawings, [](const auto& d) { return d->drawing() == nullptr; });
    for (const auto& d : g_state.drawings)
        if (d->drawing() == drawing) return;
    g_state.drawings.push_back(std::make_unique<Drawing>(drawing));
}

void observeReading(AcDbDatabase* drawing) {
    const auto watchesIt = [&](const auto& d) { return d->drawing() == drawing; };
    if (drawing == nullptr || std::ranges::any_of(g_state.drawings, watchesIt)) return;
    observe(drawing);
    g_state.drawings.back()->startReading();
}

void check(AcDbDatabase* drawing) {
    for (const auto& d : g_state.drawings) {
        if (drawing == nullptr || d->drawing() != drawing) continue;
        d->checkAll();
        d->apply(false);
    }
}

void leave(AcDbDatabase* drawing) {
    std::erase_if(g_state.drawings, [&](const auto& d) {
        return d->drawing() == drawing || d->drawing() == nullptr;
    });
}

}  // namespace zp::watch
