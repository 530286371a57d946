// SPDX-License-Identifier: MIT
// The panel that a new window shows.
#include "prancheta/desktop/shell/start_page.h"

#include <QEvent>
#include <QFileInfo>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QScrollArea>

#include "prancheta/desktop/shell/icons.h"

namespace prancheta::desktop {
namespace {

constexpr int kPicture = 28;  // side, pixels of the layout
constexpr int kPicturesInRow = 5;
constexpr qsizetype kMostFiles = 6;
constexpr auto kIcon = "icone";

QLabel* heading(const QString& text, QWidget* parent) {
    auto* const label = new QLabel(text, parent);
    QFont bold = label->font();
    bold.setBold(true);
    label->setFont(bold);
    label->setContentsMargins(0, 6, 0, 0);
    return label;
}

/// As wide as the page, however long the name is.
QToolButton* line(const QString& icon, const QString& text, QWidget* parent) {
    auto* const button = new QToolButton(parent);
    button->setProperty(kIcon, icon);
    button->setIcon(drawnIcon(icon, parent->palette()));
    button->setText(text);
    button->setAutoRaise(true);
    button->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    button->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    return button;
}

}  // namespace

StartPage::StartPage() : m_files(new QVBoxLayout), m_scale(new ScaleButton) {
    auto* const page = new QWidget;
    m_column = new QVBoxLayout(page);
    m_column->setContentsMargins(6, 0, 6, 6);
    m_column->setSpacing(2);
    const struct {
        const char* icon;
        const char* text;
        const char* command;
    } kBeginnings[] = {{"novo", "Novo desenho", "_NEW"}, {"abrir", "Abrir desenho...", "_OPEN"}};
    for (const auto& beginning : kBeginnings) {
        QToolButton* const button = line(beginning.icon, beginning.text, page);
        connect(button, &QToolButton::clicked, this,
                [this, command = beginning.command] { emit commandWanted(command); });
        m_column->addWidget(button);
    }
    m_column->addWidget(heading("Desenhos recentes", page));
    m_files->setSpacing(0);
    m_column->addLayout(m_files);
    auto* const scale = new QHBoxLayout;
    scale->addWidget(heading("Escala do desenho", page));
    m_scale->setObjectName("inicio_escala");
    connect(m_scale, &ScaleButton::scaleWanted, this, &StartPage::commandWanted);
    scale->addWidget(m_scale, 0, Qt::AlignBottom);
    scale->addStretch(1);
    m_column->addLayout(scale);
    m_column->addStretch(1);
    auto* const area = new QScrollArea(this);
    area->setFrameShape(QFrame::NoFrame);
    area->setFocusPolicy(Qt::NoFocus);  // it follows the keyboard inside
    area->setWidgetResizable(true);
    area->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    area->setWidget(page);
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(area);
    setRecent({});
}

/// Another theme.
void StartPage::changeEvent(QEvent* event) {
    Panel::changeEvent(event);
    if (event->type() != QEvent::PaletteChange) return;
    for (QToolButton* const button : findChildren<QToolButton*>())
        if (const QString icon = button->property(kIcon).toString(); !icon.isEmpty())
            button->setIcon(drawnIcon(icon, palette()));
}

void StartPage::setEditor(Editor* editor) { m_scale->setEditor(editor); }

void StartPage::refresh() { m_scale->refresh(); }

void StartPage::setRecent(const QStringList& files) {
    while (QLayoutItem* const item = m_files->takeAt(0)) {
        item->widget()->deleteLater();
        delete item;
    }
    for (const QString& file : files.first(std::min(files.size(), kMostFiles))) {
        QToolButton* const button = line("folha", QFileInfo(file).fileName(), this);
        button->setToolTip(file);
        connect(button, &QToolButton::clicked, this, [this, file] { emit fileWanted(file); });
        m_files->addWidget(button);
    }
    if (files.isEmpty()) m_files->addWidget(new QLabel("Nenhum ainda.", this));
}

void StartPage::addFamily(const QString& title, const QList<QAction*>& actions) {
    auto* const grid = new QGridLayout;
    grid->setSpacing(2);
    grid->setColumnStretch(kPicturesInRow, 1);
    int place = 0;
    for (QAction* const action : actions) {
        auto* const button = new QToolButton(this);
        button->setDefaultAction(action);
        button->setIconSize({kPicture, kPicture});
        button->setAutoRaise(true);
        grid->addWidget(button, place / kPicturesInRow, place % kPicturesInRow);
        ++place;
    }
    const int before = m_column->count() - 1;  // the stretch stays last
    m_column->insertWidget(before, heading(title, this));
    m_column->insertLayout(before + 1, grid);
}

}  // namespace prancheta::desktop
