// SPDX-License-Identifier: MIT
// A drawing that is the working one while a test runs.
#pragma once

#include <gtest/gtest.h>

#include "piece.h"
#include "prancheta/database/object_access.h"
#include "prancheta/database/register.h"

class DatabaseTest : public testing::Test {
protected:
    DatabaseTest() {
        Piece::rxInit();
        acdbHostApplicationServices()->setWorkingDatabase(&database);
    }
    prancheta::DatabaseCore& core() { return database.core(); }
    prancheta::UndoLog& undo() { return database.core().undo(); }

    AcDbDatabase database;
};
