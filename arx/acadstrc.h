// SPDX-License-Identifier: MIT
// Status codes of the object interface.
#pragma once

#include "adesk.h"

namespace Acad {
/// Result of an operation on the drawing database; `eOk` is success, all others are failures.
enum ErrorStatus {
    eOk = 0,
    eNotImplementedYet = 1,
    eNotApplicable = 2,
    eInvalidInput = 3,
    eOutOfMemory = 6,
    eBufferTooSmall = 7,
    eNullObjectPointer = 15,
    eNullObjectId = 16,
    eNullEntityPointer = 20,
    eKeyNotFound = 22,
    eDuplicateKey = 23,
    eInvalidIndex = 24,
    eAlreadyInDb = 26,
    eInvalidAdsName = 31,
    eInvalidKey = 33,
    eWrongObjectType = 34,
    eWrongDatabase = 35,
    eNotOpenForRead = 44,
    eNotOpenForWrite = 45,
    eNotThatKindOfClass = 46,
    eMissingDxfField = 48,
    eFilerError = 51,
    eBadDxfSequence = 52,
    eWasErased = 80,
    eWasOpenForRead = 82,
    eWasOpenForWrite = 83,
    eWasNotifying = 85,
    eOnLockedLayer = 87,
    eAtMaxReaders = 90,
    eIsWriteProtected = 91,
    eNotAnEntity = 93,
    eDuplicateRecordName = 95,
    eMissingSymbolTable = 98,
    eWasNotErased = 107,
    eNoDatabase = 124,
    eRegappIdNotFound = 126,
    eCannotScaleNonUniformly = 136,
    eOutOfRange = 151,
    eDegenerateGeometry = 153,
    eCannotExplodeEntity = 159,
    eInvalidLayer = 173,
    eUserBreak = 180,
};
}  // namespace Acad

/// Name of a status as text ("eOk", "eNullObjectId", ...); never null.
const ACHAR* acadErrorStatusText(Acad::ErrorStatus es);
