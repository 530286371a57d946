// SPDX-License-Identifier: MIT
// What the tests of drawings read and expect alike.
#pragma once

#include <gtest/gtest.h>

#include "dbents.h"

namespace tests {

/// The entity opened for reading; fails the test when it is of another class.
template <class T>
class Read : public AcDbObjectPointer<T> {
public:
    explicit Read(AcDbObjectId id) : AcDbObjectPointer<T>(id, AcDb::kForRead) {
        EXPECT_EQ(this->openStatus(), Acad::eOk);
    }
};

inline void expectPoint(const AcGePoint3d& p, double x, double y, double z = 0.0) {
    EXPECT_NEAR(p.x, x, 1e-9);
    EXPECT_NEAR(p.y, y, 1e-9);
    EXPECT_NEAR(p.z, z, 1e-9);
}

}  // namespace tests
