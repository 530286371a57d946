// SPDX-License-Identifier: MIT
// Entry of ZP__MaterialList18.arx.
#include "accmd.h"
#include "rxregsvc.h"
#include "zp/matlist/ask_which.h"
#include "zp/matlist/book.h"
#include "zp/matlist/check.h"
#include "zp/matlist/compare.h"
#include "zp/matlist/export_tables.h"
#include "zp/matlist/flat_parts.h"
#include "zp/matlist/follow.h"
#include "zp/matlist/formats.h"
#include "zp/matlist/marcas_command.h"
#include "zp/matlist/plan_files.h"
#include "zp/matlist/plan_view.h"
#include "zp/matlist/report.h"
#include "zp/matlist/resumo.h"
#include "zp/matlist/revival.h"
#include "zp/matlist/secao_command.h"
#include "zp/matlist/sheets.h"
#include "zp/matlist/steel_command.h"
#include "zp/matlist/table.h"
#include "zp/matlist/vistas_command.h"
#include "zp/matlist/zpmarca.h"

namespace {

constexpr const ACHAR* kGroup = L"ZPMATLIST";

struct Command {
    const ACHAR* name;  ///< global and local
    void (*run)();
};
constexpr Command kCommands[] = {
    {zp::matlist::kListCommand, zp::matlist::materialListCommand},
    {L"MARCAS", zp::matlist::marcasCommand},
    {zp::matlist::kCheckCommand, zp::matlist::checkCommand},
    {zp::matlist::kCompareCommand, zp::matlist::compareCommand},
    {L"VISTAS", zp::matlist::vistasCommand},
    {zp::matlist::kPlanCommand, zp::matlist::cuttingPlanCommand},
    {zp::matlist::kSummaryCommand, zp::matlist::summaryCommand},
    {zp::matlist::kExportCommand, zp::matlist::exportCommand},
    {L"ACO", zp::matlist::steelCommand},
    {L"TABELASECAO", zp::matlist::secaoTableCommand},
    {L"DESENVOLVIMENTO", zp::matlist::blankCommand},
};

void start(void* application) {
    acrxUnlockApplication(application);
    acrxRegisterAppMDIAware(application);
    ZpMarca::rxInit();
    acrxBuildClassHierarchy();
    zp::matlist::installReport();
    zp::matlist::installPlans();
    zp::matlist::installSheets();
    zp::matlist::installCheck();
    zp::matlist::installComparison();
    zp::matlist::installRevival();
    zp::matlist::installCutFiles();
    zp::matlist::startFollowing();
    AcEdCommandStack* const stack = acedRegCmds;
    if (stack == nullptr) return;
    for (const Command& command : kCommands)
        (void)stack->addCommand(kGroup, command.name, command.name, ACRX_CMD_MODAL,
                                command.run);  // refused only when it is there already
}

void stop() {
    if (AcEdCommandStack* stack = acedRegCmds; stack != nullptr) (void)stack->removeGroup(kGroup);
    zp::matlist::stopFollowing();
    zp::matlist::uninstallRevival();
    zp::matlist::uninstallCutFiles();
    zp::matlist::uninstallComparison();
    zp::matlist::uninstallCheck();
    zp::matlist::uninstallSheets();
    zp::matlist::uninstallPlans();
    zp::matlist::uninstallReport();
    deleteAcRxClass(ZpMarca::desc());
}

}  // namespace

extern "C" AcRx::AppRetCode acrxEntryPoint(AcRx::AppMsgCode msg, void* pkt) {
    if (msg == AcRx::kInitAppMsg) start(pkt);
    AcDbDatabase* const drawing = acdbHostApplicationServices()->workingDatabase();
    if (msg == AcRx::kLoadDwgMsg) zp::matlist::followFrom(drawing);
    if (msg == AcRx::kUnloadDwgMsg) {
        zp::matlist::Book::forget(drawing);
        zp::matlist::forgetLast();
        zp::matlist::forgetErased();
    }
    if (msg == AcRx::kUnloadAppMsg) stop();
    return AcRx::kRetOK;
}
