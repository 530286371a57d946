// SPDX-License-Identifier: MIT
// Another view of a piece that stands in the drawing.
#include "perfis/commands/handlers.h"
#include "perfis/commands/peca_editor.h"
#include "perfis/commands/perfil_generator.h"
#include "perfis/output/open_peca.h"
#include "perfis/output/shared_cota.h"
#include "zp/objects/edit.h"
#include "zp/objects/member.h"
#include "zp/objects/published.h"

namespace perfis {

zp::edit::DrawnVista PerfilRun::drawVista(const PecaValues& peca, ZpObject::ZpVistas vista,
                                          const AcGePoint3d& start, bool cotas) {
    takePeca(peca);
    m_state.vistas.secaoOnly = vista == ZpObject::kVistaSecao;
    m_state.vistas.vista = vista;
    sharedCotaFlag() = cotas ? 1 : 0;
    const ChapaLaying layChapas = chapaLaying();
    // The same body, seen from elsewhere: not the figure of the views dialog, which may turn it.
    zp::secao::RoleValues values = peca.values;
    values[zp::secao::Role::L] = peca.comprimento;
    std::unique_ptr<ZpObject> made = m_description.pecas.atPoint(start, vista, values);
    prepare(*made, m_state.tipoBarra);
    if (m_description.finish != nullptr)
        m_description.finish(*made, requestFor(m_state, chosenVista(m_state.vistas)));
    // It is the same member whatever the tables say by now.
    zp::published::keep(*made, peca.commercial);
    zp::Access::of(*made).cortes = peca.cortes;
    OpenPeca drawn(std::move(made));
    zp::edit::DrawnVista result;
    if (drawn.resident()) {
        LaidChapas chapas;
        ChapaSupply supply;
        if (layChapas) chapas = layChapas(*drawn, start, supply);
        supply.tellLeftOut();
        result = {drawn.id(), chapas.ids, cotaPeca(m_description, m_state, *drawn, chapas)};
        tieChapas(*drawn, chapas.ids);
        drawn.close();
    }
    sharedCotaFlag() = 0;
    return result;
}

zp::edit::DrawnVista drawVistaOf(AcDbObjectId id, ZpObject::ZpVistas vista,
                                 const AcGePoint3d& start, bool cotas) {
    PecaValues values;
    std::wstring steel;
    {
        const AcDbObjectPointer<ZpObject> peca(id, AcDb::kForRead);
        if (peca.openStatus() != Acad::eOk) return {};
        values = valuesOf(*peca.object());
        steel = zp::member::of(*peca.object()).grade;
    }
    const PerfilCommand* const command = commandOf(values);
    if (command == nullptr) return {};
    try {
        const zp::edit::DrawnVista drawn = newRun(*command)->drawVista(values, vista, start, cotas);
        const AcDbObjectPointer<ZpObject> view(drawn.peca, AcDb::kForWrite);
        if (view.object() != nullptr && !steel.empty()) {
            zp::Member member = zp::member::of(*view.object());
            member.grade = steel;
            zp::member::set(*view.object(), member);
        }
        return drawn;
    } catch (const std::exception&) {
        reportNoMemory();
        return {};
    }
}

}  // namespace perfis
