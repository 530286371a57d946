// SPDX-License-Identifier: MIT
// Run-time description of a class.
#pragma once

#include "rxobject.h"

class AcRxClass : public AcRxObject {
public:
    /// Makes an object by the default constructor; null for a class without one.
    using Constructor = AcRxObject* (*)();

    AcRxClass(const ACHAR* name, AcRxClass* parent, Constructor constructor, const ACHAR* dxfName,
              const ACHAR* appName, int proxyFlags);
    ~AcRxClass() override;
    AcRxClass(const AcRxClass&) = delete;
    AcRxClass& operator=(const AcRxClass&) = delete;

    const ACHAR* name() const { return m_name; }
    /// Null when the class is not filed on its own.
    const ACHAR* dxfName() const { return m_dxfName; }
    const ACHAR* appName() const { return m_appName; }
    int proxyFlags() const { return m_proxyFlags; }
    AcRxClass* myParent() const { return m_parent; }
    bool isDerivedFrom(const AcRxClass* other) const;
    AcRxObject* create();

    /// Attaches `extension` (kept by pointer, owned by the caller) for `protocol`; returns the
    /// former one.
    AcRxObject* addX(AcRxClass* protocol, AcRxObject* extension);
    AcRxObject* delX(AcRxClass* protocol);
    /// Extension of this class or of its nearest parent that has one; null when none.
    AcRxObject* getX(const AcRxClass* protocol) const;

    AcRxClass* isA() const override;
    static AcRxClass* desc();
    static AcRxClass* cast(const AcRxObject* object);
    static void rxInit();

private:
    struct Extension {
        const AcRxClass* protocol;
        AcRxObject* object;
        Extension* next;
    };

    const ACHAR* m_name;
    AcRxClass* m_parent;
    Constructor m_constructor;
    const ACHAR* m_dxfName;
    const ACHAR* m_appName;
    int m_proxyFlags;
    Extension* m_extensions = nullptr;
};

/// Enters a class in the class dictionary. A class of this name that is there already is returned
/// as it is.
AcRxClass* newAcRxClass(const ACHAR* name, AcRxClass* parent,
                        AcRxClass::Constructor constructor = nullptr,
                        const ACHAR* dxfName = nullptr, const ACHAR* appName = nullptr,
                        int proxyFlags = 0);

/// Takes a class out of the dictionary and deletes it; children go before their parents: a class
/// that still has some stays.
void deleteAcRxClass(AcRxClass* aClass);

/// To be called after rxInit of a module's classes.
void acrxBuildClassHierarchy();
