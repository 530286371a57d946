// SPDX-License-Identifier: MIT
// One reading of a file into a new database.
#pragma once

#include <deque>
#include <unordered_map>
#include <unordered_set>

#include "prancheta/base/file.h"
#include "prancheta/dxf/document.h"
#include "prancheta/dxf/entity_head.h"
#include "prancheta/dxf/entity_types.h"
#include "prancheta/dxf/load_names.h"
#include "prancheta/dxf/piece_record.h"
#include "prancheta/dxf/record_types.h"
#include "prancheta/entities/filed_dimension.h"

class AcDbBlockReference;
class AcDbLeader;

namespace prancheta::dxf {

/// A block of the file. Anonymous ones, which may only hold the picture of a piece or a dimension,
/// are passed over first and read when something else turns out to use them.
struct FileBlock {
    std::wstring name;         ///< as the file spells it
    std::size_t place = 0;     ///< among those that the file names, from the first
    AcDbObjectId id;           ///< null until the record is made
    std::string_view record;   ///< text of the block record that was not made yet
    std::string_view content;  ///< from BLOCK to ENDBLK, of a block passed over
    bool ofPicture = false;    ///< a piece or a dimension has its picture there
    bool isRead = false;
};

/// Reads the text of a file section by section. The first fault ends everything; the database is
/// given back complete or not at all.
class Loader : private LoadNames {
public:
    /// `file` holds the text and gets its pages back as they are read; null when the text stands
    /// elsewhere.
    Loader(AcDbDatabase& database, std::string_view text, const MappedFile* file,
           LoadReport& report);

    /// False with fault() set.
    bool run();
    const std::optional<Fault>& fault() const { return m_fault; }

private:
    // Sections (load.cpp, load_header.cpp, load_tables.cpp, load_blocks.cpp, load_objects.cpp).
    bool readSection();
    bool readHeader();
    void takeVersion();
    void takeCodePage(std::string_view name);
    void takeVariable(const std::string& name, const Tags& tags);
    void applyVariables();
    bool readClasses();
    bool readTables();
    bool readTable();
    bool readTableRecord(const RecordType& type, const Record& record);
    bool readBlockRecord(const Record& record, std::string_view text);
    bool addRecord(const RecordType& type, AcDbSymbolTableRecord* record);
    bool keepTable();
    bool keepUnnamedStyle(const Record& record);
    /// The layer of the copies of pieces: no layer of the drawing's unless a copy turns out to be
    /// all that is left of its piece.
    bool keepCopyLayer(const Record& record);
    AcDbObjectId makeCopyLayer();
    bool readBlocks();
    bool readEntities();
    bool readObjects();
    bool keepSection(std::string_view name);
    bool complete();
    bool keepObjects();
    void noteNesting();
    void takeArrows();

    // Blocks.
    FileBlock& block(const std::wstring& name);
    AcDbObjectId makeBlock(FileBlock& block);
    bool readBlock(TagReader& reader, const Record& begin, FileBlock& block);
    bool passBlock(FileBlock& block, const char* start);
    bool keepBlockPart(FileBlock& block, const Record& part);
    bool readWantedBlocks();

    // Entities.
    bool readEntity(TagReader& reader, const Record& record, AcDbObjectId owner);
    const EntityType* suitedType(std::string_view name);
    bool readForeign(const Record& record, AcDbObjectId owner);
    /// The records that belong to the one read last, up to SEQEND.
    bool readParts(TagReader& reader);
    bool keepParts(RawTags& tags, Adesk::UInt64 owner);
    /// The parts as what belongs to a reference.
    bool takeParts(AcDbBlockReference& reference);
    std::unique_ptr<AcDbEntity> readPart(const Record& record);
    /// An INSERT that is a parametric piece; null when it is none or stays an ordinary one.
    std::unique_ptr<AcDbEntity> readPiece(std::string_view& pictureBlock);
    std::string fillPiece(AcDbEntity& entity, const PieceRecord& record);
    bool isMoved(const PieceFrame& saved, AcGeMatrix3d& move, bool& possible) const;
    AcRxClass* pieceClass(std::string_view name);
    void applyHead(AcDbEntity& entity);
    bool append(std::unique_ptr<AcDbEntity> entity, AcDbObjectId owner);
    Adesk::UInt64 freshHandle();
    /// Handle for an object of the file; 0 when another object of the file has it already.
    Adesk::UInt64 claim(Adesk::UInt64 handle, const char* at);
    bool keepExtra(AcDbObject& object, const Tags& rest, std::string_view withoutApplication = {});
    void wantBlocksOf(std::string_view type, const RawTags& tags);
    /// A dimension as it was read just now: one of another program keeps its picture and groups.
    bool takeDimension(std::string_view type, AcDbDimension& dimension);
    void wantFiledBlocks();
    void keepFiledDimensions();

