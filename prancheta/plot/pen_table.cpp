// SPDX-License-Identifier: MIT
// Reading of pens.
#include "prancheta/plot/pen_table.h"

#include <vector>

#include "prancheta/base/file.h"
#include "prancheta/base/file_stamp.h"
#include "prancheta/base/settings_lines.h"
#include "prancheta/base/text.h"
#include "prancheta/editor/host.h"

namespace prancheta {
namespace {

bool isObjects(std::wstring_view word) { return equalNoCase(word, L"objeto"); }

/// From `least` to `most`.
bool readNumber(std::wstring_view text, double least, double most, double& number) {
    return parseNumber(text, number) && number >= least && number <= most;
}

bool readColor(std::wstring_view text, int& index) {
    double number = 0.0;
    if (!readNumber(text, 1.0, 255.0, number)) return false;
    index = static_cast<int>(number);
    return index == number;
}

}  // namespace

Result<void> PenTable::take(std::wstring_view line) {
    const std::vector<std::wstring_view> parts = partsOf(line, L',');
    const std::size_t blank = parts[0].find(L' ');
    if (parts.size() != 4 || blank == parts[0].npos)
        return Error{"requer \"cor NÚMERO, PENA, ESPESSURA, RETÍCULA\" ou \"camada NOME, ...\""};
    PlotPen pen;
    int index = 0;
    if (equalNoCase(parts[1], L"preto"))
        pen.ink = Rgb{0, 0, 0};
    else if (readColor(parts[1], index))
        pen.ink = paletteColor(index);
    else if (!isObjects(parts[1]))
        return Error{"a pena é preto, objeto ou uma cor de 1 a 255"};
    double number = 0.0;
    if (readNumber(parts[2], 0.0, 5.0, number))
        pen.lineWeight = number;
    else if (!isObjects(parts[2]))
        return Error{"a espessura é objeto ou um número de 0 a 5 mm, com ponto"};
    if (!readNumber(parts[3], 0.0, 100.0, number)) return Error{"a retícula vai de 0 a 100"};
    pen.screen = number / 100.0;
    const std::wstring_view kind = parts[0].substr(0, blank);
    const std::wstring_view target = trim(parts[0].substr(blank));
    if (equalNoCase(kind, L"camada"))
        m_layers[foldCase(target)] = pen;
    else if (equalNoCase(kind, L"cor") && target == L"*")
        m_colors[0] = pen;
    else if (equalNoCase(kind, L"cor") && readColor(target, index))
        m_colors[index] = pen;
    else
        return Error{"começa com \"cor\" e um número de 1 a 255 ou *, ou com \"camada\" e um nome"};
    return {};
}

Result<PenTable> PenTable::parse(std::string_view text, const std::string& name) {
    PenTable table;
    for (const SettingsLine& line : settingsLines(text))
        if (const Result<void> taken = table.take(toWide(line.text)); !taken)
            return Error{taken.error().text, name, line.number, 0};
    return table;
}

const PlotPen* PenTable::of(const Appearance& appearance) const {
    if (const auto layer = m_layers.find(foldCase(appearance.layer)); layer != m_layers.end())
        return &layer->second;
    if (const auto color = m_colors.find(appearance.colorIndex); color != m_colors.end())
        return &color->second;
    const auto others = m_colors.find(0);
    return others == m_colors.end() ? nullptr : &others->second;
}

const Result<PenTable>& usualPens() {
    static Result<PenTable> table = PenTable();
    static std::optional<FileStamp> read;
    const std::filesystem::path folder = Host::installationFolder();
    const std::filesystem::path file = folder.empty() ? folder : folder / "Prancheta/penas.txt";
    const std::optional<FileStamp> now = file.empty() ? std::nullopt : fileStampOf(file);
    if (now == read) return table;
    read = now;
    table = PenTable();
    if (!now) return table;
    const Result<std::string> text = readFile(file);
    if (text)
        table = PenTable::parse(*text, file.string());
    else
        table = text.error();
    return table;
}

}  // namespace prancheta
