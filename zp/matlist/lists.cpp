// SPDX-License-Identifier: MIT
// Material lists in the named objects dictionary.
#include "zp/matlist/lists.h"

#include <algorithm>
#include <cwchar>
#include <memory>
#include <set>

#include "acutads.h"
#include "dbxrecrd.h"
#include "texts/number.h"
#include "zp/buffer_chain.h"
#include "zp/matlist/columns.h"
#include "zp/matlist/zpmarca.h"

namespace zp::matlist {
namespace {

constexpr const ACHAR* kRoot = L"ZP_LISTAS_MATERIAL";
constexpr const ACHAR* kHeader = L"CABECALHO";
constexpr const wchar_t* kListPrefix = L"LISTA";
constexpr const wchar_t* kRowPrefix = L"L";
constexpr short kVersion = 1;

/// Builds a list group by group.
class Writer {
public:
    Writer() { put(int{kVersion}); }
    void put(const std::wstring& t) { tie(acutBuildList(AcDb::kDxfText, t.c_str(), RTNONE)); }
    void put(int v) { tie(acutBuildList(AcDb::kDxfInt32, v, RTNONE)); }
    void put(double v) { tie(acutBuildList(AcDb::kDxfReal, v, RTNONE)); }
    void put(const AcGePoint3d& p) {
        const ads_point xyz = {p.x, p.y, p.z};
        tie(acutBuildList(AcDb::kDxfXCoord, xyz, RTNONE));
    }
    void put(const AcDbObjectId& i) {
        ads_name name;
        if (acdbGetAdsName(name, i) == Acad::eOk)
            tie(acutBuildList(AcDb::kDxfSoftPointerId, name, RTNONE));
    }
    const resbuf* start() const { return m_start.get(); }

private:
    void tie(resbuf* item) {
        if (item == nullptr) return;
        if (m_last == nullptr)
            m_start.reset(item);
        else
            m_last->rbnext = item;
        m_last = item;
    }
    BufferChain m_start;
    resbuf* m_last = nullptr;
};

/// Reads in the same order; after the first thing that does not fit everything is empty.
class Reader {
public:
    explicit Reader(const AcDbXrecord& record) {
        resbuf* list = nullptr;
        (void)record.rbChain(&list);  // an empty record gives no list
        m_start.reset(list);
        m_item = list;
        int version = 0;
        readNext(version);
        if (version != kVersion) m_item = nullptr;
    }
    bool finished() const { return m_item == nullptr; }
    void readNext(std::wstring& t) {
        const resbuf* r = next(AcDb::kDxfText);
        t = r != nullptr && r->resval.rstring != nullptr ? r->resval.rstring : L"";
    }
    void readNext(int& v) {
        const resbuf* r = next(AcDb::kDxfInt32);
        v = r != nullptr ? r->resval.rlong : 0;
    }
    void readNext(double& v) {
        const resbuf* r = next(AcDb::kDxfReal);
        v = r != nullptr ? r->resval.rreal : 0.0;
    }
    void readNext(AcGePoint3d& p) {
        const resbuf* r = next(AcDb::kDxfXCoord);
        p = r != nullptr
                ? AcGePoint3d(r->resval.rpoint[0], r->resval.rpoint[1], r->resval.rpoint[2])
                : AcGePoint3d();
    }
    AcDbObjectId id() {
        AcDbObjectId i;
        const resbuf* r = next(AcDb::kDxfSoftPointerId);
        if (r != nullptr)
            (void)acdbGetObjectId(i, r->resval.rlname);  // null when the object is gone
        return i;
    }

private:
    const resbuf* next(int code) {
        const resbuf* r = m_item;
        if (r == nullptr || r->restype != code) {
            m_item = nullptr;
            return nullptr;
        }
        m_item = r->rbnext;
        return r;
    }
    BufferChain m_start;
    const resbuf* m_item = nullptr;
};

/// Sub-dictionary of this name, made when it is missing.
AcDbObjectId dictionaryIn(AcDbObjectId inside, const ACHAR* name, bool create) {
    AcDbObjectId id;
    const AcDbObjectPointer<AcDbDictionary> d(inside, create ? AcDb::kForWrite : AcDb::kForRead);
    if (d.object() == nullptr || d->getAt(name, id) == Acad::eOk || !create) return id;
    auto fresh = std::make_unique<AcDbDictionary>();
    if (d->setAt(name, fresh.get(), id) == Acad::eOk) (void)fresh.release()->close();
    return id;
}

bool write(AcDbObjectId list, const ACHAR* name, const Writer& writer) {
    const AcDbObjectPointer<AcDbDictionary> d(list, AcDb::kForWrite);
    if (d.object() == nullptr) return false;
    AcDbObjectId id;
    if (d->getAt(name, id) == Acad::eOk) {
        const AcDbObjectPointer<AcDbXrecord> record(id, AcDb::kForWrite);
        return record.object() != nullptr && record->setFromRbChain(*writer.start()) == Acad::eOk;
    }
    auto record = std::make_unique<AcDbXrecord>();
    if (record->setFromRbChain(*writer.start()) != Acad::eOk) return false;
    if (d->setAt(name, record.get(), id) != Acad::eOk) return false;
    (void)record.release()->close();
    return true;
}

/// Number behind a prefix; 0 when the name is another one.
int numberOf(const std::wstring& name, const wchar_t* prefix) {
    const std::size_t n = std::wcslen(prefix);
    if (name.size() <= n || name.size() > n + 9 || name.compare(0, n, prefix) != 0) return 0;
    if (name.find_first_not_of(L"0123456789", n) != std::wstring::npos) return 0;
    return texts::toInt(name.c_str() + n);
}

struct Entry {
    int number;
    AcDbObjectId id;
};

std::vector<Entry> entries(AcDbObjectId dictionary, const wchar_t* prefix) {
    std::vector<Entry> found;
    const AcDbObjectPointer<AcDbDictionary> d(dictionary, AcDb::kForRead);
    if (d.object() == nullptr) return found;
    const std::unique_ptr<AcDbDictionaryIterator> i(d->newIterator());
    for (; i && !i->done(); i->next())
        if (const int n = numberOf(i->name(), prefix); n > 0 && !i->objectId().isErased())
            found.push_back({n, i->objectId()});
    std::sort(found.begin(), found.end(),
              [](const Entry& a, const Entry& b) { return a.number < b.number; });
    return found;
}

Linha readRow(Reader& l) {
    Linha row(L"", 0, L"", L"", L"", 0.0, 0.0, 0.0, 0.0, L"");
    for (const Column& c : kColumnTable)
        std::visit([&](auto field) { l.readNext(row.*field); }, c.field);
    // What was erased before the drawing was saved is null now, and still counts as erased.
    while (!l.finished()) row.ids.push_back(AcDbSoftPointerId(l.id()));
    return row;
}

void putRow(Writer& e, const Linha& l) {
    for (const Column& c : kColumnTable) std::visit([&](auto field) { e.put(l.*field); }, c.field);
    for (const AcDbSoftPointerId& id : l.ids) e.put(id);
}

/// Marks of the list asked last. They hold as long as its last row is still the last and what was
/// taken out stays out, which undo changes; adding a row keeps them up, so that n rows cost O(n).
struct Cache {
    AcDbObjectId list;
    AcDbObjectId last;
    int next = 1;  ///< number of the next row
    std::set<int> marcas;
    int lowestFree = 1;                                    ///< lowest mark not in use
    std::vector<std::pair<AcDbObjectId, bool>> witnesses;  ///< taken out, erased then

