// SPDX-License-Identifier: MIT
// MARCAS: grouping, numbering, counting, finding, further views.
#include "zp/matlist/marcas_command.h"

#include <algorithm>

#include "acedads.h"
#include "dbapserv.h"
#include "protocol/answers.h"
#include "texts/letters.h"
#include "zp/matlist/ask_which.h"
#include "zp/matlist/asking.h"
#include "zp/matlist/book.h"
#include "zp/matlist/check.h"
#include "zp/matlist/follow.h"
#include "zp/matlist/group.h"
#include "zp/matlist/listing.h"
#include "zp/matlist/zpmarca.h"
#include "zp/objects/member.h"

namespace zp::matlist {
namespace {

using Peca = AcDbObjectPointer<ZpObject>;

std::wstring counted(int n, const wchar_t* one, const wchar_t* several) {
    return std::to_wstring(n) + (n == 1 ? one : several);
}

/// What the user selects, or all with Enter; nothing when he gave up or there is none.
std::optional<std::vector<AcDbObjectId>> askBars(AcDbDatabase& drawing) {
    const std::optional<std::vector<AcDbObjectId>> picked = askSelection();
    if (!picked) return {};
    std::vector<AcDbObjectId> bars =
        picked->empty() ? barsOf(drawing) : barsAmong(drawing, *picked);
    if (bars.empty()) {
        acutPrintf(picked->empty() ? L"\nO desenho não tem peças de perfil.\n"
                                   : L"\nNenhuma peça de perfil entre os objetos escolhidos.\n");
        return {};
    }
    return bars;
}

/// The list that new rows go into: one of the drawing's, or a first one.
std::optional<MaterialList> listToFill(AcDbDatabase& drawing) {
    return materialLists(drawing).empty() ? newList(drawing, L"Perfil") : chooseList(drawing);
}

void group(AcDbDatabase& drawing) {
    const std::optional<std::vector<AcDbObjectId>> bars = askBars(drawing);
    if (!bars) return;
    const std::optional<MaterialList> list = listToFill(drawing);
    if (!list) return;
    const Grouping g = groupPecas(*list, *bars);
    settle(drawing);
    std::wstring line;
    if (g.unmarked > 0) line = counted(g.unmarked, L" peça sem marca; ", L" peças sem marca; ");
    acutPrintf(L"\n%ls%ls %d.\n", line.c_str(),
               counted(g.before, L" linha vira", L" linhas viram").c_str(), g.after);
}

void number(AcDbDatabase& drawing) {
    const std::optional<MaterialList> list = chooseList(drawing);
    if (!list) return;
    constexpr Option kOrders[] = {
        {L"Posição", L"Position"}, {L"pErfil", L"sEction"}, {L"Comprimento", L"Length"}};
    Numbering numbering;
    numbering.letters = readLetters();
    const std::optional<int> first = askCount(L"\nNúmero inicial", 1, 1);
    if (!first) return;
    numbering.first = *first;
    const std::optional<std::size_t> order = askOption(L"\nOrdem", kOrders, 0);
    if (!order) return;
    numbering.order = static_cast<Order>(*order);
    const Answer twins = confirm(L"\nPeças espelhadas com marca própria", Answer::No);
    if (twins == Answer::GiveUp) return;
    numbering.twins = twins == Answer::Yes;
    const int changed = renumber(*list, numbering);
    settle(drawing);
    acutPrintf(L"\n%ls.\n", counted(changed, L" marca mudou", L" marcas mudaram").c_str());
}

/// Another piece of the row shows the member from elsewhere, and counts.
bool isFurtherView(Book& book, AcDbObjectId id) {
    const Book::Row* const row = book.row(book.rowOf(id));
    const Peca peca(id, AcDb::kForRead);
    if (row == nullptr || peca.object() == nullptr) return false;
    return std::ranges::any_of(row->pecas, [&](AcDbObjectId other) {
        const Peca next(other, AcDb::kForRead);
        return other != id && next.object() != nullptr && book.counts(other) > 0 &&
               next->vista() != peca->vista();
    });
}

/// The plates that a view shows of one plane stand for those of both. False when the user gave up.
bool countPlanes(Book& book, AcDbObjectId bar) {
    std::vector<AcDbObjectId> chapas;
    {
        const Peca peca(bar, AcDb::kForRead);
        if (peca.object() == nullptr || !showsOnePlane(book, *peca.object())) return true;
        chapas = edit::chapasOf(*peca.object());
    }
    const AcDbObjectId row = book.rowOf(chapas.front());
    const int one = static_cast<int>(chapas.size()) * countOf(bar);
    acutPrintf(L"\n%ls: a vista mostra um plano de chapas; a peça tem dois.\n",
               book.row(row)->marca.c_str());
    const std::optional<int> answer =
        askCount(L"\nQuantidade de " + book.row(row)->marca, 0, 2 * one);
    if (!answer) return false;
    if (*answer % one != 0) {
        protocol::refuse(L"A quantidade deve ser um múltiplo de " + std::to_wstring(one) +
                         L", as chapas desenhadas.");
        return true;
    }
    for (const AcDbObjectId& chapa : chapas) (void)enterRow(chapa, row, *answer / one);
    return true;
}

void count(AcDbDatabase& drawing) {
    const std::optional<std::vector<AcDbObjectId>> bars = askBars(drawing);
    if (!bars) return;
    Book& book = Book::of(drawing);
    int asked = 0;
    for (const AcDbObjectId& id : *bars) {
        const AcDbObjectId row = book.rowOf(id);
        if (row.isNull()) continue;
        ++asked;
        const int present = countOf(id);
        const bool offersOne = present == 0 && !isFurtherView(book, id);
        const std::optional<int> answer =
            askCount(L"\nQuantidade de " + book.row(row)->marca, 0, offersOne ? 1 : present);
        if (!answer) return;
        if (*answer != present && !enterRow(id, row, *answer))
            acutPrintf(
                L"\n%ls: a peça não pode ser alterada agora; veja se a camada dela está "
                L"bloqueada.\n",
                book.row(row)->marca.c_str());
        if (!countPlanes(book, id)) return;
    }
    if (asked == 0) acutPrintf(L"\nNenhuma das peças está na lista; use antes MARCAS Agrupar.\n");
}

/// Box around what shows the member.
std::optional<AcDbExtents> extentsOf(const Linha& row) {
    AcDbExtents all;
    for (const std::vector<AcDbObjectId>* ids : {&row.pecas, &row.vistas})
        for (const AcDbObjectId& id : *ids) {
            const AcDbObjectPointer<AcDbEntity> entity(id, AcDb::kForRead);
            AcDbExtents extents;
            if (entity.object() != nullptr && entity->getGeomExtents(extents) == Acad::eOk)
                all.addExt(extents);
        }
    return all.isEmpty() ? std::nullopt : std::optional(all);
}

void locate(AcDbDatabase& drawing) {
    ACHAR answer[133] = L"";
    if (acedGetString(0, L"\nMarca: ", answer) != RTNORM) return;
    const std::wstring marca = texts::trimmed(answer);
    Book& book = Book::of(drawing);
    AcDbObjectId record = book.rowWithMarca(marca, {});
    for (const MaterialList& list : materialLists(drawing))
        for (const AcDbObjectId& each : book.records(list.id))
            if (record.isNull() && texts::equalIgnoringCase(book.row(each)->marca, marca))
                record = each;
    if (record.isNull()) {
        acutPrintf(L"\nNenhuma lista do desenho tem a marca %ls.\n", marca.c_str());
        return;
    }
    const Linha row = *rowAt(record);
    acutPrintf(L"\n%ls: %ls, quantidade %d, peças desenhadas: %d.\n", row.marca.c_str(),
               designationOf(row).c_str(), row.quantidade,
               static_cast<int>(row.pecas.size() + row.vistas.size()));
    const std::optional<AcDbExtents> place = extentsOf(row);
    if (!place) return;
    const AcGeVector3d margin = (place->maxPoint() - place->minPoint()) * 0.25;
    const AcGePoint3d from = place->minPoint() - margin;
    const AcGePoint3d to = place->maxPoint() + margin;
    const ads_point a = {from.x, from.y, 0.0};
    const ads_point b = {to.x, to.y, 0.0};
    // What the zoom asks and answers is nothing that the user has to read.
    resbuf echo{};
    const bool known = acedGetVar(L"CMDECHO", &echo) == RTNORM;
    resbuf silent{};
    silent.restype = RTSHORT;
    (void)acedSetVar(L"CMDECHO", &silent);
    (void)acedCommand(RTSTR, L"_.ZOOM", RTSTR, L"_W", RT3DPOINT, a, RT3DPOINT, b, RTNONE);
    if (known) (void)acedSetVar(L"CMDECHO", &echo);
}

void addView(AcDbDatabase& drawing) {
    Book& book = Book::of(drawing);
    const auto bar = [&](const wchar_t* question) {
        const std::vector<AcDbObjectId> bars = barsAmong(drawing, {askObject(question)});
        return bars.empty() ? AcDbObjectId() : bars.front();
    };
    const AcDbObjectId counts = bar(L"\nSelecione a peça que conta na lista: ");
    if (counts.isNull()) return;
    const AcDbObjectId row = book.rowOf(counts);
    if (row.isNull()) {
        acutPrintf(L"\nA peça não está na lista; use antes MARCAS Agrupar.\n");
        return;
    }
    const AcDbObjectId view = bar(L"\nSelecione a outra vista dela: ");
    if (view.isNull() || view == counts) return;
    bool same = false;
    {
        const Peca a(counts, AcDb::kForRead);
        const Peca b(view, AcDb::kForRead);
        same = member::same(*a.object(), *b.object());
    }
    if (!same) {
        acutPrintf(
            L"\nAs duas não são a mesma peça: seção, comprimento, tipo de barra ou "
            L"travejamento diferem.\n");
        return;
    }
    if (countOf(counts) == 0) {
        acutPrintf(
            L"\nA primeira é ela mesma uma vista que não conta; selecione a peça que conta.\n");
        return;
    }
    const AcDbObjectId former = book.rowOf(view);
    const bool entered = enterRow(view, row, 0);
    if (entered && !former.isNull() && former != row) dropEmptied(former);
    if (entered)
        acutPrintf(L"\n%ls: vista da mesma peça, não conta.\n", book.row(row)->marca.c_str());
}

}  // namespace

void marcasCommand() {
    AcDbDatabase* const drawing = acdbHostApplicationServices()->workingDatabase();
    if (drawing == nullptr) return;
    struct Choice {
        Option words;
        void (*run)(AcDbDatabase&);
    };
    constexpr Choice kChoices[] = {{{L"Agrupar", L"Group"}, group},
                                   {{L"Renumerar", L"Renumber"}, number},
                                   {{L"Contar", L"Count"}, count},
                                   {{L"cOnferir", L"chEck"}, [](AcDbDatabase&) { checkCommand(); }},
                                   {{L"Localizar", L"Locate"}, locate},
                                   {{L"Vista", L"View"}, addView}};
    std::vector<Option> words;
    for (const Choice& choice : kChoices) words.push_back(choice.words);
    const std::optional<std::size_t> chosen = askOption(L"\nMarcas", words, 0);
    if (!chosen) return;
    kChoices[*chosen].run(*drawing);
}

}  // namespace zp::matlist
