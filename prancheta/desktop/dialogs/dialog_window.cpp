// SPDX-License-Identifier: MIT
// Making the widgets, and carrying news between them and the tiles.
#include "prancheta/desktop/dialogs/dialog_window.h"

#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>

#include "prancheta/dcl/kinds.h"
#include "prancheta/dcl/tile_value.h"
#include "prancheta/desktop/dialogs/settings.h"

namespace prancheta::desktop {

DialogWindow::DialogWindow(dcl::Dialog& dialog, QWidget* parent)
    : QDialog(parent), m_dialog(dialog) {
    setWindowFlag(Qt::WindowContextHelpButtonHint, false);
    setObjectName(QString::fromStdString(dialog.name()));
    if (const auto& font = dialogSettings().font) setFont(*font);
    makeFace();
    makeViews(dialog.root());
    showEnabled(dialog.root());
    for (const auto& [tile, view] : m_views) showTile(*tile);
    dialog.onTileChanged = [this](dcl::Tile& tile) { showTile(tile); };
    dialog.onFocus = [this](dcl::Tile& tile, short mode) { focusTile(tile, mode); };
    if (const dcl::Tile* first = dialog.focus()) {
        focusTile(*first, MODE_SETFOCUS);
        if (first->kind == dcl::TileKind::EditBox) focusTile(*first, MODE_SETSEL);
    }
}

DialogWindow::~DialogWindow() {
    m_dialog.onTileChanged = nullptr;
    m_dialog.onFocus = nullptr;
    // Widgets that lose the keyboard while they go must not tell anybody.
    for (const auto& [object, tile] : m_tiles)
        const_cast<QObject*>(object)->removeEventFilter(this);
}

/// The window has the size of the layout; on a screen too small for that, bars to move it.
void DialogWindow::makeFace() {
    constexpr int kWindowFrame = 48;
    m_face = new QWidget(this);
    m_face->setObjectName("face");
    const QSize size = toRect(m_dialog.layout().boxes.front().frame).size();
    m_face->setFixedSize(size);
    const QSize room = screen()->availableSize() - QSize(0, kWindowFrame);
    if (size.width() <= room.width() && size.height() <= room.height()) return setFixedSize(size);
    auto* area = new QScrollArea(this);
    area->setFrameShape(QFrame::NoFrame);
    area->setFocusPolicy(Qt::NoFocus);  // it follows the keyboard inside
    area->setWidget(m_face);
    const int bar = area->verticalScrollBar()->sizeHint().width();
    area->resize((size + QSize(bar, bar)).boundedTo(room));
    setFixedSize(area->size());
}

void DialogWindow::makeViews(dcl::Tile& tile) {
    TileView view;
    if (!dcl::isHidden(tile)) view = makeTileView(*this, tile, *m_dialog.layout().find(tile));
    if (view.widget != nullptr) {
        m_tiles.emplace(view.widget, &tile);
        view.widget->installEventFilter(this);
    }
    m_views.emplace(&tile, std::move(view));
    for (const auto& child : tile.children) makeViews(*child);
}

void DialogWindow::showTile(const dcl::Tile& tile) {
    if (tile.kind == dcl::TileKind::Dialog) setWindowTitle(QString::fromStdWString(tile.value));
    const auto it = m_views.find(&tile);
    if (it == m_views.end()) return;
    showEnabled(tile);
    if (it->second.show) it->second.show();
}

/// A cluster speaks for all that stands in it.
void DialogWindow::showEnabled(const dcl::Tile& tile) {
    const TileView& view = m_views.at(&tile);
    const bool usable = dcl::isUsable(tile);
    if (view.widget != nullptr) view.widget->setEnabled(usable);
    if (view.label != nullptr) view.label->setEnabled(usable);
    for (const auto& child : tile.children) showEnabled(*child);
}

void DialogWindow::focusTile(const dcl::Tile& tile, short mode) {
    const dcl::Tile* target = &tile;
    if (dcl::isRadioCluster(tile.kind)) {
        for (const auto& child : tile.children) {
            if (child->kind != dcl::TileKind::RadioButton) continue;
            if (target == &tile || child->value == L"1") target = child.get();
        }
    }
    QWidget* widget = m_views.at(target).widget;
    if (widget == nullptr) return;
    auto* edit = qobject_cast<QLineEdit*>(widget);
    if (mode != MODE_SETSEL)
        widget->setFocus(Qt::OtherFocusReason);
    else if (edit != nullptr)
        edit->selectAll();
}

void DialogWindow::act(dcl::Tile& tile, const std::function<Result<void>()>& action) {
    if (tile.key.empty()) return;  // nobody can ask for it
    serve(action, &tile);
}

void DialogWindow::serve(const std::function<Result<void>()>& action, const dcl::Tile* tile) {
    if (m_dialog.finished()) return;
    const Result<void> done = action();
    // cppcheck-suppress identicalConditionAfterEarlyExit ; the action may have ended the dialog
    if (m_dialog.finished()) return QDialog::done(Accepted);
    if (done) return;
    QApplication::beep();
    if (tile != nullptr) showTile(*tile);
}

void DialogWindow::reject() {
    serve([this] {
        m_dialog.escape();
        return Result<void>();
    });
}

void DialogWindow::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_F1 && dialogSettings().help)
        return dialogSettings().help(*this, objectName());
    if (event->key() != Qt::Key_Return && event->key() != Qt::Key_Enter)
        return QDialog::keyPressEvent(event);
    if (auto* button = qobject_cast<QPushButton*>(focusWidget())) return button->click();
    const auto it = m_tiles.find(focusWidget());
    const bool inField = it != m_tiles.end() && it->second->kind == dcl::TileKind::EditBox &&
                         !it->second->key.empty();
    const bool handsOver = inField && !dcl::flagAttribute(*it->second, "allow_accept");
    const QWidget* const field = handsOver ? focusWidget() : nullptr;
    serve([&] { return m_dialog.enter(inField ? it->second->key : std::string()); });
    // A field that does not accept by itself hands over to the button that does: the next Enter is
    // its own. A program that wants the keyboard elsewhere has the say.
    if (field == nullptr || m_dialog.finished() || focusWidget() != field) return;
    for (QPushButton* const button : findChildren<QPushButton*>())
        if (button->isDefault() && button->isEnabled()) return button->setFocus();
}

