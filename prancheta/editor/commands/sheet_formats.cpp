// SPDX-License-Identifier: MIT
// Reading of the formats of drawing sheets.
#include "prancheta/editor/commands/sheet_formats.h"

#include "prancheta/base/file.h"
#include "prancheta/base/settings_lines.h"
#include "prancheta/base/text.h"
#include "prancheta/editor/host.h"
#include "prancheta/editor/plotter.h"

namespace prancheta::commands {

namespace {

constexpr std::size_t kParts = 7;
constexpr double kThickest = 2.11;  ///< mm, of lines in drawings

/// Distances inside a side of the sheet; false for anything else.
bool readFolds(std::wstring_view text, double side, std::vector<double>& folds) {
    for (const std::wstring_view part : partsOf(text, L' ')) {
        if (part.empty()) continue;
        if (!parseNumber(part, folds.emplace_back()) || !(folds.back() > 0.0) ||
            !(folds.back() < side))
            return false;
    }
    return true;
}

Result<SheetFormat> formatOf(std::wstring_view line) {
    const std::vector<std::wstring_view> parts = partsOf(line, L',');
    if (parts.size() != kParts)
        return Error{"requer FORMATO, ENCADERNAÇÃO, MARGEM, QUADRO, LEGENDA, DOBRAS, DOBRAS"};
    const Paper* const paper = findPaper(parts[0]);
    if (paper == nullptr) return Error{"o formato não está na lista de PLOT"};
    SheetFormat format;
    format.name = paper->name;
    format.width = paper->height;
    format.height = paper->width;
    const auto isMargin = [&](std::wstring_view text, double& margin) {
        return parseNumber(text, margin) && margin >= 0.0 && margin < format.height / 3.0;
    };
    if (!isMargin(parts[1], format.binding) || !isMargin(parts[2], format.margin))
        return Error{"as margens vão de 0 a um terço da altura da folha, em mm"};
    if (!parseNumber(parts[3], format.frameLine) || !(format.frameLine >= 0.0) ||
        format.frameLine > kThickest)
        return Error{"a linha do quadro vai de 0 a 2.11 mm"};
    format.titleBlock = parts[4];
    if (format.titleBlock.empty() ||
        format.titleBlock.find_first_of(L"/\\.:") != std::wstring::npos)
        return Error{"a legenda é o nome de um arquivo desta pasta, sem o .dxf"};
    if (!readFolds(parts[5], format.width, format.foldsAcross) ||
        !readFolds(parts[6], format.height, format.foldsUpwards))
        return Error{"as dobras são distâncias dentro da folha, em mm, separadas por espaços"};
    return format;
}

}  // namespace

std::filesystem::path sheetFolder() {
    const std::filesystem::path folder = Host::installationFolder();
    return folder.empty() ? folder : folder / "Prancheta" / "folhas";
}

Result<std::vector<SheetFormat>> sheetFormats() {
    const std::filesystem::path file = sheetFolder() / "formatos.txt";
    const Result<std::string> read = readFile(file);
    if (!read) return read.error();
    std::vector<SheetFormat> formats;
    for (const SettingsLine& line : settingsLines(*read)) {
        const std::wstring text = toWide(line.text);
        Result<SheetFormat> format = formatOf(text);
        if (!format) return Error{format.error().text, file.string(), line.number, 0};
        formats.push_back(std::move(*format));
    }
    if (formats.empty()) return Error{"o arquivo não tem nenhum formato de folha", file.string()};
    return formats;
}

}  // namespace prancheta::commands
