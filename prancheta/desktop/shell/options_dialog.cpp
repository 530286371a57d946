// SPDX-License-Identifier: MIT
// The dialog of the window's options.
#include "prancheta/desktop/shell/options_dialog.h"

#include <QCheckBox>
#include <QColorDialog>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QFontDialog>
#include <QFormLayout>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSpinBox>
#include <QTabWidget>
#include <QToolButton>
#include <QVBoxLayout>

#include <memory>

#include "prancheta/editor/snap_modes.h"

namespace prancheta::desktop {
namespace {

/// A value that is chosen in a window of its own, with a button that gives it up.
QWidget* chosenValue(QPushButton* value, QToolButton* usual) {
    auto* const both = new QWidget;
    auto* const row = new QHBoxLayout(both);
    row->setContentsMargins(0, 0, 0, 0);
    row->addWidget(value, 1);
    row->addWidget(usual);
    usual->setText("Usual");
    usual->setToolTip("Volta ao valor usual");
    return both;
}

}  // namespace

OptionsDialog::OptionsDialog(const WindowOptions& options, QWidget* parent)
    : QDialog(parent), m_options(options) {
    setWindowTitle("Opções — Prancheta");
    setObjectName("opcoes");
    auto* const pages = new QTabWidget(this);
    pages->setAccessibleName("Páginas das opções");
    pages->addTab(appearancePage(), "A&parência");
    pages->addTab(drawingPage(), "&Desenho");
    pages->addTab(filesPage(), "Ar&quivos");
    auto* const buttons =
        new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    buttons->button(QDialogButtonBox::Cancel)->setText("&Cancelar");
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto* const column = new QVBoxLayout(this);
    column->addWidget(pages);
    column->addWidget(buttons);
}

WindowOptions OptionsDialog::options() const {
    WindowOptions out = m_options;
    for (const auto& take : m_takers) take(out);
    return out;
}

// --- Fields -------------------------------------------------------------------------------------

void OptionsDialog::addChoice(QFormLayout& form, const QString& label, const QString& name,
                              const QStringList& texts, int chosen,
                              std::function<void(WindowOptions&, int)> take) {
    auto* const box = new QComboBox;
    box->setObjectName(name);
    box->addItems(texts);
    box->setCurrentIndex(chosen);
    m_takers.push_back(
        [box, take = std::move(take)](WindowOptions& out) { take(out, box->currentIndex()); });
    form.addRow(label, box);
}

void OptionsDialog::addNumber(QFormLayout& form, const QString& label, const QString& name,
                              int WindowOptions::*member, int least, int most, const QString& unit,
                              const QString& atLeast) {
    auto* const box = new QSpinBox;
    box->setObjectName(name);
    box->setRange(least, most);
    box->setSuffix(unit);
    box->setSpecialValueText(atLeast);
    box->setValue(m_options.*member);
    m_takers.push_back([box, member](WindowOptions& out) { out.*member = box->value(); });
    form.addRow(label, box);
}

void OptionsDialog::addColor(QFormLayout& form, const QString& label, const QString& name,
                             QColor WindowOptions::*member) {
    auto* const button = new QPushButton;
    auto* const usual = new QToolButton;
    button->setObjectName(name);
    const auto color = std::make_shared<QColor>(m_options.*member);
    const auto show = [button, color] {
        QPixmap swatch(32, 14);
        swatch.fill(color->isValid() ? *color : Qt::transparent);
        button->setIcon(QIcon(swatch));
        button->setText(color->isValid() ? color->name() : "a do fundo escolhido");
    };
    show();
    connect(button, &QPushButton::clicked, this, [this, color, show] {
        const QColor chosen = QColorDialog::getColor(*color, this, "Cor — Prancheta");
        if (chosen.isValid()) *color = chosen;
        show();
    });
    connect(usual, &QToolButton::clicked, this, [color, show] {
        *color = QColor();
        show();
    });
    m_takers.push_back([color, member](WindowOptions& out) { out.*member = *color; });
    form.addRow(label, chosenValue(button, usual));
}

void OptionsDialog::addFont(QFormLayout& form, const QString& label, const QString& name,
                            QString WindowOptions::*member) {
    auto* const button = new QPushButton;
    auto* const usual = new QToolButton;
    button->setObjectName(name);
    const auto font = std::make_shared<QString>(m_options.*member);
    const auto show = [button, font] {
        QFont shown;
        const bool own = !font->isEmpty() && shown.fromString(*font);
        button->setText(own ? QString("%1, %2").arg(shown.family()).arg(shown.pointSize())
                            : "a do sistema");
    };
    show();
    connect(button, &QPushButton::clicked, this, [this, font, show] {
        QFont now = this->font();
        if (!font->isEmpty()) now.fromString(*font);
        bool chosen = false;
        now = QFontDialog::getFont(&chosen, now, this, "Fonte — Prancheta");
        if (chosen) *font = now.toString();
        show();
    });
    connect(usual, &QToolButton::clicked, this, [font, show] {
        font->clear();
        show();
    });
    m_takers.push_back([font, member](WindowOptions& out) { out.*member = *font; });
    form.addRow(label, chosenValue(button, usual));
}

void OptionsDialog::addPath(QFormLayout& form, const QString& label, const QString& name,
                            QString WindowOptions::*member, Path kind, const QString& usual) {
    auto* const edit = new QLineEdit(m_options.*member);
    edit->setObjectName(name);
    edit->setPlaceholderText(usual);
    edit->setMinimumWidth(260);
    auto* const choose = new QToolButton;
    choose->setText("...");
    choose->setAccessibleName("Escolher");
    connect(choose, &QToolButton::clicked, this, [this, edit, kind] {
        const QString chosen =
            kind == Path::Folder
                ? QFileDialog::getExistingDirectory(this, "Pasta — Prancheta", edit->text())
                : QFileDialog::getOpenFileName(this, "Modelo de novos desenhos — Prancheta",
                                               edit->text(), "Desenhos DXF (*.dxf)");
        if (!chosen.isEmpty()) edit->setText(chosen);
    });
    auto* const row = new QHBoxLayout;
    row->addWidget(edit);
    row->addWidget(choose);
    m_takers.push_back(
        [edit, member](WindowOptions& out) { out.*member = edit->text().trimmed(); });
    auto* const words = new QLabel(label);
    words->setBuddy(edit);
    form.addRow(words, row);
}

// --- Pages --------------------------------------------------------------------------------------

QWidget* OptionsDialog::appearancePage() {
    auto* const page = new QWidget;
    auto& form = *new QFormLayout(page);
    addChoice(form, "&Tema:", "tema", {"Do sistema", "Claro", "Escuro", "Alto contraste"},
              static_cast<int>(m_options.theme),
              [](WindowOptions& out, int chosen) { out.theme = static_cast<Theme>(chosen); });
    addChoice(form, "&Fundo do desenho:", "fundo", {"Escuro", "Claro"},
              m_options.darkGround ? 0 : 1,
              [](WindowOptions& out, int chosen) { out.darkGround = chosen == 0; });
    addColor(form, "Cor do f&undo:", "cor_fundo", &WindowOptions::ground);
    addColor(form, "Cor do cu&rsor:", "cor_cursor", &WindowOptions::cursor);
    addColor(form, "Cor dos &snaps:", "cor_snaps", &WindowOptions::snap);
    addFont(form, "Fonte da &janela:", "fonte", &WindowOptions::font);
    addFont(form, "Fonte da &linha de comando:", "fonte_comando", &WindowOptions::commandFont);
    addChoice(form, "&Números nos painéis:", "numeros", {"com vírgula: 12,50", "com ponto: 12.50"},
              m_options.decimalPoint ? 1 : 0,
              [](WindowOptions& out, int chosen) { out.decimalPoint = chosen == 1; });
    return page;
}

QWidget* OptionsDialog::drawingPage() {
    auto* const page = new QWidget;
    auto& form = *new QFormLayout(page);
    addNumber(form, "&Tamanho do cursor em cruz:", "cursor", &WindowOptions::crosshair, 1, 100,
              " % da tela");
    addNumber(form, "Cai&xa de escolha, do centro ao lado:", "caixa", &WindowOptions::pickBox, 0,
              50, " pixels");
    addChoice(form, "&Alças nos objetos escolhidos:", "alcas", {"Mostrar", "Não mostrar"},
              m_options.grips ? 0 : 1,
              [](WindowOptions& out, int chosen) { out.grips = chosen == 0; });
    addNumber(form, "A&lça, do centro ao lado:", "tamanho_alcas", &WindowOptions::gripSize, 1, 25,
              " pixels");
    auto* const group = new QGroupBox("Snaps a objetos");
    auto* const grid = new QGridLayout(group);
    constexpr int kColumns = 3;
    int place = 0;
    for (const SnapMode& mode : kSnapModes) {
        auto* const box = new QCheckBox(QString::fromWCharArray(mode.local));
        box->setObjectName(QString("snap_%1").arg(mode.bit));
        box->setChecked((m_options.snaps & mode.bit) != 0);
        m_takers.push_back([box, bit = mode.bit](WindowOptions& out) {
            out.snaps = box->isChecked() ? out.snaps | bit : out.snaps & ~bit;
        });
        grid->addWidget(box, place / kColumns, place % kColumns);
        ++place;
    }
    form.addRow(group);
    return page;
}

QWidget* OptionsDialog::filesPage() {
    auto* const page = new QWidget;
    auto& form = *new QFormLayout(page);
    addNumber(form, "Cópia de &recuperação a cada:", "minutos", &WindowOptions::recoveryMinutes, 0,
              600, " min", "Desligada");
    addPath(form, "&Modelo de novos desenhos:", "modelo", &WindowOptions::templateFile, Path::File,
            "o da pasta de instalação");
    addPath(form, "Pa&sta dos desenhos:", "pasta", &WindowOptions::drawingFolder, Path::Folder,
            "a do último desenho");
    return page;
}

}  // namespace prancheta::desktop
