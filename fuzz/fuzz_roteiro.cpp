// SPDX-License-Identifier: MIT
// Any bytes as a script for the console, with the modules loaded.
#include <algorithm>
#include <cctype>

#include "fuzz/live_host.h"

namespace {

/// Lines that could leave the folder (paths, modules) are no answers here.
std::string harmless(std::string_view text) {
    std::string out;
    while (!text.empty()) {
        const std::size_t end = std::min(text.find('\n'), text.size());
        std::string line(text.substr(0, end));
        text.remove_prefix(std::min(end + 1, text.size()));
        std::string upper = line;
        for (char& c : upper) c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
        if (line.find_first_of("/\\~") == std::string::npos &&
            upper.find("ARX") == std::string::npos)
            out += line + "\n";
    }
    return out;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static fuzz::LiveHost host;
    host.run(harmless(fuzz::textOf(data, size)));
    host.startAnew();
    return 0;
}
