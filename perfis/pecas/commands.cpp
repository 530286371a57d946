// SPDX-License-Identifier: MIT
// PECA and PECATEXTO.
#include "perfis/pecas/commands.h"

#include <exception>
#include <set>

#include "acutads.h"
#include "dbapserv.h"
#include "dbdim.h"
#include "perfis/dialogs/installation.h"
#include "perfis/pecas/order.h"
#include "protocol/answers.h"
#include "texts/letters.h"
#include "zp/matlist/asking.h"
#include "zp/matlist/follow.h"
#include "zp/objects/each_entity.h"
#include "zp/objects/edit.h"

namespace perfis {
namespace {

void drawOne(AcDbDatabase& drawing) {
    Designations designations;
    for (;;) {
        const std::optional<std::wstring> typed =
            zp::matlist::askTyped(L"Peça (por exemplo U 200x75x3 L=6000): ");
        if (!typed || typed->empty()) return;
        // A line that was kept with the command's name before it.
        constexpr std::size_t kName = std::size(L"peca ") - 1;
        const bool named = texts::equalIgnoringCase(typed->substr(0, kName), L"peca ");
        const std::wstring text = named ? typed->substr(kName) : *typed;
        ReadyPeca ready;
        std::wstring fault = makeReady(text, designations, ready);
        if (fault.empty()) fault = marcaFault(ready, drawing);
        if (fault.empty()) return ready.run->drawAccepted();
        protocol::refuse(fault);
    }
}

/// Dimensions stand for the piece that they belong to.
std::vector<AcDbObjectId> withPecasOfCotas(AcDbDatabase& drawing, std::vector<AcDbObjectId> ids) {
    std::set<AcDbObjectId> cotas;
    for (const AcDbObjectId& id : ids)
        if (id.objectClass() != nullptr && id.objectClass()->isDerivedFrom(AcDbDimension::desc()))
            cotas.insert(id);
    if (cotas.empty()) return ids;
    zp::eachEntity(drawing, [&](AcDbObjectId id) {
        if (id.objectClass() == nullptr || !id.objectClass()->isDerivedFrom(ZpObject::desc()))
            return;
        const AcDbObjectPointer<ZpObject> peca(id, AcDb::kForRead);
        if (peca.object() == nullptr) return;
        for (const AcDbObjectId& cota : zp::edit::cotasOf(*peca.object()))
            if (cotas.contains(cota)) ids.push_back(id);
    });
    return ids;
}

void printLines(AcDbDatabase& drawing) {
    const auto picked = zp::matlist::askSelection();
    if (!picked) return;
    const std::vector<AcDbObjectId> bars =
        zp::matlist::barsAmong(drawing, withPecasOfCotas(drawing, *picked));
    if (bars.empty()) {
        protocol::fail(L"Nenhuma peça de perfil entre os objetos escolhidos.");
        return;
    }
    Designations designations;
    for (const AcDbObjectId& id : bars)
        if (const std::wstring line = lineOf(id, designations); !line.empty())
            acutPrintf(L"\n%ls", line.c_str());
    acutPrintf(L"\n");
}

template <class Command>
void run(const Command& command) {
    try {
        AcDbDatabase* const drawing = acdbHostApplicationServices()->workingDatabase();
        if (drawing != nullptr && requiredInstallationFolder()) command(*drawing);
    } catch (const std::exception&) {
        reportNoMemory();
    }
}

}  // namespace

void pecaCommand() { run(drawOne); }
void pecaTextCommand() { run(printLines); }

}  // namespace perfis
