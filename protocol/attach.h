// SPDX-License-Identifier: MIT
// How a module attaches its answers to one of its classes. One place, because hosts differ in how a
// run-time class is made.
#pragma once

#include "rxclass.h"
#include "rxdict.h"

namespace protocol {

/// The run-time class that stands for a protocol; null while no module has made it.
inline AcRxClass* classOf(const ACHAR* protocol) {
    return AcRxClass::cast(acrxClassDictionary->at(protocol));
}

/// What answers for the object under a protocol, an `Extension`; null when nothing does.
template <class Extension>
const Extension* extensionOf(const AcRxObject& object, const ACHAR* protocol) {
    const AcRxClass* const kind = classOf(protocol);
    return kind == nullptr ? nullptr : static_cast<const Extension*>(object.x(kind));
}

/// `extension` answers for objects of the class from now on; it is kept by pointer. Nothing happens
/// when the class is not there.
inline void attach(AcRxClass* to, const ACHAR* protocol, AcRxObject& extension) {
    AcRxClass* const kind = newAcRxClass(protocol, AcRxObject::desc());
    if (kind != nullptr && to != nullptr) to->addX(kind, &extension);
}

inline void detach(AcRxClass* from, const ACHAR* protocol) {
    AcRxClass* const kind = classOf(protocol);
    if (kind != nullptr && from != nullptr) from->delX(kind);
}

/// The protocol's name lies in the module that named it first, so its class must not outlive that
/// module: it goes after those that are linked to it have detached theirs.
inline void retire(const ACHAR* protocol) {
    if (AcRxClass* const kind = classOf(protocol)) deleteAcRxClass(kind);
}

}  // namespace protocol
