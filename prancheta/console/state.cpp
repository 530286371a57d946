// SPDX-License-Identifier: MIT
// Variables, layers, entities and material list of a drawing.
#include "prancheta/console/state.h"

#include <set>
#include <string>

#include "dbdim.h"
#include "dbsymtb.h"
#include "prancheta/base/file.h"
#include "prancheta/base/text.h"
#include "prancheta/console/state_writer.h"
#include "prancheta/database/layouts.h"
#include "prancheta/database/object_access.h"
#include "prancheta/editor/drawing_file.h"
#include "prancheta/entities/foreign_entity.h"
#include "prancheta/entities/insert_parts.h"
#include "prancheta/entities/viewports.h"
#include "protocol/attach.h"

namespace prancheta::console {
namespace {

/// Grows when a field changes its meaning or goes; docs/estado.schema.json says what there is.
constexpr int kStateVersion = 1;

/// Name of a layer, linetype or style; empty for a null id.
std::string recordName(AcDbObjectId id) {
    const AcDbObjectPointer<AcDbSymbolTableRecord> record(id, AcDb::kForRead);
    const ACHAR* name = nullptr;
    if (record.object() == nullptr || record->getName(name) != Acad::eOk) return {};
    return toUtf8(name);
}

Json variablesJson(Editor& editor) {
    Json out = Json::object();
    (void)editor.variable(L"EXTMAX");  // measured when asked for
    for (const VariableInfo& variable : editor.variables().all()) {
        const std::string name = toUtf8(variable.name);
        if (const auto* const number = std::get_if<short>(&variable.value)) out[name] = *number;
        if (const auto* const real = std::get_if<double>(&variable.value)) out[name] = *real;
        if (const auto* const text = std::get_if<std::wstring>(&variable.value))
            out[name] = toUtf8(*text);
        if (const auto* const point = std::get_if<AcGePoint3d>(&variable.value))
            out[name] = pointJson(*point);
    }
    return out;
}

/// Only where there is one: the index nearest to it stands for those who know no other.
void addTrueColor(const AcDbObject& object, Json& out) {
    if (const auto color = ObjectAccess::trueColor(object))
        out["cor_verdadeira"] = toUtf8(rgbText(*color));
}

Json layersJson(AcDbDatabase& database) {
    Json out = Json::array();
    AcDbLayerTable* table = nullptr;
    if (database.getLayerTable(table, AcDb::kForRead) != Acad::eOk) return out;
    AcDbSymbolTableIterator* iterator = nullptr;
    const bool iterates = table->newIterator(iterator) == Acad::eOk;
    const std::unique_ptr<AcDbSymbolTableIterator> owner(iterator);
    for (; iterates && !iterator->done(); iterator->step()) {
        AcDbObjectId id;
        (void)iterator->getRecordId(id);  // done() was just tested
        const AcDbObjectPointer<AcDbLayerTableRecord> layer(id, AcDb::kForRead);
        if (layer.object() == nullptr) continue;
        const int weight = layer->lineWeight();
        out.push_back({{"nome", recordName(id)},
                       {"cor", layer->colorIndex()},
                       {"tipo_linha", recordName(layer->linetypeObjectId())},
                       {"desligada", layer->isOff()},
                       {"congelada", layer->isFrozen()},
                       {"bloqueada", layer->isLocked()},
                       {"espessura", weight >= 0 ? Json(weight / 100.0) : Json()}});
        addTrueColor(*layer.object(), out.back());
    }
    (void)table->close();
    return out;
}

void describeDimension(const AcDbDimension& dimension, Json& out) {
    const std::span<const AcGePoint3d> points = dimension.definitionPoints();
    const std::size_t measured = dimension.measuredPoints();
    out["p1"] = pointJson(points[0]);
    out["p2"] = pointJson(points[1]);
    if (points.size() > measured) out["linha"] = pointJson(points[measured]);
    out["texto"] = toUtf8(dimension.shownText());
    out["medida"] = dimension.measurement();
}

void describeInsertion(const AcDbBlockReference& insertion, Json& out) {
    const AcGeVector3d scale = insertion.scaleFactors();
    out["bloco"] = recordName(insertion.blockTableRecord());
    out["posicao"] = pointJson(insertion.position());
    out["escala"] = Json::array({scale.x, scale.y, scale.z});
    out["rotacao"] = insertion.rotation();
    Json attributes = Json::object();
    for (const AcDbAttribute* const attribute : attributesOf(insertion))
        attributes[toUtf8(attribute->tagConst())] = toUtf8(attribute->textStringConst());
    out["atributos"] = std::move(attributes);
    const auto* const array = AcDbMInsertBlock::cast(&insertion);
    if (array == nullptr) return;
    out["colunas"] = array->columns();
    out["linhas"] = array->rows();
}

const protocol::EntityReport* reportOf(const AcDbEntity& entity) {
    return protocol::extensionOf<protocol::EntityReport>(entity, protocol::kEntityReportClass);
}

Json entityJson(const AcDbEntity& entity) {
    Json out;
    out["handle"] = handleJson(entity.objectId());
    out["classe"] = toUtf8(entity.isA()->name());
    out["camada"] = recordName(entity.layerId());
    addTrueColor(entity, out);
    AcDbExtents extents;
    if (entity.getGeomExtents(extents) == Acad::eOk && !extents.isEmpty()) {
        const AcGePoint3d lower = extents.minPoint();
        const AcGePoint3d upper = extents.maxPoint();
        out["limites"] =
            Json::array({Json::array({lower.x, lower.y}), Json::array({upper.x, upper.y})});
    } else {
        out["limites"] = nullptr;
    }
    if (entity.isKindOf(AcDbDimension::desc()))
        describeDimension(static_cast<const AcDbDimension&>(entity), out);
    if (const auto* const insertion = AcDbBlockReference::cast(&entity))
        describeInsertion(*insertion, out);
    if (const auto* const foreign = ForeignEntity::cast(&entity))
        out["tipo_dxf"] = foreign->typeName();
    if (const auto* const report = reportOf(entity)) {
        JsonVisitor visitor(out);
        report->describe(entity, visitor);
    }
    return out;
}

/// Modules tell the rows' lists too, for front ends that show them; the state has the columns and
/// what a row is tied to.
void keepRowFields(Json& rows, const protocol::ListSchema& schema) {
    std::set<std::string> fields{"ids", "pecas", "vistas", "tira"};
    for (const protocol::ListColumn& column : schema.columns) fields.insert(toUtf8(column.key));
    for (Json& row : rows) {
        Json kept = Json::object();
        for (const auto& [name, value] : row.items())
            if (fields.contains(name)) kept[name] = value;
        row = std::move(kept);
    }
}

/// What modules tell of the drawing: the material list comes from there.
void describeDrawing(AcDbDatabase& database, Json& out) {
    const std::string list = toUtf8(protocol::kListKey);
    out[list] = Json::array();
    auto* const report =
        static_cast<protocol::DrawingReport*>(acrxSysRegistry()->at(protocol::kDrawingReportKey));
    if (report == nullptr) return;
    JsonVisitor visitor(out);
    report->describe(database, visitor);
    keepRowFields(out[list], report->schema());
}

/// One object, written member by member: a drawing's entities are never in memory twice.
class ObjectWriter {
public:
    explicit ObjectWriter(AtomicFile& file) : m_file(file) {}

