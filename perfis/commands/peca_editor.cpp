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
        const auto* piece = ZpObject::cast(&entity);
        if (piece == nullptr) return L"Só perfis e chapas de travejamento têm diálogo de edição.";
        if (!piece->isKindOf(ZpChapa::desc())) return nullptr;
        return zp::edicao::donaDe(*piece).isNull()
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
        AcDbObjectId member;
        {
            const AcDbObjectPointer<ZpObject> piece(id, AcDb::kForRead);
            if (piece.openStatus() != Acad::eOk) return false;
            if (!piece->isKindOf(ZpChapa::desc())) {
                values = valuesOf(*piece.object());
                return true;
            }
            member = zp::edicao::donaDe(*piece.object());
        }
        return !member.isNull() && read(member, values);
    }
};

/// What a member with these limit points measures along its axis.
double comprimentoBetween(const ZpObject& piece, const zp::edicao::Faces& limits) {
    AcGePoint3d start;
    AcGePoint3d end;
    (void)piece.StartPoint(start);
    (void)piece.EndPoint(end);
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
bool chapasHold(const PecaValues& piece) {
    const PerfilCommand* const command = commandOf(piece);
    return command != nullptr && newRun(*command)->chapasHold(piece);
}

/// Members whose values are changed one by one keep the rule of their plates.
class ChapaKeeper : public zp::edicao::Ouvinte {
public:
    /// Plates that already break the rule, another program's perhaps, forbid nothing.
    std::wstring recusa(const ZpObject& piece, const ZpObject& changed) override {
        if (zp::edicao::chapasDe(piece).empty()) return {};
        try {
            PecaValues values = valuesOf(piece);
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
    void editada(AcDbObjectId id, const zp::edicao::Faces& before) override {
        if (g_layingChapas) return;
        PecaValues values;
        {
            const AcDbObjectPointer<ZpObject> piece(id, AcDb::kForRead);
            if (piece.openStatus() != Acad::eOk || zp::edicao::chapasDe(*piece.object()).empty())
                return;
            values = valuesOf(*piece.object());
            values.comprimentoTravejado = comprimentoBetween(*piece.object(), before);
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

const PerfilCommand* commandOf(const PecaValues& piece) {
    const PerfilCommand* general = nullptr;
    for (const CommandRow& row : commandTable()) {
        const PerfilDescription& description = row.command.description;
        if (description.pieces.classe != piece.classe) continue;
        if (description.draws == nullptr)
            general = &row.command;
        else if (description.draws(piece.values))
            return &row.command;
    }
    return general;
}

void installPecaEditor() {
    protocol::attach(ZpObject::desc(), protocol::kEntityEditorClass, g_editor);
    zp::edicao::ouve(&g_chapaKeeper);
}

void removePecaEditor() {
    zp::edicao::deixa(&g_chapaKeeper);
    protocol::detach(ZpObject::desc(), protocol::kEntityEditorClass);
    protocol::retire(protocol::kEntityEditorClass);
}

}  // namespace perfis
