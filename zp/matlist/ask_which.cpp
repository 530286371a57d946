// SPDX-License-Identifier: MIT
// Which of a drawing's material lists, which piece.
#include "zp/matlist/ask_which.h"

#include <algorithm>

#include "acedads.h"
#include "protocol/answers.h"
#include "zp/matlist/asking.h"
#include "zp/matlist/book.h"

namespace zp::matlist {
namespace {

int g_last = 0;

AcDbObjectId barAt(AcDbDatabase& drawing, AcDbObjectId id) {
    if (const Book::Marca* const marca = Book::of(drawing).marca(id)) id = marca->peca;
    const AcDbObjectPointer<ZpObject> peca(id, AcDb::kForRead);
    if (peca.object() == nullptr) return {};
    const AcDbObjectId bar = edit::ownerOf(*peca.object());
    if (!bar.isNull()) return bar;
    return peca->isKindOf(ZpChapa::desc()) ? AcDbObjectId() : id;
}

}  // namespace

void offerNext(int number) { g_last = number; }

void forgetLast() { g_last = 0; }

std::optional<MaterialList> askWhich(const std::vector<MaterialList>& all) {
    if (all.empty()) return {};
    const auto take = [](const MaterialList& list) {
        g_last = list.number;
        return list;
    };
    if (all.size() == 1) return take(all.front());
    const auto numbered = [&](int number) {
        return std::find_if(all.begin(), all.end(),
                            [=](const MaterialList& l) { return l.number == number; });
    };
    const auto last = numbered(g_last) != all.end() ? numbered(g_last) : all.end() - 1;
    const std::wstring message = L"\nLista <" + std::to_wstring(last->number) + L">: ";
    for (;;) {
        acedInitGet(RSG_NOZERO | RSG_NONEG, nullptr);
        int number = 0;
        const int status = acedGetInt(message.c_str(), &number);
        if (status == RTNONE) return take(*last);
        if (status != RTNORM) return {};
        if (const auto found = numbered(number); found != all.end()) return take(*found);
        protocol::refuse(L"Não há lista de material com este número.");
    }
}

std::optional<MaterialList> chooseList(AcDbDatabase& drawing) {
    const std::vector<MaterialList> all = materialLists(drawing);
    if (all.empty()) {
        acutPrintf(L"\nO desenho não tem lista de material.\n");
        return {};
    }
    if (all.size() > 1)
        for (const MaterialList& l : all)
            acutPrintf(L"\n%d: %ls", l.number, l.header.group.c_str());
    return askWhich(all);
}

AcDbObjectId askBar(AcDbDatabase& drawing) {
    const AcDbObjectId bar = barAt(drawing, askObject(L"\nSelecione a peça: "));
    if (bar.isNull()) acutPrintf(L"\nNenhum perfil foi selecionado.\n");
    return bar;
}

}  // namespace zp::matlist
