// SPDX-License-Identifier: MIT
// A drawing for entities.
#include "fixture.h"

#include <cstdarg>
#include <cwchar>
#include <utility>

#include "acutads.h"
#include "prancheta/database/database_core.h"

namespace {

std::wstring g_printed;

}  // namespace

int acutPrintf(const ACHAR* format, ...) {
    wchar_t line[1000];
    va_list arguments;
    va_start(arguments, format);
    const int length = std::vswprintf(line, std::size(line), format, arguments);
    va_end(arguments);
    if (length > 0) g_printed.append(line, static_cast<std::size_t>(length));
    return RTNORM;
}

std::wstring takePrinted() { return std::exchange(g_printed, {}); }

AcDbObjectId EntityTest::layer(const wchar_t* name) { return database.core().ensureLayer(name); }

AcDbObjectId EntityTest::block(const wchar_t* name, std::initializer_list<AcDbEntity*> entities) {
    AcDbObjectId id;
    AcDbBlockTable* table = nullptr;
    EXPECT_EQ(database.getBlockTable(table, AcDb::kForWrite), Acad::eOk);
    auto* record = new AcDbBlockTableRecord;
    EXPECT_EQ(record->setName(name), Acad::eOk);
    EXPECT_EQ(table->add(id, record), Acad::eOk);
    table->close();
    for (AcDbEntity* entity : entities) {
        EXPECT_EQ(record->appendAcDbEntity(entity), Acad::eOk);
        entity->close();
    }
    record->close();
    return id;
}

AcDbObjectId EntityTest::append(AcDbEntity* entity) {
    const AcDbObjectPointer<AcDbBlockTableRecord> space(database.currentSpaceId(), AcDb::kForWrite);
    AcDbObjectId id;
    EXPECT_EQ(space->appendAcDbEntity(id, entity), Acad::eOk);
    entity->close();
    return id;
}

testing::AssertionResult near(const AcGePoint3d& a, const AcGePoint3d& b, double tolerance) {
    if (a.distanceTo(b) <= tolerance) return testing::AssertionSuccess();
    return testing::AssertionFailure() << '(' << a.x << ' ' << a.y << ' ' << a.z << ") is not ("
                                       << b.x << ' ' << b.y << ' ' << b.z << ')';
}

void expectRoundTrip(AcDbEntity& entity) {
    const prancheta::Picture before = prancheta::pictureOf(entity);
    const AcGeMatrix3d steps[] = {
        AcGeMatrix3d::translation({1234.5, -77, 0}),
        AcGeMatrix3d::rotation(0.9, AcGeVector3d::kZAxis, {10, 20, 0}),
        AcGeMatrix3d::mirroring({5, 5, 0}, {1, 0.3, 0}),
        AcGeMatrix3d::scaling(2.5, {-3, 8, 0}),
    };
    for (const AcGeMatrix3d& m : steps) {
        ASSERT_EQ(entity.transformBy(m), Acad::eOk);
        prancheta::Picture expected = before;
        expected.transform(m);
        const AcDbExtents a = prancheta::pictureOf(entity).extents();
        EXPECT_TRUE(near(a.minPoint(), expected.extents().minPoint(), 1e-7));
        EXPECT_TRUE(near(a.maxPoint(), expected.extents().maxPoint(), 1e-7));
        ASSERT_EQ(entity.transformBy(m.inverse()), Acad::eOk);
        EXPECT_TRUE(prancheta::pictureOf(entity) == before);
    }
}
