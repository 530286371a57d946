// SPDX-License-Identifier: MIT
// Section TABLES.
#include <algorithm>
#include <map>

#include "prancheta/base/text.h"
#include "prancheta/database/object_access.h"
#include "prancheta/dxf/piece_copy.h"
#include "prancheta/dxf/piece_record.h"
#include "prancheta/dxf/releases.h"
#include "prancheta/dxf/saver.h"
#include "prancheta/dxf/table_at.h"

namespace prancheta::dxf {
namespace {

/// Order of the tables; what the host does not keep as objects stands among those that it does.
constexpr const char* kOrder[] = {"VPORT", "LTYPE", "LAYER",    "STYLE",       "VIEW",
                                  "UCS",   "APPID", "DIMSTYLE", "BLOCK_RECORD"};

}  // namespace

void Saver::beginTable(const char* name, Adesk::UInt64 handle, std::size_t count) {
    m_out.text(0, "TABLE");
    m_out.text(2, name);
    m_out.handle(5, handle);
    m_out.handle(330, 0);
    m_out.marker("AcDbSymbolTable");
    m_out.integer(70, static_cast<long long>(std::min<std::size_t>(count, 32767)));
}

void Saver::beginRecord(const char* type, int handleCode, Adesk::UInt64 handle,
                        Adesk::UInt64 owner) {
    m_out.text(0, type);
    m_out.handle(handleCode, handle);
    m_out.handle(330, owner);
    m_out.marker("AcDbSymbolTableRecord");
}

void Saver::writeTables() {
    section("TABLES");
    for (const char* name : kOrder) {
        if (const RecordType* const type = recordTypeNamed(name)) {
            writeTable(*type);
        } else if (!writeKeptTables(name)) {
            const std::string_view which = name;
            const Adesk::UInt64 handle = which == "VPORT"  ? m_standard.vports
                                         : which == "VIEW" ? m_standard.views
                                                           : m_standard.ucss;
            beginTable(name, handle, which == "VPORT" ? 1 : 0);
            if (which == "VPORT") writeDefaultVport();
            m_out.text(0, "ENDTAB");
        }
    }
    for (const auto& [name, tags] : m_core.foreign().tables) {
        const bool inOrder = std::any_of(std::begin(kOrder), std::end(kOrder),
                                         [&name = name](const char* n) { return name == n; });
        if (!inOrder) m_out.raw(tags);
    }
    m_out.text(0, "ENDSEC");
}

bool Saver::writeKeptTables(const char* name) {
    for (const auto& [kept, tags] : m_core.foreign().tables) {
        if (kept != name) continue;
        if (kept == "VPORT")
            writeKeptVports(withoutLostStyles(tags));
        else
            m_out.raw(tags);
        return true;
    }
    return false;
}

/// Without visual styles that the file does not have.
RawTags Saver::withoutLostStyles(const RawTags& vports) const {
    constexpr int kVisualStyle = 348;
    RawTags left;
    for (const RawTag& tag : vports) {
        Adesk::UInt64 handle = 0;
        if (tag.code != kVisualStyle || !parseHandle(tag.value, handle) || handle == 0 ||
            m_handles.has(handle))
            left.push_back(tag);
    }
    return left;
}

/// The view and the user's system go into the record of the active viewport. One of several tiles,
/// and one that does not look straight down on the plan, is left as it was.
void Saver::writeKeptVports(const RawTags& tags) {
    const auto isActive = [](const RawTag& tag) {
        return tag.code == 2 && equalNoCase(toWide(trim(std::string_view(tag.value))), L"*Active");
    };
    const auto turned = [](const RawTag& tag) {
        double value = 0.0;
        const bool sideways = tag.code == 16 || tag.code == 26 || tag.code == 51;
        return sideways && parseReal(tag.value, value) && value != 0.0;
    };
    const auto first = std::find_if(tags.begin(), tags.end(), isActive);
    if (first == tags.end() || std::find_if(first + 1, tags.end(), isActive) != tags.end())
        return m_out.raw(tags);
    const auto end =
        std::find_if(first, tags.end(), [](const RawTag& tag) { return tag.code == 0; });
    if (std::any_of(first, end, turned)) return m_out.raw(tags);
    std::map<int, double> shown;
    if (m_view)
        shown = {{12, m_view->x}, {22, m_view->y},      {17, 0.0},
                 {27, 0.0},       {40, m_view->height}, {41, m_view->aspect}};
    constexpr std::pair<const wchar_t*, int> kSystem[] = {
        {L"UCSORG", 110}, {L"UCSXDIR", 111}, {L"UCSYDIR", 112}};
    for (const auto& [name, code] : kSystem) {
        const AcGePoint3d p = m_core.variables().point(name);
        shown.insert({{code, p.x}, {code + 10, p.y}, {code + 20, p.z}});
    }
    for (auto tag = tags.begin(); tag != tags.end(); ++tag) {
        const auto value = tag > first && tag < end ? shown.find(tag->code) : shown.end();
        double before = 0.0;
        const bool changed =
            value != shown.end() && (!parseReal(tag->value, before) || before != value->second);
        if (changed)
            m_out.real(tag->code, value->second);
        else
            m_out.raw(tag->code, tag->value);
    }
}

void Saver::writeDefaultVport() {
    const bool empty = m_extents.isEmpty();
    const AcGePoint3d low = empty ? AcGePoint3d(0, 0, 0) : m_extents.minPoint();
    const AcGePoint3d high = empty ? AcGePoint3d(420, 297, 0) : m_extents.maxPoint();
    const double width = std::max(high.x - low.x, 1.0);
    const double whole = std::max({high.y - low.y, width / 1.6, 1.0}) * 1.05;
    const ShownView view =
        m_view.value_or(ShownView{(low.x + high.x) / 2.0, (low.y + high.y) / 2.0, whole, 1.6});
    beginRecord("VPORT", 5, m_standard.vport, m_standard.vports);
    m_out.marker("AcDbViewportTableRecord");
    m_out.text(2, "*Active");
    m_out.integer(70, 0);
    m_out.point2d(10, 0.0, 0.0);
    m_out.point2d(11, 1.0, 1.0);
    m_out.point2d(12, view.x, view.y);
    m_out.point2d(13, 0.0, 0.0);
    m_out.point2d(14, 10.0, 10.0);
    m_out.point2d(15, 10.0, 10.0);
    m_out.point(16, {0.0, 0.0, 1.0});
    m_out.point(17, {0.0, 0.0, 0.0});
    m_out.real(40, view.height);
    m_out.real(41, view.aspect);
    m_out.real(42, 50.0);
    m_out.real(43, 0.0);
    m_out.real(44, 0.0);
    m_out.real(50, 0.0);
    m_out.real(51, 0.0);
    constexpr std::pair<int, int> kFlags[] = {{71, 0}, {72, 1000}, {73, 1}, {74, 3},
                                              {75, 0}, {76, 0},    {77, 0}, {78, 0}};
    for (const auto& [code, value] : kFlags) m_out.integer(code, value);
}

void Saver::writeTable(const RecordType& type) {
    const AcDbSymbolTable& table = tableAt((m_database.*type.table)());
    const std::string_view name = type.name;
    std::vector<const AcDbSymbolTableRecord*> records;
    for (const AcDbObjectId id : ObjectAccess::records(table))
        if (!id.isErased())
            records.push_back(
                static_cast<const AcDbSymbolTableRecord*>(static_cast<AcDbStub*>(id)->object));
    const bool addsDefpoints = name == "LAYER" && m_standard.defpoints != 0;
    const bool addsCopies = name == "LAYER" && m_standard.copies != 0;
    std::size_t count = records.size() + (addsDefpoints ? 1 : 0) + (addsCopies ? 1 : 0);
    if (name == "APPID") count += m_applications.size();
    // Files of shapes stand behind the styles that the host keeps as objects.
    const RawTags& shapes = m_core.foreign().shapeStyles;
    if (name == "STYLE")
        count += static_cast<std::size_t>(std::count_if(
            shapes.begin(), shapes.end(), [](const RawTag& tag) { return tag.code == 0; }));
    if (name == "BLOCK_RECORD") count += m_pieces.blocks().size() + m_dimensionBlocks.size();
    beginTable(type.name, table.objectId().handle().value(), count);
    if (type.handleCode != 5) {
        m_out.marker("AcDbDimStyleTable");
        m_out.integer(71, static_cast<long long>(count));
    }
    for (const AcDbSymbolTableRecord* record : records) writeRecord(type, *record);
    if (name == "STYLE") m_entities.parts(shapes, 0, table.objectId().handle().value());
    if (addsDefpoints) writeMadeRecord(type, m_standard.defpoints, L"Defpoints");
    if (addsCopies) writeMadeRecord(type, m_standard.copies, kCopyLayer, true);
    if (name == "APPID")
        for (const auto& [application, handle] : m_applications)
            writeMadeRecord(type, handle, application);
    if (name == "BLOCK_RECORD") {
        for (const PictureBlock& block : m_pieces.blocks()) writeBlockRecord(block, false);
        for (std::size_t i = 0; i < m_dimensionBlocks.size(); ++i)
            writeBlockRecord(m_dimensionBlocks[i], i < m_dimensions.size());
    }
    m_out.text(0, "ENDTAB");
}

/// Handles that the opened file gave and that name nothing: the usual ones take their place.
void Saver::dropLostDefaults(const RecordType& type, RawTags& kept) const {
    for (const Field& field : type.fields) {
        if (field.meaning != Meaning::DefaultHandle) continue;
        std::erase_if(kept, [&](const RawTag& tag) {
            Adesk::UInt64 handle = 0;
            return tag.code == field.code && parseHandle(tag.value, handle) && handle != 0 &&
                   !m_handles.has(handle);
        });
    }
}

/// 0 for a block that is no space.
Adesk::UInt64 Saver::layoutHandle(AcDbObjectId block) const {
    if (m_standard.layouts != 0 && block == m_core.modelSpaceId()) return m_standard.modelLayout;
    if (m_standard.layouts != 0 && block == m_core.paperSpaceId()) return m_standard.paperLayout;
    const auto tab = std::find_if(m_tabs.begin(), m_tabs.end(),
                                  [block](const Tab& each) { return each.block == block; });
    return tab != m_tabs.end() ? m_handles.of(tab->layout) : 0;
}

void Saver::writeRecord(const RecordType& type, const AcDbSymbolTableRecord& record) {
    static const RawTags kNone;
    const ObjectExtra* const extra = ObjectAccess::extra(record);
    const RawTags& foreign = extra != nullptr ? extra->foreign : kNone;
    const bool isBlock = record.isA() == AcDbBlockTableRecord::desc();
    m_out.text(0, type.name);
    m_out.handle(type.handleCode, record.objectId().handle().value());
    const std::size_t own = m_entities.applicationGroups(foreign);
    m_entities.links(extra);
    m_out.handle(330, record.ownerId().handle().value());
    m_out.marker("AcDbSymbolTableRecord");
    if (own < foreign.size() && foreign[own].code == kWholeRecord) {
        for (std::size_t i = own + 1; i < foreign.size(); ++i)
            if (foreign[i].code == 2)
                m_out.meaning(2, ObjectAccess::name(record));
            else
                m_out.raw(foreign[i].code, foreign[i].value);
    } else {
        m_values.reset(type.fields);
        m_values.texts[0] = ObjectAccess::name(record);
        m_values.integers[0] = 0;
        for (const RawTag& tag : foreign)
            if (tag.code == kOtherFlags) (void)parseInteger(tag.value, m_values.integers[0]);
        type.take(record, m_values);
        long long& handle = m_values.integers[kDefaultHandleSlot];
        handle = isBlock                     ? 0
                 : m_standard.plotStyle == 0 ? -1
                                             : static_cast<long long>(m_standard.plotStyle);
        if (isBlock) handle = static_cast<long long>(layoutHandle(record.objectId()));
        // What stands behind a group 0 belongs to the block, not to its record.
        RawTags kept(foreign.begin(),
                     std::find_if(foreign.begin(), foreign.end(),
                                  [](const RawTag& tag) { return tag.code == 0; }));
        dropLostDefaults(type, kept);
        if (type.name == std::string_view("LAYER"))
            if (const auto index = indexOfTrueColor(m_version, kept, 0, kept.size()))
                m_values.integers[1] = m_values.integers[1] < 0 ? -*index : *index;
        m_entities.countLosses(type.name, kept);
        dropUnknownGroups(m_version, type.name, kept);
        const bool hasUnits =
            std::any_of(kept.begin(), kept.end(), [](const RawTag& tag) { return tag.code == 70; });
        writeFields(type.fields, m_values, m_names, m_out, &kept, 0);
        if (isBlock && m_version >= "AC1021" && !hasUnits) {
            m_out.integer(70, 0);
            m_out.integer(280, 1);
            m_out.integer(281, 0);
        }
    }
    if (extra != nullptr) m_out.raw(extra->xdata);
}

void Saver::writeMadeRecord(const RecordType& type, Adesk::UInt64 handle, const std::wstring& name,
                            bool frozen) {
    const bool isLayer = std::string_view(type.name) == "LAYER";
    beginRecord(type.name, type.handleCode, handle, (m_database.*type.table)().handle().value());
    m_values.reset(type.fields);
    m_values.texts[0] = name;
    if (isLayer) {
        // What stands on it is for programs: not plotted.
        AcDbLayerTableRecord layer;
        (void)layer.setIsPlottable(false);
        (void)layer.setIsFrozen(frozen);
        type.take(layer, m_values);
        m_values.ids[0] = m_database.continuousLinetype();
        m_values.integers[kDefaultHandleSlot] =
            m_standard.plotStyle == 0 ? -1 : static_cast<long long>(m_standard.plotStyle);
    }
    writeFields(type.fields, m_values, m_names, m_out, nullptr, 0);
}

void Saver::writeBlockRecord(const PictureBlock& block, bool ofDimension) {
    beginRecord("BLOCK_RECORD", 5, block.record, m_database.blockTableId().handle().value());
    m_out.marker("AcDbBlockTableRecord");
    m_out.text(2, block.name);
    m_out.handle(340, 0);
    if (m_version >= "AC1021") {
        m_out.integer(70, 0);
        m_out.integer(280, 1);
        m_out.integer(281, 0);
    }
    if (!ofDimension) return;
    // Drawn here, and so laid out anew when it is read.
    m_out.text(1001, kPieceApplication);
    m_out.integer(1070, 1);
}

}  // namespace prancheta::dxf
