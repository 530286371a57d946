// SPDX-License-Identifier: MIT
// Faults put one by one into a sound file: each is found, and told with its entity and line.
#include "prancheta/verify/verify.h"

#include "../dxf/support.h"
#include "dbdim.h"
#include "dbpl.h"

using namespace dxftest;
using namespace prancheta;

namespace {

verify::Verdict examined(const std::string& text) {
    const Folder folder;
    write(folder / "a.dxf", text);
    const auto verdict = verify::examine(folder / "a.dxf");
    return verdict ? *verdict : verify::Verdict{};
}

std::string messages(const verify::Verdict& verdict) {
    std::string out;
    for (const verify::Remark& remark : verdict.remarks) out += remark.message() + "\n";
    return out;
}

/// A drawing with one of everything that the host makes.
std::string sample(dxf::Version version = dxf::Version::R2000) {
    AcDbDatabase database(true, true);
    append(database, new AcDbLine({0, 0, 0}, {10, 5, 0}));
    append(database, new AcDbCircle({5, 5, 0}, AcGeVector3d::kZAxis, 3.0));
    append(database, new AcDbText({0, 0, 0}, L"Ação", AcDbObjectId::kNull, 2.5));
    append(database, new AcDbAlignedDimension({0, 0, 0}, {30, 40, 0}, {5, 5, 0}));
    auto* outline = new AcDbPolyline;
    for (unsigned i = 0; i < 3; ++i) outline->addVertexAt(i, {10.0 * i, i == 1 ? 5.0 : 0.0});
    append(database, outline);
    auto* bar = new Bar;
    bar->values.assign(4, 0.1);
    append(database, bar);
    return saved(database, {version, dxf::Form::Ascii});
}

/// One group of the first record of a type changed, or taken out when there is no new value.
struct Damage {
    const char* type;
    int code;
    const char* value;
    const char* told;
};

/// Where a remark may stand: the line of the record's type, and that of the changed value.
struct Lines {
    int record = 0;
    int value = 0;
};

std::string damaged(const std::string& text, const Damage& damage, Lines& lines) {
    Groups all = groupsOf(text);
    for (std::size_t i = 0; i < all.size(); ++i) {
        if (all[i].code != 0 || all[i].value != damage.type) continue;
        for (std::size_t j = i + 1; j < all.size() && all[j].code != 0; ++j) {
            if (all[j].code != damage.code) continue;
            lines = {static_cast<int>(2 * i) + 2, static_cast<int>(2 * j) + 2};
            if (damage.value != nullptr)
                all[j].value = damage.value;
            else
                all.erase(all.begin() + static_cast<long>(j));
            return fileText(all);
        }
    }
    ADD_FAILURE() << damage.type << " has no group " << damage.code;
    return text;
}

}  // namespace

TEST(Verify, OurOwnFilesAreSound) {
    const BarModule module;
    for (const auto version : {dxf::Version::R2000, dxf::Version::R2018}) {
        const verify::Verdict verdict = examined(sample(version));
        EXPECT_EQ(messages(verdict), "");
        EXPECT_GT(verdict.records, 50U);
    }
    // Half of a character of two bytes may look like a forbidden sign.
    Groups paged = groupsOf(sample(dxf::Version::R2000));
    Groups layer = record(paged, "LAYER");
    for (std::size_t i = 0; i + 1 < paged.size(); ++i) {
        if (paged[i].value == "$DWGCODEPAGE") paged[i + 1].value = "ANSI_932";
        if (paged[i].value == "$HANDSEED") paged[i + 1].value = "FFFFF";
    }
    for (auto& group : layer) {
        if (group.code == 2) group.value = "\x83\x5C";
        if (group.code == 5) group.value = "FFFFE";
    }
    const auto first = std::find_if(paged.begin(), paged.end(), [](const auto& group) {
        return group.code == 0 && group.value == "LAYER";
    });
    paged.insert(first, layer.begin(), layer.end());
    EXPECT_EQ(messages(examined(fileText(paged))), "");
}

