// SPDX-License-Identifier: MIT
// From a piece to its command, and the door by which hosts edit pieces.
#include "perfis/commands/peca_editor.h"

#include <algorithm>

#include "adscodes.h"
#include "perfis/commands/command_table.h"
#include "perfis/commands/peca_values.h"
#include "protocol/attach.h"
#include "protocol/edit.h"
#include "protocol/scale.h"
#include "zp/objects/each_entity.h"
#include "zp/objects/edit.h"
#include "zp/objects/member.h"

namespace perfis {
namespace {

/// While a dialog rebuilds a piece it lays the plates itself.
bool g_layingChapas = false;

class LayingChapas {
public:
    LayingChapas() { g_layingChapas = true; }
    ~LayingChapas() { g_layingChapas = false; }
    LayingChapas(const LayingChapas&) = delete;
    LayingChapas& operator=(const LayingChapas&) = delete;
};

class PieceEditor : public protocol::EntityEditor {
public:
    const ACHAR* whyNot(const AcDbEntity& entity) const override {
        const auto* peca = ZpObject::cast(&entity);
        if (peca == nullptr) return L"Só perfis e chapas de travejamento têm diálogo de edição.";
        if (!peca->isKindOf(ZpChapa::desc())) return nullptr;
        return zp::edit::ownerOf(*peca).isNull()
                   ? L"Esta chapa não pertence a nenhum perfil; altere as medidas nas propriedades."
                   : nullptr;
    }

