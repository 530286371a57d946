// SPDX-License-Identifier: MIT
// Drawings of damaged files made whole.
#include "prancheta/editor/commands/recover_repairs.h"

#include <algorithm>
#include <unordered_map>
#include <unordered_set>

#include "prancheta/base/text.h"
#include "prancheta/database/names.h"
#include "prancheta/database/object_access.h"
#include "prancheta/dxf/kept_handles.h"
#include "prancheta/dxf/tag.h"
#include "prancheta/editor/commands/audit_repairs.h"
#include "prancheta/editor/editor.h"
#include "prancheta/entities/block_content.h"
#include "prancheta/entities/foreign_entity.h"

namespace prancheta::commands {

namespace {

using Owners = std::unordered_map<Adesk::UInt64, Adesk::UInt64>;

bool isDictionary(const RawTags& object) {
    return object.front().value == "DICTIONARY" || object.front().value == "ACDBDICTIONARYWDFLT";
}

std::wstring titleOf(const RawTags& object) {
    return toWide(object.front().value + " " + dxf::handleText(dxf::ownHandle(object)));
}

/// The dictionary that names each object, kept ones and those that the host has as objects.
Owners namingDictionaries(DatabaseCore& core) {
    Owners owners;
    const StubPool& stubs = ObjectAccess::stubs(core);
    for (std::size_t i = 0; i < stubs.size(); ++i) {
        const auto* const dictionary = AcDbDictionary::cast(stubs[i].object);
        if (dictionary == nullptr || !ObjectAccess::isAlive(*dictionary)) continue;
        for (const auto& [key, id] : ObjectAccess::entries(*dictionary))
            owners.try_emplace(id.handle().value(), stubs[i].handle);
    }
    for (const RawTags& object : core.foreign().objects) {
        if (!isDictionary(object)) continue;
        for (const RawTag& tag : object) {
            Adesk::UInt64 handle = 0;
            if ((tag.code == 350 || tag.code == 360) && dxf::parseHandle(tag.value, handle))
                owners.try_emplace(handle, dxf::ownHandle(object));
        }
    }
    return owners;
}

void setOwner(RawTags& object, Adesk::UInt64 owner) {
    bool inGroup = false;
    for (RawTag& tag : object) {
        if (tag.code == 100) return;
        if (tag.code == 102) inGroup = tag.value != "}";
        if (tag.code == 330 && !inGroup) tag.value = dxf::handleText(owner);
    }
}

/// Objects that nothing names and whose owner is not there: nobody would find them. Those that a
/// dictionary names are its own. One that goes may leave others alone.
std::size_t settleOwners(const CommandContext& context) {
    DatabaseCore& core = context.database().core();
    std::vector<RawTags>& objects = core.foreign().objects;
    std::size_t count = 0;
    for (std::size_t before = objects.size() + 1; objects.size() < before;) {
        before = objects.size();
        const Owners owners = namingDictionaries(core);
        const std::unordered_set<Adesk::UInt64> known = handlesOf(core);
        std::erase_if(objects, [&](RawTags& object) {
            const Adesk::UInt64 own = dxf::ownHandle(object);
            const auto named = own != 0 ? owners.find(own) : owners.end();
            const Adesk::UInt64 said = dxf::ownerHandle(object);
            const bool isThere = own != 0 && said != 0 && known.contains(said);
            if (named == owners.end() && isThere) return false;
            if (named != owners.end() && named->second == said) return false;
            const bool isShared =
                isThere && !isDictionary(object) && object.front().value != "LAYOUT";
            if (named != owners.end() && isShared) return false;  // several may name it
            ++count;
            say(context, titleOf(object) + (named != owners.end()
                                                ? L": o dono é o dicionário que o nomeia."
                                                : L": nada o nomeia; foi deixado de fora."));
            if (named != owners.end()) setOwner(object, named->second);
            return named == owners.end();
        });
    }
    return count;
}

/// A block on the way from an outer to an inner one.
struct Opened {
    AcDbObjectId block;
    std::vector<AcDbObjectId> content;
    std::size_t next = 0;
};

Opened opened(AcDbObjectId block) {
    const AcDbStub* const stub = block;
    return {block, ObjectAccess::entities(static_cast<const AcDbBlockTableRecord&>(*stub->object)),
            0};
}

/// References that close a circle of blocks, found depth first, without recursion however deep the
/// blocks lie. O(entities).
std::size_t breakCircles(const CommandContext& context) {
    enum class State { Unseen, Open, Done };
    std::unordered_map<const AcDbStub*, State> states;
    std::vector<Opened> way;
    std::size_t count = 0;
    const auto begin = [&](AcDbObjectId block) {
        states[block] = State::Open;
        way.push_back(opened(block));
    };
    const AcDbStub* const table = context.database().blockTableId();
    for (const AcDbObjectId first :
         ObjectAccess::records(static_cast<const AcDbSymbolTable&>(*table->object))) {
        if (!first.isErased() && states[first] == State::Unseen) begin(first);
        while (!way.empty()) {
            Opened& top = way.back();
            if (top.next == top.content.size()) {
                states[top.block] = State::Done;
                way.pop_back();
                continue;
            }
            const AcDbObjectPointer<AcDbEntity> entity(top.content[top.next++], AcDb::kForRead);
            if (entity.openStatus() != Acad::eOk) continue;
            const AcDbObjectId shown = blockShownBy(*entity.object());
            if (shown.isNull() || states[shown] == State::Done) continue;
            if (states[shown] == State::Unseen) {
                begin(shown);
            } else if (entity->upgradeOpen() == Acad::eOk && entity->erase() == Acad::eOk) {
                say(context, L"o bloco \"" + ObjectAccess::recordName(shown) +
                                 L"\" contém a si mesmo; a referência foi deixada de fora.");
                ++count;
            }
        }
    }
    return count;
}

/// Tables that nothing can belong to any more are made anew.
std::size_t dropNamelessTables(const CommandContext& context) {
    auto& tables = context.database().core().foreign().tables;
    return std::erase_if(tables, [&](const auto& table) {
        const RawTags& tags = table.second;
        const auto end = std::find_if(tags.begin() + 1, tags.end(),
                                      [](const RawTag& tag) { return tag.code == 0; });
        if (std::find_if(tags.begin(), end, [](const RawTag& tag) { return tag.code == 5; }) != end)
            return false;
        say(context,
            L"a tabela " + toWide(table.first) + L" perdeu o identificador; foi deixada de fora.");
        return true;
    });
}

/// Names with characters that none may have.
std::size_t repairNames(const CommandContext& context) {
    AcDbDatabase& database = context.database();
    std::size_t count = 0;
    for (const AcDbObjectId tableId :
         {database.blockTableId(), database.layerTableId(), database.linetypeTableId(),
          database.textStyleTableId(), database.dimStyleTableId(), database.regAppTableId()}) {
        const AcDbStub* const stub = tableId;
        const auto& table = static_cast<const AcDbSymbolTable&>(*stub->object);
        const bool isBlock = tableId == database.blockTableId();
        for (const AcDbObjectId id : ObjectAccess::records(table)) {
            const std::wstring former = ObjectAccess::recordName(id);
            if (id.isErased() || isValidName(former, isBlock) || isReservedName(former)) continue;
            std::wstring name = former.empty() ? L"SEM_NOME" : former;
            for (wchar_t& c : name)
                if (!isValidName(std::wstring(1, c), false)) c = L'_';
            while (!ObjectAccess::lookup(table, name).isNull()) name += L'_';
            const AcDbObjectPointer<AcDbSymbolTableRecord> record(id, AcDb::kForWrite);
            if (record.openStatus() != Acad::eOk) continue;
            ObjectAccess::setName(*record.object(), name);
            say(context,
                L"o nome \"" + former + L"\" tem caracteres proibidos; agora é \"" + name + L"\".");
            ++count;
        }
    }
    return count;
}

/// The entity with this handle, or of which that is a part.
AcDbObjectId entityWith(AcDbDatabase& database, Adesk::UInt64 handle) {
    AcDbObjectId id;
    if (database.getAcDbObjectId(id, false, AcDbHandle(handle)) == Acad::eOk) return id;
    const std::string own = dxf::handleText(handle);
    const StubPool& stubs = ObjectAccess::stubs(database.core());
    for (std::size_t i = 0; i < stubs.size(); ++i) {
        const auto* const entity = ForeignEntity::cast(stubs[i].object);
        if (entity == nullptr || stubs[i].erased) continue;
        const RawTags tags = entity->tags();
        for (const RawTag& tag : tags)
            if (tag.code == 5 && tag.value == own) return entity->objectId();
    }
    return {};
}

/// An entity, a kept object or a whole kept table.
bool leaveOut(AcDbDatabase& database, const verify::Remark& remark) {
    if (const AcDbObjectId id = entityWith(database, remark.handle); !id.isNull()) {
        const AcDbObjectPointer<AcDbEntity> entity(id, AcDb::kForWrite);
        if (entity.openStatus() == Acad::eOk && entity->erase() == Acad::eOk) return true;
        // A linetype that its file tells in more groups than the host reads, and wrongly.
        const AcDbObjectPointer<AcDbLinetypeTableRecord> linetype(id, AcDb::kForWrite);
        if (linetype.openStatus() == Acad::eOk && ObjectAccess::extra(*linetype.object())) {
            RawTags& kept = ObjectAccess::makeExtra(*linetype.object()).foreign;
            if (!kept.empty()) return kept.clear(), true;
        }
    }
    ForeignContent& foreign = database.core().foreign();
    const auto isIt = [&](const RawTags& tags) { return dxf::ownHandle(tags) == remark.handle; };
    if (std::erase_if(foreign.objects, isIt) > 0) return true;
    const std::string own = dxf::handleText(remark.handle);
    return std::erase_if(foreign.tables, [&](const auto& table) {
               const RawTags& tags = table.second;
               return std::any_of(tags.begin(), tags.end(), [&](const RawTag& tag) {
                   return tag.code == 5 && tag.value == own;
               });
           }) > 0;
}

/// What strict readers would refuse of the drawing's file. One that goes may show another.
std::size_t leaveOutFaulty(const CommandContext& context) {
    constexpr int kRounds = 4;
    std::size_t count = 0;
    for (int round = 0; round < kRounds; ++round) {
        const Result<verify::Verdict> verdict = examineDrawing(context);
        if (!verdict || verdict->errors == 0) break;
        std::size_t gone = 0;
        for (verify::Remark remark : verdict->remarks) {
            if (remark.severity != verify::Severity::Error || remark.handle == 0) continue;
            if (!leaveOut(context.database(), remark)) continue;
            remark.line = 0;  // of a file that nobody sees
            say(context, toWide(remark.message()) + L"; foi deixado de fora.");
            ++gone;
        }
        if (gone == 0) break;
        count += gone;
        count += repairKept(context);
        count += repairForeign(context);
    }
    return count;
}

}  // namespace

std::size_t repairRecovered(const CommandContext& context) {
    std::size_t count = breakCircles(context);
    count += dropNamelessTables(context);
    count += settleOwners(context);
    count += repairNames(context);
    count += repairKept(context);
    count += repairForeign(context);
    return count + leaveOutFaulty(context);
}

}  // namespace prancheta::commands
