// SPDX-License-Identifier: MIT
// Section OBJECTS: dictionaries and their records become objects where modules can use them, all
// else is kept as it stands.
#include <algorithm>
#include <optional>

#include "dblead.h"
#include "dbmtext.h"
#include "prancheta/base/nesting.h"
#include "prancheta/base/text.h"
#include "prancheta/database/object_access.h"
#include "prancheta/database/value_list.h"
#include "prancheta/dxf/kept_handles.h"
#include "prancheta/dxf/layout_object.h"
#include "prancheta/dxf/loader.h"
#include "prancheta/dxf/piece_record.h"
#include "prancheta/dxf/upgrade.h"

namespace prancheta::dxf {
namespace {

/// Entries of the root dictionary that belong to the original format.
bool isFormatsOwn(const std::wstring& key) {
    const std::wstring folded = foldCase(key);
    return folded.starts_with(L"acad") || folded.starts_with(L"acdb");
}

/// The value of groups body[i]...; null when a typed list cannot hold it. `i` is left at the last
/// group.
resbuf* itemOf(const Tags& body, std::size_t& i, LoadNames& names) {
    const Tag& tag = body[i];
    if (tag.code >= 370 || tag.code == 5 || tag.code == 105 || tag.code == 0) return nullptr;
    const ::prancheta::ValueKind kind = kindOfValue(tag.code);
    long long integer = 0;
    if (kind == ::prancheta::ValueKind::Text) return newTextItem(tag.code, names.text(tag.value));
    ListOwner item(acutNewRb(tag.code));
    switch (kind) {
        case ::prancheta::ValueKind::Real:
            return parseReal(tag.value, item->resval.rreal) ? item.release() : nullptr;
        case ::prancheta::ValueKind::Point:
            if (i + 2 >= body.size() || body[i + 1].code != tag.code + 10 ||
                body[i + 2].code != tag.code + 20)
                return nullptr;
            for (std::size_t k = 0; k < 3; ++k)
                if (!parseReal(body[i + k].value, item->resval.rpoint[k])) return nullptr;
            i += 2;
            return item.release();
        case ::prancheta::ValueKind::Int16:
            if (!parseInteger(tag.value, integer)) return nullptr;
            item->resval.rint = static_cast<short>(integer);
            return item.release();
        case ::prancheta::ValueKind::Int32:
            if (kindOf(tag.code) != ValueKind::Int32 || !parseInteger(tag.value, integer))
                return nullptr;
            item->resval.rlong = static_cast<Adesk::Int32>(integer);
            return item.release();
        case ::prancheta::ValueKind::Name:
            (void)acdbGetAdsName(item->resval.rlname,
                                 names.byHandle(tag.value));  // 0 names nothing
            return item.release();
        default:
            return nullptr;
    }
}

}  // namespace

bool Loader::readObjects() {
    const char* start = m_reader.position();
    while (nextIn(m_reader, m_record, "OBJECTS", "ENDSEC")) {
        ObjectSpan span;
        span.type = m_record.type;
        span.at = m_record.at;
        span.text = {start, static_cast<std::size_t>(m_reader.position() - start)};
        for (const Tag& tag : m_record.tags) {
            if (tag.code == 100) break;
            if (tag.code != 5) continue;
            if (!parseHandle(tag.value, span.handle))
                return bad(tag.value.data(), "identificador inválido na seção OBJECTS");
            break;
        }
        m_objects.push_back(span);
        start = m_reader.position();
    }
    if (m_fault) return false;
    for (ObjectSpan& span : m_objects) {
        if (span.handle == 0 || span.repeated) continue;
        if (m_objectsByHandle.try_emplace(span.handle, &span).first->second == &span) continue;
        span.repeated = true;
        noteRepeated(span.at, span.handle);
    }
    if (m_objects.empty() || m_objects.front().type != "DICTIONARY") return true;
    ObjectSpan& root = m_objects.front();
    if (root.kept) return true;  // a second section of objects
    const AcDbObjectId id = m_database.namedObjectsDictionaryId();
    if (root.handle != 0) (void)m_core.changeHandle(id, claim(root.handle, root.at));
    return takeDictionary(root, static_cast<AcDbDictionary&>(*static_cast<AcDbStub*>(id)->object));
}

/// Releases before layouts have nothing that one could belong to; writers that add them to such a
/// file name block records that it does not have.
void Loader::dropOldLayouts() {
    bool dropped = false;
    for (ObjectSpan& span : m_objects) {
        if (span.type != "LAYOUT" || span.kept) continue;
        span.kept = dropped = true;
    }
    if (!dropped) return;
    // An entry whose object is not kept is not written.
    const AcDbStub* const root = m_database.namedObjectsDictionaryId();
    for (const auto& [key, id] :
         ObjectAccess::entries(static_cast<const AcDbDictionary&>(*root->object))) {
        const auto span = m_objectsByHandle.find(id.handle().value());
        if (equalNoCase(key, L"ACAD_LAYOUT") && span != m_objectsByHandle.end())
            span->second->kept = true;
    }
    note("as folhas (LAYOUT) deste arquivo antigo não têm blocos; foram refeitas", nullptr, 0);
}

/// The dictionary that names each object.
std::unordered_map<Adesk::UInt64, Adesk::UInt64> Loader::ownersByName() const {
    std::unordered_map<Adesk::UInt64, Adesk::UInt64> owners;
    Record record;
    for (const ObjectSpan& span : m_objects) {
        if (span.type != "DICTIONARY" && span.type != "ACDBDICTIONARYWDFLT") continue;
        TagReader reader(span.text);
        if (!reader.next(record)) continue;
        for (const Tag& tag : record.tags) {
            Adesk::UInt64 handle = 0;
            if ((tag.code == 350 || tag.code == 360) && parseHandle(tag.value, handle))
                owners.try_emplace(handle, span.handle);
        }
    }
    return owners;
}

/// Of the record read last; the object itself is kept.
void Loader::takeWipeoutFrame() {
    for (const Tag& tag : m_record.tags) {
        long long shown = 0;
        if (tag.code == 70 && parseInteger(tag.value, shown) && shown == 0)
            (void)m_core.variables().set(L"WIPEOUTFRAME", VariableValue(short{0}));
    }
}

/// Objects that nothing here understands, group by group.
bool Loader::keepObjects() {
    std::optional<std::unordered_map<Adesk::UInt64, Adesk::UInt64>> owners;
    const bool isOld = m_version < "AC1015";
    if (isOld) dropOldLayouts();
    m_givenBack = m_text.data();
    for (const ObjectSpan& span : m_objects) {
        doneUpTo(span.text.data());
        if (span.kept) continue;
        TagReader reader(span.text);
        RawTags tags;
        if (!reader.next(m_record)) continue;
        tags.push_back({0, decode(m_record.type, charset())});
        if (!appendRaw(tags, m_record.tags, charset(), m_fault)) return false;
        const auto own = std::ranges::find(tags, 5, &RawTag::code);
        if (span.repeated && own != tags.end()) own->value = handleText(freshHandle());
        if (m_record.type == "WIPEOUTVARIABLES") takeWipeoutFrame();
        // Newer writers forget it, too.
        if (isOld || (span.handle != 0 && ownerHandle(tags) == 0)) {
            if (!owners) owners = ownersByName();
            completeObject(tags, (*owners)[span.handle],
                           m_database.namedObjectsDictionaryId().handle().value());
        }
        m_core.foreign().objects.push_back(std::move(tags));
    }
    return true;
}

/// Entries and flags of a dictionary of the file.
bool Loader::takeDictionary(ObjectSpan& span, AcDbDictionary& dictionary) {
    span.kept = true;
    TagReader reader(span.text);
    Record record;
    (void)reader.next(record);
    if (!splitRecord(record, 5, m_head, m_fault)) return false;
    if (!m_head.reactors.empty() || m_head.dictionary != 0)
        m_later.push_back({&dictionary, m_head.reactors, m_head.dictionary});
    Tags rest;
    std::vector<std::pair<std::wstring, Adesk::UInt64>> entries;
    int entryCode = 0;
    for (const Tag& tag : m_head.body) {
        Adesk::UInt64 handle = 0;
        if (tag.code == 3) {
            entries.emplace_back(text(tag.value), 0);
        } else if ((tag.code == 350 || tag.code == 360) && !entries.empty()) {
            if (!parseHandle(tag.value, handle))
                return bad(tag.value.data(), "identificador inválido em um dicionário");
            entryCode = tag.code;
            entries.back().second = handle;
        } else if (tag.code != 100 && tag.code != 330) {
            rest.push_back(tag);
        }
    }
    if (!keepExtra(dictionary, rest)) return false;
    if (entryCode != 0)
        ObjectAccess::makeExtra(dictionary)
            .foreign.push_back({kEntryCode, std::to_string(entryCode)});
    const bool ofPiece = m_inPiece;
    m_inPiece = false;
    for (const auto& [key, handle] : entries) {
        // The fields of a piece are in the piece now.
        const auto fields = m_objectsByHandle.find(handle);
        const bool isFields = ofPiece && key == toWide(kPieceApplication);
        if (isFields && fields != m_objectsByHandle.end()) fields->second->kept = true;
        if (handle != 0 && !isFields && !takeChild(dictionary, key, handle)) return false;
    }
    return true;
}

/// One entry: its object becomes one when it can, otherwise the entry holds the handle of a kept
/// one.
bool Loader::takeChild(AcDbDictionary& dictionary, const std::wstring& key, Adesk::UInt64 handle) {
    const auto found = m_objectsByHandle.find(handle);
    ObjectSpan* const span = found != m_objectsByHandle.end() ? found->second : nullptr;
    const bool isRoot = dictionary.objectId() == m_database.namedObjectsDictionaryId();
    // Layouts of releases before them have nothing to belong to.
    const bool layouts = equalNoCase(key, L"ACAD_LAYOUT") && m_version >= "AC1015";
    const bool free = span != nullptr && !span->kept && !(isRoot && isFormatsOwn(key) && !layouts);
    AcDbObjectId id;
    // What lies deeper is kept as the file has it.
    if (free && span->type == "DICTIONARY" && m_dictionaryDepth < kDeepestNesting) {
        auto* const child = new AcDbDictionary;
        if (!m_core.makeResident(*child, dictionary.objectId(), claim(handle, span->at))) {
            delete child;
            return bad(nullptr, "não foi possível criar um dicionário");
        }
        id = child->objectId();
        ++m_dictionaryDepth;
        const bool taken = takeDictionary(*span, *child);
        --m_dictionaryDepth;
        if (!taken) return false;
        child->close();
    } else if (free && span->type == "XRECORD") {
        if (!takeXrecord(*span, dictionary, id)) return false;
    } else if (free && span->type == "SORTENTSTABLE") {
        if (!takeDrawOrder(*span, dictionary, id)) return false;
    } else if (free && span->type == "LAYOUT") {
        if (!takeLayout(*span, dictionary, id)) return false;
    }
    if (id.isNull() && span == nullptr) return true;  // names nothing that the file has
    if (id.isNull()) (void)m_database.getAcDbObjectId(id, true, AcDbHandle(handle));
    ObjectAccess::addEntry(dictionary, key, id);
    return true;
}

/// A null id when the record says more than a typed list can hold.
bool Loader::takeXrecord(ObjectSpan& span, AcDbDictionary& owner, AcDbObjectId& id) {
    TagReader reader(span.text);
    Record record;
    (void)reader.next(record);
    if (!splitRecord(record, 5, m_head, m_fault)) return false;
    Tags body = m_head.body;
    if (body.empty() || body.front().code != 100) return true;
    body.erase(body.begin());
    Tags flags;
    if (!body.empty() && body.front().code == 280) {
        flags.push_back(body.front());
        body.erase(body.begin());
    }
    ListBuilder list;
    for (std::size_t i = 0; i < body.size(); ++i) {
        resbuf* const item = itemOf(body, i, *this);
        if (item == nullptr) return true;
        list.add(item);
    }
    auto made = std::make_unique<AcDbXrecord>();
    ObjectAccess::setList(*made, list.release());
    return keepExtra(*made, flags) && addObject(std::move(made), span, owner, id);
}

/// With the head that was read last.
bool Loader::addObject(std::unique_ptr<AcDbObject> made, ObjectSpan& span, AcDbDictionary& owner,
                       AcDbObjectId& id) {
    if (!m_core.makeResident(*made, owner.objectId(), claim(span.handle, span.at)))
        return bad(nullptr, "não foi possível criar um registro " + std::string(span.type));
    AcDbObject* const added = made.release();
    id = added->objectId();
    span.kept = true;
    if (!m_head.reactors.empty() || m_head.dictionary != 0)
        m_later.push_back({added, m_head.reactors, m_head.dictionary});
    added->close();
    return true;
}

/// A null id when the class does not suit it.
bool Loader::takeLayout(ObjectSpan& span, AcDbDictionary& owner, AcDbObjectId& id) {
    TagReader reader(span.text);
    Record record;
    (void)reader.next(record);
    if (!splitRecord(record, 5, m_head, m_fault)) return false;
    auto made = std::make_unique<AcDbLayout>();
    if (!readLayout(m_head.body, *this, *made)) return true;
    return keepExtra(*made, m_head.body) && addObject(std::move(made), span, owner, id);
}

std::string_view Loader::objectAhead(Adesk::UInt64 handle) {
    if (!m_lookedAhead) {
        m_lookedAhead = true;
        const char* start = m_reader.position();
        TagReader reader({start, static_cast<std::size_t>(m_text.data() + m_text.size() - start)});
        Record record;
        bool inObjects = false;
        for (; reader.next(record); start = reader.position()) {
            if (record.type == "SECTION" || record.type == "ENDSEC")
                inObjects = !record.tags.empty() && trim(record.tags[0].value) == "OBJECTS";
            Adesk::UInt64 own = 0;
            if (inObjects && !record.tags.empty() && record.tags[0].code == 5 &&
                parseHandle(record.tags[0].value, own))
                m_ahead[own] = {start, static_cast<std::size_t>(reader.position() - start)};
        }
    }
    const auto found = m_ahead.find(handle);
    return found != m_ahead.end() ? found->second : std::string_view();
}

/// Fields of m_piece that stand in an XRECORD, found through the extension dictionary in m_head.
bool Loader::readPieceFields() {
    Record record;
    TagReader dictionary(objectAhead(m_head.dictionary));
    if (!dictionary.next(record) || record.type != "DICTIONARY") return false;
    Adesk::UInt64 handle = 0;
    for (std::size_t i = 0; i + 1 < record.tags.size(); ++i)
        if (record.tags[i].code == 3 && trim(record.tags[i].value) == kPieceApplication)
            (void)parseHandle(record.tags[i + 1].value, handle);
    TagReader fields(objectAhead(handle));
    if (!fields.next(record) || record.type != "XRECORD") return false;
    const auto data = std::find_if(record.tags.begin(), record.tags.end(),
                                   [](const Tag& tag) { return tag.code == 100; });
    if (data == record.tags.end()) return false;
    return parsePieceXrecord(Tags(data + 1, record.tags.end()), m_piece);
}

/// True, and both taken, when the dictionary was only made for the fields of a piece.
bool Loader::holdsFieldsOnly(ObjectSpan& span) {
    TagReader reader(span.text);
    Record record;
    if (!reader.next(record) || record.type != "DICTIONARY") return false;
    int entries = 0;
    Adesk::UInt64 fields = 0;
    for (std::size_t i = 0; i + 1 < record.tags.size(); ++i) {
        if (record.tags[i].code != 3) continue;
        ++entries;
        if (trim(record.tags[i].value) == kPieceApplication)
            (void)parseHandle(record.tags[i + 1].value, fields);
    }
    const auto found = m_objectsByHandle.find(fields);
    if (entries != 1 || found == m_objectsByHandle.end()) return false;
    span.kept = found->second->kept = true;
    return true;
}

bool Loader::takeExtensionDictionaries() {
    for (std::size_t i = 0; i < m_later.size(); ++i) {
        const Adesk::UInt64 handle = m_later[i].dictionary;
        if (handle == 0) continue;
        AcDbObject& owner = *m_later[i].object;
        const auto found = m_objectsByHandle.find(handle);
        AcDbObjectId id;
        if (m_later[i].isPiece && found != m_objectsByHandle.end() &&
            holdsFieldsOnly(*found->second))
            continue;
        if (found != m_objectsByHandle.end() && !found->second->kept &&
            found->second->type == "DICTIONARY") {
            auto* const dictionary = new AcDbDictionary;
            if (!m_core.makeResident(*dictionary, owner.objectId(),
                                     claim(handle, found->second->at))) {
                delete dictionary;
                continue;
            }
            id = dictionary->objectId();
            m_inPiece = m_later[i].isPiece;
            const bool good = takeDictionary(*found->second, *dictionary);
            m_inPiece = false;
            if (!good) return false;
            dictionary->close();
        } else if (found != m_objectsByHandle.end()) {
            (void)m_database.getAcDbObjectId(id, true, AcDbHandle(handle));
        }
        if (!id.isNull()) ObjectAccess::makeExtra(owner).extensionDictionary = id;
    }
    return true;
}

/// The notes of leaders know them, whatever the file's writer told of that.
void Loader::linkLeaders() {
    for (const AcDbLeader* const leader : m_leaders) {
        const AcDbObjectPointer<AcDbMText> note(leader->annotationObjId(), AcDb::kForRead);
        if (note.openStatus() != Acad::eOk) continue;
        std::vector<AcDbObjectId>& known = ObjectAccess::makeExtra(*note.object()).reactors;
        if (std::find(known.begin(), known.end(), leader->objectId()) == known.end())
            known.push_back(leader->objectId());
    }
}

/// References to objects that do not exist are left out.
void Loader::linkReactors() {
    for (const LaterReactors& later : m_later) {
        for (const Adesk::UInt64 handle : later.reactors) {
            AcDbStub* const stub = m_core.find(handle);
            const bool exists =
                (stub != nullptr && stub->object != nullptr) || m_objectsByHandle.contains(handle);
            AcDbObjectId id;
            if (exists && m_database.getAcDbObjectId(id, true, AcDbHandle(handle)) == Acad::eOk)
                ObjectAccess::makeExtra(*later.object).reactors.push_back(id);
        }
    }
}

}  // namespace prancheta::dxf
