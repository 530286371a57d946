// SPDX-License-Identifier: MIT
// Cache of parsed files.
#include "prancheta/dcl/library_cache.h"

#include <algorithm>
#include <map>
#include <utility>

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
    return LoadedLibrary{std::move(library), true};
}

}  // namespace prancheta::dcl
