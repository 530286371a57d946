// SPDX-License-Identifier: MIT
// fazer-slides: writes the slide libraries of all families into a folder.
#include <filesystem>
#include <iostream>

#include "pictures.h"
#include "prancheta/base/file.h"
#include "prancheta/base/library.h"
#include "prancheta/base/utf8_path.h"

namespace {

bool replace(const std::filesystem::path& path, const std::string& bytes) {
    prancheta::AtomicFile file(path);
    auto done = file.open();
    if (done) {
        file.write(bytes);
        done = file.commit();
    }
    if (!done) std::cerr << "fazer-slides: " << done.error().message() << "\n";
    return done.ok();
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 2) {
        std::cerr << "Uso: fazer-slides PASTA\n";
        return 2;
    }
    const std::filesystem::path folder =
        prancheta::pathFromUtf8(prancheta::programArguments(argc, argv)[1]);
    std::error_code error;
    std::filesystem::create_directories(folder, error);
    for (const tools::Family& family : tools::families()) {
        const auto library = prancheta::slides::writeLibrary(tools::libraryOf(family));
        if (!library) {
            std::cerr << "fazer-slides: " << family.library << ": " << library.error().message()
                      << "\n";
            return 1;
        }
        if (!replace(folder / (std::string(family.library) + ".slb"), *library)) return 3;
    }
    return replace(folder / "FLECHA.sld", prancheta::slides::writeSlide(tools::vistaDirections()))
               ? 0
               : 3;
}