TEST(Verify, EveryFaultIsToldWithItsRecordAndLine) {
    const BarModule module;
    const std::string text = sample();
    const Damage faults[] = {
        {"LINE", 10, "1,5", "separador decimal"},
        {"LINE", 10, "nan", "valor inválido"},
        {"LINE", 21, nullptr, "falta o grupo 21"},
        {"LINE", 8, "Nenhuma", "a camada \"Nenhuma\" não existe"},
        {"LINE", 330, "FFFF", "não existe"},
        {"LAYOUT", 330, "FFFF", "o dono do objeto não existe"},
        {"LINE", 5, "XYZ", "valor inválido"},
        {"LINE", 100, nullptr, "AcDbEntity"},
        {"CIRCLE", 40, "0", "deve ser positivo"},
        {"LWPOLYLINE", 90, "9", "diz ter 9 vértices"},
        {"LWPOLYLINE", 70, "40000", "não cabe"},
        {"DIMENSION", 2, "*D99", "o bloco \"*D99\" da cota não existe"},
        {"DIMENSION", 3, "Estilo", "estilo de cota"},
        {"DIMENSION", 42, "51", "não é a distância"},
        {"INSERT", 2, "*U99", "o bloco \"*U99\" não existe"},
        {"INSERT", 1001, "OUTRO", "APPID"},
        {"LAYER", 6, "TRACEJADA", "tipo de linha"},
        {"LAYER", 62, "300", "1 a 255"},
        {"LAYER", 2, "A<B", "caracteres proibidos"},
        {"LAYER", 2, "A,B", "caracteres proibidos"},
        {"DICTIONARY", 3, "ACAD_GRUPO", "ACAD_GROUP"},
    };
    for (const Damage& fault : faults) {
        Lines lines;
        const verify::Verdict verdict = examined(damaged(text, fault, lines));
        const std::string all = messages(verdict);
        EXPECT_GT(verdict.errors, 0U) << fault.type << " " << fault.code;
        EXPECT_NE(all.find(fault.told), std::string::npos) << fault.type << ": " << all;
        // What the root dictionary lacks is known at the end of the file only.
        bool placed = fault.type == std::string("DICTIONARY");
        for (const verify::Remark& remark : verdict.remarks)
            placed |= remark.type == fault.type &&
                      (remark.line == lines.record || remark.line == lines.value);
        EXPECT_TRUE(placed) << all;
    }
}

TEST(Verify, RecordsStandWhereTheyBelong) {
    const BarModule module;
    const Groups all = groupsOf(sample());
    using Range = std::pair<std::ptrdiff_t, std::ptrdiff_t>;
    const auto rangeOf = [&](const std::string& type) {
        const auto first = std::find(all.begin(), all.end(), Group{0, type});
        const auto last =
            std::find_if(first + 1, all.end(), [](const Group& group) { return group.code == 0; });
        return Range(first - all.begin(), last - all.begin());
    };
    /// The record at the end of a section, or behind itself; groups of it left out from the end.
    struct Case {
        const char* type;
        bool stays;
        const char* section;
        int cut;
        const char* told;
    };
    const Case cases[] = {
        {"ENDTAB", false, nullptr, 0, "uma tabela não termina"},
        {"ENDTAB", true, "", 0, "ENDTAB sem começo"},
        {"ENDBLK", false, nullptr, 0, "um bloco não termina"},
        {"ENDBLK", true, "", 0, "ENDBLK sem começo"},
        {"BLOCK", true, "ENTITIES", 0, "BLOCK fora da sua seção"},
        {"TABLE", true, "OBJECTS", 0, "TABLE fora da sua seção"},
        {"LINE", false, "OBJECTS", 0, "uma entidade na seção OBJECTS"},
        {"LINE", false, "CLASSES", 0, "fora do lugar na seção CLASSES"},
        {"LAYOUT", false, "ENTITIES", 0, "falta o marcador AcDbEntity"},
        {"STYLE", false, "", 4, "falta o grupo 71"},
        {"STYLE", false, "", 10, "falta o marcador AcDbTextStyleTableRecord"},
    };
    for (const Case& c : cases) {
        const auto [first, last] = rangeOf(c.type);
        Groups moved(all.begin() + first, all.begin() + last - c.cut);
        Groups changed = all;
        auto at = changed.begin() + last;
        if (c.section != nullptr && *c.section != '\0')
            at = std::find(std::find(changed.begin(), changed.end(), Group{2, c.section}),
                           changed.end(), Group{0, "ENDSEC"});
        const auto place = at - changed.begin();
        if (c.section != nullptr) changed.insert(at, moved.begin(), moved.end());
        const auto shift = c.section != nullptr && place <= first ? last - first - c.cut : 0;
        if (!c.stays)
            changed.erase(changed.begin() + first + shift, changed.begin() + last + shift);
        const std::string told = messages(examined(fileText(changed)));
        EXPECT_NE(told.find(c.told), std::string::npos) << c.type << ": " << told;
    }
}

