// SPDX-License-Identifier: MIT
// Macros that declare and define the run-time class of a C++ class.
#pragma once

#include "rxclass.h"

#define ACRX_DECLARE_MEMBERS(CLASS)                                       \
    AcRxClass* isA() const override;                                      \
    static AcRxClass* desc();                                             \
    static CLASS* cast(const AcRxObject* object) {                        \
        return object != nullptr && object->isKindOf(CLASS::desc())       \
                   ? static_cast<CLASS*>(const_cast<AcRxObject*>(object)) \
                   : nullptr;                                             \
    }                                                                     \
    static void rxInit()

#define ACRX_DEFINE_MEMBERS_WITH(CLASS, PARENT, CONSTRUCTOR, DXF_NAME, APP, PROXY_FLAGS)       \
    static AcRxClass* g_desc##CLASS = nullptr;                                                 \
    AcRxClass* CLASS::desc() { return g_desc##CLASS; }                                         \
    AcRxClass* CLASS::isA() const { return g_desc##CLASS; }                                    \
    void CLASS::rxInit() {                                                                     \
        g_desc##CLASS =                                                                        \
            newAcRxClass(L## #CLASS, PARENT::desc(), CONSTRUCTOR, DXF_NAME, APP, PROXY_FLAGS); \
    }

/// Abstract class.
#define ACRX_NO_CONS_DEFINE_MEMBERS(CLASS, PARENT) \
    ACRX_DEFINE_MEMBERS_WITH(CLASS, PARENT, nullptr, nullptr, nullptr, 0)

/// Class that can be made but is not filed.
#define ACRX_CONS_DEFINE_MEMBERS(CLASS, PARENT, VERNO) \
    ACRX_DEFINE_MEMBERS_WITH(                          \
        CLASS, PARENT, []() -> AcRxObject* { return new CLASS; }, nullptr, nullptr, 0)

/// Class that is filed under its own name. DXF_NAME and APP are given without prefix and quotes as
/// the SDK wants them: DXF_NAME an identifier, APP a narrow text.
#define ACRX_DXF_DEFINE_MEMBERS(CLASS, PARENT, DWG_VERSION, MAINT_VERSION, PROXY_FLAGS, DXF_NAME, \
                                APP)                                                              \
    ACRX_DEFINE_MEMBERS_WITH(                                                                     \
        CLASS, PARENT, []() -> AcRxObject* { return new CLASS; }, L## #DXF_NAME, L##APP,          \
        PROXY_FLAGS)
