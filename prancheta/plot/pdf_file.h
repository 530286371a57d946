// SPDX-License-Identifier: MIT
// What the toolkit's writer of PDF leaves to be put right: exact pages, layers, bookmarks, no
// clock.
#pragma once

#include <QSizeF>
#include <span>
#include <string>

#include "prancheta/base/result.h"

namespace prancheta {

struct PdfPage {
    QSizeF size;           ///< points, where the toolkit writes whole ones
    std::string bookmark;  ///< UTF-8
};

/// The finished file: pages of these sizes, each with its bookmark; what is between the marks of a
/// layer (marks.h) belongs to optional content of that name, which readers show and hide; without
/// date and with an identifier made of the content, so that one drawing always gives one file.
Result<std::string> finishPdf(const std::string& pdf, std::span<const PdfPage> pages,
                              std::span<const std::wstring> layers);

}  // namespace prancheta