    void member(const std::string& name, const Json& value) {
        begin(name);
        put(value, 1);
    }
    void beginList(const std::string& name) {
        begin(name);
        m_file.write("[");
        m_items = 0;
    }
    void item(const Json& value) {
        m_file.write(m_items++ == 0 ? "\n  " : ",\n  ");
        put(value, 2);
    }
    void endList() { m_file.write(m_items == 0 ? "]" : "\n ]"); }
    void end() { m_file.write("\n}\n"); }

private:
    void begin(const std::string& name) {
        m_file.write(m_members++ == 0 ? "{\n " : ",\n ");
        m_file.write(Json(name).dump() + ": ");
    }
    /// A line end inside a text is escaped: those that stand there are the layout's.
    void put(const Json& value, int level) {
        const std::string text = value.dump(1, ' ', false, Json::error_handler_t::replace);
        m_text.clear();
        for (const char c : text) {
            m_text += c;
            if (c == '\n') m_text.append(static_cast<std::size_t>(level), ' ');
        }
        m_file.write(m_text);
    }

    AtomicFile& m_file;
    std::string m_text;
    std::size_t m_members = 0;
    std::size_t m_items = 0;
};

}  // namespace

Result<void> writeState(Editor& editor, const std::filesystem::path& path) {
    AcDbDatabase& database = editor.database();
    AtomicFile file(path);
    if (auto opened = file.open(); !opened) return opened;
    ObjectWriter out(file);
    out.member("versao", kStateVersion);
    const std::u8string name = editor.file().name().u8string();
    out.member("arquivo", name.empty() ? Json() : Json(std::string(name.begin(), name.end())));
    out.member("unidades", {{"comprimento", "mm"},
                            {"angulo", "rad"},
                            {"massa", "kg"},
                            {"area", "mm2"},
                            {"area_pintura", "m2"}});
    out.member("variaveis", variablesJson(editor));
    out.member("camadas", layersJson(database));
    out.beginList("entidades");
    for (const Tab& tab : tabsOf(database)) {
        const AcDbStub* const stub = tab.block;
        for (const AcDbObjectId id :
             ObjectAccess::entities(static_cast<const AcDbBlockTableRecord&>(*stub->object))) {
            const AcDbObjectPointer<AcDbEntity> entity(id, AcDb::kForRead);
            if (entity.object() == nullptr || isSheetsOwn(id)) continue;
            Json json = entityJson(*entity.object());
            json["espaco"] = toUtf8(tab.name);
            out.item(json);
        }
    }
    out.endList();
    Json told;
    describeDrawing(database, told);
    for (const auto& [name, value] : told.items()) out.member(name, value);
    out.end();
    return file.commit();
}

}  // namespace prancheta::console
