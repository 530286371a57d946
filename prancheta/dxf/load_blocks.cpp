// SPDX-License-Identifier: MIT
// Section BLOCKS, and block records.
#include <algorithm>

#include "prancheta/base/text.h"
#include "prancheta/database/object_access.h"
#include "prancheta/dxf/loader.h"

namespace prancheta::dxf {
namespace {

std::string_view nameIn(const Tags& tags) {
    for (const Tag& tag : tags)
        if (tag.code == 2) return trim(tag.value);
    return {};
}

/// *U12, *D3: blocks that programs make for one reference.
bool mayBePicture(std::string_view name) {
    if (name.size() < 3 || name[0] != '*') return false;
    const char kind = name[1];
    return (kind == 'U' || kind == 'u' || kind == 'D' || kind == 'd') &&
           std::all_of(name.begin() + 2, name.end(), [](char c) { return c >= '0' && c <= '9'; });
}

/// *D3: made for a dimension.
bool isDimensionName(std::wstring_view name) {
    return name.size() > 1 && name[0] == L'*' && (name[1] == L'D' || name[1] == L'd');
}

AcDbBlockTableRecord& recordAt(AcDbObjectId id) {
    return static_cast<AcDbBlockTableRecord&>(*static_cast<AcDbStub*>(id)->object);
}

/// Groups of BLOCK and ENDBLK that the writer makes itself.
bool isMade(int code) {
    constexpr int kMade[] = {2, 3, 10, 20, 30, 100, 330};
    return std::find(std::begin(kMade), std::end(kMade), code) != std::end(kMade);
}

}  // namespace

/// A file names its blocks in one order again and again: records, contents, what uses them. The one
/// that follows the last is looked at before the table, which in a large file is far from the
/// cache.
FileBlock& Loader::block(const std::wstring& name) {
    if (m_nextBlock == m_blockOrder.size()) m_nextBlock = 0;
    if (m_nextBlock < m_blockOrder.size() && m_blockOrder[m_nextBlock]->name == name)
        return *m_blockOrder[m_nextBlock++];
    const auto [at, isNew] = m_blocks.try_emplace(foldCase(name));
    FileBlock& found = at->second;
    if (isNew) {
        found.name = name;
        found.place = m_blockOrder.size();
        m_blockOrder.push_back(&found);
    }
    m_nextBlock = found.place + 1;
    return found;
}

bool Loader::readBlockRecord(const Record& record, std::string_view recordText) {
    const std::string_view name = nameIn(record.tags);
    if (name.empty()) return bad(record.at, "um registro de bloco não tem nome");
    FileBlock& found = block(text(name));
    if (found.id.isNull()) {
        found.record = recordText;
        if (mayBePicture(name)) return true;
    }
    (void)makeBlock(found);
    return !m_fault;
}

/// Makes the record of a block; its content follows when the file comes to it, or came already.
AcDbObjectId Loader::makeBlock(FileBlock& found) {
    if (!found.id.isNull()) return found.id;
    const RecordType& type = *recordTypeNamed("BLOCK_RECORD");
    const std::wstring& name = found.name;
    // An entity may be in the middle of being read; swapping keeps its groups where they are.
    RecordHead outerHead;
    Values outerValues;
    Tags outerRest;
    std::swap(m_head, outerHead);
    std::swap(m_values, outerValues);
    std::swap(m_rest, outerRest);
    auto& table =
        static_cast<AcDbSymbolTable&>(*static_cast<AcDbStub*>(m_database.blockTableId())->object);
    if (!found.record.empty()) {
        TagReader reader(found.record);
        Record record;
        (void)reader.next(record);
        if (splitRecord(record, 5, m_head, m_fault))
            (void)readFields(type.fields, m_head.body, *this, m_values, m_rest, m_fault);
    }
    found.id = ObjectAccess::lookup(table, name);
    if (found.id.isNull()) {
        auto* made = new AcDbBlockTableRecord;
        ObjectAccess::setName(*made, name);
        (void)keepExtra(*made, m_rest);
        if (addRecord(type, made)) found.id = ObjectAccess::lookup(table, name);
    } else {
        if (m_head.handle != 0)
            (void)m_core.changeHandle(found.id, claim(m_head.handle, m_head.at));
        (void)keepExtra(recordAt(found.id), m_rest);
        if (!m_head.reactors.empty() || m_head.dictionary != 0)
            m_later.push_back({&recordAt(found.id), m_head.reactors, m_head.dictionary});
    }
    if (!found.content.empty()) m_wanted.push_back(&found);
    std::swap(m_head, outerHead);
    std::swap(m_values, outerValues);
    std::swap(m_rest, outerRest);
    return found.id;
}

bool Loader::readBlocks() {
    const char* start = m_reader.position();
    while (nextIn(m_reader, m_record, "BLOCKS", "ENDSEC")) {
        if (m_record.type != "BLOCK") return bad(m_record.at, "esperado BLOCK na seção BLOCKS");
        const std::string_view name = nameIn(m_record.tags);
        if (name.empty()) return bad(m_record.at, "um bloco não tem nome");
        FileBlock& found = block(text(name));
        if (found.isRead || !found.content.empty()) {
            note("bloco repetido: \"" + toUtf8(text(name)) + "\"", m_record.at, 0);
            FileBlock unused;
            if (!passBlock(unused, start)) return false;
        } else if (mayBePicture(name) && found.id.isNull()) {
            if (!passBlock(found, start)) return false;
        } else {
            if (makeBlock(found).isNull()) return false;
            const Record begin = m_record;
            if (!readBlock(m_reader, begin, found)) return false;
        }
        start = m_reader.position();
    }
    return !m_fault;
}

bool Loader::passBlock(FileBlock& found, const char* start) {
    std::string_view type;
    do {
        if (!m_reader.skip(type) || type == "ENDSEC" || type == "EOF") {
            if (m_reader.fault()) return bad(m_reader.fault()->at, m_reader.fault()->text);
            return bad(type.empty() ? nullptr : type.data(), "um bloco não termina (ENDBLK)");
        }
    } while (type != "ENDBLK");
    found.content = {start, static_cast<std::size_t>(m_reader.position() - start)};
    return true;
}

bool Loader::readBlock(TagReader& reader, const Record& begin, FileBlock& found) {
    found.isRead = true;
    if (!keepBlockPart(found, begin)) return false;
    AcGePoint3d origin;
    for (const Tag& tag : begin.tags) {
        double* const number = tag.code == 10   ? &origin.x
                               : tag.code == 20 ? &origin.y
                               : tag.code == 30 ? &origin.z
                                                : nullptr;
        if (number != nullptr && !parseReal(tag.value, *number))
            return bad(tag.value.data(), "ponto de base inválido no bloco");
    }
    AcDbObjectPointer<AcDbBlockTableRecord> record(found.id, AcDb::kForWrite);
    if (record.openStatus() == Acad::eOk) (void)record->setOrigin(origin);
    (void)record.close();
    Record entity;
    while (nextIn(reader, entity, "BLOCKS", "ENDBLK")) {
        if (entity.type == "ENDSEC" || entity.type == "BLOCK")
            return bad(entity.at, "um bloco não termina (ENDBLK)");
        if (!readEntity(reader, entity, found.id)) return false;
    }
    return !m_fault && keepBlockPart(found, entity);
}

/// Handles and the rare properties of BLOCK and ENDBLK, behind a group 0 of that name.
bool Loader::keepBlockPart(FileBlock& found, const Record& part) {
    Tags tags;
    for (const Tag& tag : part.tags) {
        const bool isEmptyText = tag.code == 1 && tag.value.empty();
        if (tag.code >= 1000 || (!isMade(tag.code) && !isEmptyText)) tags.push_back(tag);
    }
    RawTags& kept = ObjectAccess::makeExtra(recordAt(found.id)).foreign;
    kept.push_back({0, decode(part.type, charset())});
    return appendRaw(kept, tags, charset(), m_fault);
}

/// Reads the blocks that were passed over: those that something uses, and those that nothing at all
/// uses; not those that only hold pictures of pieces and dimensions.
bool Loader::readWantedBlocks() {
    wantFiledBlocks();
    const auto readWanted = [&] {
        while (!m_wanted.empty()) {
            FileBlock& found = *m_wanted.back();
            m_wanted.pop_back();
            if (found.isRead) continue;
            TagReader reader(found.content);
            Record begin;
            if (reader.next(begin) && !readBlock(reader, begin, found)) return false;
            wantFiledBlocks();
        }
        return true;
    };
    // Dimensions in blocks that are read here have pictures, too; these come last.
    for (const bool ofDimension : {false, true}) {
        if (!readWanted()) return false;
        for (FileBlock* found : m_blockOrder) {
            if (found->ofPicture || !found->id.isNull() || found->content.empty() ||
                isDimensionName(found->name) != ofDimension)
                continue;
            if (makeBlock(*found).isNull() || !readWanted()) return false;
        }
    }
    for (const FileBlock* found : m_blockOrder) {
        if (found->id.isNull() || found->isRead) continue;
        const AcDbBlockTableRecord& record = recordAt(found->id);
        if (!record.isLayout())
            note("o bloco \"" + toUtf8(ObjectAccess::name(record)) +
                     "\" não tem definição; ficou vazio",
                 nullptr, record.objectId().handle().value());
    }
    return !m_fault;
}

}  // namespace prancheta::dxf
