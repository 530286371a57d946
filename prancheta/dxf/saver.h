// SPDX-License-Identifier: MIT
// One writing of a drawing.
#pragma once

#include <set>

#include "dblayout.h"
#include "dbxrecrd.h"
#include "prancheta/database/draw_order.h"
#include "prancheta/database/layouts.h"
#include "prancheta/dxf/document.h"
#include "prancheta/dxf/entity_writer.h"
#include "prancheta/dxf/moved_dimensions.h"
#include "prancheta/dxf/picture_writer.h"
#include "prancheta/dxf/piece_out_filer.h"
#include "prancheta/dxf/piece_plan.h"
#include "prancheta/dxf/record_types.h"

namespace prancheta::dxf {

/// Handles of the structures that every file needs and that no object of the database stands for; 0
/// when the drawing brought them.
struct StandardHandles {
    Adesk::UInt64 vports = 0;
    Adesk::UInt64 vport = 0;
    Adesk::UInt64 views = 0;
    Adesk::UInt64 ucss = 0;
    Adesk::UInt64 defpoints = 0;
    Adesk::UInt64 copies = 0;  ///< layer of the copies of pieces
    Adesk::UInt64 groups = 0;
    Adesk::UInt64 layouts = 0;
    Adesk::UInt64 modelLayout = 0;
    Adesk::UInt64 paperLayout = 0;
    Adesk::UInt64 lineStyles = 0;
    Adesk::UInt64 lineStyle = 0;
    Adesk::UInt64 wipeouts = 0;  ///< how frames of wipeouts are shown
    Adesk::UInt64 plotStyles = 0;
    Adesk::UInt64 plotStyle = 0;  ///< of all layers, also one that the drawing brought; 0 none
};

class Saver {
public:
    Saver(AcDbDatabase& database, TagWriter& out, std::string version,
          const std::optional<ShownView>& view);

    /// Writes everything. An error when a piece cannot say what it is.
    Result<void> run();
    /// What the release does not hold, as a line for the user; empty for nothing.
    std::string lost() const;

private:
    struct Block {
        const AcDbBlockTableRecord* record;
        Adesk::UInt64 begin;
        Adesk::UInt64 end;
    };

    // What is to be written (save.cpp).
    void plan();
    void planBlocks();
    void planPictures();
    void planStandard();
    void planApplications();
    void nameBlocks();
    bool rootHas(const wchar_t* key) const;
    Adesk::UInt64 rootHandle(const wchar_t* key) const;

    // Sections (save_header.cpp, save_tables.cpp, save_blocks.cpp, save_objects.cpp).
    void writeHeader();
    std::string codePage() const;
    void writeVariable(const struct HeaderVariable& variable);
    void writeClasses();
    void writeTables();
    void writeTable(const RecordType& type);
    Adesk::UInt64 layoutHandle(AcDbObjectId block) const;
    void writeRecord(const RecordType& type, const AcDbSymbolTableRecord& record);
    void beginTable(const char* name, Adesk::UInt64 handle, std::size_t count);
    void beginRecord(const char* type, int handleCode, Adesk::UInt64 handle, Adesk::UInt64 owner);
    bool writeKeptTables(const char* name);
    void writeDefaultVport();
    void writeKeptVports(const RawTags& tags);
    RawTags withoutLostStyles(const RawTags& vports) const;
    void dropLostDefaults(const RecordType& type, RawTags& kept) const;
    void writeMadeRecord(const RecordType& type, Adesk::UInt64 handle, const std::wstring& name,
                         bool frozen = false);
    void writeBlockRecord(const PictureBlock& block, bool ofDimension);
    void writeBlocks();
    void writeBlock(const Block& block);
    void writeBlockPart(const char* part, const Block& block, Adesk::UInt64 handle);
    void beginPictureBlock(const PictureBlock& block);
    void endPictureBlock(const PictureBlock& block);
    void writeDimensionBlock(const AcDbDimension& dimension, const PictureBlock& block);
    void writeEntities(const AcDbBlockTableRecord& record, bool paper);
    void writeMovedBlock(const MovedDimensions::NewBlock& moved, const PictureBlock& block);
    void writeMoved(const AcDbEntity& entity, const AcGeMatrix3d& by, const Place& place);
    void writePiece(AcDbEntity& piece, const Place& place);
    void writeObjects();
    void writeKept(const RawTags& object);
    void writeDictionary(const AcDbDictionary& dictionary);
    void writeXrecord(const AcDbXrecord& record);
    void writeDrawOrder(const DrawOrderTable& table);
    void writeList(const resbuf* list);
    void writeStandardObjects();
    void writeLayout(const AcDbLayout& layout);
    void writeUsualLayouts();
    void writePieceDictionaries();
    void beginObject(const char* type, const AcDbObject& object);
    void section(const char* name);

    AcDbDatabase& m_database;
    DatabaseCore& m_core;
    TagWriter& m_out;
    std::string m_version;
    std::optional<ShownView> m_view;
    SaveNames m_names;
    HandleSource m_handles;
    EntityWriter m_entities;
    PictureWriter m_pictures;
    PieceOutFiler m_filer;
    Values m_values;

    std::vector<Tab> m_tabs;
    StandardHandles m_standard;
    std::vector<std::pair<std::wstring, Adesk::UInt64>> m_applications;  ///< without a record yet
    std::vector<Block> m_blocks;  ///< in table order, model and paper space among them
    PiecePlan m_pieces;
    std::size_t m_nextPiece = 0;
    std::vector<const AcDbDimension*> m_dimensions;
    MovedDimensions m_moved;
    std::vector<PictureBlock> m_dimensionBlocks;  ///< of those, then the new ones of moved ones
    std::size_t m_nextDimension = 0;
    AcDbExtents m_extents;
    Adesk::UInt64 m_seed = 0;
    /// Pieces whose fields are too long for extended data.
    struct LongPiece {
        AcDbEntity* piece;
        Adesk::UInt64 dictionary;  ///< made for it, or its own
        Adesk::UInt64 record;
    };
    std::vector<LongPiece> m_longPieces;
    std::optional<Error> m_error;
};

}  // namespace prancheta::dxf
