// SPDX-License-Identifier: MIT
// What AUDIT can put right.
#include "prancheta/editor/commands/audit_repairs.h"

#include <algorithm>
#include <optional>
#include <unordered_set>

#include "prancheta/base/text.h"
#include "prancheta/database/object_access.h"
#include "prancheta/dxf/kept_handles.h"
#include "prancheta/dxf/tag.h"
#include "prancheta/editor/editor.h"
#include "prancheta/entities/foreign_entity.h"
#include "prancheta/entities/record_users.h"

namespace prancheta::commands {

using Handles = std::unordered_set<Adesk::UInt64>;

Handles handlesOf(DatabaseCore& core) {
    Handles all;
    const StubPool& stubs = ObjectAccess::stubs(core);
    for (std::size_t i = 0; i < stubs.size(); ++i)
        if (stubs[i].object != nullptr && ObjectAccess::isAlive(*stubs[i].object))
            all.insert(stubs[i].handle);
    dxf::forEachKeptHandle(core, [&](Adesk::UInt64 handle) { all.insert(handle); });
    return all;
}

namespace {

bool isControl(char c) { return static_cast<unsigned char>(c) < 0x20 && c != '\t'; }

/// What was done to the groups, one text each.
std::vector<std::wstring> repair(RawTags& tags, const Handles& known) {
    std::vector<std::wstring> done;
    for (RawTag& tag : tags) {
        const std::wstring where = L" (código " + std::to_wstring(tag.code) + L").";
        Adesk::UInt64 handle = 0;
        if (isReference(tag.code) && dxf::parseHandle(tag.value, handle) && handle != 0 &&
            !known.contains(handle)) {
            done.push_back(L"a referência a \"" + toWide(trim(std::string_view(tag.value))) +
                           L"\", que não existe, foi anulada" + where);
            tag.value = "0";
        } else if (dxf::kindOf(tag.code) == dxf::ValueKind::Text &&
                   std::any_of(tag.value.begin(), tag.value.end(), isControl)) {
            std::replace_if(tag.value.begin(), tag.value.end(), isControl, ' ');
            done.push_back(L"caracteres de controle deram lugar a brancos" + where);
        }
    }
    return done;
}

/// A name that means nothing.
void dropNullEntries(RawTags& dictionary) {
    RawTags left;
    for (RawTag& tag : dictionary) {
        const bool entry = (tag.code == 350 || tag.code == 360) && tag.value == "0";
        if (entry && !left.empty() && left.back().code == 3)
            left.pop_back();
        else
            left.push_back(std::move(tag));
    }
    dictionary = std::move(left);
}

std::wstring titleOf(const AcDbObject& object) {
    const auto* const foreign = ForeignEntity::cast(&object);
    const ACHAR* const known = object.isA()->dxfName();
    const std::wstring type = foreign != nullptr ? toWide(foreign->typeName())
                              : known != nullptr ? std::wstring(known)
                                                 : std::wstring(object.isA()->name());
    return type + L" " + toWide(dxf::handleText(object.objectId().handle().value()));
}

/// What one object keeps.
class Repair {
public:
    Repair(const AcDbObject& object, const Handles& known) {
        // Of what was moved since its picture was drawn the groups go with that picture.
        const auto* const foreign = ForeignEntity::cast(&object);
        if (foreign != nullptr && foreign->sinceDrawn() == AcGeMatrix3d::kIdentity)
            take(m_content, foreign->tags(), known);
        if (const ObjectExtra* const extra = ObjectAccess::extra(object)) {
            take(m_xdata, extra->xdata, known);
            take(m_kept, extra->foreign, known);
        }
    }
    const std::vector<std::wstring>& done() const { return m_done; }
    /// The object is open for write.
    void apply(AcDbObject& object) {
        object.assertWriteEnabled();
        auto* const foreign = ForeignEntity::cast(&object);
        if (m_content) (void)foreign->setContent(foreign->typeName(), std::move(*m_content));
        if (m_xdata) ObjectAccess::makeExtra(object).xdata = *m_xdata;
        if (m_kept) ObjectAccess::makeExtra(object).foreign = std::move(*m_kept);
    }

private:
    void take(std::optional<RawTags>& changed, RawTags tags, const Handles& known) {
        const std::vector<std::wstring> done = repair(tags, known);
        if (done.empty()) return;
        changed = std::move(tags);
        m_done.insert(m_done.end(), done.begin(), done.end());
    }

    std::optional<RawTags> m_content;
    std::optional<RawTags> m_xdata;
    std::optional<RawTags> m_kept;
    std::vector<std::wstring> m_done;
};

}  // namespace

std::size_t repairKept(const CommandContext& context) {
    DatabaseCore& core = context.database().core();
    const Handles known = handlesOf(core);
    const StubPool& stubs = ObjectAccess::stubs(core);
    std::size_t count = 0;
    for (std::size_t i = 0; i < stubs.size(); ++i) {
        if (stubs[i].object == nullptr || !ObjectAccess::isAlive(*stubs[i].object)) continue;
        Repair repair(*stubs[i].object, known);
        if (repair.done().empty()) continue;
        const AcDbObjectPointer<AcDbObject> object(stubs[i].object->objectId(), AcDb::kForWrite);
        if (object.openStatus() != Acad::eOk) continue;
        const std::wstring name = titleOf(*object.object());
        repair.apply(*object.object());
        for (const std::wstring& each : repair.done()) say(context, name + L": " + each);
        count += repair.done().size();
    }
    return count;
}

std::size_t repairForeign(const CommandContext& context) {
    DatabaseCore& core = context.database().core();
    const Handles known = handlesOf(core);
    std::size_t count = 0;
    for (const std::wstring& each : repair(core.foreign().classes, known)) {
        say(context, L"CLASS: " + each);
        ++count;
    }
    for (RawTags& tags : core.foreign().objects) {
        const std::vector<std::wstring> done = repair(tags, known);
        const std::wstring name =
            toWide(tags.front().value + " " + dxf::handleText(dxf::ownHandle(tags)));
        for (const std::wstring& each : done) say(context, name + L": " + each);
        count += done.size();
        if (!done.empty() && tags.front().value == "DICTIONARY") dropNullEntries(tags);
    }
    return count;
}

}  // namespace prancheta::commands
