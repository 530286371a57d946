// SPDX-License-Identifier: MIT
// Any bytes as a drawing: read, examined, and what was read is saved and read again.
#include "fuzz/input.h"
#include "prancheta/dxf/document.h"
#include "prancheta/entities/register.h"
#include "prancheta/verify/verify.h"

using namespace prancheta;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const fuzz::Scratch scratch;
    registerEntityClasses();
    const fuzz::MemoryFile file(fuzz::textOf(data, size));
    (void)verify::examine(file.path());
    const auto drawing = dxf::load(file.path());
    if (!drawing) {
        fuzz::expect(!drawing.error().text.empty(), "an error without a text");
        return 0;
    }
    const auto path = scratch.path() / "a.dxf";
    fuzz::expect(dxf::save(**drawing, path).ok(), "what was read cannot be saved");
    const auto again = dxf::load(path);
    fuzz::expect(again.ok(), again ? "" : again.error().message().c_str());
    return 0;
}
