// SPDX-License-Identifier: MIT
// EDITAPERFIL: the dialog that made a piece, with the piece's values.
#include "protocol/attach.h"
#include "protocol/edit.h"

#include "prancheta/editor/commands/support.h"
#include "prancheta/editor/commands/table.h"
#include "prancheta/editor/picking.h"

namespace prancheta::commands {

namespace {

const protocol::EntityEditor* editorOf(const AcDbEntity& entity) {
    return protocol::extensionOf<protocol::EntityEditor>(entity, protocol::kEntityEditorClass);
}

/// The editor of the entity; null, and the reason in `whyNot`, when it has none.
const protocol::EntityEditor* findEditor(AcDbObjectId id, std::wstring& whyNot) {
    const AcDbObjectPointer<AcDbEntity> entity(id, AcDb::kForRead);
    if (entity.openStatus() != Acad::eOk) {
        whyNot = L"O objeto não pode ser aberto.";
        return nullptr;
    }
    const protocol::EntityEditor* const editor = editorOf(*entity.object());
    if (editor == nullptr) {
        whyNot = L"O objeto não é um perfil que possa ser editado por diálogo.";
        return nullptr;
    }
    if (const ACHAR* const reason = editor->whyNot(*entity.object())) {
        whyNot = reason;
        return nullptr;
    }
    if (onLockedLayer(id)) {
        whyNot = L"A camada do perfil está bloqueada; desbloqueie-a para editar.";
        return nullptr;
    }
    return editor;
}

}  // namespace

CommandTask editaperfil(CommandContext context) {
    SelectOptions options;
    options.prompt = L"\nSelecione o perfil a editar: ";
    options.single = true;
    options.dropLocked = false;  // the command says itself why such a piece is refused
    const Selection chosen = co_await selectObjects(context, options);
    if (chosen.status != RTNORM) co_return endOf(chosen.status);
    if (chosen.ids.size() > 1) {
        say(context, L"Selecione um perfil só: cada um é editado por sua vez.");
        co_return CommandEnd::Done;
    }
    std::wstring reason;
    const protocol::EntityEditor* const editor = findEditor(chosen.ids.front(), reason);
    if (editor == nullptr) {
        say(context, reason);
        co_return CommandEnd::Done;
    }
    switch (editor->edit(chosen.ids.front())) {
        case RTNORM:
            co_return CommandEnd::Done;
        case RTCAN:
            co_return CommandEnd::Cancelled;
        default:
            co_return CommandEnd::Failed;
    }
}

}  // namespace prancheta::commands