TEST(Verify, PartsFollowTheirEntity) {
    const auto told = [](const char* entities) {
        return messages(examined(fileWith(entities, "AC1009")));
    };
    const std::string whole = "0 POLYLINE|8 0|66 1|0 VERTEX|8 0|10 1|20 1|0 SEQEND|8 0";
    EXPECT_EQ(told((whole + "|0 POINT|8 0|10 0|20 0").c_str()).find("SEQEND"), std::string::npos);
    for (const char* entities : {"0 POLYLINE|8 0|66 1|0 VERTEX|8 0|10 1|20 1|0 POINT|8 0|10 0|20 0",
                                 "0 POLYLINE|8 0|66 1", "0 INSERT|8 0|66 1|2 B|10 0|20 0|0 VERTEX"})
        EXPECT_NE(told(entities).find("falta SEQEND"), std::string::npos) << entities;
    EXPECT_NE(told("0 VERTEX|8 0|10 1|20 1").find("VERTEX não pertence"), std::string::npos);
}

TEST(Verify, CommonGroupsStandInTheHead) {
    const char* const surface =
        "0 EXTRUDEDSURFACE|8 0|100 AcDbEntity|8 0|48 0.5|100 AcDbModelerGeometry|100 "
        "AcDbSurface|100 "
        "AcDbExtrudedSurface|48 0.0|62 999|370 7";
    const std::string told = messages(examined(fileWith(surface, "AC1009")));
    for (const char* word : {"escala de tipo de linha", "cor fora", "espessura"})
        EXPECT_EQ(told.find(word), std::string::npos) << told;
}

TEST(Verify, EntitiesStandInTheSpaceThatOwnsThem) {
    const BarModule module;
    const Groups all = groupsOf(sample());
    const std::string model = valueOf(record(all, "BLOCK_RECORD", 2, "*Model_Space"), 5);
    const std::string paper = valueOf(record(all, "BLOCK_RECORD", 2, "*Paper_Space"), 5);
    const std::string picture = valueOf(record(all, "BLOCK_RECORD", 2, "*U1"), 5);
    const auto told = [&](const std::string& owner, bool saysPaper) {
        Groups changed = all;
        const auto section = std::find(changed.begin(), changed.end(), Group{2, "ENTITIES"});
        const auto line = std::find(section, changed.end(), Group{0, "LINE"});
        const auto at = std::find(line, changed.end(), Group{330, model});
        at->value = owner;
        if (saysPaper) changed.insert(at + 2, {67, "1"});
        return messages(examined(fileText(changed)));
    };
    EXPECT_EQ(told(model, false), "");
    EXPECT_EQ(told(paper, true), "");
    EXPECT_NE(told(model, true).find("o grupo 67"), std::string::npos);
    EXPECT_NE(told(paper, false).find("o grupo 67"), std::string::npos);
    EXPECT_NE(told(picture, false).find("espaço do modelo"), std::string::npos);
}

TEST(Verify, DictionariesOwnWhatTheyName) {
    const BarModule module;
    const Groups all = groupsOf(sample());
    const auto root = std::find(all.begin(), all.end(), Group{0, "DICTIONARY"});
    const std::string rootHandle = valueOf(Groups(root, all.end()), 5);
    for (const char* type : {"LAYOUT", "MLINESTYLE", "ACDBPLACEHOLDER"}) {
        const Groups child = record(all, type);
        Groups changed = all;
        const auto at = std::find(changed.begin(), changed.end(), Group{5, valueOf(child, 5)});
        std::find(at, changed.end(), Group{330, valueOf(child, 330)})->value = rootHandle;
        const std::string told = messages(examined(fileText(changed)));
        EXPECT_NE(told.find("um objeto de outro dono"), std::string::npos) << type << told;
    }
}

TEST(Verify, FaultsOfTheWholeFile) {
    const BarModule module;
    const std::string text = sample();
    const Groups all = groupsOf(text);

    Groups twice = all;
    const std::string handle = valueOf(record(all, "LINE"), 5);
    for (std::size_t i = 0; i < twice.size(); ++i)
        if (twice[i].code == 0 && twice[i].value == "CIRCLE") twice[i + 1].value = handle;
    EXPECT_NE(messages(examined(fileText(twice))).find("o handle já é de outro objeto"),
              std::string::npos);

    Groups seed = all;
    for (std::size_t i = 0; i < seed.size(); ++i)
        if (seed[i].value == "$HANDSEED") seed[i + 1].value = "10";
    EXPECT_NE(messages(examined(fileText(seed))).find("$HANDSEED"), std::string::npos);

    const std::string cut = text.substr(0, text.rfind("EOF") - 4);
    EXPECT_NE(messages(examined(cut)).find("EOF"), std::string::npos);
    for (const char* more : {"\x1A", "0\nLINE\n8\n0\n", "0\nEOF\n"})
        EXPECT_NE(messages(examined(text + more)).find("há dados depois"), std::string::npos);
    EXPECT_EQ(examined(text + "\n").errors, 0U);
    EXPECT_GT(examined(text.substr(0, text.size() / 2)).errors, 0U);
    EXPECT_GT(examined("").errors, 0U);

    Groups braces = all;
    for (std::size_t i = 0; i < braces.size(); ++i)
        if (braces[i].code == 1001) {
            braces.insert(braces.begin() + static_cast<long>(i) + 1, {1002, "}"});
            break;
        }
    EXPECT_NE(messages(examined(fileText(braces))).find("chaves"), std::string::npos);
}

