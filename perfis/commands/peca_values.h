// SPDX-License-Identifier: MIT
// A drawn piece read back as the command that draws such pieces knows it.
#pragma once

#include <memory>
#include <vector>

#include "perfis/entities/zpobject.h"
#include "zp/objects/peca.h"
#include "zp/objects/secao/kinds.h"

namespace perfis {

/// A lacing plate, in the frame of its member: x along the axis from its start, mm.
struct ChapaValues {
    AcDbObjectId id;
    double x = 0.0;
    double y = 0.0;
    ZpObject::ZpVistas vista = ZpObject::kVistaSecao;
    double d1 = 0.0;
    double d2 = 0.0;
    double d3 = 0.0;
    zp::secao::Bounds picture;
};

struct PecaValues {
    AcDbObjectId id;
    zp::secao::Kind kind = zp::secao::Kind::None;
    zp::secao::RoleValues values;  ///< of the constructor, by role
    ZpObject::ZpVistas vista = ZpObject::kVistaSecao;
    double giro = 0.0;         ///< about its own axis, radians
    bool twoPoints = false;    ///< made between two points
    double comprimento = 0.0;  ///< of the axis, mm
    std::array<zp::Corte, 2> cortes;
    /// For which its plates were laid, mm. Those at the end follow it when the length changes.
    double comprimentoTravejado = 0.0;
    int tipoBarra = 0;
    int series = 0;         ///< of a welded I, ZpISoldado::SubType
    bool hasCotas = false;  ///< has dimensions tied to it
    bool listed = false;    ///< in the material list
    int count = 1;          ///< members that it counts for there; 0: a further view of one
    AcGePoint3d start;      ///< world coordinates
    zp::Lacing lacing;      ///< as it knows it
    std::shared_ptr<const zp::Commercial> commercial;  ///< what it keeps of its table
    std::vector<ChapaValues> chapas;

    /// Its mass is that of another size.
    bool otherMass() const { return commercial && commercial->printed.otherMass; }
};

/// Values, length, cuts and lacing of `changed`, which has the class of the piece; a lacing that
/// came with a length was made for it.
void takeChanges(const ZpObject& changed, PecaValues& peca);

/// The piece is open for read.
PecaValues valuesOf(const ZpObject& peca);

}  // namespace perfis
