// SPDX-License-Identifier: MIT
// Enumerations of the drawing database.
#pragma once

#include "acadstrc.h"

namespace AcDb {
/// Many readers or one writer at a time; kForNotify coexists with both.
enum OpenMode { kForRead = 0, kForWrite = 1, kForNotify = 2 };

enum OsnapMode {
    kOsModeEnd = 1,
    kOsModeMid = 2,
    kOsModeCen = 3,
    kOsModeNode = 4,
    kOsModeQuad = 5,
    kOsModeIns = 7,
    kOsModePerp = 8,
    kOsModeTan = 9,
    kOsModeNear = 10,
};

enum FilerType {
    kFileFiler = 0,
    kCopyFiler = 1,
    kUndoFiler = 2,
    kBagFiler = 3,
    kIdXlateFiler = 4,
    kPageFiler = 5,
    kDeepCloneFiler = 6,
    kIdFiler = 7,
    kPurgeFiler = 8,
    kWblockCloneFiler = 9,
};

enum Visibility { kInvisible = 1, kVisible = 0 };

/// Hundredths of a millimetre, or one of the three special values.
enum LineWeight : Adesk::Int16 {
    kLnWtByLwDefault = -3,
    kLnWtByBlock = -2,
    kLnWtByLayer = -1,
    kLnWt000 = 0,
    kLnWt013 = 13,
    kLnWt018 = 18,
    kLnWt025 = 25,
    kLnWt035 = 35,
    kLnWt050 = 50,
    kLnWt070 = 70,
    kLnWt100 = 100,
    kLnWt211 = 211,
};

/// Group codes used by entity code; any other code is given as a plain number.
enum DxfCode : int {
    kDxfInvalid = -9999,
    kDxfEnd = -1,
    kDxfStart = 0,
    kDxfText = 1,
    kDxfBlockName = 2,
    kDxfHandle = 5,
    kDxfLinetypeName = 6,
    kDxfTextStyleName = 7,
    kDxfLayerName = 8,
    kDxfXCoord = 10,
    kDxfYCoord = 20,
    kDxfZCoord = 30,
    kDxfReal = 40,
    kDxfAngle = 50,
    kDxfColor = 62,
    kDxfInt16 = 70,
    kDxfInt32 = 90,
    kDxfSubclass = 100,
    kDxfControlString = 102,
    kDxfNormalX = 210,
    kDxfBool = 290,
    kDxfSoftPointerId = 330,
    kDxfHardPointerId = 340,
    kDxfSoftOwnershipId = 350,
    kDxfHardOwnershipId = 360,
    kDxfXdAsciiString = 1000,
    kDxfRegAppName = 1001,
    kDxfXdControlString = 1002,
    kDxfXdLayerName = 1003,
    kDxfXdBinaryChunk = 1004,
    kDxfXdHandle = 1005,
    kDxfXdXCoord = 1010,
    kDxfXdWorldXCoord = 1011,
    kDxfXdWorldXDisp = 1012,
    kDxfXdWorldXDir = 1013,
    kDxfXdReal = 1040,
    kDxfXdDist = 1041,
    kDxfXdScale = 1042,
    kDxfXdInteger16 = 1070,
    kDxfXdInteger32 = 1071,
};

/// Group that a restype or group code belongs to, by its value's kind.
enum DwgDataType {
    kDwgNull = 0,
    kDwgReal,
    kDwgInt32,
    kDwgInt16,
    kDwgInt8,
    kDwgText,
    kDwg3Real,
    kDwgHandle,
};

enum AcDbDwgVersion { kDHL_1015 = 23, kDHL_1021 = 27, kDHL_CURRENT = 29 };
enum MaintenanceReleaseVersion { kMRelease0 = 0, kMReleaseCurrent = 0 };
}  // namespace AcDb

#define ACDB_MODEL_SPACE L"*Model_Space"
#define ACDB_PAPER_SPACE L"*Paper_Space"
