// SPDX-License-Identifier: MIT
// Section TABLES.
#include <algorithm>
#include <cmath>

#include "prancheta/base/text.h"
#include "prancheta/database/object_access.h"
#include "prancheta/dxf/kept_handles.h"
#include "prancheta/dxf/loader.h"
#include "prancheta/dxf/piece_copy.h"
#include "prancheta/dxf/table_at.h"
#include "prancheta/dxf/upgrade.h"

namespace prancheta::dxf {
namespace {

/// Dashes with shapes or texts say more than lengths.
bool isComplexLinetype(const Tags& body) {
    return std::any_of(body.begin(), body.end(), [](const Tag& tag) {
        long long value = 0;
        return tag.code == 74 && parseInteger(tag.value, value) && value != 0;
    });
}

/// A pattern that another program gives another length than that of its dashes; of newer files,
/// which can be written as they stand.
bool hasLengthOfItsOwn(const Tags& body, const Values& linetype) {
    double sum = 0.0;
    for (const double dash : linetype.dashes) sum += std::abs(dash);
    return !body.empty() && body.front().code == 100 && std::abs(sum - linetype.reals[0]) > 1e-9;
}

/// Some writers name another owner than the table.
void giveOwner(RawTags& record, Adesk::UInt64 table) {
    bool inGroup = false;
    for (RawTag& tag : record) {
        if (tag.code == 100) return;
        if (tag.code == 102) inGroup = tag.value != "}";
        std::uint64_t owner = 0;
        if (tag.code == 330 && !inGroup && parseHandle(tag.value, owner) && owner != table)
            tag.value = handleText(table);
    }
}

}  // namespace

bool Loader::readTables() {
    while (nextIn(m_reader, m_record, "TABLES", "ENDSEC")) {
        if (m_record.type != "TABLE") return bad(m_record.at, "esperado TABLE na seção TABLES");
        if (!readTable()) return false;
    }
    if (m_fault) return false;
    makeRequired();
    return true;
}

bool Loader::readTable() {
    std::string_view name;
    Adesk::UInt64 handle = 0;
    for (const Tag& tag : m_record.tags) {
        if (tag.code == 2 && name.empty()) name = trim(tag.value);
        if (tag.code == 5 && !parseHandle(tag.value, handle))
            return bad(tag.value.data(), "identificador inválido na tabela");
    }
    const RecordType* const type = recordTypeNamed(name);
    if (type == nullptr) return keepTable();
    if (handle != 0)
        (void)m_core.changeHandle((m_database.*type->table)(), claim(handle, m_record.at));
    const bool isBlocks = name == "BLOCK_RECORD";
    const char* start = m_reader.position();
    while (nextIn(m_reader, m_record, "TABLES", "ENDTAB")) {
        if (m_record.type != type->name)
            return bad(m_record.at, "registro \"" + toUtf8(toWide(m_record.type.substr(0, 40))) +
                                        "\" na tabela " + type->name);
        const std::string_view text(start, static_cast<std::size_t>(m_reader.position() - start));
        if (!(isBlocks ? readBlockRecord(m_record, text) : readTableRecord(*type, m_record)))
            return false;
        start = m_reader.position();
    }
    return !m_fault;
}

bool Loader::readTableRecord(const RecordType& type, const Record& record) {
    if (!splitRecord(record, type.handleCode, m_head, m_fault)) return false;
    if (type.handleCode != 5) {
        // Names of arrow blocks in old files, where group 5 is no handle.
        const auto isOld = [](const Tag& tag) { return tag.code >= 5 && tag.code <= 7; };
        for (const Tag& tag : m_head.body) {
            if (!isOld(tag) || trim(tag.value).empty()) continue;
            constexpr int kHandleOfArrow = 342;
            m_arrows.push_back({{}, text(trim(tag.value)), kHandleOfArrow + tag.code - 5});
        }
        std::erase_if(m_head.body, isOld);
    }
    if (!readFields(type.fields, m_head.body, *this, m_values, m_rest, m_fault)) {
        if (!m_fault)
            return bad(record.at, std::string("registro inválido na tabela ") + type.name);
        return false;
    }
    if (m_values.texts[0].empty() && type.name == std::string_view("STYLE"))
        return keepUnnamedStyle(record);
    constexpr long long kFrozen = 1;
    if (type.name == std::string_view("LAYER") && equalNoCase(m_values.texts[0], kCopyLayer) &&
        (m_values.integers[0] & kFrozen) != 0 && m_head.handle != 0 && m_version >= "AC1015")
        return keepCopyLayer(record);
    for (LaterArrow& arrow : m_arrows)
        if (arrow.style.empty()) arrow.style = m_values.texts[0];
    std::unique_ptr<AcDbSymbolTableRecord> made = type.make(m_values);
    ObjectAccess::setName(*made, m_values.texts[0]);
    if (!keepExtra(*made, m_rest)) return false;
    if (type.fields[0].name == std::string_view("AcDbLinetypeTableRecord") &&
        (isComplexLinetype(m_head.body) || hasLengthOfItsOwn(m_head.body, m_values))) {
        RawTags& kept = ObjectAccess::makeExtra(*made).foreign;
        kept.clear();
        if (!appendRaw(kept, m_head.extra, charset(), m_fault)) return false;
        kept.push_back({kWholeRecord, ""});
        if (!appendRaw(kept, m_head.body, charset(), m_fault)) return false;
    }
    constexpr long long kOwnLayerFlags = 1 | 4 | 64;
    const long long otherFlags = m_values.integers[0] & ~kOwnLayerFlags;
    if (std::string_view(type.name) == "LAYER" && otherFlags != 0) {
        RawTags& kept = ObjectAccess::makeExtra(*made).foreign;
        kept.push_back({kOtherFlags, std::to_string(otherFlags)});
    }
    return addRecord(type, made.release());
}

/// A file of shapes, to which linetypes refer by its handle: many have no name.
bool Loader::keepUnnamedStyle(const Record& record) {
    RawTags tags{{0, "STYLE"}};
    if (!appendRaw(tags, record.tags, charset(), m_fault)) return false;
    if (m_version < "AC1015" || m_head.handle == 0)
        completeTableRecord(tags, 0, [this] { return freshHandle(); });
    RawTags& kept = m_core.foreign().shapeStyles;
    kept.insert(kept.end(), tags.begin(), tags.end());
    return true;
}

bool Loader::keepCopyLayer(const Record& record) {
    RawTags& kept = ObjectAccess::makeExtra(tableAt(m_database.layerTableId())).foreign;
    if (!kept.empty()) return true;  // told twice
    kept.push_back({0, "LAYER"});
    return appendRaw(kept, record.tags, charset(), m_fault);
}

AcDbObjectId Loader::makeCopyLayer() {
    AcDbSymbolTable& table = tableAt(m_database.layerTableId());
    auto layer = std::make_unique<AcDbLayerTableRecord>();
    (void)layer->setIsFrozen(true);
    (void)layer->setIsPlottable(false);
    (void)layer->setLinetypeObjectId(m_database.continuousLinetype());
    ObjectAccess::setName(*layer, kCopyLayer);
    RawTags& kept = ObjectAccess::makeExtra(table).foreign;
    const Adesk::UInt64 handle = claim(ownHandle(kept), nullptr);
    kept.clear();
    AcDbLayerTableRecord* const added = layer.release();
    if (!ObjectAccess::addRecord(table, added, handle)) {
        delete added;
        return {};
    }
    added->close();
    return added->objectId();
}

/// Takes the record over.
bool Loader::addRecord(const RecordType& type, AcDbSymbolTableRecord* record) {
    AcDbSymbolTable& table = tableAt((m_database.*type.table)());
    const std::wstring name = ObjectAccess::name(*record);
    const AcDbObjectId former = ObjectAccess::lookup(table, name);
    if (!former.isNull() || name.empty()) {
        note(std::string("registro repetido ou sem nome na tabela ") + type.name + ": \"" +
                 toUtf8(name) + "\"",
             m_record.at, m_head.handle);
        delete record;
        return true;
    }
    const Adesk::UInt64 handle = claim(m_head.handle, m_record.at);
    if (!ObjectAccess::addRecord(table, record, handle)) {
        delete record;
        return bad(m_record.at, "não foi possível criar o registro \"" + toUtf8(name) + "\"");
    }
    record->close();
    if (handle == 0) m_automatic.insert(record->objectId());
    if (!m_head.reactors.empty() || m_head.dictionary != 0)
        m_later.push_back({record, m_head.reactors, m_head.dictionary});
    return true;
}

/// Blocks are known by name when all is read, and have their handles then.
void Loader::takeArrows() {
    const AcDbSymbolTable& styles = tableAt(m_database.dimStyleTableId());
    const AcDbSymbolTable& blocks = tableAt(m_database.blockTableId());
    for (const LaterArrow& arrow : m_arrows) {
        const AcDbObjectId style = ObjectAccess::lookup(styles, arrow.style);
        AcDbObjectId block = ObjectAccess::lookup(blocks, arrow.block);
        // Newer files have the arrows that every drawing knows behind an underscore.
        if (block.isNull()) block = ObjectAccess::lookup(blocks, L"_" + arrow.block);
        if (block.isNull() || style.isNull()) {
            note("o estilo de cota \"" + toUtf8(arrow.style) + "\" usa a ponta \"" +
                     toUtf8(arrow.block) + "\", que o desenho não tem; ficou a ponta comum",
                 nullptr, 0);
            continue;
        }
        RawTags& kept = ObjectAccess::makeExtra(*static_cast<AcDbStub*>(style)->object).foreign;
        const bool known = std::any_of(kept.begin(), kept.end(),
                                       [&](const RawTag& tag) { return tag.code == arrow.code; });
        if (known) continue;
        kept.push_back({100, "AcDbDimStyleTableRecord"});
        kept.push_back({arrow.code, handleText(block.handle().value())});
    }
}

/// A table that the host does not keep, group by group; completed when it is of an old file.
bool Loader::keepTable() {
    RawTags kept;
    std::string name;
    Adesk::UInt64 table = 0;
    const auto keep = [&](const Record& record) {
        RawTags tags{{0, decode(record.type, charset())}};
        if (!appendRaw(tags, record.tags, charset(), m_fault)) return false;
        if (record.type == "TABLE" && tags.size() > 1) name = tags[1].value;
        if (m_version < "AC1015")
            completeTableRecord(tags, table, [this] { return freshHandle(); });
        if (record.type == "TABLE") table = ownHandle(tags);
        if (record.type != "TABLE" && table != 0) giveOwner(tags, table);
        kept.insert(kept.end(), tags.begin(), tags.end());
        return true;
    };
    if (!keep(m_record)) return false;
    while (nextIn(m_reader, m_record, "TABLES", "ENDTAB"))
        if (!keep(m_record)) return false;
    kept.push_back({0, "ENDTAB"});
    m_core.foreign().tables.emplace_back(name, std::move(kept));
    return !m_fault;
}

}  // namespace prancheta::dxf
