// SPDX-License-Identifier: MIT
// The status bar.
#include "prancheta/desktop/shell/status_bar.h"

#include <QFontDatabase>
#include <QLocale>
#include <QtMath>

#include <cmath>
#include <memory>

#include "prancheta/desktop/panels/panels.h"
#include "prancheta/editor/snap_modes.h"
#include "prancheta/editor/tracking.h"

namespace prancheta::desktop {
namespace {

/// Usual steps of polar tracking, degrees.
constexpr double kPolarAngles[] = {90, 45, 30, 22.5, 18, 15, 10, 5};
}  // namespace

const StatusBar::Aid StatusBar::kAids[] = {
    {"PASSO", "PASSO", L"SNAPMODE", 1, false, "Prende o cursor aos pontos da grade de passo (F9)"},
    {"GRADE", "GRADE", L"GRIDMODE", 1, false, "Mostra a grade (F7)"},
    {"ORTO", "ORTO", L"ORTHOMODE", 1, false, "Prende o cursor às direções X e Y (F8)"},
    {"POLAR", "POLAR", L"AUTOSNAP", kPolarTracking, false,
     "Prende o cursor às direções polares a partir do último ponto (F10); botão direito: o ângulo",
     &StatusBar::angleMenu},
    {"SNAP", "SNAP", L"OSMODE", kSnapsOff, true,
     "Prende o cursor aos pontos notáveis dos objetos (F3); botão direito: quais",
     &StatusBar::snapMenu},
    {"RASTREIO", "RASTREIO", L"AUTOSNAP", kObjectTracking, false,
     "Alinha o cursor com pontos notáveis em que ele parou um instante (F11)"},
    {"DINAMICA", "DIN", L"DYNMODE", 0, false,
     "Mostra valores ao lado do cursor; Tab passa de um a outro (F12)"},
    {"ESPESSURA", "ESP", L"LWDISPLAY", 1, false, "Mostra as espessuras de linha"},
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
        button->setText(kAids[i].shown);
        button->setAccessibleName(kAids[i].tip);
        button->setObjectName(kAids[i].name);
        button->setToolTip(kAids[i].tip);
        button->setCheckable(true);
        button->setAutoRaise(true);
        button->setFocusPolicy(Qt::NoFocus);
        connect(button, &QToolButton::clicked, this, [this, i] { toggle(i); });
        if (kAids[i].menu != nullptr) {
            button->setContextMenuPolicy(Qt::CustomContextMenu);
            connect(button, &QWidget::customContextMenuRequested, this,
                    [this, i, button](const QPoint& at) {
                        if (m_editor == nullptr) return;
                        const std::unique_ptr<QMenu> menu((this->*kAids[i].menu)());
                        menu->exec(button->mapToGlobal(at));
                    });
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
    // On a screen that is too narrow its end is cut, not the window.
    setMinimumWidth(1);
}

/// Where not all has room the coordinates go first: they also stand beside the cursor.
void StatusBar::resizeEvent(QResizeEvent* event) {
    constexpr int kDigitsOfAll = 110;
    m_coordinates->setVisible(width() >= fontMetrics().horizontalAdvance('0') * kDigitsOfAll);
    QStatusBar::resizeEvent(event);
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
    const short now = m_editor->variables().number(aid.variable);
    // A variable without bits is off when it is not above 0, and keeps its value by its sign.
    const int then = aid.bit != 0 ? now ^ aid.bit : now == 0 ? 3 : -now;
    // The cursor is held to the axes or to the polar directions.
    const SystemVariables& variables = m_editor->variables();
    const bool ortho = aid.variable == std::wstring_view(L"ORTHOMODE");
    if (ortho && then != 0)
        setVariable(L"AUTOSNAP", variables.number(L"AUTOSNAP") & ~kPolarTracking);
    if (aid.bit == kPolarTracking && (then & kPolarTracking) != 0) setVariable(L"ORTHOMODE", 0);
    setVariable(aid.variable, then);
}

bool StatusBar::shownAsOn(const Aid& aid) const {
    const short value = m_editor->variables().number(aid.variable);
    return aid.bit == 0 ? value > 0 : ((value & aid.bit) != 0) != aid.inverted;
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

QMenu* StatusBar::snapMenu() {
    auto* const menu = new QMenu(this);
    const int present = m_editor->variables().number(L"OSMODE");
    for (const SnapMode& mode : kSnapModes) {
        QAction* const action = menu->addAction(QString::fromWCharArray(mode.local));
        action->setCheckable(true);
        action->setChecked((present & mode.bit) != 0);
        connect(action, &QAction::triggered, this,
                [this, present, mode] { setVariable(L"OSMODE", present ^ mode.bit); });
    }
    return menu;
}

QMenu* StatusBar::angleMenu() {
    auto* const menu = new QMenu(this);
    const double present = qRadiansToDegrees(m_editor->variables().real(L"POLARANG"));
    for (const double angle : kPolarAngles) {
        QAction* const action =
            menu->addAction(QLocale::c().toString(angle, 'g', 4).replace('.', ',') + u'°');
        action->setCheckable(true);
        action->setChecked(std::abs(angle - present) < 1e-6);
        connect(action, &QAction::triggered, this, [this, angle] {
            (void)m_editor->variables().set(L"POLARANG", qDegreesToRadians(angle));  // in range
            emit changed();
        });
    }
    return menu;
}

void StatusBar::refresh() {
    if (m_editor == nullptr) return;
    m_scale->refresh();
    for (std::size_t i = 0; i < m_buttons.size(); ++i)
        m_buttons[i]->setChecked(shownAsOn(kAids[i]));
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
