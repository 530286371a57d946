// SPDX-License-Identifier: MIT
// What commands about blocks and other drawings share.
#include "prancheta/editor/commands/blocks.h"

#include <algorithm>
#include <unordered_set>

#include "prancheta/base/symbol_name.h"
#include "prancheta/base/text.h"
#include "prancheta/database/deep_clone.h"
#include "prancheta/database/names.h"
#include "prancheta/database/object_access.h"
#include "prancheta/editor/editor.h"
#include "prancheta/entities/block_content.h"

namespace prancheta::commands {

Ids contentOf(AcDbObjectId block) {
    const AcDbObjectPointer<AcDbBlockTableRecord> record(block, AcDb::kForRead);
    if (record.openStatus() != Acad::eOk) return {};
    Ids ids = ObjectAccess::entities(*record.object());
    std::erase_if(ids, [](const AcDbObjectId& id) { return id.isErased(); });
    return ids;
}

void sayFollowing(const CommandContext& context, AcDbObjectId block) {
    const AcDbObjectPointer<AcDbBlockTable> table(context.database().blockTableId(),
                                                  AcDb::kForRead);
    if (table.openStatus() != Acad::eOk) return;
    std::size_t count = 0;
    for (const AcDbObjectId& owner : ObjectAccess::records(*table.object())) {
        if (owner.isErased()) continue;
        for (const AcDbObjectId& id : contentOf(owner)) {
            const AcDbObjectPointer<AcDbEntity> entity(id, AcDb::kForRead);
            if (entity.openStatus() == Acad::eOk && blockShownBy(*entity.object()) == block)
                ++count;
        }
    }
    if (count > 0)
        say(context, counted(count, L"inserção segue a nova definição; os seus atributos ficam.",
                             L"inserções seguem a nova definição; os seus atributos ficam."));
}

Ids cloneFrom(const CommandContext& context, const Ids& ids, AcDbObjectId owner,
              std::size_t& left) {
    AcDbObjectIdArray originals;
    for (const AcDbObjectId& id : ids) originals.append(id);
    AcDbObjectIdArray made;
    if (cloneAcross(originals, owner, made, left) != Acad::eOk)
        say(context, L"Os objetos não puderam ser copiados.");
    Ids copies(made.begin(), made.end());
    std::erase(copies, AcDbObjectId::kNull);
    return copies;
}

void sayLeft(const CommandContext& context, std::size_t left) {
    if (left == 0) return;
    say(context,
        counted(left, L"objeto não foi copiado: depende de dados que só o arquivo dele guarda.",
                L"objetos não foram copiados: dependem de dados que só o arquivo deles guarda."));
}

AcDbObjectId blockNamed(const CommandContext& context, std::wstring_view name) {
    return ObjectAccess::lookup(context.database().blockTableId(), name);
}

bool showsBlock(const Ids& ids, AcDbObjectId block) {
    std::vector<AcDbStub*> open;
    std::unordered_set<AcDbStub*> known;
    const auto look = [&](const Ids& entities) {
        for (const AcDbObjectId& id : entities) {
            const AcDbObjectPointer<AcDbEntity> entity(id, AcDb::kForRead);
            if (entity.openStatus() != Acad::eOk) continue;
            AcDbStub* const shown = blockShownBy(*entity.object());
            if (shown != nullptr && known.insert(shown).second) open.push_back(shown);
        }
    };
    look(ids);
    while (!open.empty() && !known.contains(block)) {
        AcDbStub* const next = open.back();
        open.pop_back();
        look(contentOf(AcDbObjectId(next)));
    }
    return known.contains(block);
}

void listBlocks(const CommandContext& context) {
    const AcDbObjectPointer<AcDbBlockTable> table(context.database().blockTableId(),
                                                  AcDb::kForRead);
    std::size_t count = 0;
    if (table.openStatus() == Acad::eOk)
        for (const AcDbObjectId& id : ObjectAccess::records(*table.object())) {
            const std::wstring name = ObjectAccess::recordName(id);
            if (id.isErased() || name.starts_with(L'*')) continue;
            say(context, L"  " + name);
            ++count;
        }
    say(context, counted(count, L"bloco no desenho.", L"blocos no desenho."));
}

bool checkBlockName(const CommandContext& context, const std::wstring& name) {
    if (isValidName(name, false)) return true;
    context.editor().complain(L"O nome de bloco \"" + name +
                                  L"\" não serve. Use de 1 a 255 caracteres, sem nenhum de " +
                                  toWide(kForbiddenInNames) + L".",
                              Complaint::Refused);
    return false;
}

AcDbObjectId emptyBlock(const CommandContext& context, const std::wstring& name,
                        const AcGePoint3d& base) {
    AcDbObjectId block = blockNamed(context, name);
    if (!block.isNull()) {
        (void)eraseAll(context, contentOf(block));
        const AcDbObjectPointer<AcDbBlockTableRecord> record(block, AcDb::kForWrite);
        if (record.openStatus() == Acad::eOk && record->setOrigin(base) == Acad::eOk) return block;
    } else {
        auto made = std::make_unique<AcDbBlockTableRecord>();
        (void)made->setName(name.c_str());  // was checked
        const AcDbObjectPointer<AcDbBlockTable> table(context.database().blockTableId(),
                                                      AcDb::kForWrite);
        if (table.openStatus() == Acad::eOk && table->add(block, made.get()) == Acad::eOk) {
            (void)made->setOrigin(base);  // open for write
            (void)made.release()->close();
            return block;
        }
    }
    say(context, L"O bloco \"" + name + L"\" não pôde ser criado.");
    return {};
}

}  // namespace prancheta::commands
