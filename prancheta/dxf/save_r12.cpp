// SPDX-License-Identifier: MIT
// Writing for R12: no objects, no blocks, only what is seen of the model.
#include "prancheta/dxf/save_r12.h"

#include <map>

#include "prancheta/base/text.h"
#include "prancheta/database/entity_picture.h"
#include "prancheta/database/layouts.h"
#include "prancheta/database/object_access.h"
#include "prancheta/dxf/picture_writer.h"
#include "prancheta/dxf/releases.h"
#include "prancheta/dxf/table_at.h"
#include "prancheta/entities/foreign_entity.h"
#include "prancheta/entities/viewports.h"

namespace prancheta::dxf {
namespace {

constexpr std::string_view kContinuous = "CONTINUOUS";

class R12Saver {
public:
    R12Saver(AcDbDatabase& database, TagWriter& out)
        : m_database(database), m_out(out), m_pictures(out, m_names, database, kR12) {}

    std::string run() {
        measure();
        header();
        section("TABLES");
        linetypes();
        layers();
        textStyles();
        m_out.text(0, "ENDSEC");
        section("BLOCKS");
        m_out.text(0, "ENDSEC");
        section("ENTITIES");
        forEachPicture([&](const AcDbEntity&, const Picture& picture) {
            m_pictures.write(picture, 0, m_handles);
        });
        m_out.text(0, "ENDSEC");
        m_out.text(0, "EOF");
        m_out.flush();
        return told();
    }

private:
    template <class Visit>
    void forEachPicture(Visit visit) {
        const auto& space = static_cast<const AcDbBlockTableRecord&>(
            *static_cast<AcDbStub*>(m_database.core().modelSpaceId())->object);
        for (const AcDbObjectId id : ObjectAccess::entities(space)) {
            auto& entity = static_cast<AcDbEntity&>(*static_cast<AcDbStub*>(id)->object);
            if (id.isErased() || entity.visibility() == AcDb::kInvisible) continue;
            Picture picture;
            recordPicture(entity, picture);
            visit(entity, picture);
        }
    }

    /// Extents, and what cannot be shown.
    void measure() {
        forEachPicture([&](const AcDbEntity& entity, const Picture& picture) {
            if (const AcDbExtents box = picture.extents(); !box.isEmpty()) m_extents.addExt(box);
            const auto* const foreign = ForeignEntity::cast(&entity);
            if (foreign != nullptr && picture.empty()) ++m_left[toWide(foreign->typeName())];
            for (const PrimitiveView view : picture) {
                if (view.traits().marker == kEndlessMarker) ++m_left[L"linhas sem fim"];
                if (view.traits().marker == kCoverMarker) ++m_left[L"áreas que cobrem"];
            }
        });
    }

    void section(const char* name) {
        m_out.text(0, "SECTION");
        m_out.text(2, name);
    }

    void header() {
        section("HEADER");
        m_out.text(9, "$ACADVER");
        m_out.text(1, kR12);
        m_out.text(9, "$DWGCODEPAGE");
        m_out.text(3, "ANSI_1252");
        m_out.text(9, "$INSBASE");
        m_out.point(10, AcGePoint3d::kOrigin);
        if (!m_extents.isEmpty()) {
            m_out.text(9, "$EXTMIN");
            m_out.point(10, m_extents.minPoint());
            m_out.text(9, "$EXTMAX");
            m_out.point(10, m_extents.maxPoint());
        }
        m_out.text(9, "$LTSCALE");
        m_out.real(40, m_database.ltscale());
        m_out.text(9, "$HANDLING");
        m_out.integer(70, 0);
        m_out.text(0, "ENDSEC");
    }

    /// The records of a table that are there, in their order.
    template <class Record, class Visit>
    void forEachRecord(AcDbObjectId table, Visit visit) {
        for (const AcDbObjectId id : ObjectAccess::records(tableAt(table)))
            if (!id.isErased())
                visit(id, static_cast<const Record&>(*static_cast<AcDbStub*>(id)->object));
    }

    void beginTable(const char* name, std::size_t count) {
        m_out.text(0, "TABLE");
        m_out.text(2, name);
        m_out.integer(70, static_cast<long long>(count));
    }

