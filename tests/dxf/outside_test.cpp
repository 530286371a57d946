// SPDX-License-Identifier: MIT
// Files as another program's auditor sees them; skipped where there is none.
#include <cstdio>
#include <cstdlib>

#include "dbdim.h"
#include "dbpl.h"
#include "prancheta/database/database_core.h"
#include "support.h"

using namespace dxftest;
using namespace prancheta;

namespace {

constexpr const char* kPython = "/usr/bin/python3";

/// Output of a program of the auditor's language over a file.
std::string ask(const std::filesystem::path& script, const std::filesystem::path& file) {
    const std::string command =
        std::string(kPython) + " " + script.string() + " " + file.string() + " 2>&1";
    std::string out;
    FILE* const pipe = ::popen(command.c_str(), "r");
    if (pipe == nullptr) return "(não executou)";
    for (int c; (c = std::fgetc(pipe)) != EOF;) out.push_back(static_cast<char>(c));
    ::pclose(pipe);
    return out;
}

constexpr const char* kAudit = R"(
import sys, ezdxf
doc = ezdxf.readfile(sys.argv[1])
auditor = doc.audit()
for e in auditor.errors + auditor.fixes: print(e.code, e.message)
print('erros', len(auditor.errors), 'reparos', len(auditor.fixes))
space = doc.modelspace()
for insert in space.query('INSERT'):
    points = [p for e in insert.virtual_entities() if e.dxftype() == 'LWPOLYLINE' for p in e.vertices_in_wcs()]
    print('peca', ' '.join('%.3f,%.3f' % (p.x, p.y) for p in points))
for d in space.query('DIMENSION'):
    print('cota', d.dxf.geometry, len(list(d.virtual_entities())), '%.3f' % d.dxf.actual_measurement)
)";

class Outside : public testing::Test {
protected:
    void SetUp() override {
        if (std::system((std::string(kPython) + " -c 'import ezdxf' 2>/dev/null").c_str()) != 0)
            GTEST_SKIP() << "ezdxf não está instalado";
        write(folder / "auditoria.py", kAudit);
    }
    std::string audit(const std::string& bytes) {
        write(folder / "a.dxf", bytes);
        return ask(folder / "auditoria.py", folder / "a.dxf");
    }
    Folder folder;
};

}  // namespace

TEST_F(Outside, NewDrawingHasNoFaultInAnyForm) {
    const BarModule module;
    AcDbDatabase database(true, true);
    append(database, new AcDbLine({0, 0, 0}, {1, 2, 0}));
    append(database, new AcDbPoint({1, 1, 1}));
    append(database, new AcDbCircle({0, 0, 0}, AcGeVector3d::kZAxis, 2.0));
    append(database, new AcDbArc({0, 0, 0}, 2.0, 0.0, 1.0));
    append(database, new AcDbSolid({0, 0, 0}, {1, 0, 0}, {0, 1, 0}, {1, 1, 0}));
    append(database, new AcDbText({0, 0, 0}, L"Ação Ω", AcDbObjectId::kNull, 2.5));
    auto* outline = new AcDbPolyline;
    (void)outline->addVertexAt(0, {0, 0}, 1.0);
    (void)outline->addVertexAt(1, {5, 0});
    append(database, outline);
    auto* bar = new Bar;
    bar->start.set(1000, 500, 0);
    bar->angle = 1.5707963267948966;
    bar->length = 200;
    append(database, bar);
    auto* mirrored = new Bar;
    mirrored->start.set(1000, -500, 0);
    mirrored->length = 200;
    mirrored->mirrored = true;
    append(database, mirrored);
    append(database, new AcDbAlignedDimension({0, 0, 0}, {30, 40, 0}, {0, 60, 0}));
    const dxf::SaveOptions forms[] = {{dxf::Version::R2000},
                                      {dxf::Version::R2018},
                                      {dxf::Version::R2000, dxf::Form::Binary},
                                      {dxf::Version::R2018, dxf::Form::Binary}};
    for (const dxf::SaveOptions& options : forms) {
        const std::string found = audit(saved(database, options));
        // One bar runs upwards from (1000, 500), 200 long, 100 to its left; the mirrored one to the
        // right from (1000, -500), 100 to its right.
        EXPECT_EQ(found,
                  "erros 0 reparos 0\n"
                  "peca 1000.000,500.000 1000.000,700.000 900.000,700.000 900.000,500.000\n"
                  "peca 1000.000,-500.000 1200.000,-500.000 1200.000,-600.000 1000.000,-600.000\n"
                  "cota *D1 9 50.000\n");
    }
    // For machines: what is seen, without blocks; the bars closed, the half circle a bulge of 1.
    write(folder / "r12.dxf", saved(database, {dxf::Version::R12}));
    write(folder / "formas.py", R"(
import sys, ezdxf
doc = ezdxf.readfile(sys.argv[1])
auditor = doc.audit()
print(doc.dxfversion, 'erros', len(auditor.errors), 'reparos', len(auditor.fixes))
space = doc.modelspace()
print(sorted(set(e.dxftype() for e in space)))
for p in space.query('POLYLINE'):
    print(p.is_closed, ' '.join('%g,%g,%g' % (v.dxf.location.x, v.dxf.location.y, v.dxf.bulge) for v in p.vertices))
)");
    const std::string seen = ask(folder / "formas.py", folder / "r12.dxf");
    EXPECT_EQ(seen,
              "AC1009 erros 0 reparos 0\n"
              "['ARC', 'CIRCLE', 'LINE', 'POINT', 'POLYLINE', 'SOLID', 'TEXT']\n"
              "False 0,0,1 5,0,0\n"
              "True 1000,500,0 1000,700,0 900,700,0 900,500,0\n"
              "True 1000,-500,0 1200,-500,0 1200,-600,0 1000,-600,0\n");
}

