// SPDX-License-Identifier: MIT
// From a piece to its command, and the door by which hosts edit pieces.
#include "perfis/commands/piece_editor.h"

#include <algorithm>

#include "adscodes.h"
#include "perfis/commands/piece_values.h"
#include "protocol/attach.h"
#include "protocol/edit.h"
#include "zp/objects/edicao.h"

namespace perfis {
namespace {

using zp::secao::Classe;
using zp::secao::Dados;
using zp::secao::Papel;

bool any(const Dados&) { return true; }
bool hasLip(const Dados& v) { return v[Papel::Aba] != 0.0; }
bool isClosedByLips(const Dados& v) { return hasLip(v) && v[Papel::Vao] == 0.0; }
bool hasOutwardLips(const Dados& v) { return hasLip(v) && v[Papel::Especie] == 1.0; }
bool hasTwoFlanges(const Dados& v) { return v.variante == 1; }

struct Origin {
    Classe classe;
    bool (*fits)(const Dados&);
    MakeRun make;
};

/// The first row that fits names the command.
constexpr Origin kOrigins[] = {
    {Classe::UDobrado, hasLip, pudoben},
    {Classe::UDobrado, any, pudobrado},
    {Classe::ZDobrado, any, pzdobrado},
    {Classe::Cartola, any, pcartola},
    {Classe::CantoneiraDobrada, any, pcantdob},
    {Classe::CaixaDobrado, isClosedByLips, pcxdoben},
    {Classe::CaixaDobrado, any, pcxdobrado},
    {Classe::Box, any, perfilbox},
    {Classe::Tubo, any, perfiltubo},
    {Classe::BarraRedonda, any, perfilbarraredonda},
    {Classe::BNLaminado, any, bnlam},
    {Classe::CantLaminada, any, pcantlam},
    {Classe::CantLaminadaCaixa, any, cantoneiracaixalaminada},
    {Classe::ULaminado, any, perfilulaminado},
    {Classe::CantTDobrada, any, pcanttdob},
    {Classe::CantUDobrada, any, pcantudob},
    {Classe::XDobrado, any, pcantxdob},
    {Classe::CantTEELaminada, any, pcanttelam},
    {Classe::CantULaminada, any, pcantulam},
    {Classe::BNDuplaLaminada, any, pcantcruzlam},
    {Classe::CantCruzLaminada, any, perfilcantcruzlaminado},
    {Classe::CantZLaminada, any, perfilcantzlaminado},
    {Classe::UULaminado, any, perfiluulaminado},
    {Classe::DoisULaminado, any, perfil2ulam},
    {Classe::IDobrado, hasOutwardLips, perfilicartola},
    {Classe::IDobrado, hasLip, pienrdobrado},
    {Classe::IDobrado, any, pidobrado},
    {Classe::ISoldado, hasTwoFlanges, perfilpsa},
    {Classe::ISoldado, any, pisoldado},
    {Classe::ILaminadoUSA, any, pilaminado},
};

/// While a dialog rebuilds a piece it lays the plates itself.
bool g_layingPlates = false;

class LayingPlates {
public:
    LayingPlates() { g_layingPlates = true; }
    ~LayingPlates() { g_layingPlates = false; }
    LayingPlates(const LayingPlates&) = delete;
    LayingPlates& operator=(const LayingPlates&) = delete;
};

class Editor : public protocol::EntityEditor {
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
        PieceValues values;
        if (!read(entity, values)) return RTERROR;
        const MakeRun make = commandOf(values);
        if (make == nullptr) return RTERROR;
        try {
            const LayingPlates laying;
            return make()->edit(values);
        } catch (const std::exception&) {
            reportNoMemory();
            return RTERROR;
        }
    }

private:
    /// A plate stands for the member that it laces.
    static bool read(AcDbObjectId id, PieceValues& values) {
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
double lengthBetween(const ZpObject& piece, const zp::edicao::Faces& limits) {
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
bool platesHold(const PieceValues& piece) {
    const MakeRun make = commandOf(piece);
    return make != nullptr && make()->platesHold(piece);
}

/// Members whose values are changed one by one keep the rule of their plates.
class PlateKeeper : public zp::edicao::Ouvinte {
public:
    /// Plates that already break the rule, another program's perhaps, forbid nothing.
    std::wstring recusa(const ZpObject& piece, const ZpObject& changed) override {
        if (zp::edicao::chapasDe(piece).empty()) return {};
        try {
            PieceValues values = valuesOf(piece);
            if (!platesHold(values)) return {};
            takeChanges(changed, values);
            if (platesHold(values)) return {};
        } catch (const std::exception&) {
            reportNoMemory();
            return {};
        }
        return L"As chapas de travejamento não cabem com este valor; mude antes o travejamento "
               L"(EDITAPERFIL).";
    }
    void editada(AcDbObjectId id, const zp::edicao::Faces& before) override {
        if (g_layingPlates) return;
        PieceValues values;
        {
            const AcDbObjectPointer<ZpObject> piece(id, AcDb::kForRead);
            if (piece.openStatus() != Acad::eOk || zp::edicao::chapasDe(*piece.object()).empty())
                return;
            values = valuesOf(*piece.object());
            values.lacedLength = lengthBetween(*piece.object(), before);
        }
        const MakeRun make = commandOf(values);
        if (make == nullptr) return;
        const LayingPlates laying;
        try {
            make()->layAgain(values);
        } catch (const std::exception&) {
            reportNoMemory();
        }
    }
};

// Kept by pointer in the class and in the entity library.
Editor g_editor;
PlateKeeper g_plateKeeper;

}  // namespace

MakeRun commandOf(const PieceValues& piece) {
    const auto* const origin = std::ranges::find_if(kOrigins, [&](const Origin& o) {
        return o.classe == piece.classe && o.fits(piece.values);
    });
    return origin != std::end(kOrigins) ? origin->make : nullptr;
}

void installPieceEditor() {
    protocol::attach(ZpObject::desc(), protocol::kEntityEditorClass, g_editor);
    zp::edicao::ouve(&g_plateKeeper);
}

void removePieceEditor() {
    zp::edicao::deixa(&g_plateKeeper);
    protocol::detach(ZpObject::desc(), protocol::kEntityEditorClass);
    protocol::retire(protocol::kEntityEditorClass);
}

}  // namespace perfis
