// SPDX-License-Identifier: MIT
// The scale of viewports, in the status bar.
#include "prancheta/desktop/shell/viewport_button.h"

#include <QActionGroup>
#include <QMenu>

#include <algorithm>

#include "prancheta/editor/edit_group.h"
#include "prancheta/editor/paper_scale.h"
#include "prancheta/editor/picking.h"
#include "prancheta/entities/viewports.h"

namespace prancheta::desktop {
namespace {

/// Usual scales of what a sheet shows, 1 to this.
constexpr int kViewportScales[] = {1, 2, 5, 10, 15, 20, 25, 30, 40, 50, 75, 100};

QString scaleOf(AcDbObjectId id) {
    return QString::fromStdWString(paperScaleText(1.0 / viewportOf(id)->customScale()));
}

/// Of all of them; empty when they differ.
QString commonScale(const std::vector<AcDbObjectId>& ids) {
    const QString first = scaleOf(ids.front());
    const bool same = std::all_of(ids.begin(), ids.end(),
                                  [&](const AcDbObjectId& id) { return scaleOf(id) == first; });
    return same ? first : QString();
}

bool isAnyLocked(const std::vector<AcDbObjectId>& ids) {
    return std::any_of(ids.begin(), ids.end(),
                       [](const AcDbObjectId& id) { return viewportOf(id)->isLocked(); });
}

}  // namespace

ViewportButton::ViewportButton(QWidget* parent) : QToolButton(parent) {
    setObjectName("escala_janela");
    setToolTip("Escala da janela do layout");
    setAutoRaise(true);
    setFocusPolicy(Qt::NoFocus);
    setPopupMode(QToolButton::InstantPopup);
    setMenu(new QMenu(this));
    connect(menu(), &QMenu::aboutToShow, this, &ViewportButton::fillMenu);
    hide();
}

std::vector<AcDbObjectId> ViewportButton::viewports() const {
    const Spaces& spaces = m_editor->spaces();
    if (viewportOf(spaces.viewport()) != nullptr) return {spaces.viewport()};
    std::vector<AcDbObjectId> ids = m_editor->selection().ids();
    std::erase_if(
        ids, [](const AcDbObjectId& id) { return viewportOf(id) == nullptr || isSheetsOwn(id); });
    return ids;
}

void ViewportButton::refresh() {
    const std::vector<AcDbObjectId> ids = viewports();
    setVisible(!ids.empty());
    if (ids.empty()) return;
    const QString scale = commonScale(ids);
    setText("Janela " + (scale.isEmpty() ? "de várias escalas" : scale) +
            (isAnyLocked(ids) ? ", bloqueada" : ""));
}

void ViewportButton::fillMenu() {
    menu()->clear();
    const std::vector<AcDbObjectId> ids = viewports();
    if (ids.empty()) return;
    const QString present = commonScale(ids);
    const bool locked = isAnyLocked(ids);
    auto* const scales = new QActionGroup(menu());
    scales->setEnabled(!locked);
    bool listed = present.isEmpty();
    for (const int scale : kViewportScales) {
        QAction* const action = scales->addAction(QString("1:%1").arg(scale));
        action->setCheckable(true);
        action->setChecked(action->text() == present);
        listed = listed || action->isChecked();
        connect(action, &QAction::triggered, this, [this, scale] {
            change([scale](AcDbViewport& viewport) {
                (void)viewport.setCustomScale(1.0 / scale);  // above 0
            });
        });
    }
    if (!listed) {
        QAction* const own = scales->addAction(present);
        own->setCheckable(true);
        own->setChecked(true);
    }
    menu()->addActions(scales->actions());
    menu()->addSeparator();
    QAction* const lock = menu()->addAction("&Bloqueada");
    lock->setCheckable(true);
    lock->setChecked(locked);
    connect(lock, &QAction::triggered, this, [this, locked] {
        change([locked](AcDbViewport& viewport) {
            (void)(locked ? viewport.setUnlocked() : viewport.setLocked());  // open for write
        });
    });
}

void ViewportButton::change(const std::function<void(AcDbViewport&)>& by) {
    const std::vector<AcDbObjectId> ids = viewports();
    if (!EditGroup::possible(*m_editor)) {
        m_editor->complain(L"Há um comando em execução; termine-o (Esc) antes de mudar a janela.",
                           Complaint::Refused);
        return;
    }
    if (std::any_of(ids.begin(), ids.end(), onLockedLayer)) {
        m_editor->complain(L"A camada da janela está bloqueada; desbloqueie-a para mudar a janela.",
                           Complaint::Refused);
        return;
    }
    {
        const EditGroup group(*m_editor, L"ESCALAJANELA");
        for (const AcDbObjectId& id : ids) {
            const AcDbObjectPointer<AcDbViewport> viewport(id, AcDb::kForWrite);
            if (viewport.openStatus() == Acad::eOk) by(*viewport.object());
        }
    }
    m_editor->spaces().viewportChanged();
    emit changed();
}

}  // namespace prancheta::desktop