    void use(int marca) {
        marcas.insert(marca);
        while (marcas.contains(lowestFree)) ++lowestFree;
    }
};
Cache g_cache;
/// One row of each time that rows were taken out: undo brings all of them back.
std::vector<AcDbObjectId> g_removed;

int marcaNumber(const std::wstring& marca) { return numberOf(marca, L"P"); }

std::wstring rowName(int number) { return kRowPrefix + std::to_wstring(number); }

bool holds(const Cache& g, AcDbObjectId list) {
    if (g.list != list || g.last.isNull() || g.last.isErased()) return false;
    if (std::any_of(g.witnesses.begin(), g.witnesses.end(),
                    [](const auto& t) { return t.first.isErased() != t.second; }))
        return false;
    const AcDbObjectPointer<AcDbDictionary> d(list, AcDb::kForRead);
    AcDbObjectId id;
    return d.object() != nullptr && d->getAt(rowName(g.next - 1).c_str(), id) == Acad::eOk &&
           id == g.last && !d->has(rowName(g.next).c_str());
}

Cache& cached(AcDbObjectId list) {
    Cache& g = g_cache;
    if (holds(g, list)) return g;
    g = {};
    g.list = list;
    for (const Entry& e : entries(list, kRowPrefix)) {
        g.last = e.id;
        g.next = e.number + 1;
        const AcDbObjectPointer<AcDbXrecord> record(e.id, AcDb::kForRead);
        if (record.object() == nullptr) continue;
        Reader reader(*record.object());
        std::wstring marca;
        reader.readNext(marca);
        if (const int n = marcaNumber(marca); n > 0) g.use(n);
    }
    for (const AcDbObjectId& id : g_removed) g.witnesses.push_back({id, id.isErased()});
    return g;
}

void countRow(Cache& g, const std::wstring& marca) {
    const AcDbObjectPointer<AcDbDictionary> d(g.list, AcDb::kForRead);
    if (d.object() == nullptr) return;
    (void)d->getAt(rowName(g.next).c_str(), g.last);  // written a moment ago
    ++g.next;
    if (const int n = marcaNumber(marca); n > 0) g.use(n);
}

}  // namespace

std::vector<MaterialList> materialLists(AcDbDatabase& drawing) {
    std::vector<MaterialList> found;
    const AcDbObjectId root = dictionaryIn(drawing.namedObjectsDictionaryId(), kRoot, false);
    if (root.isNull()) return found;
    for (const Entry& e : entries(root, kListPrefix))
        if (const auto header = readHeader(e.id)) found.push_back({e.number, e.id, *header});
    return found;
}

std::optional<MaterialList> newList(AcDbDatabase& drawing, const std::wstring& group) {
    const AcDbObjectId root = dictionaryIn(drawing.namedObjectsDictionaryId(), kRoot, true);
    if (root.isNull()) return {};
    int number = 1;
    for (const Entry& e : entries(root, kListPrefix)) {
        if (e.number != number) break;
        ++number;
    }
    MaterialList list;
    list.number = number;
    list.header.group = group;
    list.id = dictionaryIn(root, (kListPrefix + std::to_wstring(number)).c_str(), true);
    if (list.id.isNull() || !writeHeader(list.id, list.header)) return {};
    return list;
}

std::optional<Header> readHeader(AcDbObjectId list) {
    const AcDbObjectPointer<AcDbDictionary> d(list, AcDb::kForRead);
    AcDbObjectId id;
    if (d.object() == nullptr || d->getAt(kHeader, id) != Acad::eOk) return {};
    const AcDbObjectPointer<AcDbXrecord> record(id, AcDb::kForRead);
    if (record.object() == nullptr) return {};
    Reader reader(*record.object());
    if (reader.finished()) return {};
    Header c;
    reader.readNext(c.group);
    reader.readNext(c.point);
    while (!reader.finished())
        if (const AcDbObjectId part = reader.id(); !part.isNull())
            c.table.push_back(AcDbSoftPointerId(part));
    return c;
}

bool writeHeader(AcDbObjectId list, const Header& header) {
    Writer e;
    e.put(header.group);
    e.put(header.point);
    for (const AcDbSoftPointerId& id : header.table) e.put(id);
    return write(list, kHeader, e);
}

bool hasTable(const Header& header) {
    return std::any_of(header.table.begin(), header.table.end(),
                       [](const AcDbSoftPointerId& id) { return !id.isErased(); });
}

bool hasNoRows(AcDbObjectId list) { return cached(list).last.isNull(); }

std::vector<Linha> rows(AcDbObjectId list) {
    std::vector<Linha> all;
    for (const Entry& e : entries(list, kRowPrefix)) {
        const AcDbObjectPointer<AcDbXrecord> record(e.id, AcDb::kForRead);
        if (record.object() == nullptr) continue;
        Reader reader(*record.object());
        if (!reader.finished()) all.push_back(readRow(reader));
    }
    return all;
}

bool add(AcDbObjectId list, const Linha& l) {
    Cache& g = cached(list);
    Writer e;
    putRow(e, l);
    if (!write(list, rowName(g.next).c_str(), e)) return false;
    countRow(g, l.marca);
    return true;
}

std::vector<RowRecord> records(AcDbObjectId list) {
    std::vector<RowRecord> all;
    for (const Entry& e : entries(list, kRowPrefix)) all.push_back({e.number, e.id});
    return all;
}

std::size_t entryCount(AcDbObjectId list) {
    const AcDbObjectPointer<AcDbDictionary> d(list, AcDb::kForRead);
    return d.object() != nullptr ? d->numEntries() : 0;
}

AcDbObjectId recordNumbered(AcDbObjectId list, int number) {
    const AcDbObjectPointer<AcDbDictionary> d(list, AcDb::kForRead);
    AcDbObjectId id;
    if (d.object() == nullptr || d->getAt(rowName(number).c_str(), id) != Acad::eOk) return {};
    return id;
}

std::optional<Linha> rowAt(AcDbObjectId record) {
    const AcDbObjectPointer<AcDbXrecord> opened(record, AcDb::kForRead);
    if (opened.object() == nullptr) return {};
    Reader reader(*opened.object());
    if (reader.finished()) return {};
    return readRow(reader);
}

bool rewrite(AcDbObjectId record, const Linha& row) {
    const AcDbObjectPointer<AcDbXrecord> opened(record, AcDb::kForWrite);
    if (opened.object() == nullptr) return false;
    Writer e;
    putRow(e, row);
    // The mark may be another one now.
    g_cache = {};
    return opened->setFromRbChain(*e.start()) == Acad::eOk;
}

void forget() {
    g_cache = {};
    g_removed.clear();
}

int lowestFreeMarca(AcDbObjectId list, const std::vector<int>& given) {
    const Cache& g = cached(list);
    int lowestFree = g.lowestFree;
    while (g.marcas.contains(lowestFree) ||
           std::find(given.begin(), given.end(), lowestFree) != given.end())
        ++lowestFree;
    return lowestFree;
}

State stateOf(const Linha& row) {
    if (row.ids.empty()) return State::Alive;
    State state = State::MarcaErased;
    for (const AcDbSoftPointerId& id : row.ids) {
        if (id.isNull() || id.isErased()) continue;
        const AcDbObjectPointer<ZpMarca> marca(id, AcDb::kForRead);
        if (marca.object() == nullptr || !marca->pecaErased()) return State::Alive;
        state = State::PecaErased;
    }
    return state;
}

bool erased(const Linha& row) { return stateOf(row) != State::Alive; }

int removeErased(AcDbObjectId list) {
    int removed = 0;
    for (const Entry& e : entries(list, kRowPrefix)) {
        std::vector<AcDbSoftPointerId> marcas;
        {
            const AcDbObjectPointer<AcDbXrecord> record(e.id, AcDb::kForRead);
            if (record.object() == nullptr) continue;
            Reader reader(*record.object());
            if (reader.finished()) continue;
            const Linha row = readRow(reader);
            if (!erased(row)) continue;
            marcas = row.ids;
        }
        const AcDbObjectPointer<AcDbXrecord> record(e.id, AcDb::kForWrite);
        if (record.object() == nullptr || record->erase() != Acad::eOk) continue;
        if (++removed == 1) g_removed.push_back(e.id);
        for (const AcDbSoftPointerId& id : marcas) {
            const AcDbObjectPointer<ZpMarca> marca(id, AcDb::kForWrite);
            if (marca.object() != nullptr) (void)marca->erase();  // open for write and alive
        }
    }
    if (removed > 0) g_cache = {};
    return removed;
}

std::wstring observacaoOf(const Linha& row) {
    const State state = stateOf(row);
    if (state == State::Alive) return row.observacao;
    const std::wstring notice = state == State::PecaErased ? L"peça apagada" : L"apagada";
    return row.observacao.empty() ? notice : row.observacao + L" (" + notice + L")";
}

}  // namespace zp::matlist
