// SPDX-License-Identifier: MIT
// Options of the window and their dialog.
#include "prancheta/desktop/shell/options.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QPushButton>
#include <QSettings>
#include <QSpinBox>
#include <QToolButton>
#include <QVBoxLayout>

namespace prancheta::desktop {
namespace {

constexpr auto kGround = "opcoes/fundo_escuro";
constexpr auto kMinutes = "opcoes/recuperacao_minutos";
constexpr auto kCrosshair = "opcoes/cursor_por_cento";
constexpr auto kTemplate = "opcoes/modelo";

}  // namespace

WindowOptions WindowOptions::load() {
    const QSettings settings;
    const WindowOptions usual;
    WindowOptions out;
    out.darkGround = settings.value(kGround, usual.darkGround).toBool();
    out.recoveryMinutes =
        std::clamp(settings.value(kMinutes, usual.recoveryMinutes).toInt(), 0, 600);
    out.crosshair = std::clamp(settings.value(kCrosshair, usual.crosshair).toInt(), 1, 100);
    out.templateFile = settings.value(kTemplate).toString();
    return out;
}

void WindowOptions::save() const {
    QSettings settings;
    settings.setValue(kGround, darkGround);
    settings.setValue(kMinutes, recoveryMinutes);
    settings.setValue(kCrosshair, crosshair);
    settings.setValue(kTemplate, templateFile);
}

OptionsDialog::OptionsDialog(const WindowOptions& options, QWidget* parent)
    : QDialog(parent),
      m_ground(new QComboBox(this)),
      m_minutes(new QSpinBox(this)),
      m_crosshair(new QSpinBox(this)),
      m_template(new QLineEdit(options.templateFile, this)) {
    setWindowTitle("Opções");
    m_ground->addItems({"Escuro", "Claro"});
    m_ground->setCurrentIndex(options.darkGround ? 0 : 1);
    m_minutes->setRange(0, 600);
    m_minutes->setSuffix(" min");
    m_minutes->setSpecialValueText("Desligada");
    m_minutes->setValue(options.recoveryMinutes);
    m_crosshair->setRange(1, 100);
    m_crosshair->setSuffix(" % da tela");
    m_crosshair->setValue(options.crosshair);
    m_template->setObjectName("modelo");
    m_template->setPlaceholderText("o da pasta de instalação");
    auto* const choose = new QToolButton(this);
    choose->setText("...");
    connect(choose, &QToolButton::clicked, this, [this] {
        const QString file = QFileDialog::getOpenFileName(
            this, "Modelo de novos desenhos", m_template->text(), "Desenhos DXF (*.dxf)");
        if (!file.isEmpty()) m_template->setText(file);
    });
    auto* const model = new QHBoxLayout;
    model->addWidget(m_template);
    model->addWidget(choose);

    auto* const form = new QFormLayout;
    form->addRow("&Fundo do desenho:", m_ground);
    form->addRow("Cópia de &recuperação a cada:", m_minutes);
    form->addRow("&Tamanho do cursor em cruz:", m_crosshair);
    form->addRow("&Modelo de novos desenhos:", model);
    auto* const buttons =
        new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    buttons->button(QDialogButtonBox::Cancel)->setText("&Cancelar");
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto* const column = new QVBoxLayout(this);
    column->addLayout(form);
    column->addWidget(buttons);
}

WindowOptions OptionsDialog::options() const {
    WindowOptions out;
    out.darkGround = m_ground->currentIndex() == 0;
    out.recoveryMinutes = m_minutes->value();
    out.crosshair = m_crosshair->value();
    out.templateFile = m_template->text().trimmed();
    return out;
}

}  // namespace prancheta::desktop
