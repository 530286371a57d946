// SPDX-License-Identifier: MIT
// Flat parts, and their files.
#include "zp/matlist/flat_parts.h"

#include <algorithm>
#include <cwchar>
#include <fstream>
#include <set>

#include "files/replacement.h"
#include "texts/letters.h"
#include "texts/number.h"
#include "texts/path.h"
#include "zp/matlist/cut_file.h"
#include "zp/matlist/lists.h"
#include "zp/matlist/summary.h"
#include "zp/objects/peca.h"
#include "zp/objects/secao/single.h"
#include "zp/objects/strip_rules.h"

namespace zp::matlist {
namespace {

constexpr const wchar_t* kOutline = L"CORTE";
constexpr const wchar_t* kHoles = L"FURO";
constexpr const wchar_t* kEngraving = L"GRAVACAO";
constexpr const wchar_t* kNote = L"NOTA";
/// mm: letters of notes, the tallest engraved ones, and from one part of a file to the next.
constexpr double kNoteAltura = 10.0;
constexpr double kTallest = 10.0;
constexpr double kBetween = 50.0;

FlatPart partOf(const ZpObject& peca, const Linha& row) {
    FlatPart part;
    part.marca = row.marca;
    part.material = row.material;
    part.count = row.quantidade;
    const Peca& p = Access::of(peca);
    part.length = row.comprimento;
    if (p.chapa()) {
        part.width = peca.getLargura();
        part.espessura = peca.getEspessura();
        return part;
    }
    const std::optional<secao::Strip> strip = zp::stripOf(peca);
    if (!strip) return {};
    const secao::Single single = secao::singleOf(p.perfil(), p.dimensoes());
    part.name = secao::designacaoText(single.perfil, single.dimensoes, {});
    part.count *= single.count;
    part.width = strip->width;
    part.espessura = strip->espessura;
    part.oblique =
        std::ranges::any_of(p.cortes, [](const Corte& c) { return c.x != 0.0 || c.y != 0.0; });
    return part;
}

CutFile newFile() { return CutFile({{kOutline, 7}, {kHoles, 1}, {kEngraving, 3}, {kNote, 8}}); }

/// The lower left corner of its outline at 0, `y`; the note below it.
void draw(CutFile& file, const FlatPart& part, double y) {
    file.rectangle(kOutline, 0.0, y, part.length, part.width);
    const double letters = static_cast<double>(std::max<std::size_t>(part.marca.size(), 1));
    const double h =
        std::min({kTallest, 0.3 * part.width, 0.3 * part.length, 0.8 * part.length / letters});
    file.text(kEngraving, 0.5 * h, y + 0.5 * (part.width - h), h, part.marca);
    file.text(kNote, 0.0, y - 2.0 * kNoteAltura, kNoteAltura, wordsOf(part));
}

}  // namespace

FlatParts flatPartsOf(const std::vector<Linha>& rows) {
    FlatParts flat;
    for (const Linha& row : rows) {
        if (erased(row) || row.quantidade <= 0) continue;
        const bool drawn = !row.pecas.empty() || !row.vistas.empty();
        FlatPart part = ofDrawn(row, [&](const ZpObject& peca) { return partOf(peca, row); });
        if (part.width > 0.0 && part.length > 0.0)
            flat.parts.push_back(std::move(part));
        else if (!drawn || part.width > 0.0)
            flat.leftOut.push_back(row.marca);
    }
    return flat;
}

std::wstring wordsOf(const FlatPart& part) {
    return part.marca + L": " + std::to_wstring(part.count) + L" x chapa " +
           texts::withComma(part.espessura) + L" x " + texts::withComma(part.width, 1) + L" x " +
           texts::withComma(part.length, 1) + (part.material.empty() ? L"" : L", ") +
           part.material + (part.name.empty() ? L"" : L" (" + part.name + L")") +
           (part.oblique ? L", pontas em ângulo: cortar depois de dobrar" : L"");
}

std::vector<std::filesystem::path> fileNamesOf(const std::vector<FlatPart>& parts) {
    std::vector<std::filesystem::path> names;
    std::set<std::wstring> taken;
    for (const FlatPart& part : parts) {
        std::wstring stem = part.marca;
        std::ranges::replace_if(
            stem, [](wchar_t c) { return c < L' ' || std::wcschr(L"<>:\"/\\|?*.", c) != nullptr; },
            L'_');
        std::wstring name = stem;
        for (int n = 2; !taken.insert(texts::lower(name)).second; ++n)
            name = stem + L'_' + std::to_wstring(n);
        names.push_back(texts::pathOf(name + L".dxf"));
    }
    return names;
}

std::filesystem::path inTheWay(const std::filesystem::path& destination, bool together,
                               const std::vector<FlatPart>& parts) {
    const std::string begun = newFile().begun();
    const auto foreign = [&](const std::filesystem::path& file) {
        std::error_code error;  // what cannot be asked cannot be written either, and that is told
        if (!std::filesystem::is_regular_file(file, error)) return false;
        std::ifstream in(file, std::ios::binary);
        std::string bytes(begun.size(), '\0');
        in.read(bytes.data(), static_cast<std::streamsize>(bytes.size()));
        return bytes != begun;
    };
    if (together) return foreign(destination) ? destination : std::filesystem::path();
    for (const std::filesystem::path& name : fileNamesOf(parts))
        if (foreign(destination / name)) return destination / name;
    return {};
}

std::filesystem::path writeEach(const std::filesystem::path& folder,
                                const std::vector<FlatPart>& parts) {
    std::error_code error;  // the first file tells it
    std::filesystem::create_directories(folder, error);
    const std::vector<std::filesystem::path> names = fileNamesOf(parts);
    for (std::size_t i = 0; i < parts.size(); ++i) {
        CutFile file = newFile();
        draw(file, parts[i], 0.0);
        if (files::replace(folder / names[i], std::move(file).done()) != 0)
            return folder / names[i];
    }
    return {};
}

bool writeTogether(const std::filesystem::path& file, const std::vector<FlatPart>& parts) {
    CutFile all = newFile();
    double y = 0.0;
    for (const FlatPart& part : parts) {
        draw(all, part, y);
        y += part.width + kBetween;
    }
    return files::replace(file, std::move(all).done()) == 0;
}

}  // namespace zp::matlist
