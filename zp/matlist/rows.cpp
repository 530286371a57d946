// SPDX-License-Identifier: MIT
// Rows of material lists as the drawn pieces make them.
#include <algorithm>
#include <limits>

#include "texts/number.h"
#include "zp/matlist/book.h"
#include "zp/matlist/lists.h"
#include "zp/matlist/zpmarca.h"
#include "zp/objects/cortes.h"
#include "zp/objects/published.h"
#include "zp/objects/steel.h"

namespace zp::matlist {
namespace {

/// Whole mm, as when the plate entered the list.
std::wstring millimetres(double value) { return std::to_wstring(texts::realToInt(value)); }

/// What the list says of a piece.
void describe(const ZpObject& peca, Linha& row) {
    const Peca& p = Access::of(peca);
    if (peca.isKindOf(ZpChapa::desc())) {
        row.dimensoes = millimetres(peca.getLargura()) + L"x" + millimetres(peca.getEspessura());
        row.nome = p.designacao();
    } else {
        wchar_t text[kZpTextMax] = {};
        (void)peca.getPerfil(text);  // the buffer is there
        row.descricao = text;
        (void)peca.getDimensoes(text);
        row.dimensoes = text;
        row.nome = p.name();
        row.origemPeso = published::massWords(p);
    }
    row.comprimento = peca.getComprimentoReal();
    row.pesoUnitario = peca.getPeso();
    row.pesoTotal = row.pesoUnitario * row.quantidade;
    row.pesoLiquido = (p.chapa() ? row.pesoUnitario : cortes::netMass(p)) * row.quantidade;
    row.areaPintura = peca.getAreaPintura() * row.quantidade;
    if (std::wstring steel = steelOf(peca); !steel.empty()) row.material = std::move(steel);
}

/// A drawing that shows the member whole speaks for it: one that counts rather than a further view.
AcDbObjectId speaker(const Linha& row) {
    if (!row.pecas.empty()) return row.pecas.front();
    return row.vistas.empty() ? AcDbObjectId() : row.vistas.front();
}

}  // namespace

std::optional<Linha> rowAt(AcDbObjectId record) {
    std::optional<Linha> row = storedRow(record);
    if (row) row->record = record;
    if (!row || !row->tied) return row;
    Book& book = Book::of(*record.database());
    const Book::Row* const now = book.row(record);
    if (now == nullptr) return row;
    for (const AcDbObjectId& peca : now->pecas)
        (book.counts(peca) > 0 ? row->pecas : row->vistas).push_back(peca);
    if (!now->pecas.empty()) {
        row->ids.clear();
        for (const AcDbObjectId& peca : now->pecas)
            for (const AcDbObjectId& marca : book.marcasOf(peca))
                row->ids.push_back(AcDbSoftPointerId(marca));
    }
    constexpr long long kMost = std::numeric_limits<int>::max();
    row->quantidade = static_cast<int>(std::min(now->quantidade, kMost));
    const AcDbObjectPointer<ZpObject> peca(speaker(*row), AcDb::kForRead);
    if (peca.object() != nullptr)
        describe(*peca.object(), *row);
    else if (now->pecas.empty())
        row->pesoTotal = row->areaPintura = 0.0;
    std::erase_if(row->ids, [](const AcDbSoftPointerId& id) { return id.isErased(); });
    return row;
}

std::vector<Linha> rows(AcDbObjectId list) {
    std::vector<Linha> all;
    if (list.isNull()) return all;
    for (const AcDbObjectId& record : Book::of(*list.database()).records(list))
        if (std::optional<Linha> row = rowAt(record)) all.push_back(std::move(*row));
    return all;
}

bool hasNoRows(AcDbObjectId list) {
    return list.isNull() || Book::of(*list.database()).records(list).empty();
}

bool erased(const Linha& row) {
    if (row.tied) return row.pecas.empty() && row.vistas.empty();
    return !row.ids.empty() && std::ranges::all_of(row.ids, [](const AcDbSoftPointerId& id) {
        return id.isNull() || id.isErased();
    });
}

int removeErased(AcDbObjectId list) {
    int removed = 0;
    for (const AcDbObjectId& record : Book::of(*list.database()).records(list)) {
        const std::optional<Linha> row = rowAt(record);
        if (!row || !erased(*row)) continue;
        const AcDbObjectPointer<AcDbObject> opened(record, AcDb::kForWrite);
        if (opened.object() == nullptr || opened->erase() != Acad::eOk) continue;
        ++removed;
        for (const AcDbSoftPointerId& id : row->ids) {
            const AcDbObjectPointer<ZpMarca> marca(id, AcDb::kForWrite);
            const AcDbObjectId peca = marca.object() != nullptr ? marca->peca() : AcDbObjectId();
            // A mark whose piece stands belongs to the row that the piece has by now.
            if (marca.object() != nullptr && (peca.isNull() || peca.isErased()))
                (void)marca->erase();  // open for write and alive
        }
    }
    return removed;
}

std::wstring observacaoOf(const Linha& row) {
    if (!erased(row)) return row.observacao;
    const std::wstring notice = row.tied ? L"peça apagada" : L"apagada";
    return row.observacao.empty() ? notice : notice + L"; " + row.observacao;
}

}  // namespace zp::matlist
