// SPDX-License-Identifier: MIT
// Slide libraries, and slides found by the names that programs use.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "prancheta/slides/slide.h"

namespace prancheta::slides {

/// One entry: name in upper case (ASCII, at most 31 characters) and its `.sld` image.
struct LibraryEntry {
    std::string name;
    std::string image;
};

/// Entries of a `.slb` file in directory order. An entry whose offset lies outside the file is an
/// error.
Result<std::vector<LibraryEntry>> readLibrary(std::string_view bytes);

/// Complete `.slb` file. Names are put into upper case; a name that is empty or too long is an
/// error.
Result<std::string> writeLibrary(const std::vector<LibraryEntry>& entries);

/// Parts of a reference: a slide file, or `library(slide)` split at the last parenthesis of the
/// last path component. `slide` is empty for a slide file. Extensions are not added.
struct SlideReference {
    std::wstring path;
    std::wstring slide;
};
SlideReference splitReference(std::wstring_view reference);

/// The slide that a program names (`...\Slides\pu(secao)`, `...\Slides\FLECHA`), found without
/// regard to case; null when it is missing or damaged. Files are decoded once and kept while their
/// date and size do not change, which is looked at once for all calls in a row with the same
/// `moment` and always when it is 0.
std::shared_ptr<const Slide> loadSlide(std::wstring_view reference, std::uint64_t moment = 0);

}  // namespace prancheta::slides
