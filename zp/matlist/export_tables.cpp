// SPDX-License-Identifier: MIT
// Findings and layers as tables.
#include "zp/matlist/export_tables.h"

#include <algorithm>
#include <map>

#include "dbsymtb.h"
#include "zp/matlist/book.h"
#include "zp/matlist/check.h"
#include "zp/objects/each_entity.h"

namespace zp::matlist {
namespace {

template <class Record>
std::wstring nameOf(AcDbObjectId id) {
    const AcDbObjectPointer<Record> record(id, AcDb::kForRead);
    const ACHAR* name = nullptr;
    return record.object() != nullptr && record->getName(name) == Acad::eOk ? name : L"";
}

Cell yesOrNo(bool yes) { return std::wstring(yes ? L"sim" : L"não"); }

std::vector<Cell> rowOf(AcDbObjectId id, long long objects) {
    const AcDbObjectPointer<AcDbLayerTableRecord> layer(id, AcDb::kForRead);
    if (layer.object() == nullptr) return {};
    const int weight = layer->lineWeight();
    return {nameOf<AcDbLayerTableRecord>(id),
            static_cast<double>(layer->colorIndex()),
            nameOf<AcDbLinetypeTableRecord>(layer->linetypeObjectId()),
            weight < 0 ? Cell(std::wstring(L"padrão")) : Cell(weight / 100.0),
            yesOrNo(!layer->isOff()),
            yesOrNo(layer->isFrozen()),
            yesOrNo(layer->isLocked()),
            yesOrNo(layer->isPlottable()),
            static_cast<double>(objects)};
}

}  // namespace

FileTable findingsTable(AcDbDatabase& drawing) {
    FileTable table{L"Conferência",
                    {{L"SITUAÇÃO", -1, 10},
                     {L"MARCA", -1, 10},
                     {L"O QUE HÁ", -1, 60},
                     {L"O QUE FAZER", -1, 50},
                     {L"OBJETOS", -1, 16},
                     {L"X (mm)", 1, 12},
                     {L"Y (mm)", 1, 12}},
                    {}};
    for (const Finding& f : check(drawing)) {
        std::wstring handles;
        for (const AcDbObjectId& id : f.objects) {
            ACHAR text[17];
            id.handle().getIntoAsciiBuffer(text);
            handles.append(handles.empty() ? L"" : L" ").append(text);
        }
        table.rows.push_back(
            {std::wstring(f.severity == protocol::Severity::Hint ? L"aviso" : L"falha"), f.marca,
             f.text, f.remedy, std::move(handles), f.place.x, f.place.y});
    }
    return table;
}

FileTable layersTable(AcDbDatabase& drawing) {
    FileTable table{L"Camadas",
                    {{L"CAMADA", -1, 24},
                     {L"COR", 0, 7},
                     {L"TIPO DE LINHA", -1, 16},
                     {L"ESPESSURA (mm)", 2, 16},
                     {L"LIGADA", -1, 9},
                     {L"CONGELADA", -1, 12},
                     {L"BLOQUEADA", -1, 12},
                     {L"IMPRIME", -1, 9},
                     {L"OBJETOS", 0, 10}},
                    {}};
    std::map<AcDbObjectId, long long, Older> objects;
    eachEntity(drawing, [&](AcDbObjectId id) {
        const AcDbObjectPointer<AcDbEntity> entity(id, AcDb::kForRead);
        if (entity.object() != nullptr) ++objects[entity->layerId()];
    });
    const AcDbObjectPointer<AcDbLayerTable> layers(drawing.layerTableId(), AcDb::kForRead);
    AcDbSymbolTableIterator* each = nullptr;
    if (layers.object() == nullptr || layers->newIterator(each) != Acad::eOk) return table;
    const std::unique_ptr<AcDbSymbolTableIterator> owner(each);
    for (; !each->done(); each->step()) {
        AcDbObjectId id;
        if (each->getRecordId(id) != Acad::eOk) continue;
        std::vector<Cell> row = rowOf(id, objects[id]);
        if (!row.empty()) table.rows.push_back(std::move(row));
    }
    std::ranges::sort(table.rows, {}, [](const std::vector<Cell>& row) { return row.front(); });
    return table;
}

}  // namespace zp::matlist
