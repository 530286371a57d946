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

namespace zp::lista {
namespace {

using protocol::PropertySheet;

constexpr const ACHAR* kMarca = L"marca";
constexpr int kMostPecas = 1000000;

std::wstring numero(double v, int casas, const wchar_t* unidade) {
    return texts::withPoint(v, casas) + L" " + unidade;
}

/// One decimal more than the list has.
std::wstring words(const Cell& cell, const protocol::ListColumn& column) {
    if (const auto* text = std::get_if<std::wstring>(&cell)) return *text;
    const double value = std::get<double>(cell);
    return column.decimals == 0 ? texts::withPoint(value, 0)
                                : numero(value, column.decimals + 1, column.unit);
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
bool marcaTaken(AcDbDatabase& desenho, AcDbObjectId registro, const std::wstring& marca) {
    for (const Lista& lista : listas(desenho)) {
        const std::vector<RowRecord> todos = registros(lista.id);
        if (std::ranges::find(todos, registro, &RowRecord::id) == todos.end()) continue;
        return std::ranges::any_of(todos, [&](const RowRecord& r) {
            const std::optional<Linha> linha = r.id == registro ? std::nullopt : rowAt(r.id);
            return linha && linha->marca == marca && !apagada(*linha);
        });
    }
    return false;
}

std::wstring changeMarca(AcDbObjectId id, AcDbObjectId registro, const std::wstring& dada) {
    const std::wstring marca = texts::trimmed(dada);
    if (marca.empty()) return L"A marca não pode ficar vazia.";
    if (marca.size() >= kZpMarcaMax)
        return L"A marca pode ter até " + std::to_wstring(kZpMarcaMax - 1) + L" caracteres.";
    if (!registro.isNull() && marcaTaken(*id.database(), registro, marca))
        return L"A marca " + marca + L" já está na lista de material.";
    {
        const AcDbObjectPointer<ZpMarca> aberta(id, AcDb::kForWrite);
        if (aberta.openStatus() == Acad::eOnLockedLayer)
            return L"A camada da marca está bloqueada; desbloqueie-a para editar.";
        if (aberta.object() == nullptr) return L"A marca não pode ser alterada agora.";
        aberta->setMarca(marca);
    }
    std::optional<Linha> linha = rowAt(registro);
    if (!linha) return {};
    linha->marca = marca;
    return rewrite(registro, *linha) ? L"" : L"A linha da lista não pôde ser gravada.";
}

std::wstring changeQuantidade(Linha& linha, const std::wstring& texto) {
    const double v = texts::exactReal(texto).value_or(0.0);
    if (v != std::floor(v) || v < 1.0 || v > kMostPecas)
        return L"A quantidade deve ser um número inteiro a partir de 1.";
    // Paint areas of a row without pieces cannot be divided.
    const double perPeca =
        linha.quantidade > 0 ? linha.areaPintura / linha.quantidade : linha.areaPintura;
    linha.quantidade = static_cast<int>(v);
    linha.pesoTotal = linha.pesoUnitario * linha.quantidade;
    linha.areaPintura = perPeca * linha.quantidade;
    return {};
}

std::wstring changeRow(AcDbObjectId registro, const std::wstring& chave,
                       const std::wstring& valor) {
    std::optional<Linha> linha = rowAt(registro);
    if (!linha) return L"A marca não tem linha na lista de material.";
    const auto column = std::ranges::find_if(
        kColumnTable, [&](const Column& c) { return c.editable && chave == c.shown.key; });
    if (column == kColumnTable.end()) return L"Este valor não pode ser editado.";
    if (const auto* text = std::get_if<std::wstring Linha::*>(&column->field))
        (*linha).*(*text) = texts::trimmed(valor);
    else if (std::wstring motivo = changeQuantidade(*linha, valor); !motivo.empty())
        return motivo;
    return rewrite(registro, *linha) ? L"" : L"A linha da lista não pôde ser gravada.";
}

class Fichas : public protocol::EntityProperties {
public:
    void list(const AcDbEntity& entity, PropertySheet& sheet) const override {
        const auto* marca = ZpMarca::cast(&entity);
        if (marca == nullptr) return;
        sheet.group(L"Marca");
        sheet.edit(kMarca, L"Marca", marca->marca().c_str(), nullptr);
        if (const std::optional<Linha> linha = rowAt(recordOf(marca->objectId())))
            showRow(*linha, sheet);
    }

    bool set(AcDbObjectId entity, const ACHAR* key, const ACHAR* value,
             ACHAR*& message) const override {
        const AcDbObjectId registro = recordOf(entity);
        const std::wstring motivo = std::wstring(key) == kMarca
                                        ? changeMarca(entity, registro, value)
                                        : changeRow(registro, key, value);
        if (!motivo.empty()) (void)acutNewString(motivo.c_str(), message);
        return motivo.empty();
    }

    /// The piece counts, not its mark.
    Totals totals(const AcDbEntity&) const override { return {}; }
};

Fichas g_fichas;  // kept by pointer in the class

}  // namespace

void installSheets() {
    protocol::attach(ZpMarca::desc(), protocol::kEntityPropertiesClass, g_fichas);
}

void uninstallSheets() { protocol::detach(ZpMarca::desc(), protocol::kEntityPropertiesClass); }

}  // namespace zp::lista
