// SPDX-License-Identifier: MIT
// Dictionaries of run-time objects, found by name without regard to case.
#pragma once

#include "rxboiler.h"

class AcRxDictionary : public AcRxObject {
public:
    ACRX_DECLARE_MEMBERS(AcRxDictionary);

    /// Null when there is no such key.
    virtual AcRxObject* at(const ACHAR* key) const = 0;
    /// Keeps the object by pointer; returns the one that stood there.
    virtual AcRxObject* atPut(const ACHAR* key, AcRxObject* object) = 0;
    virtual AcRxObject* remove(const ACHAR* key) = 0;
};

AcRxDictionary* acrxSysRegistry();
AcRxDictionary* acrxClassDictionaryFunction();
#define acrxClassDictionary acrxClassDictionaryFunction()