    // Objects.
    struct ObjectSpan {
        std::string_view type;
        std::string_view text;
        const char* at = nullptr;
        Adesk::UInt64 handle = 0;
        bool kept = false;      ///< as an object
        bool repeated = false;  ///< another one before it has its handle
    };
    bool takeDictionary(ObjectSpan& span, AcDbDictionary& dictionary);
    bool takeChild(AcDbDictionary& dictionary, const std::wstring& key, Adesk::UInt64 handle);
    bool takeXrecord(ObjectSpan& span, AcDbDictionary& owner, AcDbObjectId& id);
    bool takeDrawOrder(ObjectSpan& span, AcDbDictionary& owner, AcDbObjectId& id);
    bool takeLayout(ObjectSpan& span, AcDbDictionary& owner, AcDbObjectId& id);
    bool addObject(std::unique_ptr<AcDbObject> made, ObjectSpan& span, AcDbDictionary& owner,
                   AcDbObjectId& id);
    void dropOldLayouts();
    void takeWipeoutFrame();
    std::unordered_map<Adesk::UInt64, Adesk::UInt64> ownersByName() const;
    bool takeExtensionDictionaries();
    bool holdsFieldsOnly(ObjectSpan& span);
    void linkReactors();
    void linkLeaders();
    /// Text of an object that stands further on in the file; empty when there is none.
    std::string_view objectAhead(Adesk::UInt64 handle);
    bool readPieceFields();

    AcDbObjectId resolve(Kind kind, const std::wstring& name) override;
    void note(std::string text, const char* at, Adesk::UInt64 handle);
    void noteRepeated(const char* at, Adesk::UInt64 handle);
    /// Everything before `at` was read; views into it stay good.
    void doneUpTo(const char* at);
    bool bad(const char* at, std::string text);
    bool nextIn(TagReader& reader, Record& record, const char* section, const char* end);
    void reserveAllHandles();
    void makeRequired();

    struct LaterReactors {
        AcDbObject* object;
        std::vector<Adesk::UInt64> reactors;
        Adesk::UInt64 dictionary;
        bool isPiece = false;
    };
    /// The block of an arrow that a dimension style of an old file names.
    struct LaterArrow {
        std::wstring style;
        std::wstring block;
        int code;  ///< of its handle in newer files
    };
    /// A dimension that keeps the picture of its file once the blocks are known.
    struct LaterDimension {
        AcDbDimension* dimension;
        FileBlock* block;
        std::shared_ptr<FiledDimension> filed;
    };
    struct LaterMove {
        AcDbEntity* entity;
        AcGeMatrix3d matrix;
    };

    AcDbDatabase& m_database;
    DatabaseCore& m_core;
    std::string_view m_text;
    const MappedFile* m_file;
    const char* m_givenBack;  ///< where the pages not given back yet begin
    LoadReport& m_report;
    std::optional<Fault> m_fault;
    TagReader m_reader;
    Record m_record;
    RecordHead m_head;
    Values m_values;
    Tags m_rest;
    std::vector<Record> m_parts;
    PieceRecord m_piece;
    std::string m_version;
    std::unique_ptr<const CodePage> m_page;  ///< of the texts, when it is none of the usual ones
    const char* m_countedTo = nullptr;
    int m_linesCounted = 1;
    bool m_hasSeed = false;
    bool m_requiredMade = false;
    std::unordered_map<std::wstring, FileBlock> m_blocks;  ///< by name in lower case
    std::vector<FileBlock*> m_blockOrder;                  ///< as the file first names them
    std::size_t m_nextBlock = 0;                           ///< there, after the one asked for last
    std::vector<FileBlock*> m_wanted;                      ///< passed over, but used
    std::vector<std::pair<std::string, Tags>> m_variables;
    std::vector<LaterReactors> m_later;
    std::vector<const AcDbLeader*> m_leaders;
    std::vector<LaterArrow> m_arrows;
    std::vector<LaterMove> m_moved;
    std::vector<LaterDimension> m_filed;
    std::size_t m_filedWanted = 0;              ///< of those, how many blocks are asked for
    std::unordered_set<AcDbStub*> m_automatic;  ///< objects whose handle the file did not give
    std::unordered_map<Adesk::UInt64, ObjectSpan*> m_objectsByHandle;
    std::deque<ObjectSpan> m_objects;  ///< stays in place when a second section adds to it
    std::unordered_map<Adesk::UInt64, std::string_view> m_ahead;
    bool m_lookedAhead = false;
    int m_dictionaryDepth = 0;
    bool m_inPiece = false;  ///< the dictionary being read is a piece's
    std::unordered_map<std::string, AcRxClass*> m_classes;
};

}  // namespace prancheta::dxf
