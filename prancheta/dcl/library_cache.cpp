// SPDX-License-Identifier: MIT
// Cache of parsed files.
#include "prancheta/dcl/library_cache.h"

#include <algorithm>
#include <map>
#include <utility>

#include "prancheta/base/file_stamp.h"
#include "prancheta/dcl/parser.h"
#include "prancheta/dcl/source_file.h"

namespace prancheta::dcl {
namespace fs = std::filesystem;
namespace {

bool isCurrent(const Library& library) {
    return std::all_of(library.files.begin(), library.files.end(),
                       [](const SourceStamp& stamp) { return stampOf(stamp.path) == stamp; });
}

}  // namespace

Result<LoadedLibrary> loadLibrary(const fs::path& path) {
    // Includes are looked for in the current folder first, which therefore is part of the key.
    static std::map<std::pair<fs::path, fs::path>, std::shared_ptr<const Library>> cache;
    // A file that includes nothing is current when it is the same one; its path says no more than
    // that.
    struct Known {
        FileStamp stamp;
        std::shared_ptr<const Library> library;
    };
    static std::map<fs::path::string_type, Known> known;
    const auto stamp = fileStampOf(path);
    Known& before = known[path.native()];
    if (stamp && before.library != nullptr && before.stamp == *stamp)
        return LoadedLibrary{before.library, false};
    before = {};

    std::error_code error;
    const std::pair key(fs::weakly_canonical(path, error), fs::current_path(error));
    const auto it = cache.find(key);
    if (it != cache.end() && isCurrent(*it->second)) return LoadedLibrary{it->second, false};

    Result<Library> parsed = parseFile(path);
    if (!parsed) {
        cache.erase(key);
        return parsed.error();
    }
    auto library = std::make_shared<const Library>(std::move(*parsed));
    cache[key] = library;
    if (stamp && library->files.size() == 1 && library->files.front().file == stamp)
        before = {*stamp, library};
    return LoadedLibrary{std::move(library), true};
}

}  // namespace prancheta::dcl