    void linetype(std::string_view name, const AcDbLinetypeTableRecord* record) {
        m_out.text(0, "LTYPE");
        m_out.text(2, name);
        m_out.integer(70, 0);
        m_out.meaning(3, record != nullptr ? record->comments() : L"");
        m_out.integer(72, 65);
        const int dashes = record != nullptr ? record->numDashes() : 0;
        m_out.integer(73, dashes);
        m_out.real(40, dashes > 0 ? record->patternLength() : 0.0);
        for (int i = 0; i < dashes; ++i) m_out.real(49, record->dashLengthAt(i));
    }

    /// By layer and by block are no records there.
    bool isPattern(AcDbObjectId id, const std::string& name) const {
        return id != m_database.byLayerLinetype() && id != m_database.byBlockLinetype() &&
               name != kContinuous;
    }

    void linetypes() {
        using Record = AcDbLinetypeTableRecord;
        std::size_t count = 1;
        forEachRecord<Record>(m_database.linetypeTableId(), [&](AcDbObjectId id, const Record&) {
            if (isPattern(id, m_names.of(id))) ++count;
        });
        beginTable("LTYPE", count);
        linetype(kContinuous, nullptr);
        forEachRecord<Record>(m_database.linetypeTableId(),
                              [&](AcDbObjectId id, const Record& record) {
                                  const std::string& name = m_names.of(id);
                                  if (isPattern(id, name)) linetype(name, &record);
                              });
        m_out.text(0, "ENDTAB");
    }

    void layers() {
        using Record = AcDbLayerTableRecord;
        std::size_t count = 0;
        forEachRecord<Record>(m_database.layerTableId(),
                              [&](AcDbObjectId, const Record&) { ++count; });
        beginTable("LAYER", count);
        forEachRecord<Record>(m_database.layerTableId(), [&](AcDbObjectId id, const Record& layer) {
            const std::optional<Rgb> rgb = ObjectAccess::trueColor(layer);
            const int color = rgb ? nearestIndex(*rgb) : layer.colorIndex();
            static const std::string kUsual(kContinuous);
            m_out.text(0, "LAYER");
            m_out.text(2, m_names.of(id));
            m_out.integer(70, (layer.isFrozen() ? 1 : 0) | (layer.isLocked() ? 4 : 0));
            m_out.integer(62, layer.isOff() ? -color : color);
            // A file may give a layer a linetype that is none.
            const AcDbObjectId linetype = layer.linetypeObjectId();
            m_out.text(6, isPattern(linetype, "") ? m_names.of(linetype, kUsual) : kUsual);
        });
        m_out.text(0, "ENDTAB");
    }

    void textStyles() {
        beginTable("STYLE", 1);
        m_out.text(0, "STYLE");
        m_out.text(2, "STANDARD");
        m_out.integer(70, 0);
        m_out.real(40, 0.0);
        m_out.real(41, 1.0);
        m_out.real(50, 0.0);
        m_out.integer(71, 0);
        m_out.real(42, 2.5);
        m_out.text(3, "txt");
        m_out.text(4, "");
        m_out.text(0, "ENDTAB");
    }

    std::string told() {
        std::size_t onSheets = 0;
        for (const Tab& tab : tabsOf(m_database)) {
            if (tab.block == m_database.core().modelSpaceId()) continue;
            const auto& sheet = static_cast<const AcDbBlockTableRecord&>(
                *static_cast<AcDbStub*>(tab.block)->object);
            for (const AcDbObjectId id : ObjectAccess::entities(sheet))
                if (!id.isErased() && !isSheetsOwn(id)) ++onSheets;
        }
        if (onSheets > 0) m_left[L"objetos dos layouts"] = onSheets;
        std::wstring line;
        for (const auto& [what, times] : m_left)
            line += (line.empty() ? L"o formato R12 ficou sem: " : L", ") + what + L" (" +
                    std::to_wstring(times) + L")";
        const wchar_t* before = line.empty() ? L"" : L"; ";
        for (const std::wstring& name : m_names.changed()) {
            line += before + (before[0] == L',' ? name : L"camadas com outro nome: " + name);
            before = L", ";
        }
        return toUtf8(line);
    }

    AcDbDatabase& m_database;
    TagWriter& m_out;
    SaveNames m_names{SaveNames::Rules::R12};
    HandleSource m_handles;
    PictureWriter m_pictures;
    AcDbExtents m_extents;
    std::map<std::wstring, std::size_t> m_left;
};

}  // namespace

std::string saveR12(AcDbDatabase& database, TagWriter& out) {
    return R12Saver(database, out).run();
}

}  // namespace prancheta::dxf
