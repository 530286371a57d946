// SPDX-License-Identifier: MIT
// Typed answers.
#include "zp/matlist/typed.h"

#include <iterator>

#include "acedads.h"
#include "adscodes.h"
#include "texts/letters.h"
#include "texts/number.h"

namespace zp::matlist {

std::optional<std::wstring> askTyped(const std::wstring& question) {
    for (;;) {
        ACHAR typed[133] = L"";
        const int status = acedGetString(1, (L"\n" + question).c_str(), typed);
        if (status == RTNONE) return std::wstring();
        if (status != RTNORM) return {};
        const std::wstring answer = typed;
        // A longer answer is cut there.
        if (answer.size() < std::size(typed) - 1) return texts::trimmed(answer);
        acutPrintf(L"\nA resposta passa de 131 caracteres.\n");
    }
}

std::optional<double> askNumber(const std::wstring& question, double offered, double least,
                                double most, const wchar_t* unit) {
    const std::wstring whole = question + L" <" + texts::withComma(offered) + L">: ";
    for (;;) {
        const std::optional<std::wstring> typed = askTyped(whole);
        if (!typed) return {};
        if (typed->empty()) return offered;
        const std::optional<double> number = texts::exactReal(*typed);
        if (number && *number >= least && *number <= most) return number;
        acutPrintf(L"\nInforme um número de %ls a %ls %ls.\n", texts::withComma(least).c_str(),
                   texts::withComma(most).c_str(), unit);
    }
}

}  // namespace zp::matlist
