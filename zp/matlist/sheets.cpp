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
#include "zp/matlist/book.h"
#include "zp/matlist/follow.h"
#include "zp/matlist/listing.h"
#include "zp/matlist/zpmarca.h"

namespace zp::matlist {
namespace {

using protocol::PropertySheet;

constexpr const ACHAR* kMarca = L"marca";
constexpr int kMostPecas = 1000000;

std::wstring number(double v, int decimals, const wchar_t* unit) {
    return texts::withComma(v, decimals) + L" " + unit;
}

/// One decimal more than the list has.
std::wstring words(const Cell& cell, const protocol::ListColumn& column) {
    if (const auto* text = std::get_if<std::wstring>(&cell)) return *text;
    const double value = std::get<double>(cell);
    return column.decimals == 0 ? texts::withComma(value, 0)
                                : number(value, column.decimals + 1, column.unit);
}

void showRow(const Linha& kept, PropertySheet& s) {
    const Linha l = counted(kept);
    s.group(L"Lista de material");
    for (const Column& c : kColumnTable) {
        if (c.field == Field(&Linha::marca)) continue;
        const Cell cell = c.field == Field(&Linha::observacao) ? Cell(l.observacao) : cellOf(l, c);
        if (c.shown.editable)
            s.edit(c.shown.key, c.shown.name, words(cell, c.shown).c_str(), nullptr);
        else
            s.show(c.shown.key, c.shown.name, words(cell, c.shown).c_str());
    }
}

std::wstring changeMarca(AcDbObjectId id, AcDbObjectId record, const std::wstring& given) {
    const std::wstring marca = texts::trimmed(given);
    if (marca.empty()) return L"A marca não pode ficar vazia.";
    if (marca.size() >= kZpMarcaMax)
        return L"A marca pode ter até " + std::to_wstring(kZpMarcaMax - 1) + L" caracteres.";
    if (!record.isNull()) {
        if (!Book::of(*id.database()).rowWithMarca(marca, record).isNull())
            return L"A marca " + marca + L" já está na lista de material.";
    }
    {
        const AcDbObjectPointer<ZpMarca> opened(id, AcDb::kForWrite);
        if (opened.openStatus() == Acad::eOnLockedLayer)
            return L"A camada da marca está bloqueada; desbloqueie-a para editar.";
        if (opened.object() == nullptr) return L"A marca não pode ser alterada agora.";
        opened->setMarca(marca);
    }
    return record.isNull() || renameRow(record, marca)
               ? L""
               : L"A linha da lista ou outra marca dela não pôde ser gravada.";
}

/// The count of the one piece that a row has, or the number of a row that has none.
std::wstring changeCount(AcDbObjectId record, Linha& row, int count) {
    if (!row.tied) {
        // Paint areas of a row without pieces cannot be divided.
        const double each = row.quantidade > 0 ? row.areaPintura / row.quantidade : row.areaPintura;
        row.quantidade = count;
        row.pesoTotal = row.pesoUnitario * count;
        row.areaPintura = each * count;
        return rewrite(record, row) ? L"" : L"A linha da lista não pôde ser gravada.";
    }
    if (row.pecas.size() != 1)
        return L"A quantidade é a soma das peças desenhadas; mude a de cada uma com MARCAS Contar.";
    return enterRow(row.pecas.front(), record, count)
               ? L""
               : L"A peça não pode ser alterada agora; veja se a camada dela está bloqueada.";
}

std::wstring changeQuantidade(AcDbObjectId record, Linha& row, const std::wstring& text) {
    const double v = texts::exactReal(text).value_or(0.0);
    if (v != std::floor(v) || v < 1.0 || v > kMostPecas)
        return L"A quantidade deve ser um número inteiro de 1 a " + std::to_wstring(kMostPecas) +
               L".";
    return changeCount(record, row, static_cast<int>(v));
}

}  // namespace

std::wstring changeRow(AcDbObjectId record, const std::wstring& key, const std::wstring& value) {
    std::optional<Linha> row = rowAt(record);
    if (!row) return L"Não há linha na lista de material.";
    const auto column = std::ranges::find_if(
        kColumnTable, [&](const Column& c) { return c.shown.editable && key == c.shown.key; });
    if (column == kColumnTable.end()) return L"Este valor não pode ser editado.";
    const auto* text = std::get_if<std::wstring Linha::*>(&column->field);
    if (text == nullptr) return changeQuantidade(record, *row, value);
    if (row->tied && *text == &Linha::material)
        return changeGrade(record, texts::trimmed(value))
                   ? L""
                   : L"Nem todas as peças da linha puderam mudar de aço; veja se alguma está em "
                     L"camada bloqueada.";
    (*row).*(*text) = texts::trimmed(value);
    if (!rewrite(record, *row)) return L"A linha da lista não pôde ser gravada.";
    settle(*record.database());
    return L"";
}

namespace {

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