    int edit(AcDbObjectId entity) const override {
        PecaValues values;
        if (!read(entity, values)) return RTERROR;
        const PerfilCommand* const command = commandOf(values);
        if (command == nullptr) return RTERROR;
        try {
            const LayingChapas laying;
            return newRun(*command)->edit(values);
        } catch (const std::exception&) {
            reportNoMemory();
            return RTERROR;
        }
    }

private:
    /// A plate stands for the member that it laces.
    static bool read(AcDbObjectId id, PecaValues& values) {
        AcDbObjectId barra;
        {
            const AcDbObjectPointer<ZpObject> peca(id, AcDb::kForRead);
            if (peca.openStatus() != Acad::eOk) return false;
            if (!peca->isKindOf(ZpChapa::desc())) {
                values = valuesOf(*peca.object());
                return true;
            }
            barra = zp::edit::ownerOf(*peca.object());
        }
        return !barra.isNull() && read(barra, values);
    }
};

/// The automatic dimensions of a piece are laid out by the drawing's scale.
class CotasScale : public protocol::ScaleFollower {
public:
    int layAgain(AcDbObjectId entity, int&) const override {
        PecaValues values;
        {
            const AcDbObjectPointer<ZpObject> peca(entity, AcDb::kForRead);
            if (peca.openStatus() != Acad::eOk || zp::edit::cotasOf(*peca.object()).empty())
                return 0;
            values = valuesOf(*peca.object());
        }
        const PerfilCommand* const command = commandOf(values);
        if (command == nullptr) return 0;
        const LayingChapas laying;
        try {
            return newRun(*command)->layCotasAgain(values);
        } catch (const std::exception&) {
            reportNoMemory();
            return 0;
        }
    }
};

/// True when the command of such a piece would lay its plates.
bool chapasHold(const PecaValues& peca) {
    const PerfilCommand* const command = commandOf(peca);
    return command != nullptr && newRun(*command)->chapasHold(peca);
}

bool isTravejada(const ZpObject& peca) {
    return zp::member::of(peca).lacing.n > 0 || !zp::edit::chapasOf(peca).empty();
}

/// Why a piece with locked plates may not change like this; empty when it may.
std::wstring lockedFault(const PecaValues& before, const PecaValues& after) {
    if (!hasLockedChapa(before)) return {};
    const PerfilCommand& command = *commandOf(after);
    const bool same = sameChapas(newRun(command)->ruled(before), newRun(command)->ruled(after));
    return same ? L"" : kLockedChapas;
}

/// The lacing that a piece of another time has, read from its plates.
zp::Lacing readLacing(AcDbObjectId id) {
    PecaValues values;
    {
        const AcDbObjectPointer<ZpObject> peca(id, AcDb::kForRead);
        if (peca.object() == nullptr || zp::member::of(*peca.object()).lacing.n > 0 ||
            zp::edit::chapasOf(*peca.object()).empty())
            return {};
        values = valuesOf(*peca.object());
    }
    const PerfilCommand* const command = commandOf(values);
    if (command == nullptr) return {};
    return zp::member::of(*newRun(*command)->ruled(values).peca).lacing;
}

/// Members whose values are changed one by one keep the rule of their plates.
class ChapaKeeper : public zp::edit::Listener {
public:
    /// Plates that already break the rule, another program's perhaps, forbid nothing.
    std::wstring refusal(const ZpObject& peca, const ZpObject& changed) override {
        if (zp::edit::chapasOf(peca).empty()) return {};
        try {
            PecaValues values = valuesOf(peca);
            if (!chapasHold(values)) return {};
            const PecaValues before = values;
            takeChanges(changed, values);
            if (chapasHold(values)) return lockedFault(before, values);
        } catch (const std::exception&) {
            reportNoMemory();
            return {};
        }
        return L"As chapas de travejamento não cabem com este valor; mude antes o travejamento "
               L"(EDITAPERFIL).";
    }
    void edited(AcDbObjectId id, const zp::edit::Former& before) override {
        if (g_layingChapas) return;
        PecaValues values;
        {
            const AcDbObjectPointer<ZpObject> peca(id, AcDb::kForRead);
            if (peca.openStatus() != Acad::eOk || !isTravejada(*peca.object())) return;
            values = valuesOf(*peca.object());
            if (values.lacing == before.lacing) values.comprimentoTravejado = before.comprimento;
        }
        const PerfilCommand* const command = commandOf(values);
        if (command == nullptr) return;
        PecaValues was = values;
        was.values = before.values;
        was.comprimento = before.comprimento;
        was.cortes = before.cortes;
        was.lacing = before.lacing;
        was.comprimentoTravejado = before.comprimento;
        const LayingChapas laying;
        try {
            newRun(*command)->layAgain(was, values);
        } catch (const std::exception&) {
            reportNoMemory();
        }
    }
};

// Kept by pointer in the class and in the entity library.
PieceEditor g_editor;
CotasScale g_scale;
ChapaKeeper g_chapaKeeper;

}  // namespace

const PerfilCommand* commandOf(const PecaValues& peca) {
    const PerfilCommand* general = nullptr;
    for (const CommandRow& row : commandTable()) {
        const PerfilDescription& description = row.command.description;
        if (description.pecas.kind != peca.kind) continue;
        if (description.draws == nullptr)
            general = &row.command;
        else if (description.draws(peca.values))
            return &row.command;
    }
    return general;
}

void keepTravejamentos(AcDbDatabase& drawing) {
    zp::eachEntity(drawing, [](AcDbObjectId id) {
        const AcRxClass* const kind = id.objectClass();
        if (kind == nullptr || !kind->isDerivedFrom(ZpObject::desc()) ||
            kind->isDerivedFrom(ZpChapa::desc()))
            return;
        const zp::Lacing lacing = readLacing(id);
        if (lacing.n == 0) return;
        const AcDbObjectPointer<ZpObject> peca(id, AcDb::kForWrite);
        if (peca.object() == nullptr) return;
        zp::member::lace(*peca.object(), lacing);
        zp::edit::learnChapas(*peca.object());
    });
}

void installPecaEditor() {
    protocol::attach(ZpObject::desc(), protocol::kEntityEditorClass, g_editor);
    protocol::attach(ZpObject::desc(), protocol::kScaleFollowerClass, g_scale);
    zp::edit::addListener(&g_chapaKeeper);
    zp::edit::setVistaMaker(drawVistaOf);
}

void removePecaEditor() {
    zp::edit::setVistaMaker(nullptr);
    zp::edit::removeListener(&g_chapaKeeper);
    protocol::detach(ZpObject::desc(), protocol::kScaleFollowerClass);
    protocol::detach(ZpObject::desc(), protocol::kEntityEditorClass);
    protocol::retire(protocol::kEntityEditorClass);
}

}  // namespace perfis
