// SPDX-License-Identifier: MIT
// Property sheets of marks: the mark's text and its row of the material list.
#include "zp/matlist/sheets.h"

#include <algorithm>
#include <cmath>

#include "acutmem.h"
#include "dbapserv.h"
#include "protocol/attach.h"
#include "protocol/edit.h"
#include "texts/letters.h"
#include "texts/number.h"
#include "zp/matlist/columns.h"
#include "zp/matlist/follow.h"
#include "zp/matlist/lists.h"
#include "zp/matlist/zpmarca.h"

namespace zp::matlist {
namespace {

using protocol::PropertySheet;

constexpr const ACHAR* kMarca = L"marca";
constexpr int kMostPecas = 1000000;

std::wstring number(double v, int decimals, const wchar_t* unit) {
    return texts::withPoint(v, decimals) + L" " + unit;
}

/// One decimal more than the list has.
std::wstring words(const Cell& cell, const protocol::ListColumn& column) {
    if (const auto* text = std::get_if<std::wstring>(&cell)) return *text;
    const double value = std::get<double>(cell);
    return column.decimals == 0 ? texts::withPoint(value, 0)
                                : number(value, column.decimals + 1, column.unit);
}

void showRow(const Linha& l, PropertySheet& s) {
    s.group(L"Lista de material");
    for (const Column& c : kColumnTable) {
        if (c.field == Field(&Linha::marca)) continue;
        const Cell cell = c.field == Field(&Linha::observacao) ? Cell(l.observacao) : cellOf(l, c);
        if (c.editable)
            s.edit(c.shown.key, c.shown.name, words(cell, c.shown).c_str(), nullptr);
        else
            s.show(c.shown.key, c.shown.name, words(cell, c.shown).c_str());
    }
}

/// Another row of the same list has this mark.
bool marcaTaken(AcDbDatabase& drawing, AcDbObjectId record, const std::wstring& marca) {
    for (const MaterialList& list : materialLists(drawing)) {
        const std::vector<RowRecord> all = records(list.id);
        if (std::ranges::find(all, record, &RowRecord::id) == all.end()) continue;
        return std::ranges::any_of(all, [&](const RowRecord& r) {
            const std::optional<Linha> row = r.id == record ? std::nullopt : rowAt(r.id);
            return row && row->marca == marca && !erased(*row);
        });
    }
    return false;
}

std::wstring changeMarca(AcDbObjectId id, AcDbObjectId record, const std::wstring& given) {
    const std::wstring marca = texts::trimmed(given);
    if (marca.empty()) return L"A marca não pode ficar vazia.";
    if (marca.size() >= kZpMarcaMax)
        return L"A marca pode ter até " + std::to_wstring(kZpMarcaMax - 1) + L" caracteres.";
    if (!record.isNull() && marcaTaken(*id.database(), record, marca))
        return L"A marca " + marca + L" já está na lista de material.";
    {
        const AcDbObjectPointer<ZpMarca> opened(id, AcDb::kForWrite);
        if (opened.openStatus() == Acad::eOnLockedLayer)
            return L"A camada da marca está bloqueada; desbloqueie-a para editar.";
        if (opened.object() == nullptr) return L"A marca não pode ser alterada agora.";
        opened->setMarca(marca);
    }
    std::optional<Linha> row = rowAt(record);
    if (!row) return {};
    row->marca = marca;
    return rewrite(record, *row) ? L"" : L"A linha da lista não pôde ser gravada.";
}

std::wstring changeQuantidade(Linha& row, const std::wstring& text) {
    const double v = texts::exactReal(text).value_or(0.0);
    if (v != std::floor(v) || v < 1.0 || v > kMostPecas)
        return L"A quantidade deve ser um número inteiro a partir de 1.";
    // Paint areas of a row without pieces cannot be divided.
    const double perPeca = row.quantidade > 0 ? row.areaPintura / row.quantidade : row.areaPintura;
    row.quantidade = static_cast<int>(v);
    row.pesoTotal = row.pesoUnitario * row.quantidade;
    row.areaPintura = perPeca * row.quantidade;
    return {};
}

std::wstring changeRow(AcDbObjectId record, const std::wstring& key, const std::wstring& value) {
    std::optional<Linha> row = rowAt(record);
    if (!row) return L"A marca não tem linha na lista de material.";
    const auto column = std::ranges::find_if(
        kColumnTable, [&](const Column& c) { return c.editable && key == c.shown.key; });
    if (column == kColumnTable.end()) return L"Este valor não pode ser editado.";
    if (const auto* text = std::get_if<std::wstring Linha::*>(&column->field))
        (*row).*(*text) = texts::trimmed(value);
    else if (std::wstring reason = changeQuantidade(*row, value); !reason.empty())
        return reason;
    return rewrite(record, *row) ? L"" : L"A linha da lista não pôde ser gravada.";
}

class Sheets : public protocol::EntityProperties {
public:
    void list(const AcDbEntity& entity, PropertySheet& sheet) const override {
        const auto* marca = ZpMarca::cast(&entity);
        if (marca == nullptr) return;
        sheet.group(L"Marca");
        sheet.edit(kMarca, L"Marca", marca->marca().c_str(), nullptr);
        if (const std::optional<Linha> row = rowAt(recordOf(marca->objectId())))
            showRow(*row, sheet);
    }

    bool set(AcDbObjectId entity, const ACHAR* key, const ACHAR* value,
             ACHAR*& message) const override {
        const AcDbObjectId record = recordOf(entity);
        const std::wstring reason = std::wstring(key) == kMarca ? changeMarca(entity, record, value)
                                                                : changeRow(record, key, value);
        if (!reason.empty()) (void)acutNewString(reason.c_str(), message);
        return reason.empty();
    }

    /// The piece counts, not its mark.
    Totals totals(const AcDbEntity&) const override { return {}; }
};

Sheets g_sheets;  // kept by pointer in the class

}  // namespace

void installSheets() {
    protocol::attach(ZpMarca::desc(), protocol::kEntityPropertiesClass, g_sheets);
}

void uninstallSheets() { protocol::detach(ZpMarca::desc(), protocol::kEntityPropertiesClass); }

}  // namespace zp::matlist
