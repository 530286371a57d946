// SPDX-License-Identifier: MIT
// Root of all classes known at run time.
#pragma once

#include "acadstrc.h"
#include "rxdefs.h"

class AcRxClass;

class AcRxObject {
public:
    virtual ~AcRxObject() = default;

    virtual AcRxClass* isA() const;
    /// True when this object's class is `aClass` or derives from it.
    bool isKindOf(const AcRxClass* aClass) const;
    /// Protocol extension of this object's class (or of the nearest parent that has one) for
    /// `protocol`.
    AcRxObject* x(const AcRxClass* protocol) const;

    static AcRxClass* desc();
    static AcRxObject* cast(const AcRxObject* object);
    static void rxInit();

protected:
    AcRxObject() = default;
};
