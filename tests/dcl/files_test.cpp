// SPDX-License-Identifier: MIT
// Files: encodings, includes, lookup, the cache.
#include <gtest/gtest.h>

#include "prancheta/base/library.h"
#include "prancheta/base/text.h"
#include "prancheta/dcl/library_cache.h"
#include "prancheta/dcl/parser.h"
#include "support.h"

using namespace prancheta;
using namespace prancheta::dcl;
namespace fs = std::filesystem;

namespace {

std::string labelOf(const fs::path& path) {
    Result<Library> library = parseFile(path);
    if (!library) return library.error().message();
    const auto it = library->definitions.find("d");
    const Value* label =
        it != library->definitions.end() ? it->second->attribute("label") : nullptr;
    return label != nullptr ? label->text : "";
}

int load(const std::wstring& path) {
    int id = 0;
    const int result = ads_load_dialog(path.c_str(), &id);
    EXPECT_EQ(result == RTNORM, id > 0);
    return id;
}

}  // namespace

TEST(DclFiles, EncodingIsNoticedByFile) {
    const dcltest::Folder folder;
    EXPECT_EQ(labelOf(folder.write("a.dcl", "d : dialog { label = \"Seção\"; }")), "Seção");
    EXPECT_EQ(labelOf(folder.write("b.dcl",
                                   "\xEF\xBB\xBF"
                                   "d : dialog { label = \"Seção\"; }")),
              "Seção");
    EXPECT_EQ(labelOf(folder.write("c.dcl", "d : dialog { label = \"Se\xE7\xE3o \x80\"; }")),
              "Seção €");
}

TEST(DclFiles, IncludesAreFoundBesideTheIncludingFile) {
    const dcltest::Folder folder;
    folder.write("partes/Botoes.DCL", "@include \"..\\\\comum\"\n meu : titulo { }");
    folder.write("comum.dcl", "titulo : dialog { label = \"comum\"; }");
    const fs::path main = folder.write(
        "a.dcl", "@include \"partes\\\\botoes.dcl\"\n@include \"comum.dcl\" d : meu { }");
    EXPECT_EQ(labelOf(main), "comum");
    // The current folder comes first.
    const dcltest::Folder current;
    current.write("comum.dcl", "titulo : dialog { label = \"da pasta atual\"; }");
    const fs::path before = fs::current_path();
    fs::current_path(current.path());
    EXPECT_EQ(labelOf(folder.write("b.dcl", "@include \"comum.dcl\" d : titulo { }")),
              "da pasta atual");
    fs::current_path(before);
}

TEST(DclFiles, IncludesThatFail) {
    const dcltest::Folder folder;
    folder.write("b.dcl", "@include \"c.dcl\"");
    const fs::path c = folder.write("c.dcl", "\n  @include \"a.dcl\"");
    const fs::path a = folder.write("a.dcl", "@include \"b.dcl\"");
    EXPECT_EQ(
        labelOf(a),
        c.string() + ":2:12: os arquivos se incluem em círculo: a.dcl → b.dcl → c.dcl → a.dcl");
    const fs::path missing = folder.write("m.dcl", "@include \"nada.dcl\"");
    EXPECT_EQ(labelOf(missing), missing.string() +
                                    ":1:10: não consegui incluir \"nada.dcl\": não encontrei o "
                                    "arquivo da caixa de diálogo: confira a pasta e o nome");
    const fs::path wrong = folder.write("w.dcl", "x : row {\n y }");
    EXPECT_EQ(labelOf(folder.write("u.dcl", "@include \"w.dcl\"")),
              wrong.string() + ":2:4: esperava \"=\" ou \";\" depois de \"y\", encontrei \"}\"");
}

TEST(DclFiles, LoadFindsNamesAsProgramsWriteThem) {
    const dcltest::Folder folder;
    folder.write("Perfis/Perfis.DCL", "d : dialog { }");
    dcltest::printed();
    std::wstring base = folder.path().wstring();
    EXPECT_GT(load(base + L"\\perfis\\perfis.dcl"), 0);
    EXPECT_GT(load(base + L"\\PERFIS\\perfis"), 0);
    EXPECT_EQ(dcltest::printed(), "");
}

TEST(DclFiles, RelativeNamesAreLookedForInTheInstallationToo) {
    const dcltest::Folder installation;
    installation.write("Perfis/So_Instalado.dcl", "d : dialog { ok_cancel; }");
    const std::string before = environment("ZPFORJA2010");
    setEnvironment("ZPFORJA2010", installation.path().string());
    EXPECT_GT(load(L"so_instalado"), 0);
    setEnvironment("ZPFORJA2010", before);
    EXPECT_LT(load(L"so_instalado"), 0);
    dcltest::printed();
}

TEST(DclFiles, FailedLoadIsToldAndNothingOpens) {
    const dcltest::Folder folder;
    const fs::path path = folder.write("r.dcl", "d : dialog {\n label = 3 }");
    dcltest::printed();
    const int id = load(path.wstring());
    EXPECT_EQ(
        dcltest::printed(),
        path.string() + ":2:12: esperava \";\" depois do valor de \"label\", encontrei \"}\"\n");
    dcltest::Events events;
    ads_hdlg dialog = reinterpret_cast<ads_hdlg>(&events);
    EXPECT_EQ(ads_new_dialog(L"d", id, nullptr, &dialog), RTERROR);
    EXPECT_EQ(dialog, nullptr);
    EXPECT_EQ(events.lines,
              std::vector<std::string>{"dialogo nome=d arquivo=r.dcl resultado=-5001"});
    EXPECT_LT(load((folder.path() / "falta.dcl").wstring()), 0);
    EXPECT_NE(dcltest::printed().find("falta.dcl: não encontrei o arquivo"), std::string::npos);
    EXPECT_EQ(ads_unload_dialog(12345), RTNORM);
}

TEST(DclFiles, FileIsReadAgainOnlyAfterAChange) {
    const dcltest::Folder folder;
    const fs::path part = folder.write("parte.dcl", "x : row { nada; }");
    const fs::path path = folder.write("a.dcl", "@include \"parte.dcl\" d : dialog { x; }");
    dcltest::printed();
    const auto first = loadLibrary(path);
    ASSERT_TRUE(first.ok());
    EXPECT_TRUE(first->fresh);
    EXPECT_EQ(loadLibrary(path)->library, first->library);
    folder.write("parte.dcl", "x : row { : text { key = \"novo\"; } }");
    const auto second = loadLibrary(path);
    ASSERT_TRUE(second.ok());
    EXPECT_TRUE(second->fresh);
    EXPECT_TRUE(second->library->findings.empty());
    // Same size, other date.
    fs::last_write_time(part, fs::last_write_time(part) + std::chrono::seconds(5));
    EXPECT_TRUE(loadLibrary(path)->fresh);
    fs::remove(part);
    EXPECT_FALSE(loadLibrary(path).ok());
}

TEST(DclFiles, FindingsAreToldOnceForAFile) {
    const dcltest::Folder folder;
    const fs::path path = folder.write("a.dcl", "d : dialog { nada; }");
    dcltest::printed();
    EXPECT_GT(load(path.wstring()), 0);
    EXPECT_EQ(dcltest::printed(), path.string() + ":1:14: não conheço o componente \"nada\"\n");
    EXPECT_GT(load(path.wstring()), 0);
    EXPECT_EQ(dcltest::printed(), "");
}
