// SPDX-License-Identifier: MIT
// How one drawing takes the place of another.
#include "dbdim.h"
#include "prancheta/base/memory.h"
#include "prancheta/database/database_core.h"
#include "prancheta/database/user_system.h"
#include "prancheta/display/appearance.h"
#include "prancheta/display/display_list.h"
#include "prancheta/editor/details.h"
#include "prancheta/editor/dimension_ties.h"
#include "prancheta/editor/editor.h"
#include "prancheta/editor/events.h"
#include "prancheta/editor/hatch_follower.h"
#include "prancheta/editor/modules.h"
#include "prancheta/editor/saved_view.h"

namespace prancheta {
namespace {

/// Settings of the session outlive the drawing; the last point does not.
void keepSession(const SystemVariables& from, SystemVariables& to) {
    for (const VariableInfo& info : from.all()) {
        if (info.home != VariableHome::Session || info.access == VariableAccess::ReadOnly) continue;
        if (info.name == L"LASTPOINT" || info.name == L"SNAPANG") continue;
        to.force(info.name, info.value);
    }
}

bool isOfUserSystem(const VariableInfo& info) {
    return info.name == L"UCSORG" || info.name == L"UCSXDIR" || info.name == L"UCSYDIR";
}

}  // namespace

/// Nothing may refer to the drawing's objects afterwards.
void Editor::tellClosing() {
    m_programs.documentReactors().tell(&AcApDocManagerReactor::documentToBeDestroyed,
                                       &m_programs.document());
    m_modules->broadcast(AcRx::kUnloadDwgMsg);
    m_runner.drawingGoes();
    m_selection.clear();
    m_selection.setPrevious({});
    m_lastErased = {};
    m_programs.selectionSets().clear();
    m_spaces.reset();
    m_screen.start();
    m_formerUcs.clear();
}

/// Makes a database the working one; the former one goes, with the new one in its place already.
void Editor::adoptDatabase(std::unique_ptr<AcDbDatabase> database, std::filesystem::path fileName) {
    // What may fail comes first: the former drawing stays until then.
    auto ties = std::make_unique<DimensionTies>(*database);
    auto appearances = std::make_unique<AppearanceTable>(*database);
    auto hatches = std::make_unique<HatchFollower>(*database);
    auto details = std::make_unique<DetailFollower>();
    if (m_database) keepSession(m_database->core().variables(), database->core().variables());
    const std::unique_ptr<AcDbDatabase> former = std::exchange(m_database, std::move(database));
    acdbHostApplicationServices()->setWorkingDatabase(m_database.get());
    m_dimensionTies = std::move(ties);
    m_resized.clear();  // before those that they stand on
    m_displays.clear();
    m_appearances = std::move(appearances);
    m_hatches = std::move(hatches);
    m_details = std::move(details);
    DatabaseCore& core = m_database->core();
    core.onEntityAppended = [&core](const AcDbEntity& entity) {
        // The layer of definition points comes with the first dimension.
        if (entity.isKindOf(AcDbDimension::desc())) (void)core.ensureLayer(L"Defpoints");
        recordAppended(entity);
    };
    core.onEntityErased = recordErased;
    core.variables().setHooks(
        [this](const VariableInfo& info, const VariableValue& value) -> Result<void> {
            if (info.name != L"TRUSTEDPATHS" || !m_typing.inScript())
                return m_spaces.check(info, value);
            return Error{"Um script não pode mudar a variável TRUSTEDPATHS."};
        },
        [this](const VariableInfo& info) {
            m_spaces.variableChanged(info);
            if (isOfUserSystem(info)) followUcs();
        });
    m_ucs = currentUserSystem(core);
    m_typing.drawingReplaced();
    m_file.begin(std::move(fileName));
}

void Editor::followChanges(Step step) {
    if (step == Step::Other) {
        m_hatches->forget();
        return m_details->forget(*this);
    }
    // Details show the hatches as they are by then.
    std::wstring told = m_hatches->follow(display());
    told += m_details->follow(*this);
    if (!told.empty()) print(told);
}

void Editor::tellOpened() {
    // What modules put right in a drawing that was read is no step of the user's.
    UndoLog& undo = m_database->core().undo();
    undo.setRecording(false);
    m_modules->broadcast(AcRx::kLoadDwgMsg);
    undo.setRecording(true);
    m_details->forget(*this);
    m_programs.documentReactors().tell(&AcApDocManagerReactor::documentCreated,
                                       &m_programs.document());
}

Result<void> Editor::replaceDrawing(std::unique_ptr<AcDbDatabase> database,
                                    std::filesystem::path fileName) {
    if (m_runner.runsModule())
        return Error{
            "Há um comando de um módulo em execução; termine-o antes de trocar de desenho."};
    tellClosing();
    const Result<void> adopted = withinMemory([&]() -> Result<void> {
        adoptDatabase(std::move(database), std::move(fileName));
        return {};
    });
    tellOpened();  // the former one, for want of memory
    m_screen.start(openingView(*this));
    if (onDrawingReplaced) onDrawingReplaced();
    m_ui.refresh();
    return adopted;
}

}  // namespace prancheta
