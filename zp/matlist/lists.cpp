// SPDX-License-Identifier: MIT
// Material lists in the named objects dictionary.
#include "zp/matlist/lists.h"

#include <algorithm>
#include <cwchar>
#include <memory>

#include "acutads.h"
#include "dbxrecrd.h"
#include "texts/number.h"
#include "zp/buffer_chain.h"
#include "zp/matlist/book.h"
#include "zp/matlist/columns.h"

namespace zp::matlist {
namespace {

constexpr const ACHAR* kRoot = L"ZP_LISTAS_MATERIAL";
constexpr const ACHAR* kHeader = L"CABECALHO";
constexpr const wchar_t* kListPrefix = L"LISTA";
constexpr const wchar_t* kRowPrefix = L"L";
/// Of a row: 2 says whether it has pieces of its own.
constexpr int kRowVersion = 2;
constexpr int kHeaderVersion = 1;

/// Builds a list group by group.
class Writer {
public:
    explicit Writer(int version) { put(version); }
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
    Reader(const AcDbXrecord& record, int newest) {
        resbuf* list = nullptr;
        (void)record.rbChain(&list);  // an empty record gives no list
        m_start.reset(list);
        m_item = list;
        readNext(m_version);
        if (m_version < 1 || m_version > newest) m_item = nullptr;
    }
    int version() const { return m_version; }
    bool finished() const { return m_item == nullptr; }
    /// The next group has this code.
    bool at(int code) const { return m_item != nullptr && m_item->restype == code; }
    /// Up to the next group with this code, or the end.
    void skipTo(int code) {
        while (m_item != nullptr && m_item->restype != code) m_item = m_item->rbnext;
    }
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
    int m_version = 0;
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

/// Calls back with each member of a row that its record keeps, in the record's order.
template <class Act>
void eachKeptField(Act act) {
    for (const Column& c : kColumnTable)
        std::visit(
            [&](auto field) {
                if constexpr (std::is_member_pointer_v<decltype(field)>) act(field);
            },
            c.field);
}

Linha readRow(Reader& l) {
    Linha row(L"", 0, L"", L"", L"", 0.0, 0.0, 0.0, 0.0, L"");
    eachKeptField([&](auto field) { l.readNext(row.*field); });
    int tied = 0;
    if (l.version() > 1) l.readNext(tied);
    row.tied = tied != 0;
    // What was erased before the drawing was saved is null now, and still counts as erased.
    while (!l.finished()) row.ids.push_back(AcDbSoftPointerId(l.id()));
    return row;
}

void putRow(Writer& e, const Linha& l) {
    eachKeptField([&](auto field) { e.put(l.*field); });
    e.put(l.tied ? 1 : 0);
    for (const AcDbSoftPointerId& id : l.ids) e.put(id);
}

std::wstring rowName(int number) { return kRowPrefix + std::to_wstring(number); }

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
    Reader reader(*record.object(), kHeaderVersion);
    if (reader.finished()) return {};
    Header c;
    reader.readNext(c.group);
    reader.readNext(c.point);
    while (reader.at(AcDb::kDxfSoftPointerId))
        if (const AcDbObjectId part = reader.id(); !part.isNull())
            c.table.push_back(AcDbSoftPointerId(part));
    if (reader.at(AcDb::kDxfText)) reader.readNext(c.columns);
    return c;
}

bool writeHeader(AcDbObjectId list, const Header& header) {
    Writer e(kHeaderVersion);
    e.put(header.group);
    e.put(header.point);
    for (const AcDbSoftPointerId& id : header.table) e.put(id);
    // Behind the ids, where versions that know nothing of it stop reading.
    if (!header.columns.empty()) e.put(header.columns);
    return write(list, kHeader, e);
}

bool hasTable(const Header& header) {
    return std::any_of(header.table.begin(), header.table.end(),
                       [](const AcDbSoftPointerId& id) { return !id.isErased(); });
}

std::vector<RowRecord> storedRecords(AcDbObjectId list) {
    std::vector<RowRecord> all;
    for (const Entry& e : entries(list, kRowPrefix)) all.push_back({e.number, e.id});
    return all;
}

std::optional<Linha> storedRow(AcDbObjectId record) {
    const AcDbObjectPointer<AcDbXrecord> opened(record, AcDb::kForRead);
    if (opened.object() == nullptr) return {};
    Reader reader(*opened.object(), kRowVersion);
    if (reader.finished()) return {};
    return readRow(reader);
}

std::optional<RowNames> storedNames(AcDbObjectId record) {
    const AcDbObjectPointer<AcDbXrecord> opened(record, AcDb::kForRead);
    if (opened.object() == nullptr) return {};
    Reader reader(*opened.object(), kRowVersion);
    if (reader.finished()) return {};
    RowNames names;
    reader.readNext(names.marca);  // the first column
    for (reader.skipTo(AcDb::kDxfSoftPointerId); !reader.finished();)
        names.ids.push_back(AcDbSoftPointerId(reader.id()));
    return names;
}

AcDbObjectId add(AcDbObjectId list, const Linha& row) {
    if (list.isNull()) return {};
    Book& book = Book::of(*list.database());
    const int number = book.nextNumber(list);
    Writer e(kRowVersion);
    putRow(e, row);
    if (!write(list, rowName(number).c_str(), e)) return {};
    AcDbObjectId record;
    const AcDbObjectPointer<AcDbDictionary> d(list, AcDb::kForRead);
    if (d.object() != nullptr) (void)d->getAt(rowName(number).c_str(), record);  // just written
    book.enter(list, number, record);
    return record;
}

bool rewrite(AcDbObjectId record, const Linha& row) {
    const AcDbObjectPointer<AcDbXrecord> opened(record, AcDb::kForWrite);
    if (opened.object() == nullptr) return false;
    Writer e(kRowVersion);
    putRow(e, row);
    return opened->setFromRbChain(*e.start()) == Acad::eOk;
}

}  // namespace zp::matlist
