// SPDX-License-Identifier: MIT
// The model, the sheets and their viewports as places to draw.
#include "prancheta/editor/spaces.h"

#include <algorithm>

#include "prancheta/base/raised.h"
#include "prancheta/base/text.h"
#include "prancheta/database/database_core.h"
#include "prancheta/editor/editor.h"
#include "prancheta/editor/scene.h"
#include "prancheta/entities/viewports.h"

namespace prancheta {
namespace {

constexpr double kSheetMargin = 1.1;

/// A change of the view is no change of the drawing.
class Unrecorded {
public:
    explicit Unrecorded(UndoLog& undo) : m_undo(undo) { m_undo.setRecording(false); }
    ~Unrecorded() { m_undo.setRecording(true); }
    Unrecorded(const Unrecorded&) = delete;
    Unrecorded& operator=(const Unrecorded&) = delete;

private:
    UndoLog& m_undo;
};

bool isGone(AcDbObjectId id) { return !id.isNull() && id.isErased(); }

}  // namespace

AcDbObjectId Spaces::tab() const {
    return m_tab.isNull() || m_tab.isErased() ? m_editor.database().core().modelSpaceId() : m_tab;
}

bool Spaces::onSheet() const { return tab() != m_editor.database().core().modelSpaceId(); }

View Spaces::tabView() const {
    return m_viewport.isNull() ? m_editor.screen().view() : m_sheetView;
}

View Spaces::modelView() const {
    if (!onSheet()) return m_editor.screen().view();
    const auto known = m_views.find(m_editor.database().core().modelSpaceId());
    return known != m_views.end() ? known->second : View();
}

std::vector<AcDbObjectId> Spaces::viewports() const { return viewportsOf(tab()); }

AcDbObjectId Spaces::viewportNumbered(int number) const {
    for (const AcDbObjectId& id : viewports())
        if (viewportOf(id)->number() == number) return id;
    return {};
}

AcDbObjectId Spaces::viewportAt(const AcGePoint3d& onSheet) const {
    std::vector<AcDbObjectId> ids = viewports();
    std::reverse(ids.begin(), ids.end());
    for (const AcDbObjectId& id : ids)
        if (viewportOf(id)->isOn() && frameOf(*viewportOf(id)).contains(onSheet.x, onSheet.y))
            return id;
    return {};
}

AcDbObjectId Spaces::usualViewport() const {
    std::vector<AcDbObjectId> ids = viewports();
    std::erase_if(ids, [](AcDbObjectId id) { return !viewportOf(id)->isOn(); });
    if (std::find(ids.begin(), ids.end(), m_lastViewport) != ids.end()) return m_lastViewport;
    return ids.empty() ? AcDbObjectId() : ids.back();
}

// --- Going from place to place ------------------------------------------------------------------

void Spaces::placeChanged() {
    DatabaseCore& core = m_editor.database().core();
    core.setCurrentSpace(drawsOnPaper() ? m_tab : core.modelSpaceId());
    m_editor.followUcs();
    m_editor.selection().clear();
    m_editor.selection().setPrevious({});
    tellVariables();
    m_editor.ui().refresh();
}

void Spaces::tellVariables() const {
    SystemVariables& variables = m_editor.database().core().variables();
    const AcDbViewport* const viewport = viewportOf(m_viewport);
    variables.mirror(L"CTAB", tabOf(m_editor.database(), tab()).name);
    variables.mirror(L"TILEMODE", static_cast<short>(onSheet() ? 0 : 1));
    variables.mirror(L"CVPORT", static_cast<short>(viewport != nullptr ? viewport->number()
                                                   : onSheet()         ? 1
                                                                       : 2));
}

void Spaces::show(const Tab& wanted) {
    if (!m_viewport.isNull()) leave();
    if (wanted.block == tab()) return;
    m_views[tab()] = m_editor.screen().view();
    m_tab = wanted.block;
    if (onSheet()) m_lastSheet = m_tab;
    m_lastViewport.setNull();
    const auto known = m_views.find(m_tab);
    View view;
    if (known != m_views.end()) {
        view = known->second;
    } else {
        const Box2d sheet = sheetOf(wanted);
        view.centre = {(sheet.left + sheet.right) / 2.0, (sheet.bottom + sheet.top) / 2.0, 0.0};
        view.height =
            kSheetMargin * std::max(sheet.height(), sheet.width() * m_editor.screen().height() /
                                                        m_editor.screen().width());
    }
    m_editor.screen().begin(view);
    placeChanged();
}

View Spaces::viewThrough(const AcDbViewport& viewport) const {
    const View sheet = tabView();
    return {viewport.modelToSheet().inverse() * sheet.centre,
            sheet.height / viewport.customScale()};
}

std::wstring Spaces::enter(AcDbObjectId id) {
    const AcDbViewport* const viewport = viewportOf(id);
    if (viewport == nullptr || viewport->ownerId() != tab())
        return L"Não há janela de visualização neste layout; crie uma com MVIEW.";
    if (!viewport->isOn()) return L"A janela está desligada; ligue-a com MVIEW Ligar.";
    if (viewport->twistAngle() != 0.0)
        return L"Por uma janela de vista girada não se desenha; desenhe na aba Modelo.";
    if (!m_viewport.isNull()) leave();
    m_sheetView = m_editor.screen().view();
    const View view = viewThrough(*viewport);
    m_viewport = m_lastViewport = id;
    m_editor.screen().begin(view);
    placeChanged();
    return {};
}

void Spaces::leave() {
    if (m_viewport.isNull()) return;
    m_viewport.setNull();
    m_editor.screen().begin(m_sheetView);
    placeChanged();
}

void Spaces::viewChanged() {
    if (m_viewport.isNull() || m_following) return;
    const View view = m_editor.screen().view();
    const AcDbViewport* const shown = viewportOf(m_viewport);
    if (shown == nullptr) return;
    if (shown->isLocked()) {
        m_sheetView.centre = shown->modelToSheet() * view.centre;
        m_sheetView.height = view.height * shown->customScale();
        return;
    }
    const Unrecorded unrecorded(m_editor.database().core().undo());
    const AcDbObjectPointer<AcDbViewport> viewport(m_viewport, AcDb::kForWrite);
    if (viewport.openStatus() != Acad::eOk) return;
    const double scale = m_sheetView.height / view.height;
    const AcGePoint3d middle = view.centre + (viewport->centerPoint() - m_sheetView.centre) / scale;
    const AcGeVector3d fromTarget = middle - viewport->viewTarget();
    (void)viewport->setCustomScale(scale);  // heights of views are above 0
    (void)viewport->setViewCenter({fromTarget.x, fromTarget.y});
}

void Spaces::viewportChanged() {
    const AcDbViewport* const viewport = viewportOf(m_viewport);
    if (viewport == nullptr) return;
    const Raised following(m_following);
    m_editor.screen().begin(viewThrough(*viewport));
}

void Spaces::tabsChanged() {
    tellVariables();
    m_editor.ui().refresh();
}

void Spaces::settle() {
    if (isGone(m_viewport)) leave();
    if (isGone(m_lastSheet)) m_lastSheet.setNull();
    if (!isGone(m_tab)) {
        // Undo gives a tab its former name.
        const std::wstring name = tabOf(m_editor.database(), tab()).name;
        if (m_editor.database().core().variables().text(L"CTAB") != name) tabsChanged();
        return;
    }
    m_tab.setNull();
    m_editor.screen().begin(m_views[m_editor.database().core().modelSpaceId()]);
    placeChanged();
}

void Spaces::reset() {
    m_tab.setNull();
    m_lastSheet.setNull();
    m_viewport.setNull();
    m_lastViewport.setNull();
    m_views.clear();
    m_editor.database().core().setCurrentSpace({});
    tellVariables();
}

// --- Variables ----------------------------------------------------------------------------------

Result<void> Spaces::check(const VariableInfo& info, const VariableValue& value) const {
    if (info.name == L"CTAB") {
        const std::wstring& name = std::get<std::wstring>(value);
        if (tabNamed(m_editor.database(), name).block.isNull())
            return Error{"não existe o layout " + toUtf8(name) + "; LAYOUT ? lista os que há"};
    }
    if (info.name != L"CVPORT") return {};
    const short number = std::get<short>(value);
    if (!onSheet()) return Error{"CVPORT muda só num layout"};
    if (number != 1 && viewportNumbered(number).isNull())
        return Error{"não há janela com este número no layout"};
    return {};
}

void Spaces::variableChanged(const VariableInfo& info) {
    AcDbDatabase& database = m_editor.database();
    if (info.name == L"CTAB") {
        show(tabNamed(database, std::get<std::wstring>(info.value)));
    } else if (info.name == L"TILEMODE") {
        const std::vector<Tab> tabs = tabsOf(database);
        const bool model = std::get<short>(info.value) != 0;
        show(model || m_lastSheet.isNull() ? tabs[model ? 0 : 1] : tabOf(database, m_lastSheet));
    } else if (info.name == L"CVPORT") {
        const short number = std::get<short>(info.value);
        const std::wstring why = number == 1 ? std::wstring() : enter(viewportNumbered(number));
        if (number == 1) leave();
        if (!why.empty()) m_editor.complain(why, Complaint::Refused);
        tellVariables();
    }
}

}  // namespace prancheta
