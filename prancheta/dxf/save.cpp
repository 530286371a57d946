// SPDX-License-Identifier: MIT
// Saving: what the file will hold, and its sections.
#include "prancheta/base/text.h"
#include "prancheta/database/entity_picture.h"
#include "prancheta/database/object_access.h"
#include "prancheta/dxf/dimension_type.h"
#include "prancheta/dxf/header_variables.h"
#include "prancheta/dxf/kept_handles.h"
#include "prancheta/dxf/piece_copy.h"
#include "prancheta/dxf/releases.h"
#include "prancheta/dxf/save_r12.h"
#include "prancheta/dxf/saver.h"
#include "prancheta/dxf/table_at.h"
#include "prancheta/entities/dimension_layout.h"
#include "prancheta/entities/insert_parts.h"
#include "prancheta/entities/register.h"

namespace prancheta::dxf {
namespace {

// Entities of the block of a dimension, and three for the block itself: an upper bound, because the
// pictures are recorded when the seed is written already.
constexpr Adesk::UInt64 kHandlesOfDimension = 24;

/// The same with arrows that are blocks: those are counted.
Adesk::UInt64 handlesOf(const AcDbDimension& dimension) {
    const AcDbDimStyleValues style = styleValues(dimension);
    if (style.dimblk.isNull() && style.dimblk1.isNull() && style.dimblk2.isNull())
        return kHandlesOfDimension;
    Picture picture;
    if (const std::unique_ptr<AcDbDimension> filed = asFiled(dimension))
        recordPicture(*filed, picture);
    return kHandlesOfDimension + PictureWriter::count(picture);
}

const AcDbBlockTableRecord& recordAt(AcDbObjectId id) {
    return static_cast<const AcDbBlockTableRecord&>(*static_cast<AcDbStub*>(id)->object);
}

AcDbEntity& entityAt(AcDbObjectId id) {
    return static_cast<AcDbEntity&>(*static_cast<AcDbStub*>(id)->object);
}

std::string versionOf(const std::string& opened, Version wanted) {
    if (wanted == Version::R2000) return "AC1015";
    if (wanted == Version::R2018) return "AC1032";
    return opened < "AC1015" || opened > "AC1032" ? "AC1015" : opened;
}

/// As it was read: one that the system does not know gives its bytes back.
std::unique_ptr<const CodePage> codePageNamed(std::string_view name) {
    auto page = CodePage::named(name);
    return page != nullptr ? std::move(page) : std::make_unique<CodePage>();
}

/// Handle that BLOCK or ENDBLK of a kept block had in the opened file.
Adesk::UInt64 partHandle(const AcDbBlockTableRecord& record, std::string_view part) {
    const ObjectExtra* const extra = ObjectAccess::extra(record);
    if (extra == nullptr) return 0;
    for (std::size_t i = 0; i + 1 < extra->foreign.size(); ++i) {
        std::uint64_t handle = 0;
        if (extra->foreign[i].code != 0 || extra->foreign[i].value != part) continue;
        for (++i; i < extra->foreign.size() && extra->foreign[i].code != 0; ++i)
            if (extra->foreign[i].code == 5 && parseHandle(extra->foreign[i].value, handle))
                return handle;
    }
    return 0;
}

}  // namespace

Saver::Saver(AcDbDatabase& database, TagWriter& out, std::string version,
             const std::optional<ShownView>& view)
    : m_database(database),
      m_core(database.core()),
      m_out(out),
      m_version(version),
      m_view(view),
      m_entities(out, m_names, m_handles, std::move(version)),
      m_pictures(out, m_names, database, m_version) {
    m_filer.handleOf = [this](AcDbObjectId id) { return m_handles.of(id); };
}

void Saver::section(const char* name) {
    m_out.text(0, "SECTION");
    m_out.text(2, name);
}

/// What a file keeps when it is loaded gets its handles first: the rest may change without moving
/// them.
void Saver::plan() {
    // Drawing may bring linetypes and layers to the drawing.
    planPictures();
    m_handles.collect(m_core);
    m_tabs = tabsOf(m_database);
    planStandard();
    planApplications();
    planBlocks();
    nameBlocks();
}

void Saver::planBlocks() {
    for (const AcDbObjectId id : ObjectAccess::records(tableAt(m_database.blockTableId()))) {
        if (id.isErased()) continue;
        const AcDbBlockTableRecord& record = recordAt(id);
        Block block{&record, m_handles.ofPart(partHandle(record, "BLOCK")),
                    m_handles.ofPart(partHandle(record, "ENDBLK"))};
        if (block.begin == 0) block.begin = m_handles.next();
        if (block.end == 0) block.end = m_handles.next();
        m_blocks.push_back(block);
    }
}

/// Blocks first, then model and paper space: the order in which entities are written.
void Saver::planPictures() {
    std::vector<AcDbObjectId> order;
    for (const AcDbObjectId id : ObjectAccess::records(tableAt(m_database.blockTableId())))
        if (!id.isErased() && id != m_core.modelSpaceId() && id != m_core.paperSpaceId())
            order.push_back(id);
    order.push_back(m_core.modelSpaceId());
    order.push_back(m_core.paperSpaceId());
    m_moved.plan(order);
    const bool withCopies = m_core.variables().number(L"PECACOPIA") != 0;
    for (const AcDbObjectId blockId : order) {
        const AcDbBlockTableRecord& record = recordAt(blockId);
        const bool inModel = blockId == m_core.modelSpaceId();
        for (const AcDbObjectId id : ObjectAccess::entities(record)) {
            if (id.isErased()) continue;
            AcDbEntity& entity = entityAt(id);
            if (isPiece(entity)) {
                m_pieces.add(entity, withCopies);
                continue;
            }
            if (entity.isKindOf(AcDbDimension::desc())) {
                const auto& dimension = static_cast<const AcDbDimension&>(entity);
                if (dimension.filed() == nullptr) m_dimensions.push_back(&dimension);
                if (!inModel) continue;
                for (const AcGePoint3d& p : filedPoints(dimension)) m_extents.addPoint(p);
                continue;
            }
            AcDbExtents extents;
            if (inModel && entity.getGeomExtents(extents) == Acad::eOk) m_extents.addExt(extents);
        }
    }
    if (!m_pieces.extents().isEmpty()) m_extents.addExt(m_pieces.extents());
}

Adesk::UInt64 Saver::rootHandle(const wchar_t* key) const {
    const AcDbStub* const root = m_database.namedObjectsDictionaryId();
    for (const auto& [name, id] :
         ObjectAccess::entries(static_cast<AcDbDictionary&>(*root->object)))
        if (equalNoCase(name, key))
            if (const Adesk::UInt64 handle = m_handles.of(id); handle != 0) return handle;
    return 0;
}

bool Saver::rootHas(const wchar_t* key) const { return rootHandle(key) != 0; }

void Saver::planStandard() {
    const auto& tables = m_core.foreign().tables;
    const auto missing = [&](const char* name) {
        return std::none_of(tables.begin(), tables.end(),
                            [name](const auto& table) { return table.first == name; });
    };
    if (missing("VPORT")) {
        m_standard.vports = m_handles.next();
        m_standard.vport = m_handles.next();
    }
    if (missing("VIEW")) m_standard.views = m_handles.next();
    if (missing("UCS")) m_standard.ucss = m_handles.next();
    const auto& layers = tableAt(m_database.layerTableId());
    if (!m_dimensions.empty() && ObjectAccess::lookup(layers, L"Defpoints").isNull())
        m_standard.defpoints = m_handles.next();
    if (m_pieces.hasCopies() && ObjectAccess::lookup(layers, kCopyLayer).isNull()) {
        const ObjectExtra* const extra = ObjectAccess::extra(layers);
        m_standard.copies = m_handles.ofPart(extra != nullptr ? ownHandle(extra->foreign) : 0);
        if (m_standard.copies == 0) m_standard.copies = m_handles.next();
    }
    if (!rootHas(L"ACAD_GROUP")) m_standard.groups = m_handles.next();
    if (!rootHas(L"ACAD_LAYOUT")) {
        m_standard.layouts = m_handles.next();
        m_standard.modelLayout = m_handles.next();
        m_standard.paperLayout = m_handles.next();
    }
    if (!rootHas(L"ACAD_MLINESTYLE")) {
        m_standard.lineStyles = m_handles.next();
        m_standard.lineStyle = m_handles.next();
    }
    if (m_core.variables().number(L"WIPEOUTFRAME") == 0 && !rootHas(L"ACAD_WIPEOUT_VARS"))
        m_standard.wipeouts = m_handles.next();
    if (!rootHas(L"ACAD_PLOTSTYLENAME")) {
        m_standard.plotStyles = m_handles.next();
        m_standard.plotStyle = m_handles.next();
        return;
    }
    const Adesk::UInt64 known = rootHandle(L"ACAD_PLOTSTYLENAME");
    for (const RawTags& object : m_core.foreign().objects) {
        if (ownHandle(object) != known) continue;
        for (const RawTag& tag : object)
            if (tag.code == 340) (void)parseHandle(tag.value, m_standard.plotStyle);
    }
}

/// Applications that extended data names without a record: the original refuses such a file.
void Saver::planApplications() {
    std::set<std::wstring> known;
    const auto& table = tableAt(m_database.regAppTableId());
    const auto need = [&](const std::wstring& name) {
        if (!known.insert(foldCase(name)).second) return;
        if (ObjectAccess::lookup(table, name).isNull())
            m_applications.emplace_back(name, m_handles.next());
    };
    need(L"ACAD");
    if (!m_pieces.uses().empty() || !m_dimensions.empty()) need(toWide(kPieceApplication));
    const auto look = [&](const AcDbObject& object) {
        const ObjectExtra* const extra = ObjectAccess::extra(object);
        if (extra == nullptr) return;
        for (const RawTagView& tag : extra->xdata)
            if (tag.code == 1001) need(toWide(tag.value));
        for (const RawTag& tag : extra->foreign)
            if (tag.code == 1001) need(toWide(tag.value));
    };
    const StubPool& stubs = ObjectAccess::stubs(m_core);
    for (std::size_t i = 0; i < stubs.size(); ++i) {
        if (stubs[i].object == nullptr || stubs[i].erased) continue;
        look(*stubs[i].object);
        const auto* const reference = AcDbBlockReference::cast(stubs[i].object);
        if (reference == nullptr || reference->parts() == nullptr) continue;
        for (const InsertPart& part : reference->parts()->list) look(*part.entity);
    }
}

/// *U1, *U2 ... and *D1 ... beside those that the drawing keeps.
void Saver::nameBlocks() {
    const auto& table = tableAt(m_database.blockTableId());
    const auto give = [&](const wchar_t* prefix, std::vector<PictureBlock>& blocks) {
        std::size_t number = 0;
        for (PictureBlock& block : blocks) {
            std::wstring name;
            do {
                name = prefix + std::to_wstring(++number);
            } while (!ObjectAccess::lookup(table, name).isNull());
            block.name = toUtf8(name);
            block.record = m_handles.next();
        }
    };
    give(L"*U", m_pieces.blocks());
    m_dimensionBlocks.resize(m_dimensions.size() + m_moved.newBlocks().size());
    give(L"*D", m_dimensionBlocks);
}

Result<void> Saver::run() {
    plan();
    std::size_t pieceEntities = 0;
    for (const Picture& picture : m_pieces.pictures())
        pieceEntities += PictureWriter::count(picture) + 3;
    for (const MovedDimensions::NewBlock& moved : m_moved.newBlocks()) {
        pieceEntities += 2;
        for (const AcDbObjectId id : ObjectAccess::entities(recordAt(moved.source)))
            if (!id.isErased()) pieceEntities += recordCount(entityAt(id));
    }
    Adesk::UInt64 dimensionHandles = 0;
    for (const AcDbDimension* const dimension : m_dimensions)
        dimensionHandles += handlesOf(*dimension);
    m_seed = std::max(m_core.nextHandle(), m_handles.peek() + pieceEntities + dimensionHandles +
                                               2 * m_pieces.uses().size() + 1);
    writeHeader();
    writeClasses();
    writeTables();
    writeBlocks();
    section("ENTITIES");
    for (const bool paper : {false, true})
        for (const Block& block : m_blocks)
            if (block.record->objectId() == (paper ? m_core.paperSpaceId() : m_core.modelSpaceId()))
                writeEntities(*block.record, paper);
    m_out.text(0, "ENDSEC");
    writeObjects();
    for (const RawTags& kept : m_core.foreign().sections) {
        m_out.text(0, "SECTION");
        m_out.raw(kept);
        m_out.text(0, "ENDSEC");
    }
    m_out.text(0, "EOF");
    m_out.flush();
    if (m_error) return *m_error;
    if (m_handles.peek() > m_seed)
        return Error{"erro interno: identificadores além do previsto; nada foi gravado", "", 0, 0};
    return {};
}

std::string Saver::lost() const {
    std::string line;
    for (const auto& [what, times] : m_entities.losses())
        line += (line.empty() ? "o formato R2000 não guarda, e o arquivo ficou sem: " : ", ") +
                std::string(what) + " (" + std::to_string(times) + ")";
    return line.empty() ? line : line + "; salve no formato 2018 para não perder nada";
}

Result<void> save(AcDbDatabase& database, const std::filesystem::path& path,
                  const SaveOptions& options, std::string* lost) {
    registerEntityClasses();
    AtomicFile file(path);
    file.keepFormer(options.former);
    if (auto opened = file.open(); !opened) return opened.error();
    if (options.version == Version::R12) {
        TagWriter out(file, Form::Ascii, charsetOf(kR12));
        const std::string told = saveR12(database, out);
        if (lost != nullptr) *lost = told;
        return file.commit();
    }
    const std::string version = versionOf(database.core().foreign().acadVersion, options.version);
    // A file of another code page stays one.
    std::unique_ptr<const CodePage> page;
    if (charsetOf(version) == Charset::Windows1252)
        for (const auto& [name, tags] : database.core().foreign().header)
            if (name == kCodePage) page = codePageNamed(tags.front().value);
    TagWriter out(file, options.form, page != nullptr ? Charset(*page) : charsetOf(version));
    Saver saver(database, out, version, options.view);
    if (auto written = saver.run(); !written) {
        Error error = written.error();
        error.file = path.string();
        return error;
    }
    if (lost != nullptr) *lost = saver.lost();
    return file.commit();
}

}  // namespace prancheta::dxf
