// SPDX-License-Identifier: MIT
// Any bytes as a list file: rows, fields and numbers; what is written back reads as before.
#include "fuzz/input.h"
#include "perfis/catalogues/catalogue.h"
#include "perfis/catalogues/list_text.h"
#include "texts/number.h"

using namespace perfis;

namespace {

std::wstring wide(const std::string& path) { return {path.begin(), path.end()}; }

void readRows(Catalogue& catalogue, const std::wstring& path) {
    catalogue.read(path);
    for (int i = 0; i < catalogue.count(); ++i) {
        std::wstring row;
        fuzz::expect(catalogue.rowAt(i, row), "a counted row is missing");
        for (const std::wstring& field : splitRow(row))
            (void)texts::realToInt(texts::toReal(field));
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const fuzz::Scratch scratch;
    const fuzz::MemoryFile file(fuzz::textOf(data, size));
    const std::wstring path = wide(file.path());
    readRows(*makeStrListCatalogue(), path);
    readRows(*makeStringListCatalogue(), path);
    const auto text = readListText(path);
    fuzz::expect(text != nullptr, "the file cannot be read");
    const std::wstring copy = (scratch.path() / "a.lst").wstring();
    fuzz::expect(writeListText(copy, text->text, text->format), "the list cannot be written");
    const auto again = readListText(copy);
    fuzz::expect(again && again->text == text->text, "the list reads otherwise when written back");
    return 0;
}
