#include "support.h"
#include "dbdim.h"
#include "dbpl.h"
#include "prancheta/database/database_core.h"
#include "prancheta/entities/register.h"
using namespace dxftest; using namespace prancheta;
TEST(Smoke, All) {
    BarModule module;
    AcDbDatabase db(true, true);
    auto layer = db.core().ensureLayer(L"Perfis é nó", 3);
    append(db, new AcDbLine({0,0,0},{100.5,20,0}));
    append(db, new AcDbPoint({1,2,3}));
    append(db, new AcDbCircle({1,2,3},AcGeVector3d::kZAxis,30));
    append(db, new AcDbArc({1,2,3},30,0.5,2));
    append(db, new AcDbText({1,2,3},L"Ação Ω ^x",AcDbObjectId(),2.5,0.3));
    append(db, new AcDbSolid({0,0,0},{1,0,0},{0,1,0},{1,1,0}));
    auto* pl = new AcDbPolyline; pl->addVertexAt(0,{0,0},0.5); pl->addVertexAt(1,{10,0}); pl->addVertexAt(2,{10,10}); pl->setClosed(true);
    append(db, pl);
    auto* dim = new AcDbAlignedDimension({0,0,0},{333.3,100.1,0},{50,200,0});
    dim->setDimscale(10);
    append(db, dim);
    AcDbObjectId link;
    for (int i = 0; i < 4; ++i) {
        auto* bar = new Bar; bar->start = {100.0*i+0.123, 50.7*i, 0}; bar->angle = 0.3*i; bar->mark = L"M"+std::to_wstring(i); bar->values={1,2.5,1e-7,1.0/3};
        bar->link = link; bar->setLayer(layer); bar->mirrored = i==3;
        link = append(db, bar);
    }
    auto a = saved(db);
    write("/tmp/a.dxf", a);
    EXPECT_TRUE(a == saved(db));
    dxf::LoadReport rep;
    auto db2 = loadText(a, &rep);
    for (auto& f : rep.findings) std::cout << f.text << " " << f.line << "\n";
    ASSERT_TRUE(db2);
    auto b = saved(*db2);
    write("/tmp/b.dxf", b);
    EXPECT_EQ(a == b, true);
    auto c = saved(db, {prancheta::dxf::Version::R2018});
    write("/tmp/c.dxf", c);
    auto d = saved(db, {prancheta::dxf::Version::Keep, prancheta::dxf::Form::Binary});
    write("/tmp/d.dxf", d);
    auto db3 = loadText(d, &rep);
    ASSERT_TRUE(db3);
    EXPECT_EQ(saved(*db3) == a, true);
}
