// SPDX-License-Identifier: MIT
// Any bytes as a settings file that people write: aliases of commands, names and pens of layers.
#include "fuzz/input.h"
#include "prancheta/editor/aliases.h"
#include "zp/objects/layers.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    prancheta::Aliases aliases;
    aliases.parse(fuzz::textOf(data, size));
    for (const auto& [alias, command] : aliases.all())
        fuzz::expect(aliases.find(alias) == command, "an alias is not found by its name");
    const fuzz::MemoryFile file(fuzz::textOf(data, size));
    for (const auto& [standard, text] : zp::readLayers(file.path())) (void)zp::userLayer(text);
    for (const std::wstring& fault : zp::layerFileFaults(file.path()))
        fuzz::expect(!fault.empty(), "a fault without a text");
    return 0;
}
