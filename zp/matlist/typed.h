// SPDX-License-Identifier: MIT
// Answers typed at the command line, asked again until they make sense.
#pragma once

#include <optional>
#include <string>

namespace zp::matlist {

/// Without blanks around, empty for Enter; nothing when the user declined. An answer that is too
/// long to come whole is asked for again.
std::optional<std::wstring> askTyped(const std::wstring& question);

/// A number within limits; Enter takes `offered`, which is shown. Nothing when the user declined.
std::optional<double> askNumber(const std::wstring& question, double offered, double least,
                                double most, const wchar_t* unit);

}  // namespace zp::matlist
