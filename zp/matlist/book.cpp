// SPDX-License-Identifier: MIT
// Pieces, rows and marks of a drawing, kept up by what the drawing reports.
#include "zp/matlist/book.h"

#include <algorithm>
#include <memory>
#include <utility>

#include "dbents.h"
#include "dbxrecrd.h"
#include "zp/matlist/zpmarca.h"
#include "zp/objects/each_entity.h"
#include "zp/objects/member.h"

namespace zp::matlist {
namespace {

/// How near the tip of a mark is to a corner to stand on it, mm.
constexpr double kAtTip = 1e-6;
/// Blocks inside one another, more than anybody nests.
constexpr int kMaxDepth = 128;

std::vector<std::unique_ptr<Book>>& books() {
    static std::vector<std::unique_ptr<Book>> all;
    return all;
}

void (*g_listener)(AcDbDatabase&) = nullptr;

Key keyOf(AcDbObjectId id) { return id.asOldId(); }

bool isLayout(AcDbObjectId block) {
    const AcDbObjectPointer<AcDbBlockTableRecord> record(block, AcDb::kForRead);
    return record.object() == nullptr || record->isLayout();
}

bool isModelSpace(AcDbObjectId block) {
    const AcDbObjectPointer<AcDbBlockTableRecord> record(block, AcDb::kForRead);
    const ACHAR* name = nullptr;
    return record.object() != nullptr && record->getName(name) == Acad::eOk &&
           std::wstring_view(name) == ACDB_MODEL_SPACE;
}

/// Letters of a mark that ends in a number; the number is 0 when it does not.
struct Parts {
    std::wstring letters;
    int number = 0;
};

Parts partsOf(const std::wstring& marca) {
    const std::size_t digits = marca.find_last_not_of(L"0123456789") + 1;
    const bool numbered = digits > 0 && digits < marca.size() && marca.size() - digits <= 9;
    return {marca.substr(0, digits), numbered ? std::stoi(marca.substr(digits)) : 0};
}

}  // namespace

Book& Book::of(AcDbDatabase& drawing) {
    std::erase_if(books(), [](const auto& book) { return book->m_drawing == nullptr; });
    for (const auto& book : books())
        if (book->m_drawing == &drawing) return *book;
    books().push_back(std::make_unique<Book>(drawing));
    books().back()->readAll();
    return *books().back();
}

void Book::forget(AcDbDatabase* drawing) {
    std::erase_if(books(), [&](const auto& book) {
        return book->m_drawing == drawing || book->m_drawing == nullptr;
    });
}

void Book::forgetAll() { books().clear(); }

Book::Book(AcDbDatabase& drawing)
    : m_drawing(&drawing),
      m_alikeKnown(&drawing == acdbHostApplicationServices()->workingDatabase()) {
    drawing.addReactor(this);
}

Book::~Book() {
    if (m_drawing != nullptr) m_drawing->removeReactor(this);
}

void Book::changed(const AcDbObject* o, bool appears) {
    const bool follows = o->isKindOf(ZpObject::desc()) || o->isKindOf(ZpMarca::desc());
    const bool ofList =
        o->isKindOf(AcDbXrecord::desc()) && (m_rows.contains(keyOf(o->objectId())) ||
                                             (appears && m_lists.contains(keyOf(o->ownerId()))));
    const bool inserts = o->isKindOf(AcDbBlockReference::desc());
    if (!follows && !ofList && !inserts) return;
    markDirty(o->objectId());
    const bool counts = follows || (inserts && !m_pecasIn.empty());
    if (!counts || ownWork() || o->isUndoing()) return;
    if (m_isByUser.insert(keyOf(o->objectId())).second) m_byUser.push_back(o->objectId());
    if (g_listener != nullptr) g_listener(*m_drawing);
}

void Book::setListener(void (*listener)(AcDbDatabase&)) { g_listener = listener; }

void Book::markDirty(AcDbObjectId id) {
    if (m_isDirty.insert(keyOf(id)).second) m_dirty.push_back(id);
}

void Book::readAll() {
    m_first = true;
    std::vector<AcDbObjectId> rows;
    for (const MaterialList& list : materialLists(*m_drawing)) {
        std::map<int, AcDbObjectId>& numbers = m_lists[keyOf(list.id)];
        const std::vector<RowRecord> records = storedRecords(list.id);
        m_rows.reserve(m_rows.size() + records.size());
        for (const RowRecord& record : records) {
            numbers.emplace_hint(numbers.end(), record.number, record.id);
            Row& row = m_rows[keyOf(record.id)];
            row.list = list.id;
            row.number = record.number;
            rows.push_back(record.id);
        }
    }
    for (const AcDbObjectId& id : rows)
        if (!readRow(id)) markDirty(id);
    std::vector<AcDbObjectId> entities;
    eachEntity(*m_drawing, [&](AcDbObjectId id) {
        const AcRxClass* kind = id.objectClass();
        if (kind != nullptr &&
            (kind->isDerivedFrom(ZpObject::desc()) || kind->isDerivedFrom(ZpMarca::desc()) ||
             kind->isDerivedFrom(AcDbBlockReference::desc())))
            entities.push_back(id);
    });
    m_pecas.reserve(entities.size());
    for (const AcDbObjectId& id : entities)
        if (!read(id)) markDirty(id);
    refresh();
    m_first = false;
}

void Book::refresh() {
    // What is read may make other things dirty: the plates of a bar.
    std::vector<AcDbObjectId> later;
    while (!m_dirty.empty()) {
        const std::vector<AcDbObjectId> dirty = std::exchange(m_dirty, {});
        // To clear a set that was large once costs its size each time.
        m_isDirty = std::unordered_set<Key>();
        for (const AcDbObjectId& id : dirty)
            if (!read(id)) later.push_back(id);
    }
    for (const AcDbObjectId& id : later) markDirty(id);
    countInsertions();
}

bool Book::read(AcDbObjectId id) {
    const AcRxClass* kind = id.objectClass();
    if (m_rows.contains(keyOf(id)) || (kind != nullptr && kind->isDerivedFrom(AcDbXrecord::desc())))
        return readRow(id);
    if (kind == nullptr) return true;
    if (kind->isDerivedFrom(ZpObject::desc())) return readPeca(id);
    if (kind->isDerivedFrom(ZpMarca::desc())) return readMarca(id);
    return readInsertion(id);
}

void Book::takeOut(Peca& peca) {
    if (peca.row.isNull()) return;
    Row& row = m_rows[keyOf(peca.row)];
    if (!m_first) m_before.try_emplace(peca.row, row.quantidade);
    row.quantidade -= std::exchange(peca.counted, 0);
    row.pecas.erase(peca.id);
    if (const auto alike = m_alike.find(peca.hash); alike != m_alike.end()) {
        alike->second.erase(peca.id);
        if (alike->second.empty()) m_alike.erase(alike);
    }
}

void Book::knowAlike() {
    if (std::exchange(m_alikeKnown, true)) return;
    for (auto& [key, p] : m_pecas) {
        const AcDbObjectPointer<ZpObject> peca(p.id, AcDb::kForRead);
        if (peca.object() == nullptr || p.row.isNull() || !p.alive) continue;
        p.hash = member::hashOf(*peca.object());
        m_alike[p.hash].insert(p.id);
    }
}

void Book::putIn(Peca& peca) {
    if (peca.row.isNull() || !peca.alive) return;
    Row& row = m_rows[keyOf(peca.row)];
    if (!m_first) m_before.try_emplace(peca.row, row.quantidade);
    const auto in = m_pecasIn.find(keyOf(peca.block));
    peca.counted = in == m_pecasIn.end() ? peca.own : peca.own * insertionsOf(peca.block);
    row.quantidade += peca.counted;
    row.pecas.insert(peca.id);
    if (m_alikeKnown) m_alike[peca.hash].insert(peca.id);
}

bool Book::readPeca(AcDbObjectId id) {
    const AcDbObjectPointer<ZpObject> peca(id, AcDb::kForRead, true);
    if (peca.openStatus() == Acad::eWasOpenForWrite) return false;
    const bool alive = peca.object() != nullptr && !peca->isErased();
    if (alive)
        for (const AcDbObjectId& chapa : edit::chapasOf(*peca.object()))
            if (m_pecas.contains(keyOf(chapa))) markDirty(chapa);
    const auto known = m_pecas.find(keyOf(id));
    const AcDbObjectId row =
        peca.object() != nullptr ? AcDbObjectId(member::of(*peca.object()).row) : AcDbObjectId();
    if (known == m_pecas.end() && (row.isNull() || !alive)) return true;
    Peca& p = m_pecas[keyOf(id)];
    p.id = id;
    takeOut(p);
    p.row = m_rows.contains(keyOf(row)) ? row : AcDbObjectId();
    p.alive = alive;
    p.own = 0;
    if (!alive) return true;
    if (m_alikeKnown) p.hash = member::hashOf(*peca.object());
    p.own = member::of(*peca.object()).count;
    if (const AcDbObjectId bar = edit::ownerOf(*peca.object()); !bar.isNull()) {
        const AcDbObjectPointer<ZpObject> owner(bar, AcDb::kForRead);
        if (owner.openStatus() == Acad::eWasOpenForWrite) markDirty(bar);
        if (owner.object() != nullptr) p.own *= member::of(*owner.object()).count;
    }
    if (p.block != peca->ownerId()) {
        p.block = peca->ownerId();
        if (!isLayout(p.block)) m_pecasIn[keyOf(p.block)].push_back(id);
    }
    putIn(p);
    return true;
}

bool Book::readMarca(AcDbObjectId id) {
    const AcDbObjectPointer<ZpMarca> marca(id, AcDb::kForRead, true);
    if (marca.openStatus() == Acad::eWasOpenForWrite) return false;
    Marca& m = m_marcas[keyOf(id)];
    const bool known = !m.peca.isNull();
    const AcDbObjectId peca = marca.object() != nullptr ? marca->peca() : AcDbObjectId();
    m.alive = marca.object() != nullptr && !marca->isErased();
    if (m.peca != peca) {
        if (known) std::erase(m_marcasOf[keyOf(m.peca)], id);
        if (!peca.isNull()) m_marcasOf[keyOf(peca)].push_back(id);
        m.peca = peca;
    }
    // Where the user put it is learnt when what he did is followed.
    if (!m_isByUser.contains(keyOf(id)) || !known) learnTip(id);
    return true;
}

void Book::learnTip(AcDbObjectId id) {
    const auto known = m_marcas.find(keyOf(id));
    if (known == m_marcas.end()) return;
    const AcDbObjectPointer<ZpMarca> marca(id, AcDb::kForRead);
    const AcDbObjectPointer<ZpObject> peca(known->second.peca, AcDb::kForRead);
    if (marca.object() == nullptr || peca.object() == nullptr) return;
    const edit::Faces faces = edit::cornersOf(*peca.object());
    Tip tip;
    for (int corner = 3; corner >= 0; --corner)
        if (marca->tip().distanceTo(faces.f[corner]) <= kAtTip) tip.corner = corner;
    tip.offset =
        AcGePoint3d::kOrigin + Access::of(*peca.object()).pictureFrame().toLocal(marca->tip());
    known->second.tip = tip;
}

AcGePoint3d Book::placeOf(const Tip& tip, const ZpObject& peca) {
    if (tip.corner >= 0) return edit::cornersOf(peca).f[tip.corner];
    return Access::of(peca).pictureFrame().toWorld(tip.offset.x, tip.offset.y, tip.offset.z);
}

void Book::enter(AcDbObjectId list, int number, AcDbObjectId record) {
    Row& row = m_rows[keyOf(record)];
    row.list = list;
    row.number = number;
    m_lists[keyOf(list)][number] = record;
    m_fresh.insert(record);
    markDirty(record);
}

bool Book::readRow(AcDbObjectId id) {
    const auto known = m_rows.find(keyOf(id));
    if (known == m_rows.end()) {
        // One that this session did not write: undo of another module, perhaps.
        const AcDbObjectPointer<AcDbXrecord> record(id, AcDb::kForRead, true);
        if (record.object() == nullptr || !m_lists.contains(keyOf(record->ownerId()))) return true;
        for (const RowRecord& r : storedRecords(record->ownerId()))
            if (r.id == id) enter(record->ownerId(), r.number, id);
        return true;
    }
    Row& row = known->second;
    const AcDbObjectPointer<AcDbXrecord> record(id, AcDb::kForRead);
    if (record.openStatus() == Acad::eWasOpenForWrite) return false;
    if (!m_first) m_changedLists.insert(row.list);
    const std::optional<RowNames> stored = storedNames(id);
    const std::wstring marca = stored ? stored->marca : std::wstring();
    // A mark that stays is not free in between: finding the lowest free one again is a long way.
    if (row.alive != stored.has_value() || row.marca != marca) {
        if (row.alive) takeText(id, row);
        row.alive = stored.has_value();
        row.marca = marca;
        if (row.alive) giveText(id, row);
    }
    if (!row.alive) return true;
    for (const AcDbSoftPointerId& marca : stored->ids)
        if (!marca.isNull()) m_naming[keyOf(marca)] = id;
    return true;
}

void Book::giveText(AcDbObjectId record, const Row& row) { m_texts[row.marca].push_back(record); }

void Book::takeText(AcDbObjectId record, const Row& row) {
    const auto found = m_texts.find(row.marca);
    if (found == m_texts.end()) return;
    std::erase(found->second, record);
    if (!found->second.empty()) return;
    m_texts.erase(found);
    const Parts parts = partsOf(row.marca);
    const auto lowest = m_lowestFree.find(parts.letters);
    if (parts.number > 0 && lowest != m_lowestFree.end())
        lowest->second = std::min(lowest->second, parts.number);
}

bool Book::readInsertion(AcDbObjectId id) {
    const AcDbObjectPointer<AcDbBlockReference> reference(id, AcDb::kForRead, true);
    if (reference.openStatus() == Acad::eWasOpenForWrite) return false;
    if (reference.object() == nullptr) return true;
    Insertion fresh{reference->blockTableRecord(), reference->ownerId(), !reference->isErased()};
    if (const auto* const array = AcDbMInsertBlock::cast(reference.object()))
        fresh.times = static_cast<long long>(array->columns()) * array->rows();
    Insertion& known = m_insertions[keyOf(id)];
    const bool same = known == fresh;
    known = fresh;
    m_insertionsChanged = m_insertionsChanged || !same;
    m_insidesStale = m_insidesStale || !same;
    return true;
}

long long Book::insertionsOf(AcDbObjectId block, int depth) {
    if (depth > kMaxDepth) return 0;
    const auto found = m_times.find(keyOf(block));
    return found != m_times.end() ? found->second : 0;
}

long long Book::timesOf(AcDbObjectId block, int depth) {
    if (depth > kMaxDepth) return 0;
    if (const auto known = m_times.find(keyOf(block)); known != m_times.end()) return known->second;
    long long sum = isModelSpace(block) ? 1 : 0;
    if (const auto inside = m_insides.find(keyOf(block)); inside != m_insides.end())
        for (const Insertion* const each : inside->second)
            sum += each->times * timesOf(each->inside, depth + 1);
    return m_times[keyOf(block)] = sum;
}

void Book::refreshInsides() {
    if (!m_insidesStale) return;
    m_insidesStale = false;
    m_insides.clear();
    m_times.clear();
    for (const auto& [key, insertion] : m_insertions)
        if (insertion.alive) m_insides[keyOf(insertion.block)].push_back(&insertion);
}

long long Book::insertions(AcDbObjectId block) {
    refresh();
    if (isLayout(block)) return 1;
    refreshInsides();
    return timesOf(block, 0);
}

void Book::countInsertions() {
    if (!m_insertionsChanged || m_pecasIn.empty()) return;
    m_insertionsChanged = false;
    refreshInsides();
    for (const auto& [block, ids] : m_pecasIn) {
        AcDbObjectId id;
        (void)timesOf(id.setFromOldId(block), 0);
        for (const AcDbObjectId& peca : ids) {
            Peca& p = m_pecas[keyOf(peca)];
            if (keyOf(p.block) != block) continue;
            takeOut(p);
            putIn(p);
        }
    }
}

const Book::Row* Book::row(AcDbObjectId record) {
    refresh();
    const auto found = m_rows.find(keyOf(record));
    return found != m_rows.end() ? &found->second : nullptr;
}

std::vector<AcDbObjectId> Book::records(AcDbObjectId list) {
    refresh();
    std::vector<AcDbObjectId> alive;
    for (const auto& [number, record] : m_lists[keyOf(list)])
        if (m_rows[keyOf(record)].alive) alive.push_back(record);
    return alive;
}

int Book::nextNumber(AcDbObjectId list) {
    refresh();
    const auto& numbers = m_lists[keyOf(list)];
    return numbers.empty() ? 1 : numbers.rbegin()->first + 1;
}

std::wstring Book::freeMarca(const std::wstring& like, const std::vector<int>& given) {
    refresh();
    const Parts parts = partsOf(like);
    const std::wstring letters = parts.number > 0 ? parts.letters : L"P";
    // Below it all are taken; it goes on from where it was found.
    int& lowest = m_lowestFree.try_emplace(letters, 1).first->second;
    while (m_texts.contains(letters + std::to_wstring(lowest))) ++lowest;
    int n = lowest;
    while (m_texts.contains(letters + std::to_wstring(n)) ||
           std::ranges::find(given, n) != given.end())
        ++n;
    return letters + std::to_wstring(n);
}

AcDbObjectId Book::rowWithMarca(const std::wstring& marca, AcDbObjectId besides) {
    refresh();
    const auto found = m_texts.find(marca);
    if (found == m_texts.end()) return {};
    for (const AcDbObjectId& record : found->second)
        if (record != besides) return record;
    return {};
}

long long Book::counts(AcDbObjectId peca) {
    refresh();
    const auto found = m_pecas.find(keyOf(peca));
    return found != m_pecas.end() && found->second.alive ? found->second.counted : 0;
}

AcDbObjectId Book::rowOf(AcDbObjectId peca) {
    refresh();
    const auto found = m_pecas.find(keyOf(peca));
    return found != m_pecas.end() ? found->second.row : AcDbObjectId();
}

AcDbObjectId Book::rowNaming(AcDbObjectId marca) {
    refresh();
    const auto found = m_naming.find(keyOf(marca));
    return found != m_naming.end() && m_rows[keyOf(found->second)].alive ? found->second
                                                                         : AcDbObjectId();
}

std::vector<AcDbObjectId> Book::marcasOf(AcDbObjectId peca) {
    refresh();
    std::vector<AcDbObjectId> alive;
    if (const auto found = m_marcasOf.find(keyOf(peca)); found != m_marcasOf.end())
        std::ranges::copy_if(found->second, std::back_inserter(alive),
                             [&](AcDbObjectId id) { return m_marcas[keyOf(id)].alive; });
    std::ranges::sort(alive, Older());
    return alive;
}

std::vector<AcDbObjectId> Book::likely(const ZpObject& peca) {
    refresh();
    knowAlike();
    std::vector<AcDbObjectId> found;
    for (const int step : {0, -1, 1})
        if (const auto alike = m_alike.find(member::hashOf(peca, step)); alike != m_alike.end())
            found.insert(found.end(), alike->second.begin(), alike->second.end());
    std::ranges::sort(found, Older());
    return found;
}

std::vector<AcDbObjectId> Book::marcas() {
    refresh();
    std::vector<AcDbObjectId> alive;
    for (const auto& [key, marca] : m_marcas) {
        AcDbObjectId id;
        if (marca.alive) alive.push_back(id.setFromOldId(key));
    }
    std::ranges::sort(alive, Older());
    return alive;
}

const Book::Marca* Book::marca(AcDbObjectId id) {
    refresh();
    const auto found = m_marcas.find(keyOf(id));
    return found != m_marcas.end() ? &found->second : nullptr;
}

Book::Changes Book::takeChanges() {
    refresh();
    // What is still open for writing has not ended its change.
    std::vector<AcDbObjectId> later;
    std::vector<AcDbObjectId> ended;
    for (const AcDbObjectId& id : m_byUser)
        (m_isDirty.contains(keyOf(id)) ? later : ended).push_back(id);
    m_isByUser = std::unordered_set<Key>();
    for (const AcDbObjectId& id : later) m_isByUser.insert(keyOf(id));
    m_byUser = std::move(later);
    return {std::move(ended), std::exchange(m_before, {}), std::exchange(m_fresh, {}),
            std::exchange(m_returned, {}), std::exchange(m_changedLists, {})};
}

}  // namespace zp::matlist
