// SPDX-License-Identifier: MIT
// Entry point of ZpPerfis18.arx: registers the command group at load and removes it at unload.
#include "accmd.h"
#include "acutads.h"
#include "dbapserv.h"
#include "perfis/commands/catalogue_check.h"
#include "perfis/commands/catalogue_command.h"
#include "perfis/commands/command_table.h"
#include "perfis/commands/cut_command.h"
#include "perfis/commands/peca_editor.h"
#include "perfis/commands/size_command.h"
#include "perfis/pecas/commands.h"
#include "rxdefs.h"
#include "rxregsvc.h"

namespace {

/// Looked up for every use: the host may replace its stack.
AcEdCommandStack* commandStack() {
    return AcEdCommandStack::cast(acrxSysRegistry()->at(ACRX_REGISTERED_COMMANDS));
}

/// What serves the thirty drawing commands, whose group holds nothing else.
constexpr const ACHAR* kOtherGroup = L"ZPPERFIS_CATALOGOS";
struct OtherCommand {
    const ACHAR* name;  ///< global and local
    void (*handler)();
    Adesk::Int32 flags = ACRX_CMD_MODAL;
};
constexpr OtherCommand kOtherCommands[] = {
    {perfis::kCatalogueCommand, perfis::catalogueCommand},
    {perfis::kSizeCommand, perfis::drawBySize},
    {perfis::kCutCommand, perfis::cutPeca, ACRX_CMD_USEPICKSET},
    {perfis::kCutCommandDash, perfis::cutPeca, ACRX_CMD_USEPICKSET},
    {perfis::kPecaCommand, perfis::pecaCommand},
    {perfis::kPecaTextCommand, perfis::pecaTextCommand, ACRX_CMD_USEPICKSET},
    {perfis::kPecasCommand, perfis::pecasCommand},
};

/// A name that another module has taken is left out; the rest is registered all the same.
void registerCommands() {
    for (const perfis::CommandRow& row : perfis::commandTable()) {
        AcEdCommandStack* const stack = commandStack();
        if (stack == nullptr) return;
        (void)stack->addCommand(perfis::kCommandGroup, row.globalName, row.localName,
                                ACRX_CMD_TRANSPARENT, row.handler);
    }
    for (const OtherCommand& row : kOtherCommands)
        if (AcEdCommandStack* const stack = commandStack())
            (void)stack->addCommand(kOtherGroup, row.name, row.name, row.flags, row.handler);
}

}  // namespace

extern "C" AcRx::AppRetCode acrxEntryPoint(AcRx::AppMsgCode msg, void* pkt) {
    if (msg == AcRx::kInitAppMsg) {
        (void)acutPrintf(L"Aguarde...carregando ZpPerfis.arx\n");
        (void)acrxUnlockApplication(pkt);
        (void)acrxRegisterAppMDIAware(pkt);
        registerCommands();
        perfis::installPecaEditor();
        perfis::installCatalogueCheck();
        perfis::installCatalogueExaminer();
        perfis::installPieceTable();
    } else if (msg == AcRx::kLoadDwgMsg) {
        AcDbDatabase* const drawing = acdbHostApplicationServices()->workingDatabase();
        if (drawing != nullptr) perfis::keepTravejamentos(*drawing);
    } else if (msg == AcRx::kUnloadAppMsg) {
        perfis::removePieceTable();
        perfis::removeCatalogueExaminer();
        perfis::removeCatalogueCheck();
        perfis::removePecaEditor();
        AcEdCommandStack* const stack = commandStack();
        if (stack == nullptr) return AcRx::kRetOK;
        (void)stack->removeGroup(perfis::kCommandGroup);
        (void)stack->removeGroup(kOtherGroup);
    }
    return AcRx::kRetOK;
}
