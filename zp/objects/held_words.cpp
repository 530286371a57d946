// SPDX-License-Identifier: MIT
// What the user is told of entities that could not follow.
#include "zp/objects/held_words.h"

#include <algorithm>
#include <string>

#include "acutads.h"
#include "dbdim.h"
#include "perfis/entities/zpchapa.h"

namespace zp {
namespace {

bool isKind(AcDbObjectId id, const AcRxClass* kind) {
    return id.objectClass() != nullptr && id.objectClass()->isDerivedFrom(kind);
}

/// "3 cotas", behind what is there already.
void addCounted(std::wstring& text, std::size_t count, const wchar_t* one, const wchar_t* many) {
    if (count == 0) return;
    if (!text.empty()) text += L" e ";
    text += std::to_wstring(count) + L" " + (count == 1 ? one : many);
}

/// "2 chapas e 1 cota"; empty where there are none.
std::wstring counted(const IdQueue& ids) {
    const auto count = [&](AcRxClass* kind) {
        return static_cast<std::size_t>(
            std::ranges::count_if(ids.order(), [&](AcDbObjectId id) { return isKind(id, kind); }));
    };
    const std::size_t chapas = count(ZpChapa::desc());
    const std::size_t cotas = count(AcDbDimension::desc());
    std::wstring text;
    addCounted(text, chapas, L"chapa", L"chapas");
    addCounted(text, cotas, L"cota", L"cotas");
    addCounted(text, ids.order().size() - chapas - cotas, L"peça", L"peças");
    return text;
}

}  // namespace

void sayHeld(const IdQueue& ids, const wchar_t* one, const wchar_t* many) {
    if (!ids.empty())
        acutPrintf(L"\n%ls %ls; desbloqueie a camada para alterar.\n", counted(ids).c_str(),
                   ids.order().size() == 1 ? one : many);
}

}  // namespace zp
