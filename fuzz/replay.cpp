// SPDX-License-Identifier: MIT
// Gives every file of the folders named on the command line to the fuzz target, once.
#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

namespace fs = std::filesystem;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

int main(int argc, char** argv) {
    std::vector<fs::path> files;
    for (int i = 1; i < argc; ++i)
        for (const auto& entry : fs::directory_iterator(argv[i])) files.push_back(entry.path());
    std::sort(files.begin(), files.end());
    for (const fs::path& file : files) {
        std::ifstream in(file, std::ios::binary);
        const std::string bytes((std::istreambuf_iterator<char>(in)), {});
        std::fprintf(stderr, "%s\n", file.c_str());
        (void)LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(bytes.data()),
                                     bytes.size());
    }
    std::fprintf(stderr, "%zu arquivos\n", files.size());
    return files.empty() ? 1 : 0;
}
