// SPDX-License-Identifier: MIT
// A drawing that is the working one while a test runs.
#pragma once

#include <gtest/gtest.h>

#include "piece.h"
#include "prancheta/base/text.h"
#include "prancheta/database/memory_filer.h"
#include "prancheta/database/object_access.h"

#include "prancheta/database/register.h"
#include "prancheta/database/value_list.h"

using prancheta::ObjectAccess;
using prancheta::toUtf8;

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
