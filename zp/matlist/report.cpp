// SPDX-License-Identifier: MIT
// Report of marks and of the material list.
#include "zp/matlist/report.h"

#include <algorithm>

#include "acutmem.h"
#include "perfis/entities/zpfuncoes.h"
#include "protocol/attach.h"
#include "protocol/report.h"
#include "protocol/scale.h"
#include "zp/matlist/listing.h"
#include "zp/matlist/sheets.h"
#include "zp/matlist/summary.h"
#include "zp/matlist/table.h"
#include "zp/matlist/zpmarca.h"
#include "zp/objects/edit.h"

namespace zp::matlist {
namespace {

using protocol::PropertyVisitor;

class MarcasReport : public protocol::EntityReport {
public:
    void describe(const AcDbEntity& entity, PropertyVisitor& v) const override {
        const auto* marca = ZpMarca::cast(&entity);
        if (marca == nullptr) return;
        v.point(L"ponta", marca->tip());
        v.point(L"texto_em", marca->textAt());
        v.text(L"marca", marca->marca().c_str());
    }
};

/// Text and its distance from the tip are sizes on paper.
class MarcasScale : public protocol::ScaleFollower {
public:
    int layAgain(AcDbObjectId entity, int& locked) const override {
        const double altura = kMarcaAltura * GetScale();
        const AcDbObjectPointer<ZpMarca> marca(entity, AcDb::kForRead);
        if (marca.object() == nullptr || marca->altura() == altura) return 0;
        if (edit::onLockedLayer(*marca.object())) {
            ++locked;
            return 0;
        }
        if (marca->upgradeOpen() != Acad::eOk) return 0;
        marca->resize(altura);
        return 1;
    }
};

class ListsReport : public protocol::DrawingReport {
public:
    const protocol::ListSchema& schema() const override { return listSchema(); }
    void describe(AcDbDatabase& database, PropertyVisitor& v) const override {
        each(database, v, [](std::vector<Linha> all) {
            std::ranges::transform(all, all.begin(), counted);
            return all;
        });
    }
    void describePrinted(AcDbDatabase& database, PropertyVisitor& v) const override {
        each(database, v, printedRows);
    }
    bool set(AcDbObjectId row, const ACHAR* key, const ACHAR* value,
             ACHAR*& message) const override {
        const std::wstring reason = changeRow(row, key, value);
        if (!reason.empty()) (void)acutNewString(reason.c_str(), message);
        return reason.empty();
    }
    int drawTablesAgain(AcDbDatabase& database) const override {
        int drawn = 0;
        for (const MaterialList& list : materialLists(database))
            if (hasTable(list.header) && drawTable(list)) ++drawn;
        return drawn;
    }
    bool drawTables(AcDbDatabase& database, const protocol::TablePlace& place,
                    AcDbObjectIdArray& drawn) const override {
        return drawTablesOn(database, place, drawn);
    }

private:
    /// `as` gives a list's rows as they are told.
    template <class As>
    static void each(AcDbDatabase& database, PropertyVisitor& v, As as) {
        v.beginList(protocol::kListKey);
        for (const MaterialList& list : materialLists(database))
            for (const Linha& l : as(rows(list.id))) row(list, l, v);
        v.endList();
    }
    static void tell(const Cell& cell, const protocol::ListColumn& column, PropertyVisitor& v) {
        if (const auto* text = std::get_if<std::wstring>(&cell))
            v.text(column.key, text->c_str());
        else if (const double value = std::get<double>(cell); column.decimals == 0)
            v.integer(column.key, static_cast<long long>(value));
        else
            v.number(column.key, value);
    }
    static void handles(const ACHAR* name, const std::vector<AcDbObjectId>& ids,
                        PropertyVisitor& v) {
        v.beginList(name);
        for (const AcDbObjectId& id : ids) v.object(nullptr, id);
        v.endList();
    }
    static void row(const MaterialList& list, const Linha& l, PropertyVisitor& v) {
        v.beginGroup(nullptr);
        for (const Column& c : kColumnTable) tell(cellOf(l, c), c.shown, v);
        v.integer(L"lista", list.number);
        v.text(L"grupo", list.header.group.c_str());
        v.integer(L"apagada", erased(l) ? 1 : 0);
        v.object(protocol::kRowKey, l.record);
        v.beginList(L"ids");
        for (const AcDbSoftPointerId& id : l.ids)
            if (!id.isNull()) v.object(nullptr, id);
        v.endList();
        handles(L"pecas", l.pecas, v);
        handles(L"vistas", l.vistas, v);
        if (const std::optional<double> strip = stripOf(l))
            v.number(L"tira", *strip);
        else
            v.text(L"tira", nullptr);
        v.endGroup();
    }
};

// Kept by pointer in the class and in the registry.
MarcasReport g_marcas;
MarcasScale g_scale;
ListsReport g_lists;

}  // namespace

void installReport() {
    protocol::attach(ZpMarca::desc(), protocol::kEntityReportClass, g_marcas);
    protocol::attach(ZpMarca::desc(), protocol::kScaleFollowerClass, g_scale);
    acrxSysRegistry()->atPut(protocol::kDrawingReportKey, &g_lists);
}

void uninstallReport() {
    protocol::detach(ZpMarca::desc(), protocol::kEntityReportClass);
    protocol::detach(ZpMarca::desc(), protocol::kScaleFollowerClass);
    protocol::retire(protocol::kScaleFollowerClass);
    acrxSysRegistry()->remove(protocol::kDrawingReportKey);
}

}  // namespace zp::matlist
