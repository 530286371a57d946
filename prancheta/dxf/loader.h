// SPDX-License-Identifier: MIT
// One reading of a file into a new database.
#pragma once

#include <map>
#include <unordered_map>
#include <unordered_set>

#include "prancheta/dxf/document.h"
#include "prancheta/dxf/entity_types.h"
#include "prancheta/dxf/entity_head.h"
#include "prancheta/dxf/load_names.h"
#include "prancheta/dxf/piece_record.h"

namespace prancheta::dxf {

/// A block of the file. Anonymous ones, which may only hold the picture of a piece or a dimension, are
/// passed over first and read when something else turns out to use them.
struct FileBlock {
    AcDbObjectId id;             ///< null until the record is made
    RecordHead recordHead;       ///< of the block record of a block not made yet
    bool hasRecord = false;
    std::string_view content;    ///< from BLOCK to ENDBLK, of a block passed over
    bool ofPiece = false;        ///< a piece or a dimension has its picture there
    bool isRead = false;
};

/// Reads the text of a file section by section. The first fault ends everything; the database is given
/// back complete or not at all.
class Loader : private LoadNames {
public:
    Loader(AcDbDatabase& database, std::string_view text, LoadReport& report);

    /// False with fault() set.
    bool run();
    const std::optional<Fault>& fault() const { return m_fault; }

private:
    // Sections (load.cpp, load_header.cpp, load_tables.cpp, load_blocks.cpp, load_objects.cpp).
    bool readSection();
    bool readHeader();
    void takeVersion();
    void takeVariable(const std::string& name, const Tags& tags);
    void applyVariables();
    bool readClasses();
    bool readTables();
    bool readTable();
    bool readTableRecord(AcDbObjectId table, const Record& record);
    bool readBlockRecord();
    bool keepTable(const std::string& name);
    bool readBlocks();
    bool readEntities();
    bool readObjects();
    bool keepSection(std::string_view name);
    bool complete();

    // Blocks.
    FileBlock& block(const std::wstring& name);
    AcDbObjectId makeBlock(const std::wstring& name, FileBlock& block);
    bool readBlock(TagReader& reader, const std::wstring& name, FileBlock& block);
    bool readBlockContent(TagReader& reader, FileBlock& block);
    void keepBlockPart(const std::wstring& name, FileBlock& block, const char* part);
    bool readWantedBlocks(bool all);

    // Entities.
    bool readEntity(TagReader& reader, const Record& record, AcDbObjectId owner);
    bool readForeign(TagReader& reader, const Record& record, AcDbObjectId owner);
    bool readParts(TagReader& reader, RawTags& tags, Adesk::UInt64 owner);
    bool readPiece(const Record& record, AcDbObjectId owner, bool& done);
    std::unique_ptr<AcDbEntity> makePiece(const PieceRecord& record, const char*& why);
    void applyHead(AcDbEntity& entity);
    bool append(std::unique_ptr<AcDbEntity> entity, AcDbObjectId owner);
    /// Handle for an object of the file; 0 when another object of the file has it already.
    Adesk::UInt64 claim(Adesk::UInt64 handle, const char* at);
    void keepExtra(AcDbObject& object, const Tags& rest);
    void wantBlocksOf(const RawTags& tags);

    // Objects.
    struct ObjectSpan {
        std::string_view type;
        std::string_view text;
        Adesk::UInt64 handle = 0;
        bool kept = false;  ///< as an object
    };
    bool scanObjects(std::vector<ObjectSpan>& objects);
    bool takeDictionary(ObjectSpan& span, AcDbDictionary& dictionary);
    bool takeChild(AcDbDictionary& dictionary, const std::wstring& key, Adesk::UInt64 handle);
    bool takeXrecord(ObjectSpan& span, AcDbDictionary& owner, AcDbObjectId& id);
    bool takeExtensionDictionaries();
    void linkReactors();

    AcDbObjectId resolve(Kind kind, const std::wstring& name) override;
    void find(std::string text, const char* at, Adesk::UInt64 handle);
    bool bad(const char* at, std::string text);
    bool nextIn(Record& record, const char* section, const char* end);

    struct LaterReactors {
        AcDbObject* object;
        std::vector<Adesk::UInt64> reactors;
        Adesk::UInt64 dictionary;
    };
    struct LaterMove {
        AcDbEntity* entity;
        AcGeMatrix3d matrix;
    };

    AcDbDatabase& m_database;
    DatabaseCore& m_core;
    std::string_view m_text;
    LoadReport& m_report;
    std::optional<Fault> m_fault;
    TagReader m_reader;
    Record m_record;
    RecordHead m_head;
    Values m_values;
    Tags m_rest;
    std::string m_version;
    bool m_requiredMade = false;
    std::map<std::wstring, FileBlock> m_blocks;  ///< by name in lower case
    std::map<std::wstring, std::wstring> m_blockNames;
    std::vector<std::wstring> m_wanted;  ///< blocks to be read that were passed over
    std::vector<std::pair<std::string, Tags>> m_variables;
    std::vector<LaterReactors> m_later;
    std::vector<LaterMove> m_moved;
    std::unordered_set<AcDbStub*> m_automatic;  ///< objects whose handle the file did not give
    std::unordered_map<Adesk::UInt64, ObjectSpan*> m_objectsByHandle;
    std::vector<ObjectSpan> m_objects;
    std::unordered_map<std::string, AcRxClass*> m_classes;
};

}  // namespace prancheta::dxf