TEST(Verify, BlocksThatContainThemselves) {
    const std::string blocks =
        "0 SECTION|2 BLOCKS|0 BLOCK|8 0|2 A|70 0|10 0|20 0|0 INSERT|8 0|2 B|10 0|20 0|0 ENDBLK|"
        "0 BLOCK|8 0|2 B|70 0|10 0|20 0|0 INSERT|8 0|2 A|10 0|20 0|0 ENDBLK|0 ENDSEC";
    EXPECT_NE(messages(examined(fileWith("0 LINE|8 0|10 0|20 0|11 1|21 1", "AC1009", blocks)))
                  .find("contém a si mesmo"),
              std::string::npos);
}

namespace {

constexpr const char* kPython = "/usr/bin/python3";

bool runs(const std::string& command) {
    return std::system((command + " >/dev/null 2>&1").c_str()) == 0;
}

constexpr const char* kAuditAll = R"(
import sys, ezdxf
from pathlib import Path
for path in sorted(Path(sys.argv[1]).glob('*.dxf')):
    auditor = ezdxf.readfile(path).audit()
    for e in auditor.errors + auditor.fixes: print(path.name, e.code, e.message)
)";

}  // namespace

TEST(Corpus, EverySaveIsWholeForThisAndOtherReaders) {
    const Folder folder;
    const auto kept = std::filesystem::path(HOUSE_SOURCE_DIR) / "tests/dxf/corpus";
    const bool audits = runs(std::string(kPython) + " -c 'import ezdxf'");
    const bool reads = runs("command -v ogrinfo");
    if (audits) {
        const std::string make = std::string(kPython) + " " + (kept / "../corpus.py").string();
        EXPECT_TRUE(runs(make + " " + (folder / "").string()));
    }
    const std::filesystem::path out = folder / "out";
    std::filesystem::create_directory(out);
    std::size_t files = 0;
    for (const auto& where : {kept, folder / ""})
        for (const auto& entry : std::filesystem::directory_iterator(where)) {
            if (entry.path().extension() != ".dxf") continue;
            const std::string name = entry.path().stem().string();
            const auto loaded = dxf::load(entry.path());
            ASSERT_TRUE(loaded.ok()) << name << ": " << loaded.error().message();
            ++files;
            for (const auto& [version, label] :
                 {std::pair(dxf::Version::Keep, ""), std::pair(dxf::Version::R2018, "-2018"),
                  std::pair(dxf::Version::R12, "-r12")}) {
                // Of one kind of file in all releases one is enough to be told in others.
                if (*label != '\0' && name.find("-R20") != name.npos && !name.ends_with("00-asc"))
                    continue;
                const std::filesystem::path file = out / (name + label + ".dxf");
                const auto saved = dxf::save(**loaded, file, {version});
                ASSERT_TRUE(saved) << file << ": " << saved.error().message();
                const auto verdict = verify::examine(file);
                ASSERT_TRUE(verdict) << file;
                EXPECT_EQ(verdict->errors, 0U) << file << "\n" << messages(*verdict);
            }
        }
    EXPECT_GE(files, audits ? 130U : 7U);
    const std::string found = (folder / "achados.txt").string();
    if (audits) {
        write(folder / "audita.py", kAuditAll);
        EXPECT_EQ(std::system((std::string(kPython) + " " + (folder / "audita.py").string() + " " +
                               out.string() + " >" + found + " 2>&1")
                                  .c_str()),
                  0);
        EXPECT_EQ(read(found), "");
    }
    if (reads) {
        EXPECT_EQ(std::system(("for file in " + out.string() +
                               "/*.dxf; do ogrinfo -q -al -so \"$file\" 2>&1 | grep -H "
                               "--label=\"$file\" ERROR; done >" +
                               found + "; true")
                                  .c_str()),
                  0);
        EXPECT_EQ(read(found), "");
    }
    if (!audits || !reads)
        GTEST_SKIP() << "nem todos os outros leitores estão instalados: ezdxf "
                     << (audits ? "sim" : "NÃO") << ", ogrinfo " << (reads ? "sim" : "NÃO");
}