/// What is typed over a list goes to the field that searches in it, when there is one.
bool DialogWindow::searches(const dcl::Tile& tile, QEvent* event) {
    if (event->type() != QEvent::KeyPress || tile.kind != dcl::TileKind::ListBox) return false;
    const auto* const key = static_cast<QKeyEvent*>(event);
    const Qt::KeyboardModifiers others = key->modifiers() & ~Qt::ShiftModifier;
    const bool keypad = others == Qt::KeypadModifier;
    const QString typed = key->text();
    if (typed.isEmpty() || !typed.at(0).isPrint() || typed.at(0).isSpace()) return false;
    if (others != Qt::NoModifier && !keypad) return false;
    for (const auto& [field, view] : m_views) {
        if (!dcl::flagAttribute(*field, "reports_typing") || !dcl::isUsable(*field)) continue;
        view.widget->setFocus(Qt::OtherFocusReason);
        QCoreApplication::sendEvent(view.widget, event);
        return true;
    }
    return false;
}

bool DialogWindow::eventFilter(QObject* watched, QEvent* event) {
    const auto it = m_tiles.find(watched);
    if (it != m_tiles.end() && searches(*it->second, event)) return true;
    if (event->type() == QEvent::FocusIn && it != m_tiles.end())
        serve([&] {
            m_dialog.focusOn(*it->second);
            return Result<void>();
        });
    return QDialog::eventFilter(watched, event);
}

}  // namespace prancheta::desktop
