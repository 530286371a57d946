// SPDX-License-Identifier: MIT
// Lists of before pieces knew their rows.
#include <algorithm>
#include <map>
#include <optional>
#include <string>

#include "acutads.h"
#include "zp/matlist/book.h"
#include "zp/matlist/follow.h"
#include "zp/matlist/zpmarca.h"
#include "zp/objects/member.h"

namespace zp::matlist {
namespace {

/// Pieces of a row of before pieces knew theirs: what the mark points at, plates with their equals.
std::vector<AcDbObjectId> pecasOfOldRow(const Linha& row) {
    for (const AcDbSoftPointerId& id : row.ids) {
        const AcDbObjectPointer<ZpMarca> marca(id, AcDb::kForRead);
        const AcDbObjectId first = marca.object() != nullptr ? marca->peca() : AcDbObjectId();
        const AcDbObjectPointer<ZpObject> peca(first, AcDb::kForRead);
        if (peca.object() == nullptr) continue;
        std::vector<AcDbObjectId> all{first};
        const AcDbObjectPointer<ZpObject> bar(edit::ownerOf(*peca.object()), AcDb::kForRead);
        if (bar.object() == nullptr) return all;
        for (const AcDbObjectId& next : edit::chapasOf(*bar.object())) {
            const AcDbObjectPointer<ZpObject> chapa(next, AcDb::kForRead);
            if (next != first && chapa.object() != nullptr &&
                member::same(*peca.object(), *chapa.object()))
                all.push_back(next);
        }
        return all;
    }
    return {};
}

bool pecaErased(const Linha& row) {
    return std::ranges::any_of(row.ids, [](const AcDbSoftPointerId& id) {
        const AcDbObjectPointer<ZpMarca> marca(id, AcDb::kForRead);
        return marca.object() != nullptr && marca->pecaErased();
    });
}

/// What the row says stays: plates count one each where that is what it says, else its first piece
/// for all.
void tieOldRow(AcDbObjectId record, Linha row) {
    const std::vector<AcDbObjectId> pecas = pecasOfOldRow(row);
    if (pecas.empty() && !pecaErased(row)) return;
    row.tied = true;
    if (!rewrite(record, row) || pecas.empty()) return;
    int times = 1;
    {
        const AcDbObjectPointer<ZpObject> first(pecas.front(), AcDb::kForRead);
        const AcDbObjectId bar = edit::ownerOf(*first.object());
        if (!bar.isNull()) times = std::max(1, countOf(bar));
    }
    const auto standing = static_cast<long long>(pecas.size()) * times;
    const bool eachOne = standing == row.quantidade;
    for (const AcDbObjectId& id : pecas)
        (void)enterRow(id, record, eachOne ? 1 : id == pecas.front() ? row.quantidade / times : 0);
}

std::wstring textOf(AcDbObjectId marca) {
    const AcDbObjectPointer<ZpMarca> opened(marca, AcDb::kForRead);
    return opened.object() != nullptr ? opened->marca() : std::wstring();
}

/// Pieces beyond the first with a mark do not count; how many there are.
int tieOldRows(AcDbDatabase& drawing, Book& book) {
    std::map<std::wstring, AcDbObjectId> byText;
    for (const MaterialList& list : materialLists(drawing))
        for (const AcDbObjectId& record : book.records(list.id)) {
            const std::optional<Linha> row = storedRow(record);
            if (!row || row->tied) continue;
            tieOldRow(record, *row);
            byText.try_emplace(row->marca, record);
        }
    if (byText.empty()) return 0;
    int without = 0;
    // Bars before their plates, which count as often as they do.
    for (const bool chapas : {false, true})
        for (const AcDbObjectId& id : book.marcas()) {
            const AcDbObjectId peca = book.marca(id)->peca;
            const auto row = byText.find(textOf(id));
            if (row == byText.end() || peca.isNull() || peca.isErased() || isListed(peca)) continue;
            if (peca.objectClass()->isDerivedFrom(ZpChapa::desc()) != chapas) continue;
            const bool counts = chapas && countOf(barOf(peca)) == 0
                                    ? enterChapas(peca, row->second)
                                    : enterRow(peca, row->second, 0);
            without += counts ? 1 : 0;
        }
    return without;
}

}  // namespace

void followFrom(AcDbDatabase* drawing) {
    if (drawing == nullptr) return;
    Book& book = Book::of(*drawing);
    const Book::OwnWork own(book);
    if (const int without = tieOldRows(*drawing, book); without > 0)
        acutPrintf(L"\n%d peças têm a marca de outra e não contam na lista; use MARCAS Contar.\n",
                   without);
    (void)book.takeChanges();
}

}  // namespace zp::matlist
