// SPDX-License-Identifier: MIT
// The editor: construction, output, main loop, variables.
#include "prancheta/editor/editor.h"

#include <algorithm>
#include <cmath>
#include <new>

#include "prancheta/base/memory.h"
#include "prancheta/base/text.h"
#include "prancheta/database/database_core.h"
#include "prancheta/database/user_system.h"
#include "prancheta/dcl/dialog.h"
#include "prancheta/display/appearance.h"
#include "prancheta/display/display_list.h"
#include "prancheta/editor/command_stack.h"
#include "prancheta/editor/details.h"
#include "prancheta/editor/dimension_ties.h"
#include "prancheta/editor/events.h"
#include "prancheta/editor/hatch_follower.h"
#include "prancheta/editor/modules.h"
#include "prancheta/editor/scene.h"
#include "prancheta/entities/viewports.h"
#include "protocol/answers.h"
#include "rxdict.h"

namespace prancheta {
namespace {

/// The one that the C-style interface talks to.
Editor* g_current = nullptr;

/// What modules refuse goes where the host's own refusals go.
class FromModules : public protocol::Objections {
public:
    void refused(const ACHAR* text) override { tell(text, Complaint::Refused); }
    void failed(const ACHAR* text) override { tell(text, Complaint::Failed); }
    void gaveUp(const ACHAR* text) override {
        tell(text, Complaint::Failed);
        if (g_current != nullptr) g_current->runner().giveUp();
    }

private:
    static void tell(const ACHAR* text, Complaint kind) {
        if (g_current != nullptr) g_current->complain(text, kind);
    }
};
FromModules g_fromModules;  // entered in the registry by pointer

}  // namespace

Editor* Editor::current() { return g_current; }

Editor::Editor(UserInterface& ui, std::span<const BuiltInCommand> builtIns)
    : m_ui(ui),
      m_screen(ui),
      m_spaces(*this),
      m_typing(*this),
      m_selection(*this),
      m_file(*this),
      m_programs(*this),
      m_runner(*this) {
    registerEditorClasses();
    m_screen.onChanged = [this] { m_spaces.viewChanged(); };
    g_current = this;
    m_commands = std::make_unique<CommandStack>(builtIns);
    m_modules = std::make_unique<ModuleTable>(*this);
    acrxSysRegistry()->atPut(ACRX_REGISTERED_COMMANDS, m_commands.get());
    acrxSysRegistry()->atPut(protocol::kObjectionsKey, &g_fromModules);
    adoptDatabase(std::make_unique<AcDbDatabase>(), {});
    tellOpened();
}

Editor::~Editor() {
    m_runner.abandon();
    insist([&] { tellClosing(); });
    // No object of a module's class may outlive the module; an empty drawing stands in till the
    // end.
    insist([&] { adoptDatabase(std::make_unique<AcDbDatabase>(), {}); });
    m_clipboard = {};
    m_modules->unloadAll();
    acdbHostApplicationServices()->setWorkingDatabase(nullptr);
    acrxSysRegistry()->remove(protocol::kObjectionsKey);
    acrxSysRegistry()->remove(ACRX_REGISTERED_COMMANDS);
    if (g_current == this) g_current = nullptr;
}

DisplayList& Editor::displayOf(AcDbObjectId space) const {
    std::unique_ptr<DisplayList>& list = m_displays[space];
    if (!list) list = std::make_unique<DisplayList>(*m_database, space);
    return *list;
}

DisplayList& Editor::displayThrough(const AcDbViewport& viewport) const {
    /// Each follows the drawing: those of scales not seen for long go.
    constexpr std::size_t kMost = 8;
    DisplayList& model = displayOf(m_database->core().modelSpaceId());
    const double factor = annotationFactor(viewport);
    if (factor == 1.0) return model;
    const auto known = std::ranges::find_if(m_resized, [factor](const ResizedDisplay& each) {
        return std::abs(each.factor - factor) <= 1e-9 * factor;
    });
    if (known != m_resized.end()) {
        std::rotate(known, known + 1, m_resized.end());
    } else {
        if (m_resized.size() == kMost) m_resized.erase(m_resized.begin());
        m_resized.push_back({factor, std::make_unique<DisplayList>(model, factor)});
    }
    return *m_resized.back().list;
}

DisplayList& Editor::shownDisplay() const {
    const AcDbViewport* const through = viewportOf(m_spaces.viewport());
    return through != nullptr ? displayThrough(*through) : display();
}

// --- Output -------------------------------------------------------------------------------------

void Editor::print(std::wstring_view text) {
    if (text.empty()) return;
    recordText(text);
    m_ui.print(text);
}

void Editor::alert(std::wstring_view text) {
    recordAlert(text);
    m_ui.alert(text);
}

void Editor::complain(std::wstring_view text, Complaint kind) {
    m_typing.stop();
    recordText(std::wstring(text) + L"\n");
    m_ui.complain(text, kind);
}

AcGePoint3d Editor::lastPoint() const {
    return m_ucs * m_database->core().variables().point(L"LASTPOINT");
}

void Editor::setLastPoint(const AcGePoint3d& world) {
    m_database->core().variables().force(L"LASTPOINT", m_ucs.inverse() * world);
}

void Editor::setUcs(const AcGeMatrix3d& ucs) {
    const AcGePoint3d last = lastPoint();
    keepUserSystem(m_database->core().variables(), ucs);
    setLastPoint(last);
}

void Editor::followUcs() {
    const AcGePoint3d last = lastPoint();
    m_ucs = currentUserSystem(m_database->core());
    setLastPoint(last);
}

// --- Main loop ----------------------------------------------------------------------------------

void Editor::run() {
    while (step()) {
    }
}

bool Editor::step() {
    if (m_quit) return false;
    try {
        return stepOn();
    } catch (const std::bad_alloc&) {
        complain(L"Memória insuficiente: o que foi pedido não foi feito.");
        return !m_quit;
    }
}

bool Editor::stepOn() {
    if (m_runner.serveWaiting()) return !m_quit;
    m_typing.betweenCommands();
    m_spaces.settle();
    InputRequest request;
    request.kind = InputKind::Command;
    request.prompt = L"Comando: ";
    std::optional<RawInput> input = m_typing.take(request);
    if (!input) input = m_ui.ask(request);
    if (input->kind == RawInput::Kind::EndOfInput) return false;
    takeAtCommand(*input);
    return !m_quit;
}

void Editor::takeAtCommand(const RawInput& input) {
    using Shift = CurrentSelection::Shift;
    switch (input.kind) {
        case RawInput::Kind::Cancel:
            if (m_selection.empty()) break;  // nothing to cancel, nothing to say
            m_selection.clear();
            print(L"*Cancelar*\n");
            m_ui.refresh();
            break;
        case RawInput::Kind::Pick:
            m_selection.pick(input.entities, input.removes ? Shift::Down : Shift::Up);
            m_ui.refresh();
            break;
        case RawInput::Kind::Text:
            m_runner.startOrRepeat(input.text);
            break;
        default:
            break;  // positions of the pointer
    }
}

// --- Variables ----------------------------------------------------------------------------------

SystemVariables& Editor::variables() const {
    SystemVariables& variables = m_database->core().variables();
    short active = m_runner.activeBits();
    if (m_typing.inScript()) active = static_cast<short>(active | 4);
    if (dcl::openDialogs() > 0) active = static_cast<short>(active | 8);
    variables.force(L"CMDACTIVE", active);
    if (std::get<std::wstring>(variables.find(L"CMDNAMES")->value) != m_runner.names())
        variables.force(L"CMDNAMES", m_runner.names());
    variables.force(L"VIEWSIZE", m_screen.view().height);
    variables.force(L"VIEWCTR", m_ucs.inverse() * m_screen.view().centre);
    variables.force(L"SCREENSIZE", AcGePoint3d(m_screen.width(), m_screen.height(), 0.0));
    return variables;
}

const VariableInfo* Editor::variable(std::wstring_view name) const {
    if (equalNoCase(name, L"EXTMIN") || equalNoCase(name, L"EXTMAX")) measureExtents();
    return variables().find(name);
}

/// No change of the drawing: nothing to undo, nobody is told.
void Editor::measureExtents() const {
    AcDbExtents all;
    for (const AcDbObjectId& id : entitiesOfSpace(*this)) {
        const AcDbObjectPointer<AcDbEntity> entity(id, AcDb::kForRead);
        AcDbExtents one;
        if (entity.openStatus() == Acad::eOk && entity->getGeomExtents(one) == Acad::eOk &&
            !one.isEmpty())
            all.addExt(one);
    }
    constexpr double kFar = 1e20;
    SystemVariables& variables = m_database->core().variables();
    variables.mirror(L"EXTMIN", all.isEmpty() ? AcGePoint3d(kFar, kFar, kFar) : all.minPoint());
    variables.mirror(L"EXTMAX", all.isEmpty() ? AcGePoint3d(-kFar, -kFar, -kFar) : all.maxPoint());
}

}  // namespace prancheta