TEST_F(Outside, OldFileIsCompleteAfterSaving) {
    const char* entities =
        "0 LINE|8 VELHA|10 0|20 0|30 0|11 10|21 0|31 0|0 POLYLINE|8 0|66 1|10 0|20 0|30 0|70 1|0 "
        "VERTEX|8 0|10 0|20 0|30 0|0 "
        "VERTEX|8 0|10 9|20 9|30 0|0 SEQEND|8 0|0 TEXT|8 0|10 0|20 0|30 0|40 2.5|1 x|72 1|11 5|21 "
        "5|31 0";
    const auto database = loadText(fileWith(entities, "AC1009"));
    ASSERT_NE(database, nullptr);
    for (const dxf::Version version : {dxf::Version::Keep, dxf::Version::R2018})
        EXPECT_EQ(audit(saved(*database, {version})), "erros 0 reparos 0\n");
}

TEST_F(Outside, FileOfTheOtherProgramComesBackWithoutFault) {
    write(folder / "nova.py", R"(
import sys, ezdxf
doc = ezdxf.new(sys.argv[2] if len(sys.argv) > 2 else 'R2010', setup=True)
space = doc.modelspace()
space.add_mtext('linha um\\Plinha dois', dxfattribs={'char_height': 3})
space.add_hatch(color=2).paths.add_polyline_path([(0, 0), (5, 0), (5, 5)], is_closed=True)
space.add_ellipse((1, 1), (4, 0), 0.5)
space.add_linear_dim(base=(0, 8), p1=(0, 0), p2=(6, 0)).render()
space.add_aligned_dim(p1=(0, 0), p2=(6, 6), distance=2).render()
block = doc.blocks.new('BLOCO')
block.add_line((0, 0), (1, 1))
block.add_attdef('NOME', (0, 0))
space.add_blockref('BLOCO', (3, 3)).add_auto_attribs({'NOME': 'valor'})
doc.layers.new('Furos', dxfattribs={'true_color': 255})
doc.saveas(sys.argv[1])
)");
    (void)ask(folder / "nova.py", folder / "b.dxf");
    for (const dxf::Version version :
         {dxf::Version::Keep, dxf::Version::R2000, dxf::Version::R2018}) {
        auto loaded = dxf::load(folder / "b.dxf");
        ASSERT_TRUE(loaded.ok()) << loaded.error().message();
        const std::string bytes = saved(**loaded, {version});
        const std::string found = audit(bytes);
        EXPECT_EQ(found.substr(0, 18), "erros 0 reparos 0\n") << found;
        const Groups all = groupsOf(bytes);
        for (const char* type : {"HATCH", "ELLIPSE", "ATTRIB", "ATTDEF"})
            EXPECT_EQ(countOf(all, type), 1U) << type;
        EXPECT_EQ(countOf(all, "DIMENSION"), 2U);
        EXPECT_EQ(countOf(all, "MTEXT"), 3U) << "pictures of dimensions are the other program's";
        const auto again = loadText(bytes);
        ASSERT_NE(again, nullptr);
        EXPECT_TRUE(saved(*again, {version}) == bytes);
        const std::string flat = saved(**loaded, {dxf::Version::R12});
        EXPECT_EQ(audit(flat), "erros 0 reparos 0\n");
        const Groups seen = groupsOf(flat);
        for (const char* type : {"HATCH", "ELLIPSE", "MTEXT", "INSERT", "DIMENSION", "ATTDEF"})
            EXPECT_EQ(countOf(seen, type), 0U) << type;
        for (const char* part :
             {"\nlinha um\n", "\nlinha dois\n", "\nvalor\n", "\nFUROS\n70\n0\n62\n5\n"})
            EXPECT_NE(flat.find(part), flat.npos) << part;
        EXPECT_TRUE(saved(**loaded, {version}) == bytes) << "the drawing is not changed by it";
    }
}
