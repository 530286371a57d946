// SPDX-License-Identifier: MIT
// The editor: construction, input and output, main loop, view.
#include "prancheta/editor/editor.h"

#include <algorithm>
#include <unordered_set>

#include "adscodes.h"
#include "prancheta/base/text.h"
#include "prancheta/database/database_core.h"
#include "prancheta/dcl/dialog.h"
#include "prancheta/display/appearance.h"
#include "prancheta/display/display_list.h"
#include "prancheta/editor/command_stack.h"
#include "prancheta/editor/documents.h"
#include "prancheta/editor/events.h"
#include "prancheta/editor/modules.h"
#include "prancheta/editor/picking.h"
#include "prancheta/editor/running.h"
#include "prancheta/editor/scene.h"
#include "prancheta/editor/selection_sets.h"
#include "prancheta/editor/snap_modes.h"
#include "prancheta/editor/typed_input.h"
#include "rxdict.h"

namespace prancheta {
namespace {

/// The one that the C-style interface talks to.
Editor* g_current = nullptr;

constexpr std::size_t kPreviousViews = 10;
/// Scripts that call each other would go on for ever.
constexpr int kMostScriptsInARow = 100;

}  // namespace

Editor* Editor::current() { return g_current; }

Editor::Editor(UserInterface& ui, std::span<const BuiltInCommand> builtIns) : m_ui(ui) {
    registerEditorClasses();
    g_current = this;
    m_commands = std::make_unique<CommandStack>(builtIns);
    m_acEditor = makeAcEditor(*this);
    m_document = makeDocument(*this);
    m_documentManager = makeDocumentManager(*this);
    m_modules = std::make_unique<ModuleTable>(*this);
    m_selectionSets = std::make_unique<SelectionSets>();
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
    stopTyping();
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
    const bool snapsTyped = asTyped == 0 || (asTyped == 2 && m_inScript);
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
    if (std::optional<RawInput> typed = takeTyped(request)) {
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

void Editor::useTyped(std::size_t count) {
    m_typeAheadUsed += count;
    if (m_typeAheadUsed < m_typeAhead.size()) return;
    m_typeAhead.clear();
    m_typeAheadUsed = 0;
}

void Editor::skipComments() {
    const auto rest = [this] { return std::wstring_view(m_typeAhead).substr(m_typeAheadUsed); };
    while (m_typeAheadLineStart && rest().starts_with(L';'))
        useTyped(std::min(rest().find(L'\n'), rest().size() - 1) + 1);
}

/// Next answer of what was typed ahead.
std::optional<RawInput> Editor::takeTyped(const InputRequest& request) {
    skipComments();
    if (m_inScript && m_typeAhead.empty()) {
        m_inScript = false;
        m_typeAhead = std::exchange(m_afterScript, {});
        m_typeAheadLineStart = true;
        skipComments();
    }
    if (m_typeAhead.empty()) return {};
    const std::wstring_view keys = std::wstring_view(m_typeAhead).substr(m_typeAheadUsed);
    const bool wholeLine = request.kind == InputKind::Text && request.blanksAllowed;
    const bool quoted = !wholeLine && keys.front() == L'"';
    std::size_t end = quoted ? keys.find(L'"', 1) : 0;
    end = keys.find_first_of(wholeLine ? L"\n" : L" \n", end == keys.npos ? 0 : end);
    RawInput input;
    input.kind = RawInput::Kind::Text;
    input.text = keys.substr(0, end);
    std::erase(input.text, L'\r');
    if (quoted) std::erase(input.text, L'"');
    m_typeAheadLineStart = end == keys.npos || keys[end] == L'\n';
    useTyped(end == keys.npos ? keys.size() : end + 1);
    if (m_inScript) print(request.prompt + input.text + L"\n");
    return input;
}

void Editor::stopTyping() {
    if (m_inScript) m_restOfScript = m_typeAhead.substr(m_typeAheadUsed);
    m_inScript = false;
    m_typeAhead.clear();
    m_afterScript.clear();
    m_typeAheadUsed = 0;
    m_typeAheadLineStart = true;
}

bool Editor::runScript(std::wstring keys) {
    m_scriptsInARow = m_inScript ? m_scriptsInARow + 1 : 0;
    if (m_scriptsInARow > kMostScriptsInARow) return false;
    if (!m_inScript) m_afterScript = m_typeAhead.substr(m_typeAheadUsed);
    m_restOfScript.clear();
    m_typeAhead = std::move(keys);
    m_typeAheadUsed = 0;
    m_typeAheadLineStart = true;
    m_inScript = true;
    return true;
}

bool Editor::resumeScript() {
    return !m_restOfScript.empty() && runScript(std::exchange(m_restOfScript, {}));
}

/// Between two commands: the undo group of a script begins and ends here, so that no command's own
/// group is cut in two.
void Editor::groupScript() {
    if (m_inScript && !m_ui.pass(std::chrono::milliseconds(0))) {
        stopTyping();
        print(L"*Cancelar*\n");
    }
    if (m_inScript) skipComments();
    const bool running = m_inScript && !m_typeAhead.empty();
    if (running == m_scriptGroup) return;
    m_scriptGroup = running;
    UndoLog& undo = m_database->core().undo();
    running ? undo.beginScriptGroup() : undo.endScriptGroup();
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
    groupScript();
    InputRequest request;
    request.kind = InputKind::Command;
    request.prompt = L"Comando: ";
    std::optional<RawInput> input = takeTyped(request);
    if (!input) input = m_ui.ask(request);
    switch (input->kind) {
        case RawInput::Kind::EndOfInput:
            return false;
        case RawInput::Kind::Cancel:
            clearPickfirst();
            print(L"*Cancelar*\n");
            m_ui.refresh();
            break;
        case RawInput::Kind::Pick:
            pick(input->entities, input->removes ? Shift::Down : Shift::Up);
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

// --- Selection ----------------------------------------------------------------------------------

void Editor::clearPickfirst() {
    m_pickfirst.clear();
    m_hotGrips.clear();
}

void Editor::pick(const std::vector<AcDbObjectId>& ids, Shift shift) {
    const SystemVariables& variables = m_database->core().variables();
    if (variables.number(L"PICKFIRST") == 0) return;
    const bool alone = variables.number(L"PICKADD") == 0;
    const bool replaces = alone && shift == Shift::Up;
    const std::size_t before = m_pickfirst.size();
    const auto idOf = [](const AcDbObjectId& id) { return id.asOldId(); };
    std::unordered_set<Adesk::LongPtr> named;
    for (const AcDbObjectId& id : ids) named.insert(idOf(id));
    std::erase_if(m_pickfirst,
                  [&](const AcDbObjectId& id) { return replaces || named.contains(idOf(id)); });
    // Where every pick replaces, Shift is the way to add.
    if (shift == Shift::Down && (!alone || m_pickfirst.size() < before)) return;
    for (const AcDbObjectId& id : ids)
        if (named.erase(idOf(id)) != 0) m_pickfirst.push_back(id);
}

// --- View ---------------------------------------------------------------------------------------

void Editor::setView(const View& view, ViewChange change) {
    if (change == ViewChange::Step) m_previousViews.push_back(m_view);
    if (m_previousViews.size() > kPreviousViews) m_previousViews.erase(m_previousViews.begin());
    m_view = view;
    m_viewChosen = true;
    m_ui.refresh();
}

bool Editor::restorePreviousView() {
    if (m_previousViews.empty()) return false;
    m_view = m_previousViews.back();
    m_previousViews.pop_back();
    m_viewChosen = true;
    m_ui.refresh();
    return true;
}

void Editor::setScreenSize(double width, double height) {
    m_screenWidth = std::max(width, 1.0);
    m_screenHeight = std::max(height, 1.0);
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
    if (m_inScript) active = static_cast<short>(active | 4);
    if (dcl::openDialogs() > 0) active = static_cast<short>(active | 8);
    variables.force(L"CMDACTIVE", active);
    if (std::get<std::wstring>(variables.find(L"CMDNAMES")->value) != names)
        variables.force(L"CMDNAMES", names);
    variables.force(L"VIEWSIZE", m_view.height);
    variables.force(L"VIEWCTR", m_ucs.inverse() * m_view.centre);
    variables.force(L"SCREENSIZE", AcGePoint3d(m_screenWidth, m_screenHeight, 0.0));
}

}  // namespace prancheta
