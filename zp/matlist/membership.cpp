// SPDX-License-Identifier: MIT
// Pieces enter rows and leave them.
#include <algorithm>
#include <optional>
#include <string>

#include "zp/matlist/book.h"
#include "zp/matlist/follow.h"
#include "zp/matlist/zpmarca.h"
#include "zp/objects/member.h"

namespace zp::matlist {

std::wstring marcaOf(AcDbObjectId record) {
    const Book::Row* const row =
        record.isNull() ? nullptr : Book::of(*record.database()).row(record);
    return row != nullptr ? row->marca : std::wstring();
}

AcDbObjectId recordOf(AcDbObjectId id) {
    if (id.isNull() || id.database() == nullptr) return {};
    Book& book = Book::of(*id.database());
    const Book::Marca* const marca = book.marca(id);
    if (marca == nullptr) return book.rowOf(id);
    const AcDbObjectId row = book.rowOf(marca->peca);
    return row.isNull() ? book.rowNaming(id) : row;
}

bool isChapa(AcDbObjectId id) {
    const AcRxClass* kind = id.objectClass();
    return kind != nullptr && kind->isDerivedFrom(ZpChapa::desc());
}

AcDbObjectId barOf(AcDbObjectId chapa) {
    const AcDbObjectPointer<ZpObject> opened(chapa, AcDb::kForRead);
    return opened.object() != nullptr ? edit::ownerOf(*opened.object()) : AcDbObjectId();
}

bool chapaInSecao(AcDbObjectId id) {
    const AcDbObjectPointer<ZpChapa> chapa(id, AcDb::kForRead);
    if (chapa.object() == nullptr) return false;
    const AcDbObjectPointer<ZpObject> bar(edit::ownerOf(*chapa.object()), AcDb::kForRead);
    return bar.object() != nullptr && bar->vista() == ZpObject::kVistaSecao;
}

bool isListed(AcDbObjectId peca) { return !recordOf(peca).isNull(); }

int countOf(AcDbObjectId id) {
    const AcDbObjectPointer<ZpObject> peca(id, AcDb::kForRead);
    return peca.object() != nullptr ? member::of(*peca.object()).count : 0;
}

bool enterRow(AcDbObjectId id, AcDbObjectId record, int count) {
    {
        const AcDbObjectPointer<ZpObject> peca(id, AcDb::kForWrite);
        if (peca.object() == nullptr) return false;
        member::tie(*peca.object(), record, count);
    }
    const std::wstring text = marcaOf(record);
    for (const AcDbObjectId& marca : Book::of(*id.database()).marcasOf(id)) {
        const AcDbObjectPointer<ZpMarca> opened(marca, AcDb::kForWrite);
        if (opened.object() != nullptr && opened->marca() != text) opened->setMarca(text);
    }
    return true;
}

bool enterChapas(AcDbObjectId id, AcDbObjectId record) {
    std::vector<AcDbObjectId> alike{id};
    {
        const AcDbObjectPointer<ZpChapa> chapa(id, AcDb::kForRead);
        if (chapa.object() == nullptr) return false;
        const AcDbObjectPointer<ZpObject> bar(edit::ownerOf(*chapa.object()), AcDb::kForRead);
        if (bar.object() != nullptr)
            for (const AcDbObjectId& next : edit::chapasOf(*bar.object())) {
                const AcDbObjectPointer<ZpObject> other(next, AcDb::kForRead);
                if (next != id && other.object() != nullptr && other->vista() == chapa->vista())
                    alike.push_back(next);
            }
    }
    return std::ranges::all_of(alike, [&](AcDbObjectId next) { return enterRow(next, record, 1); });
}

AcDbObjectId rowOfSiblings(AcDbObjectId id) {
    const AcDbObjectPointer<ZpChapa> chapa(id, AcDb::kForRead);
    if (chapa.object() == nullptr) return {};
    Book& book = Book::of(*id.database());
    const AcDbObjectId bar = edit::ownerOf(*chapa.object());
    const AcDbObjectId barRow = book.rowOf(bar);
    for (const AcDbObjectId& next : book.likely(*chapa.object())) {
        const AcDbObjectPointer<ZpObject> other(next, AcDb::kForRead);
        if (other.object() == nullptr || !member::same(*chapa.object(), *other.object())) continue;
        const AcDbObjectId owner = edit::ownerOf(*other.object());
        if (owner != bar && !barRow.isNull() && book.rowOf(owner) == barRow)
            return book.rowOf(next);
    }
    return {};
}

AcDbObjectId OldRows::like(AcDbObjectId fresh) {
    if (fresh.isNull()) return {};
    Book& book = Book::of(*fresh.database());
    const std::optional<Linha> now = rowAt(fresh);
    if (!now) return {};
    const AcDbObjectId list = book.row(fresh)->list;
    const auto wordsOf = [&list](const Linha& row) {
        return Words(list, row.descricao, row.dimensoes, row.material, row.comprimento);
    };
    if (m_lists.insert(list).second)
        for (const AcDbObjectId& record : book.records(list)) {
            const Book::Row* const row = book.row(record);
            if (!row->alive || !row->pecas.empty()) continue;
            const std::optional<Linha> old = storedRow(record);
            if (old && old->tied) m_records[wordsOf(*old)].push_back(record);
        }
    for (const AcDbObjectId& record : m_records[wordsOf(*now)]) {
        const Book::Row* const row = book.row(record);
        if (record != fresh && row->alive && row->pecas.empty()) return record;
    }
    return {};
}

void takeOldRow(AcDbObjectId chapa) {
    const AcDbObjectId fresh = Book::of(*chapa.database()).rowOf(chapa);
    const AcDbObjectId old = OldRows().like(fresh);
    if (!old.isNull() && enterChapas(chapa, old)) dropEmptied(fresh);
}

void leaveRow(AcDbObjectId id) {
    for (const AcDbObjectId& marca : Book::of(*id.database()).marcasOf(id)) {
        const AcDbObjectPointer<ZpMarca> opened(marca, AcDb::kForWrite);
        if (opened.object() != nullptr) (void)opened->erase();  // open for write and alive
    }
    const AcDbObjectPointer<ZpObject> peca(id, AcDb::kForWrite);
    if (peca.object() != nullptr) member::tie(*peca.object(), {}, 1);
}

void dropEmptied(AcDbObjectId id) {
    const Book::Row* const row = Book::of(*id.database()).row(id);
    if (row == nullptr || !row->pecas.empty()) return;
    const AcDbObjectPointer<AcDbObject> record(id, AcDb::kForWrite);
    if (record.object() != nullptr) (void)record->erase();  // open for write and alive
}

Linha freshRow(AcDbObjectId peca) {
    Linha fresh(L"", 0, L"", L"", L"ACO", 0, 0, 0, 0, L"");
    fresh.tied = true;
    if (!isChapa(peca)) return fresh;
    fresh.descricao = L"Chapa";
    fresh.observacao = L"Travejamento";
    return fresh;
}

AcDbObjectId rowOfItsOwn(AcDbObjectId peca, AcDbObjectId from) {
    AcDbDatabase& drawing = *peca.database();
    Book& book = Book::of(drawing);
    AcDbObjectId list;
    Linha fresh = freshRow(peca);
    if (const std::optional<Linha> model = storedRow(from)) {
        fresh = *model;
        fresh.ids.clear();
        list = book.row(from)->list;
    } else if (const std::vector<MaterialList> all = materialLists(drawing); !all.empty()) {
        list = all.front().id;
    } else if (const std::optional<MaterialList> made = newList(drawing, L"Perfil")) {
        list = made->id;
    }
    fresh.marca = book.freeMarca(marcaOf(from));
    fresh.tied = true;
    return add(list, fresh);
}

bool changeGrade(AcDbObjectId record, const std::wstring& grade) {
    bool all = true;
    const Ids pecas = Book::of(*record.database()).row(record)->pecas;
    for (const AcDbObjectId& id : pecas) {
        const AcDbObjectPointer<ZpObject> peca(id, AcDb::kForWrite);
        all = all && peca.object() != nullptr;
        if (peca.object() == nullptr) continue;
        Member member = member::of(*peca.object());
        member.grade = grade;
        member::set(*peca.object(), member);
    }
    return all;
}

std::vector<AcDbObjectId> barsAmong(AcDbDatabase& drawing, const std::vector<AcDbObjectId>& ids) {
    Book& book = Book::of(drawing);
    Ids bars;
    for (AcDbObjectId id : ids) {
        if (const Book::Marca* const marca = book.marca(id)) id = marca->peca;
        const AcDbObjectPointer<ZpObject> peca(id, AcDb::kForRead);
        if (peca.object() == nullptr) continue;
        const AcDbObjectId bar = edit::ownerOf(*peca.object());
        if (!bar.isNull())
            bars.insert(bar);
        else if (!peca->isKindOf(ZpChapa::desc()))
            bars.insert(id);
    }
    return {bars.begin(), bars.end()};
}

AcDbObjectId rowOfMarca(AcDbDatabase& drawing, const std::wstring& marca) {
    return Book::of(drawing).rowWithMarca(marca, {});
}

AcDbObjectId barIn(AcDbObjectId record) {
    const Book::Row* const row =
        record.isNull() ? nullptr : Book::of(*record.database()).row(record);
    if (row == nullptr) return {};
    const auto bar = std::ranges::find_if_not(row->pecas, isChapa);
    return bar != row->pecas.end() ? *bar : AcDbObjectId();
}

void enterVista(AcDbObjectId base, AcDbObjectId view) {
    Book& book = Book::of(*base.database());
    const AcDbObjectId row = book.rowOf(base);
    if (row.isNull()) {
        // When the member is listed later its views do not count either.
        const AcDbObjectPointer<ZpObject> peca(view, AcDb::kForWrite);
        if (peca.object() != nullptr) member::tie(*peca.object(), {}, 0);
        return;
    }
    if (!enterRow(view, row, 0)) return;
    const auto chapasOf = [](AcDbObjectId id) {
        const AcDbObjectPointer<ZpObject> peca(id, AcDb::kForRead);
        return peca.object() != nullptr ? edit::chapasOf(*peca.object())
                                        : std::vector<AcDbObjectId>();
    };
    // Plane after plane, as they are laid in every view.
    std::vector<AcDbObjectId> rows;
    for (const AcDbObjectId& chapa : chapasOf(base))
        if (const AcDbObjectId its = book.rowOf(chapa);
            !its.isNull() && std::ranges::find(rows, its) == rows.end())
            rows.push_back(its);
    if (rows.empty()) return;
    const std::vector<AcDbObjectId> chapas = chapasOf(view);
    for (std::size_t i = 0; i < chapas.size(); ++i)
        (void)enterRow(chapas[i], rows[i * rows.size() / chapas.size()], 1);
}

void joinRow(AcDbObjectId peca, AcDbObjectId record, int count) {
    const AcDbObjectId fresh = recordOf(peca);
    if (fresh.isNull() || !enterRow(peca, record, count)) return;
    dropEmptied(fresh);
    std::vector<AcDbObjectId> chapas;
    {
        const AcDbObjectPointer<ZpObject> opened(peca, AcDb::kForRead);
        if (opened.object() != nullptr) chapas = edit::chapasOf(*opened.object());
    }
    for (const AcDbObjectId& chapa : chapas) {
        const AcDbObjectId own = recordOf(chapa);
        const AcDbObjectId theirs = own.isNull() ? AcDbObjectId() : rowOfSiblings(chapa);
        if (theirs.isNull() || theirs == own || !enterChapas(chapa, theirs)) continue;
        dropEmptied(own);
    }
}

bool tieMarca(AcDbObjectId marca, AcDbObjectId peca) {
    if (marca.isNull() || peca.isNull()) return false;
    const AcDbObjectPointer<ZpMarca> opened(marca, AcDb::kForWrite);
    if (opened.object() == nullptr) return false;
    if (opened->peca() != peca) opened->setPeca(peca);
    return true;
}

bool renameRow(AcDbObjectId record, const std::wstring& text) {
    std::optional<Linha> row = storedRow(record);
    if (!row) return false;
    row->marca = text;
    if (!rewrite(record, *row)) return false;
    Book& book = Book::of(*record.database());
    const Book::Row* const now = book.row(record);
    std::vector<AcDbObjectId> marcas(row->ids.begin(), row->ids.end());
    if (now != nullptr)
        for (const AcDbObjectId& peca : now->pecas)
            for (const AcDbObjectId& marca : book.marcasOf(peca)) marcas.push_back(marca);
    bool all = true;
    for (const AcDbObjectId& id : marcas) {
        const AcDbObjectPointer<ZpMarca> opened(id, AcDb::kForWrite);
        if (opened.object() != nullptr)
            opened->setMarca(text);
        else
            all = all && id.isErased();
    }
    return all;
}

}  // namespace zp::matlist
