// SPDX-License-Identifier: MIT
// The editor: construction, input and output, main loop, view.
#include "prancheta/editor/editor.h"

#include <algorithm>

#include "adscodes.h"
#include "prancheta/base/text.h"
#include "prancheta/database/database_core.h"
#include "prancheta/dcl/dialog.h"
#include "prancheta/display/appearance.h"
#include "prancheta/display/display_list.h"
#include "prancheta/editor/command_stack.h"
#include "prancheta/editor/events.h"
#include "prancheta/editor/modules.h"
#include "prancheta/editor/picking.h"
#include "prancheta/editor/running.h"
#include "prancheta/editor/scene.h"
#include "prancheta/editor/snap_modes.h"
#include "prancheta/editor/typed_input.h"
#include "rxdict.h"

namespace prancheta {
namespace {

/// The one that the C-style interface talks to.
Editor* g_current = nullptr;

}  // namespace

Editor* Editor::current() { return g_current; }

Editor::Editor(UserInterface& ui, std::span<const BuiltInCommand> builtIns)
    : m_ui(ui),
      m_screen(ui),
      m_typing(*this),
      m_selection(*this),
      m_file(*this),
      m_programs(*this) {
    registerEditorClasses();
    g_current = this;
    m_commands = std::make_unique<CommandStack>(builtIns);
    m_modules = std::make_unique<ModuleTable>(*this);
    acrxSysRegistry()->atPut(ACRX_REGISTERED_COMMANDS, m_commands.get());
    adoptDatabase(std::make_unique<AcDbDatabase>(), {});
    tellOpened();
}

Editor::~Editor() {
    m_running.clear();
    tellClosing();
    // No object of a module's class may outlive the module; an empty drawing stands in till the
    // end.
    adoptDatabase(std::make_unique<AcDbDatabase>(), {});
    m_modules->unloadAll();
    acdbHostApplicationServices()->setWorkingDatabase(nullptr);
    acrxSysRegistry()->remove(ACRX_REGISTERED_COMMANDS);
    if (g_current == this) g_current = nullptr;
}

// --- Input and output ---------------------------------------------------------------------------

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

void Editor::refuse(const RawInput& input, std::wstring_view why) {
    const bool enter = input.kind == RawInput::Kind::Text && trim(input.text).empty();
    complain(why, enter ? Complaint::Again : Complaint::Refused);
}

bool Editor::echo() const {
    return m_tokens == nullptr || m_database->core().variables().number(L"CMDECHO") != 0;
}

InputFrame Editor::inputFrame(const RawInput& input) const {
    InputFrame frame;
    const SystemVariables& variables = m_database->core().variables();
    frame.lastPoint = variables.point(L"LASTPOINT");
    frame.ucs = m_ucs;
    frame.angleBase = variables.real(L"ANGBASE");
    frame.clockwise = variables.number(L"ANGDIR") != 0;
    frame.angleUnits = variables.number(L"AUNITS");
    frame.ortho = variables.number(L"ORTHOMODE") != 0;
    if (frame.ortho) frame.snapAngle = variables.real(L"SNAPANG");
    const int asTyped = variables.number(L"OSNAPCOORD");
    const bool snapsTyped = asTyped == 0 || (asTyped == 2 && m_typing.inScript());
    if (snapsTyped && input.kind == RawInput::Kind::Text) {
        const int running = variables.number(L"OSMODE");
        if ((running & kSnapsOff) == 0) frame.runningSnaps = running;
    }
    frame.pointer = input.pointer ? input.pointer : m_pointer;
    frame.snap = [this](const AcGePoint3d& p, int modes, SnapReach reach,
                        const std::optional<AcGePoint3d>& base) {
        return snapPoint(*this, p, modes, reach, base);
    };
    frame.pick = [this](const AcGePoint3d& p) { return entityAt(*this, p); };
    frame.last = [this] { return lastEntity(*this); };
    frame.byHandle = [this](Adesk::UInt64 handle) {
        AcDbStub* stub = m_database->core().find(handle);
        const bool entity =
            stub != nullptr && !stub->erased && AcDbEntity::cast(stub->object) != nullptr;
        return entity ? AcDbObjectId(stub) : AcDbObjectId::kNull;
    };
    return frame;
}

void Editor::keepLastPoint(const InputFrame& frame, const AcGePoint3d& before) {
    const AcGePoint3d& now = frame.lastPoint;
    if (now.x == before.x && now.y == before.y && now.z == before.z) return;
    m_database->core().variables().force(L"LASTPOINT", now);
}

AcGePoint3d Editor::lastPoint() const {
    return m_ucs * m_database->core().variables().point(L"LASTPOINT");
}

void Editor::setLastPoint(const AcGePoint3d& world) {
    m_database->core().variables().force(L"LASTPOINT", m_ucs.inverse() * world);
}

RawInput Editor::askRaw(const InputRequest& request) {
    if (request.kind != InputKind::Drag) recordPrompt(request);
    RawInput input;
    if (std::optional<RawInput> typed = m_typing.take(request)) {
        input = std::move(*typed);
    } else if (!m_running.empty() && m_running.back()->transparent) {
        InputRequest inner = request;
        const std::size_t text =
            std::min(inner.prompt.find_first_not_of(L'\n'), inner.prompt.size());
        inner.prompt.insert(text, L">>");
        input = m_ui.ask(inner);
    } else {
        input = m_ui.ask(request);
    }
    const bool placed = input.kind == RawInput::Kind::Pick || input.kind == RawInput::Kind::Move;
    if (placed) m_pointer = input.point;
    if (input.pointer) m_pointer = input.pointer;
    return input;
}

// --- Main loop ----------------------------------------------------------------------------------

void Editor::run() {
    while (step()) {
    }
}

bool Editor::step() {
    if (m_quit) return false;
    if (RunningCommand* command = waiting()) {
        serve(*command);
        return !m_quit;
    }
    m_typing.betweenCommands();
    InputRequest request;
    request.kind = InputKind::Command;
    request.prompt = L"Comando: ";
    std::optional<RawInput> input = m_typing.take(request);
    if (!input) input = m_ui.ask(request);
    switch (input->kind) {
        case RawInput::Kind::EndOfInput:
            return false;
        case RawInput::Kind::Cancel:
            m_selection.clear();
            print(L"*Cancelar*\n");
            m_ui.refresh();
            break;
        case RawInput::Kind::Pick:
            m_selection.pick(input->entities, input->removes ? CurrentSelection::Shift::Down
                                                             : CurrentSelection::Shift::Up);
            m_ui.refresh();
            break;
        case RawInput::Kind::Move:
        case RawInput::Kind::Snap:
            break;
        case RawInput::Kind::Text:
            if (trim(input->text).empty()) {
                if (!m_lastCommand.empty()) (void)startNamed(m_lastCommand, Origin::User);
            } else {
                (void)startNamed(input->text, Origin::User);
            }
            break;
    }
    return !m_quit;
}

// --- Variables ----------------------------------------------------------------------------------

SystemVariables& Editor::variables() const {
    updateVariables();
    return m_database->core().variables();
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

void Editor::updateVariables() const {
    SystemVariables& variables = m_database->core().variables();
    std::wstring& names = m_commandNames;
    names.clear();
    short active = 0;
    for (const auto& command : m_running) {
        if (!names.empty()) names += L'\'';
        names += command->shownName;
        active = static_cast<short>(active | (command->transparent ? 3 : 1));
    }
    if (m_typing.inScript()) active = static_cast<short>(active | 4);
    if (dcl::openDialogs() > 0) active = static_cast<short>(active | 8);
    variables.force(L"CMDACTIVE", active);
    if (std::get<std::wstring>(variables.find(L"CMDNAMES")->value) != names)
        variables.force(L"CMDNAMES", names);
    variables.force(L"VIEWSIZE", m_screen.view().height);
    variables.force(L"VIEWCTR", m_ucs.inverse() * m_screen.view().centre);
    variables.force(L"SCREENSIZE", AcGePoint3d(m_screen.width(), m_screen.height(), 0.0));
}

}  // namespace prancheta
