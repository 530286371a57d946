// SPDX-License-Identifier: MIT
// The user's layer names.
#include "zp/objects/layers.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <map>

#include "texts/encoding.h"
#include "texts/letters.h"
#include "texts/path.h"

namespace zp {
namespace {

/// The file in this installation. Every piece asks: while the folder where it stood, or would
/// stand, does not change, that folder is not searched again.
const std::filesystem::path& fileIn(const std::filesystem::path& installation) {
    struct Found {
        std::filesystem::path installation;
        std::filesystem::path folder;
        std::filesystem::file_time_type when;
        std::filesystem::path file;
    };
    static Found found;
    std::error_code error;
    if (!found.folder.empty() && found.installation.native() == installation.native()) {
        const auto when = std::filesystem::last_write_time(found.folder, error);
        if (!error && when == found.when) return found.file;
    }
    found = {installation, {}, {}, {}};
    std::filesystem::path folder = texts::entryOf(installation, "Perfis");
    const auto when = std::filesystem::last_write_time(folder, error);
    found.file = texts::entryOf(folder, "camadas.ini");
    // A change in the same tick of the clock as the search would not be seen.
    const bool settled =
        !error && std::filesystem::file_time_type::clock::now() - when > std::chrono::seconds(2);
    if (settled) {
        found.folder = std::move(folder);
        found.when = when;
    }
    return found.file;
}

}  // namespace

std::map<std::wstring, std::wstring> readLayers(const std::filesystem::path& file) {
    std::map<std::wstring, std::wstring> layers;
    std::ifstream stream(file, std::ios::binary);
    if (!stream) return layers;
    const std::wstring everything =
        texts::decodeText(std::string{std::istreambuf_iterator<char>(stream), {}});
    for (std::size_t from = 0; from < everything.size();) {
        const std::size_t end = std::min(everything.find(L'\n', from), everything.size());
        const std::wstring row = texts::trimmed(everything.substr(from, end - from));
        from = end + 1;
        const std::size_t equals = row.find(L'=');
        if (row.empty() || row[0] == L';' || row[0] == L'#' || equals == std::wstring::npos)
            continue;
        const std::wstring standard = texts::lower(texts::trimmed(row.substr(0, equals)));
        const std::wstring user = texts::trimmed(row.substr(equals + 1));
        if (!standard.empty() && !user.empty()) layers[standard] = user;
    }
    return layers;
}

const std::filesystem::path& installationFolder() {
    static std::filesystem::path::string_type text;
    static std::filesystem::path path;
#ifdef _WIN32
    const wchar_t* const found = _wgetenv(L"ZPFORJA2010");
#else
    const char* const found = std::getenv("ZPFORJA2010");
#endif
    const std::filesystem::path::value_type nothing{};
    const auto* const folder = found != nullptr ? found : &nothing;
    if (text == folder) return path;
    text = folder;
    std::filesystem::path::string_type shown = text;
#ifndef _WIN32
    std::replace(shown.begin(), shown.end(), '\\', '/');
#endif
    path = std::move(shown);
    return path;
}

std::filesystem::path layerFile() {
    const std::filesystem::path& folder = installationFolder();
    return folder.empty() ? folder : fileIn(folder);
}

int layerColour(const std::wstring& standardName) {
    struct Colour {
        const wchar_t* name;
        int colour;
    };
    constexpr std::array<Colour, 4> kColours{
        {{L"perfil", 7}, {L"vista-chapa", 3}, {L"cota", 2}, {L"marca", 1}}};
    const std::wstring name = texts::lower(standardName);
    for (const Colour& c : kColours)
        if (name == c.name) return c.colour;
    return 7;
}

}  // namespace zp
