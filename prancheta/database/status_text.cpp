// SPDX-License-Identifier: MIT
// Names of status codes.
#include <algorithm>
#include <iterator>

#include "acadstrc.h"

namespace {

struct StatusName {
    Acad::ErrorStatus status;
    const ACHAR* name;
};

#define STATUS(NAME) \
    { Acad::NAME, L## #NAME }
const StatusName kNames[] = {
    STATUS(eOk),
    STATUS(eNotImplementedYet),
    STATUS(eNotApplicable),
    STATUS(eInvalidInput),
    STATUS(eOutOfMemory),
    STATUS(eBufferTooSmall),
    STATUS(eNullObjectPointer),
    STATUS(eNullObjectId),
    STATUS(eNullEntityPointer),
    STATUS(eKeyNotFound),
    STATUS(eDuplicateKey),
    STATUS(eInvalidIndex),
    STATUS(eAlreadyInDb),
    STATUS(eInvalidAdsName),
    STATUS(eInvalidKey),
    STATUS(eWrongObjectType),
    STATUS(eWrongDatabase),
    STATUS(eNotOpenForRead),
    STATUS(eNotOpenForWrite),
    STATUS(eNotThatKindOfClass),
    STATUS(eMissingDxfField),
    STATUS(eFilerError),
    STATUS(eBadDxfSequence),
    STATUS(eWasErased),
    STATUS(eWasOpenForRead),
    STATUS(eWasOpenForWrite),
    STATUS(eWasNotifying),
    STATUS(eOnLockedLayer),
    STATUS(eAtMaxReaders),
    STATUS(eIsWriteProtected),
    STATUS(eNotAnEntity),
    STATUS(eDuplicateRecordName),
    STATUS(eMissingSymbolTable),
    STATUS(eWasNotErased),
    STATUS(eNoDatabase),
    STATUS(eRegappIdNotFound),
    STATUS(eCannotScaleNonUniformly),
    STATUS(eOutOfRange),
    STATUS(eDegenerateGeometry),
    STATUS(eCannotExplodeEntity),
    STATUS(eInvalidLayer),
    STATUS(eUserBreak),
};
#undef STATUS

}  // namespace

const ACHAR* acadErrorStatusText(Acad::ErrorStatus es) {
    const auto at = std::find_if(std::begin(kNames), std::end(kNames),
                                 [es](const StatusName& n) { return n.status == es; });
    return at != std::end(kNames) ? at->name : L"Unknown ErrorStatus";
}
