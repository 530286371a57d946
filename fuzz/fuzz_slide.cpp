// SPDX-License-Identifier: MIT
// Any bytes as a slide and as a slide library; what can be read can be written and read again.
#include "fuzz/input.h"
#include "prancheta/slides/library.h"

using namespace prancheta;

namespace {

void readOne(std::string_view bytes) {
    const auto slide = slides::readSlide(bytes);
    if (!slide) return;
    const auto again = slides::readSlide(slides::writeSlide(*slide));
    fuzz::expect(again.ok(), "a slide that was written cannot be read");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view bytes = fuzz::textOf(data, size);
    readOne(bytes);
    const auto library = slides::readLibrary(bytes);
    if (!library) return 0;
    for (const slides::LibraryEntry& entry : *library) readOne(entry.image);
    return 0;
}
