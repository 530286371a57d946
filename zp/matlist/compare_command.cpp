// SPDX-License-Identifier: MIT
// COMPARAR, and the comparison as hosts ask for it.
#include <iterator>

#include "acutads.h"
#include "protocol/answers.h"
#include "rxdict.h"
#include "texts/letters.h"
#include "texts/path.h"
#include "zp/matlist/asking.h"
#include "zp/matlist/book.h"
#include "zp/matlist/compare.h"
#include "zp/matlist/compare_words.h"
#include "zp/matlist/formats.h"

namespace zp::matlist {
namespace {

using protocol::ComparisonForm;

constexpr const wchar_t* kJson = L".json";
constexpr const wchar_t* kXlsx = L".xlsx";

/// The drawing of a file, beside the one that is worked on.
class OtherDrawing {
public:
    explicit OtherDrawing(const std::wstring& file) : m_drawing(false, true) {
        m_status = m_drawing.dxfIn(file.c_str());
    }
    ~OtherDrawing() { Book::forget(&m_drawing); }
    OtherDrawing(const OtherDrawing&) = delete;
    OtherDrawing& operator=(const OtherDrawing&) = delete;

    Acad::ErrorStatus status() const { return m_status; }
    AcDbDatabase& drawing() { return m_drawing; }

private:
    AcDbDatabase m_drawing;
    Acad::ErrorStatus m_status;
};

/// The number of the word that was typed, with or without an underscore; nothing for another text.
std::optional<std::size_t> wordIn(std::wstring typed, std::span<const wchar_t* const> words) {
    if (typed.starts_with(L'_')) typed.erase(0, 1);
    for (std::size_t i = 0; i < words.size(); ++i)
        if (texts::equalIgnoringCase(typed, words[i])) return i;
    return {};
}

void eraseClouds(AcDbDatabase& drawing) {
    const auto [erased, locked] = eraseRevision(drawing);
    if (locked > 0) protocol::fail(lockedRevisionText());
    if (erased == 0 && locked > 0) return;
    acutPrintf(erased == 0 ? L"\nNão há revisão desenhada.\n"
                           : L"\nA revisão saiu do desenho: %d objetos.\n",
               static_cast<int>(erased));
}

void draw(AcDbDatabase& drawing, const std::wstring& file,
          const std::vector<MemberChange>& changes) {
    if (eraseRevision(drawing).locked > 0) {
        protocol::fail(lockedRevisionText());
        return;
    }
    const Revision drawn = drawRevision(
        drawing, L"ALTERAÇÕES DESDE " + texts::shown(texts::pathOf(file).filename()), changes);
    if (changes.empty()) return;
    acutPrintf(drawn.clouds == 1 ? L"%d nuvem de revisão.\n" : L"%d nuvens de revisão.\n",
               static_cast<int>(drawn.clouds));
    if (drawn.rowsLeftOut > 0)
        acutPrintf(
            L"A tabela mostra as primeiras linhas; as outras %d só saem no arquivo da opção Csv.\n",
            static_cast<int>(drawn.rowsLeftOut));
}

void write(const std::filesystem::path& destination, const std::vector<MemberChange>& changes) {
    const bool json = texts::equalIgnoringCase(texts::shown(destination.extension()), kJson);
    if (json ? writeText(destination, toldAs(ComparisonForm::Json, changes), false)
             : writeTable(destination, tableOf(changes)))
        acutPrintf(L"\nComparação gravada em %ls\n", texts::shown(destination).c_str());
    else
        protocol::fail(texts::shown(destination) +
                       L": o arquivo não pode ser gravado; confira a pasta.");
}

class Comparison : public protocol::DrawingComparison {
public:
    const ACHAR* command() const override { return kCompareCommand; }
    bool compare(AcDbDatabase& before, AcDbDatabase& after, ComparisonForm form,
                 std::wstring& told) const override {
        const std::vector<JobMember> earlier = membersOf(before);
        const std::vector<JobMember> later = membersOf(after);
        const std::vector<MemberChange> changes = compareMembers(earlier, later);
        told = toldAs(form, changes);
        if (form == ComparisonForm::Text) told += lostMembersText(before, earlier, after, later);
        Book::forget(&before);
        return !changes.empty();
    }
};
Comparison g_comparison;  // kept by pointer in the registry

}  // namespace

void compareCommand() {
    AcDbDatabase* const drawing = acdbHostApplicationServices()->workingDatabase();
    if (drawing == nullptr) return;
    constexpr const wchar_t* kWords[] = {L"csv", L"json", L"xlsx", L"limpar", L"clear"};
    constexpr const wchar_t* kExtensions[] = {L".csv", kJson, kXlsx};
    auto file = askTyped(L"Desenho anterior ou [Csv/Json/Xlsx/Limpar]: ");
    if (!file || file->empty()) return;
    std::filesystem::path destination;
    if (const std::optional<std::size_t> word = wordIn(*file, kWords)) {
        if (*word >= std::size(kExtensions)) {
            eraseClouds(*drawing);
            return;
        }
        if (kExtensions[*word] == kXlsx && kWriteTableXlsx == nullptr) {
            protocol::fail(L"Esta versão do programa não grava planilhas XLSX; use a opção Csv.");
            return;
        }
        const auto asked = askDestination(L"\nArquivo a gravar: ", {kExtensions[*word]});
        if (!asked) return;
        destination = *asked;
        file = askTyped(L"Desenho anterior: ");
        if (!file || file->empty()) return;
    }
    *file = withoutQuotes(*file);
    OtherDrawing before(*file);
    if (before.status() != Acad::eOk) {
        protocol::fail(*file + (before.status() == Acad::eFilerError
                                    ? L": o arquivo não pode ser lido; confira o nome e a pasta."
                                    : L": o desenho está danificado; abra-o com RECUPERAR e "
                                      L"salve-o antes de comparar."));
        return;
    }
    const std::vector<JobMember> earlier = membersOf(before.drawing());
    const std::vector<JobMember> later = membersOf(*drawing);
    const std::vector<MemberChange> changes = compareMembers(earlier, later);
    acutPrintf(L"\n%ls", lostMembersText(before.drawing(), earlier, *drawing, later).c_str());
    if (!destination.empty()) {
        write(destination, changes);
        return;
    }
    acutPrintf(L"\n%ls", toldAs(ComparisonForm::Text, changes).c_str());
    draw(*drawing, *file, changes);
}

void installComparison() {
    acrxSysRegistry()->atPut(protocol::kDrawingComparisonKey, &g_comparison);
}
void uninstallComparison() { acrxSysRegistry()->remove(protocol::kDrawingComparisonKey); }

}  // namespace zp::matlist
