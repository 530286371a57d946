// SPDX-License-Identifier: MIT
// Questions of the commands at the command line.
#pragma once

#include <filesystem>
#include <initializer_list>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "dbid.h"

namespace zp::matlist {

/// A word of a question, in the user's language and behind an underscore; its capital letter is
/// enough.
struct Option {
    const wchar_t* local;
    const wchar_t* global;
};
/// Asks "question [A/B] <offered>: "; the place of the chosen one, nothing when the user gave up.
std::optional<std::size_t> askOption(const std::wstring& question, std::span<const Option> options,
                                     std::size_t offered);

enum class Answer { Yes, No, GiveUp };
/// [Sim/Não]; Enter takes what is offered.
Answer confirm(const std::wstring& question, Answer offered);

/// A whole number from `least` on; Enter takes what is offered. Nothing when the user gave up.
std::optional<int> askCount(const std::wstring& question, int least, int offered);

/// Without blanks around, empty for Enter; nothing when the user declined. An answer that is too
/// long to come whole is asked for again.
std::optional<std::wstring> askTyped(const std::wstring& question);

/// A path as it is typed when it has blanks: without the quotation marks around it.
std::wstring withoutQuotes(std::wstring path);

/// A number within limits; Enter takes `offered`, which is shown. Nothing when the user declined.
std::optional<double> askNumber(const std::wstring& question, double offered, double least,
                                double most, const wchar_t* unit);

/// What to type for such a number.
std::wstring limitsInWords(double least, double most, const wchar_t* unit);

/// File to write, its whole path with one of the extensions, the first where it was typed with
/// none; asks before one that exists is replaced.
/// Nothing when the user declined or the name cannot have come whole.
std::optional<std::filesystem::path> askDestination(
    const wchar_t* question, std::initializer_list<const wchar_t*> extensions);

/// Objects that the user selects; empty when he selects none, nothing when he gave up.
std::optional<std::vector<AcDbObjectId>> askSelection();
/// One object; null when none was hit or the user gave up.
AcDbObjectId askObject(const wchar_t* question);

}  // namespace zp::matlist
