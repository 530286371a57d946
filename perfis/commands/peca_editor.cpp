// SPDX-License-Identifier: MIT
// From a piece to its command, and the door by which hosts edit pieces.
#include "perfis/commands/peca_editor.h"

#include <algorithm>

#include "adscodes.h"
#include "perfis/commands/command_table.h"
#include "perfis/commands/peca_values.h"
#include "protocol/attach.h"
#include "protocol/edit.h"
#include "zp/objects/edit.h"

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

/// What a member with these limit points measures along its axis.
double comprimentoBetween(const ZpObject& peca, const zp::edit::Faces& limits) {
    AcGePoint3d start;
    AcGePoint3d end;
    (void)peca.StartPoint(start);
    (void)peca.EndPoint(end);
    const AcGeVector3d axis = (end - start).normal();
    double least = 0.0;
    double most = 0.0;
    for (const AcGePoint3d& point : limits.f) {
        const double along = (point - start).dotProduct(axis);
        least = std::min(least, along);
        most = std::max(most, along);
    }
    return most - least;
}

/// True when the command of such a piece would lay its plates.
bool chapasHold(const PecaValues& peca) {
    const PerfilCommand* const command = commandOf(peca);
    return command != nullptr && newRun(*command)->chapasHold(peca);
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
            takeChanges(changed, values);
            if (chapasHold(values)) return {};
        } catch (const std::exception&) {
            reportNoMemory();
            return {};
        }
        return L"As chapas de travejamento não cabem com este valor; mude antes o travejamento "
               L"(EDITAPERFIL).";
    }
    void edited(AcDbObjectId id, const zp::edit::Faces& before) override {
        if (g_layingChapas) return;
        PecaValues values;
        {
            const AcDbObjectPointer<ZpObject> peca(id, AcDb::kForRead);
            if (peca.openStatus() != Acad::eOk || zp::edit::chapasOf(*peca.object()).empty())
                return;
            values = valuesOf(*peca.object());
            values.comprimentoTravejado = comprimentoBetween(*peca.object(), before);
        }
        const PerfilCommand* const command = commandOf(values);
        if (command == nullptr) return;
        const LayingChapas laying;
        try {
            newRun(*command)->layAgain(values);
        } catch (const std::exception&) {
            reportNoMemory();
        }
    }
};

// Kept by pointer in the class and in the entity library.
PieceEditor g_editor;
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

void installPecaEditor() {
    protocol::attach(ZpObject::desc(), protocol::kEntityEditorClass, g_editor);
    zp::edit::addListener(&g_chapaKeeper);
    zp::edit::setVistaMaker(drawVistaOf);
}

void removePecaEditor() {
    zp::edit::setVistaMaker(nullptr);
    zp::edit::removeListener(&g_chapaKeeper);
    protocol::detach(ZpObject::desc(), protocol::kEntityEditorClass);
    protocol::retire(protocol::kEntityEditorClass);
}

}  // namespace perfis
