// SPDX-License-Identifier: MIT
// Section BLOCKS, and the entities of blocks and spaces.
#include <algorithm>

#include "prancheta/base/text.h"
#include "prancheta/database/entity_picture.h"
#include "prancheta/database/object_access.h"
#include "prancheta/database/xdata.h"
#include "prancheta/dxf/dimension_type.h"
#include "prancheta/dxf/piece_copy.h"
#include "prancheta/dxf/saver.h"

namespace prancheta::dxf {
namespace {

// Extended data of one entity may have 16383 bytes in all.
constexpr std::size_t kMaxPieceBytes = 16000;

bool isHeadGroup(int code) {
    constexpr int kHead[] = {5, 6, 8, 48, 60, 62, 67, 102, 370};
    return std::find(std::begin(kHead), std::end(kHead), code) != std::end(kHead);
}

constexpr int kAnonymous = 1;
constexpr int kHasDefinitions = 2;

bool asksForAttributes(const AcDbBlockTableRecord& record) {
    const std::vector<AcDbObjectId>& ids = ObjectAccess::entities(record);
    return std::any_of(ids.begin(), ids.end(), [](const AcDbObjectId& id) {
        return id.objectClass() == AcDbAttributeDefinition::desc() && !id.isErased();
    });
}

/// The style of the dimension's text; null when its own style says none.
AcDbObjectId textStyleOf(const AcDbDimension& dimension) {
    const AcDbStub* const stub = dimension.dimensionStyle();
    const auto* const style =
        stub != nullptr ? AcDbDimStyleTableRecord::cast(stub->object) : nullptr;
    return style != nullptr ? style->dimtxsty() : AcDbObjectId::kNull;
}

}  // namespace

void Saver::writeBlocks() {
    section("BLOCKS");
    for (const Block& block : m_blocks) writeBlock(block);
    for (std::size_t i = 0; i < m_pieces.blocks().size(); ++i) {
        const PictureBlock& block = m_pieces.blocks()[i];
        beginPictureBlock(block);
        m_pictures.write(m_pieces.pictures()[i], block.record, m_handles);
        if (const std::wstring& copy = m_pieces.copies()[i]; !copy.empty())
            m_pictures.writeHidden(toUtf8(copy), toUtf8(kCopyLayer), block.record,
                                   m_handles.next());
        endPictureBlock(block);
    }
    for (std::size_t i = 0; i < m_dimensions.size(); ++i)
        writeDimensionBlock(*m_dimensions[i], m_dimensionBlocks[i]);
    for (std::size_t i = 0; i < m_moved.newBlocks().size(); ++i)
        writeMovedBlock(m_moved.newBlocks()[i], m_dimensionBlocks[m_dimensions.size() + i]);
    m_out.text(0, "ENDSEC");
}

void Saver::writeBlock(const Block& block) {
    const AcDbObjectId id = block.record->objectId();
    writeBlockPart("BLOCK", block, block.begin);
    if (id != m_core.modelSpaceId() && id != m_core.paperSpaceId())
        // A layout that is not the current one has its entities here.
        writeEntities(*block.record, block.record->isLayout());
    writeBlockPart("ENDBLK", block, block.end);
}

/// BLOCK or ENDBLK with what the opened file said of it.
void Saver::writeBlockPart(const char* part, const Block& block, Adesk::UInt64 handle) {
    const std::string_view which = part;
    const Adesk::UInt64 owner = block.record->objectId().handle().value();
    const ObjectExtra* const extra = ObjectAccess::extra(*block.record);
    RawTags kept;
    if (extra != nullptr) {
        const RawTags& all = extra->foreign;
        auto at = std::find_if(all.begin(), all.end(), [&](const RawTag& tag) {
            return tag.code == 0 && tag.value == which;
        });
        for (at += at != all.end() ? 1 : 0; at != all.end() && at->code != 0; ++at)
            if (at->code != 5) kept.push_back(*at);
    }
    const auto has = [&](int code) {
        return std::any_of(kept.begin(), kept.end(),
                           [code](const RawTag& tag) { return tag.code == code; });
    };
    const bool paper = block.record->objectId() == m_core.paperSpaceId();
    m_out.text(0, part);
    m_out.handle(5, handle);
    m_out.handle(330, owner);
    m_out.marker("AcDbEntity");
    if (paper && kept.empty()) m_out.integer(67, 1);
    for (const RawTag& tag : kept)
        if (isHeadGroup(tag.code)) m_out.raw(tag.code, tag.value);
    if (!has(8)) m_out.text(8, "0");
    if (which == "ENDBLK") {
        m_out.marker("AcDbBlockEnd");
    } else {
        const std::string name = encodeText(ObjectAccess::name(*block.record));
        m_out.marker("AcDbBlockBegin");
        m_out.text(2, name);
        long long flags = block.record->isAnonymous() ? kAnonymous : 0;
        for (const RawTag& tag : kept)
            if (tag.code == 70) (void)parseInteger(tag.value, flags);  // was read
        m_out.integer(70, flags | (asksForAttributes(*block.record) ? kHasDefinitions : 0));
        m_out.point(10, block.record->origin());
        m_out.text(3, name);
        if (!has(1)) m_out.text(1, "");
    }
    for (const RawTag& tag : kept)
        if (!isHeadGroup(tag.code) && tag.code != 70) m_out.raw(tag.code, tag.value);
}

void Saver::beginPictureBlock(const PictureBlock& block) {
    m_out.text(0, "BLOCK");
    m_out.handle(5, m_handles.next());
    m_out.handle(330, block.record);
    m_out.marker("AcDbEntity");
    m_out.text(8, "0");
    m_out.marker("AcDbBlockBegin");
    m_out.text(2, block.name);
    m_out.integer(70, kAnonymous);
    m_out.point(10, AcGePoint3d::kOrigin);
    m_out.text(3, block.name);
    m_out.text(1, "");
}

void Saver::endPictureBlock(const PictureBlock& block) {
    m_out.text(0, "ENDBLK");
    m_out.handle(5, m_handles.next());
    m_out.handle(330, block.record);
    m_out.marker("AcDbEntity");
    m_out.text(8, "0");
    m_out.marker("AcDbBlockEnd");
}

void Saver::writeDimensionBlock(const AcDbDimension& dimension, const PictureBlock& block) {
    const std::unique_ptr<AcDbDimension> filed = asFiled(dimension);
    if (!filed) {
        m_error = Error{"uma cota não pôde ser gravada", "", 0, 0};
        return;
    }
    Picture picture;
    recordPicture(*filed, picture);
    makeByBlock(picture, dimension);
    beginPictureBlock(block);
    m_pictures.write(picture, block.record, m_handles, textStyleOf(*filed));
    for (const AcGePoint3d& p : filed->definitionPoints())
        m_pictures.writePoint(p, "Defpoints", block.record, m_handles.next());
    endPictureBlock(block);
}

void Saver::writeEntities(const AcDbBlockTableRecord& record, bool paper) {
    const Place place{record.objectId().handle().value(), paper};
    const AcGeMatrix3d* const by = m_moved.moving(record.objectId());
    for (const AcDbObjectId id : ObjectAccess::entities(record)) {
        if (id.isErased()) continue;
        auto& entity = static_cast<AcDbEntity&>(*static_cast<AcDbStub*>(id)->object);
        if (isPiece(entity)) {
            writePiece(entity, place);
        } else if (entity.isKindOf(AcDbDimension::desc())) {
            const auto& dimension = static_cast<const AcDbDimension&>(entity);
            if (const FiledDimension* const kept = dimension.filed()) {
                m_entities.writeFiled(dimension, *kept, place);
                continue;
            }
            const std::unique_ptr<AcDbDimension> filed = asFiled(dimension);
            if (!filed) return;  // the error is kept already
            m_entities.writeDimension(dimension, *filed, m_dimensionBlocks[m_nextDimension++].name,
                                      place);
        } else if (by != nullptr) {
            writeMoved(entity, *by, place);
        } else if (const int block = m_moved.newBlockOf(entity); block >= 0) {
            const std::size_t i = m_dimensions.size() + static_cast<std::size_t>(block);
            m_entities.writeDimension(static_cast<const ForeignEntity&>(entity),
                                      m_dimensionBlocks[i].name, place);
        } else {
            m_entities.write(entity, place);
        }
    }
}

void Saver::writeMovedBlock(const MovedDimensions::NewBlock& moved, const PictureBlock& block) {
    beginPictureBlock(block);
    const auto& source =
        static_cast<const AcDbBlockTableRecord&>(*static_cast<AcDbStub*>(moved.source)->object);
    for (const AcDbObjectId id : ObjectAccess::entities(source)) {
        const auto& entity = static_cast<AcDbEntity&>(*static_cast<AcDbStub*>(id)->object);
        if (id.isErased() || isPiece(entity) || entity.isKindOf(AcDbDimension::desc())) continue;
        writeMoved(entity, moved.dimension->sinceDrawn(),
                   {block.record, false, m_handles.next(), true});
    }
    endPictureBlock(block);
}

/// What cannot be moved stays where it is.
void Saver::writeMoved(const AcDbEntity& entity, const AcGeMatrix3d& by, const Place& place) {
    AcDbEntity* made = nullptr;
    if (entity.getTransformedCopy(by, made) != Acad::eOk) return m_entities.write(entity, place);
    const std::unique_ptr<AcDbEntity> copy(made);
    Place there = place;
    if (there.handle == 0) {
        there.handle = entity.objectId().handle().value();
        if (const ObjectExtra* const extra = ObjectAccess::extra(entity)) {
            ObjectExtra& links = ObjectAccess::makeExtra(*copy);
            for (const AcDbObjectId id : extra->reactors) links.reactors.push_back(id);
            links.extensionDictionary = extra->extensionDictionary;
        }
    }
    m_entities.write(*copy, there);
}

void Saver::writePiece(AcDbEntity& piece, const Place& place) {
    const PiecePlan::Use& use = m_pieces.uses()[m_nextPiece++];
    const PieceFrame& frame = use.frame;
    m_filer.begin(piece.isA()->name());
    if (piece.dxfOutFields(&m_filer) != Acad::eOk || m_filer.filerStatus() != Acad::eOk) {
        m_error =
            Error{"a peça " + toUtf8(piece.isA()->name()) + " não pôde ser gravada", "", 0, 0};
        return;
    }
    const ObjectExtra* const extra = ObjectAccess::extra(piece);
    const std::size_t others = extra != nullptr ? xdataSize(extra->xdata) : 0;
    const bool apart = m_filer.xdataBytes() + others > kMaxPieceBytes;
    Adesk::UInt64 dictionary = 0;
    if (apart) {
        const Adesk::UInt64 own = extra != nullptr ? m_handles.of(extra->extensionDictionary) : 0;
        dictionary = own != 0 ? own : m_handles.next();
        m_longPieces.push_back({&piece, dictionary, m_handles.next()});
    }
    m_entities.head("INSERT", piece, place, dictionary);
    m_out.marker("AcDbBlockReference");
    m_out.text(2, m_pieces.blocks()[use.block].name);
    m_out.point(10, frame.origin);
    if (frame.scale != 1.0) {
        const double size = std::abs(frame.scale);
        m_out.real(41, frame.scale);
        m_out.real(42, size);
        m_out.real(43, size);
    }
    if (frame.degrees != 0.0) m_out.real(50, frame.degrees);
    m_filer.writeXdata(m_out, frame, apart);
    m_entities.xdata(piece);
}

}  // namespace prancheta::dxf
