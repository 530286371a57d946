// SPDX-License-Identifier: MIT
// The status bar.
#include "prancheta/desktop/shell/status_bar.h"

#include <QFontDatabase>
#include <QMenu>

#include <cmath>

#include "prancheta/desktop/panels/panels.h"
#include "prancheta/editor/snap_modes.h"

namespace prancheta::desktop {
namespace {

constexpr short kSnapsOff = 16384;

}  // namespace

const StatusBar::Aid StatusBar::kAids[] = {
    {"PASSO", L"SNAPMODE", 1, false, "Prende o cursor aos pontos da grade de passo (F9)"},
    {"GRADE", L"GRIDMODE", 1, false, "Mostra a grade (F7)"},
    {"ORTO", L"ORTHOMODE", 1, false, "Prende o cursor às direções X e Y (F8)"},
    {"SNAP", L"OSMODE", kSnapsOff, true,
     "Prende o cursor aos pontos notáveis dos objetos (F3); botão direito: quais"},
    {"ESPESSURA", L"LWDISPLAY", 1, false, "Mostra as espessuras de linha"},
};

StatusBar::StatusBar(QWidget* tabs, QWidget* parent)
    : QStatusBar(parent),
      m_coordinates(new QLabel(this)),
      m_totals(new QLabel(this)),
      m_viewport(new ViewportButton(this)),
      m_scale(new ScaleButton(this)) {
    m_coordinates->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    m_coordinates->setMinimumWidth(m_coordinates->fontMetrics().horizontalAdvance('0') * 22);
    m_coordinates->setObjectName("coordenadas");
    m_totals->setObjectName("totais");
    addWidget(tabs);
    addWidget(m_coordinates);
    for (std::size_t i = 0; i < std::size(kAids); ++i) {
        auto* const button = new QToolButton(this);
        button->setText(kAids[i].name);
        button->setObjectName(kAids[i].name);
        button->setToolTip(kAids[i].tip);
        button->setCheckable(true);
        button->setAutoRaise(true);
        button->setFocusPolicy(Qt::NoFocus);
        connect(button, &QToolButton::clicked, this, [this, i] { toggle(i); });
        if (kAids[i].bit == kSnapsOff) {
            button->setContextMenuPolicy(Qt::CustomContextMenu);
            connect(button, &QWidget::customContextMenuRequested, this,
                    [this, button](const QPoint& at) { showSnapMenu(button->mapToGlobal(at)); });
        }
        addWidget(button);
        m_buttons.push_back(button);
    }
    m_scale->setObjectName("escala");
    connect(m_scale, &ScaleButton::scaleWanted, this, &StatusBar::scaleWanted);
    connect(m_viewport, &ViewportButton::changed, this, [this] {
        refresh();
        emit changed();
    });
    addPermanentWidget(m_totals);
    addPermanentWidget(m_viewport);
    addPermanentWidget(m_scale);
    setSizeGripEnabled(false);
}

void StatusBar::setEditor(Editor* editor) {
    m_editor = editor;
    m_viewport->setEditor(editor);
    m_scale->setEditor(editor);
    refresh();
}

void StatusBar::setVariable(const wchar_t* name, int value) {
    (void)m_editor->variables().set(name, static_cast<short>(value));  // in range by construction
    refresh();
    emit changed();
}

void StatusBar::toggle(std::size_t index) {
    if (m_editor == nullptr) return;
    const Aid& aid = kAids[index];
    setVariable(aid.variable, m_editor->variables().number(aid.variable) ^ aid.bit);
}

void StatusBar::toggle(const QString& name) {
    for (std::size_t i = 0; i < std::size(kAids); ++i)
        if (name == kAids[i].name) toggle(i);
}

bool StatusBar::isOn(const QString& name) const {
    for (std::size_t i = 0; i < std::size(kAids); ++i)
        if (name == kAids[i].name) return m_buttons[i]->isChecked();
    return false;
}

void StatusBar::showSnapMenu(const QPoint& position) {
    if (m_editor == nullptr) return;
    QMenu menu(this);
    const int present = m_editor->variables().number(L"OSMODE");
    for (const SnapMode& mode : kSnapModes) {
        QAction* const action = menu.addAction(QString::fromWCharArray(mode.local));
        action->setCheckable(true);
        action->setChecked((present & mode.bit) != 0);
        connect(action, &QAction::triggered, this,
                [this, present, mode] { setVariable(L"OSMODE", present ^ mode.bit); });
    }
    menu.exec(position);
}

void StatusBar::refresh() {
    if (m_editor == nullptr) return;
    m_scale->refresh();
    const SystemVariables& variables = m_editor->variables();
    for (std::size_t i = 0; i < m_buttons.size(); ++i) {
        const bool set = (variables.number(kAids[i].variable) & kAids[i].bit) != 0;
        m_buttons[i]->setChecked(set != kAids[i].inverted);
    }
    m_totals->setText(selectionTotals(*m_editor));
    m_viewport->refresh();
}

void StatusBar::showPointer(const AcGePoint3d& world) {
    if (m_editor == nullptr) return;
    const AcGePoint3d p = m_editor->ucs().inverse() * world;
    const int decimals = m_editor->variables().number(L"LUPREC");
    const auto number = [decimals](double value) {
        const QString text = QString::number(value, 'f', decimals);
        // What rounds to nothing has no sign.
        return text.toDouble() == 0.0 ? QString::number(0.0, 'f', decimals) : text;
    };
    m_coordinates->setText(number(p.x) + ", " + number(p.y));
    // The wheel changes the scale of the viewport that is drawn through.
    if (!m_editor->spaces().viewport().isNull()) m_viewport->refresh();
}

}  // namespace prancheta::desktop
