// SPDX-License-Identifier: MIT
// Any bytes as a dialog file: read, and every dialog of it built and laid out.
#include "fuzz/input.h"
#include "prancheta/dcl/build.h"
#include "prancheta/dcl/layout.h"
#include "prancheta/dcl/parser.h"

using namespace prancheta;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const auto library = dcl::parseText(fuzz::textOf(data, size), "entrada.dcl");
    if (!library) {
        fuzz::expect(!library.error().text.empty(), "an error without a text");
        return 0;
    }
    for (const auto& [name, definition] : library->definitions) {
        if (definition->kind != dcl::TileKind::Dialog) continue;
        const auto root = dcl::build(definition);
        const dcl::Layout layout = dcl::layOut(*root, dcl::Metrics{});
        fuzz::expect(!layout.boxes.empty(), "a dialog without a box");
    }
    return 0;
}
