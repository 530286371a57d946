// SPDX-License-Identifier: MIT
// The user's layer names.
#include "zp/objects/layers.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdlib>
#include <cwchar>
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

struct Standard {
    const wchar_t* name;
    int colour;
    AcDb::LineWeight lineWeight;
};
constexpr Standard kStandards[] = {
    {L"perfil", 7, AcDb::kLnWt050},  {L"vista-chapa", 3, AcDb::kLnWt035},
    {L"cota", 2, AcDb::kLnWt018},    {L"marca", 1, AcDb::kLnWt025},
    {L"lista", 7, AcDb::kLnWt025},   {L"planocorte", 7, AcDb::kLnWt025},
    {L"revisao", 1, AcDb::kLnWt035},
};

const Standard* standardFor(const std::wstring& name) {
    const std::wstring wanted = texts::lower(name);
    const auto* const found = std::ranges::find(kStandards, wanted, &Standard::name);
    return found != std::end(kStandards) ? found : nullptr;
}

/// mm; what is wider is a slip of the keys.
constexpr double kWidestPen = 10.0;

/// Pens that files know, hundredths of a mm.
AcDb::LineWeight nearestLineWeight(double hundredths) {
    constexpr short kWeights[] = {0,  5,  9,  13, 15, 18,  20,  25,  30,  35,  40,  50,
                                  53, 60, 70, 80, 90, 100, 106, 120, 140, 158, 200, 211};
    const auto away = [&](short weight) { return std::abs(weight - hundredths); };
    return static_cast<AcDb::LineWeight>(*std::ranges::min_element(kWeights, {}, away));
}

constexpr const wchar_t* kNotInNames = L"<>/\\\":;?*|=`";

/// Calls visit(row, its number) for rows that are neither empty nor comments.
template <class Visit>
void forEachRow(const std::filesystem::path& file, Visit visit) {
    std::error_code error;
    std::ifstream stream(file, std::ios::binary);
    if (!stream || !std::filesystem::is_regular_file(file, error)) return;
    const std::wstring everything =
        texts::decodeText(std::string{std::istreambuf_iterator<char>(stream), {}});
    int number = 0;
    for (std::size_t from = 0; from < everything.size();) {
        const std::size_t end = std::min(everything.find(L'\n', from), everything.size());
        const std::wstring row = texts::trimmed(everything.substr(from, end - from));
        from = end + 1;
        ++number;
        if (!row.empty() && row[0] != L';' && row[0] != L'#') visit(row, number);
    }
}

}  // namespace

std::map<std::wstring, std::wstring> readLayers(const std::filesystem::path& file) {
    std::map<std::wstring, std::wstring> layers;
    forEachRow(file, [&](const std::wstring& row, int) {
        const std::size_t equals = row.find(L'=');
        if (equals == std::wstring::npos) return;
        const std::wstring standard = texts::lower(texts::trimmed(row.substr(0, equals)));
        const std::wstring user = texts::trimmed(row.substr(equals + 1));
        if (!standard.empty() && !user.empty()) layers[standard] = user;
    });
    return layers;
}

std::vector<std::wstring> layerFileFaults(const std::filesystem::path& file) {
    std::vector<std::wstring> faults;
    forEachRow(file, [&](const std::wstring& row, int number) {
        if (row[0] == L'[') return;
        const std::size_t equals = row.find(L'=');
        const wchar_t* wrong = nullptr;
        if (equals == std::wstring::npos || texts::trimmed(row.substr(0, equals)).empty()) {
            wrong = L"requer CAMADA = NOME, ESPESSURA";
        } else {
            const std::wstring text = texts::trimmed(row.substr(equals + 1));
            const std::wstring name = texts::trimmed(text.substr(0, text.find(L',')));
            if (name.find_first_of(kNotInNames) != name.npos)
                wrong = L"o nome tem um destes caracteres: < > / \\ \" : ; ? * | = `";
            else if (text.find(L',') != text.npos && !userLayer(text).lineWeight)
                wrong = L"a espessura vai de 0 a 10 mm";
        }
        if (wrong != nullptr)
            faults.push_back(texts::shown(file.parent_path().filename() / file.filename()) + L":" +
                             std::to_wstring(number) + L": " + wrong + L"; vale o de costume");
    });
    return faults;
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

UserLayer userLayer(std::wstring_view text) {
    UserLayer layer;
    const std::size_t comma = text.find(L',');
    layer.name = texts::trimmed(text.substr(0, comma));
    // No layer can have such a name: the standard one stays.
    if (layer.name.find_first_of(kNotInNames) != layer.name.npos) layer.name.clear();
    if (comma == text.npos) return layer;
    std::wstring pen(text.substr(comma + 1));
    std::ranges::replace(pen, L',', L'.');
    wchar_t* end = nullptr;
    const double weight = std::wcstod(pen.c_str(), &end);
    if (end != pen.c_str() && weight >= 0.0 && weight <= kWidestPen)
        layer.lineWeight = nearestLineWeight(100.0 * weight);
    return layer;
}

int layerColour(const std::wstring& standardName) {
    const Standard* const standard = standardFor(standardName);
    return standard != nullptr ? standard->colour : 7;
}

AcDb::LineWeight layerLineWeight(const std::wstring& standardName) {
    const Standard* const standard = standardFor(standardName);
    return standard != nullptr ? standard->lineWeight : AcDb::kLnWtByLwDefault;
}

}  // namespace zp
