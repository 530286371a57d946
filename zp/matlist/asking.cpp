// SPDX-License-Identifier: MIT
// Questions at the command line.
#include "zp/matlist/asking.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <string_view>

#include "acedads.h"
#include "dbmain.h"
#include "protocol/answers.h"
#include "texts/letters.h"
#include "texts/number.h"
#include "texts/path.h"

namespace zp::matlist {
namespace {

/// More members than any job has.
constexpr int kMostCount = 1000000000;

bool hasExtension(const std::filesystem::path& file, const wchar_t* extension) {
    return texts::equalIgnoringCase(texts::shown(file.extension()), extension);
}

}  // namespace

std::optional<std::size_t> askOption(const std::wstring& question, std::span<const Option> options,
                                     std::size_t offered) {
    std::wstring local, global;
    for (const Option& option : options) {
        local += (local.empty() ? L"" : L" ") + std::wstring(option.local);
        global += (global.empty() ? L"" : L" ") + std::wstring(option.global);
    }
    acedInitGet(0, (local + L" _" + global).c_str());
    std::ranges::replace(local, L' ', L'/');
    ACHAR word[133] = L"";
    const int status = acedGetKword(
        (question + L" [" + local + L"] <" + options[offered].local + L">: ").c_str(), word);
    if (status == RTNONE) return offered;
    if (status != RTNORM) return {};
    const std::wstring_view choice = word;
    const auto chosen = std::ranges::find_if(
        options, [&](const Option& o) { return choice == o.local || choice == o.global; });
    if (chosen == options.end()) return {};
    return static_cast<std::size_t>(chosen - options.begin());
}

Answer confirm(const std::wstring& question, Answer offered) {
    constexpr Option kAnswers[] = {{L"Sim", L"Yes"}, {L"Não", L"No"}};
    const std::optional<std::size_t> chosen =
        askOption(question, kAnswers, offered == Answer::Yes ? 0 : 1);
    if (!chosen) return Answer::GiveUp;
    return *chosen == 0 ? Answer::Yes : Answer::No;
}

std::optional<int> askCount(const std::wstring& question, int least, int offered) {
    for (;;) {
        // A whole number of the host ends at 32767.
        acedInitGet(RSG_NONEG | (least > 0 ? RSG_NOZERO : 0), nullptr);
        double number = offered;
        const int status =
            acedGetReal((question + L" <" + std::to_wstring(offered) + L">: ").c_str(), &number);
        if (status == RTNONE) return offered;
        if (status != RTNORM) return {};
        if (number == std::floor(number) && number <= kMostCount) return static_cast<int>(number);
        protocol::refuse(L"Informe um número inteiro até " + std::to_wstring(kMostCount) + L".");
    }
}

std::optional<std::wstring> askTyped(const std::wstring& question) {
    for (;;) {
        ACHAR typed[133] = L"";
        const int status = acedGetString(1, (L"\n" + question).c_str(), typed);
        if (status == RTNONE) return std::wstring();
        if (status != RTNORM) return {};
        const std::wstring answer = typed;
        // A longer answer is cut there.
        if (answer.size() < std::size(typed) - 1) return texts::trimmed(answer);
        protocol::refuse(L"A resposta passa de 131 caracteres.");
    }
}

std::wstring withoutQuotes(std::wstring path) {
    if (path.size() > 1 && path.front() == L'"' && path.back() == L'"')
        path = path.substr(1, path.size() - 2);
    return path;
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
        protocol::refuse(limitsInWords(least, most, unit));
    }
}

std::wstring limitsInWords(double least, double most, const wchar_t* unit) {
    return L"Informe um número de " + texts::withComma(least) + L" a " + texts::withComma(most) +
           L" " + unit + L".";
}

std::optional<std::filesystem::path> askDestination(
    const wchar_t* question, std::initializer_list<const wchar_t*> extensions) {
    for (;;) {
        ACHAR name[133] = L"";
        if (acedGetString(1, question, name) != RTNORM || *name == L'\0') return {};
        const std::wstring path = name;
        // A longer answer is cut there, and would name another file.
        if (path.size() >= std::size(name) - 1) {
            acutPrintf(
                L"\nO caminho passa de 131 caracteres; nada foi gravado. Informe um mais curto.\n");
            return {};
        }
        std::filesystem::path destination = texts::pathOf(path);
        if (std::ranges::none_of(extensions,
                                 [&](const wchar_t* e) { return hasExtension(destination, e); }))
            destination += *extensions.begin();
        std::error_code error;  // what cannot be asked cannot be written either, and that is told
        const std::filesystem::path whole = std::filesystem::absolute(destination, error);
        if (!error) destination = whole;
        if (!std::filesystem::is_regular_file(destination, error)) return destination;
        const Answer replaces = confirm(
            L"\n" + texts::shown(destination) + L" já existe. Deseja substituí-lo?", Answer::No);
        if (replaces == Answer::Yes) return destination;
        if (replaces == Answer::GiveUp) return {};
    }
}

std::optional<std::vector<AcDbObjectId>> askSelection() {
    ads_name set;
    const int status = acedSSGet(nullptr, nullptr, nullptr, nullptr, set);
    if (status == RTCAN) return {};
    std::vector<AcDbObjectId> ids;
    if (status != RTNORM) return ids;
    Adesk::Int32 count = 0;
    (void)acedSSLength(set, &count);
    for (Adesk::Int32 i = 0; i < count; ++i) {
        ads_name name;
        AcDbObjectId id;
        if (acedSSName(set, i, name) == RTNORM && acdbGetObjectId(id, name) == Acad::eOk)
            ids.push_back(id);
    }
    (void)acedSSFree(set);
    return ids;
}

AcDbObjectId askObject(const wchar_t* question) {
    ads_name name;
    ads_point point;
    AcDbObjectId id;
    if (acedEntSel(question, name, point) == RTNORM) (void)acdbGetObjectId(id, name);
    return id;
}

}  // namespace zp::matlist
