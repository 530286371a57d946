// SPDX-License-Identifier: MIT
// A drawing for entities, and ways to look at what they draw.
#pragma once

#include <gtest/gtest.h>

#include <cmath>
#include <memory>
#include <string>

#include "dbdim.h"
#include "dbpl.h"
#include "dbsymtb.h"
#include "prancheta/entities/picture_entities.h"
#include "prancheta/entities/register.h"

/// Drawing that is the working one while the test runs.
class EntityTest : public testing::Test {
protected:
    EntityTest() {
        prancheta::registerEntityClasses();
        acdbHostApplicationServices()->setWorkingDatabase(&database);
    }
    ~EntityTest() override { acdbHostApplicationServices()->setWorkingDatabase(nullptr); }

    /// New block with these entities, which it takes over.
    AcDbObjectId block(const wchar_t* name, std::initializer_list<AcDbEntity*> entities);
    AcDbObjectId layer(const wchar_t* name);
    /// Appends to model space and closes.
    AcDbObjectId append(AcDbEntity* entity);

    AcDbDatabase database;
};

/// What explode made; owns the entities.
class Pieces {
public:
    explicit Pieces(const AcDbEntity& entity) { status = entity.explode(m_all); }
    ~Pieces() {
        for (void* piece : m_all) delete static_cast<AcDbEntity*>(piece);
    }
    Pieces(const Pieces&) = delete;
    Pieces& operator=(const Pieces&) = delete;

    int count() const { return m_all.length(); }
    template <class T>
    T* as(int i) const {
        return i < count() ? T::cast(static_cast<AcDbEntity*>(m_all[i])) : nullptr;
    }

    Acad::ErrorStatus status = Acad::eOk;

private:
    AcDbVoidPtrArray m_all;
};

/// Text printed since the last call.
std::wstring takePrinted();

testing::AssertionResult near(const AcGePoint3d& a, const AcGePoint3d& b, double tolerance = 1e-9);

/// Copy through the same fields as undo and clone.
template <class T>
std::unique_ptr<T> copyOf(const T& entity) {
    AcDbEntity* copy = nullptr;
    EXPECT_EQ(entity.getTransformedCopy(AcGeMatrix3d::kIdentity, copy), Acad::eOk);
    return std::unique_ptr<T>(T::cast(copy));
}

/// Moved, turned, mirrored and scaled, then all of it taken back: draws what it drew.
void expectRoundTrip(AcDbEntity& entity);
