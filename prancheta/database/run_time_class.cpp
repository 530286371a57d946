// SPDX-License-Identifier: MIT
// Run-time classes, their dictionary and the system registry.
#include <algorithm>
#include <string>
#include <unordered_map>
#include <utility>

#include "prancheta/base/text.h"
#include "prancheta/database/register.h"
#include "rxdict.h"

using namespace prancheta;

namespace {

AcRxClass* g_objectClass = nullptr;
AcRxClass* g_classClass = nullptr;

class Dictionary : public AcRxDictionary {
public:
    AcRxObject* at(const ACHAR* key) const override {
        const auto found = key != nullptr ? m_items.find(foldCase(key)) : m_items.end();
        return found != m_items.end() ? found->second : nullptr;
    }
    AcRxObject* atPut(const ACHAR* key, AcRxObject* object) override {
        if (key == nullptr) return nullptr;
        return std::exchange(m_items[foldCase(key)], object);
    }
    AcRxObject* remove(const ACHAR* key) override {
        const auto found = key != nullptr ? m_items.find(foldCase(key)) : m_items.end();
        if (found == m_items.end()) return nullptr;
        AcRxObject* object = found->second;
        m_items.erase(found);
        return object;
    }

private:
    std::unordered_map<std::wstring, AcRxObject*> m_items;
};

std::vector<AcRxClass*>& classList() {
    static std::vector<AcRxClass*> list;
    return list;
}

}  // namespace

// Registry and class dictionary are never destroyed: modules may still ask for them while the
// process ends.
AcRxDictionary* acrxSysRegistry() {
    static auto* registry = new Dictionary;
    return registry;
}

AcRxDictionary* acrxClassDictionaryFunction() {
    static auto* classes = new Dictionary;
    return classes;
}

ACRX_NO_CONS_DEFINE_MEMBERS(AcRxDictionary, AcRxObject)

AcRxClass* AcRxObject::isA() const { return g_objectClass; }
AcRxClass* AcRxObject::desc() { return g_objectClass; }
AcRxObject* AcRxObject::cast(const AcRxObject* object) { return const_cast<AcRxObject*>(object); }
void AcRxObject::rxInit() { g_objectClass = newAcRxClass(L"AcRxObject", nullptr); }

bool AcRxObject::isKindOf(const AcRxClass* aClass) const {
    const AcRxClass* own = isA();
    return own != nullptr && own->isDerivedFrom(aClass);
}

AcRxObject* AcRxObject::x(const AcRxClass* protocol) const {
    const AcRxClass* own = isA();
    return own != nullptr ? own->getX(protocol) : nullptr;
}

AcRxClass::AcRxClass(const ACHAR* name, AcRxClass* parent, Constructor constructor,
                     const ACHAR* dxfName, const ACHAR* appName, int proxyFlags)
    : m_name(name),
      m_parent(parent),
      m_constructor(constructor),
      m_dxfName(dxfName),
      m_appName(appName),
      m_proxyFlags(proxyFlags) {}

AcRxClass::~AcRxClass() {
    while (m_extensions != nullptr) delete std::exchange(m_extensions, m_extensions->next);
}

AcRxClass* AcRxClass::isA() const { return g_classClass; }
AcRxClass* AcRxClass::desc() { return g_classClass; }
void AcRxClass::rxInit() { g_classClass = newAcRxClass(L"AcRxClass", AcRxObject::desc()); }

AcRxClass* AcRxClass::cast(const AcRxObject* object) {
    if (object == nullptr || !object->isKindOf(g_classClass)) return nullptr;
    return static_cast<AcRxClass*>(const_cast<AcRxObject*>(object));
}

bool AcRxClass::isDerivedFrom(const AcRxClass* other) const {
    if (other == nullptr) return false;
    for (const AcRxClass* c = this; c != nullptr; c = c->m_parent)
        if (c == other) return true;
    return false;
}

AcRxObject* AcRxClass::create() { return m_constructor != nullptr ? m_constructor() : nullptr; }

AcRxObject* AcRxClass::addX(AcRxClass* protocol, AcRxObject* extension) {
    for (Extension* e = m_extensions; e != nullptr; e = e->next)
        if (e->protocol == protocol) return std::exchange(e->object, extension);
    m_extensions = new Extension{protocol, extension, m_extensions};
    return nullptr;
}

AcRxObject* AcRxClass::delX(AcRxClass* protocol) {
    for (Extension** at = &m_extensions; *at != nullptr; at = &(*at)->next) {
        if ((*at)->protocol != protocol) continue;
        Extension* gone = std::exchange(*at, (*at)->next);
        AcRxObject* object = gone->object;
        delete gone;
        return object;
    }
    return nullptr;
}

AcRxObject* AcRxClass::getX(const AcRxClass* protocol) const {
    for (const AcRxClass* c = this; c != nullptr; c = c->m_parent)
        for (const Extension* e = c->m_extensions; e != nullptr; e = e->next)
            if (e->protocol == protocol) return e->object;
    return nullptr;
}

AcRxClass* newAcRxClass(const ACHAR* name, AcRxClass* parent, AcRxClass::Constructor constructor,
                        const ACHAR* dxfName, const ACHAR* appName, int proxyFlags) {
    if (AcRxObject* known = acrxClassDictionary->at(name)) return static_cast<AcRxClass*>(known);
    auto* made = new AcRxClass(name, parent, constructor, dxfName, appName, proxyFlags);
    acrxClassDictionary->atPut(name, made);
    classList().push_back(made);
    return made;
}

void deleteAcRxClass(AcRxClass* aClass) {
    auto& list = classList();
    const auto at = std::find(list.begin(), list.end(), aClass);
    if (at == list.end()) return;
    for (const AcRxClass* other : list)
        if (other->myParent() == aClass) return;
    acrxClassDictionary->remove(aClass->name());
    list.erase(at);
    delete aClass;
}

// Classes know their parents from the moment they are made.
void acrxBuildClassHierarchy() {}

namespace prancheta {

const std::vector<AcRxClass*>& allClasses() { return classList(); }

AcRxClass* classOfDxfName(std::wstring_view dxfName) {
    for (AcRxClass* c : classList())
        if (c->dxfName() != nullptr && equalNoCase(c->dxfName(), dxfName)) return c;
    return nullptr;
}

}  // namespace prancheta
